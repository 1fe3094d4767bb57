// SPDX-License-Identifier: BSD-3-Clause
#include "report/tab_divs.h"

#include "report/filter_forms.h"

namespace {

const char* const kScrollerStyle = "width:20px;height:365px;overflow-y:auto;display:none;";

void appendScroller(std::string& out, std::string_view id, std::string_view tableType) {
  out += "        <div id = \"";
  out += id;
  out += "\" style=\"";
  out += kScrollerStyle;
  out += "\" onscroll=\"reGenerateTable(this, '";
  out += tableType;
  out += "');\"></div>\n";
}

}  // namespace

std::string writeAggregateTabDiv() {
  return "        <div id = \"aggregateSummaryDiv\" style=\"overflow:none;display:none;height:100%;border:2px solid "
         "#324678;\"></div>\n";
}

std::string writeCallTreeTabDiv() {
  return "        <div id = \"callTreeSummaryDiv\" style=\"height:100%;text-align:left;overflow:none\">\n"
         "            <div id = \"callTreeSummaryTableDiv\" style=\"height:100%;vertical-align:top;text-align:left;"
         "overflow:none\"></div>\n" +
         writeCallTreeFilterForm() + "        </div>\n";
}

std::string writeDetailTabDiv(std::string_view metric, bool isComparison) {
  return "        <div id = \"phaseSummaryDiv\" style=\"text-align:left;overflow:none;height:100%\">\n"
         "            <div id = \"phaseSummaryTableDiv\" style=\"vertical-align:top;text-align:left;overflow:none;"
         "height:100%;display:none\"></div>\n" +
         writeFilterForm(metric, isComparison) + "        </div>\n";
}

std::string writeScrollDivs(bool isComparison, bool skipDetail) {
  std::string out;
  appendScroller(out, "aggregateSummaryScrollTableDiv", "Aggregate");
  out += "        <span id = \"FakeSpan\" style=\"visibility:hidden;color:white;\"></span>\n";
  if (skipDetail) return out;
  appendScroller(out, "phaseSummaryScrollTableDiv", "Detail");
  if (isComparison) return out;
  appendScroller(out, "callTreeSummaryScrollTableDiv", "CallTree");
  return out;
}
