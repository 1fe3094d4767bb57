#include "cli/output_guard.h"

#include <filesystem>

#include "cli/command_options.h"

namespace tg::cli {

void refuseInputAsOutput(const std::string& out, std::initializer_list<std::string> inputs) {
  for (const auto& input : inputs) {
    std::error_code ec;
    // Equivalent only when both exist; an output that does not exist yet is
    // no input.
    if (std::filesystem::equivalent(out, input, ec) && !ec)
      throw CommandError("the output file " + out + " is the input trace " + input +
                         "; name another file with -o");
  }
}

}  // namespace tg::cli
