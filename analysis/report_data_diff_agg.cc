// SPDX-License-Identifier: BSD-3-Clause
#include "analysis/deviation_rows.h"
#include "analysis/report_data.h"
#include "analysis/report_data_diff_columns.h"
#include "analysis/report_data_text.h"
#include "collect/constants.h"

namespace {

using namespace tg::report_data;

constexpr std::string_view kTimeColumns =
    "LHS_WCSelf LHS_WCSelfPlusChild RHS_WCSelf RHS_WCSelfPlusChild "
    "WCSelfAbsDev WCSelfRelDev WCSelfBkgColor WCSCAbsDev WCSCRelDev WCSCBkgColor\");\n";
constexpr std::string_view kDetailedColumns =
    "LHS_Free LHS_Reserved LHS_Committed LHS_Dlls LHS_NonProcess "
    "RHS_Free RHS_Reserved RHS_Committed RHS_Dlls RHS_NonProcess "
    "FreeAbsDev FreeRelDev FreeBkgColor ReservedAbsDev ReservedRelDev ReservedBkgColor "
    "CommittedAbsDev CommittedRelDev CommittedBkgColor DllsAbsDev DllsRelDev DllsBkgColor "
    "NonProcessAbsDev NonProcessRelDev NonProcessBkgColor\");\n";

// The value columns of one side, -99.99 each when the side is absent.
void appendSideValues(std::string& out, const TGAggregateDataPoint* a, std::string_view metric) {
  std::size_t count = 0;
  double values[5] = {0, 0, 0, 0, 0};
  if (metric == tg::kMetricTime) {
    count = 2;
    if (a) values[0] = a->wcSelf, values[1] = a->wcTotal;
  } else if (metric == tg::kMetricBasicMemory) {
    count = 4;
    if (a)
      values[0] = a->procMemUsageDeltaSelf, values[1] = a->procMemUsageMax, values[2] = a->procMemUsagePeakDeltaSelf,
      values[3] = a->procMemUsagePeakMax;
  } else if (metric == tg::kMetricDetailedMemory) {
    count = 5;
    if (a)
      values[0] = a->freeMemMax, values[1] = a->resMemMax, values[2] = a->commitMemMax, values[3] = a->dllsMemMax,
      values[4] = a->nonprocessMemMax;
  }
  for (std::size_t k = 0; k < count; ++k) {
    if (a) {
      appendRealField(out, values[k]);
    } else {
      out += ',';
      out += kMissingValueText;
    }
  }
}

}  // namespace

std::string writeDiffAggData(const std::vector<AggregateComparisonRow>& rows, std::string_view metric) {
  std::string out;
  out.reserve(1024 + rows.size() * 160);
  out +=
      "        var aggDataView = new Array();\n"
      "        aggDataView['Index'] = new Array();\n"
      "        var aggSortInfo = new Array();\n"
      "        var aggDataViewCreated = false;\n"
      "        var ctDataViewCreated  = false;\n"
      "        var numRows = new Array();\n"
      "        numRows['Aggregate'] = 0;\n"
      "        numRows['CallTree']  = 0;\n"
      "        numRows['Detail']    = 0;\n"
      "        aggSortInfo['Col'] = '';\n"
      "        aggSortInfo['Asc'] = false;\n";
  out += "        var aggDataStruct = makeStruct(\"IsParent Phase LHS_Count RHS_Count CountAbsDev ";
  out += diffMetricColumns(metric, kTimeColumns, kDetailedColumns);
  out += "        var aggData = [";
  bool first = true;
  for (const auto& row : rows) {
    const TGAggregateDataPoint* lead = row.lhs ? row.lhs : row.rhs;
    if (!lead) continue;
    if (!first) out += kRowSeparator;
    first = false;
    out += "new aggDataStruct(";
    appendInt(out, lead->isParent ? 1 : 0);
    appendIntField(out, lead->phaseID);
    for (const TGAggregateDataPoint* side : {row.lhs, row.rhs}) {
      out += ',';
      if (side) appendInt(out, side->hitCount);
      else out += kMissingValueText;
    }
    appendIntField(out, countAbsDev(row));
    appendSideValues(out, row.lhs, metric);
    appendSideValues(out, row.rhs, metric);
    appendDeviations(out, compareAggregateRow(row, metric));
    out += ')';
  }
  out += "];\n";
  return out;
}
