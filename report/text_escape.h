// Escaping of user text (names, labels, system information) for the place in a
// report where it lands, so that no text can break the page or run as script.
// Letters, digits, blanks, '_', '.', '/' and '-' pass through unchanged.
#pragma once

#include <string>
#include <string_view>

// Inside HTML text or a quoted attribute: & < > " and ' become entities.
std::string htmlEscaped(std::string_view text);
// Inside a script string literal of either quote: backslash, both quotes and
// line ends are escaped, and "</" becomes "<\/" so the text never closes the
// script element.
std::string scriptStringEscaped(std::string_view text);
