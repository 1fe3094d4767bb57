// SPDX-License-Identifier: BSD-3-Clause
// Raw points as host cell arrays: the row layout of the three classes, the
// whole set, and the tolerant reading of rows that are not as written.
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <tuple>
#include <vector>

#include "collect_store_reset.h"
#include "store/raw_points_array.h"

namespace {

class CellRows : public CollectStoreTest {
 protected:
  void SetUp() override {
    CollectStoreTest::SetUp();
    savedRoot_ = hostRootPath();
  }
  void TearDown() override {
    hostRootPathSet(savedRoot_);
    CollectStoreTest::TearDown();
  }

  static std::int32_t id(std::uint32_t kind, const std::string& name) { return tgGetId(kind, name); }
  static std::string name(std::uint32_t kind, std::int32_t i) { return tgGetNameStr(kind, i); }

  static std::shared_ptr<TGLoomchartDataPoint> fullLoomchartPoint() {
    auto p = std::make_shared<TGLoomchartDataPoint>();
    p->phaseId = id(tg::kPhaseKind, "lc phase");
    p->groupingId = id(tg::kGroupingKind, "Rows.G");
    p->modelId = id(tg::kModelKind, "model");
    p->targetId = id(tg::kTargetKind, "target");
    p->machineId = id(tg::kMachineKind, "machine");
    p->chartId = id(tg::kChartKind, "chart");
    p->statisticsTypeId = id(tg::kStatisticsTypeKind, "stats");
    p->flags.isStart = 1;
    p->wallTime = 12.5;
    p->cpuTime = 3.25;
    *p->detailedMemStats = tg::DetailedMemStats(1, 2, 3, 4, 5);  // free, reserved, committed, dlls, other
    *p->basicMemStats = tg::BasicMemStats(6, 7, 8);
    return p;
  }

  // A Cogwheel point of the same grouping, model, target and type.
  static std::shared_ptr<TGCWGENDataPoint> cogwheelLike(const TGLoomchartDataPoint& lc, const std::string& phase) {
    auto cw = std::make_shared<TGCWGENDataPoint>();
    cw->phaseId = id(tg::kPhaseKind, phase);
    cw->groupingId = lc.groupingId;
    cw->modelId = lc.modelId;
    cw->targetId = lc.targetId;
    cw->statisticsTypeId = lc.statisticsTypeId;
    return cw;
  }

  static std::string text(const oxArray* row, std::size_t column) {
    const oxArray* cell = oxGetCell(row, column);
    EXPECT_TRUE(oxIsCharVector(cell)) << "column " << column;
    return oxArrayToStdString(cell);
  }
  static double number(const oxArray* row, std::size_t column) {
    const oxArray* cell = oxGetCell(row, column);
    EXPECT_TRUE(cell && cell->classID() == oxDOUBLE_CLASS && cell->numel() == 1) << "column " << column;
    return oxGetScalar(cell);
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

  static RawPointVector read(const oxArray* all) {
    RawPointVector points;
    cellArrayToRawPoints(all, points);
    return points;
  }

  template <class... Rows>
  static oxArrayPtr wrap(Rows... rows) {
    auto all = oxCreateCellMatrix(1, sizeof...(rows));
    std::size_t i = 0;
    (all->setCell(i++, std::move(rows)), ...);
    return all;
  }

  std::string savedRoot_;
};

TEST_F(CellRows, LoomchartRowHasTwentyCellsInTheFixedOrder) {
  const auto row = fullLoomchartPoint()->toCellArray();
  ASSERT_EQ(row->classID(), oxCELL_CLASS);
  ASSERT_EQ(row->rows(), 1u);
  ASSERT_EQ(row->cols(), 20u);
  EXPECT_EQ(text(row.get(), 0), "1");
  ASSERT_EQ(oxGetCell(row.get(), 1)->classID(), oxINT32_CLASS);
  EXPECT_EQ(oxGetCell(row.get(), 1)->int32s()[0], 2);
  const std::vector<std::string> names{"lc phase", "Rows.G", "model", "target", "machine", "chart", "stats"};
  for (std::size_t k = 0; k < names.size(); ++k) EXPECT_EQ(text(row.get(), 2 + k), names[k]);
  EXPECT_TRUE(oxIsLogicalScalarTrue(oxGetCell(row.get(), 9)));
  // Wall, CPU, then free, reserved, committed, dlls, non-process, then usage, peak, VM size.
  const std::vector<double> figures{12.5, 3.25, 1, 2, 3, 4, 5, 6, 7, 8};
  for (std::size_t k = 0; k < figures.size(); ++k) EXPECT_EQ(number(row.get(), 10 + k), figures[k]);
}

TEST_F(CellRows, HostAndCogwheelRowsLeaveOutTheirMissingNames) {
  const auto full = fullLoomchartPoint();
  auto cw = cogwheelLike(*full, "lc phase");
  cw->wallTime = 9;
  const auto cwRow = cw->toCellArray();
  ASSERT_EQ(cwRow->numel(), 18u);
  EXPECT_EQ(oxGetCell(cwRow.get(), 1)->int32s()[0], 1);
  EXPECT_EQ(text(cwRow.get(), 4), "model");
  EXPECT_EQ(text(cwRow.get(), 5), "target");
  EXPECT_EQ(text(cwRow.get(), 6), "stats");
  EXPECT_TRUE(oxIsLogicalScalar(oxGetCell(cwRow.get(), 7)));
  EXPECT_FALSE(oxIsLogicalScalarTrue(oxGetCell(cwRow.get(), 7)));
  EXPECT_EQ(number(cwRow.get(), 8), 9.0);

  auto host = std::make_shared<TGORRERYDataPoint>();
  host->phaseId = full->phaseId;
  host->detailedMemStats.reset();  // no detailed record: five zeros
  host->basicMemStats.reset();     // no basic record: three zeros
  const auto hostRow = host->toCellArray();
  ASSERT_EQ(hostRow->numel(), 16u);
  EXPECT_EQ(oxGetCell(hostRow.get(), 1)->int32s()[0], 0);
  EXPECT_EQ(text(hostRow.get(), 3), "");  // grouping -1 writes the empty text
  EXPECT_EQ(text(hostRow.get(), 4), "");
  for (std::size_t k = 6; k < 16; ++k) EXPECT_EQ(number(hostRow.get(), k), 0.0);
}

TEST_F(CellRows, PhaseNamesLoseTheHostRoot) {
  hostRootPathSet("/opt/host");
  auto p = std::make_shared<TGORRERYDataPoint>();
  p->phaseId = id(tg::kPhaseKind, "/opt/host/toolbox/run.m");
  EXPECT_EQ(text(p->toCellArray().get(), 2), "toolbox/run.m");
  // The live name keeps it.
  EXPECT_EQ(name(tg::kPhaseKind, p->phaseId), "/opt/host/toolbox/run.m");
}

TEST_F(CellRows, WholeSetRoundTripsInOrderWithTheClassOfEachRow) {
  RawPointVector points;
  const auto lc = fullLoomchartPoint();
  auto cw = cogwheelLike(*lc, "cw phase");
  cw->wallTime = 1.0 / 3.0;
  auto host = std::make_shared<TGORRERYDataPoint>();
  host->phaseId = id(tg::kPhaseKind, "host phase");
  host->groupingId = lc->groupingId;
  host->statisticsTypeId = lc->statisticsTypeId;
  host->flags.isGap = 1;
  host->cpuTime = 1e-9;
  points = {host, cw, lc};

  const auto all = rawPointsToCellArray(points);
  ASSERT_EQ(all->rows(), 1u);
  ASSERT_EQ(all->cols(), 3u);
  RawPointVector back{std::make_shared<TGORRERYDataPoint>()};  // reading appends
  cellArrayToRawPoints(all.get(), back);
  ASSERT_EQ(back.size(), 4u);
  ASSERT_TRUE(std::dynamic_pointer_cast<TGLoomchartDataPoint>(back[3]));
  ASSERT_TRUE(std::dynamic_pointer_cast<TGCWGENDataPoint>(back[2]));
  ASSERT_FALSE(std::dynamic_pointer_cast<TGCWGENDataPoint>(back[1]));
  for (std::size_t i = 0; i < 3; ++i) {
    const auto& a = *points[i];
    const auto& b = *back[i + 1];
    EXPECT_EQ(std::tie(b.pointType, b.phaseId, b.groupingId, b.statisticsTypeId, b.wallTime, b.cpuTime),
              std::tie(a.pointType, a.phaseId, a.groupingId, a.statisticsTypeId, a.wallTime, a.cpuTime));
    EXPECT_EQ(b.isStart(), a.isStart());
    EXPECT_FALSE(b.isGap());  // gaps have no cell
  }
  const auto lcBack = std::dynamic_pointer_cast<TGLoomchartDataPoint>(back[3]);
  EXPECT_EQ(lcBack->machineId, lc->machineId);
  EXPECT_EQ(lcBack->chartId, lc->chartId);
  EXPECT_EQ(lcBack->targetId, lc->targetId);
  ASSERT_TRUE(lcBack->detailedMemStats);
  EXPECT_EQ(lcBack->detailedMemStats->freeMem, 1.0);
  EXPECT_EQ(lcBack->detailedMemStats->nonprocessMem, 5.0);
  EXPECT_EQ(lcBack->basicMemStats->procVMSize, 8.0);
  EXPECT_EQ(rawPointsToCellArray({})->cols(), 0u);
}

// Default points: grouping and statistics type -1, all figures zero.
TEST_F(CellRows, EmptyNamesAreInternedAndZeroDetailGivesNoRecordOnHostPointsOnly) {
  auto host = std::make_shared<TGORRERYDataPoint>();
  auto cw = std::make_shared<TGCWGENDataPoint>();
  const auto back = read(rawPointsToCellArray({host, cw}).get());
  ASSERT_EQ(back.size(), 2u);
  EXPECT_GE(back[0]->groupingId, 0);
  EXPECT_EQ(name(tg::kGroupingKind, back[0]->groupingId), "");
  EXPECT_GE(back[0]->statisticsTypeId, 0);
  EXPECT_EQ(back[0]->statisticsTypeId, store().findId(tg::kStatisticsTypeKind, ""));
  EXPECT_FALSE(back[0]->detailedMemStats);
  ASSERT_TRUE(back[0]->basicMemStats);  // always installed
  ASSERT_TRUE(back[1]->detailedMemStats);
  EXPECT_EQ(back[1]->detailedMemStats->commitMem, 0.0);
}

TEST_F(CellRows, WrongVersionTagKeepsDefaultsAndReadsMemoryFromColumnOne) {
  auto row = hostRow("2", 7, "tagged phase", true, {11, 12, 13});
  // Columns 1..5 are int32 7, two long texts, the empty text and a true
  // logical: the scalars among them are 7 and 1.
  const auto back = read(wrap(std::move(row)).get());
  ASSERT_EQ(back.size(), 1u);
  const auto& p = *back[0];
  EXPECT_EQ(p.pointType, 0);
  EXPECT_EQ(p.phaseId, 0);
  EXPECT_EQ(p.groupingId, 0);
  EXPECT_FALSE(p.isStart());
  EXPECT_EQ(p.wallTime, 0.0);
  ASSERT_TRUE(p.detailedMemStats);
  EXPECT_EQ(p.detailedMemStats->freeMem, 7.0);
  EXPECT_EQ(p.detailedMemStats->resMem, 0.0);
  EXPECT_EQ(p.detailedMemStats->nonprocessMem, 1.0);
  ASSERT_TRUE(p.basicMemStats);
  EXPECT_EQ(p.basicMemStats->procMemUsage, 11.0);  // the wall time's cell
  EXPECT_EQ(p.basicMemStats->procVMSize, 13.0);
}

TEST_F(CellRows, UntaggedRowsAndUnknownLengthsBecomeHostPoints) {
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
  const auto back = read(wrap(std::move(untagged), std::move(shortRow)).get());
  ASSERT_EQ(back.size(), 2u);
  EXPECT_FALSE(std::dynamic_pointer_cast<TGCWGENDataPoint>(back[0]));
  EXPECT_EQ(back[0]->pointType, 1);
  EXPECT_EQ(name(tg::kPhaseKind, back[0]->phaseId), "untagged");
  EXPECT_EQ(name(tg::kStatisticsTypeKind, back[0]->statisticsTypeId), "model");
  EXPECT_TRUE(back[0]->isStart());
  EXPECT_EQ(back[0]->wallTime, 5.5);
  EXPECT_FALSE(std::dynamic_pointer_cast<TGCWGENDataPoint>(back[1]));
  EXPECT_EQ(back[1]->pointType, 2);  // what the cell says, whatever the class
  EXPECT_EQ(name(tg::kPhaseKind, back[1]->phaseId), "short");
  EXPECT_EQ(back[1]->wallTime, 0.0);
}

TEST_F(CellRows, CellsOfTheWrongFormGiveDefaults) {
  auto row = hostRow("1", 0, "odd cells", true, {4, 2});
  row->setCell(1, oxCreateDoubleScalar(2));   // type not an integer: 0
  row->setCell(5, oxCreateDoubleScalar(1));   // start not logical: false
  row->setCell(6, oxCreateString("4"));       // wall time a text of one char: its code
  row->setCell(7, oxCreateDoubleMatrix(1, 2));  // CPU time not a scalar: 0
  row->setCell(8, nullptr);                    // a null cell: 0
  auto unsignedType = hostRow("1", 0, "unsigned type", false, {});
  unsignedType->setCell(1, oxCreateUInt32Scalar(2));
  const auto back = read(wrap(std::move(row), std::move(unsignedType)).get());
  ASSERT_EQ(back.size(), 2u);
  EXPECT_EQ(back[0]->pointType, 0);
  EXPECT_FALSE(back[0]->isStart());
  EXPECT_EQ(back[0]->wallTime, static_cast<double>('4'));
  EXPECT_EQ(back[0]->cpuTime, 0.0);
  EXPECT_EQ(back[1]->pointType, 2);
}

TEST_F(CellRows, NullElementEndsTheReadingAndNullOrEmptyArraysReadNothing) {
  const auto row = [](int k) { return hostRow("1", 0, "p" + std::to_string(k), true, {double(k)}); };
  const auto back = read(wrap(row(0), row(1), oxArrayPtr(), row(3)).get());
  ASSERT_EQ(back.size(), 2u);
  EXPECT_EQ(back[1]->wallTime, 1.0);
  RawPointVector points{std::make_shared<TGORRERYDataPoint>()};
  cellArrayToRawPoints(nullptr, points);
  cellArrayToRawPoints(oxCreateCellMatrix(1, 0).get(), points);
  cellArrayToRawPoints(oxCreateCellMatrix(0, 0).get(), points);
  EXPECT_EQ(points.size(), 1u);
  // An array that is not a cell array has no rows to read, however many
  // elements it has.
  cellArrayToRawPoints(oxCreateDoubleScalar(3).get(), points);
  cellArrayToRawPoints(oxCreateStructArray(1u << 31, 1u << 31, {}).get(), points);
  EXPECT_EQ(points.size(), 1u);
}

}  // namespace
