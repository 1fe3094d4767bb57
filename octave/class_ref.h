// SPDX-License-Identifier: GPL-3.0-or-later
// The value that GaugeKit.Tracer stands for once the package has been
// indexed: indexing it calls the class's methods. It reports itself as a
// class too, so that function handles such as @GaugeKit.Tracer.enable reach
// it.
#pragma once

#include "octave/member_chain_ref.h"

namespace tg::octave_adapter {

class ClassRef : public MemberChainRef {
 public:
  ClassRef();

  bool is_classdef_meta() const override { return true; }
  void print_raw(std::ostream& os, bool pr_as_read_syntax) const override;

  // The shared instance; registers the type at first use.
  static octave_value instance();

 private:
  DECLARE_OV_TYPEID_FUNCTIONS_AND_DATA
};

}  // namespace tg::octave_adapter
