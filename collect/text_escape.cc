// SPDX-License-Identifier: BSD-3-Clause
#include "collect/text_escape.h"

void appendScriptString(std::string& out, std::string_view text) {
  out.reserve(out.size() + text.size());
  for (std::size_t k = 0; k < text.size(); ++k) {
    const char c = text[k];
    switch (c) {
      case '"': out += "\\\""; break;
      case '\'': out += "\\'"; break;
      case '\\': out += "\\\\"; break;
      case '\n': out += "\\n"; break;
      case '\r': out += "\\r"; break;
      case '<':
        // "</" could end the script element, "<!--" could keep it open past
        // its end (with a later "<script"); the backslash keeps the string.
        out += (k + 1 < text.size() && (text[k + 1] == '/' || text[k + 1] == '!')) ? "<\\" : "<";
        break;
      case '\xE2':
        // U+2028 and U+2029 (E2 80 A8, E2 80 A9) end a line inside older script
        // string literals.
        if (k + 2 < text.size() && text[k + 1] == '\x80' && (text[k + 2] == '\xA8' || text[k + 2] == '\xA9')) {
          out += text[k + 2] == '\xA8' ? "\\u2028" : "\\u2029";
          k += 2;
        } else {
          out += c;
        }
        break;
      default: out += c;
    }
  }
}

std::string escapeScriptString(std::string_view text) {
  std::string out;
  appendScriptString(out, text);
  return out;
}

void appendHtml(std::string& out, std::string_view text) {
  out.reserve(out.size() + text.size());
  for (const char c : text) {
    switch (c) {
      case '&': out += "&amp;"; break;
      case '<': out += "&lt;"; break;
      case '>': out += "&gt;"; break;
      case '"': out += "&quot;"; break;
      case '\'': out += "&#39;"; break;
      default: out += c;
    }
  }
}

std::string escapeHtml(std::string_view text) {
  std::string out;
  appendHtml(out, text);
  return out;
}
