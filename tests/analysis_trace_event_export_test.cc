// SPDX-License-Identifier: BSD-3-Clause
// The Trace Event export as a JSON reader sees it: complete events with exact
// times, nesting kept after rounding, memory counters in time order, the
// machine's description, odd names intact; unpaired runs and unwritable files
// leave nothing behind.
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include <nlohmann/json.hpp>

#include "analysis/pairing.h"
#include "export/export_traces.h"
#include "scratch_files.h"
#include "tempogauge/tempogauge.h"

namespace {

using nlohmann::json;

TGProcessedDataStruct pairNested() {
  RawPointVector raw = tgtest::nestedTrace();
  return analyzeRawPoints(raw, {"G"}, false);
}

json exported(const TGProcessedDataStruct& run) {
  TempoGaugingSystemInfo info;
  info.processorStr = "Test CPU \"x\"";
  std::ostringstream out;
  writeTraceEvents(out, run, info, "nested run");
  return json::parse(out.str());
}

std::vector<json> eventsOf(const json& doc, std::string_view ph) {
  std::vector<json> out;
  for (const json& e : doc["traceEvents"])
    if (e["ph"] == ph) out.push_back(e);
  return out;
}

TEST(TraceEventExport, CompleteEventsCarryTimesInMicrosecondsAndMarkGaps) {
  const json doc = exported(pairNested());
  struct Row {
    std::string name, cat;
    double ts, dur;
  };
  const std::vector<Row> expected{
      {"solve", "phase", 0, 2e6},          {"solve_self", "gap", 0, 3e5},
      {"factorize", "phase", 3e5, 1.5e6},  {tgtest::kOddName, "phase", 3e5, 5e5},
      {tgtest::kOddName + "_post", "gap", 8e5, 1e6}, {"factorize_post", "gap", 1.8e6, 2e5},
      {"report", "phase", 2e6, 4e5},
  };
  const auto complete = eventsOf(doc, "X");
  ASSERT_EQ(complete.size(), expected.size());
  for (std::size_t i = 0; i < expected.size(); ++i) {
    SCOPED_TRACE(expected[i].name);
    EXPECT_EQ(complete[i]["name"], expected[i].name);
    EXPECT_EQ(complete[i]["cat"], expected[i].cat);
    EXPECT_NEAR(complete[i]["ts"].get<double>(), expected[i].ts, 1e-3);
    EXPECT_NEAR(complete[i]["dur"].get<double>(), expected[i].dur, 1e-3);
    EXPECT_EQ(complete[i]["args"]["grouping"], "G");
    EXPECT_EQ(complete[i]["args"].contains("gap"), expected[i].cat == "gap");
  }
  EXPECT_DOUBLE_EQ(complete[2]["args"]["cpu time (s)"].get<double>(), 0.75);
  EXPECT_EQ(complete[2]["args"]["phase number"], "1.2");

  // Memory: a sample at each start and end of a phase, in time order, in MiB.
  const auto counters = eventsOf(doc, "C");
  ASSERT_EQ(counters.size(), 8u);
  for (std::size_t i = 1; i < counters.size(); ++i)
    EXPECT_LE(counters[i - 1]["ts"].get<double>(), counters[i]["ts"].get<double>());
  EXPECT_DOUBLE_EQ(counters.front()["args"]["usage"].get<double>(), 11.0);
  EXPECT_DOUBLE_EQ(counters.back()["args"]["usage"].get<double>(), 18.0);

  EXPECT_EQ(doc["otherData"]["processor"], "Test CPU \"x\"");
  const auto metadata = eventsOf(doc, "M");
  ASSERT_FALSE(metadata.empty());
  EXPECT_EQ(metadata[0]["name"], "process_name");
  EXPECT_EQ(metadata[0]["args"]["name"], "nested run");
}

TEST(TraceEventExport, ChildNeverEndsAfterItsParentAfterRounding) {
  TGProcessedDataStruct run = pairNested();
  run.processedPoints[3]->wcElapsedTime += 1.6;  // the odd name now runs past factorize and solve
  const auto complete = eventsOf(exported(run), "X");
  const double factorizeEnd = complete[2]["ts"].get<double>() + complete[2]["dur"].get<double>();
  EXPECT_DOUBLE_EQ(complete[3]["ts"].get<double>() + complete[3]["dur"].get<double>(), factorizeEnd);
}

// An unpaired run is refused before the target is touched (the writer's
// other failures are in file_safety_test.cc, with every other writer's).
TEST(TraceEventExport, AnUnpairedRunLeavesTheTargetAsItWas) {
  const tgtest::ScratchDir scratch("tg_export");
  const std::string target = scratch.path("out.json");
  std::ofstream(target) << "before";
  RawPointVector unpaired = tgtest::unpairedTrace();
  EXPECT_THROW(writeTraceEventFile(target, analyzeRawPoints(unpaired, {"G"}, false), {}, "t"), UnpairedTraceError);
  EXPECT_EQ(tgtest::readFile(target), "before");
}

}  // namespace
