// SPDX-License-Identifier: BSD-3-Clause
// Construction, identity and keys of the processed points.
#include "analysis/processed_point.h"

#include "collect/constants.h"
#include "collect/paths.h"
#include "collect/tempo_gauge.h"

TGORRERYProcessedDataPoint::TGORRERYProcessedDataPoint(const TGORRERYDataPoint& raw, std::int32_t rowNumber,
                                                       std::int32_t depth)
    : grouping(raw.groupingId),
      phaseID(raw.phaseId),
      statisticsType(raw.statisticsTypeId),
      detailedMem(std::make_shared<tg::DetailedProcessedMemStats>(raw.detailedMemStats.get())),
      basicMem(std::make_shared<tg::BasicProcessedMemStats>(raw.basicMemStats.get())),
      detailedStartMem(std::make_shared<tg::DetailedMemStats>()),
      HTMLRowNumber(rowNumber),
      stackDepth(depth) {
  flags.gapRow = raw.flags.isGap;
}

TGORRERYProcessedDataPoint::~TGORRERYProcessedDataPoint() = default;

bool TGORRERYProcessedDataPoint::isSamePhase(const TGORRERYProcessedDataPoint& other) const {
  return phaseID == other.phaseID && grouping == other.grouping;
}

std::string TGORRERYProcessedDataPoint::comparisonKey() const {
  return cleanPhaseName(tgGetNameStr(tg::kPhaseKind, phaseID), true) + tgGetNameStr(tg::kGroupingKind, grouping);
}

void TGORRERYProcessedDataPoint::phaseIdentity(std::int32_t& phase, std::int32_t& modelOut,
                                               std::int32_t& chartOut) const {
  phase = phaseID;
  modelOut = -1;
  chartOut = -1;
}

TGCWGENProcessedDataPoint::TGCWGENProcessedDataPoint(const TGCWGENDataPoint& raw, std::int32_t rowNumber,
                                                     std::int32_t depth)
    : TGORRERYProcessedDataPoint(raw, rowNumber, depth), model(raw.modelId), target(raw.targetId) {
  pointType = 1;
}

TGCWGENProcessedDataPoint::~TGCWGENProcessedDataPoint() = default;

bool TGCWGENProcessedDataPoint::isSamePhase(const TGORRERYProcessedDataPoint& other) const {
  return other.pointType == 1 && TGORRERYProcessedDataPoint::isSamePhase(other) && model == other.getModel() &&
         target == other.getTarget();
}

std::string TGCWGENProcessedDataPoint::comparisonKey() const {
  return TGORRERYProcessedDataPoint::comparisonKey() + tgGetNameStr(tg::kModelKind, model) +
         tgGetNameStr(tg::kTargetKind, target);
}

void TGCWGENProcessedDataPoint::phaseIdentity(std::int32_t& phase, std::int32_t& modelOut,
                                              std::int32_t& chartOut) const {
  phase = phaseID;
  modelOut = model;
  chartOut = -1;
}

namespace {

constexpr std::string_view kDetailRowOpen = "                            <tr>\n";
constexpr std::string_view kDetailTextOpen = "                                <td class=\"PhaseDetailText\">";
constexpr std::string_view kDetailRowClose = "</td>\n                            </tr>\n";

std::string nameOr(std::uint32_t kind, std::int32_t id, std::string_view fallback) {
  return id < 1 ? std::string(fallback) : tgGetNameStr(kind, id);
}

}  // namespace

std::string TGCWGENProcessedDataPoint::phaseDetailRow() const {
  std::string row(kDetailRowOpen);
  row += "                                <td colspan=2 style=\"width:25px\">&nbsp;</td>\n";
  row += kDetailTextOpen;
  row += tgGetNameStr(tg::kGroupingKind, grouping);
  if (model < 1) {
    row += ' ';
  } else {
    row += '/';
    row += tgGetNameStr(tg::kModelKind, model);
  }
  if (target > 0) {
    row += '/';
    row += tgGetNameStr(tg::kTargetKind, target);
  }
  row += kDetailRowClose;
  return row;
}

TGLCProcessedDataPoint::TGLCProcessedDataPoint(const TGLoomchartDataPoint& raw, std::int32_t rowNumber,
                                               std::int32_t depth)
    : TGCWGENProcessedDataPoint(raw, rowNumber, depth), machine(raw.machineId), chart(raw.chartId) {
  pointType = 2;
}

TGLCProcessedDataPoint::~TGLCProcessedDataPoint() = default;

bool TGLCProcessedDataPoint::isSamePhase(const TGORRERYProcessedDataPoint& other) const {
  return other.pointType == 2 && phaseID == other.phaseID && grouping == other.grouping &&
         model == other.getModel() && target == other.getTarget() && machine == other.getMachine() &&
         chart == other.getChart();
}

std::string TGLCProcessedDataPoint::comparisonKey() const {
  return TGCWGENProcessedDataPoint::comparisonKey() + tgGetNameStr(tg::kMachineKind, machine) +
         tgGetNameStr(tg::kChartKind, chart);
}

void TGLCProcessedDataPoint::phaseIdentity(std::int32_t& phase, std::int32_t& modelOut,
                                           std::int32_t& chartOut) const {
  phase = phaseID;
  modelOut = model;
  chartOut = chart;
}

std::string TGLCProcessedDataPoint::phaseDetailRow() const {
  std::string row(kDetailRowOpen);
  row += "                                <td colspan=2 style=\"width:15%\">&nbsp;</td>\n";
  row += kDetailTextOpen;
  row += tgGetNameStr(tg::kGroupingKind, grouping);
  row += '/';
  row += nameOr(tg::kModelKind, model, "NO MODEL SPECIFIED");
  row += '/';
  row += nameOr(tg::kTargetKind, target, "NO TARGET SPECIFIED");
  row += '/';
  row += nameOr(tg::kMachineKind, machine, "NO MACHINE SPECIFIED");
  row += '/';
  row += nameOr(tg::kChartKind, chart, "NO CHART SPECIFIED");
  row += kDetailRowClose;
  return row;
}

ProcessedPointPtr makeProcessedPoint(const TGORRERYDataPoint& raw, std::int32_t rowNumber, std::int32_t depth) {
  // The kind number decides; a point whose class doesn't match its number
  // (only a damaged file could hold one) falls back to the widest class it has.
  if (raw.pointType == 2) {
    if (const auto* lc = dynamic_cast<const TGLoomchartDataPoint*>(&raw))
      return std::make_shared<TGLCProcessedDataPoint>(*lc, rowNumber, depth);
  }
  if (raw.pointType == 1 || raw.pointType == 2) {
    if (const auto* cw = dynamic_cast<const TGCWGENDataPoint*>(&raw))
      return std::make_shared<TGCWGENProcessedDataPoint>(*cw, rowNumber, depth);
  }
  return std::make_shared<TGORRERYProcessedDataPoint>(raw, rowNumber, depth);
}
