// SPDX-License-Identifier: BSD-3-Clause
#include "analysis/deviation_rows.h"

#include <cmath>

#include "collect/constants.h"

namespace {

using Values = std::array<double, 10>;

Values processedValues(const TGORRERYProcessedDataPoint* p, std::string_view metric, std::size_t& count) {
  Values v{};
  if (metric == tg::kMetricTime) {
    count = 4;
    if (!p) return v;
    const bool leaf = p->numChildren == 0;
    v = {leaf ? p->wcElapsedTime : 0.0, p->wcElapsedTime, leaf ? p->cpuElapsedTime : 0.0, p->cpuElapsedTime};
  } else if (metric == tg::kMetricBasicMemory) {
    count = 4;
    if (!p || !p->basicMem) return v;
    const auto& b = *p->basicMem;
    v = {b.procMemUsageDelta, b.procMemUsage, b.procMemUsagePeakDelta, b.procMemUsagePeak};
  } else if (metric == tg::kMetricDetailedMemory) {
    count = 10;
    if (!p) return v;
    if (const auto& d = p->detailedMem) {
      v[0] = d->freeMem, v[1] = d->resMem, v[2] = d->commitMem, v[3] = d->dllsMem, v[4] = d->nonprocessMem;
    }
    const tg::DetailedMemStats* start = p->numChildren > 0 ? p->detailedStartMem.get() : p->detailedMem.get();
    if (start) {
      v[5] = start->freeMem, v[6] = start->resMem, v[7] = start->commitMem, v[8] = start->dllsMem,
      v[9] = start->nonprocessMem;
    }
  } else {
    count = 0;
  }
  return v;
}

Values aggregateValues(const TGAggregateDataPoint* a, std::string_view metric, std::size_t& count) {
  Values v{};
  if (metric == tg::kMetricTime) {
    count = 2;
    if (a) v = {a->wcSelf, a->wcTotal};
  } else if (metric == tg::kMetricBasicMemory) {
    count = 4;
    if (a) v = {a->procMemUsageDeltaSelf, a->procMemUsageMax, a->procMemUsagePeakDeltaSelf, a->procMemUsagePeakMax};
  } else if (metric == tg::kMetricDetailedMemory) {
    count = 5;
    if (a) v = {a->freeMemMax, a->resMemMax, a->commitMemMax, a->dllsMemMax, a->nonprocessMemMax};
  } else {
    count = 0;
  }
  return v;
}

RowDeviations compare(const Values& lhs, const Values& rhs, std::size_t count, std::string_view metric) {
  RowDeviations out;
  out.count = count;
  for (std::size_t k = 0; k < count; ++k) out.pairs[k] = computeDeviation(lhs[k], rhs[k], metric);
  return out;
}

}  // namespace

RowDeviations compareProcessedRow(const ProcessedComparisonRow& row, std::string_view metric) {
  std::size_t count = 0;
  const Values lhs = processedValues(row.lhs.get(), metric, count);
  const Values rhs = processedValues(row.rhs.get(), metric, count);
  return compare(lhs, rhs, count, metric);
}

RowDeviations compareAggregateRow(const AggregateComparisonRow& row, std::string_view metric) {
  std::size_t count = 0;
  const Values lhs = aggregateValues(row.lhs, metric, count);
  const Values rhs = aggregateValues(row.rhs, metric, count);
  return compare(lhs, rhs, count, metric);
}

std::int32_t countAbsDev(const AggregateComparisonRow& row) {
  if (row.lhs && row.rhs) {
    const double difference = std::fabs(static_cast<double>(row.rhs->hitCount)) -
                              std::fabs(static_cast<double>(row.lhs->hitCount));
    return static_cast<std::int32_t>(difference);
  }
  if (row.lhs) return row.lhs->hitCount;
  if (row.rhs) return row.rhs->hitCount;
  return 0;
}
