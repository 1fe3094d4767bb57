// SPDX-License-Identifier: BSD-3-Clause
// The pieces of a report document: variant selection of the embedded script
// and style text, escaping of user text, the page head, the tab bars, the
// scroller divs and the system information tables.
#include <gtest/gtest.h>

#include <array>
#include <string>
#include <string_view>

#include "report/page_head.h"
#include "report/report_assets.h"
#include "report/report_scripts.h"
#include "report/system_info_table.h"
#include "report/tab_bars.h"
#include "report/tab_divs.h"
#include "report/variant_text.h"
#include "golden_text.h"
#include "scratch_files.h"

namespace {

using tgtest::countOf;
using tgtest::expectHas;
using tgtest::expectInOrder;

std::string selected(std::string_view asset, const ReportVariant& variant) {
  std::string out;
  appendVariantText(out, asset, variant);
  return out;
}

ReportVariant variantOf(std::string_view metric, bool comparison, bool aggregateOnly, bool detail = false) {
  ReportVariant variant;
  variant.metric = metric;
  variant.isComparison = comparison;
  variant.aggregateOnly = aggregateOnly;
  variant.hasDetailedMemStats = detail;
  return variant;
}

TEST(VariantText, KeepsOnlyTheLinesOfItsVariant) {
  const std::string_view asset =
      "a\n"
      "//#if comparison\n"
      "b\n"
      "//#if time || basicmemory\n"
      "c\n"
      "//#else\n"
      "d\n"
      "//#endif\n"
      "//#else\n"
      "e\n"
      "//#endif\n"
      "    // a comment line is dropped\n"
      "/*#if !aggregateOnly && detailedMemStats*/\n"
      "f\n"
      "/*#endif*/\n";
  EXPECT_EQ(selected(asset, variantOf("time", true, false)), "a\nb\nc\n");
  EXPECT_EQ(selected(asset, variantOf("detailedmemory", true, false)), "a\nb\nd\n");
  EXPECT_EQ(selected(asset, variantOf("time", false, false)), "a\ne\n");
  EXPECT_EQ(selected(asset, variantOf("time", false, false, true)), "a\ne\nf\n");
  EXPECT_EQ(selected(asset, variantOf("time", false, true, true)), "a\ne\n");
}

TEST(VariantText, ReplacesPlaceholdersInKeptLines) {
  const std::array<TextSubstitution, 2> labels{{{"@L@", "left"}, {"@R@", "@L@"}}};
  std::string out;
  appendVariantText(out, "var x = \"@L@\" + \"@R@\" + \"@L@\";\n", ReportVariant{}, labels);
  // A value is never scanned again for placeholders.
  EXPECT_EQ(out, "var x = \"left\" + \"@L@\" + \"left\";\n");
}

TEST(VariantText, RejectsMalformedDirectives) {
  const ReportVariant variant;
  EXPECT_THROW(selected("//#if colour\nx\n//#endif\n", variant), VariantTextError);
  EXPECT_THROW(selected("//#if time\nx\n", variant), VariantTextError);
  EXPECT_THROW(selected("x\n//#endif\n", variant), VariantTextError);
  EXPECT_THROW(selected("//#if time\n//#else\n//#else\n//#endif\n", variant), VariantTextError);
  EXPECT_THROW(selected("//#elif time\n", variant), VariantTextError);
  // A misspelt term fails even in an alternative that is never needed.
  EXPECT_THROW(selected("//#if time || tme\n//#endif\n", variant), VariantTextError);
}

TEST(VariantText, EveryAssetSelectsInEveryVariant) {
  for (std::size_t i = 0; i < tg::assets::kAllCount; ++i) {
    const auto& [name, text] = tg::assets::kAll[i];
    for (const std::string_view metric : {"time", "basicmemory", "detailedmemory", "cycles"}) {
      for (const int bits : {0, 1, 2, 3, 4, 5, 6, 7}) {
        const auto variant = variantOf(metric, bits & 1, bits & 2, bits & 4);
        std::string out;
        EXPECT_NO_THROW(appendVariantText(out, text, variant)) << name;
        EXPECT_EQ(out.find("//#"), std::string::npos) << name;
      }
    }
  }
}

TEST(PageHead, TitleFollowsTheTitleArgument) {
  for (const auto& [title, text] : {std::pair{"GLOBAL", "Full Tracer Report"}, {"", "Tempo Gauge Report"},
                                    {"GLOBAL ", "GLOBAL "}, {"global", "global"}})
    EXPECT_EQ(pageTitleText(title), text) << title;
  expectHas(writePageHead(nullptr, 0, "<b>Mine</b>", false), {"        <title>&lt;b&gt;Mine&lt;/b&gt;</title>\n"});
}

TEST(PageHead, IndentRulesFollowTheCallTreeDepth) {
  const auto fixed = writePageHead(nullptr, 0, "t", false);
  // Besides the indent rules: the phase name rule and its detail table form.
  EXPECT_EQ(countOf(fixed, "td.phaseNameCell"), 2u + 8u);
  EXPECT_EQ(countOf(writePageHead(nullptr, 1, "t", false), "td.phaseNameCell"), 2u + 1u);
  const auto deep = writePageHead(nullptr, 40, "t", false);
  EXPECT_EQ(countOf(deep, "td.phaseNameCell"), 2u + 40u);
  // The indent rules stand between the phase name rule and the phase summary rule.
  EXPECT_LT(deep.find("td.phaseNameCell {"), deep.find("td.phaseNameCell0 {"));
  EXPECT_LT(deep.find("td.phaseNameCell39 {"), deep.find("td.phaseSummaryCell {"));
}

TEST(PageHead, ColourBandsOnlyInComparisons) {
  const auto single = writePageHead(nullptr, 3, "t", false);
  const auto comparison = writePageHead(nullptr, 3, "t", true);
  expectHas(single, {}, {"td.GT50 {", "td.LTM50 {", ".SystemInfoComparisonDiv {", ".fileLegend {"});
  expectHas(comparison, {"td.GT50 {", "td.LTM50 {", ".SystemInfoComparisonDiv {", ".fileLegend {"});
  // The comparison block stands between the system text rule and the totals rule.
  EXPECT_LT(comparison.find(".SystemInfoText {"), comparison.find(".SystemInfoTextComparison {"));
  EXPECT_LT(comparison.find("td.LTM50 {"), comparison.find(".totalsCell {"));
  // The left column of the band table comes first, then the right one.
  EXPECT_LT(comparison.find("td.BETWN_0_5 {"), comparison.find("td.BETWN_M5_0 {"));
}

TEST(TabBars, EachReportKindHasItsTabs) {
  const auto labels = [](bool comparison, std::string_view metric, bool aggregateOnly) {
    std::string out;
    for (const auto& tab : reportTabs(comparison, metric, aggregateOnly)) out += std::string(tab.label) + "|";
    return out;
  };
  EXPECT_EQ(labels(false, "time", false), "Aggregate|Call Tree|Details|System Info|");
  EXPECT_EQ(labels(false, "detailedmemory", false), "Aggregate|Call Tree|Details|MemChart|System Info|");
  EXPECT_EQ(labels(false, "detailedmemory", true), "Aggregate|System Info|");
  EXPECT_EQ(labels(true, "detailedmemory", false), "Aggregate|Details|MemChart|System Info|");
  EXPECT_EQ(labels(true, "basicmemory", true), "Aggregate|System Info|");
}

TEST(TabBars, OneBarPerTabWithItsOwnTabSelected) {
  tgtest::GoldenFile("report_doc_pieces")
      .expect("tab bars of an aggregate report", writeTabBars(false, "time", true));
  const auto header = writeHeaderTable(true, "detailedmemory", false);
  EXPECT_EQ(countOf(header, "<div id=\"header\""), 4u);
  EXPECT_EQ(countOf(header, "style=\"display:none\""), 3u);
}

TEST(TabDivs, ScrollersFollowTheReportKind) {
  tgtest::GoldenFile("report_doc_pieces")
      .expect("scrollers of an aggregate report", writeScrollDivs(false, true));
  expectHas(writeScrollDivs(true, false), {"phaseSummaryScrollTableDiv"}, {"callTreeSummaryScrollTableDiv"});
  expectInOrder(writeScrollDivs(false, false), {"'Detail'", "onscroll=\"reGenerateTable(this, 'CallTree');\""});
}

// The record escaped under its labels; a null record gives empty cells.
TEST(SystemInfoTable, ShowsTheRecordEscapedUnderItsLabels) {
  const TempoGaugingSystemInfo record{"CPU <fast> & \"wide\"", "3000", "8", "", "Linux", "", "",
                                      "line one\n<script>alert(1)</script>\n"};
  tgtest::GoldenFile golden("report_doc_pieces");
  golden.expect("system information table", writeSystemInfoTable(&record));
  golden.expect("system information table without record", writeSystemInfoTable(nullptr));
  EXPECT_EQ(writeHardwareTable(nullptr), "");
}

TEST(ReportScripts, CommonScriptCarriesTheEscapedLabelsAndItsVariant) {
  std::string single;
  writeCommonScript(single, "time", false, "none", "none", true);
  EXPECT_TRUE(single.starts_with("    <script type=\"text/javascript\">\n"));
  expectHas(single, {"var lhsLabel = \"none\" + baselinelabel.fontsize(0.8);"},
            {"'Detail'", "filterCTDataView", "</script>"});

  std::string comparison;
  writeCommonScript(comparison, "basicmemory", true, "run \"A\" </script>", "B&B", false);
  expectHas(comparison, {"var lhsLabel = \"run &quot;A&quot; &lt;/script&gt;\" + baselinelabel",
                         "var rhsLabel = \"B&amp;B\";", "function filterCTDataView(",
                         "resizeTabContent['Detail'] = false;"});
}

// A script holds only the views of its report; whether the pages work is
// for the browser tests to see.
TEST(ReportScripts, TabScriptHoldsOnlyTheViewsOfItsReport) {
  std::string aggregateOnly;
  writeTabScript(aggregateOnly, "time", false, false, true);
  expectHas(aggregateOnly, {"case 'aggregateSummary':", "case 'systemInfo':"},
            {"case 'phaseSummary':", "case 'callTreeSummary':", "case 'memCanvas':", "callTreeHeader",
             "phaseSumHeader", "renderMemChart", "dialogMove"});
  std::string detail;
  writeAggregateScript(detail, "time", false, false);
  EXPECT_EQ(countOf(detail, "function openDetailTab("), 1u);
}

}  // namespace
