// The store's life and its name tables.
#include "collect/tempo_gauge.h"

#include "collect/address_space_scanner.h"

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
  // Function-local static: created at the first call, never destroyed, safe to
  // reach from static initialisers of the module.
  static TempoGauge* const store = [] {
    static TempoGauge object;
    object.initialize();
    return &object;
  }();
  return store;
}

void TempoGauge::initialize() {
  rawData = std::make_unique<RawPointVector>();
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
  groupingStates = std::make_unique<std::vector<std::int32_t>>(20, -1);
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
  const NameTable* t = table(kind);
  if (!t) return -1;
  const auto it = t->left.find(std::string(name));
  return it == t->left.end() ? -1 : it->second;
}

std::int32_t TempoGauge::lookupId(std::uint32_t kind, std::string_view name, bool addIfMissing) {
  NameTable* t = table(kind);
  if (!t) return -1;
  std::string key(name);
  if (const auto it = t->left.find(key); it != t->left.end()) return it->second;
  if (!addIfMissing) return -1;
  const auto id = static_cast<std::int32_t>(t->size());
  t->insert(NameTable::value_type(std::move(key), id));
  return id;
}

std::string TempoGauge::lookupName(std::uint32_t kind, std::int32_t id) const {
  const NameTable* t = table(kind);
  if (!t) return {};
  const auto it = t->right.find(id);
  return it == t->right.end() ? std::string() : it->second;
}

std::int32_t tgGetId(std::uint32_t kind, std::string_view name) {
  TempoGauge* store = TempoGauge::instance();
  std::lock_guard lock(store->mutex());
  return store->lookupId(kind, name, true);
}

std::string tgGetNameStr(std::uint32_t kind, std::int32_t id) {
  TempoGauge* store = TempoGauge::instance();
  std::lock_guard lock(store->mutex());
  return store->lookupName(kind, id);
}
