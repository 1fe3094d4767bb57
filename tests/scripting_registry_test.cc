// SPDX-License-Identifier: BSD-3-Clause
// The class registry: what GaugeKit and GaugeKit.Tracer declare, in which
// order, and how registration and the class system's call checks behave.
#include <gtest/gtest.h>

#include "collect/tempo_gauge.h"
#include "golden_text.h"
#include "scripting/tracer_methods.h"
#include "scripting_call.h"

namespace {

using namespace scripting_test;

// Each method as "name(inputs[, ...]) -> outputs", marked when hidden; all
// static and not dispatched on their first argument.
std::string methodsText(const std::vector<std::unique_ptr<objsys::OBSMethodInfo>>& methods) {
  std::string text;
  for (const auto& m : methods) {
    const auto& signature = m->getMethodSignature();
    text += m->getName() + "(" + std::to_string(signature.inputTypes().size()) +
            (signature.hasVariableInputs() ? ", ...) -> " : ") -> ") + std::to_string(signature.outputTypes().size()) +
            (m->isVisible() ? "" : " hidden") + (m->isStatic() && !m->isFirstArgDispatch() ? "" : " NOT STATIC") + "\n";
    for (const auto& type : signature.inputTypes()) EXPECT_EQ(type, "any") << m->getName();
    for (const auto& type : signature.outputTypes()) EXPECT_EQ(type, "any") << m->getName();
  }
  return text;
}

TEST(ScriptingRegistry, TracerAndPackageDeclareTheirMethodsInRegistrationOrder) {
  ORInitialize_tempogauge();
  const objsys::OBSClass* cls = objsys::OBSClass::getClass(objsys::OBSNameID("GaugeKit.Tracer"));
  ASSERT_NE(cls, nullptr);
  EXPECT_EQ(cls->info().getName(), "Tracer");
  EXPECT_EQ(cls->info().getFullName(), "GaugeKit.Tracer");
  tgtest::GoldenFile golden("scripting_registry");
  golden.expect("GaugeKit.Tracer", methodsText(cls->methods().methods()));
  // The hidden method's class is not named after its script name.
  EXPECT_NE(dynamic_cast<const TempoGauge_debugEnableDiagnosticDetails*>(cls->methods().methods().back().get()),
            nullptr);

  // The package's functions do nothing without their host command.
  const objsys::OBSPackage* package = objsys::OBSPackage::getPackage(objsys::OBSNameID("GaugeKit"));
  ASSERT_NE(package, nullptr);
  EXPECT_EQ(package->classNames(), std::vector<std::string>{"Tracer"});
  golden.expect("GaugeKit", methodsText(package->functions().methods()));
  for (const auto& function : package->functions().methods())
    EXPECT_TRUE(objsys::invokeMethod(*function, "GaugeKit", {}, 0).empty());
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
