// SPDX-License-Identifier: BSD-3-Clause
// The class registry: what GaugeKit and GaugeKit.Tracer declare, in which
// order, and how registration and the class system's call checks behave.
#include <gtest/gtest.h>

#include "collect/tempo_gauge.h"
#include "scripting/tracer_methods.h"
#include "scripting_call.h"

namespace {

using namespace scripting_test;

struct Row {
  const char* name;
  std::size_t inputs;
  bool open;
  std::size_t outputs;
  bool visible;
};

constexpr Row kMethodTable[] = {
    {"clearRawData", 1, true, 0, true},
    {"diagnosticReport", 1, true, 0, true},
    {"enable", 1, true, 1, true},
    {"enableGlobalLogging", 1, false, 1, true},
    {"enableCWStartupLogging", 1, false, 1, true},
    {"enableDetailedMemStats", 1, false, 1, true},
    {"generateAggregateDifferenceReport", 1, true, 0, true},
    {"generateDifferenceReport", 1, true, 0, true},
    {"generateAggregateReport", 1, true, 0, true},
    {"generateHTMLReport", 1, true, 0, true},
    {"generateCWStartupDifferenceReport", 1, true, 0, true},
    {"generateCWStartupReport", 1, true, 0, true},
    {"getProcessedData", 1, true, 1, true},
    {"getRawData", 0, false, 1, true},
    {"loadTracerData", 1, false, 0, true},
    {"logORRERYData", 3, false, 0, true},
    {"logCogwheelData", 5, false, 0, true},
    {"logCWStartupData", 2, false, 0, true},
    {"logLoomchartData", 7, false, 0, true},
    {"addGrouping", 2, false, 0, true},
    {"removeGrouping", 1, false, 0, true},
    {"saveCWStartupData", 1, true, 0, true},
    {"saveToFile", 1, false, 0, true},
    {"setStatisticsTypeForModel", 2, false, 0, true},
    {"setUseDetailedExceptionDiagnostics", 1, false, 1, false},
};

TEST(ScriptingRegistry, TracerDeclaresTheMethodTableInRegistrationOrder) {
  ORInitialize_tempogauge();
  const objsys::OBSClass* cls = objsys::OBSClass::getClass(objsys::OBSNameID("GaugeKit.Tracer"));
  ASSERT_NE(cls, nullptr);
  EXPECT_EQ(cls->info().getName(), "Tracer");
  EXPECT_EQ(cls->info().getFullName(), "GaugeKit.Tracer");
  const auto& methods = cls->methods().methods();
  ASSERT_EQ(methods.size(), std::size(kMethodTable));
  for (std::size_t i = 0; i < methods.size(); ++i) {
    const Row& row = kMethodTable[i];
    const objsys::OBSMethodInfo& m = *methods[i];
    SCOPED_TRACE(row.name);
    EXPECT_EQ(m.getName(), row.name);
    const auto& signature = m.getMethodSignature();
    EXPECT_EQ(signature.inputTypes(), std::vector<std::string>(row.inputs, "any"));
    EXPECT_EQ(signature.outputTypes(), std::vector<std::string>(row.outputs, "any"));
    EXPECT_EQ(signature.hasVariableInputs(), row.open);
    EXPECT_EQ(m.isVisible(), row.visible);
    EXPECT_TRUE(m.isStatic());
    EXPECT_FALSE(m.isFirstArgDispatch());
  }
  // The hidden method's class is not named after its script name.
  EXPECT_NE(dynamic_cast<const TempoGauge_debugEnableDiagnosticDetails*>(methods.back().get()), nullptr);
}

TEST(ScriptingRegistry, ClassInstancesAreEmptyTracerObjectsApartFromTheStore) {
  ORInitialize_tempogauge();
  const auto& info = dynamic_cast<const TempoGaugeOBSClassInfo&>(tgTracerClass()->info());
  EXPECT_TRUE(info.flag());
  std::unique_ptr<TempoGauge> instance = info.createInstance();
  ASSERT_NE(instance, nullptr);
  EXPECT_NE(instance.get(), TempoGauge::instance());
  EXPECT_EQ(instance->rawData, nullptr);
  info.destroyInstance(std::move(instance));
  info.destroyInstance(nullptr);
}

TEST(ScriptingRegistry, PackageFunctionsAreStaticVoidAndSilentWithoutTheirHostCommand) {
  ORInitialize_tempogauge();
  const objsys::OBSPackage* package = objsys::OBSPackage::getPackage(objsys::OBSNameID("GaugeKit"));
  ASSERT_NE(package, nullptr);
  EXPECT_EQ(package->classNames(), std::vector<std::string>{"Tracer"});
  const auto& functions = package->functions().methods();
  const std::vector<std::string> expected{"cwsvStringTableDoGarbageCollection",
                                          "cwsvStringTableDisableGarbageCollection",
                                          "cwsvStringTableEnableGarbageCollection"};
  ASSERT_EQ(functions.size(), expected.size());
  for (std::size_t i = 0; i < functions.size(); ++i) {
    EXPECT_EQ(functions[i]->getName(), expected[i]);
    EXPECT_TRUE(functions[i]->isStatic());
    EXPECT_TRUE(functions[i]->getMethodSignature().inputTypes().empty());
    EXPECT_TRUE(functions[i]->getMethodSignature().outputTypes().empty());
    EXPECT_TRUE(objsys::invokeMethod(*functions[i], "GaugeKit", {}, 0).empty());
  }
}

TEST(ScriptingRegistry, ClassSystemChecksCountsOfFixedSignaturesOnly) {
  // The counts of inputs are checked from Octave (tests/octave); here what
  // a host can ask besides: more outputs than declared.
  EXPECT_EQ(raised("addGrouping", inputs(text("g"), cells({}), text("x"))), "objsys:TooManyInputs");
  EXPECT_THROW(call("getRawData", {}, 2), objsys::CallError);
  // Open-ended methods check their own counts, and may take fewer inputs
  // than they declare.
  EXPECT_EQ(raised("clearRawData", {}), "none");
  EXPECT_EQ(raised("enable", {}), "MinParamsNotReached(1)");
}

}  // namespace
