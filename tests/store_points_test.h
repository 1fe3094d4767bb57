// SPDX-License-Identifier: BSD-3-Clause
// A fixture for the tests of stored points as rows: the current root set to
// "/opt/host" for the test (the host answers it too), and one point of each class, the Loomchart one
// with every field set, the host one without memory records, the Cogwheel
// one a gap.
#pragma once

#include <memory>
#include <string>

#include "root_host.h"

class StorePointsTest : public RootHostTest {
 protected:
  void SetUp() override {
    RootHostTest::SetUp();
    host->root = "/opt/host";
    hostRootPathSet(host->root);
  }

  static std::int32_t id(std::uint32_t kind, const std::string& name) { return tgGetId(kind, name); }

  static RawPointVector threeClasses() {
    auto lc = std::make_shared<TGLoomchartDataPoint>();
    lc->phaseId = id(tg::kPhaseKind, "/opt/host/toolbox/lc.m");
    lc->groupingId = id(tg::kGroupingKind, "Rows.G");
    lc->modelId = id(tg::kModelKind, "model");
    lc->targetId = id(tg::kTargetKind, "target");
    lc->machineId = id(tg::kMachineKind, "machine");
    lc->chartId = id(tg::kChartKind, "chart");
    lc->statisticsTypeId = id(tg::kStatisticsTypeKind, "stats");
    lc->flags.isStart = 1;
    lc->wallTime = 12.5;
    lc->cpuTime = 3.25;
    *lc->detailedMemStats = tg::DetailedMemStats(1, 2, 3, 4, 5);  // free, reserved, committed, dlls, other
    *lc->basicMemStats = tg::BasicMemStats(6, 7, 8);
    auto cw = std::make_shared<TGCWGENDataPoint>();
    cw->phaseId = id(tg::kPhaseKind, "cw phase");
    cw->groupingId = lc->groupingId;
    cw->modelId = lc->modelId;
    cw->targetId = lc->targetId;
    cw->statisticsTypeId = lc->statisticsTypeId;
    cw->flags.isGap = 1;
    cw->wallTime = 1.0 / 3.0;
    auto orrery = std::make_shared<TGORRERYDataPoint>();
    orrery->phaseId = id(tg::kPhaseKind, "host phase");
    orrery->detailedMemStats.reset();
    orrery->basicMemStats.reset();
    orrery->cpuTime = 1e-9;
    return {orrery, cw, lc};
  }
};
