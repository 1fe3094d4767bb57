// SPDX-License-Identifier: BSD-3-Clause
// Pairing entry points: the walks by grouping and by model, the result as the
// reports and the host see it, and the exports.
#include "analysis/pairing.h"

#include "collect/tempo_gauge.h"
#include "tempogauge/analysis.h"

std::string makeHTMLPhaseNumString(const std::vector<std::int32_t>& counters, std::int32_t depth) {
  std::string text;
  const std::size_t levels = std::min(static_cast<std::size_t>(std::max(depth, 0)), counters.size());
  for (std::size_t i = 0; i < levels; ++i) {
    if (i > 0) text += '.';
    text += std::to_string(counters[i]);
  }
  return text;
}

bool walkForGroupings(RawPointVector& raw, const std::vector<std::string>& names, TGProcessedDataStruct& result) {
  return walkRawPoints(raw, {selectByGroupings(names), nullptr, true}, result);
}

bool walkForModels(RawPointVector& raw, const std::vector<std::string>& names, TGProcessedDataStruct& result) {
  return walkRawPoints(raw, {selectByModels(names), nullptr, true}, result);
}

TGProcessedDataStruct analyzeRawPoints(RawPointVector& raw, const std::vector<std::string>& names, bool byModel) {
  TGProcessedDataStruct result;
  if (byModel)
    walkForModels(raw, names, result);
  else
    walkForGroupings(raw, names, result);
  if (result.hasErrors) {
    result.processedPoints.clear();
    return result;
  }
  // Start times were measured from the first selected start; the totals of
  // the run are based on the first point of the vector.
  if (raw.front()) {
    result.baseWCTime = raw.front()->wallTime;
    result.baseCPUTime = raw.front()->cpuTime;
  }
  return result;
}

TGProcessedDataStruct processedDataFor(TempoGauge* tracer, RawPointVector* raw,
                                       const std::vector<std::string>& names, bool byModel) {
  if (raw) return analyzeRawPoints(*raw, names, byModel);
  const std::unique_ptr<RawPointVector> copy = tracer ? tracer->copyRawPoints() : nullptr;
  if (!copy) return {};
  return analyzeRawPoints(*copy, names, byModel);
}

TGProcessedDataStruct tgGetProcessedDataForGroupings(RawPointVector* raw, const std::vector<std::string>& names) {
  return processedDataFor(TempoGauge::instance(), raw, names, false);
}

TGProcessedDataStruct tgGetProcessedDataForModels(RawPointVector* raw, const std::vector<std::string>& names) {
  return processedDataFor(TempoGauge::instance(), raw, names, true);
}
