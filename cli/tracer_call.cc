// SPDX-License-Identifier: BSD-3-Clause
// Calls of GaugeKit.Tracer methods from the command.
#include "cli/tracer_call.h"

#include "scripting/gaugekit_package.h"
#include "scripting/objsys.h"

namespace tg::cli {

MethodArgs& MethodArgs::text(std::string_view value) {
  values_.push_back(oxCreateString(value));
  return *this;
}

MethodArgs& MethodArgs::flag(bool value) {
  values_.push_back(oxCreateLogicalScalar(value));
  return *this;
}

std::vector<oxArrayPtr> callTracer(std::string_view method, MethodArgs args, int nargout) {
  objsys::OBSClass* cls = tgTracerClass();
  objsys::OBSMethodInfo* info = cls ? cls->findMethod(method) : nullptr;
  if (!info)
    throw objsys::CallError("objsys:UndefinedMethod",
                            std::string(kTracerFullName) + "." + std::string(method) + " is not a method");
  return objsys::invokeMethod(*info, kTracerFullName, args.take(), nargout);
}

}  // namespace tg::cli
