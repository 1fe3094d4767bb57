// SPDX-License-Identifier: BSD-3-Clause
#include "collect/raw_point.h"

#include "collect/constants.h"
#include "collect/number_text.h"
#include "collect/paths.h"
#include "collect/tempo_gauge.h"
#include "collect/text_escape.h"

namespace {

constexpr const char* kCellOpen = "                <td>";
constexpr const char* kCellClose = "</td>\n";

std::string textCell(std::string_view text) { return kCellOpen + std::string(text) + kCellClose; }

// Names come from users: a cell holds them as text, never as markup.
std::string nameCell(std::string_view name) { return kCellOpen + escapeHtml(name) + kCellClose; }

// A missing id is the all-ones value; any other id prints its name.
std::string optionalNameCell(std::uint32_t kind, std::int32_t id) {
  if (static_cast<std::uint32_t>(id) == 0xFFFFFFFFu) return textCell("&nbsp;");
  return nameCell(tgGetNameStr(kind, id));
}

}  // namespace

// ---- TGORRERYDataPoint ------------------------------------------------------

TGORRERYDataPoint::TGORRERYDataPoint()
    : basicMemStats(std::make_shared<tg::BasicMemStats>()),
      detailedMemStats(std::make_shared<tg::DetailedMemStats>()) {}

TGORRERYDataPoint::TGORRERYDataPoint(FromCellRowTag)
    : pointType(0), groupingId(0), phaseId(0), statisticsTypeId(0) {}

TGORRERYDataPoint::TGORRERYDataPoint(const TGORRERYDataPoint& other)
    : groupingId(other.groupingId),
      phaseId(other.phaseId),
      statisticsTypeId(other.statisticsTypeId),
      wallTime(other.wallTime),
      cpuTime(other.cpuTime),
      basicMemStats(other.basicMemStats ? std::make_shared<tg::BasicMemStats>(*other.basicMemStats)
                                        : std::make_shared<tg::BasicMemStats>()),
      detailedMemStats(other.detailedMemStats
                           ? std::make_shared<tg::DetailedMemStats>(*other.detailedMemStats)
                           : std::make_shared<tg::DetailedMemStats>()) {
  flags.isStart = other.flags.isStart;
  flags.isGap = other.flags.isGap;
}

TGORRERYDataPoint::~TGORRERYDataPoint() = default;

bool TGORRERYDataPoint::isSameSite(const std::shared_ptr<const TGORRERYDataPoint>& other) const {
  return other && pointType == other->pointType && groupingId == other->groupingId &&
         phaseId == other->phaseId;
}

std::string TGORRERYDataPoint::writeStatsCells() const {
  static constexpr const char* kNumberClose = "                </td>\n";
  std::string out;
  auto number = [&](double v, int precision) {
    out += kCellOpen;
    out += tgFormatDouble(v, precision);
    out += kNumberClose;
  };
  number(wallTime, 2);
  number(cpuTime, 2);
  if (detailedMemStats) {
    number(detailedMemStats->freeMem, 5);
    number(detailedMemStats->commitMem, 5);
    number(detailedMemStats->resMem, 5);
    number(detailedMemStats->dllsMem, 5);
    number(detailedMemStats->nonprocessMem, 5);
  } else {
    for (int i = 0; i < 5; ++i) out += "                <td>0.0</td>\n";
  }
  return out;
}

std::string TGORRERYDataPoint::writeBlankCell() const { return "                <td>&nbsp;</td>\n"; }

std::string TGORRERYDataPoint::writeGroupingCell() const {
  return nameCell(tgGetNameStr(tg::kGroupingKind, groupingId));
}

std::string TGORRERYDataPoint::writeStartEndCell() const {
  return textCell(isStart() ? "Start" : "End");
}

std::string TGORRERYDataPoint::writePhaseCell() const {
  return nameCell(cleanPhaseName(tgGetNameStr(tg::kPhaseKind, phaseId), false));
}

std::string TGORRERYDataPoint::writeRowOpen(bool errorRow) const {
  return errorRow ? "            <tr style=\"background:#FF1A00\">\n" : "            <tr>\n";
}

std::string TGORRERYDataPoint::writeRowClose() const { return "            </tr>\n"; }

std::string TGORRERYDataPoint::writeTypeCell() const { return textCell("ORRERY"); }

std::string TGORRERYDataPoint::writeDiagnosticRow(
    std::int32_t mode, const std::shared_ptr<const TGDiagnosticInfo>& info) const {
  if (!info) return {};
  std::string row = writeRowOpen(info->isErrorRow());
  row += writeTypeCell();
  row += writeGroupingCell();
  const int blanks = mode == 1 ? 2 : mode == 2 ? 4 : 0;
  for (int i = 0; i < blanks; ++i) row += writeBlankCell();
  row += writePhaseCell();
  row += writeStartEndCell();
  row += writeStatsCells();
  row += writeRowClose();
  return row;
}

// ---- TGCWGENDataPoint -------------------------------------------------------

TGCWGENDataPoint::TGCWGENDataPoint() { pointType = 1; }

TGCWGENDataPoint::TGCWGENDataPoint(const TGCWGENDataPoint& other)
    : TGORRERYDataPoint(other), modelId(other.modelId), targetId(other.targetId) {
  pointType = 1;
}

TGCWGENDataPoint::~TGCWGENDataPoint() = default;

bool TGCWGENDataPoint::isSameSite(const std::shared_ptr<const TGORRERYDataPoint>& other) const {
  if (!TGORRERYDataPoint::isSameSite(other)) return false;
  // A point read from a foreign row may claim a type that its class lacks the
  // fields of; such a point has no model or target.
  const auto* o = dynamic_cast<const TGCWGENDataPoint*>(other.get());
  return modelId == (o ? o->modelId : -1) && targetId == (o ? o->targetId : -1);
}

std::string TGCWGENDataPoint::writeTypeCell() const { return textCell("Cogwheel"); }

std::string TGCWGENDataPoint::writeModelCell() const {
  return optionalNameCell(tg::kModelKind, modelId);
}

std::string TGCWGENDataPoint::writeTargetCell() const {
  return optionalNameCell(tg::kTargetKind, targetId);
}

std::string TGCWGENDataPoint::writeDiagnosticRow(
    std::int32_t mode, const std::shared_ptr<const TGDiagnosticInfo>& info) const {
  if (!info) return {};
  std::string row = writeRowOpen(info->isErrorRow());
  row += writeTypeCell();
  row += writeGroupingCell();
  row += writeModelCell();
  row += writeTargetCell();
  if (mode == 2) {
    row += writeBlankCell();
    row += writeBlankCell();
  }
  row += writePhaseCell();
  row += writeStartEndCell();
  row += writeStatsCells();
  row += writeRowClose();
  return row;
}

// ---- TGLoomchartDataPoint ---------------------------------------------------

TGLoomchartDataPoint::TGLoomchartDataPoint() { pointType = 2; }

TGLoomchartDataPoint::TGLoomchartDataPoint(const TGLoomchartDataPoint& other)
    : TGCWGENDataPoint(other), machineId(other.machineId), chartId(other.chartId) {
  pointType = 2;
}

TGLoomchartDataPoint::~TGLoomchartDataPoint() = default;

bool TGLoomchartDataPoint::isSameSite(const std::shared_ptr<const TGORRERYDataPoint>& other) const {
  if (!TGCWGENDataPoint::isSameSite(other)) return false;
  const auto* o = dynamic_cast<const TGLoomchartDataPoint*>(other.get());
  return machineId == (o ? o->machineId : -1) && chartId == (o ? o->chartId : -1);
}

std::string TGLoomchartDataPoint::writeTypeCell() const { return textCell("Loomchart"); }

std::string TGLoomchartDataPoint::writeMachineCell() const {
  return optionalNameCell(tg::kMachineKind, machineId);
}

std::string TGLoomchartDataPoint::writeChartCell() const {
  return optionalNameCell(tg::kChartKind, chartId);
}

std::string TGLoomchartDataPoint::writeDiagnosticRow(
    std::int32_t mode, const std::shared_ptr<const TGDiagnosticInfo>& info) const {
  if (!info || mode != 2) return {};
  std::string row = writeRowOpen(info->isErrorRow());
  row += writeTypeCell();
  row += writeGroupingCell();
  row += writeModelCell();
  row += writeTargetCell();
  row += writeMachineCell();
  row += writeChartCell();
  row += writePhaseCell();
  row += writeStartEndCell();
  row += writeStatsCells();
  row += writeRowClose();
  return row;
}
