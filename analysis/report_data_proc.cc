// SPDX-License-Identifier: BSD-3-Clause
#include "analysis/report_data.h"
#include "analysis/report_data_text.h"
#include "collect/constants.h"

namespace {

using namespace tg::report_data;

std::string_view procColumns(std::string_view metric) {
  if (metric == tg::kMetricTime) return "WCStart WCElapsed WCSelf CPUStart CPUElapsed CPUSelf ";
  if (metric == tg::kMetricBasicMemory)
    return "UsageDelta UsageDeltaSelf Usage UsageSelf UsagePeakDelta UsagePeakDeltaSelf UsagePeak UsagePeakSelf";
  if (metric == tg::kMetricDetailedMemory)
    return "Free FreeSelf Reserved ReservedSelf Committed CommittedSelf Dlls DllsSelf NonProcess NonProcessSelf "
           "FreeStart ReservedStart CommittedStart DllsStart NonProcessStart";
  return "";
}

// Model, Target, Machine and Chart of a single-run row.
void appendSiteIds(std::string& out, const TGORRERYProcessedDataPoint& p) {
  if (p.pointType == 2) {
    appendIntField(out, p.getModel());
    appendIntField(out, p.getTarget());
    appendIntField(out, p.getMachine());
    appendIntField(out, p.getChart());
  } else if (p.pointType == 1) {
    appendIntField(out, p.getModel());
    appendIntField(out, p.getTarget());
    out += ", -1, -1";
  } else {
    out += ", -1, -1, -1, -1";
  }
}

void appendMetricValues(std::string& out, const TGORRERYProcessedDataPoint& p, std::string_view metric) {
  const bool leaf = p.numChildren == 0;
  auto self = [leaf](double value) { return leaf ? value : 0.0; };
  if (metric == tg::kMetricTime) {
    appendRealField(out, p.wcStartTime);
    appendRealField(out, p.wcElapsedTime);
    appendRealField(out, self(p.wcElapsedTime));
    appendRealField(out, p.cpuStartTime);
    appendRealField(out, p.cpuElapsedTime);
    appendRealField(out, self(p.cpuElapsedTime));
  } else if (metric == tg::kMetricBasicMemory) {
    const tg::BasicProcessedMemStats zero;
    const auto& b = p.basicMem ? *p.basicMem : zero;
    // Self of Usage is the peak and self of UsagePeak the VM size delta.
    appendRealField(out, b.procMemUsageDelta);
    appendRealField(out, self(b.procMemUsageDelta));
    appendRealField(out, b.procMemUsage);
    appendRealField(out, self(b.procMemUsagePeak));
    appendRealField(out, b.procMemUsagePeakDelta);
    appendRealField(out, self(b.procMemUsagePeakDelta));
    appendRealField(out, b.procMemUsagePeak);
    appendRealField(out, self(b.procVMSizeDelta));
  } else if (metric == tg::kMetricDetailedMemory) {
    if (!p.detailedMem) {
      for (int k = 0; k < 15; ++k) out += ",0";
      return;
    }
    const auto& d = *p.detailedMem;
    for (const double value : {d.freeMem, d.resMem, d.commitMem, d.dllsMem, d.nonprocessMem}) {
      appendRealField(out, value);
      appendRealField(out, self(value));
    }
    const tg::DetailedMemStats zero;
    const tg::DetailedMemStats& start = leaf ? d : (p.detailedStartMem ? *p.detailedStartMem : zero);
    for (const double value : {start.freeMem, start.resMem, start.commitMem, start.dllsMem, start.nonprocessMem})
      appendRealField(out, value);
  }
}

}  // namespace

std::string writeProcData(const ProcessedPointVector& points, std::string_view metric) {
  std::string out;
  out.reserve(256 + points.size() * (metric == tg::kMetricDetailedMemory ? 240 : 128));
  out += "        var dataStruct = makeStruct(\"isParent HTMLPhaseNum GapRow Phase Grouping Model Target Machine Chart ";
  out += procColumns(metric);
  out += "\");\n";
  out += "        var numBlankData = 0;\n";
  out += "        var procData = [";
  bool first = true;
  for (const auto& point : points) {
    if (!point) continue;
    const auto& p = *point;
    if (!first) out += kRowSeparator;
    first = false;
    out += "new dataStruct(";
    appendInt(out, p.numChildren > 0 ? 1 : 0);
    appendQuotedField(out, p.HTMLPhaseNumString);
    appendIntField(out, p.isGapRow() ? 1 : 0);
    appendIntField(out, p.phaseID);
    appendIntField(out, p.grouping);
    appendSiteIds(out, p);
    appendMetricValues(out, p, metric);
    out += ')';
  }
  out += "];\n";
  return out;
}
