#include "cli/terminal_text.h"

#include <cstdio>

namespace tg::cli {

std::string escapeControls(std::string_view text) {
  std::string out;
  out.reserve(text.size());
  char code[8];
  for (std::size_t i = 0; i < text.size(); ++i) {
    const auto c = static_cast<unsigned char>(text[i]);
    if (c == '\n') out += "\\n";
    else if (c == '\t') out += "\\t";
    else if (c == '\r') out += "\\r";
    else if (c == 0x1b) out += "\\e";
    else if (c < 0x20 || c == 0x7f) {
      std::snprintf(code, sizeof code, "\\x%02x", c);
      out += code;
    } else if (c == 0xc2 && i + 1 < text.size() && static_cast<unsigned char>(text[i + 1]) >= 0x80 &&
               static_cast<unsigned char>(text[i + 1]) <= 0x9f) {
      std::snprintf(code, sizeof code, "\\u%04x", static_cast<unsigned char>(text[++i]));
      out += code;
    } else {
      out += static_cast<char>(c);
    }
  }
  return out;
}

}  // namespace tg::cli
