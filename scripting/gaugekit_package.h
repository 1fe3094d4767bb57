// SPDX-License-Identifier: BSD-3-Clause
// The package GaugeKit and its class Tracer, as handed to the class system,
// and the module's registration entry points.
#pragma once

#include <memory>
#include <string>

#include "scripting/objsys.h"

class TempoGauge;

inline constexpr const char* kGaugeKitPackageName = "GaugeKit";
inline constexpr const char* kTracerClassName = "Tracer";
inline constexpr const char* kTracerFullName = "GaugeKit.Tracer";

class GaugeKitOBSPackageInfo : public objsys::OBSPackageInfo {
 public:
  std::string getName() const override { return kGaugeKitPackageName; }
  // Adds the three package-level functions, in their fixed order.
  void loadFunctions(objsys::OBSMethodList& functions) override;
};

class TempoGaugeOBSClassInfo : public objsys::OBSClassInfo {
 public:
  TempoGaugeOBSClassInfo(const char* shortName, const char* fullName, bool flag)
      : shortName_(shortName), fullName_(fullName), flag_(flag) {}
  std::string getName() const override { return shortName_; }
  std::string getFullName() const override { return fullName_; }
  // Adds the 25 method infos in registration order.
  void loadMethods(objsys::OBSMethodList& methods) override;
  bool flag() const { return flag_; }
  // An instance of the class: a tracer object with every member empty. No
  // method needs one (all are static); the class system may ask for it.
  std::unique_ptr<TempoGauge> createInstance() const;
  // Destroys such an object; null is ignored.
  void destroyInstance(std::unique_ptr<TempoGauge> instance) const;

 private:
  std::string shortName_;
  std::string fullName_;
  bool flag_;
};

// A package-level function: calls a plain function with no arguments.
class TempoGaugeOBSPackageFunction : public objsys::factory::FunctionInfo {
 public:
  using Target = void (*)();
  TempoGaugeOBSPackageFunction(const char* name, Target target);
  void invoke(objsys::OBSClient* client, int& nout, objsys::OBSValue* out, int nin,
              objsys::OBSValue* in) override;

 private:
  Target target_;
};

// Hands the package GaugeKit and the class GaugeKit.Tracer to the class
// system. The module's tgRegisterGaugeKitOBSPackage calls it, once.
void registerGaugeKitPackage();

// The class GaugeKit.Tracer, registering it first if needed.
objsys::OBSClass* tgTracerClass();
// The package GaugeKit, registering it first if needed.
objsys::OBSPackage* tgGaugeKitPackage();
