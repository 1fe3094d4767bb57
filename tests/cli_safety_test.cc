// SPDX-License-Identifier: BSD-3-Clause
// The tempogauge command on real files, where data could be lost or a
// terminal misled: an output naming an input trace is refused, a trace
// without points says so, a file that can't be written names the cause and
// leaves every file as it was, and names with control characters are shown
// escaped.
#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "analysis_trace_builder.h"
#include "collect_store_reset.h"
#include "command_run.h"
#include "scratch_files.h"
#include "tempogauge/tempogauge.h"

namespace {

namespace fs = std::filesystem;

// Every file of a folder (links as what they point to) with its contents.
std::map<std::string, std::string> snapshot(const fs::path& dir) {
  std::map<std::string, std::string> files;
  for (const auto& entry : fs::directory_iterator(dir))
    files[entry.path().filename().string()] =
        fs::is_symlink(entry.symlink_status()) ? "-> " + fs::read_symlink(entry.path()).string()
                                               : tgtest::readFile(entry.path());
  return files;
}

class CommandSafety : public CollectStoreTest {
 protected:
  void SetUp() override {
    CollectStoreTest::SetUp();
    tgtest::TraceBuilder run;
    run.start("outer").start("inner", 0.1).stop("inner", 0.2).stop("outer", 0.1);
    saveTraceFile(scratch_.path("run.orf"), run.points);
    saveTraceFile(scratch_.path("other.orf"), run.points);
    saveTraceFile(scratch_.path("empty.orf"), {});
    fs::create_symlink("run.orf", dir_ / "link.orf");
    std::ofstream(dir_ / "old.json") << "old";
  }

  tgtest::ScratchDir scratch_{"tg_cli_safety"};
  const fs::path& dir_ = scratch_.dir();
};

// Each command line against the files of the folder: its status, what it
// says on standard error, and the files it may write; every other file stays
// byte for byte as it was and nothing else appears.
TEST_F(CommandSafety, RefusalsAndFailuresLeaveEveryFileAsItWas) {
  const struct {
    const char* args;
    int status;
    const char* said;  // in standard error
    std::vector<std::string> written;
  } cases[] = {
      {"report run.orf -o run.orf", 1, "the output file run.orf is the input trace run.orf", {}},
      {"report run.orf -o link.orf", 1, "is the input trace", {}},
      {"report run.orf --aggregate -o ./run.orf", 1, "is the input trace", {}},
      {"diff run.orf other.orf -o other.orf", 1, "is the input trace", {}},
      {"diagnose run.orf -o link.orf", 1, "is the input trace", {}},
      {"export run.orf -o run.orf", 1, "is the input trace", {}},
      {"summary empty.orf", 1, "tempogauge:TempoGauge:NoRawTracerData: ", {}},
      {"report empty.orf", 1, "tempogauge:TempoGauge:NoRawTracerData: ", {}},
      {"diff run.orf empty.orf", 1,
       "tempogauge:TempoGauge:NoRawTracerDataLoaded: There is no raw tracer data in 'empty.orf'.", {}},
      {"export empty.orf", 1, "tempogauge:TempoGauge:NoRawTracerDataLoaded: ", {}},
      {"export run.orf -o /dev/full", 1,
       "tempogauge:TempoGauge:WriteFileFailed: Could not write the file '/dev/full': No space left on device.", {}},
      {"report run.orf -o /dev/full", 1, "'/dev/full': No space left on device.", {}},
      {"export run.orf -o missing/run.json", 1, "'missing/run.json': No such file or directory.", {}},
      {"export run.orf -o old.json", 0, "", {"old.json"}},
      {"export run.orf", 0, "", {"run.json"}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.args);
    const auto before = snapshot(dir_);
    const tgtest::CommandResult result = tgtest::runCommand(dir_, c.args);
    EXPECT_EQ(result.status, c.status) << result.err;
    EXPECT_NE(result.err.find(c.said), std::string::npos) << result.err;
    auto after = snapshot(dir_);
    for (const std::string& name : c.written) {
      ASSERT_TRUE(after.count(name)) << name;
      EXPECT_EQ(after[name].substr(0, 2), "{\"") << name;  // a whole export starts as JSON does
      EXPECT_EQ(after[name].substr(after[name].size() - 3), "]}\n") << name;
      after.erase(name);
    }
    auto unchanged = before;
    for (const std::string& name : c.written) unchanged.erase(name);
    EXPECT_EQ(after, unchanged);
  }
}

// Names may hold anything a script logged; the summary's table shows control
// characters as escapes, never raw, so a name can't move the cursor, change
// colours or break the table's rows.
TEST_F(CommandSafety, SummaryShowsControlCharactersEscaped) {
  const struct {
    std::string name, shown;
  } cases[] = {
      {"red\x1b[31mtext", "red\\e[31mtext"},
      {"two\nlines", "two\\nlines"},
      {"tab\tand\rreturn", "tab\\tand\\rreturn"},
      {std::string("bell\a, nul\0.", 12), "bell\\x07, nul\\x00."},
      {"del\x7f", "del\\x7f"},
      {"csi\xc2\x9b" "2J", "csi\\u009b2J"},
      {"caf\xc3\xa9 \xe2\x86\x92 ok", "caf\xc3\xa9 \xe2\x86\x92 ok"},  // other UTF-8 as it is
  };
  tgtest::TraceBuilder run;
  for (const auto& c : cases) run.start(c.name).stop(c.name, 0.1);
  saveTraceFile(scratch_.path("names.orf"), run.points);
  const tgtest::CommandResult summary = tgtest::runCommand(dir_, "summary names.orf");
  ASSERT_EQ(summary.status, 0) << summary.err;
  for (const auto& c : cases) EXPECT_NE(summary.out.find(c.shown), std::string::npos) << c.shown;
  for (const char raw : {'\x1b', '\t', '\r', '\a', '\0', '\x7f'})
    EXPECT_EQ(summary.out.find(raw), std::string::npos) << int{raw};
  EXPECT_EQ(summary.out.find("\xc2\x9b"), std::string::npos);
  // One line per phase: the header, its rule, the rows and the totals.
  EXPECT_EQ(tgtest::countOf(summary.out, "\n"), std::size(cases) + 3);
}

}  // namespace
