// SPDX-License-Identifier: GPL-3.0-or-later
// GaugeKit as a package-like function object.
#include "octave/package_function.h"

#include <octave/interpreter.h>
#include <octave/symtab.h>

#include "octave/class_ref.h"
#include "octave/member_call.h"
#include "octave/member_index.h"
#include "octave/package_ref.h"
#include "scripting/gaugekit_package.h"

namespace tg::octave_adapter {

PackageFunction::PackageFunction()
    : octave_function(kGaugeKitPackageName,
                      "-*- texinfo -*-\n"
                      "@deftypefn {} {} GaugeKit.Tracer.@var{method} (@dots{})\n"
                      "The tempogauge tracer: static methods of the class GaugeKit.Tracer.\n"
                      "List them with @code{methods (\"GaugeKit.Tracer\")}.\n"
                      "@end deftypefn") {}

octave_value_list PackageFunction::call(octave::tree_evaluator& tw, int nargout, const octave_value_list& args) {
  // Like the class system's own package values: no stack frame of its own.
  return execute(tw, nargout, args);
}

octave_value_list PackageFunction::execute(octave::tree_evaluator&, int nargout, const octave_value_list& args) {
  if (args.length() == 0) return ovl(PackageRef::instance());
  return callMemberPath(args, nargout);
}

octave_value_list PackageFunction::subsref(const std::string& type, const std::list<octave_value_list>& idx,
                                           int nargout) {
  if (type.empty() || type[0] != '.') return callMemberPath(idx.front(), nargout);
  if (type.size() > 1) return indexMembers("", type, idx, 0, nargout);
  // Octave hands over one '.' at a time: give back what the name stands
  // for, and Octave applies what follows to it.
  const std::string_view member = memberName(idx.front());
  if (member == kTracerClassName) return ovl(ClassRef::instance());
  return ovl(octave_value(new PackageMemberFunction(std::string(member))));
}

octave_value PackageFunction::subsref(const std::string& type, const std::list<octave_value_list>& idx) {
  const octave_value_list results = subsref(type, idx, 1);
  return results.length() > 0 ? results(0) : octave_value();
}

octave_value PackageFunction::subsref(const std::string& type, const std::list<octave_value_list>& idx, bool) {
  return subsref(type, idx);
}

void PackageFunction::install() {
  octave::interpreter* interp = octave::interpreter::the_interpreter();
  if (!interp) return;
  interp->get_symbol_table().install_cmdline_function(kGaugeKitPackageName, octave_value(new PackageFunction()));
}

PackageMemberFunction::PackageMemberFunction(std::string member)
    : octave_function(std::string(kGaugeKitPackageName) + "." + member, ""), member_(std::move(member)) {}

octave_value_list PackageMemberFunction::call(octave::tree_evaluator& tw, int nargout,
                                              const octave_value_list& args) {
  return execute(tw, nargout, args);
}

octave_value_list PackageMemberFunction::execute(octave::tree_evaluator&, int nargout,
                                                 const octave_value_list& args) {
  return callPackageMember("", member_, args, nargout);
}

}  // namespace tg::octave_adapter
