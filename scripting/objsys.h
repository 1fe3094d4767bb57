// SPDX-License-Identifier: BSD-3-Clause
// The class system that hosts reach the scripting interface through: packages,
// classes, method infos with declared signatures, and package-level functions.
// A host finds a method by package, class and name, and calls its invoke with
// input and output host arrays. Infos handed to the class system belong to it
// and live as long as the process.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "host/ox_array.h"

namespace objsys {

// An interned name.
class OBSNameID {
 public:
  explicit OBSNameID(const char* text) : text_(text ? text : "") {}
  explicit OBSNameID(std::string_view text) : text_(text) {}
  const std::string& str() const { return text_; }

 private:
  std::string text_;
};

// One argument or result of a call: a thin wrapper around one host array.
struct OBSValue {
  oxArrayPtr array;
};

// The caller of a method. Hosts may pass null.
class OBSClient {
 public:
  virtual ~OBSClient() = default;
};

// What a method declares: its input and output types, and whether more inputs
// than the declared ones may follow.
class OBSMethodSignature {
 public:
  static std::shared_ptr<OBSMethodSignature> createMethodSignature();

  void addInputType(const OBSNameID& type) { inputs_.push_back(type.str()); }
  void addOutputType(const OBSNameID& type) { outputs_.push_back(type.str()); }
  void setVariableInputs() { variableInputs_ = true; }

  const std::vector<std::string>& inputTypes() const { return inputs_; }
  const std::vector<std::string>& outputTypes() const { return outputs_; }
  bool hasVariableInputs() const { return variableInputs_; }

 private:
  std::vector<std::string> inputs_;
  std::vector<std::string> outputs_;
  bool variableInputs_ = false;
};
using OBSMethodSignaturePtr = std::shared_ptr<OBSMethodSignature>;

// A method or package function. invoke reads `nin` inputs from `in`, may
// store results in `out` (the caller provides at least one slot) and sets
// `nout` to their number; it signals failure by throwing.
class OBSMethodInfo {
 public:
  virtual ~OBSMethodInfo() = default;
  virtual std::string getName() const = 0;
  virtual std::string getDescription() const { return {}; }
  virtual const OBSMethodSignature& getMethodSignature() const = 0;
  virtual void invoke(OBSClient* client, int& nout, OBSValue* out, int nin, OBSValue* in) = 0;
  virtual bool isFirstArgDispatch() const { return true; }
  virtual bool isStatic() const { return false; }
  virtual bool isAbstract() const { return false; }
  virtual bool isSealed() const { return false; }
  virtual bool isVisible() const { return true; }
  virtual bool isDestructible() const { return true; }
  virtual bool isLocked() const { return false; }
};

// The list that loadMethods and loadFunctions fill; keeps the order of adding.
class OBSMethodList {
 public:
  void addMethod(std::unique_ptr<OBSMethodInfo> method);
  const std::vector<std::unique_ptr<OBSMethodInfo>>& methods() const { return methods_; }
  // Null when there is no method of that name.
  OBSMethodInfo* find(std::string_view name) const;

 private:
  std::vector<std::unique_ptr<OBSMethodInfo>> methods_;
  std::map<std::string, OBSMethodInfo*, std::less<>> byName_;
};

class OBSClassInfo {
 public:
  virtual ~OBSClassInfo() = default;
  virtual std::string getName() const = 0;      // the short name
  virtual std::string getFullName() const = 0;  // package-qualified
  virtual std::string getDescription() const { return {}; }
  virtual void loadMethods(OBSMethodList& methods) = 0;
  virtual bool isHidden() const { return false; }
  virtual bool isAbstract() const { return false; }
  virtual bool isSealed() const { return false; }
};

class OBSPackageInfo {
 public:
  virtual ~OBSPackageInfo() = default;
  virtual std::string getName() const = 0;
  virtual std::string getDescription() const { return {}; }
  virtual void loadFunctions(OBSMethodList& functions) { (void)functions; }
};

// A class known to the class system, with its loaded methods.
class OBSClass {
 public:
  explicit OBSClass(std::unique_ptr<OBSClassInfo> info);
  // The class of a package-qualified name, or null.
  static OBSClass* getClass(const OBSNameID& fullName);

  const OBSClassInfo& info() const { return *info_; }
  const OBSMethodList& methods() const { return methods_; }
  OBSMethodInfo* findMethod(std::string_view name) const { return methods_.find(name); }

 private:
  std::unique_ptr<OBSClassInfo> info_;
  OBSMethodList methods_;
};

// A package known to the class system: its classes and its functions.
class OBSPackage {
 public:
  explicit OBSPackage(std::unique_ptr<OBSPackageInfo> info);
  // Takes over the info and makes a package of its name known; a second
  // package of the same name replaces nothing and the info is dropped.
  static void addPackage(std::unique_ptr<OBSPackageInfo> info);
  // The package of that name, or null.
  static OBSPackage* getPackage(const OBSNameID& name);

  // Takes over a class info, loads its methods and makes the class known
  // under "<package>.<short name>". Adding a class of a known name again
  // keeps the first.
  void addClass(std::unique_ptr<OBSClassInfo> info);

  const OBSPackageInfo& info() const { return *info_; }
  const OBSMethodList& functions() const { return functions_; }
  OBSMethodInfo* findFunction(std::string_view name) const { return functions_.find(name); }
  // Short names of the classes, in the order they were added.
  const std::vector<std::string>& classNames() const { return classNames_; }

 private:
  std::unique_ptr<OBSPackageInfo> info_;
  OBSMethodList functions_;
  std::vector<std::string> classNames_;
};

// A call the class system refuses before any method runs: an unknown name,
// or more or fewer inputs or outputs than the signature declares.
class CallError : public std::runtime_error {
 public:
  CallError(std::string id, const std::string& message) : std::runtime_error(message), id_(std::move(id)) {}
  const std::string& id() const { return id_; }

 private:
  std::string id_;
};

// Calls `method` of `owner` (a class or package name, for messages) with
// `inputs` and asks for `nargout` results (0 means the caller takes at most
// one if the method gives one). Checks the counts against the signature
// first: a signature without variable inputs needs exactly its declared
// inputs. Returns the results the method produced.
std::vector<oxArrayPtr> invokeMethod(OBSMethodInfo& method, std::string_view owner,
                                     std::vector<oxArrayPtr> inputs, int nargout);

namespace factory {

// Attribute bits of a function info.
struct MethodAttributes {
  static constexpr std::uint32_t kStaticBit = 0x1000;
  std::uint32_t bits = 0;
  static MethodAttributes Static() { return MethodAttributes{kStaticBit}; }
};

// A package-level function: a name, attributes and a signature; what it does
// is the invoker's.
class FunctionInfo : public OBSMethodInfo {
 public:
  FunctionInfo(const char* name, MethodAttributes attributes);
  std::string getName() const override { return name_; }
  const OBSMethodSignature& getMethodSignature() const override { return *signature_; }
  bool isFirstArgDispatch() const override { return false; }
  bool isStatic() const override { return static_; }

  MethodAttributes& attributes() { return attributes_; }
  void setStatic(bool flag) { static_ = flag; }
  void setSignature(OBSMethodSignaturePtr signature) { signature_ = std::move(signature); }

 private:
  std::string name_;
  MethodAttributes attributes_;
  OBSMethodSignaturePtr signature_;
  bool static_ = false;
};

namespace impl {
struct Invoker {
  // Builds a signature from texts: comma-separated input types, the output
  // type ("void" for none), and an optional extra text that is not used
  // here. Empty texts declare nothing.
  static void createSignature(const char* inputs, const char* output, const char* extra,
                              OBSMethodSignaturePtr& signature);
};
}  // namespace impl

}  // namespace factory
}  // namespace objsys
