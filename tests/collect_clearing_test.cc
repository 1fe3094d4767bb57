// SPDX-License-Identifier: BSD-3-Clause
// Clearing raw points and reading them out: what each clear removes, keeps
// and resets, and copies that are independent of the store.
#include <functional>

#include "collect_store_reset.h"
#include "host_array_text.h"
#include "store/raw_points_array.h"

namespace {

class ClearingTest : public CollectStoreTest {
 protected:
  void SetUp() override {
    CollectStoreTest::SetUp();
    grouping = unique("G");
    other = unique("Other");
    tgEnableTracer(grouping, true);
    tgEnableTracer(other, true);
  }

  // Phases of the points left, in order.
  static std::vector<std::string> phasesLeft() {
    std::vector<std::string> phases;
    for (std::size_t i = 0; i < rawCount(); ++i) phases.push_back(tgGetPhaseStr(rawAt(i)->phaseId));
    return phases;
  }

  std::size_t statisticsTypeEntries() const {
    std::lock_guard lock(store().mutex());
    return store().modelStatisticsTypes->size();
  }

  std::string grouping;
  std::string other;
};

TEST_F(ClearingTest, ClearingEverythingKeepsGroupingsAndRestartsOtherIds) {
  const std::int32_t id = store().findId(tg::kGroupingKind, grouping);
  ASSERT_TRUE(tgLogCogwheelData(grouping, "m", "t", "first", true));
  tgSetStatisticsTypeForModel("m", "type");
  tgEnableGlobalLogging(true);
  tgEnableDetailedMemStats(true);
  tgClearRawData();
  EXPECT_EQ(rawCount(), 0u);
  EXPECT_EQ(statisticsTypeEntries(), 0u);
  for (const auto kind : {tg::kPhaseKind, tg::kStatisticsTypeKind, tg::kModelKind, tg::kTargetKind,
                          tg::kMachineKind, tg::kChartKind})
    EXPECT_EQ(tableSize(kind), 0u) << kind;
  EXPECT_TRUE(store().globalLoggingEnabled.load());
  EXPECT_TRUE(store().detailedMemStatsEnabled.load());
  tgEnableGlobalLogging(false);
  tgEnableDetailedMemStats(false);
  // The grouping keeps its id and its switch; the first new phase is id 0.
  EXPECT_EQ(store().findId(tg::kGroupingKind, grouping), id);
  EXPECT_TRUE(tgIsTracerEnabled(grouping));
  ASSERT_TRUE(tgLogORRERYData(grouping, "second", true));
  EXPECT_EQ(rawAt(0)->phaseId, 0);
  EXPECT_EQ(rawAt(0)->groupingId, id);
}

// Each narrowing clear on one trace of every class, two groupings and two
// models; the four-string form is not an export.
TEST_F(ClearingTest, NarrowingClearsTakeTheirPointsOnly) {
  struct Case {
    const char* what;
    std::function<void(const std::string&, const std::string&)> clear;
    std::vector<std::string> left;
    std::size_t typeEntries;  // entries of the model statistics types afterwards
  };
  const std::vector<std::string> all{"host", "a", "b", "c", "d", "e", "f", "kept"};
  const Case cases[] = {
      // Grouping and model: every class of the model in the grouping; types reset.
      {"grouping+model", [](auto& g, auto&) { tgClearRawData(g, "m"); }, {"host", "e", "f", "kept"}, 0},
      // Unknown names clear nothing, and still reset the types.
      {"unknown", [](auto&, auto&) { tgClearRawData(unique("Nobody"), "nomodel"); }, all, 0},
      // A target narrows it further, and the types stay.
      {"grouping+model+target", [](auto& g, auto&) { tgClearRawData(g, "m", "t1"); },
       {"host", "c", "e", "f", "kept"}, 2},
      {"grouping", [](auto& g, auto&) { tgClearRawGroupingData(g); }, {"f", "kept"}, 2},
      // A model in any grouping; host points are spared.
      {"model", [](auto&, auto&) { tgClearRawModelData("m"); }, {"host", "e", "kept"}, 2},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    tgClearRawData();
    tgSetStatisticsTypeForModel("m", "type");
    tgLogORRERYData(grouping, "host", true);
    tgLogCogwheelData(grouping, "m", "t1", "a", true);
    tgLogCogwheelData(grouping, "m", "t1", "b", false);
    tgLogCogwheelData(grouping, "m", "t2", "c", true);
    tgLogLoomchartData(grouping, "m", "t1", "mc", "ch", "d", true);
    tgLogCogwheelData(grouping, "m2", "t1", "e", true);
    tgLogCogwheelData(other, "m", "t1", "f", true);
    tgLogORRERYData(other, "kept", true);
    c.clear(grouping, other);
    EXPECT_EQ(phasesLeft(), c.left);
    EXPECT_EQ(statisticsTypeEntries(), c.typeEntries);
    // Names of removed points stay interned; unknown names are not made.
    EXPECT_NE(store().findId(tg::kPhaseKind, "a"), -1);
    EXPECT_EQ(store().findId(tg::kModelKind, "nomodel"), -1);
  }
  // An unknown grouping only matches points of grouping -1.
  tgClearRawData();
  tgLogORRERYData(grouping, "kept", true);
  tgEnableGlobalLogging(true);
  tgLogORRERYData(unique("Unknown"), "orphan", true);
  tgClearRawGroupingData(unique("AlsoUnknown"));
  EXPECT_EQ(phasesLeft(), (std::vector<std::string>{"kept"}));
}

TEST_F(ClearingTest, DeepCopyIsIndependentOfTheStore) {
  tgLogORRERYData(grouping, "a", true);
  tgLogCogwheelData(grouping, "m", "t", "b", true);
  tgLogLoomchartData(grouping, "m", "t", "mc", "c", "c", false);
  {
    // Stored points are made on demand: a changed one goes back by assign.
    std::lock_guard lock(store().mutex());
    const RawPointPtr gap = store().rawData->front();
    gap->flags.isGap = 1;
    store().rawData->assign({gap, rawAt(1), rawAt(2)});
  }
  const auto copy = store().copyRawPoints();
  ASSERT_TRUE(copy);
  // The same rows: classes, flags, ids and figures.
  EXPECT_EQ(tgtest::arrayText(rawPointsToCellArray(*copy).get()),
            tgtest::arrayText(rawPointsToCellArray({rawAt(0), rawAt(1), rawAt(2)}).get()));
  EXPECT_TRUE((*copy)[0]->isGap());
  // Changing the copy leaves the store alone, and clearing the store leaves
  // the copy whole.
  (*copy)[1]->basicMemStats->procMemUsage = -1.0;
  EXPECT_NE(rawAt(1)->basicMemStats->procMemUsage, -1.0);
  tgClearRawData();
  EXPECT_EQ(copy->size(), 3u);
  EXPECT_EQ((*copy)[2]->pointType, 2);
}

TEST_F(ClearingTest, CopyRepeatsThePreviousPointerForAClasslessPoint) {
  tgLogORRERYData(grouping, "a", true);
  {
    std::lock_guard lock(store().mutex());
    auto foreign = std::make_shared<TGORRERYDataPoint>();
    foreign->pointType = 7;
    store().rawData->push_back(foreign);
    store().rawData->insert(store().rawData->begin(), foreign);
  }
  const auto copy = store().copyRawPoints();
  ASSERT_EQ(copy->size(), 3u);
  EXPECT_EQ((*copy)[0], nullptr);
  EXPECT_NE((*copy)[1], nullptr);
  EXPECT_EQ((*copy)[2], (*copy)[1]);
}

TEST_F(ClearingTest, GroupingSelectionTakesItsPointsAndNamesAnUnknownGrouping) {
  tgLogORRERYData(grouping, "a", true);
  tgLogORRERYData(other, "b", true);
  tgLogORRERYData(grouping, "c", false);
  const auto selected = store().rawDataForGrouping(grouping);
  ASSERT_TRUE(selected);
  ASSERT_EQ(selected->size(), 2u);
  EXPECT_EQ((*selected)[0]->wallTime, rawAt(0)->wallTime);
  EXPECT_EQ((*selected)[1]->wallTime, rawAt(2)->wallTime);
  tgClearRawData();
  EXPECT_EQ(tgGetPhaseStr((*selected)[1]->phaseId), "");  // names went, points live on
  EXPECT_FALSE((*selected)[1]->isStart());

  const std::string unknown = unique("Unknown");
  const auto none = store().rawDataForGrouping(unknown);
  ASSERT_TRUE(none);
  EXPECT_TRUE(none->empty());
  EXPECT_NE(store().findId(tg::kGroupingKind, unknown), -1);
}

}  // namespace
