// SPDX-License-Identifier: BSD-3-Clause
#include "report/report_scripts.h"

#include <array>
#include <initializer_list>

#include "report/document_fragments.h"
#include "report/report_assets.h"
#include "collect/text_escape.h"
#include "report/variant_text.h"

void writeSortScript(std::string& out) {
  out += kScriptOpen;
  appendVariantText(out, tg::assets::sort_script_js, ReportVariant{});
  out += kScriptClose;
}

void writeCommonScript(std::string& out, std::string_view metric, bool isComparison, std::string_view lhsName,
                       std::string_view rhsName, bool aggregateOnly) {
  // The labels are shown as markup by the tables, so they are escaped for
  // HTML first and then for the script string they are written into.
  const std::string lhs = escapeScriptString(escapeHtml(lhsName));
  const std::string rhs = escapeScriptString(escapeHtml(rhsName));
  const std::array<TextSubstitution, 2> labels{{{"@LHS_NAME@", lhs}, {"@RHS_NAME@", rhs}}};
  ReportVariant variant;
  variant.metric = metric;
  variant.isComparison = isComparison;
  variant.aggregateOnly = aggregateOnly;
  out += kScriptOpen;
  appendVariantText(out, tg::assets::common_script_js, variant, labels);
  if (aggregateOnly) return;
  // The check boxes and the forms of the detail and call tree tables.
  appendVariantText(out, tg::assets::checked_rows_js, variant);
  appendVariantText(out, tg::assets::filter_form_js, variant);
}

void writeTabScript(std::string& out, std::string_view metric, bool hasDetailedMemStats, bool isComparison,
                    bool aggregateOnly) {
  ReportVariant variant;
  variant.metric = metric;
  variant.isComparison = isComparison;
  variant.aggregateOnly = aggregateOnly;
  variant.hasDetailedMemStats = hasDetailedMemStats;
  out += kScriptOpen;
  appendVariantText(out, tg::assets::tab_script_js, variant);
  out += kScriptClose;
}

void writeAggregateScript(std::string& out, std::string_view metric, bool isComparison, bool aggregateOnly) {
  ReportVariant variant;
  variant.metric = metric;
  variant.isComparison = isComparison;
  variant.aggregateOnly = aggregateOnly;
  appendVariantText(out, tg::assets::aggregate_script_js, variant);
  if (aggregateOnly) out += kScriptClose;
}

namespace {

void writeChartScript(std::string& out, bool isComparison, bool hasDetailedMemStats,
                      std::initializer_list<std::string_view> chartParts) {
  out += kScriptOpen;
  if (!hasDetailedMemStats) {
    out += "function canvasResizeAction() {\n}\n";
  } else {
    ReportVariant variant;
    variant.metric = tg::kMetricDetailedMemory;
    variant.isComparison = isComparison;
    variant.hasDetailedMemStats = true;
    appendVariantText(out, tg::assets::chart_common_js, variant);
    for (const std::string_view part : chartParts) appendVariantText(out, part, variant);
  }
  out += kScriptClose;
}

}  // namespace

void writeMemChartScript(std::string& out, bool hasDetailedMemStats) {
  writeChartScript(out, false, hasDetailedMemStats, {tg::assets::mem_chart_js});
}

void writeDiffChartScript(std::string& out, bool hasDetailedMemStats) {
  writeChartScript(out, true, hasDetailedMemStats,
                   {tg::assets::diff_chart_js, tg::assets::diff_chart_panels_js, tg::assets::diff_chart_popups_js});
}

void writeDetailScript(std::string& out, std::string_view metric, bool isComparison) {
  ReportVariant variant;
  variant.metric = metric;
  variant.isComparison = isComparison;
  appendVariantText(out, tg::assets::detail_table_js, variant);
  out += kScriptClose;
}

void writeCallTreeScript(std::string& out, std::string_view metric) {
  ReportVariant variant;
  variant.metric = metric;
  out += kScriptOpen;
  appendVariantText(out, tg::assets::call_tree_table_js, variant);
  out += kScriptClose;
}
