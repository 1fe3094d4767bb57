// SPDX-License-Identifier: BSD-3-Clause
// Raw points as host cell arrays: the row layout of the three classes, the
// whole set, and the tolerant reading of rows that are not as written. Rows
// and points read back are compared with tests/golden/store_cell_rows.txt.
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "golden_text.h"
#include "host_array_text.h"
#include "store/raw_points_array.h"
#include "store_points_test.h"

namespace {

using tgtest::arrayText;

class CellRows : public StorePointsTest {
 protected:
  // A point's class, ids, records present and row, one line each (grouping
  // ids are process-wide, so only whether there is one).
  static std::string pointsText(const RawPointVector& points) {
    std::string text;
    for (const auto& p : points) {
      text += std::dynamic_pointer_cast<TGLoomchartDataPoint>(p) ? "L" : std::dynamic_pointer_cast<TGCWGENDataPoint>(p) ? "C" : "H";
      text += " phase#" + std::to_string(p->phaseId) + (p->groupingId < 0 ? " no-grouping" : "") + " stats#" +
              std::to_string(p->statisticsTypeId) + (p->detailedMemStats ? "" : " no-detailed") +
              (p->basicMemStats ? "" : " no-basic") + (p->isGap() ? " gap" : "") + " " +
              arrayText(p->toCellArray().get()) + "\n";
    }
    return text;
  }

  // A host point's row, built by hand: tag, type, phase, grouping, stats,
  // start, then ten doubles.
  static oxArrayPtr hostRow(std::string_view tag, std::int32_t type, std::string_view phase, bool start,
                            std::vector<double> figures) {
    auto row = oxCreateCellMatrix(1, 16);
    row->setCell(0, oxCreateString(tag));
    row->setCell(1, oxCreateInt32Scalar(type));
    row->setCell(2, oxCreateString(phase));
    row->setCell(3, oxCreateString("Rows.G"));
    row->setCell(4, oxCreateString(""));
    row->setCell(5, oxCreateLogicalScalar(start));
    figures.resize(10, 0.0);
    for (std::size_t k = 0; k < 10; ++k) row->setCell(6 + k, oxCreateDoubleScalar(figures[k]));
    return row;
  }

  static oxArrayPtr cells(std::vector<oxArrayPtr> parts) {
    auto all = oxCreateCellMatrix(1, parts.size());
    for (std::size_t i = 0; i < parts.size(); ++i) all->setCell(i, std::move(parts[i]));
    return all;
  }

  static RawPointVector read(const oxArray* all) {
    RawPointVector points;
    cellArrayToRawPoints(all, points);
    return points;
  }
};

// Rows of 16, 18 and 20 cells; phase names lose the host root, the live
// names keep it; reading gives each row its class back, without the gap.
TEST_F(CellRows, RowsOfTheThreeClassesAndTheirRoundTrip) {
  const RawPointVector points = threeClasses();
  const auto all = rawPointsToCellArray(points);
  tgtest::GoldenFile golden("store_cell_rows");
  golden.expect("rows of the three classes", arrayText(all.get()));
  EXPECT_EQ(tgGetNameStr(tg::kPhaseKind, points[2]->phaseId), "/opt/host/toolbox/lc.m");
  RawPointVector back{std::make_shared<TGORRERYDataPoint>()};  // reading appends
  cellArrayToRawPoints(all.get(), back);
  golden.expect("the three classes read back", pointsText(back));
  EXPECT_EQ(rawPointsToCellArray({})->cols(), 0u);
}

// Rows that are not as written read with defaults where a cell is missing or
// of the wrong form; a null row ends the reading.
TEST_F(CellRows, RowsNotAsWrittenReadTolerantly) {
  // 17 cells: a Cogwheel row without its tag, read from column 0 as a host point.
  auto untagged = oxCreateCellMatrix(1, 17);
  untagged->setCell(0, oxCreateInt32Scalar(1));
  untagged->setCell(1, oxCreateString("untagged"));
  untagged->setCell(2, oxCreateString("Rows.G"));
  untagged->setCell(3, oxCreateString("model"));  // read as the statistics type
  untagged->setCell(4, oxCreateLogicalScalar(true));
  untagged->setCell(5, oxCreateDoubleScalar(5.5));
  // 3 cells: whatever is there, defaults for the rest.
  auto shortRow = oxCreateCellMatrix(1, 3);
  shortRow->setCell(0, oxCreateString("1"));
  shortRow->setCell(1, oxCreateInt32Scalar(2));
  shortRow->setCell(2, oxCreateString("short"));
  auto odd = hostRow("1", 0, "odd cells", true, {4, 2});
  odd->setCell(1, oxCreateDoubleScalar(2));     // type not an integer: 0
  odd->setCell(5, oxCreateDoubleScalar(1));     // start not logical: false
  odd->setCell(6, oxCreateString("4"));         // wall time a text of one char: its code
  odd->setCell(7, oxCreateDoubleMatrix(1, 2));  // CPU time not a scalar: 0
  odd->setCell(8, nullptr);                     // a null cell: 0
  auto unsignedType = hostRow("1", 0, "unsigned type", false, {});
  unsignedType->setCell(1, oxCreateUInt32Scalar(2));
  std::vector<oxArrayPtr> rows;
  // A wrong version tag keeps the defaults and reads memory from column 1.
  rows.push_back(hostRow("2", 7, "tagged phase", true, {11, 12, 13}));
  rows.push_back(std::move(untagged));
  rows.push_back(std::move(shortRow));
  rows.push_back(std::move(odd));
  rows.push_back(std::move(unsignedType));
  rows.push_back(nullptr);
  rows.push_back(hostRow("1", 0, "after the null row", true, {}));
  tgtest::GoldenFile golden("store_cell_rows");
  golden.expect("rows not as written", pointsText(read(cells(std::move(rows)).get())));
  // Default points: grouping and statistics type -1 come back as the interned
  // empty name; zero detail gives no record on host points only.
  const RawPointVector defaults{std::make_shared<TGORRERYDataPoint>(), std::make_shared<TGCWGENDataPoint>()};
  golden.expect("default points read back", pointsText(read(rawPointsToCellArray(defaults).get())));

  RawPointVector points{std::make_shared<TGORRERYDataPoint>()};
  // Null, empty and non-cell arrays have no rows to read, however many elements they claim.
  for (const oxArrayPtr& none : {oxArrayPtr(), oxCreateCellMatrix(1, 0), oxCreateCellMatrix(0, 0),
                                 oxCreateDoubleScalar(3), oxCreateStructArray(1u << 31, 1u << 31, {})})
    cellArrayToRawPoints(none.get(), points);
  EXPECT_EQ(points.size(), 1u);
}

}  // namespace
