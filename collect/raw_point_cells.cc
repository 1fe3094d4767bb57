// SPDX-License-Identifier: BSD-3-Clause
// Raw points as rows of host cells, and back. The row is the wire format of
// saved traces, so its column order is fixed; reading is tolerant and never
// fails: a wrong cell gives a default.
#include "collect/constants.h"
#include "collect/paths.h"
#include "collect/raw_point.h"
#include "collect/tempo_gauge.h"

namespace {

std::size_t at(const oxArray* row, const cellCursor& c) {
  return oxCalcSingleSubscript(row, {c.row, c.column});
}

void putCell(oxArray* row, cellCursor& c, oxArrayPtr value) {
  oxSetCell(row, at(row, c), oxDuplicateArray(value.get()));
  oxDestroyArray(value);
  ++c.column;
}

void putText(oxArray* row, cellCursor& c, std::string_view text) { putCell(row, c, oxCreateString(text)); }
void putDouble(oxArray* row, cellCursor& c, double v) { putCell(row, c, oxCreateDoubleScalar(v)); }

void putName(oxArray* row, cellCursor& c, std::uint32_t kind, std::int32_t id) {
  putText(row, c, tgGetNameStr(kind, id));
}

const oxArray* takeCell(const oxArray* row, cellCursor& c) {
  const oxArray* cell = oxGetCell(row, at(row, c));
  ++c.column;
  return cell;
}

std::int32_t readInt(const oxArray* row, cellCursor& c) {
  const oxArray* cell = takeCell(row, c);
  if (!cell || !cell->is_integer() || cell->isEmpty()) return 0;
  return cell->classID() == oxINT32_CLASS ? cell->int32s()[0]
                                          : static_cast<std::int32_t>(cell->uint32s()[0]);
}

bool readLogical(const oxArray* row, cellCursor& c) {
  const oxArray* cell = takeCell(row, c);
  return oxIsLogicalScalarTrue(cell);
}

double readDouble(const oxArray* row, cellCursor& c) {
  const oxArray* cell = takeCell(row, c);
  return oxIsScalar(cell) ? oxGetScalar(cell) : 0.0;
}

std::int32_t readName(const oxArray* row, cellCursor& c, std::uint32_t kind) {
  return tgGetId(kind, oxArrayToStdString(takeCell(row, c)));
}

oxArrayPtr newRow(std::size_t width) { return oxCreateCellMatrix(1, width); }

}  // namespace

// ---- writing ----------------------------------------------------------------

void TGORRERYDataPoint::putLeadingCells(oxArray* row, cellCursor& c) const {
  putText(row, c, tg::kRowVersionTag);
  auto type = oxCreateNumericArray(1, 1, oxINT32_CLASS);
  type->int32s()[0] = pointType;
  putCell(row, c, std::move(type));
  putText(row, c, cleanPhaseName(tgGetNameStr(tg::kPhaseKind, phaseId), false));
  putName(row, c, tg::kGroupingKind, groupingId);
}

void TGORRERYDataPoint::putTrailingCells(oxArray* row, cellCursor& c) const {
  putName(row, c, tg::kStatisticsTypeKind, statisticsTypeId);
  putCell(row, c, oxCreateLogicalScalar(isStart()));
  putDouble(row, c, wallTime);
  putDouble(row, c, cpuTime);
  putDetailedMemStats(row, c);
  putBasicMemStats(row, c);
}

void TGORRERYDataPoint::putDetailedMemStats(oxArray* row, cellCursor& c) const {
  const tg::DetailedMemStats zero;
  const tg::DetailedMemStats& d = detailedMemStats ? *detailedMemStats : zero;
  for (const double v : {d.freeMem, d.resMem, d.commitMem, d.dllsMem, d.nonprocessMem}) putDouble(row, c, v);
}

void TGORRERYDataPoint::putBasicMemStats(oxArray* row, cellCursor& c) const {
  const tg::BasicMemStats zero;
  const tg::BasicMemStats& b = basicMemStats ? *basicMemStats : zero;
  for (const double v : {b.procMemUsage, b.procMemUsagePeak, b.procVMSize}) putDouble(row, c, v);
}

void TGCWGENDataPoint::putModelTargetCells(oxArray* row, cellCursor& c) const {
  putName(row, c, tg::kModelKind, modelId);
  putName(row, c, tg::kTargetKind, targetId);
}

oxArrayPtr TGORRERYDataPoint::toCellArray() const {
  auto row = newRow(16);
  cellCursor c;
  putLeadingCells(row.get(), c);
  putTrailingCells(row.get(), c);
  return row;
}

oxArrayPtr TGCWGENDataPoint::toCellArray() const {
  auto row = newRow(18);
  cellCursor c;
  putLeadingCells(row.get(), c);
  putModelTargetCells(row.get(), c);
  putTrailingCells(row.get(), c);
  return row;
}

oxArrayPtr TGLoomchartDataPoint::toCellArray() const {
  auto row = newRow(20);
  cellCursor c;
  putLeadingCells(row.get(), c);
  putModelTargetCells(row.get(), c);
  putName(row.get(), c, tg::kMachineKind, machineId);
  putName(row.get(), c, tg::kChartKind, chartId);
  putTrailingCells(row.get(), c);
  return row;
}

// ---- reading ----------------------------------------------------------------

bool TGORRERYDataPoint::readVersionTag(const oxArray* row, cellCursor& c) {
  const oxArray* first = oxGetCell(row, at(row, c));
  if (!oxIsCharVector(first)) return true;  // no tag: the fields start at column 0
  ++c.column;
  return oxArrayToStdString(first) == tg::kRowVersionTag;
}

void TGORRERYDataPoint::readLeadingFields(const oxArray* row, cellCursor& c) {
  pointType = readInt(row, c);
  phaseId = readName(row, c, tg::kPhaseKind);
  groupingId = readName(row, c, tg::kGroupingKind);
}

void TGORRERYDataPoint::readTrailingFields(const oxArray* row, cellCursor& c) {
  statisticsTypeId = readName(row, c, tg::kStatisticsTypeKind);
  flags.isStart = readLogical(row, c) ? 1 : 0;
  wallTime = readDouble(row, c);
  cpuTime = readDouble(row, c);
}

void TGCWGENDataPoint::readModelTargetFields(const oxArray* row, cellCursor& c) {
  modelId = readName(row, c, tg::kModelKind);
  targetId = readName(row, c, tg::kTargetKind);
}

void TGORRERYDataPoint::getDetailedMemStats(const oxArray* row, cellCursor& c) {
  const double free = readDouble(row, c);
  const double reserved = readDouble(row, c);
  const double committed = readDouble(row, c);
  const double dlls = readDouble(row, c);
  const double nonprocess = readDouble(row, c);
  if (free + reserved + committed + dlls + nonprocess > 0.0)
    detailedMemStats = std::make_shared<tg::DetailedMemStats>(free, reserved, committed, dlls, nonprocess);
}

void TGORRERYDataPoint::getBasicMemStats(const oxArray* row, cellCursor& c) {
  const double usage = readDouble(row, c);
  const double peak = readDouble(row, c);
  const double vm = readDouble(row, c);
  basicMemStats = std::make_shared<tg::BasicMemStats>(usage, peak, vm);
}

TGORRERYDataPoint::TGORRERYDataPoint(const oxArray* cellRow) : TGORRERYDataPoint(FromCellRowTag{}) {
  cellCursor c;
  if (readVersionTag(cellRow, c)) {
    readLeadingFields(cellRow, c);
    readTrailingFields(cellRow, c);
  }
  getDetailedMemStats(cellRow, c);
  getBasicMemStats(cellRow, c);
}

TGCWGENDataPoint::TGCWGENDataPoint(const oxArray* cellRow) : TGORRERYDataPoint() {
  pointType = 0;  // the root's default constructor ran; the row says the rest
  modelId = 0;
  targetId = 0;
  cellCursor c;
  if (readVersionTag(cellRow, c)) {
    readLeadingFields(cellRow, c);
    readModelTargetFields(cellRow, c);
    readTrailingFields(cellRow, c);
  }
  getDetailedMemStats(cellRow, c);
  getBasicMemStats(cellRow, c);
}

TGLoomchartDataPoint::TGLoomchartDataPoint(const oxArray* cellRow) : TGCWGENDataPoint() {
  machineId = 0;
  chartId = 0;
  cellCursor c;
  if (readVersionTag(cellRow, c)) {
    readLeadingFields(cellRow, c);
    readModelTargetFields(cellRow, c);
    machineId = readName(cellRow, c, tg::kMachineKind);
    chartId = readName(cellRow, c, tg::kChartKind);
    readTrailingFields(cellRow, c);
  }
  getDetailedMemStats(cellRow, c);
  getBasicMemStats(cellRow, c);
}
