// SPDX-License-Identifier: BSD-3-Clause
#include "report/chart_markup.h"

#include "report/document_fragments.h"
#include "report/report_assets.h"
#include "report/variant_text.h"

namespace {

std::string chartMarkup(bool isComparison, bool hasDetailedMemStats) {
  ReportVariant variant;
  variant.metric = tg::kMetricDetailedMemory;
  variant.isComparison = isComparison;
  variant.hasDetailedMemStats = hasDetailedMemStats;
  std::string out(kScriptOpen);
  appendVariantText(out, tg::assets::chart_markup_js, variant);
  out += kScriptClose;
  return out;
}

}  // namespace

std::string writeMemChartMarkup(bool hasDetailedMemStats) { return chartMarkup(false, hasDetailedMemStats); }

std::string writeDiffChartMarkup(bool hasDetailedMemStats) { return chartMarkup(true, hasDetailedMemStats); }
