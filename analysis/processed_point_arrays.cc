// SPDX-License-Identifier: BSD-3-Clause
// Processed points as host arrays: a cell row and a scalar struct.
#include "analysis/processed_point.h"

#include "collect/constants.h"
#include "collect/paths.h"
#include "collect/tempo_gauge.h"

namespace {

void put(oxArray* row, std::size_t& column, oxArrayPtr value) {
  oxSetCell(row, oxCalcSingleSubscript(row, {0, column}), std::move(value));
  ++column;
}

void putName(oxArray* row, std::size_t& column, std::uint32_t kind, std::int32_t id) {
  put(row, column, oxCreateString(tgGetNameStr(kind, id)));
}

oxArrayPtr int32Scalar(std::int32_t value) { return oxCreateInt32Scalar(value); }

oxArrayPtr childrenCells(const std::vector<std::int32_t>& ids) {
  oxArrayPtr cells = oxCreateCellMatrix(1, ids.size());
  for (std::size_t i = 0; i < ids.size(); ++i) oxSetCell(cells.get(), i, oxCreateInt32Scalar(ids[i]));
  return cells;
}

// The struct form's field lists, one per class, in field order.
std::vector<std::string> fieldList(std::initializer_list<const char*> identity) {
  std::vector<std::string> names{"pointType", "groupingStr", "phaseIDStr"};
  names.insert(names.end(), identity.begin(), identity.end());
  for (const char* name :
       {"statisticsTypeStr", "wcStartTime", "wcElapsedTime", "cpuStartTime", "cpuElapsedTime", "freeMem",
        "resMem", "commitMem", "dllsMem", "nonprocessMem", "freeMemDelta", "resMemDelta", "commitMemDelta",
        "dllsMemDelta", "nonprocessMemDelta", "procMemUsage", "procMemUsagePeak", "procVMSize",
        "procMemUsageDelta", "procMemUsagePeakDelta", "procVMSizeDelta", "errorRow", "gapRow",
        "HTMLPhaseNumString", "HTMLRowNumber", "numChildren", "stackDepth", "childrenIDs"})
    names.emplace_back(name);
  return names;
}

void setField(oxArray* s, int field, oxArrayPtr value) {
  // Fields hold duplicates; the temporary goes with its handle.
  oxSetFieldByNumber(s, 0, field, oxDuplicateArray(value.get()));
}

}  // namespace

// ---- cell row ---------------------------------------------------------------

oxArrayPtr TGORRERYProcessedDataPoint::toCellRow() const {
  oxArrayPtr row = oxCreateCellMatrix(1, cellRowWidth());
  std::size_t column = 0;
  put(row.get(), column, int32Scalar(pointType));
  appendIdentityCells(row.get(), column);
  putName(row.get(), column, tg::kStatisticsTypeKind, statisticsType);
  for (const double t : {wcStartTime, wcElapsedTime, cpuStartTime, cpuElapsedTime})
    put(row.get(), column, oxCreateDoubleScalar(t));
  appendDetailedMemCells(row.get(), column);
  appendBasicMemCells(row.get(), column);
  appendRowInfoCells(row.get(), column);
  return row;
}

void TGORRERYProcessedDataPoint::appendIdentityCells(oxArray* row, std::size_t& column) const {
  putName(row, column, tg::kGroupingKind, grouping);
  put(row, column, oxCreateString(cleanPhaseName(tgGetNameStr(tg::kPhaseKind, phaseID), false)));
}

void TGCWGENProcessedDataPoint::appendIdentityCells(oxArray* row, std::size_t& column) const {
  TGORRERYProcessedDataPoint::appendIdentityCells(row, column);
  putName(row, column, tg::kModelKind, model);
  putName(row, column, tg::kTargetKind, target);
}

void TGLCProcessedDataPoint::appendIdentityCells(oxArray* row, std::size_t& column) const {
  TGCWGENProcessedDataPoint::appendIdentityCells(row, column);
  putName(row, column, tg::kMachineKind, machine);
  putName(row, column, tg::kChartKind, chart);
}

void TGORRERYProcessedDataPoint::appendDetailedMemCells(oxArray* row, std::size_t& column) const {
  const tg::DetailedProcessedMemStats zero;
  const tg::DetailedProcessedMemStats& m = detailedMem ? *detailedMem : zero;
  for (const double v : {m.freeMem, m.resMem, m.commitMem, m.dllsMem, m.nonprocessMem, m.freeMemDelta,
                         m.resMemDelta, m.commitMemDelta, m.dllsMemDelta, m.nonprocessMemDelta})
    put(row, column, oxCreateDoubleScalar(v));
}

void TGORRERYProcessedDataPoint::appendBasicMemCells(oxArray* row, std::size_t& column) const {
  const tg::BasicProcessedMemStats zero;
  const tg::BasicProcessedMemStats& m = basicMem ? *basicMem : zero;
  for (const double v : {m.procMemUsage, m.procMemUsagePeak, m.procVMSize, m.procMemUsageDelta,
                         m.procMemUsagePeakDelta, m.procVMSizeDelta})
    put(row, column, oxCreateDoubleScalar(v));
}

void TGORRERYProcessedDataPoint::appendRowInfoCells(oxArray* row, std::size_t& column) const {
  put(row, column, oxCreateLogicalScalar(flags.errorRow != 0));
  put(row, column, oxCreateLogicalScalar(flags.gapRow != 0));
  put(row, column, oxCreateString(HTMLPhaseNumString));
  put(row, column, int32Scalar(HTMLRowNumber));
  put(row, column, int32Scalar(numChildren));
  put(row, column, int32Scalar(stackDepth));
  put(row, column, childrenCells(childrenIDs));
}

// ---- struct -----------------------------------------------------------------

const std::vector<std::string>& TGORRERYProcessedDataPoint::structFieldNames() const {
  static const std::vector<std::string> names = fieldList({});
  return names;
}

const std::vector<std::string>& TGCWGENProcessedDataPoint::structFieldNames() const {
  static const std::vector<std::string> names = fieldList({"modelStr", "targetStr"});
  return names;
}

const std::vector<std::string>& TGLCProcessedDataPoint::structFieldNames() const {
  static const std::vector<std::string> names = fieldList({"modelStr", "targetStr", "machineStr", "chartStr"});
  return names;
}

oxArrayPtr TGORRERYProcessedDataPoint::toStruct() const {
  oxArrayPtr s = oxCreateStructArray(1, 1, structFieldNames());
  setField(s.get(), 0, oxCreateUInt32Scalar(static_cast<std::uint32_t>(pointType)));
  fillIdentityFields(s.get());
  int field = firstMemField() - 5;
  setField(s.get(), field++, oxCreateString(tgGetNameStr(tg::kStatisticsTypeKind, statisticsType)));
  for (const double t : {wcStartTime, wcElapsedTime, cpuStartTime, cpuElapsedTime})
    setField(s.get(), field++, oxCreateDoubleScalar(t));
  fillMemFields(s.get(), 0);
  field = firstMemField() + 16;
  setField(s.get(), field++, oxCreateLogicalScalar(flags.errorRow != 0));
  setField(s.get(), field++, oxCreateLogicalScalar(flags.gapRow != 0));
  setField(s.get(), field++, oxCreateString(HTMLPhaseNumString));
  for (const std::int32_t v : {HTMLRowNumber, numChildren, stackDepth})
    setField(s.get(), field++, oxCreateUInt32Scalar(static_cast<std::uint32_t>(v)));
  setField(s.get(), field, childrenCells(childrenIDs));
  return s;
}

void TGORRERYProcessedDataPoint::fillIdentityFields(oxArray* s) const {
  setField(s, 1, oxCreateString(tgGetNameStr(tg::kGroupingKind, grouping)));
  setField(s, 2, oxCreateString(tgGetNameStr(tg::kPhaseKind, phaseID)));
}

void TGCWGENProcessedDataPoint::fillIdentityFields(oxArray* s) const {
  TGORRERYProcessedDataPoint::fillIdentityFields(s);
  setField(s, 3, oxCreateString(tgGetNameStr(tg::kModelKind, model)));
  setField(s, 4, oxCreateString(tgGetNameStr(tg::kTargetKind, target)));
}

void TGLCProcessedDataPoint::fillIdentityFields(oxArray* s) const {
  TGCWGENProcessedDataPoint::fillIdentityFields(s);
  setField(s, 5, oxCreateString(tgGetNameStr(tg::kMachineKind, machine)));
  setField(s, 6, oxCreateString(tgGetNameStr(tg::kChartKind, chart)));
}

void TGORRERYProcessedDataPoint::fillMemFields(oxArray* s, std::size_t index) const {
  const tg::DetailedProcessedMemStats zeroDetailed;
  const tg::BasicProcessedMemStats zeroBasic;
  const tg::DetailedProcessedMemStats& d = detailedMem ? *detailedMem : zeroDetailed;
  const tg::BasicProcessedMemStats& b = basicMem ? *basicMem : zeroBasic;
  int field = firstMemField();
  for (const double v : {d.freeMem, d.resMem, d.commitMem, d.dllsMem, d.nonprocessMem, d.freeMemDelta,
                         d.resMemDelta, d.commitMemDelta, d.dllsMemDelta, d.nonprocessMemDelta, b.procMemUsage,
                         b.procMemUsagePeak, b.procVMSize, b.procMemUsageDelta, b.procMemUsagePeakDelta,
                         b.procVMSizeDelta}) {
    const oxArrayPtr value = oxCreateDoubleScalar(v);
    oxSetFieldByNumber(s, index, field++, oxDuplicateArray(value.get()));
  }
}
