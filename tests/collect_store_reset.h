// SPDX-License-Identifier: BSD-3-Clause
// A fixture for tests that change the process-wide store: it gives each test
// grouping names of its own and puts the store back afterwards (switches off,
// raw data cleared, every grouping but "EvalPrms" out of the tree), so the
// order in which tests run doesn't matter.
#pragma once

#include <gtest/gtest.h>

#include <mutex>
#include <string>
#include <vector>

#include "collect/tempo_gauge.h"
#include "collect/name_table.h"
#include "tempogauge/tempogauge.h"

class CollectStoreTest : public ::testing::Test {
 protected:
  void SetUp() override {
    ++round();
    resetStore();
  }
  void TearDown() override { resetStore(); }

  // A grouping (or other) name that no other test, nor an earlier run of
  // this one in the same process, uses.
  static std::string unique(const std::string& suffix) {
    const auto* info = ::testing::UnitTest::GetInstance()->current_test_info();
    return std::string(info->test_suite_name()) + "." + info->name() + "#" + std::to_string(round()) + "." +
           suffix;
  }

  static TempoGauge& store() { return *TempoGauge::instance(); }

  static std::size_t tableSize(std::uint32_t kind) {
    std::lock_guard lock(store().mutex());
    return store().table(kind)->size();
  }

  static std::size_t rawCount() {
    std::lock_guard lock(store().mutex());
    return store().rawData->size();
  }

  static RawPointPtr rawAt(std::size_t index) {
    std::lock_guard lock(store().mutex());
    return store().rawData->at(index);
  }

  static int& round() {
    static int count = 0;
    return count;
  }

  static void resetStore() {
    tgEnableGlobalLogging(false);
    tgEnableDetailedMemStats(false);
    tgClearRawData();
    std::vector<std::string> members;
    {
      std::lock_guard lock(store().mutex());
      for (const auto& [id, children] : *store().groupingChildren)
        members.push_back(store().lookupName(tg::kGroupingKind, id));
    }
    for (const auto& name : members) tgRemoveGrouping(name);
    tgAddGrouping(std::string(tg::kEvalPrmsGrouping));
  }
};
