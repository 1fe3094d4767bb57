// SPDX-License-Identifier: BSD-3-Clause
// Reading of the report methods' name/value options.
#include "scripting/report_options.h"

#include <algorithm>

#include "collect/constants.h"
#include "scripting/errors.h"
#include "scripting/handler_args.h"

using namespace tempogauge::TempoGauge;

namespace tg::scripting {
namespace {

bool isKnownMetric(const std::string& metric) {
  return metric == kMetricTime || metric == kMetricBasicMemory || metric == kMetricDetailedMemory;
}

[[noreturn]] void wrongClass(const ReportOptionRules& rules, const std::string& name, OptionKind kind) {
  if (rules.wrongClassIsUnexpectedValue && kind != OptionKind::Metric) tgRaise<UnexpectedValue>(name);
  tgRaise<ParameterMismatchString>(name);
}

}  // namespace

const std::string& ReportOptions::get(const std::string& name) const {
  static const std::string empty;
  const auto it = text.find(name);
  return it == text.end() ? empty : it->second;
}

bool ReportOptions::isGiven(const std::string& name) const {
  const auto it = given.find(name);
  return it != given.end() && it->second;
}

ReportOptions readReportOptions(const ReportOptionRules& rules, ReportOptions options, int nin,
                                const objsys::OBSValue* in) {
  if (nin < rules.minInputs) tgRaise<MinParamsNotReached>(rules.minText);
  if (nin > rules.maxInputs) tgRaise<MaxParamsExceeded>(rules.maxText);
  if (nin % 2 != 0) tgRaise<ExpectedEvenNumberOfParameters>();

  for (int i = 0; i + 1 < nin; i += 2) {
    const oxArray* nameInput = input(in, i);
    const oxArray* value = input(in, i + 1);
    if (!oxIsCharVector(nameInput)) tgRaise<InvalidNames>();
    std::string name = toText(nameInput);
    if (rules.lowerCaseNames) name = lowerCase(std::move(name));
    if (rules.classTestedBeforeName && !oxIsCharVector(value)) wrongClass(rules, name, OptionKind::Text);

    const auto option = std::find_if(rules.options.begin(), rules.options.end(),
                                     [&](const auto& entry) { return entry.first == name; });
    if (option == rules.options.end()) tgRaise<InvalidNames>();
    const OptionKind kind = option->second;
    switch (kind) {
      case OptionKind::Text:
        if (!oxIsCharVector(value)) wrongClass(rules, name, kind);
        options.text[name] = toText(value);
        break;
      case OptionKind::Flag:
        // A flag of the wrong class raises the ID of strings, on purpose.
        if (!oxIsLogicalScalar(value)) wrongClass(rules, name, kind);
        options.showmeta = oxIsLogicalScalarTrue(value);
        break;
      case OptionKind::Metric: {
        if (!oxIsCharVector(value)) wrongClass(rules, name, kind);
        std::string metric = lowerCase(toText(value));
        if (!isKnownMetric(metric))
          tgRaise<InvalidMetric>(std::string(kMetricTime), std::string(kMetricBasicMemory),
                                 std::string(kMetricDetailedMemory));
        options.text[name] = std::move(metric);
        break;
      }
    }
    options.given[name] = true;
  }
  return options;
}

}  // namespace tg::scripting
