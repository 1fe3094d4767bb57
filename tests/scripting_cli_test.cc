// SPDX-License-Identifier: BSD-3-Clause
// The tempogauge command, run as a separate process on real files.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>
#include <string>

#include "collect_store_reset.h"
#include "command_run.h"
#include "scripting_call.h"
#include "tempogauge/tempogauge.h"

namespace {

namespace fs = std::filesystem;
using namespace scripting_test;
using tgtest::CommandResult;
using tgtest::readFile;

class ScriptingCommand : public CollectStoreTest {
 protected:
  CommandResult run(const std::string& args) const { return tgtest::runCommand(dir_, args); }

  // A saved trace of `phases` nested phases, each run twice.
  fs::path saveTrace(const std::string& name, int phases) {
    const std::string g = unique("G");
    tgEnableTracer(g, true);
    for (int round = 0; round < 2; ++round) {
      for (int i = 0; i < phases; ++i) tgLogORRERYData(g, "phase " + std::to_string(i), true);
      for (int i = phases; i-- > 0;) tgLogORRERYData(g, "phase " + std::to_string(i), false);
    }
    const fs::path file = dir_ / name;
    call("saveToFile", inputs(text(file.string())));
    tgClearRawData();
    return file;
  }

  tgtest::ScratchDir scratch_{"tg_cli"};
  const fs::path& dir_ = scratch_.dir();
};

// Help and version on standard output with status 0; a wrong command line on
// standard error with status 2.
TEST_F(ScriptingCommand, HelpVersionAndWrongCommandLines) {
  const struct {
    const char* args;
    int status;
    const char* said;  // in standard output for status 0, else in standard error
  } cases[] = {
      {"--help", 0, "diff"},          {"-h", 0, "summary"},
      {"report --help", 0, "--aggregate"}, {"diff -h", 0, "--rhs-label"},
      {"demo --help", 0, "--out"},     {"--version", 0, "tempogauge 1."},
      {"", 2, "subcommand"},           {"frobnicate", 2, "frobnicate"},
      {"report a.orf --colour red", 2, "--colour"}, {"report a.orf --metric space", 2, "space"},
      {"diff a.orf", 2, "RHS"},       {"summary a.orf b.orf", 2, "b.orf"},
  };
  for (const auto& c : cases) {
    const CommandResult result = run(c.args);
    EXPECT_EQ(result.status, c.status) << c.args << "\n" << result.err;
    const std::string& text = c.status == 0 ? result.out : result.err;
    EXPECT_NE(text.find(c.said), std::string::npos) << c.args << ":\n" << text;
    if (c.status == 0) {
      EXPECT_TRUE(result.err.empty()) << c.args << ": " << result.err;
    }
  }
}

// A trace that cannot be read keeps its message ID and says why, whether the
// command goes through a method (summary, report) or reads it itself (diff).
TEST_F(ScriptingCommand, UnreadableTracesSayWhy) {
  const fs::path good = saveTrace("good.orf", 2);
  fs::create_directory(dir_ / "folder.orf");
  std::ofstream(dir_ / "text.orf") << std::string(300, 'a');
  std::string cut = readFile(good);
  cut.resize(cut.size() - 20);
  std::ofstream(dir_ / "cut.orf", std::ios::binary) << cut;
  const struct {
    const char* file;
    const char* why;
  } cases[] = {{"absent.orf", "no such file"},
               {"folder.orf", "not readable"},
               {"text.orf", "not a level-5 data file"},
               {"cut.orf", "damaged"}};
  for (const auto& c : cases) {
    for (const std::string& command :
         {"summary " + std::string(c.file), "report " + std::string(c.file), "diff good.orf " + std::string(c.file)}) {
      const CommandResult result = run(command);
      EXPECT_EQ(result.status, 1) << command;
      EXPECT_TRUE(result.out.empty()) << command;
      EXPECT_NE(result.err.find("tempogauge:TempoGauge:OpenFileFailed: "), std::string::npos) << result.err;
      EXPECT_NE(result.err.find(std::string(c.file) + "': " + c.why), std::string::npos) << result.err;
    }
  }
}

TEST_F(ScriptingCommand, SummaryPrintsTheAggregateTableAligned) {
  saveTrace("run.orf", 3);
  const CommandResult summary = run("summary run.orf");
  ASSERT_EQ(summary.status, 0) << summary.err;
  std::istringstream lines(summary.out);
  std::string header, rule, row;
  std::getline(lines, header);
  std::getline(lines, rule);
  EXPECT_EQ(header.rfind("Phase", 0), 0u);
  EXPECT_NE(header.find("Wall total (s)"), std::string::npos);
  EXPECT_EQ(rule.find_first_not_of("- "), std::string::npos);
  // Numbers are right-aligned under their heading: each phase ran twice.
  const std::size_t callsEnd = header.find("Calls") + std::string("Calls").size();
  int rows = 0;
  while (std::getline(lines, row) && row.rfind("phase ", 0) == 0) {
    ++rows;
    ASSERT_GT(row.size(), callsEnd) << row;
    EXPECT_EQ(row.substr(callsEnd - 2, 3), " 2 ") << row;
  }
  EXPECT_EQ(rows, 3);
  EXPECT_NE(summary.out.find("3 phases"), std::string::npos);
}

TEST_F(ScriptingCommand, ReportDiffAndDiagnoseWriteTheirFiles) {
  saveTrace("a.orf", 2);
  saveTrace("b.orf", 3);
  const CommandResult report = run("report a.orf");
  ASSERT_EQ(report.status, 0) << report.err;
  EXPECT_NE(report.out.find("a.html"), std::string::npos);
  EXPECT_GT(fs::file_size(dir_ / "a.html"), 1000u);
  ASSERT_EQ(run("report a.orf --aggregate --metric basicmemory -o agg.html").status, 0);
  EXPECT_GT(fs::file_size(dir_ / "agg.html"), 1000u);

  // Every option of diff at once.
  const CommandResult diff = run(
      "diff a.orf b.orf --grouping GLOBAL --metric BasicMemory --lhs-label before --rhs-label after -o all.html");
  ASSERT_EQ(diff.status, 0) << diff.err;
  const std::string page = readFile(dir_ / "all.html");
  EXPECT_NE(page.find("before"), std::string::npos);
  EXPECT_NE(page.find("after"), std::string::npos);
  // Without labels the runs are named after their files.
  ASSERT_EQ(run("diff a.orf b.orf --aggregate").status, 0);
  EXPECT_NE(readFile(dir_ / "a-vs-b-aggregate.html").find("\"b\""), std::string::npos);

  ASSERT_EQ(run("diagnose b.orf").status, 0);
  EXPECT_NE(readFile(dir_ / "b-diagnostic.html").find("phase 2"), std::string::npos);
}

TEST_F(ScriptingCommand, DemoWritesBothTracesAndEveryReport) {
  const CommandResult demo = run("demo --out out");
  ASSERT_EQ(demo.status, 0) << demo.err;
  // Standard error is not a terminal here: no progress lines.
  EXPECT_TRUE(demo.err.empty()) << demo.err;
  for (const char* name : {"baseline.orf", "changed.orf", "time-detail.html", "time-aggregate.html",
                           "time-difference.html", "time-aggregate-difference.html", "basicmemory-detail.html",
                           "basicmemory-aggregate-difference.html", "diagnostic.html"}) {
    const fs::path file = dir_ / "out" / name;
    EXPECT_TRUE(fs::exists(file)) << name;
    EXPECT_NE(demo.out.find(fs::absolute(file).lexically_normal().string()), std::string::npos) << name;
  }
  EXPECT_NE(demo.out.find("Open first: " + fs::absolute(dir_ / "out" / "time-difference.html").string()),
            std::string::npos);

  // Every leaf of both runs lasts at least 50 ms; the changed run has one
  // phase the baseline lacks and lacks one it has, and more executions.
  std::set<std::string> names[2];
  std::size_t rows[2] = {0, 0};
  for (int side = 0; side < 2; ++side) {
    RawPointVector raw;
    TempoGaugingSystemInfo info;
    std::string root;
    ASSERT_TRUE(loadTraceFile((dir_ / "out" / (side == 0 ? "baseline.orf" : "changed.orf")).string(), raw, info, root));
    const TGProcessedDataStruct run = tgGetProcessedDataForGroupings(&raw, {"GLOBAL"});
    ASSERT_FALSE(run.hasErrors);
    rows[side] = run.processedPoints.size();
    for (const auto& point : run.processedPoints) {
      const std::string name = tgGetNameStr(tg::kPhaseKind, point->phaseID);
      names[side].insert(name);
      if (point->numChildren == 0) {
        EXPECT_GE(point->wcElapsedTime, 0.05) << name;
      }
    }
  }
  EXPECT_EQ(names[1].size(), names[0].size());
  EXPECT_NE(names[1], names[0]);
  EXPECT_GT(rows[1], rows[0]);
  EXPECT_GT(rows[0], 32u);  // enough rows that the detail table scrolls
}

}  // namespace
