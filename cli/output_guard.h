// Checks on the file a command writes, made before anything is read or
// written, so that a mistyped command line can't destroy its own input.
#pragma once

#include <initializer_list>
#include <string>

namespace tg::cli {

// Throws CommandError when `out` names the same file as one of `inputs`
// (also through another path or a link).
void refuseInputAsOutput(const std::string& out, std::initializer_list<std::string> inputs);

}  // namespace tg::cli
