// The emitters' text run as script: it must parse, build the rows that the
// report's scripts read, and bring hostile names through unchanged.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <unistd.h>

#include "analysis/report_data.h"
#include "collect/tempo_gauge.h"
#include "compare_test_points.h"

namespace {

using namespace compare_test;

// Runs the script with Node; false when it throws or an assertion fails.
bool runScript(const std::string& script, const std::string& name) {
  const auto path = std::filesystem::temp_directory_path() / (name + "_" + std::to_string(::getpid()) + ".js");
  std::ofstream(path) << script;
  const int status = std::system(("node " + path.string() + " 1>&2").c_str());
  std::filesystem::remove(path);
  return status == 0;
}

const std::string kPrelude =
    "var navigator = { appName: 'Netscape' };\n"
    "function makeStruct(names) {\n"
    "  var fieldNames = names.split(' ');\n"
    "  return function () { for (var i = 0; i < fieldNames.length; i++) this[fieldNames[i]] = arguments[i]; };\n"
    "}\n"
    "function check(condition, what) { if (!condition) { console.error('failed: ' + what); process.exit(3); } }\n";

class ReportDataScript : public ::testing::Test {
 protected:
  void SetUp() override {
    if (std::system("node --version > /dev/null 2>&1") != 0) GTEST_SKIP() << "node is not installed";
  }
};

TEST_F(ReportDataScript, SingleRunArraysEvaluate) {
  TempoGauge tracer;
  tracer.initialize();
  tracer.lookupId(tg::kPhaseKind, "Load", true);
  tracer.lookupId(tg::kGroupingKind, "q\"t'\\</script>\r\xE2\x80\xA8x\ny", true);
  auto top = parent(timed(point(0, 0, "1"), 0, 1.5, 0, 1), {2});
  auto leaf = timed(point(0, 0, "1.1", {1, 0, 0}), 0.1, 0.000012345678, 0.1, 0.5);
  AggregateTable table;
  table.emplace(0, aggregate(0, true, 2, 0.25, 1.5));
  auto child = std::make_shared<callTreeNode>();
  child->ids = {1};
  auto root = std::make_shared<callTreeNode>();
  root->ids = {0};
  root->children = {child};
  const std::string script = kPrelude + writeNameArrays(&tracer) + writeProcData({top, leaf}, "time") +
                             writeAggData(table, "time", false) + writeCallTree({root}) +
                             "check(Phase.length === 1 && Phase[0] === 'Load', 'phase names');\n"
                             "check(Grouping[0] === \"q\\\"t'\\\\</script>\\r\\u2028x y\", 'hostile name');\n"
                             "check(procData.length === 2 && procData[0].isParent === 1, 'rows');\n"
                             "check(procData[1].WCElapsed === 1.2346e-05 && procData[1].HTMLPhaseNum === '1.1', 'values');\n"
                             "check(procData[1].Chart === -1 && procData[1].Model === 0, 'ids');\n"
                             "check(aggData[0].WCSelfPlusChild === 1.5 && numRows['Detail'] === 0, 'aggregate');\n"
                             "check(callTreeArray[0].children[0].Parent === 0 && nodeArray.length === 2, 'tree');\n"
                             "check(nodeArray[0].show === true && nodeArray[1].show === false, 'show');\n";
  EXPECT_TRUE(runScript(script, "tg_single"));
}

TEST_F(ReportDataScript, ComparisonArraysEvaluate) {
  std::vector<ProcessedComparisonRow> rows{{nullptr, timed(point(0, 0, "1"), 0, 3.2, 0, 0), 2},
                                           {timed(point(0, 0, "1"), 0, 3.2, 0, 0), nullptr, 1}};
  const auto lhs = aggregate(0, false, 3, 1, 10);
  const auto rhs = aggregate(0, false, 5, 1, 13.2);
  const std::vector<AggregateComparisonRow> aggRows{{lhs.get(), rhs.get(), 0}, {nullptr, rhs.get(), 2}};
  std::string script = kPrelude;
  for (const char* metric : {"time", "basicmemory", "detailedmemory"})
    script += writeDiffProcData(rows, metric) + writeDiffAggData(aggRows, metric);
  script += writeDiffProcData(rows, "time") + writeDiffAggData(aggRows, "time") +
            "check(procData[0].LHS_WCSelf === -99.99 && procData[0].RHS_WCSelf === 3.2, 'sentinel');\n"
            "check(procData[0].WCSCBkgColor === ' GT50' && procData[1].WCSCBkgColor === ' LTM50', 'bands');\n"
            "check(aggData[0].CountAbsDev === 2 && aggData[0].WCSCRelDev === 32, 'counts');\n"
            "check(aggData[0].WCSCBkgColor === ' BETWN_25_30' && aggData[1].LHS_Count === -99.99, 'aggregate');\n";
  EXPECT_TRUE(runScript(script, "tg_diff"));
}

}  // namespace
