// SPDX-License-Identifier: BSD-3-Clause
// The one process-wide store: raw points, name tables, grouping tree, switches.
#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "tempogauge/collect/constants.h"
#include "tempogauge/collect/grouping_state_array.h"
#include "tempogauge/collect/raw_point.h"
#include "tempogauge/collect/raw_point_store.h"
#include "tempogauge/collect/system_info_record.h"

// Internal parts of the store, complete only inside the library.
class AddressSpaceScanner;
class GroupingNameIndex;
class NameTable;

// Threads: every operation that reads or changes the store takes mutex(), a
// recursive mutex, so operations may nest. Code outside this class that walks
// or changes a member directly (rawData, the tables, the tree) must hold
// mutex() while it does. The switches and groupingStates are the exception:
// they are read without the lock by the disabled log path, so they are atomic
// and change only through their own operations.

class TempoGauge {
 public:
  // Leaves every member null; initialize() fills in the start values.
  TempoGauge();
  TempoGauge(const TempoGauge&) = delete;
  TempoGauge& operator=(const TempoGauge&) = delete;
  ~TempoGauge();

  // The process-wide store, created and initialised at the first call.
  static TempoGauge* instance();
  void initialize();

  // Name tables. lookupId interns when addIfMissing; findId never does.
  std::int32_t lookupId(std::uint32_t kind, std::string_view name, bool addIfMissing);
  std::int32_t findId(std::uint32_t kind, std::string_view name) const;
  std::string lookupName(std::uint32_t kind, std::int32_t id) const;
  NameTable* table(std::uint32_t kind) const;  // null for an unknown kind

  // Logging gate and points. The gate's forms take no lock.
  bool isGroupingEnabled(std::string_view groupingName) const { return enabledGroupingId(groupingName) >= 0; }
  // The id of the grouping named `groupingName` when it is on, else -1.
  std::int32_t enabledGroupingId(std::string_view groupingName) const;
  // Lock-free: reads only the atomic state array (inline, for the gate).
  bool isGroupingEnabled(std::int32_t groupingId) const noexcept {
    return groupingStates && (*groupingStates)[groupingId] == 1;
  }
  bool logPoint(std::string_view grouping, std::string_view phase, bool start);
  bool logPoint(std::int32_t groupingId, std::string_view phase, bool start);
  bool logPoint(std::string_view grouping, std::string_view model, std::string_view target,
                std::string_view phase, bool start);
  bool logPoint(std::int32_t groupingId, std::string_view model, std::string_view target,
                std::string_view phase, bool start);
  bool logPoint(std::string_view grouping, std::string_view model, std::string_view target,
                std::string_view machine, std::string_view chart, std::string_view phase, bool start);
  bool logPoint(std::int32_t groupingId, std::string_view model, std::string_view target,
                std::string_view machine, std::string_view chart, std::string_view phase, bool start);
  void sampleInto(TGORRERYDataPoint& point);

  // Groupings.
  std::int32_t addGroupingLeaf(std::string_view name);
  std::string addGroupingWithChildren(std::string_view name, const std::vector<std::string>& children);
  void updateGrouping(std::string_view name, const std::vector<std::string>& children);
  bool removeGroupingById(std::int32_t id);
  std::vector<std::string> groupingList(std::string_view name) const;
  void enableGrouping(std::string_view name, bool flag);
  void setStatisticsTypeForModel(std::string_view model, std::string_view type);

  // Clearing and reading the raw points.
  void clearRawDataAll();
  void clearNameTables();
  void clearRawData(std::string_view grouping, std::string_view model);
  void clearRawData(std::string_view grouping, std::string_view model, std::string_view target);
  void clearRawGroupingData(std::string_view grouping);
  void clearRawModelData(std::string_view model);
  std::unique_ptr<RawPointVector> copyRawPoints() const;
  // Calls `take` with the fields of each point that copyRawPoints would
  // give, without making the points (nothing when rawData is null).
  void walkRawCopies(const std::function<void(const RawPointFields&)>& take) const;
  std::unique_ptr<RawPointVector> rawDataForGrouping(std::string_view grouping);

  // Serialises every operation on the store, so that several threads may log
  // at once. The disabled log path takes no lock.
  std::recursive_mutex& mutex() const { return mutex_; }

  // Members, in the order the store defines them.
  std::atomic<bool> detailedMemStatsEnabled{false};
  std::unique_ptr<RawPointStore> rawData;
  std::unique_ptr<TempoGaugingSystemInfo> loadedSystemInfo;
  std::unique_ptr<AddressSpaceScanner> memoryScanner;
  std::unique_ptr<std::unordered_map<std::string, std::string>> modelStatisticsTypes;
  std::unique_ptr<std::unordered_map<std::int32_t, std::unique_ptr<std::vector<std::string>>>> groupingChildren;
  std::unique_ptr<NameTable> phaseTable;
  std::unique_ptr<NameTable> groupingTable;
  std::unique_ptr<NameTable> statisticsTypeTable;
  std::unique_ptr<NameTable> modelTable;
  std::unique_ptr<NameTable> targetTable;
  std::unique_ptr<NameTable> machineTable;
  std::unique_ptr<NameTable> chartTable;
  std::atomic<bool> globalLoggingEnabled{false};
  std::unique_ptr<GroupingStateArray> groupingStates;

 private:
  // Unlocked forms and helpers, for callers that already hold the mutex.
  std::int32_t internId(std::uint32_t kind, std::string_view name);
  std::int32_t findIdUnlocked(std::uint32_t kind, std::string_view name) const;
  void sample(RawPointFields& point);
  bool storePoint(RawPointFields& point, std::string_view phase, bool start);
  std::int32_t statisticsTypeIdForModel(std::string_view model);
  void createModelStatisticsTypes();
  void ensureGroupingMembers();
  std::vector<std::string>* childrenOf(std::int32_t id) const;  // null when not a member
  std::vector<std::string>& makeChildrenEntry(std::int32_t id, std::int32_t state);

  mutable std::recursive_mutex mutex_;
  mutable std::string lookupKey_;  // key buffer of the name lookups, under the mutex
  // Names of the groupings that have been switched, for the lock-free gate.
  std::unique_ptr<GroupingNameIndex> switchedGroupingNames_;
};

// Wrappers for code that should not hold the store.
std::int32_t tgGetId(std::uint32_t kind, std::string_view name);
std::string tgGetNameStr(std::uint32_t kind, std::int32_t id);

// Host code that logs parameter evaluation uses this grouping id.
struct CwTempoGaugingPoint {
  static std::int32_t _groupingID;
};
