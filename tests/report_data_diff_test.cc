// Report data of a comparison: procData and aggData rows with both sides, one
// side (-99.99) and the RHS-only parent that keeps the self times of the row
// before it; the hit-count deviation.
#include <gtest/gtest.h>

#include "analysis/deviation_rows.h"
#include "analysis/report_data.h"
#include "compare_test_points.h"
#include "report_data_literals.h"

namespace {

using namespace compare_test;

using report_literals::kProcHead;
using report_literals::kRowSep;
const std::string kProcTail = "        var numBlankData = 0;\n        var procData = [";

TEST(ReportDataDiffProc, TimeRowsOfEverySide) {
  std::vector<ProcessedComparisonRow> rows;
  rows.push_back({timed(point(3, 0, "1"), 0, 2, 0, 1), timed(point(3, 0, "1"), 0, 2.006, 0, 1), 0});
  rows.push_back({nullptr, timed(point(4, 1, "2", {1, 5, 7}), 0, 3.2, 0, 0.5), 2});
  // A parent only in the RHS: its RHS self times stay those of the row above.
  rows.push_back({nullptr, parent(timed(point(5, 0, "3"), 0, 7, 0, 6), {9}), 2});
  rows.push_back({timed(point(6, 0, "4"), 0, 3.2, 0, 0), nullptr, 1});
  EXPECT_EQ(writeDiffProcData(rows, "time"),
            kProcHead +
                "LHS_WCSelf LHS_WCSelfPlusChild LHS_CPUSself LHS_CPUSelfPlusChild "
                "RHS_WCSelf RHS_WCSelfPlusChild RHS_CPUSelf RHS_CPUSelfPlusChild "
                "WCSelfAbsDev WCSelfRelDev WCSelfBkgColor WCSCAbsDev WCSCRelDev WCSCBkgColor "
                "CPUSelfAbsDev CPUSelfRelDev CPUSelfBkgColor CPUSCAbsDev CPUSCRelDev CPUSCBkgColor\");\n" +
                kProcTail +
                "new dataStruct(0,\"1\",0,3,0,-1,-1,-1,-1,2,2,1,1,2.006,2.006,1,1,"
                "0.01,0.5,\" BETWN_0_5\",0.01,0.5,\" BETWN_0_5\",0,0,\" BETWN_M5_0\",0,0,\" BETWN_M5_0\")" +
                kRowSep +
                "new dataStruct(0,\"2\",0,4,1,5,7,-1,-1,-99.99,-99.99,-99.99,-99.99,3.2,3.2,0.5,0.5,"
                "3.2,100,\" GT50\",3.2,100,\" GT50\",0.5,100,\" GT50\",0.5,100,\" GT50\")" +
                kRowSep +
                "new dataStruct(1,\"3\",0,5,0,-1,-1,-1,-1,-99.99,-99.99,-99.99,-99.99,3.2,7,0.5,6,"
                "0,0,\" BETWN_M5_0\",7,100,\" GT50\",0,0,\" BETWN_M5_0\",6,100,\" GT50\")" +
                kRowSep +
                "new dataStruct(0,\"4\",0,6,0,-1,-1,-1,-1,3.2,3.2,0,0,-99.99,-99.99,-99.99,-99.99,"
                "-3.2,-100,\" LTM50\",-3.2,-100,\" LTM50\",0,0,\" BETWN_M5_0\",0,0,\" BETWN_M5_0\")];\n");
}

TEST(ReportDataDiffProc, ParentOnEitherSideZeroesBothSelfTimes) {
  auto leaf = timed(point(3, 0, "1"), 0, 4, 0, 2);
  auto top = parent(timed(point(3, 0, "1"), 0, 5, 0, 3), {2});
  leaf->flags.gapRow = 1;
  const std::string text = writeDiffProcData({{leaf, top, 0}}, "time");
  // isParent and GapRow are 1 when either side has them; the self values are 0
  // in the record, while the deviation compares each side by itself.
  EXPECT_NE(text.find("new dataStruct(1,\"1\",1,3,0,-1,-1,-1,-1,0,4,0,2,0,5,0,3,"
                      "-4,-100,\" LTM50\",1,25,\" BETWN_20_25\",-2,-100,\" LTM50\",1,50,\" BETWN_45_50\")"),
            std::string::npos)
      << text;
}

TEST(ReportDataDiffProc, BasicMemory) {
  auto lhs = point(1, 0, "1");
  setBasic(*lhs, -2, 100, 1, 110, 0);
  auto rhs = point(1, 0, "1");
  setBasic(*rhs, 2, 100, 1, 110, 0);
  EXPECT_EQ(writeDiffProcData({{lhs, rhs, 0}, {nullptr, rhs, 2}}, "basicmemory"),
            kProcHead +
                "LHS_UsageDelta LHS_Usage LHS_UsagePeakDelta LHS_UsagePeak "
                "RHS_UsageDelta RHS_Usage RHS_UsagePeakDelta RHS_UsagePeak "
                "UsageDeltaAbsDev UsageDeltaRelDev UsageDeltaBkgColor UsageAbsDev UsageRelDev UsageBkgColor "
                "UsagePeakDeltaAbsDev UsagePeakDeltaRelDev UsagePeakDeltaBkgColor UsagePeakAbsDev UsagePeakRelDev "
                "UsagePeakBkgColor\");\n" +
                kProcTail + "new dataStruct(0,\"1\",0,1,0,-1,-1,-1,-1,-2,100,1,110,2,100,1,110," +
                "4,200,\" GT50\",0,0,\" BETWN_M5_0\",0,0,\" BETWN_M5_0\",0,0,\" BETWN_M5_0\")" + kRowSep +
                "new dataStruct(0,\"1\",0,1,0,-1,-1,-1,-1,-99.99,-99.99,-99.99,-99.99,2,100,1,110," +
                "2,100,\" GT50\",100,100,\" GT50\",1,100,\" GT50\",110,100,\" GT50\")];\n");
}

TEST(ReportDataDiffProc, DetailedMemoryResetsAndStartColumns) {
  auto top = parent(point(1, 0, "1"), {2});
  setDetailed(*top->detailedMem, 10, 20, 30, 40, 50);
  setDetailed(*top->detailedStartMem, 1, 2, 3, 4, 5);
  auto bare = point(1, 0, "1");
  bare->detailedMem.reset();
  const std::string text = writeDiffProcData({{top, bare, 0}, {nullptr, top, 2}}, "detailedmemory");
  EXPECT_EQ(text.substr(0, kProcHead.size() + 60), kProcHead + "LHS_Free LHS_Reserved LHS_Committed LHS_Dlls LHS_NonProcess ");
  EXPECT_NE(text.find("new dataStruct(1,\"1\",0,1,0,-1,-1,-1,-1,10,20,30,40,50,1,2,3,4,5,0,0,0,0,0,0,0,0,0,0,"
                      "-10,-100,\" LTM50\",-20,-100,\" LTM50\",-30,-100,\" LTM50\",-40,-100,\" LTM50\","
                      "-50,-100,\" LTM50\",-1,-100,\" LTM50\",-2,-100,\" LTM50\",-3,-100,\" LTM50\","
                      "-4,-100,\" LTM50\",-5,-100,\" LTM50\")"),
            std::string::npos)
      << text;
  EXPECT_NE(text.find("-1,-99.99,-99.99,-99.99,-99.99,-99.99,-99.99,-99.99,-99.99,-99.99,-99.99,"
                      "10,20,30,40,50,1,2,3,4,5,10,100,"),
            std::string::npos)
      << text;
}

TEST(ReportDataDiffProc, UnknownMetricWritesFixedColumnsOnly) {
  EXPECT_EQ(writeDiffProcData({{nullptr, point(2, 3, "1.2"), 2}}, "rss"),
            kProcHead + "\");\n" + kProcTail + "new dataStruct(0,\"1.2\",0,2,3,-1,-1,-1,-1)];\n");
  const std::string empty = writeDiffProcData({}, "time");
  EXPECT_TRUE(empty.ends_with("CPUSCBkgColor\");\n" + kProcTail + "];\n")) << empty;
}

const std::string kAggHead =
    "        var aggDataView = new Array();\n"
    "        aggDataView['Index'] = new Array();\n"
    "        var aggSortInfo = new Array();\n"
    "        var aggDataViewCreated = false;\n"
    "        var ctDataViewCreated  = false;\n"
    "        var numRows = new Array();\n"
    "        numRows['Aggregate'] = 0;\n"
    "        numRows['CallTree']  = 0;\n"
    "        numRows['Detail']    = 0;\n"
    "        aggSortInfo['Col'] = '';\n"
    "        aggSortInfo['Asc'] = false;\n"
    "        var aggDataStruct = makeStruct(\"IsParent Phase LHS_Count RHS_Count CountAbsDev ";

TEST(ReportDataDiffAgg, TimeRowsAndCounts) {
  const auto lhs = aggregate(4, true, 3, 1, 10);
  const auto rhs = aggregate(4, true, 5, 1, 13.2);
  const auto onlyLhs = aggregate(7, false, 2, 3.2, 3.2);
  const auto onlyRhs = aggregate(8, false, 4, 0.5, 0.5);
  const std::vector<AggregateComparisonRow> rows{{lhs.get(), rhs.get(), 0}, {onlyLhs.get(), nullptr, 1},
                                                 {nullptr, onlyRhs.get(), 2}};
  EXPECT_EQ(countAbsDev(rows[0]), 2);
  EXPECT_EQ(countAbsDev(rows[1]), 2);
  EXPECT_EQ(countAbsDev(rows[2]), 4);
  EXPECT_EQ(writeDiffAggData(rows, "time"),
            kAggHead +
                "LHS_WCSelf LHS_WCSelfPlusChild RHS_WCSelf RHS_WCSelfPlusChild "
                "WCSelfAbsDev WCSelfRelDev WCSelfBkgColor WCSCAbsDev WCSCRelDev WCSCBkgColor\");\n"
                "        var aggData = [new aggDataStruct(1,4,3,5,2,1,10,1,13.2,0,0,\" BETWN_M5_0\",3.2,32,\" BETWN_25_30\")" +
                kRowSep + "new aggDataStruct(0,7,2,-99.99,2,3.2,3.2,-99.99,-99.99,-3.2,-100,\" LTM50\",-3.2,-100,\" LTM50\")" +
                kRowSep + "new aggDataStruct(0,8,-99.99,4,4,-99.99,-99.99,0.5,0.5,0.5,100,\" GT50\",0.5,100,\" GT50\")];\n");
}

TEST(ReportDataDiffAgg, MemoryColumns) {
  auto lhs = aggregate(1, false, 1, 0, 0);
  lhs->freeMemMax = 100, lhs->resMemMax = 10, lhs->commitMemMax = 20, lhs->dllsMemMax = 5, lhs->nonprocessMemMax = 1;
  lhs->procMemUsageDeltaSelf = -2, lhs->procMemUsageMax = 50;
  const std::vector<AggregateComparisonRow> rows{{lhs.get(), nullptr, 1}};
  EXPECT_EQ(writeDiffAggData(rows, "detailedmemory"),
            kAggHead +
                "LHS_Free LHS_Reserved LHS_Committed LHS_Dlls LHS_NonProcess "
                "RHS_Free RHS_Reserved RHS_Committed RHS_Dlls RHS_NonProcess "
                "FreeAbsDev FreeRelDev FreeBkgColor ReservedAbsDev ReservedRelDev ReservedBkgColor "
                "CommittedAbsDev CommittedRelDev CommittedBkgColor DllsAbsDev DllsRelDev DllsBkgColor "
                "NonProcessAbsDev NonProcessRelDev NonProcessBkgColor\");\n"
                "        var aggData = [new aggDataStruct(0,1,1,-99.99,1,100,10,20,5,1,"
                "-99.99,-99.99,-99.99,-99.99,-99.99,-100,-100,\" LTM50\",-10,-100,\" LTM50\",-20,-100,\" LTM50\","
                "-5,-100,\" LTM50\",-1,-100,\" LTM50\")];\n");
  const std::string basic = writeDiffAggData(rows, "basicmemory");
  EXPECT_NE(basic.find("new aggDataStruct(0,1,1,-99.99,1,-2,50,0,0,-99.99,-99.99,-99.99,-99.99,"
                       "2,100,\" GT50\",-50,-100,\" LTM50\",0,0,\" BETWN_M5_0\",0,0,\" BETWN_M5_0\")"),
            std::string::npos)
      << basic;
}

}  // namespace
