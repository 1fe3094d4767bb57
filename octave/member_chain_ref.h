// SPDX-License-Identifier: GPL-3.0-or-later
// A value that stands for a name of the GaugeKit namespace in Octave: the
// package itself or one of its classes. Indexing it reaches the registry's
// members below that name in one step: the value reports itself as an object,
// so Octave hands the whole chain of indices to subsref. Each kind of name is
// its own Octave type, so that class() and the display tell them apart.
#pragma once

#include <octave/oct.h>
#include <octave/ov-base.h>

#include <list>
#include <ostream>
#include <string>
#include <utility>

namespace tg::octave_adapter {

class MemberChainRef : public octave_base_value {
 public:
  bool is_defined() const override { return true; }
  bool isobject() const override { return true; }
  bool print_as_scalar() const override { return true; }
  void print(std::ostream& os, bool pr_as_read_syntax) override;

  octave_value subsref(const std::string& type, const std::list<octave_value_list>& idx) override;
  octave_value_list subsref(const std::string& type, const std::list<octave_value_list>& idx,
                            int nargout) override;

 protected:
  // `className` names the class whose members the indices reach; empty for
  // the package.
  explicit MemberChainRef(std::string className) : className_(std::move(className)) {}

 private:
  std::string className_;
};

// The one value of the type `Ref`, created (and the type registered with
// Octave) at the first call and kept: Octave copies share the one
// representation.
template <class Ref>
octave_value sharedInstance() {
  static octave_value* const value = [] {
    Ref::register_type();
    return new octave_value(new Ref());
  }();
  return *value;
}

}  // namespace tg::octave_adapter
