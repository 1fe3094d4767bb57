// SPDX-License-Identifier: GPL-3.0-or-later
// Dispatch of GaugeKit members through the class registry.
#include "octave/member_call.h"

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "collect/log_entry.h"
#include "octave/octave_values.h"
#include "scripting/errors.h"
#include "scripting/gaugekit_package.h"
#include "scripting/objsys.h"

namespace tg::octave_adapter {
namespace {

objsys::OBSMethodInfo* findMember(std::string_view className, std::string_view memberName) {
  if (className.empty()) {
    objsys::OBSPackage* package = tgGaugeKitPackage();
    return package ? package->findFunction(memberName) : nullptr;
  }
  if (className != kTracerClassName) return nullptr;
  objsys::OBSClass* cls = tgTracerClass();
  return cls ? cls->findMethod(memberName) : nullptr;
}

// The logging methods take the most calls by far. When their inputs are as
// their handlers want them (names that are char rows, a logical scalar
// start flag, no outputs asked for), the names are passed to the core as
// views of Octave's own character data: no host arrays, no copies. Any other
// call goes the general way, which raises the handler's error.
bool logDirectly(std::string_view member, const octave_value_list& args, int nargout) {
  std::size_t names = 0;
  if (member == "logORRERYData") names = 2;
  else if (member == "logCogwheelData") names = 4;
  else if (member == "logLoomchartData") names = 6;
  else if (member == "logCWStartupData") names = 1;
  else return false;
  if (nargout > 0 || static_cast<std::size_t>(args.length()) != names + 1) return false;
  std::array<std::string_view, 6> text;
  for (std::size_t i = 0; i < names; ++i) {
    const std::optional<std::string_view> chars = charVectorText(args(static_cast<octave_idx_type>(i)));
    if (!chars) return false;
    text[i] = *chars;
  }
  const octave_value& start = args(static_cast<octave_idx_type>(names));
  if (!start.is_bool_scalar()) return false;
  const bool flag = start.bool_value();
  switch (names) {
    case 2: tg::collect::logHostData(text[0], text[1], flag); break;
    case 4: tg::collect::logCogwheelData(text[0], text[1], text[2], text[3], flag); break;
    case 6: tg::collect::logLoomchartData(text[0], text[1], text[2], text[3], text[4], text[5], flag); break;
    default: tg::collect::logStartupData(text[0], flag); break;
  }
  return true;
}

}  // namespace

octave_value_list callPackageMember(std::string_view className, std::string_view memberName,
                                    const octave_value_list& args, int nargout) {
  if (className == kTracerClassName && logDirectly(memberName, args, nargout)) return octave_value_list();
  objsys::OBSMethodInfo* member = findMember(className, memberName);
  const std::string_view owner = className.empty() ? std::string_view(kGaugeKitPackageName) : kTracerFullName;
  if (!member) {
    const std::string qualified = std::string(owner) + "." + std::string(memberName);
    error_with_id("Octave:undefined-function", "'%s' is not a member of GaugeKit", qualified.c_str());
  }

  // The error is raised after the C++ exception is gone, so that nothing of
  // the failed call is still alive while Octave unwinds.
  std::string errorId;
  std::string errorText;
  octave_value_list results;
  try {
    std::vector<oxArrayPtr> inputs;
    inputs.reserve(static_cast<std::size_t>(args.length()));
    for (octave_idx_type i = 0; i < args.length(); ++i) inputs.push_back(toHostArray(args(i)));
    const std::vector<oxArrayPtr> outputs = objsys::invokeMethod(*member, owner, std::move(inputs), nargout);
    for (const oxArrayPtr& output : outputs) results.append(toOctaveValue(output.get()));
    return results;
  } catch (const hfnd::except::IMsgIDException& e) {
    errorId = e.get_error_id();
    errorText = e.messageText();
  } catch (const objsys::CallError& e) {
    errorId = e.id();
    errorText = e.what();
  } catch (const std::exception& e) {
    errorId = "tempogauge:internal";
    errorText = std::string(owner) + "." + std::string(memberName) + ": " + e.what();
  }
  error_with_id(errorId.c_str(), "%s", errorText.c_str());
}

octave_value_list callMemberPath(const octave_value_list& args, int nargout) {
  if (args.length() == 0 || !args(0).is_string())
    error("GaugeKit: the first argument names a member, such as \"Tracer.enable\"");
  const std::string path = args(0).string_value();
  const std::size_t dot = path.find('.');
  const std::string className = dot == std::string::npos ? std::string() : path.substr(0, dot);
  const std::string member = dot == std::string::npos ? path : path.substr(dot + 1);
  return callPackageMember(className, member, args.slice(1, args.length() - 1), nargout);
}

}  // namespace tg::octave_adapter
