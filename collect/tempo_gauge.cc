// SPDX-License-Identifier: BSD-3-Clause
// The store's life and its name tables.
#include "collect/tempo_gauge.h"

#include "collect/address_space_scanner.h"
#include "tempogauge/collect.h"

TempoGauge::TempoGauge() = default;

TempoGauge::~TempoGauge() {
  // Members are owning pointers; null members (a default-constructed handle
  // object) need nothing.
  try {
    if (groupingChildren) groupingChildren->clear();
    rawData.reset();
    groupingStates.reset();
    loadedSystemInfo.reset();
    memoryScanner.reset();
    modelStatisticsTypes.reset();
    groupingChildren.reset();
  } catch (...) {
  }
}

TempoGauge* TempoGauge::instance() {
  // Created at the first call (also from static initialisers of the module)
  // and never destroyed: the holder's destructor leaves the object alone, so
  // code that logs while the process exits still finds a whole store.
  union Holder {
    Holder() : object() {}
    ~Holder() {}
    TempoGauge object;
  };
  static TempoGauge* const store = [] {
    static Holder holder;
    holder.object.initialize();
    return &holder.object;
  }();
  return store;
}

void TempoGauge::initialize() {
  rawData = std::make_unique<RawPointStore>();
  loadedSystemInfo = std::make_unique<TempoGaugingSystemInfo>();
  modelStatisticsTypes = std::make_unique<std::unordered_map<std::string, std::string>>(16);
  modelStatisticsTypes->max_load_factor(1.0f);
  groupingChildren = std::make_unique<
      std::unordered_map<std::int32_t, std::unique_ptr<std::vector<std::string>>>>(11);
  groupingChildren->max_load_factor(1.0f);
  phaseTable = std::make_unique<NameTable>();
  groupingTable = std::make_unique<NameTable>();
  statisticsTypeTable = std::make_unique<NameTable>();
  modelTable = std::make_unique<NameTable>();
  targetTable = std::make_unique<NameTable>();
  machineTable = std::make_unique<NameTable>();
  chartTable = std::make_unique<NameTable>();
  memoryScanner = std::make_unique<AddressSpaceScanner>();
  groupingStates = std::make_unique<GroupingStateArray>(tg::kInitialGroupingStates);
  switchedGroupingNames_ = std::make_unique<GroupingNameIndex>();
}

NameTable* TempoGauge::table(std::uint32_t kind) const {
  switch (kind) {
    case tg::kPhaseKind: return phaseTable.get();
    case tg::kGroupingKind: return groupingTable.get();
    case tg::kStatisticsTypeKind: return statisticsTypeTable.get();
    case tg::kModelKind: return modelTable.get();
    case tg::kTargetKind: return targetTable.get();
    case tg::kMachineKind: return machineTable.get();
    case tg::kChartKind: return chartTable.get();
    default: return nullptr;
  }
}

std::int32_t TempoGauge::findId(std::uint32_t kind, std::string_view name) const {
  std::lock_guard lock(mutex_);
  return findIdUnlocked(kind, name);
}

std::int32_t TempoGauge::findIdUnlocked(std::uint32_t kind, std::string_view name) const {
  const NameTable* t = table(kind);
  if (!t) return -1;
  // The table's lookups take a std::string: reuse one buffer rather than
  // allocate a key per lookup (callers hold the mutex).
  lookupKey_.assign(name);
  const auto it = t->left.find(lookupKey_);
  return it == t->left.end() ? -1 : it->second;
}

std::int32_t TempoGauge::lookupId(std::uint32_t kind, std::string_view name, bool addIfMissing) {
  std::lock_guard lock(mutex_);
  return addIfMissing ? internId(kind, name) : findIdUnlocked(kind, name);
}

std::int32_t TempoGauge::internId(std::uint32_t kind, std::string_view name) {
  NameTable* t = table(kind);
  if (!t) return -1;
  lookupKey_.assign(name);
  if (const auto it = t->left.find(lookupKey_); it != t->left.end()) return it->second;
  // Ids are dense: a new name gets the table's entry count.
  const auto id = static_cast<std::int32_t>(t->size());
  t->insert(NameTable::value_type(lookupKey_, id));
  return id;
}

std::string TempoGauge::lookupName(std::uint32_t kind, std::int32_t id) const {
  std::lock_guard lock(mutex_);
  const NameTable* t = table(kind);
  if (!t) return {};
  const auto it = t->right.find(id);
  return it == t->right.end() ? std::string() : it->second;
}

std::int32_t tgGetId(std::uint32_t kind, std::string_view name) {
  return TempoGauge::instance()->lookupId(kind, name, true);
}

std::string tgGetNameStr(std::uint32_t kind, std::int32_t id) { return TempoGauge::instance()->lookupName(kind, id); }

std::string tgGetPhaseStr(std::int32_t id) { return tgGetNameStr(tg::kPhaseKind, id); }
std::string tgGetStatisticsTypeStr(std::int32_t id) { return tgGetNameStr(tg::kStatisticsTypeKind, id); }
std::string tgGetModelStr(std::int32_t id) { return tgGetNameStr(tg::kModelKind, id); }
std::string tgGetTargetStr(std::int32_t id) { return tgGetNameStr(tg::kTargetKind, id); }
std::string tgGetMachineStr(std::int32_t id) { return tgGetNameStr(tg::kMachineKind, id); }
std::string tgGetChartStr(std::int32_t id) { return tgGetNameStr(tg::kChartKind, id); }
