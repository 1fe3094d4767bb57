// The value that GaugeKit.Tracer stands for once the package has been
// indexed: indexing it calls the class's methods. It reports itself as an
// object, so that Octave hands it the rest of the chain at once, and as a
// class, so that function handles such as @GaugeKit.Tracer.enable reach it.
#pragma once

#include <octave/oct.h>
#include <octave/ov-base.h>

namespace tg::octave_adapter {

class ClassRef : public octave_base_value {
 public:
  ClassRef() = default;

  bool is_defined() const override { return true; }
  bool isobject() const override { return true; }
  bool is_classdef_meta() const override { return true; }
  bool print_as_scalar() const override { return true; }
  void print(std::ostream& os, bool pr_as_read_syntax) override;
  void print_raw(std::ostream& os, bool pr_as_read_syntax) const override;

  octave_value subsref(const std::string& type, const std::list<octave_value_list>& idx) override;
  octave_value_list subsref(const std::string& type, const std::list<octave_value_list>& idx,
                            int nargout) override;

  // The shared instance; registers the type at first use.
  static octave_value instance();

 private:
  DECLARE_OV_TYPEID_FUNCTIONS_AND_DATA
};

}  // namespace tg::octave_adapter
