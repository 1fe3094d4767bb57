// SPDX-License-Identifier: BSD-3-Clause
// The store: name tables, a bare handle object, and the module entry points.
#include <regex>

#include "collect_store_reset.h"

namespace {

using StoreTest = CollectStoreTest;

TEST_F(StoreTest, IdsAreDenseFromZeroAndNeverMadeByAQuestion) {
  TempoGauge& s = store();
  EXPECT_EQ(s.findId(tg::kPhaseKind, "never seen"), -1);
  EXPECT_EQ(s.lookupId(tg::kPhaseKind, "never seen", false), -1);
  EXPECT_EQ(tableSize(tg::kPhaseKind), 0u);
  EXPECT_EQ(s.lookupId(tg::kPhaseKind, "a", true), 0);
  EXPECT_EQ(tgGetId(tg::kPhaseKind, "b"), 1);
  EXPECT_EQ(s.lookupId(tg::kPhaseKind, "a", true), 0);
  EXPECT_EQ(s.findId(tg::kPhaseKind, "c"), -1);
  EXPECT_EQ(tgGetId(tg::kPhaseKind, "c"), 2);
  EXPECT_EQ(tgGetPhaseStr(1), "b");
  EXPECT_EQ(tgGetPhaseStr(-1), "");
  EXPECT_EQ(tgGetPhaseStr(3), "");
  // Names compare as bytes: case and trailing blanks make new names.
  EXPECT_EQ(tgGetId(tg::kPhaseKind, "A"), 3);
  EXPECT_EQ(tgGetId(tg::kPhaseKind, "a "), 4);
  EXPECT_EQ(tableSize(tg::kPhaseKind), 5u);
  // Tables are separate: the same name has its own id in each.
  EXPECT_EQ(tgGetId(tg::kModelKind, "b"), 0);
}

TEST_F(StoreTest, UnknownKindsAnswerWithoutCreating) {
  EXPECT_EQ(store().lookupId(7, "x", true), -1);
  EXPECT_EQ(tgGetId(7, "x"), -1);
  EXPECT_EQ(tgGetNameStr(7, 0), "");
  EXPECT_EQ(store().table(7), nullptr);
  for (std::uint32_t kind = 0; kind < tg::kNameKindCount; ++kind) EXPECT_NE(store().table(kind), nullptr);
}

// A handle made bare holds no tables: every call answers, none crashes.
TEST(StoreHandle, ABareHandleAnswersQuietly) {
  TempoGauge handle;
  EXPECT_EQ(handle.lookupId(tg::kPhaseKind, "x", true), -1);
  EXPECT_EQ(handle.lookupName(tg::kPhaseKind, 0), "");
  EXPECT_FALSE(handle.isGroupingEnabled("x"));
  EXPECT_FALSE(handle.logPoint(0, "x", true));
  EXPECT_EQ(handle.copyRawPoints(), nullptr);
  EXPECT_EQ(handle.rawDataForGrouping("x"), nullptr);
  EXPECT_TRUE(handle.groupingList("x").empty());
  handle.clearRawDataAll();
  handle.clearRawData("g", "m");
  EXPECT_EQ(handle.addGroupingLeaf("x"), -1);
}

// Counts registrations and passes them on to whatever registrar was there.
void (*previousRegistrar)() = nullptr;
int registrations = 0;
void countingRegistrar() {
  ++registrations;
  if (previousRegistrar) previousRegistrar();
}

// Whichever entry comes first, the package is registered once.
TEST(ModuleEntry, PackageIsRegisteredOnce) {
  const bool registeredBefore = tgPackageRegistered();
  previousRegistrar = tgPackageRegistrar();
  tgSetPackageRegistrar(&countingRegistrar);
  registrations = 0;
  initialize_tempogauge();
  ORInitialize_tempogauge();
  tgRegisterGaugeKitOBSPackage();
  tgUnregisterGaugeKitOBSPackage();
  EXPECT_EQ(registrations, registeredBefore ? 0 : 1);
  EXPECT_TRUE(tgPackageRegistered());
  EXPECT_TRUE(tgModuleInitialized());
  tgSetPackageRegistrar(previousRegistrar);
}

TEST(ModuleEntry, TerminatingFreesNothingAndLoggingGoesOn) {
  ORTerminate_tempogauge();
  EXPECT_TRUE(ORTerminate_tempogauge());  // the previous value
  destroy_tempogauge();
  EXPECT_TRUE(tgModuleTerminated());
  EXPECT_TRUE(tgEnableGlobalLogging(true));
  EXPECT_TRUE(tgLogORRERYData(std::string("ModuleEntry.Terminated"), "p", true));
  tgEnableGlobalLogging(false);
  tgClearRawData();
}

TEST(ModuleEntry, FunctionTableAndBuildData) {
  const auto* record = static_cast<const TempoGaugeFunctionTable*>(QueryORFcnTable_tempogauge());
  ASSERT_NE(record, nullptr);
  EXPECT_STREQ(record->moduleName, "tempogauge");
  EXPECT_EQ(*record->version, tempogauge_version);
  EXPECT_TRUE(std::regex_match(tempogauge_version, std::regex(R"(\d+\.\d+\.\d+\.\d+)"))) << tempogauge_version;
  EXPECT_TRUE(std::regex_match(tempogauge_build_date,
                               std::regex(R"((Jan|Feb|Mar|Apr|May|Jun|Jul|Aug|Sep|Oct|Nov|Dec) [ 0-9]\d \d{4})")))
      << tempogauge_build_date;
}

}  // namespace
