// Text from a trace made safe to print on a terminal.
#pragma once

#include <string>
#include <string_view>

namespace tg::cli {

// `text` with its control characters escaped: "\n", "\t", "\r" and "\e" by
// name, other C0 controls and DEL as "\xNN", and the C1 controls of UTF-8
// text as "\u0080" to "\u009f". A name logged with a newline or an escape
// sequence then shows as what it is and can't move the cursor or change
// colours.
std::string escapeControls(std::string_view text);

}  // namespace tg::cli
