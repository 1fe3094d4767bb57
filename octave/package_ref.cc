// Indexing of the GaugeKit value: member name chains and call arguments.
#include "octave/package_ref.h"

#include "octave/member_index.h"

namespace tg::octave_adapter {

DEFINE_OV_TYPEID_FUNCTIONS_AND_DATA(PackageRef, "GaugeKit package", "GaugeKit");

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
  return indexMembers("", type, idx, 0, nargout);
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
