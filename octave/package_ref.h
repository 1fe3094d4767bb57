// The value that the name GaugeKit stands for in Octave. Indexing it, as in
// GaugeKit.Tracer.enable("g", true) or GaugeKit.cwsvStringTableDoGarbageCollection(),
// reaches the registry in one step: Octave hands the whole chain of indices
// to subsref because the value reports itself as an object.
#pragma once

#include <octave/oct.h>
#include <octave/ov-base.h>

namespace tg::octave_adapter {

class PackageRef : public octave_base_value {
 public:
  PackageRef() = default;

  bool is_defined() const override { return true; }
  bool isobject() const override { return true; }
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
