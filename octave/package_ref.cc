// The GaugeKit value.
#include "octave/package_ref.h"

namespace tg::octave_adapter {

DEFINE_OV_TYPEID_FUNCTIONS_AND_DATA(PackageRef, "GaugeKit package", "GaugeKit");

void PackageRef::print_raw(std::ostream& os, bool) const { os << "<package GaugeKit>"; }

octave_value PackageRef::instance() {
  // Created once and kept: Octave copies share the one representation.
  static octave_value* const value = [] {
    PackageRef::register_type();
    return new octave_value(new PackageRef());
  }();
  return *value;
}

}  // namespace tg::octave_adapter
