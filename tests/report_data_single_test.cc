// SPDX-License-Identifier: BSD-3-Clause
// Report data of a single run: procData and aggData per metric, the call tree
// and the phase cell styles, compared with golden text; numbers as the page's
// script reads them.
#include <gtest/gtest.h>

#include <limits>

#include "analysis/report_data.h"
#include "analysis/report_data_text.h"
#include "compare_test_points.h"
#include "golden_text.h"

namespace {

using namespace compare_test;

CallTreeNodePtr node(std::vector<std::int32_t> ids, std::vector<CallTreeNodePtr> children = {}) {
  auto n = std::make_shared<callTreeNode>();
  n->ids = std::move(ids);
  n->children = std::move(children);
  return n;
}

// Each emitter on small hand-made inputs: every metric, one-sided and empty
// inputs, an unknown metric; the texts are kept in tests/golden.
TEST(ReportDataSingle, EmittedTextPerMetric) {
  tgtest::GoldenFile golden("report_data_single");
  // procData: a host parent, a Cogwheel leaf and a Loomchart gap leaf.
  auto host = parent(timed(point(3, 0, "1"), 0, 1.5, 0, 1.25), {2});
  auto cw = timed(point(4, 0, "1.1", {1, 5, 7}), 0.25, 1234.5678, 0.000012345678, 1);
  auto lc = timed(point(6, 1, "2", {2, 2, 3, 4, 5}), 1.5, 0.1, 1.25, 0);
  lc->flags.gapRow = 1;
  golden.expect("procData time", writeProcData({host, cw, lc}, "time"));
  golden.expect("procData empty", writeProcData({}, "time"));
  golden.expect("procData unknown metric", writeProcData({point(1, 2, "1")}, "cpu"));
  // Self fields of basic memory cross over: a parent's are 0.
  auto leaf = point(1, 0, "1.1");
  setBasic(*leaf, 1, 100, 2, 120.5, 3);
  auto top = parent(point(2, 0, "1"), {2});
  setBasic(*top, -1, 100, 2, 120, 3);
  golden.expect("procData basicmemory", writeProcData({top, leaf}, "basicmemory"));
  // Detailed memory: the start columns of a parent, and a point without a record.
  setDetailed(*leaf->detailedMem, 10, 20, 30, 40, 50);
  setDetailed(*top->detailedMem, 11, 21, 31, 41, 51);
  setDetailed(*top->detailedStartMem, 1, 2, 3, 4, 5);
  auto bare = point(3, 0, "2");
  bare->detailedMem.reset();
  golden.expect("procData detailedmemory", writeProcData({top, leaf, bare}, "detailedmemory"));

  AggregateTable table;
  table.emplace(4, aggregate(4, true, 3, 0.3, 12.25));
  golden.expect("aggData time aggregateOnly", writeAggData(table, "time", true));
  golden.expect("aggData time with detail", writeAggData(table, "time", false));
  golden.expect("aggData empty", writeAggData({}, "time", true));
  AggregateTable memory;
  auto a = aggregate(2, false, 1, 0, 0);
  a->procMemUsageDeltaSelf = -1.5, a->procMemUsageMax = 200, a->procMemUsagePeakDeltaSelf = 2;
  a->procMemUsagePeakMax = 250;
  a->freeMemMax = 1, a->resMemMax = 2, a->commitMemMax = 3, a->dllsMemMax = 4, a->nonprocessMemMax = 5;
  memory.emplace(2, std::move(a));
  golden.expect("aggData basicmemory", writeAggData(memory, "basicmemory", true));
  golden.expect("aggData detailedmemory", writeAggData(memory, "detailedmemory", true));

  // Root 0 with children 1 (with child 2) and 3; root 4 with child 5.
  const CallTree roots{node({0, 6}, {node({1, 7}, {node({2})}), node({3})}), node({4}, {node({5})})};
  golden.expect("callTree nested roots", writeCallTree(roots));
  golden.expect("callTree empty", writeCallTree({}));
  golden.expect("phase cell styles 2", writePhaseCellStyles(2));
  EXPECT_EQ(writePhaseCellStyles(0), "");
  EXPECT_EQ(writePhaseCellStyles(-1), "");
}

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
