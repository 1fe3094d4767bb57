// SPDX-License-Identifier: BSD-3-Clause
// Raw memory records of a point, in bytes as measured.
#pragma once

namespace tg {

class BaseMemStats {
 public:
  virtual ~BaseMemStats() = 0;
};

// Process counters: working set, its peak, and page file (virtual) size.
class BasicMemStats : public BaseMemStats {
 public:
  BasicMemStats() = default;
  BasicMemStats(const BasicMemStats&) = default;
  BasicMemStats& operator=(const BasicMemStats&) = default;
  BasicMemStats(double usage, double usagePeak, double vmSize)
      : procMemUsage(usage), procMemUsagePeak(usagePeak), procVMSize(vmSize) {}
  ~BasicMemStats() override;

  double procMemUsage = 0.0;
  double procMemUsagePeak = 0.0;
  double procVMSize = 0.0;
};

// Sums of the address-space walk.
class DetailedMemStats : public BaseMemStats {
 public:
  DetailedMemStats() = default;
  DetailedMemStats(const DetailedMemStats&) = default;
  DetailedMemStats& operator=(const DetailedMemStats&) = default;
  // Values come in the order of cell rows and the diagnostic table, which is
  // not the field order.
  DetailedMemStats(double free, double reserved, double committed, double dlls, double nonprocess)
      : commitMem(committed), resMem(reserved), freeMem(free), dllsMem(dlls), nonprocessMem(nonprocess) {}
  ~DetailedMemStats() override;

  // Multiplies all five figures, in place, by 2^-20.
  virtual void scaleToMegabytes();

  double commitMem = 0.0;
  double resMem = 0.0;
  double freeMem = 0.0;
  double dllsMem = 0.0;
  double nonprocessMem = 0.0;
};

}  // namespace tg
