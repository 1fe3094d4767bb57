// SPDX-License-Identifier: GPL-3.0-or-later
// The value that the name GaugeKit stands for in Octave. Indexing it, as in
// GaugeKit.Tracer.enable("g", true) or GaugeKit.cwsvStringTableDoGarbageCollection(),
// reaches the registry in one step.
#pragma once

#include "octave/member_chain_ref.h"

namespace tg::octave_adapter {

class PackageRef : public MemberChainRef {
 public:
  PackageRef() : MemberChainRef("") {}

  void print_raw(std::ostream& os, bool pr_as_read_syntax) const override;

  // The shared instance; registers the type at first use.
  static octave_value instance();

 private:
  DECLARE_OV_TYPEID_FUNCTIONS_AND_DATA
};

}  // namespace tg::octave_adapter
