// SPDX-License-Identifier: GPL-3.0-or-later
// The member chains below GaugeKit and GaugeKit.Tracer.
#include "octave/member_index.h"

#include <iterator>
#include <optional>
#include <string>

#include "octave/class_ref.h"
#include "octave/member_call.h"
#include "octave/octave_values.h"
#include "scripting/gaugekit_package.h"

namespace tg::octave_adapter {

std::string_view memberName(const octave_value_list& index) {
  if (index.length() == 1)
    if (const std::optional<std::string_view> name = charVectorText(index(0))) return *name;
  error("GaugeKit: invalid member name");
}

octave_value_list indexMembers(std::string_view className, const std::string& type,
                               const std::list<octave_value_list>& idx, std::size_t from, int nargout) {
  if (from >= type.size() || type[from] != '.')
    error("%s is indexed with '.' and a member name", className.empty() ? "GaugeKit" : kTracerFullName);
  auto it = std::next(idx.begin(), static_cast<std::ptrdiff_t>(from));
  const std::string_view member = memberName(*it++);
  std::size_t used = from + 1;
  if (className.empty() && member == kTracerClassName) {
    if (used == type.size()) return ovl(ClassRef::instance());
    return indexMembers(kTracerClassName, type, idx, used, nargout);
  }
  static const octave_value_list noArgs;
  const octave_value_list* args = &noArgs;
  if (used < type.size() && type[used] == '(') {
    args = &*it;
    ++used;
  }
  const bool more = used < type.size();
  octave_value_list results = callPackageMember(className, member, *args, more ? 1 : nargout);
  if (!more) return results;
  if (results.length() == 0) error("GaugeKit: %s returned nothing to index", std::string(member).c_str());
  return results(0).next_subsref(nargout, type, idx, used);
}

}  // namespace tg::octave_adapter
