// SPDX-License-Identifier: BSD-3-Clause
#include <array>

#include "analysis/deviation_rows.h"
#include "analysis/report_data.h"
#include "analysis/report_data_diff_columns.h"
#include "analysis/report_data_text.h"
#include "collect/constants.h"

namespace {

using namespace tg::report_data;

constexpr std::string_view kTimeColumns =
    "LHS_WCSelf LHS_WCSelfPlusChild LHS_CPUSself LHS_CPUSelfPlusChild "
    "RHS_WCSelf RHS_WCSelfPlusChild RHS_CPUSelf RHS_CPUSelfPlusChild "
    "WCSelfAbsDev WCSelfRelDev WCSelfBkgColor WCSCAbsDev WCSCRelDev WCSCBkgColor "
    "CPUSelfAbsDev CPUSelfRelDev CPUSelfBkgColor CPUSCAbsDev CPUSCRelDev CPUSCBkgColor\");\n";
constexpr std::string_view kDetailedColumns =
    "LHS_Free LHS_Reserved LHS_Committed LHS_Dlls LHS_NonProcess "
    "LHS_FreeStart LHS_ReservedStart LHS_CommittedStart LHS_DllsStart LHS_NonProcessStart "
    "RHS_Free RHS_Reserved RHS_Committed RHS_Dlls RHS_NonProcess "
    "RHS_FreeStart RHS_ReservedStart RHS_CommittedStart RHS_DllsStart RHS_NonProcessStart "
    "FreeAbsDev FreeRelDev FreeBkgColor ReservedAbsDev ReservedRelDev ReservedBkgColor "
    "CommittedAbsDev CommittedRelDev CommittedBkgColor DllsAbsDev DllsRelDev DllsBkgColor "
    "NonProcessAbsDev NonProcessRelDev NonProcessBkgColor "
    "FreeStartAbsDev FreeStartRelDev FreeStartBkgColor ReservedStartAbsDev ReservedStartRelDev "
    "ReservedStartBkgColor CommittedStartAbsDev CommittedStartRelDev CommittedStartBkgColor "
    "DllsStartAbsDev DllsStartRelDev DllsStartBkgColor NonProcessStartAbsDev NonProcessStartRelDev "
    "NonProcessStartBkgColor\");\n";

std::string realText(double value) {
  std::string text;
  appendReal(text, value);
  return text;
}

// The value texts of the row being written. They are kept from row to row: a
// parent that is only in the RHS leaves its RHS self times as the row before
// it set them.
class ValueRecord {
 public:
  void write(const ProcessedComparisonRow& row, bool isParent, std::string_view metric) {
    const TGORRERYProcessedDataPoint* lhs = row.lhs.get();
    const TGORRERYProcessedDataPoint* rhs = row.rhs.get();
    if (metric == tg::kMetricTime) {
      count_ = 8;
      writeTime(lhs, rhs, isParent);
    } else if (metric == tg::kMetricBasicMemory) {
      count_ = 8;
      writeBasic(lhs, 0);
      writeBasic(rhs, 4);
    } else if (metric == tg::kMetricDetailedMemory) {
      count_ = 20;
      for (auto& slot : slots_) slot = "0";
      writeDetailed(lhs, 0);
      writeDetailed(rhs, 10);
    } else {
      count_ = 0;
    }
  }
  void append(std::string& out) const {
    for (std::size_t k = 0; k < count_; ++k) {
      out += ',';
      out += slots_[k];
    }
  }

 private:
  // Slots: LHS WCSelf, WCSelfPlusChild, CPUSelf, CPUSelfPlusChild, then RHS.
  void writeTime(const TGORRERYProcessedDataPoint* lhs, const TGORRERYProcessedDataPoint* rhs, bool isParent) {
    if (lhs && rhs) {
      slots_[0] = isParent ? "0" : realText(lhs->wcElapsedTime);
      slots_[4] = isParent ? "0" : realText(rhs->wcElapsedTime);
      slots_[2] = isParent ? "0" : realText(lhs->cpuElapsedTime);
      slots_[6] = isParent ? "0" : realText(rhs->cpuElapsedTime);
      slots_[1] = realText(lhs->wcElapsedTime);
      slots_[5] = realText(rhs->wcElapsedTime);
      slots_[3] = realText(lhs->cpuElapsedTime);
      slots_[7] = realText(rhs->cpuElapsedTime);
    } else if (lhs) {
      slots_[0] = isParent ? "0" : realText(lhs->wcElapsedTime);
      slots_[2] = isParent ? "0" : realText(lhs->cpuElapsedTime);
      slots_[1] = realText(lhs->wcElapsedTime);
      slots_[3] = realText(lhs->cpuElapsedTime);
      for (std::size_t k = 4; k < 8; ++k) slots_[k] = kMissingValueText;
    } else if (rhs) {
      if (!isParent) {
        slots_[4] = realText(rhs->wcElapsedTime);
        slots_[6] = realText(rhs->cpuElapsedTime);
      }
      slots_[5] = realText(rhs->wcElapsedTime);
      slots_[7] = realText(rhs->cpuElapsedTime);
      for (std::size_t k = 0; k < 4; ++k) slots_[k] = kMissingValueText;
    }
  }
  void writeBasic(const TGORRERYProcessedDataPoint* p, std::size_t at) {
    if (!p) {
      for (std::size_t k = 0; k < 4; ++k) slots_[at + k] = kMissingValueText;
      return;
    }
    const tg::BasicProcessedMemStats zero;
    const auto& b = p->basicMem ? *p->basicMem : zero;
    slots_[at] = realText(b.procMemUsageDelta);
    slots_[at + 1] = realText(b.procMemUsage);
    slots_[at + 2] = realText(b.procMemUsagePeakDelta);
    slots_[at + 3] = realText(b.procMemUsagePeak);
  }
  void writeDetailed(const TGORRERYProcessedDataPoint* p, std::size_t at) {
    if (!p) {
      for (std::size_t k = 0; k < 10; ++k) slots_[at + k] = kMissingValueText;
      return;
    }
    if (!p->detailedMem) return;
    const auto& d = *p->detailedMem;
    const tg::DetailedMemStats zero;
    const tg::DetailedMemStats& start =
        p->childrenIDs.empty() ? d : (p->detailedStartMem ? *p->detailedStartMem : zero);
    const std::array<double, 10> values{d.freeMem,     d.resMem,     d.commitMem,     d.dllsMem,     d.nonprocessMem,
                                        start.freeMem, start.resMem, start.commitMem, start.dllsMem, start.nonprocessMem};
    for (std::size_t k = 0; k < 10; ++k) slots_[at + k] = realText(values[k]);
  }

  std::array<std::string, 20> slots_{"0", "0", "0", "0", "0", "0", "0", "0", "0", "0",
                                     "0", "0", "0", "0", "0", "0", "0", "0", "0", "0"};
  std::size_t count_ = 0;
};

// Model, Target, Machine and Chart of a comparison row.
void appendSiteIds(std::string& out, const TGORRERYProcessedDataPoint& p) {
  if (p.pointType == 2 || p.pointType == 1) {
    appendIntField(out, p.getModel());
    appendIntField(out, p.getTarget());
    appendIntField(out, p.pointType == 2 ? p.getMachine() : -1);
    appendIntField(out, p.pointType == 2 ? p.getChart() : -1);
  } else {
    out += ",-1,-1,-1,-1";
  }
}

}  // namespace

std::string writeDiffProcData(const std::vector<ProcessedComparisonRow>& rows, std::string_view metric) {
  std::string out;
  out.reserve(1024 + rows.size() * 200);
  out += "        var dataStruct = makeStruct(\"isParent HTMLPhaseNum GapRow Phase Grouping Model Target Machine Chart ";
  out += diffMetricColumns(metric, kTimeColumns, kDetailedColumns);
  out += "        var numBlankData = 0;\n";
  out += "        var procData = [";
  ValueRecord record;
  bool first = true;
  for (const auto& row : rows) {
    const TGORRERYProcessedDataPoint* lead = row.lhs ? row.lhs.get() : row.rhs.get();
    if (!lead) continue;
    bool isParent = !lead->childrenIDs.empty();
    bool gapRow = lead->isGapRow();
    if (row.lhs && row.rhs) {
      isParent = !row.lhs->childrenIDs.empty() || !row.rhs->childrenIDs.empty();
      gapRow = row.lhs->isGapRow() || row.rhs->isGapRow();
    }
    if (!first) out += kRowSeparator;
    first = false;
    out += "new dataStruct(";
    appendInt(out, isParent ? 1 : 0);
    appendQuotedField(out, lead->HTMLPhaseNumString);
    appendIntField(out, gapRow ? 1 : 0);
    appendIntField(out, lead->phaseID);
    appendIntField(out, lead->grouping);
    appendSiteIds(out, *lead);
    record.write(row, isParent, metric);
    record.append(out);
    appendDeviations(out, compareProcessedRow(row, metric));
    out += ')';
  }
  out += "];\n";
  return out;
}
