// SPDX-License-Identifier: BSD-3-Clause
#include "report/page_head.h"

#include "collect/constants.h"
#include "analysis/report_data.h"
#include "report/report_assets.h"
#include "collect/text_escape.h"

namespace {
// Without a call tree depth the page still carries the first eight indents.
constexpr int kFixedIndentRules = 8;
}  // namespace

std::string pageTitleText(std::string_view title) {
  if (title == tg::kGlobalGrouping) return "Full Tracer Report";
  if (title.empty()) return "Tempo Gauge Report";
  return std::string(title);
}

std::string writePageHead(TempoGauge* /*store*/, int maxDepth, std::string_view title, bool isComparison) {
  std::string out;
  out.reserve(24 * 1024);
  out += "    <head>\n";
  out += "        <meta http-equiv=\"Content-type\" ";
  out += "content=\"text/html;charset=UTF-8\" />\n";
  out += "        <title>";
  out += escapeHtml(pageTitleText(title));
  out += "</title>\n";
  out += "        <style type=\"text/css\" media=\"screen\">\n";
  out += tg::assets::page_style_top_css;
  out += writePhaseCellStyles(maxDepth > 0 ? maxDepth : kFixedIndentRules);
  out += tg::assets::page_style_middle_css;
  if (isComparison) out += tg::assets::page_style_comparison_css;
  out += tg::assets::page_style_bottom_css;
  out += "        </style>\n";
  out += "    </head>\n";
  return out;
}
