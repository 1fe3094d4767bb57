// SPDX-License-Identifier: BSD-3-Clause
// The name/value options of the report methods, checked in the fixed order
// each method has: the input count against its bounds, the parity, then
// each pair in turn. The first fault raises its message ID.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "scripting/objsys.h"

namespace tg::scripting {

enum class OptionKind { Text, Flag, Metric };

// How one report method reads its options.
struct ReportOptionRules {
  int minInputs = 0;              // fewer raises MinParamsNotReached with minText
  const char* minText = "";
  int maxInputs = 0;              // more raises MaxParamsExceeded with maxText
  const char* maxText = "";
  // The option names in their order of comparison, with their kinds.
  std::vector<std::pair<std::string, OptionKind>> options;
  bool lowerCaseNames = true;     // false: names are case sensitive
  bool wrongClassIsUnexpectedValue = false;  // else ParameterMismatchString (metric always the latter)
  bool classTestedBeforeName = false;        // every value must be text before the name is compared
};

// The options a call gave, over the method's defaults.
struct ReportOptions {
  std::map<std::string, std::string> text;  // text options, and the metric lower-cased
  std::map<std::string, bool> given;        // whether the call named the option
  bool showmeta = true;

  const std::string& get(const std::string& name) const;
  bool isGiven(const std::string& name) const;
};

// Checks the count and reads every pair over `defaults`.
ReportOptions readReportOptions(const ReportOptionRules& rules, ReportOptions defaults, int nin,
                                const objsys::OBSValue* in);

}  // namespace tg::scripting
