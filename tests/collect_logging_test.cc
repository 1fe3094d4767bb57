// SPDX-License-Identifier: BSD-3-Clause
// Logging: the gate, the points each export stores, and several threads at once.
#include <atomic>
#include <chrono>
#include <future>
#include <map>
#include <thread>

#include "collect_store_reset.h"

namespace {

using LoggingTest = CollectStoreTest;

// Only a grouping in state 1 logs, by name or by id; a call that doesn't log
// names nothing: no grouping, phase, model, target, machine, chart or type.
TEST_F(LoggingTest, OnlyStateOneLogsAndOtherCallsNameNothing) {
  const std::string on = unique("On"), off = unique("Off"), unset = unique("Unset"), unknown = unique("Unknown");
  tgEnableTracer(on, true);
  tgEnableTracer(off, false);
  const std::int32_t onId = store().findId(tg::kGroupingKind, on), unsetId = tgAddGrouping(unset);
  const std::size_t groupings = tableSize(tg::kGroupingKind), phases = tableSize(tg::kPhaseKind);
  EXPECT_EQ((std::vector<bool>{tgLogORRERYData(off, "q", true), tgLogORRERYData(unset, "q", true),
                               tgLogORRERYData(unsetId, "q", true), tgLogORRERYData(unknown, "q", true),
                               tgLogORRERYData(-1, "q", true), tgLogORRERYData(1 << 20, "q", true),
                               tgLogCogwheelData(unknown, "m", "t", "q", true),
                               tgLogLoomchartData(unknown, "m", "t", "mc", "c", "q", true),
                               tgLogCWStartupData("q", true), tgIsTracerEnabled(off), tgIsTracerEnabled(unsetId)}),
            std::vector<bool>(11, false));
  EXPECT_EQ(tableSize(tg::kGroupingKind), groupings);
  EXPECT_EQ(tableSize(tg::kPhaseKind), phases);
  for (const auto kind : {tg::kModelKind, tg::kTargetKind, tg::kMachineKind, tg::kChartKind, tg::kStatisticsTypeKind})
    EXPECT_EQ(tableSize(kind), 0u);
  EXPECT_EQ(rawCount(), 0u);
  EXPECT_TRUE(tgLogORRERYData(on, "p", true));
  EXPECT_TRUE(tgLogORRERYData(onId, "p", false));
  EXPECT_TRUE(tgIsTracerEnabled(on));
  EXPECT_EQ(rawCount(), 2u);
  // Switching off again closes the gate for the name form and the id form.
  tgEnableTracer(on, false);
  EXPECT_FALSE(tgLogORRERYData(on, "p", true) || tgLogORRERYData(onId, "p", true));
}

TEST_F(LoggingTest, GlobalLoggingPassesUnknownGroupingsWithoutNamingThem) {
  const std::string unknown = unique("Unknown");
  const std::size_t groupings = tableSize(tg::kGroupingKind);
  EXPECT_TRUE(tgEnableGlobalLogging(true));
  EXPECT_TRUE(tgIsTracerEnabled(unknown));
  EXPECT_TRUE(tgIsTracerEnabled(-1));
  ASSERT_TRUE(tgLogORRERYData(unknown, "fresh phase", true));
  ASSERT_TRUE(tgLogORRERYData(1 << 20, "fresh phase", false));
  EXPECT_EQ(tableSize(tg::kGroupingKind), groupings);
  const RawPointPtr point = rawAt(0);
  EXPECT_EQ(point->groupingId, -1);
  EXPECT_EQ(tgGetNameStr(tg::kGroupingKind, point->groupingId), "");
  EXPECT_EQ(tgGetPhaseStr(point->phaseId), "fresh phase");
  EXPECT_EQ(rawAt(1)->groupingId, 1 << 20);
  // The switch answers with the value it was given, not the old one.
  EXPECT_FALSE(tgEnableGlobalLogging(false));
  EXPECT_FALSE(tgLogORRERYData(unknown, "fresh phase", true));
  EXPECT_EQ(rawCount(), 2u);
}

TEST_F(LoggingTest, StartAndEndDifferOnlyInStartBitAndSamples) {
  const std::string grouping = unique("G");
  tgEnableTracer(grouping, true);
  ASSERT_TRUE(tgLogORRERYData(grouping, "phase", true));
  ASSERT_TRUE(tgLogORRERYData(grouping, "phase", false));
  const RawPointPtr start = rawAt(0);
  const RawPointPtr end = rawAt(1);
  EXPECT_TRUE(start->isStart() && !end->isStart());
  EXPECT_FALSE(start->isGap() || end->isGap());
  EXPECT_TRUE(start->isSameSite(end));
  EXPECT_EQ(start->groupingId, store().findId(tg::kGroupingKind, grouping));
  EXPECT_GT(start->wallTime, 0.0);
  EXPECT_GE(end->wallTime, start->wallTime);
  EXPECT_GE(end->cpuTime, start->cpuTime);
  EXPECT_GT(start->basicMemStats->procMemUsage, 0.0);
  EXPECT_GT(start->basicMemStats->procVMSize, 0.0);
  // The detailed record stays zero-filled while the scan is off.
  const auto& off = *start->detailedMemStats;
  EXPECT_EQ(off.freeMem + off.commitMem + off.nonprocessMem, 0.0);
}

// Ids come in lookup order, each kind from 0. A model without a statistics
// type gets an entry with the empty type, interned first.
TEST_F(LoggingTest, ExportsStoreTheirIdsInLookupOrder) {
  const std::int32_t g = tgAddGrouping(unique("G"));
  tgEnableTracer(unique("G"), true);
  tgSetStatisticsTypeForModel("typed", "solver");
  ASSERT_TRUE(tgLogCogwheelData(unique("G"), "untyped", "target", "phase", true));
  ASSERT_TRUE(tgLogCogwheelData(unique("G"), "typed", "target", "phase", true));
  ASSERT_TRUE(tgLogLoomchartData(g, "typed", "target", "machine", "chart", "phase", true));
  ASSERT_TRUE(tgLogLoomchartData(g, "model", "target2", "machine2", "chart", "phase2", false));
  std::string ids;  // class, type, phase, statistics type, model, target, machine, chart
  for (std::size_t i = 0; i < rawCount(); ++i) {
    const RawPointFields f = RawPointFields::of(rawAt(i).get());
    EXPECT_EQ(f.groupingId, g);
    for (const std::int32_t id : {f.pointClass, f.pointType, f.phaseId, f.statisticsTypeId, f.modelId, f.targetId,
                                  f.machineId, f.chartId})
      ids += std::to_string(id) + " ";
    ids += "\n";
  }
  EXPECT_EQ(ids, "1 1 0 0 0 0 -1 -1 \n1 1 0 1 1 0 -1 -1 \n2 2 0 1 1 0 0 0 \n2 2 1 0 2 1 1 0 \n");
  EXPECT_EQ(tgGetStatisticsTypeStr(0), "");
  EXPECT_EQ(tgGetStatisticsTypeStr(1), "solver");
  std::lock_guard lock(store().mutex());
  EXPECT_EQ(store().modelStatisticsTypes->at("untyped"), "");
}

TEST_F(LoggingTest, DetailedSwitchFillsTheDetailedRecord) {
  const std::string grouping = unique("G");
  tgEnableTracer(grouping, true);
  EXPECT_TRUE(tgEnableDetailedMemStats(true));
  ASSERT_TRUE(tgLogORRERYData(grouping, "p", true));
  EXPECT_FALSE(tgEnableDetailedMemStats(false));
  ASSERT_TRUE(tgLogORRERYData(grouping, "p", false));
  // Copies: the point objects are made on demand and die with the pointer.
  const auto on = *rawAt(0)->detailedMemStats;
  EXPECT_GT(on.commitMem, 0.0);
  EXPECT_GT(on.freeMem, 0.0);
  EXPECT_GT(on.dllsMem, 0.0);
  EXPECT_EQ(on.nonprocessMem, static_cast<double>(0xFFFFFFFFull - 0x7fffffffffffull + 1));
  const auto off = *rawAt(1)->detailedMemStats;
  EXPECT_EQ(off.commitMem + off.freeMem + off.resMem + off.dllsMem + off.nonprocessMem, 0.0);
}

// The gate takes no lock: while another thread holds the store's mutex, calls
// whose grouping is off still answer at once.
TEST_F(LoggingTest, DisabledCallsDoNotWaitForTheStoresLock) {
  const std::string off = unique("Off");
  const std::int32_t offId = tgAddGrouping(off);
  tgEnableTracer(unique("On"), true);  // so the name form has to look its name up
  std::promise<void> locked;
  std::promise<void> release;
  std::thread holder([&] {
    std::lock_guard lock(store().mutex());
    locked.set_value();
    release.get_future().wait();
  });
  locked.get_future().wait();
  auto calls = std::async(std::launch::async, [&] {
    bool any = false;
    for (int i = 0; i < 1000; ++i) {
      any |= tgLogORRERYData(offId, "p", true);
      any |= tgLogORRERYData(off, "p", true);
      any |= tgLogCogwheelData(off, "m", "t", "p", true);
      any |= tgIsTracerEnabled(off) || tgIsTracerEnabled(offId);
    }
    return any;
  });
  const bool answered = calls.wait_for(std::chrono::seconds(5)) == std::future_status::ready;
  release.set_value();
  holder.join();
  EXPECT_TRUE(answered);
  EXPECT_FALSE(calls.get());
}

// Several threads log at once, by name and by id, while another thread keeps
// adding and switching groupings. Every call that says it stored a point did,
// and every point is whole and in stamp order.
TEST_F(LoggingTest, ThreadsLoggingAtOnceLoseNothing) {
  constexpr int kThreads = 4;
  constexpr int kPairs = 500;
  const std::string grouping = unique("G");
  tgEnableTracer(grouping, true);
  const std::int32_t groupingId = store().findId(tg::kGroupingKind, grouping);
  std::atomic<int> stored{0};
  std::atomic<bool> stop{false};
  std::thread churn([&] {
    for (int i = 0; !stop.load(); ++i) {
      const std::string other = unique("churn" + std::to_string(i % 50));
      tgEnableTracer(other, i % 2 == 0);
      tgAddGrouping(other, {other + ".child"});
      if (i % 7 == 0) tgRemoveGrouping(other);
    }
  });
  std::vector<std::thread> loggers;
  for (int t = 0; t < kThreads; ++t) {
    loggers.emplace_back([&, t] {
      const std::string phase = "phase" + std::to_string(t);
      for (int i = 0; i < kPairs; ++i) {
        stored += tgLogORRERYData(grouping, phase, true);
        stored += tgLogCogwheelData(groupingId, "model" + std::to_string(t), "target", phase, false);
      }
    });
  }
  for (auto& thread : loggers) thread.join();
  stop = true;
  churn.join();
  ASSERT_EQ(stored.load(), kThreads * kPairs * 2);
  ASSERT_EQ(rawCount(), static_cast<std::size_t>(kThreads * kPairs * 2));
  std::map<std::string, int> count;  // per phase and kind: "phase0 host", "phase0 model0"
  double lastStamp = 0.0;
  for (std::size_t i = 0; i < rawCount(); ++i) {
    const RawPointPtr p = rawAt(i);
    ASSERT_EQ(p->groupingId, groupingId);
    const auto cw = std::dynamic_pointer_cast<TGCWGENDataPoint>(p);
    ASSERT_EQ(cw == nullptr, p->isStart());
    ++count[tgGetPhaseStr(p->phaseId) + " " + (cw ? tgGetModelStr(cw->modelId) : "host")];
    EXPECT_GE(p->wallTime, lastStamp);
    lastStamp = p->wallTime;
  }
  std::map<std::string, int> expected;
  for (int t = 0; t < kThreads; ++t)
    for (const std::string& kind : {std::string("host"), "model" + std::to_string(t)})
      expected["phase" + std::to_string(t) + " " + kind] = kPairs;
  EXPECT_EQ(count, expected);
}

}  // namespace
