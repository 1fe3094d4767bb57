// SPDX-License-Identifier: BSD-3-Clause
// Files are whole or absent: every writer (reports, comparisons, diagnostic
// reports, saved traces, trace event exports) under real failures: a full
// device, a file size limit, a folder that is missing or is a file.
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>
#include <vector>

#include "analysis/diagnostic_report.h"
#include "collect/constants.h"
#include "collect_store_reset.h"
#include "host/whole_file.h"
#include "report_doc_trace.h"
#include "scratch_files.h"
#include "store/trace_file.h"
#include "tempogauge/analysis.h"
#include "tempogauge/analysis/trace_event_export.h"
#include "tempogauge/report.h"

namespace fs = std::filesystem;

namespace {

using Writer = std::function<bool(const std::string&)>;

struct NamedWriter {
  const char* name;
  Writer write;
};

// Every writer of whole files, on a run that pairs up; a writer that raises
// counts as failed.
std::vector<NamedWriter> writers(RawPointVector& run) {
  TempoGauge* store = TempoGauge::instance();
  const auto guarded = [](auto body) {
    return [body](const std::string& target) {
      try {
        return body(target);
      } catch (const std::exception&) {
        return false;
      }
    };
  };
  return {
      {"detail", guarded([&run, store](const std::string& t) {
         return writeDetailReport(store, t, "Workload", "Run", "time", true, &run, nullptr);
       })},
      {"aggregate", guarded([&run, store](const std::string& t) {
         return writeAggregateReport(store, t, "Workload", "Run", "time", true, &run, nullptr);
       })},
      {"difference", guarded([&run, store](const std::string& t) {
         RawPointVector lhs = run, rhs = run;
         return writeDifferenceReport(store, t, "Workload", "a", "b", &lhs, &rhs, nullptr, nullptr, "time");
       })},
      {"aggregate difference", guarded([&run, store](const std::string& t) {
         RawPointVector lhs = run, rhs = run;
         return writeAggregateDifferenceReport(store, t, "Workload", "a", "b", &lhs, &rhs, nullptr, nullptr, "time");
       })},
      {"diagnostic", guarded([&run, store](const std::string& t) {
         return writeDiagnosticReport(store, t, tg::kGlobalGrouping, &run);
       })},
      {"trace", guarded([&run](const std::string& t) {
         saveTraceFile(t, run);
         return true;
       })},
      {"trace events", guarded([&run](const std::string& t) {
         RawPointVector copy = run;
         const auto paired = tgGetProcessedDataForGroupings(&copy, {std::string(tg::kGlobalGrouping)});
         return writeTraceEventFile(t, paired, {}, "Run");
       })},
  };
}

// Names in `dir` other than `keep`: what a failed write left behind.
std::vector<std::string> leftovers(const fs::path& dir, const std::string& keep) {
  std::vector<std::string> names;
  for (const auto& entry : fs::directory_iterator(dir))
    if (entry.path().filename() != keep) names.push_back(entry.path().filename().string());
  return names;
}

class FileSafety : public CollectStoreTest {
 protected:
  RawPointVector run_ = tgreport::RunBuilder(false).open("outer").phase("inner", 0.5).close("outer", 1.0).take();
  tgtest::ScratchDir scratch_{"tg_safety"};
  std::string path(std::string_view name) const { return scratch_.path(name); }
};

TEST_F(FileSafety, EveryWriterReplacesAnOldFileWhole) {
  for (const auto& w : writers(run_)) {
    const std::string target = path("out");
    std::ofstream(target) << "old";
    fs::permissions(target, fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read);
    ASSERT_TRUE(w.write(target)) << w.name;
    EXPECT_GT(fs::file_size(target), 100u) << w.name;
    EXPECT_EQ(fs::status(target).permissions() & fs::perms::all,
              fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read)
        << w.name;
    EXPECT_EQ(leftovers(scratch_.dir(), "out"), std::vector<std::string>{}) << w.name;
  }
}

TEST_F(FileSafety, FailedWritesLeaveNoFileAndTheOldOneAsItWas) {
  const std::string file = path("file");
  std::ofstream(file) << "x";
  const struct {
    const char* what;
    std::string target;
  } cases[] = {{"full device", "/dev/full"},
               {"missing folder", path("no/such/folder/out")},
               {"folder that is a file", file + "/out"}};
  for (const auto& w : writers(run_)) {
    for (const auto& c : cases) {
      EXPECT_FALSE(w.write(c.target)) << w.name << ", " << c.what;
      EXPECT_EQ(leftovers(scratch_.dir(), "file"), std::vector<std::string>{}) << w.name << ", " << c.what;
      EXPECT_EQ(lastWriteProblem(c.target).empty(), false) << w.name << ", " << c.what;
    }
    EXPECT_EQ(tgtest::readFile(file), "x");
  }
}

// 0 when every writer, under a file size limit far below what it writes,
// failed and left the old file at the target as it was and nothing else.
int writesUnderASizeLimit(RawPointVector& run, const fs::path& dir) {
  std::signal(SIGXFSZ, SIG_IGN);
  const std::string target = (dir / "out").string();
  int failures = 0;
  for (const auto& w : writers(run)) {
    std::ofstream(target) << "old";
    rlimit limit{};
    getrlimit(RLIMIT_FSIZE, &limit);
    const rlimit unlimited = limit;
    limit.rlim_cur = 64;
    setrlimit(RLIMIT_FSIZE, &limit);
    const bool written = w.write(target);
    setrlimit(RLIMIT_FSIZE, &unlimited);
    if (written || tgtest::readFile(target) != "old" || !leftovers(dir, "out").empty()) {
      std::fprintf(stderr, "%s: written %d, left %zu\n", w.name, written, leftovers(dir, "out").size());
      ++failures;
    }
  }
  return failures;
}

// Runs in a fresh process, as it lowers the process's file size limit.
TEST_F(FileSafety, ASizeLimitFailsEveryWriterCleanly) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  EXPECT_EXIT(std::_Exit(writesUnderASizeLimit(run_, scratch_.dir())), ::testing::ExitedWithCode(0), "");
}

// A comparison whose run doesn't pair up gives the single run's error page,
// written whole over what stood at the target.
TEST_F(FileSafety, AnUnpairedComparisonWritesTheErrorPage) {
  RawPointVector unpaired = tgreport::RunBuilder(false).open("outer").phase("inner", 0.5).take();
  const std::string single = path("single.html"), diff = path("diff.html"), aggregate = path("aggregate.html");
  TempoGauge* store = TempoGauge::instance();
  RawPointVector one = unpaired;
  ASSERT_TRUE(writeDetailReport(store, single, "Workload", "Run", "time", true, &one, nullptr));
  for (const auto* target : {&diff, &aggregate}) {
    std::ofstream(*target) << "old";
    RawPointVector lhs = run_, rhs = unpaired;
    const auto writer = target == &diff ? &writeDifferenceReport : &writeAggregateDifferenceReport;
    EXPECT_TRUE(writer(store, *target, "Workload", "a", "b", &lhs, &rhs, nullptr, nullptr, "time"));
    EXPECT_EQ(tgtest::readFile(*target), tgtest::readFile(single));
  }
}

}  // namespace
