// SPDX-License-Identifier: BSD-3-Clause
#include "scripting/messages.h"

#include <array>
#include <utility>

namespace tempogauge {

namespace {

using Entry = std::pair<std::string_view, std::string_view>;

// Patterns by ID name. {N} stands for argument N.
constexpr std::array<Entry, 18> kCatalogue{{
    {"MinParamsNotReached", "Not enough input arguments: this method needs at least {0}."},
    {"MaxParamsExceeded", "Too many input arguments: this method takes at most {0}."},
    {"ExpectedEvenNumberOfParameters",
     "Options must be given as name/value pairs, so the number of inputs must be even."},
    {"ParameterMismatchString", "{0} must be a character vector."},
    {"ParameterMismatchBoolean", "{0} must be a logical scalar (true or false)."},
    {"InvalidNames", "Invalid name: an option or name given to this method is not valid here."},
    {"ExpectedNames", "A required option is missing: {0}."},
    {"InvalidMetric", "Invalid metric: use '{0}', '{1}' or '{2}'."},
    {"UnexpectedValue",
     "Unexpected value for '{0}': to add a grouping, give its members as a cell array of character vectors; "
     "an option's value must be a character vector."},
    {"OpenFileFailed", "Could not open the file '{0}'."},
    {"WriteFileFailed", "Could not write the file '{0}'."},
    {"DataWriteFail", "Could not write the {0} to the file '{1}'."},
    {"MissingOrfExt", "The file name must contain \".orf\", as in run.orf."},
    {"NoRawTracerData",
     "There is no raw tracer data. Enable tracing and run the code to trace, or load a saved trace."},
    {"NoRawTracerDataLoaded", "There is no raw tracer data in '{0}'."},
    {"AddGroupingError", "Could not add the grouping: {0}."},
    {"AddGroupingExpectedString", "Every name in the list of groupings must be a character vector."},
    {"RemoveGroupingError", "Could not remove the grouping '{0}'."},
}};

// Patterns for particular first arguments, where the ID's own pattern would
// mislead. They come before kCatalogue.
struct ArgumentEntry {
  std::string_view name;
  std::string_view argument;
  std::string_view pattern;
};

constexpr std::string_view kOptionValueNotText = "The value of the option '{0}' must be a character vector.";
constexpr std::string_view kHostAnswer = "The host gave an answer of the wrong kind for {0}.";

constexpr std::array<ArgumentEntry, 16> kByArgument{{
    {"ParameterMismatchString", "showmeta", "The option 'showmeta' takes a logical scalar (true or false)."},
    {"ExpectedNames", "'grouping' or 'model'", "Expected an option name, 'grouping' or 'model', as a character vector."},
    {"ExpectedNames", "'htmlfile' and one of 'lhsfile' or 'rhsfile' to be set.",
     "Required options are missing: expected {0}"},
    {"UnexpectedValue", "htmlfile", kOptionValueNotText},
    {"UnexpectedValue", "grouping", kOptionValueNotText},
    {"UnexpectedValue", "model", kOptionValueNotText},
    {"UnexpectedValue", "target", kOptionValueNotText},
    {"UnexpectedValue", "orffile", kOptionValueNotText},
    {"UnexpectedValue", "lhsfile", kOptionValueNotText},
    {"UnexpectedValue", "rhsfile", kOptionValueNotText},
    {"UnexpectedValue", "lhslabel", kOptionValueNotText},
    {"UnexpectedValue", "rhslabel", kOptionValueNotText},
    {"UnexpectedValue", "ORRERY Root", "The host's installation root (ORRERY Root) is not a character vector."},
    {"UnexpectedValue", "Number of Cores", kHostAnswer},
    {"UnexpectedValue", "CPU information", kHostAnswer},
    {"UnexpectedValue", "installed products: [evalc('ver')]", kHostAnswer},
}};

constexpr std::string_view kNoLiveData =
    "There is no raw tracer data in the current session for one side of the comparison.";

std::string fill(std::string_view pattern, const std::vector<std::string>& arguments) {
  std::string out;
  out.reserve(pattern.size() + 32);
  for (std::size_t i = 0; i < pattern.size(); ++i) {
    if (pattern[i] == '{') {
      const std::size_t close = pattern.find('}', i);
      if (close != std::string_view::npos && close > i + 1) {
        std::size_t slot = 0;
        bool digits = true;
        for (std::size_t k = i + 1; k < close; ++k) {
          if (pattern[k] < '0' || pattern[k] > '9') digits = false;
          else slot = slot * 10 + static_cast<std::size_t>(pattern[k] - '0');
        }
        if (digits) {
          if (slot < arguments.size()) out += arguments[slot];
          i = close;
          continue;
        }
      }
    }
    out += pattern[i];
  }
  // An argument that ends a sentence itself ("'htmlfile' must be set.") must
  // not leave a doubled full stop.
  if (out.size() >= 2 && out.ends_with("..") && !out.ends_with("...")) out.pop_back();
  return out;
}

}  // namespace

std::string_view messagePattern(std::string_view name) {
  for (const auto& [id, pattern] : kCatalogue)
    if (id == name) return pattern;
  return {};
}

std::string messageText(const MessageRecord& record) {
  if (record.name == "NoRawTracerDataLoaded" && (record.arguments.empty() || record.arguments[0].empty()))
    return std::string(kNoLiveData);
  std::string_view pattern = messagePattern(record.name);
  if (!record.arguments.empty()) {
    for (const ArgumentEntry& entry : kByArgument)
      if (entry.name == record.name && entry.argument == record.arguments[0]) pattern = entry.pattern;
  }
  if (pattern.empty()) {
    std::string text = "Error " + record.fullId();
    for (const auto& a : record.arguments) text += (&a == &record.arguments.front() ? ": " : ", ") + a;
    return text + ".";
  }
  return fill(pattern, record.arguments);
}

}  // namespace tempogauge
