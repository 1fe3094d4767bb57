// SPDX-License-Identifier: BSD-3-Clause
// Registration of the package GaugeKit and its class Tracer with the class
// system, and the package-level functions.
#include "scripting/gaugekit_package.h"

#include <array>
#include <memory>

#include "collect/module_entry.h"
#include "collect/tempo_gauge.h"
#include "host/host_bridge.h"
#include "scripting/tracer_methods.h"

namespace {

// The package as the class system knows it; cached once, never cleared.
objsys::OBSPackage* cachedPackage = nullptr;

// Runs "cwsvInternal" with one text argument through the host's command
// distributor; a host that does not know the command changes nothing.
void runStringTableCommand(const char* argument) {
  try {
    const oxArrayPtr text = oxCreateString(argument);
    const std::array<const oxArray*, 1> args{text.get()};
    tgRunHostCommand("cwsvInternal", args);
  } catch (...) {
  }
}

void stringTableDoGarbageCollection() { runStringTableCommand("cwsvStringTableCollectGarbageNow"); }
// Disabling the collection enters the no-leak mode; enabling it leaves it.
void stringTableDisableGarbageCollection() { runStringTableCommand("cwsvEnterTableNoLeakMode"); }
void stringTableEnableGarbageCollection() { runStringTableCommand("cwsvExitTableNoLeakMode"); }

template <class Method>
void addMethod(objsys::OBSMethodList& methods, const TempoGaugeOBSClassInfo* owner, const char* name,
               int inputs, bool openEnded, int outputs) {
  methods.addMethod(std::make_unique<Method>(owner, name, inputs, openEnded, outputs));
}

}  // namespace

TempoGaugeBaseMI::TempoGaugeBaseMI(const TempoGaugeOBSClassInfo* owner, const char* scriptName, int inputs,
                                   bool openEnded, int outputs)
    : owner_(owner), name_(scriptName), signature_(objsys::OBSMethodSignature::createMethodSignature()) {
  for (int i = 0; i < inputs; ++i) signature_->addInputType(objsys::OBSNameID("any"));
  if (openEnded) signature_->setVariableInputs();
  for (int i = 0; i < outputs; ++i) signature_->addOutputType(objsys::OBSNameID("any"));
}

void TempoGaugeOBSClassInfo::loadMethods(objsys::OBSMethodList& m) {
  // Registration order is part of the interface: neither alphabetical nor
  // that of the classes.
  addMethod<TempoGauge_clearRawData>(m, this, "clearRawData", 1, true, 0);
  addMethod<TempoGauge_diagnosticReport>(m, this, "diagnosticReport", 1, true, 0);
  addMethod<TempoGauge_enable>(m, this, "enable", 1, true, 1);
  addMethod<TempoGauge_enableGlobalLogging>(m, this, "enableGlobalLogging", 1, false, 1);
  addMethod<TempoGauge_enableCWStartupLogging>(m, this, "enableCWStartupLogging", 1, false, 1);
  addMethod<TempoGauge_enableDetailedMemStats>(m, this, "enableDetailedMemStats", 1, false, 1);
  addMethod<TempoGauge_generateAggregateDifferenceReport>(m, this, "generateAggregateDifferenceReport", 1, true, 0);
  addMethod<TempoGauge_generateDifferenceReport>(m, this, "generateDifferenceReport", 1, true, 0);
  addMethod<TempoGauge_generateAggregateReport>(m, this, "generateAggregateReport", 1, true, 0);
  addMethod<TempoGauge_generateHTMLReport>(m, this, "generateHTMLReport", 1, true, 0);
  addMethod<TempoGauge_generateCWStartupDifferenceReport>(m, this, "generateCWStartupDifferenceReport", 1, true, 0);
  addMethod<TempoGauge_generateCWStartupReport>(m, this, "generateCWStartupReport", 1, true, 0);
  addMethod<TempoGauge_getProcessedData>(m, this, "getProcessedData", 1, true, 1);
  addMethod<TempoGauge_getRawData>(m, this, "getRawData", 0, false, 1);
  addMethod<TempoGauge_loadTracerData>(m, this, "loadTracerData", 1, false, 0);
  addMethod<TempoGauge_logORRERYData>(m, this, "logORRERYData", 3, false, 0);
  addMethod<TempoGauge_logCogwheelData>(m, this, "logCogwheelData", 5, false, 0);
  addMethod<TempoGauge_logCWStartupData>(m, this, "logCWStartupData", 2, false, 0);
  addMethod<TempoGauge_logLoomchartData>(m, this, "logLoomchartData", 7, false, 0);
  addMethod<TempoGauge_addGrouping>(m, this, "addGrouping", 2, false, 0);
  addMethod<TempoGauge_removeGrouping>(m, this, "removeGrouping", 1, false, 0);
  addMethod<TempoGauge_saveCWStartupData>(m, this, "saveCWStartupData", 1, true, 0);
  addMethod<TempoGauge_saveToFile>(m, this, "saveToFile", 1, false, 0);
  addMethod<TempoGauge_setStatisticsTypeForModel>(m, this, "setStatisticsTypeForModel", 2, false, 0);
  // Script name and class name differ on purpose; the method is hidden.
  addMethod<TempoGauge_debugEnableDiagnosticDetails>(m, this, "setUseDetailedExceptionDiagnostics", 1, false, 1);
}

std::unique_ptr<TempoGauge> TempoGaugeOBSClassInfo::createInstance() const { return std::make_unique<TempoGauge>(); }

void TempoGaugeOBSClassInfo::destroyInstance(std::unique_ptr<TempoGauge> instance) const { instance.reset(); }

TempoGaugeOBSPackageFunction::TempoGaugeOBSPackageFunction(const char* name, Target target)
    : FunctionInfo(name, objsys::factory::MethodAttributes{}), target_(target) {
  using objsys::factory::MethodAttributes;
  if ((attributes().bits & MethodAttributes::kStaticBit) == 0) attributes().bits |= MethodAttributes::Static().bits;
  objsys::OBSMethodSignaturePtr signature;
  objsys::factory::impl::Invoker::createSignature("", "void", nullptr, signature);
  setSignature(std::move(signature));
  if (attributes().bits & MethodAttributes::kStaticBit) setStatic(true);
}

void TempoGaugeOBSPackageFunction::invoke(objsys::OBSClient*, int&, objsys::OBSValue*, int, objsys::OBSValue*) {
  target_();
}

void GaugeKitOBSPackageInfo::loadFunctions(objsys::OBSMethodList& functions) {
  functions.addMethod(std::make_unique<TempoGaugeOBSPackageFunction>("cwsvStringTableDoGarbageCollection",
                                                                     &stringTableDoGarbageCollection));
  functions.addMethod(std::make_unique<TempoGaugeOBSPackageFunction>("cwsvStringTableDisableGarbageCollection",
                                                                     &stringTableDisableGarbageCollection));
  functions.addMethod(std::make_unique<TempoGaugeOBSPackageFunction>("cwsvStringTableEnableGarbageCollection",
                                                                     &stringTableEnableGarbageCollection));
}

// The registrar that tgRegisterGaugeKitOBSPackage calls once (the module's
// entry points keep the registered flag): hands the package info and the
// class info over to the class system.
void registerGaugeKitPackage() {
  if (!cachedPackage) {
    auto info = std::make_unique<GaugeKitOBSPackageInfo>();
    const objsys::OBSNameID name(info->getName());
    objsys::OBSPackage::addPackage(std::move(info));
    cachedPackage = objsys::OBSPackage::getPackage(name);
  }
  if (cachedPackage)
    cachedPackage->addClass(std::make_unique<TempoGaugeOBSClassInfo>(kTracerClassName, kTracerFullName, true));
}

namespace {
// Installed when the library loads, before any host can initialise it.
[[maybe_unused]] const bool registrarInstalled = (tgSetPackageRegistrar(&registerGaugeKitPackage), true);
}  // namespace

objsys::OBSPackage* tgGaugeKitPackage() {
  tgRegisterGaugeKitOBSPackage();
  return cachedPackage;
}

objsys::OBSClass* tgTracerClass() {
  tgRegisterGaugeKitOBSPackage();
  static objsys::OBSClass* const cls = objsys::OBSClass::getClass(objsys::OBSNameID(kTracerFullName));
  return cls;
}
