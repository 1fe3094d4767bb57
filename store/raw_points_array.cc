// SPDX-License-Identifier: BSD-3-Clause
#include "store/raw_points_array.h"

#include <memory>

oxArrayPtr rawPointsToCellArray(const RawPointVector& points) {
  auto all = oxCreateCellMatrix(1, points.size());
  cellCursor cursor;
  for (const auto& point : points) {
    const std::size_t at = oxCalcSingleSubscript(all.get(), {cursor.row, cursor.column});
    ++cursor.column;
    // The set takes each row itself (a duplicate would be the same array). A
    // missing point still takes its place, as the row of a default point.
    oxSetCell(all.get(), at, point ? point->toCellArray() : TGORRERYDataPoint().toCellArray());
  }
  return all;
}

void cellArrayToRawPoints(const oxArray* array, RawPointVector& points) {
  if (!array) return;
  const std::size_t count = oxGetNumberOfElements(array);
  if (count < 1) return;
  cellCursor cursor;
  for (std::size_t round = 0; round < count; ++round) {
    const oxArray* row = oxGetCell(array, oxCalcSingleSubscript(array, {cursor.row, cursor.column}));
    // A null element does not move the cursor, so every later round meets it
    // again and reads nothing: the reading ends here.
    if (!row) break;
    RawPointPtr point;
    switch (oxGetNumberOfElements(row)) {
      case 18: point = std::make_shared<TGCWGENDataPoint>(row); break;
      case 20: point = std::make_shared<TGLoomchartDataPoint>(row); break;
      default: point = std::make_shared<TGORRERYDataPoint>(row); break;
    }
    ++cursor.column;
    points.push_back(std::move(point));
  }
}
