// Report data of a single run: procData and aggData per metric, the call tree
// and the phase cell styles, compared with their literal text.
#include <gtest/gtest.h>

#include <limits>

#include "analysis/report_data.h"
#include "analysis/report_data_text.h"
#include "compare_test_points.h"
#include "report_data_literals.h"

namespace {

using namespace compare_test;

using report_literals::kProcHead;
using report_literals::kRowSep;

// A host parent, a Cogwheel leaf and a Loomchart gap leaf.
ProcessedPointVector threeKinds() {
  auto host = parent(timed(point(3, 0, "1"), 0, 1.5, 0, 1.25), {2});
  auto cw = timed(point(4, 0, "1.1", {1, 5, 7}), 0.25, 1234.5678, 0.000012345678, 1);
  auto lc = timed(point(6, 1, "2", {2, 2, 3, 4, 5}), 1.5, 0.1, 1.25, 0);
  lc->flags.gapRow = 1;
  return {host, cw, lc};
}

TEST(ReportDataProc, TimeColumnsAndIdsPerKind) {
  EXPECT_EQ(writeProcData(threeKinds(), "time"),
            kProcHead + "WCStart WCElapsed WCSelf CPUStart CPUElapsed CPUSelf \");\n"
                        "        var numBlankData = 0;\n"
                        "        var procData = [new dataStruct(1,\"1\",0,3,0, -1, -1, -1, -1,0,1.5,0,0,1.25,0)" +
                kRowSep + "new dataStruct(0,\"1.1\",0,4,0,5,7, -1, -1,0.25,1234.6,1234.6,1.2346e-05,1,1)" + kRowSep +
                "new dataStruct(0,\"2\",1,6,1,2,3,4,5,1.5,0.1,0.1,1.25,0,0)];\n");
}

TEST(ReportDataProc, BasicMemoryCrossesSelfFields) {
  auto leaf = point(1, 0, "1.1");
  setBasic(*leaf, 1, 100, 2, 120.5, 3);
  auto top = parent(point(2, 0, "1"), {2});
  setBasic(*top, -1, 100, 2, 120, 3);
  EXPECT_EQ(writeProcData({top, leaf}, "basicmemory"),
            kProcHead +
                "UsageDelta UsageDeltaSelf Usage UsageSelf UsagePeakDelta UsagePeakDeltaSelf UsagePeak UsagePeakSelf"
                "\");\n        var numBlankData = 0;\n"
                "        var procData = [new dataStruct(1,\"1\",0,2,0, -1, -1, -1, -1,-1,0,100,0,2,0,120,0)" +
                kRowSep + "new dataStruct(0,\"1.1\",0,1,0, -1, -1, -1, -1,1,1,100,120.5,2,2,120.5,3)];\n");
}

TEST(ReportDataProc, DetailedMemoryStartColumnsAndMissingRecord) {
  auto leaf = point(1, 0, "1.1");
  setDetailed(*leaf->detailedMem, 10, 20, 30, 40, 50);
  auto top = parent(point(2, 0, "1"), {2});
  setDetailed(*top->detailedMem, 11, 21, 31, 41, 51);
  setDetailed(*top->detailedStartMem, 1, 2, 3, 4, 5);
  auto bare = point(3, 0, "2");
  bare->detailedMem.reset();
  EXPECT_EQ(writeProcData({top, leaf, bare}, "detailedmemory"),
            kProcHead +
                "Free FreeSelf Reserved ReservedSelf Committed CommittedSelf Dlls DllsSelf NonProcess NonProcessSelf "
                "FreeStart ReservedStart CommittedStart DllsStart NonProcessStart\");\n"
                "        var numBlankData = 0;\n"
                "        var procData = [new dataStruct(1,\"1\",0,2,0, -1, -1, -1, -1,11,0,21,0,31,0,41,0,51,0,1,2,3,4,5)" +
                kRowSep +
                "new dataStruct(0,\"1.1\",0,1,0, -1, -1, -1, -1,10,10,20,20,30,30,40,40,50,50,10,20,30,40,50)" +
                kRowSep + "new dataStruct(0,\"2\",0,3,0, -1, -1, -1, -1,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0)];\n");
}

TEST(ReportDataProc, EmptyListAndUnknownMetric) {
  EXPECT_EQ(writeProcData({}, "time"), kProcHead +
                                           "WCStart WCElapsed WCSelf CPUStart CPUElapsed CPUSelf \");\n"
                                           "        var numBlankData = 0;\n"
                                           "        var procData = [];\n");
  EXPECT_EQ(writeProcData({point(1, 2, "1")}, "cpu"), kProcHead +
                                                          "\");\n        var numBlankData = 0;\n"
                                                          "        var procData = [new dataStruct(0,\"1\",0,1,2, -1, "
                                                          "-1, -1, -1)];\n");
}

const std::string kAggHeadAll = report_literals::kSharedVariables +
    "       var aggDataView = new Array();\n"
    "       aggDataView['Index'] = new Array();\n"
    "       var aggSortInfo = new Array();\n"
    "       aggSortInfo['Col'] = '';\n"
    "       aggSortInfo['Asc'] = false;\n"
    "       var aggDataViewCreated = false;\n"
    "       var ctDataViewCreated  = false;\n"
    "       var numRows = new Array();\n"
    "       numRows['Aggregate'] = 0;\n";

TEST(ReportDataAgg, TimeWithAndWithoutDetailTables) {
  AggregateTable table;
  table.emplace(4, aggregate(4, true, 3, 0.3, 12.25));
  const std::string rows =
      "       var aggData = [new aggDataStruct(1,4,3,0.3,12.25)];\n\n";
  const std::string structLine = "       var aggDataStruct = makeStruct(\"IsParent Phase Count WCElapsed WCSelfPlusChild\");\n";
  EXPECT_EQ(writeAggData(table, "time", true), kAggHeadAll + structLine + rows);
  EXPECT_EQ(writeAggData(table, "time", false), kAggHeadAll +
                                                    "       numRows['CallTree']  = 0;\n"
                                                    "       numRows['Detail']    = 0;\n" +
                                                    structLine + rows);
}

TEST(ReportDataAgg, MemoryMetricsAndEmptyTable) {
  AggregateTable table;
  auto a = aggregate(2, false, 1, 0, 0);
  a->procMemUsageDeltaSelf = -1.5, a->procMemUsageMax = 200, a->procMemUsagePeakDeltaSelf = 2, a->procMemUsagePeakMax = 250;
  a->freeMemMax = 1, a->resMemMax = 2, a->commitMemMax = 3, a->dllsMemMax = 4, a->nonprocessMemMax = 5;
  table.emplace(2, std::move(a));
  EXPECT_EQ(writeAggData(table, "basicmemory", true),
            kAggHeadAll + "       var aggDataStruct = makeStruct(\"IsParent Phase Count UsageDelta Usage UsagePeakDelta UsagePeak\");\n"
                          "       var aggData = [new aggDataStruct(0,2,1,-1.5,200,2,250)];\n\n");
  EXPECT_EQ(writeAggData(table, "detailedmemory", true),
            kAggHeadAll + "       var aggDataStruct = makeStruct(\"IsParent Phase Count Free Reserved Committed Dlls NonProcess\");\n"
                          "       var aggData = [new aggDataStruct(0,2,1,1,2,3,4,5)];\n\n");
  EXPECT_EQ(writeAggData({}, "time", true),
            kAggHeadAll + "       var aggDataStruct = makeStruct(\"IsParent Phase Count WCElapsed WCSelfPlusChild\");\n"
                          "       var aggData = [];\n\n");
}

const std::string kCallTreeHead =
    "        var isIE = (navigator.appName.indexOf('Microsoft') > -1);\n"
    "        var CTDataView = new Array();\n"
    "        CTDataView['Index'] = new Array();\n"
    "        CTDataView['Checked'] = new Array();\n"
    "        var nodeArray = new Array();\n"
    "        function createNode(idx, parentIdx, ids, children) {\n"
    "            var node = new Object();\n"
    "            node.index = idx;\n"
    "            node.IDs = ids;\n"
    "            node.Parent = parentIdx;\n"
    "            node.children = children;\n"
    "            node.show = (idx > 0) ? false : true;\n"
    "            nodeArray[idx] = node;\n"
    "            return node;\n"
    "        }\n"
    "        var callTreeArray = new Array();\n";

CallTreeNodePtr node(std::vector<std::int32_t> ids, std::vector<CallTreeNodePtr> children = {}) {
  auto n = std::make_shared<callTreeNode>();
  n->ids = std::move(ids);
  n->children = std::move(children);
  return n;
}

TEST(ReportDataCallTree, NestedRootsNumberInWritingOrder) {
  // Root 0 with children 1 (with child 2) and 3; root 4 with child 5.
  const CallTree roots{node({0, 6}, {node({1, 7}, {node({2})}), node({3})}), node({4}, {node({5})})};
  EXPECT_EQ(writeCallTree(roots), kCallTreeHead +
                                      "        callTreeArray[0] = createNode(0,0, [0, 6], \n"
                                      "[createNode(1,0, [1, 7], \n[createNode(2,1, [2], \n[])]),"
                                      "createNode(3,0, [3], \n[])]);\n"
                                      "        callTreeArray[1] = createNode(4,4, [4], \n"
                                      "[createNode(5,4, [5], \n[])]);\n"
                                      "        CTDataView.AllCTChecked = false;\n");
  EXPECT_EQ(writeCallTree({}), kCallTreeHead + "        CTDataView.AllCTChecked = false;\n");
}

TEST(ReportDataStyles, IndentPerDepth) {
  EXPECT_EQ(writePhaseCellStyles(0), "");
  EXPECT_EQ(writePhaseCellStyles(-1), "");
  EXPECT_EQ(writePhaseCellStyles(2),
            "            table.dataTable td.phaseNameCell0 {\n"
            "                background-color:#FFFFFF;\n"
            "                padding-left:10px;\n            }\n\n"
            "            table.dataTable td.phaseNameCell1 {\n"
            "                background-color:#E7EBF5;\n"
            "                padding-left:35px;\n            }\n\n");
}

}  // namespace

namespace {

TEST(ReportDataNumbers, RealsAreWrittenAsTgFormatDoubleWritesThem) {
  for (const double v : {0.0, -0.0, 1234.5678, 0.000012345678, -3.25, 1e21, 123456.0, 99999.5, 1.0 / 3,
                         std::numeric_limits<double>::denorm_min()}) {
    std::string text;
    tg::report_data::appendReal(text, v);
    EXPECT_EQ(text, tgFormatDouble(v, 5)) << v;
  }
}

// A stream's inf and nan are no script values: the page would stop at the
// data array. Non-finite values (a trace file can hold them) are written as
// the script spells them.
TEST(ReportDataNumbers, NonFiniteRealsAreWrittenAsScriptValues) {
  constexpr double kInf = std::numeric_limits<double>::infinity();
  constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
  for (const auto& [value, text] : std::initializer_list<std::pair<double, std::string_view>>{
           {kInf, "Infinity"}, {-kInf, "-Infinity"}, {kNaN, "NaN"}, {-kNaN, "NaN"}}) {
    std::string out;
    tg::report_data::appendReal(out, value);
    EXPECT_EQ(out, text) << value;
  }
  const auto odd = timed(point(3, 0, "1"), 0, kNaN, 0, kInf);
  EXPECT_NE(writeProcData({odd}, "time").find("new dataStruct(0,\"1\",0,3,0, -1, -1, -1, -1,0,NaN,NaN,0,Infinity,"
                                              "Infinity)"),
            std::string::npos);
  std::vector<ProcessedComparisonRow> rows;
  rows.push_back({odd, nullptr, 1});
  const auto diff = writeDiffProcData(rows, "time");
  EXPECT_NE(diff.find(",NaN,NaN,Infinity,Infinity,-99.99,-99.99,-99.99,-99.99,"), std::string::npos) << diff;
  EXPECT_EQ(diff.find("nan"), std::string::npos) << diff;
  EXPECT_EQ(diff.find("inf"), std::string::npos) << diff;
}

}  // namespace
