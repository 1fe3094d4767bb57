// SPDX-License-Identifier: BSD-3-Clause
// The class system's registry of packages and classes, and the checked call.
#include "scripting/objsys.h"

#include <algorithm>
#include <cstring>
#include <mutex>
#include <sstream>

#include <boost/container/small_vector.hpp>

namespace objsys {
namespace {

struct Registry {
  std::mutex mutex;
  std::map<std::string, std::unique_ptr<OBSPackage>, std::less<>> packages;
  std::map<std::string, std::unique_ptr<OBSClass>, std::less<>> classes;
};

// Lives as long as the process: infos handed over are never freed while a
// host may still hold a method pointer.
Registry& registry() {
  static Registry* const instance = new Registry();
  return *instance;
}

}  // namespace

std::shared_ptr<OBSMethodSignature> OBSMethodSignature::createMethodSignature() {
  return std::make_shared<OBSMethodSignature>();
}

void OBSMethodList::addMethod(std::unique_ptr<OBSMethodInfo> method) {
  if (!method) return;
  byName_.try_emplace(method->getName(), method.get());
  methods_.push_back(std::move(method));
}

OBSMethodInfo* OBSMethodList::find(std::string_view name) const {
  const auto it = byName_.find(name);
  return it == byName_.end() ? nullptr : it->second;
}

OBSClass::OBSClass(std::unique_ptr<OBSClassInfo> info) : info_(std::move(info)) {
  info_->loadMethods(methods_);
}

OBSClass* OBSClass::getClass(const OBSNameID& fullName) {
  Registry& reg = registry();
  const std::lock_guard lock(reg.mutex);
  const auto it = reg.classes.find(fullName.str());
  return it == reg.classes.end() ? nullptr : it->second.get();
}

OBSPackage::OBSPackage(std::unique_ptr<OBSPackageInfo> info) : info_(std::move(info)) {
  info_->loadFunctions(functions_);
}

void OBSPackage::addPackage(std::unique_ptr<OBSPackageInfo> info) {
  if (!info) return;
  const std::string name = info->getName();
  Registry& reg = registry();
  {
    const std::lock_guard lock(reg.mutex);
    if (reg.packages.count(name)) return;
  }
  // Functions are loaded outside the lock: loadFunctions may ask the class
  // system for things.
  auto package = std::make_unique<OBSPackage>(std::move(info));
  const std::lock_guard lock(reg.mutex);
  reg.packages.try_emplace(name, std::move(package));
}

OBSPackage* OBSPackage::getPackage(const OBSNameID& name) {
  Registry& reg = registry();
  const std::lock_guard lock(reg.mutex);
  const auto it = reg.packages.find(name.str());
  return it == reg.packages.end() ? nullptr : it->second.get();
}

void OBSPackage::addClass(std::unique_ptr<OBSClassInfo> info) {
  if (!info) return;
  const std::string fullName = info_->getName() + "." + info->getName();
  const std::string shortName = info->getName();
  Registry& reg = registry();
  {
    const std::lock_guard lock(reg.mutex);
    if (reg.classes.count(fullName)) return;
  }
  auto cls = std::make_unique<OBSClass>(std::move(info));
  const std::lock_guard lock(reg.mutex);
  if (reg.classes.try_emplace(fullName, std::move(cls)).second) classNames_.push_back(shortName);
}

std::vector<oxArrayPtr> invokeMethod(OBSMethodInfo& method, std::string_view owner,
                                     std::vector<oxArrayPtr> inputs, int nargout) {
  const OBSMethodSignature& signature = method.getMethodSignature();
  const std::size_t declaredIn = signature.inputTypes().size();
  const std::size_t declaredOut = signature.outputTypes().size();
  // Names are built only for a refused call: this is the path of every
  // logging call from a host.
  const auto refuse = [&](const char* id, const char* what, std::size_t count) {
    std::string name(owner);
    if (!name.empty()) name += ".";
    name += method.getName();
    throw CallError(id, name + ": called with " + what + " (" + std::to_string(count) + " declared)");
  };
  if (!signature.hasVariableInputs() && inputs.size() > declaredIn)
    refuse("objsys:TooManyInputs", "too many inputs", declaredIn);
  if (!signature.hasVariableInputs() && inputs.size() < declaredIn)
    refuse("objsys:NotEnoughInputs", "too few inputs", declaredIn);
  if (nargout > 0 && static_cast<std::size_t>(nargout) > declaredOut)
    refuse("objsys:TooManyOutputs", "too many outputs", declaredOut);

  boost::container::small_vector<OBSValue, 8> in(inputs.size());
  for (std::size_t i = 0; i < inputs.size(); ++i) in[i].array = std::move(inputs[i]);
  boost::container::small_vector<OBSValue, 2> out(std::max<std::size_t>(declaredOut, 1));
  int nout = 0;
  method.invoke(nullptr, nout, out.data(), static_cast<int>(in.size()), in.data());

  std::vector<oxArrayPtr> results;
  const int produced = std::clamp(nout, 0, static_cast<int>(out.size()));
  for (int i = 0; i < produced; ++i) results.push_back(std::move(out[static_cast<std::size_t>(i)].array));
  return results;
}

namespace factory {

FunctionInfo::FunctionInfo(const char* name, MethodAttributes attributes)
    : name_(name ? name : ""), attributes_(attributes), signature_(OBSMethodSignature::createMethodSignature()) {}

void impl::Invoker::createSignature(const char* inputs, const char* output, const char* /*extra*/,
                                    OBSMethodSignaturePtr& signature) {
  signature = OBSMethodSignature::createMethodSignature();
  std::istringstream in(inputs ? inputs : "");
  for (std::string type; std::getline(in, type, ',');)
    if (!type.empty()) signature->addInputType(OBSNameID(type));
  if (output && *output && std::strcmp(output, "void") != 0) signature->addOutputType(OBSNameID(output));
}

}  // namespace factory
}  // namespace objsys
