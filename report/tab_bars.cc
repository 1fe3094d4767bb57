// SPDX-License-Identifier: BSD-3-Clause
#include "report/tab_bars.h"

#include "collect/constants.h"

namespace {
constexpr ReportTab kAggregateTab{"Aggregate", "aggregateSummary", "aggregateSumHeader"};
constexpr ReportTab kCallTreeTab{"Call Tree", "callTreeSummary", "callTreeHeader"};
constexpr ReportTab kDetailsTab{"Details", "phaseSummary", "phaseSumHeader"};
constexpr ReportTab kMemChartTab{"MemChart", "memCanvas", "memoryCanvasHeader"};
constexpr ReportTab kSystemInfoTab{"System Info", "systemInfo", "sysInfoHeader"};

const std::string kBarIndent(25, ' ');
const std::string kListIndent(29, ' ');
const std::string kItemIndent(33, ' ');
}  // namespace

std::vector<ReportTab> reportTabs(bool isComparison, std::string_view metric, bool aggregateOnly) {
  std::vector<ReportTab> tabs{kAggregateTab};
  if (!aggregateOnly) {
    if (!isComparison) tabs.push_back(kCallTreeTab);
    tabs.push_back(kDetailsTab);
    if (metric == tg::kMetricDetailedMemory) tabs.push_back(kMemChartTab);
  }
  tabs.push_back(kSystemInfoTab);
  return tabs;
}

std::string writeTabBars(bool isComparison, std::string_view metric, bool aggregateOnly) {
  const auto tabs = reportTabs(isComparison, metric, aggregateOnly);
  std::string out;
  bool first = true;
  for (const auto& bar : tabs) {
    out += kBarIndent + "<div id=\"header\" class=\"";
    out += bar.barClass;
    out += first ? "\">\n" : "\" style=\"display:none\">\n";
    first = false;
    out += kListIndent + "<ul id=\"primary\">\n";
    for (const auto& tab : tabs) {
      out += kItemIndent + "<li>";
      if (tab.key == bar.key) {
        out += "<span>";
        out += tab.label;
        out += "</span>";
      } else {
        out += "<a href=\"javascript:ShowTable('";
        out += tab.key;
        out += "')\">";
        out += tab.label;
        out += "</a>";
      }
      out += "</li>\n";
    }
    out += kListIndent + "</ul>\n";
    out += kBarIndent + "</div>\n";
  }
  return out;
}

std::string writeHeaderTable(bool isComparison, std::string_view metric, bool aggregateOnly) {
  std::string out;
  out += "        <table id = \"headerTable\" border=\"0\" cellspacing=\"0\" cellpadding=\"0\" style=\"width:100%;\">\n";
  out += "            <tr>\n";
  out += "                <td class=\"headerTable\">\n";
  out += writeTabBars(isComparison, metric, aggregateOnly);
  out += "                </td>\n";
  out += "            </tr>\n";
  out += "        </table>\n";
  return out;
}
