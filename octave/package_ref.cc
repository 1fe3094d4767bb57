// SPDX-License-Identifier: GPL-3.0-or-later
// The GaugeKit value.
#include "octave/package_ref.h"

namespace tg::octave_adapter {

DEFINE_OV_TYPEID_FUNCTIONS_AND_DATA(PackageRef, "GaugeKit package", "GaugeKit");

void PackageRef::print_raw(std::ostream& os, bool) const { os << "<package GaugeKit>"; }

octave_value PackageRef::instance() { return sharedInstance<PackageRef>(); }

}  // namespace tg::octave_adapter
