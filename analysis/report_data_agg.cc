// SPDX-License-Identifier: BSD-3-Clause
#include "analysis/report_data.h"
#include "analysis/report_data_text.h"
#include "collect/constants.h"

namespace {

using namespace tg::report_data;

std::string_view aggColumns(std::string_view metric) {
  if (metric == tg::kMetricTime) return "WCElapsed WCSelfPlusChild";
  if (metric == tg::kMetricBasicMemory) return "UsageDelta Usage UsagePeakDelta UsagePeak";
  if (metric == tg::kMetricDetailedMemory) return "Free Reserved Committed Dlls NonProcess";
  return "";
}

void appendAggValues(std::string& out, const TGAggregateDataPoint& a, std::string_view metric) {
  if (metric == tg::kMetricTime) {
    // The column named WCElapsed carries the self time.
    appendRealField(out, a.wcSelf);
    appendRealField(out, a.wcTotal);
  } else if (metric == tg::kMetricBasicMemory) {
    appendRealField(out, a.procMemUsageDeltaSelf);
    appendRealField(out, a.procMemUsageMax);
    appendRealField(out, a.procMemUsagePeakDeltaSelf);
    appendRealField(out, a.procMemUsagePeakMax);
  } else if (metric == tg::kMetricDetailedMemory) {
    appendRealField(out, a.freeMemMax);
    appendRealField(out, a.resMemMax);
    appendRealField(out, a.commitMemMax);
    appendRealField(out, a.dllsMemMax);
    appendRealField(out, a.nonprocessMemMax);
  }
}

}  // namespace

std::string writeAggData(const AggregateTable& table, std::string_view metric, bool aggregateOnly) {
  std::string out;
  out.reserve(1024 + table.size() * 80);
  out += kSharedVariables;
  out +=
      "       var aggDataView = new Array();\n"
      "       aggDataView['Index'] = new Array();\n"
      "       var aggSortInfo = new Array();\n"
      "       aggSortInfo['Col'] = '';\n"
      "       aggSortInfo['Asc'] = false;\n"
      "       var aggDataViewCreated = false;\n"
      "       var ctDataViewCreated  = false;\n"
      "       var numRows = new Array();\n"
      "       numRows['Aggregate'] = 0;\n";
  if (!aggregateOnly) {
    out +=
        "       numRows['CallTree']  = 0;\n"
        "       numRows['Detail']    = 0;\n";
  }
  out += "       var aggDataStruct = makeStruct(\"IsParent Phase Count ";
  out += aggColumns(metric);
  out += "\");\n";
  out += "       var aggData = [";
  bool first = true;
  for (const auto& entry : table) {
    if (!entry.second) continue;
    const auto& a = *entry.second;
    if (!first) out += kRowSeparator;
    first = false;
    out += "new aggDataStruct(";
    appendInt(out, a.isParent ? 1 : 0);
    appendIntField(out, a.phaseID);
    appendIntField(out, a.hitCount);
    appendAggValues(out, a, metric);
    out += ')';
  }
  out += "];\n\n";
  return out;
}
