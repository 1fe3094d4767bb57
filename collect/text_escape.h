// SPDX-License-Identifier: BSD-3-Clause
// Escaping of user text (phase, grouping, model, target, machine and chart
// names, labels, system information) for the place in a report where it lands,
// so that no name can break a report or run script in it. A name made of
// letters, digits, blanks, '_', '.', '/' and '-' comes out unchanged.
#pragma once

#include <string>
#include <string_view>

// For the inside of a script string literal (either quote kind): both quotes
// and the backslash get a backslash, CR and LF become \r and \n, the line
// separators U+2028 and U+2029 become \u2028 and \u2029, and "</" becomes "<\/"
// so that the text can't close the script element.
std::string escapeScriptString(std::string_view text);
void appendScriptString(std::string& out, std::string_view text);

// For HTML text and attribute values: & < > " ' become entities.
std::string escapeHtml(std::string_view text);
void appendHtml(std::string& out, std::string_view text);
