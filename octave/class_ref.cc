// Indexing of the GaugeKit.Tracer value.
#include "octave/class_ref.h"

#include "octave/member_index.h"
#include "scripting/gaugekit_package.h"

namespace tg::octave_adapter {

DEFINE_OV_TYPEID_FUNCTIONS_AND_DATA(ClassRef, "GaugeKit.Tracer class", "GaugeKit.Tracer");

void ClassRef::print(std::ostream& os, bool pr_as_read_syntax) {
  print_raw(os, pr_as_read_syntax);
  newline(os);
}

void ClassRef::print_raw(std::ostream& os, bool) const {
  os << "<class GaugeKit.Tracer: static methods; methods (\"GaugeKit.Tracer\") lists them>";
}

octave_value ClassRef::subsref(const std::string& type, const std::list<octave_value_list>& idx) {
  const octave_value_list results = subsref(type, idx, 1);
  return results.length() > 0 ? results(0) : octave_value();
}

octave_value_list ClassRef::subsref(const std::string& type, const std::list<octave_value_list>& idx,
                                    int nargout) {
  return indexMembers(kTracerClassName, type, idx, 0, nargout);
}

octave_value ClassRef::instance() {
  static octave_value* const value = [] {
    ClassRef::register_type();
    return new octave_value(new ClassRef());
  }();
  return *value;
}

}  // namespace tg::octave_adapter
