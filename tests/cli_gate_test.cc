// The regression gate and the script formats of the tempogauge command, run
// as a separate process on saved traces: which phases fail the gate under
// which limits, the exit status, and CSV and JSON that readers parse back;
// with repeated runs, which phases the rank test lets fail.
#include <gtest/gtest.h>

#include <filesystem>
#include <set>
#include <string>

#include <nlohmann/json.hpp>

#include "analysis_trace_builder.h"
#include "command_run.h"
#include "tempogauge/tempogauge.h"

namespace {

namespace fs = std::filesystem;
using nlohmann::json;

using Result = tgtest::CommandResult;

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

  Result run(const std::string& args) const { return tgtest::runCommand(dir_, args); }

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

// Five runs a side. "solve": 1 s against 1.5 s, every run of the second
// side slower than every run of the first. "noisy": medians 0.3 s against
// 0.4 s (+33 %), but the runs interleave.
class RepeatedRunsGate : public GateCommand {
 protected:
  void SetUp() override {
    GateCommand::SetUp();
    const double solve[2][5] = {{1.00, 1.02, 0.98, 1.01, 0.99}, {1.50, 1.53, 1.47, 1.52, 1.48}};
    const double noisy[2][5] = {{0.10, 0.20, 0.30, 0.50, 0.60}, {0.15, 0.25, 0.40, 0.55, 0.65}};
    for (int side = 0; side < 2; ++side) {
      for (int k = 0; k < 5; ++k) {
        tgtest::TraceBuilder b;
        b.start("solve").stop("solve", solve[side][k]).start("noisy").stop("noisy", noisy[side][k]);
        saveTraceFile((dir_ / (std::string(side ? "b" : "a") + std::to_string(k + 1) + ".orf")).string(), b.points);
      }
    }
  }
  static std::string runs(int count) {
    std::string args = "--runs";
    for (int k = 1; k <= count; ++k) args += " a" + std::to_string(k) + ".orf";
    args += " --vs";
    for (int k = 1; k <= count; ++k) args += " b" + std::to_string(k) + ".orf";
    return args;
  }
};

TEST_F(RepeatedRunsGate, FailsOnlyOnLargeSignificantChanges) {
  const struct {
    std::string args;
    int status;
    std::set<std::string> failing;
    std::string warning;  // the runs needed when too few for any p-value to reach --alpha
  } cases[] = {
      {"diff a1.orf b1.orf --fail-above 20", 3, {"solve", "noisy"}, ""},  // one run: noise fails
      {"diff " + runs(5) + " --fail-above 20", 3, {"solve"}, ""},
      {"diff " + runs(4) + " --fail-above 20", 3, {"solve"}, ""},  // smallest p 2/70
      {"diff " + runs(3) + " --fail-above 20", 0, {}, "at least 4 runs"},  // smallest p 0.1
      {"diff " + runs(5) + " --fail-above 20 --alpha 0.005", 0, {}, "at least 6 runs"},  // 2/252
      {"diff " + runs(5) + " --fail-above 60", 0, {}, ""},
      {"diff " + runs(5) + " --fail-above 20 --min-abs 0.6", 0, {}, ""},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.args);
    const Result r = run(c.args + " --format json");
    EXPECT_EQ(r.status, c.status);
    EXPECT_EQ(phasesOf(r.out.empty() ? "[]" : r.out), c.failing);
    const Result shown = run(c.args);
    const std::string text = shown.out + shown.err;
    EXPECT_EQ(text.find("warning: with") != std::string::npos, !c.warning.empty()) << text;
    EXPECT_NE(text.find(c.warning), std::string::npos) << text;
  }
}

TEST_F(RepeatedRunsGate, TableGivesMediansRangesAndTest) {
  const json rows = json::parse(run("diff " + runs(5) + " --format json --metric time").out);
  ASSERT_EQ(rows.size(), 2u);
  const json& solve = rows[0];
  EXPECT_EQ(solve["phase"], "solve");
  const struct {
    const char* key;
    double value;
  } fields[] = {{"a_median", 1.0}, {"a_min", 0.98}, {"a_max", 1.02}, {"b_median", 1.5}, {"b_min", 1.47},
                {"b_max", 1.53},   {"change", 0.5}, {"change_percent", 50}, {"u", 25}, {"p", 2.0 / 252}};
  for (const auto& f : fields) EXPECT_NEAR(solve[f.key].get<double>(), f.value, 1e-9) << f.key;
  EXPECT_NEAR(rows[1]["change_percent"].get<double>(), 100.0 / 3, 1e-9);
  EXPECT_GT(rows[1]["p"].get<double>(), 0.5);
  // Labels name the sides in text.
  EXPECT_NE(run("diff " + runs(2) + " --lhs-label before").out.find("before median (s)"), std::string::npos);
}

TEST_F(RepeatedRunsGate, RefusesMixedOrIncompleteCommandLines) {
  for (const std::string args : {"diff --runs a1.orf", "diff lhs.orf --runs a1.orf --vs b1.orf",
                                 "diff --runs a1.orf --vs b1.orf --alpha 0", "diff lhs.orf"})
    EXPECT_EQ(run(args).status, 2) << args;
  EXPECT_EQ(run("diff --runs a1.orf missing.orf --vs b1.orf").status, 1);
}

}  // namespace
