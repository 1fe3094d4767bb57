// SPDX-License-Identifier: GPL-3.0-or-later
// Indexing that reaches the members of GaugeKit: the chain of indices after
// the package (".Tracer.<method>(args)..." or ".<function>(args)...") or
// after the class (".<method>(args)..."), as Octave hands it to subsref.
#pragma once

#include <octave/oct.h>

#include <list>
#include <string>
#include <string_view>

namespace tg::octave_adapter {

// Applies the indices of `type` and `idx` from position `from` on, below
// the class `className` ("Tracer") or, when it is empty, below the package.
// Calls the member named by the first index with the arguments of a
// following "(" and applies any further indices to its result.
octave_value_list indexMembers(std::string_view className, const std::string& type,
                               const std::list<octave_value_list>& idx, std::size_t from, int nargout);

// The name a "." index carries, as a view of the index's own characters.
std::string_view memberName(const octave_value_list& index);

}  // namespace tg::octave_adapter
