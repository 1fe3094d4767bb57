// SPDX-License-Identifier: BSD-3-Clause
#include <mutex>

#include "collect/text_escape.h"
#include "analysis/report_data.h"
#include "analysis/report_data_text.h"
#include "collect/constants.h"
#include "collect/paths.h"
#include "collect/tempo_gauge.h"

namespace {

struct NameArray {
  std::uint32_t kind;
  std::string_view variable;
};

constexpr NameArray kNameArrays[] = {
    {tg::kPhaseKind, "Phase"},     {tg::kGroupingKind, "Grouping"}, {tg::kModelKind, "Model"},
    {tg::kTargetKind, "Target"},   {tg::kMachineKind, "Machine"},   {tg::kChartKind, "Chart"},
};

void appendNameArray(std::string& out, const NameTable* table, const NameArray& array) {
  out += "        var ";
  out += array.variable;
  out += " = [";
  if (table) {
    const auto size = static_cast<std::int32_t>(table->size());
    for (std::int32_t id = 0; id < size; ++id) {
      std::string name;
      if (const auto found = table->right.find(id); found != table->right.end()) name = found->second;
      for (char& c : name)
        if (c == '\n') c = ' ';
      if (array.kind == tg::kPhaseKind) name = cleanPhaseName(name, false);
      out += '"';
      appendScriptString(out, name);
      out += '"';
      if (id + 1 < size) out += ", \n";
    }
  }
  out += "];\n";
}

}  // namespace

std::string writeNameArrays(const TempoGauge* tracer) {
  std::string out;
  std::unique_lock<std::recursive_mutex> lock;
  if (tracer) lock = std::unique_lock(tracer->mutex());
  for (const auto& array : kNameArrays) appendNameArray(out, tracer ? tracer->table(array.kind) : nullptr, array);
  out += tg::report_data::kSharedVariables;
  return out;
}
