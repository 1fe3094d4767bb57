// The tempogauge command, run as a separate process on real files.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <filesystem>
#include <sstream>
#include <string>

#include "collect_store_reset.h"
#include "scratch_files.h"
#include "scripting_call.h"

namespace {

namespace fs = std::filesystem;
using namespace scripting_test;

struct CommandResult {
  int status = -1;
  std::string out;
  std::string err;
};

using tgtest::readFile;

class ScriptingCommand : public CollectStoreTest {
 protected:
  // Runs the command (next to the test binary) in the scratch folder.
  CommandResult run(const std::string& args) const {
    const fs::path exe = fs::read_symlink("/proc/self/exe").parent_path() / "tempogauge";
    const fs::path err = dir_ / "stderr.txt";
    const std::string command = "cd '" + dir_.string() + "' && '" + exe.string() + "' " + args + " 2>'" +
                                err.string() + "'";
    CommandResult result;
    FILE* pipe = ::popen(command.c_str(), "r");
    if (!pipe) return result;
    std::array<char, 4096> buffer{};
    while (const std::size_t n = std::fread(buffer.data(), 1, buffer.size(), pipe)) result.out.append(buffer.data(), n);
    const int status = ::pclose(pipe);
    result.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    result.err = readFile(err);
    return result;
  }

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

TEST_F(ScriptingCommand, UsageAndFailuresGoToStandardErrorWithTheirStatus) {
  EXPECT_EQ(run("").status, 2);
  const CommandResult unknown = run("frobnicate");
  EXPECT_EQ(unknown.status, 2);
  EXPECT_NE(unknown.err.find("unknown command 'frobnicate'"), std::string::npos);
  const CommandResult extra = run("report a.orf --colour red");
  EXPECT_EQ(extra.status, 2);
  EXPECT_NE(extra.err.find("unknown option --colour"), std::string::npos);

  const CommandResult missing = run("summary absent.orf");
  EXPECT_EQ(missing.status, 1);
  EXPECT_TRUE(missing.out.empty());
  EXPECT_NE(missing.err.find("tempogauge:TempoGauge:OpenFileFailed: "), std::string::npos) << missing.err;
  EXPECT_NE(missing.err.find("absent.orf"), std::string::npos);

  const fs::path trace = saveTrace("run.orf", 2);
  const CommandResult metric = run("report run.orf --metric space");
  EXPECT_EQ(metric.status, 1);
  EXPECT_NE(metric.err.find("tempogauge:TempoGauge:InvalidMetric"), std::string::npos) << metric.err;
  EXPECT_FALSE(fs::exists(dir_ / "run.html"));
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

  const CommandResult diff = run("diff a.orf b.orf --lhs-label before --rhs-label after --metric time");
  ASSERT_EQ(diff.status, 0) << diff.err;
  const std::string page = readFile(dir_ / "a-vs-b.html");
  EXPECT_NE(page.find("before"), std::string::npos);
  EXPECT_NE(page.find("after"), std::string::npos);
  ASSERT_EQ(run("diff a.orf b.orf --aggregate -o adiff.html").status, 0);
  EXPECT_TRUE(fs::exists(dir_ / "adiff.html"));
  const CommandResult tooMany = run("diff a.orf b.orf --grouping G --metric time --lhs-label x --rhs-label y");
  EXPECT_EQ(tooMany.status, 2);

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
  // The two variants differ in a few phases: one appears only in the second.
  const CommandResult summary = run("summary out/changed.orf");
  ASSERT_EQ(summary.status, 0) << summary.err;
  EXPECT_NE(summary.out.find("stage 5/refine solution"), std::string::npos);
  EXPECT_EQ(run("summary out/baseline.orf").out.find("refine solution"), std::string::npos);
  // Enough phases that a report's tables scroll (more than 32 rows).
  std::size_t phases = 0;
  std::istringstream lines(summary.out);
  for (std::string line; std::getline(lines, line);) phases += line.find("Demo") != std::string::npos;
  EXPECT_GT(phases, 32u);
}

}  // namespace
