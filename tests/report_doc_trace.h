// SPDX-License-Identifier: BSD-3-Clause
// Builds raw runs for the report tests, the browser tests' report writer and
// the report benchmark: host points of one grouping with a clock that moves
// forward and memory that grows with every point.
#pragma once

#include <functional>
#include <memory>
#include <string_view>
#include <utility>

#include "collect/constants.h"
#include "collect/raw_point.h"
#include "collect/tempo_gauge.h"

namespace tgreport {

class RunBuilder {
 public:
  explicit RunBuilder(bool detailed, std::string_view grouping = "Workload")
      : detailed_(detailed), groupingId_(tgGetId(tg::kGroupingKind, grouping)) {}

  // A phase without children that takes the given time.
  RunBuilder& phase(std::string_view name, double seconds) {
    open(name);
    return close(name, seconds);
  }
  RunBuilder& open(std::string_view name) {
    push(name, true);
    return *this;
  }
  RunBuilder& close(std::string_view name, double seconds) {
    now_ += seconds;
    push(name, false);
    return *this;
  }
  RawPointVector take() { return std::move(points_); }

  // Replaces the growing memory of every later point by what `sample` sets.
  std::function<void(TGORRERYDataPoint&)> sample;

 private:
  void push(std::string_view name, bool start) {
    auto point = std::make_shared<TGORRERYDataPoint>();
    point->groupingId = groupingId_;
    point->phaseId = tgGetId(tg::kPhaseKind, name);
    point->flags.isStart = start ? 1 : 0;
    point->wallTime = now_;
    point->cpuTime = now_ * 0.9;
    memory_ += 4096.0 * 1024.0;
    if (sample) {
      sample(*point);
      points_.push_back(std::move(point));
      return;
    }
    point->basicMemStats = std::make_shared<tg::BasicMemStats>(memory_, memory_ * 1.5, memory_ * 3.0);
    if (detailed_) {
      point->detailedMemStats =
          std::make_shared<tg::DetailedMemStats>(1e12 - memory_, memory_ * 2.0, memory_, memory_ / 4.0, 1e9);
    }
    points_.push_back(std::move(point));
  }

  bool detailed_;
  std::int32_t groupingId_;
  double now_ = 1000.0;
  double memory_ = 64.0 * 1024.0 * 1024.0;
  RawPointVector points_;
};

}  // namespace tgreport
