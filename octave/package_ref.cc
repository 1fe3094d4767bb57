// Indexing of the GaugeKit value: member name chains and call arguments.
#include "octave/package_ref.h"

#include <string>

#include "octave/member_call.h"
#include "scripting/gaugekit_package.h"

namespace tg::octave_adapter {

DEFINE_OV_TYPEID_FUNCTIONS_AND_DATA(PackageRef, "GaugeKit package", "GaugeKit");

namespace {

std::string fieldName(const octave_value_list& index) {
  if (index.length() != 1 || !index(0).is_string()) error("GaugeKit: invalid member name");
  const charNDArray chars = index(0).char_array_value();
  return std::string(chars.data(), static_cast<std::size_t>(chars.numel()));
}

}  // namespace

void PackageRef::print(std::ostream& os, bool pr_as_read_syntax) {
  print_raw(os, pr_as_read_syntax);
  newline(os);
}

void PackageRef::print_raw(std::ostream& os, bool) const { os << "<package GaugeKit>"; }

octave_value PackageRef::subsref(const std::string& type, const std::list<octave_value_list>& idx) {
  const octave_value_list results = subsref(type, idx, 1);
  return results.length() > 0 ? results(0) : octave_value();
}

octave_value_list PackageRef::subsref(const std::string& type, const std::list<octave_value_list>& idx,
                                      int nargout) {
  // Forms: .Tracer.<method>[(args)]... and .<function>[(args)]...
  if (type.empty() || type[0] != '.') error("GaugeKit: a package is indexed with '.'");
  auto it = idx.begin();
  std::string className;
  std::string member = fieldName(*it++);
  std::size_t used = 1;
  if (member == kTracerClassName) {
    if (type.size() < 2 || type[1] != '.')
      error("GaugeKit.Tracer is a class of static methods: call GaugeKit.Tracer.<method>(...)");
    className = member;
    member = fieldName(*it++);
    used = 2;
  }
  static const octave_value_list noArgs;
  const octave_value_list* args = &noArgs;
  if (used < type.size() && type[used] == '(') {
    args = &*it++;
    ++used;
  }
  octave_value_list results = callPackageMember(className, member, *args, used < type.size() ? 1 : nargout);
  if (used < type.size()) {
    if (results.length() == 0) error("GaugeKit: %s returned nothing to index", member.c_str());
    return results(0).next_subsref(nargout, type, idx, used);
  }
  return results;
}

octave_value PackageRef::instance() {
  // Created once and kept: Octave copies share the one representation.
  static octave_value* const value = [] {
    PackageRef::register_type();
    return new octave_value(new PackageRef());
  }();
  return *value;
}

}  // namespace tg::octave_adapter
