// SPDX-License-Identifier: BSD-3-Clause
// Memory records of a phase execution: the raw sample at the phase's end in
// mebibytes, with the change against the sample at its start.
#pragma once

#include "tempogauge/collect/mem_stats.h"

namespace tg {

class BasicProcessedMemStats : public BasicMemStats {
 public:
  BasicProcessedMemStats() = default;
  // Scales a raw sample (bytes) to mebibytes; null gives all zeros.
  explicit BasicProcessedMemStats(const BasicMemStats* sample);
  ~BasicProcessedMemStats() override;

  // Deltas against the raw start sample (bytes); null leaves them 0.
  void computeDeltas(const BasicMemStats* start);

  double procMemUsageDelta = 0.0;
  double procMemUsagePeakDelta = 0.0;
  // Peak at the end over usage at the start. Kept for the record: no report
  // or host field reads it.
  double procMemPeakOverStart = 0.0;
  double procVMSizeDelta = 0.0;
};

class DetailedProcessedMemStats : public DetailedMemStats {
 public:
  DetailedProcessedMemStats() = default;
  explicit DetailedProcessedMemStats(const DetailedMemStats* sample);
  ~DetailedProcessedMemStats() override;

  void computeDeltas(const DetailedMemStats* start);

  double commitMemDelta = 0.0;
  double resMemDelta = 0.0;
  double freeMemDelta = 0.0;
  double dllsMemDelta = 0.0;
  double nonprocessMemDelta = 0.0;
};

}  // namespace tg
