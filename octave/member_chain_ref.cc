// SPDX-License-Identifier: GPL-3.0-or-later
// Display and indexing shared by the GaugeKit and GaugeKit.Tracer values.
#include "octave/member_chain_ref.h"

#include "octave/member_index.h"

namespace tg::octave_adapter {

void MemberChainRef::print(std::ostream& os, bool pr_as_read_syntax) {
  print_raw(os, pr_as_read_syntax);
  newline(os);
}

octave_value MemberChainRef::subsref(const std::string& type, const std::list<octave_value_list>& idx) {
  const octave_value_list results = subsref(type, idx, 1);
  return results.length() > 0 ? results(0) : octave_value();
}

octave_value_list MemberChainRef::subsref(const std::string& type, const std::list<octave_value_list>& idx,
                                          int nargout) {
  return indexMembers(className_, type, idx, 0, nargout);
}

}  // namespace tg::octave_adapter
