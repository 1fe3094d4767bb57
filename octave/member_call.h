// SPDX-License-Identifier: GPL-3.0-or-later
// Calls a member of the package GaugeKit from Octave: a method of
// GaugeKit.Tracer or a package-level function, found by name in the class
// registry. Octave values become host arrays on the way in and come back as
// Octave values; a failure is raised as an Octave error whose identifier is
// the message ID and whose message is the catalogue's text.
#pragma once

#include <octave/oct.h>

#include <string_view>

namespace tg::octave_adapter {

// `className` is "Tracer" for a method, empty for a package-level function.
octave_value_list callPackageMember(std::string_view className, std::string_view memberName,
                                    const octave_value_list& args, int nargout);

// The function GaugeKit called with arguments: the first names the member
// ("Tracer.enable", or a package function's name), the rest are its inputs.
octave_value_list callMemberPath(const octave_value_list& args, int nargout);

}  // namespace tg::octave_adapter
