// SPDX-License-Identifier: GPL-3.0-or-later
// The GaugeKit.Tracer value.
#include "octave/class_ref.h"

#include "scripting/gaugekit_package.h"

namespace tg::octave_adapter {

DEFINE_OV_TYPEID_FUNCTIONS_AND_DATA(ClassRef, "GaugeKit.Tracer class", "GaugeKit.Tracer");

ClassRef::ClassRef() : MemberChainRef(std::string(kTracerClassName)) {}

void ClassRef::print_raw(std::ostream& os, bool) const {
  os << "<class GaugeKit.Tracer: static methods; methods (\"GaugeKit.Tracer\") lists them>";
}

octave_value ClassRef::instance() { return sharedInstance<ClassRef>(); }

}  // namespace tg::octave_adapter
