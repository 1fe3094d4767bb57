// The regression gate and the script formats of the tempogauge command, run
// as a separate process on saved traces: which phases fail the gate under
// which limits, the exit status, and CSV and JSON that readers parse back.
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <array>
#include <cstdio>
#include <filesystem>
#include <set>
#include <string>

#include <nlohmann/json.hpp>

#include "analysis_trace_builder.h"
#include "scratch_files.h"
#include "tempogauge/tempogauge.h"

namespace {

namespace fs = std::filesystem;
using nlohmann::json;

struct Result {
  int status = -1;
  std::string out;
};

class GateCommand : public ::testing::Test {
 protected:
  void SetUp() override {
    // Baseline: "solve, x" 1.0 s, load 0.5 s, gone 0.2 s. Changed: solve 1.5 s
    // (+50 %), load 0.52 s (+4 %), new 0.01 s.
    tgtest::TraceBuilder lhs;
    lhs.start(kSolve).stop(kSolve, 1.0).start("load").stop("load", 0.5).start("gone").stop("gone", 0.2);
    saveTraceFile((dir_ / "lhs.orf").string(), lhs.points);
    tgtest::TraceBuilder rhs;
    rhs.start(kSolve).stop(kSolve, 1.5).start("load").stop("load", 0.52).start("new").stop("new", 0.01);
    saveTraceFile((dir_ / "rhs.orf").string(), rhs.points);
  }

  Result run(const std::string& args) const {
    const fs::path exe = fs::read_symlink("/proc/self/exe").parent_path() / "tempogauge";
    const std::string command = "cd '" + dir_.string() + "' && '" + exe.string() + "' " + args + " 2>/dev/null";
    Result result;
    FILE* pipe = ::popen(command.c_str(), "r");
    if (!pipe) return result;
    std::array<char, 4096> buffer{};
    while (const std::size_t n = std::fread(buffer.data(), 1, buffer.size(), pipe)) result.out.append(buffer.data(), n);
    const int status = ::pclose(pipe);
    result.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    return result;
  }

  static std::set<std::string> phasesOf(const std::string& jsonText) {
    std::set<std::string> names;
    for (const json& row : json::parse(jsonText)) names.insert(row["phase"].get<std::string>());
    return names;
  }

  static inline const std::string kSolve = "solve, \"x\"";
  tgtest::ScratchDir scratch_{"tg_gate"};
  const fs::path& dir_ = scratch_.dir();
};

TEST_F(GateCommand, FailsOnlyOnPhasesAboveBothLimits) {
  const struct {
    std::string limits;
    int status;
    std::set<std::string> failing;
  } cases[] = {
      {"--fail-above 20", 3, {kSolve, "new"}},            // a new phase grows without bound
      {"--fail-above 20 --min-abs 0.1", 3, {kSolve}},     // the new phase is too small
      {"--fail-above 3", 3, {kSolve, "load", "new"}},
      {"--fail-above 60 --min-abs 0.1", 0, {}},           // faster and gone phases never fail
      {"--fail-above 20 --min-abs 0.6", 0, {}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.limits);
    const Result r = run("diff lhs.orf rhs.orf --format json " + c.limits);
    EXPECT_EQ(r.status, c.status);
    EXPECT_EQ(phasesOf(r.out.empty() ? "[]" : r.out), c.failing);
  }
  // Text names the phases; swapped, the runs only gain "gone" (0.2 s).
  const Result text = run("diff lhs.orf rhs.orf --fail-above 20 --min-abs 0.1");
  EXPECT_EQ(text.status, 3);
  EXPECT_NE(text.out.find("50.0"), std::string::npos) << text.out;
  EXPECT_EQ(run("diff rhs.orf lhs.orf --fail-above 20 --min-abs 0.1").status, 3);
  EXPECT_EQ(run("diff rhs.orf lhs.orf --fail-above 20 --min-abs 0.3").status, 0);
}

TEST_F(GateCommand, FormatsGiveEveryPhaseWithExactNumbers) {
  const json rows = json::parse(run("diff lhs.orf rhs.orf --format json").out);
  ASSERT_EQ(rows.size(), 4u);  // solve, load, gone, new
  for (const json& row : rows) {
    if (row["phase"] != kSolve) continue;
    EXPECT_NEAR(row["lhs"].get<double>(), 1.0, 1e-12);
    EXPECT_NEAR(row["change_percent"].get<double>(), 50.0, 1e-9);
  }
  // CSV quotes the name with a comma and quotes, and ends lines with CRLF.
  const Result csv = run("diff lhs.orf rhs.orf --format CSV");
  EXPECT_EQ(csv.status, 0);
  EXPECT_EQ(csv.out.rfind("phase,grouping,lhs,rhs,change,change_percent\r\n", 0), 0u) << csv.out;
  EXPECT_NE(csv.out.find("\"solve, \"\"x\"\"\",G,1,1.5,0.5,50\r\n"), std::string::npos) << csv.out;

  const json summary = json::parse(run("summary rhs.orf --format json").out);
  ASSERT_EQ(summary.size(), 3u);
  EXPECT_EQ(summary[0]["phase"], kSolve);  // the most expensive first
  EXPECT_EQ(summary[0]["calls"], 1);
  EXPECT_EQ(run("summary rhs.orf --format xml").status, 2);
}

}  // namespace
