// SPDX-License-Identifier: BSD-3-Clause
// The script and style text of the reports, embedded at build time from
// report/assets (see scripts/embed_assets.cmake).
#pragma once

#include <cstddef>
#include <string_view>
#include <utility>

namespace tg::assets {
extern const std::string_view page_style_top_css;
extern const std::string_view page_style_middle_css;
extern const std::string_view page_style_comparison_css;
extern const std::string_view page_style_bottom_css;
extern const std::string_view common_script_js;
extern const std::string_view sort_script_js;
extern const std::string_view tab_script_js;
extern const std::string_view aggregate_script_js;
extern const std::string_view checked_rows_js;
extern const std::string_view filter_form_js;
extern const std::string_view detail_table_js;
extern const std::string_view call_tree_table_js;
extern const std::string_view chart_common_js;
extern const std::string_view chart_markup_js;
extern const std::string_view mem_chart_js;
extern const std::string_view diff_chart_js;
extern const std::string_view diff_chart_panels_js;
extern const std::string_view diff_chart_popups_js;
// Every asset by file name, for checks over all of them.
extern const std::pair<std::string_view, std::string_view> kAll[];
extern const std::size_t kAllCount;
}  // namespace tg::assets
