// SPDX-License-Identifier: BSD-3-Clause
#include "report/filter_forms.h"

#include <span>
#include <vector>

#include "collect/constants.h"

namespace {

// One labelled text cell. `name` is the element's name attribute, which a few
// cells spell differently from their id; scripts read cells by id.
struct Field {
  std::string_view label;
  std::string_view id;
  std::string_view name = {};
};

// A group of sort cells under a bold heading, in a comparison form.
struct SortGroup {
  std::string_view heading;
  std::vector<Field> fields;
};

constexpr std::string_view kBlankRow = "<tr><td>&nbsp;</td></tr>\n";
constexpr std::string_view kSpacerCells = "<td>&nbsp;</td><td>&nbsp;</td>";

void appendField(std::string& out, const Field& field, std::string_view inputCellStyle = {}) {
  out += "<td class=\"FiltersNameCell\">";
  out += field.label;
  out += "</td><td class=\"FiltersInputCell\"";
  if (!inputCellStyle.empty()) {
    out += " style=\"";
    out += inputCellStyle;
    out += "\"";
  }
  out += "><input type=\"text\" name=\"";
  out += field.name.empty() ? field.id : field.name;
  out += "\" id=\"";
  out += field.id;
  out += "\" value=\"\"/></td>";
}

// Rows of fields, `perRow` to a row, with blank rows above, between and below.
void appendFieldRows(std::string& out, std::span<const Field> fields, std::size_t perRow) {
  out += kBlankRow;
  for (std::size_t i = 0; i < fields.size(); i += perRow) {
    out += "<tr>";
    for (std::size_t j = i; j < i + perRow && j < fields.size(); ++j) {
      if (j > i) out += kSpacerCells;
      appendField(out, fields[j]);
    }
    out += "</tr>\n";
    out += kBlankRow;
  }
}

// The head of a collapsible block: a link and an arrow that open its pane.
void appendBlockHead(std::string& out, std::string_view pane, std::string_view text, std::string_view arrowId,
                     bool whiteBorder) {
  const std::string_view border = whiteBorder ? " style=\"border-bottom:1px solid white;\"" : "";
  out += "<tr><td";
  out += border;
  out += "><a href=\"javascript:showInputTable('";
  out += pane;
  out += "')\">";
  out += text;
  out += "</a></td><td";
  out += border;
  out += "><span id=\"";
  out += arrowId;
  out += "\" style=\"cursor:pointer;\" onclick=\"showInputTable('";
  out += pane;
  out += "');\">&#9660;</span></td></tr>\n";
}

void appendPaneOpen(std::string& out, std::string_view pane, std::string_view colspan) {
  out += "<tr><td colspan=\"";
  out += colspan;
  out += "\"><table id=\"";
  out += pane;
  out += "\" class=\"dataTable\" style=\"display:none\">\n";
}

// The line where a refresh names a filter cell that holds no valid expression.
void appendMessageSpan(std::string& out, std::string_view id) {
  out += "<span id=\"";
  out += id;
  out += "\" style=\"color:#B00000;padding-left:10px;\"></span>";
}

void appendRefreshRow(std::string& out, std::string_view action, std::string_view messageId) {
  out += "<tr><td><input type=\"submit\" value=\"Refresh\" onclick=\"";
  out += action;
  out += "(); return true;\"/>";
  appendMessageSpan(out, messageId);
  out += "</td></tr>\n";
}

const std::vector<Field> kDetailFilters = {
    {"Phase:", "phasename"},     {"Grouping:", "groupingname"}, {"Model:", "modelname"},
    {"Target:", "targetname"},   {"Machine:", "machinename"},   {"Chart:", "chartname"},
};

const std::vector<Field> kMetaDataSorts = {
    {"Phase:", "Sort_phasename"},     {"Model:", "Sort_modelname"},     {"Target:", "Sort_targetname"},
    {"Machine:", "Sort_machinename"}, {"Chart:", "Sort_chartname"},     {"Exec Order:", "Sort_execorder"},
};

std::vector<Field> singleRunSorts(std::string_view metric) {
  if (metric == tg::kMetricTime) return {{"Self:", "Sort_self"}, {"Self + Child:", "Sort_selfPchild"}};
  if (metric == tg::kMetricBasicMemory) {
    return {{"Delta:", "Sort_UsageDelta"},
            {"Peak Usage:", "Sort_UsagePeak"},
            {"Peak Delta:", "Sort_UsagePeakDelta"},
            {"VM Size:", "Sort_Usage"}};
  }
  if (metric == tg::kMetricDetailedMemory) {
    return {{"Committed:", "Sort_Committed"},
            {"Reserved:", "Sort_Reserved"},
            {"DLLs:", "Sort_Dlls"},
            {"OS:", "Sort_NonProcess"},
            {"Free:", "Sort_Free"}};
  }
  return {};
}

std::vector<SortGroup> comparisonSorts(std::string_view metric) {
  if (metric == tg::kMetricTime) {
    return {{"WC Elapsed Time",
             {{"LHS:", "Sort_LHS_WCSelf"},
              {"RHS:", "Sort_RHS_WCSelf"},
              {"Abs Dev:", "Sort_WCSelfAbsDev"},
              {"Rel Dev:", "Sort_WCSelfRelDev"}}}};
  }
  if (metric == tg::kMetricBasicMemory) {
    const auto group = [](std::string_view heading, std::string_view lhs, std::string_view rhs,
                          std::string_view abs, std::string_view rel) {
      return SortGroup{heading, {{"LHS:", lhs}, {"RHS:", rhs}, {"Abs Dev:", abs}, {"Rel Dev:", rel}}};
    };
    return {group("Process Usage Delta", "Sort_LHS_UsageDelta", "Sort_RHS_UsageDelta", "Sort_UsageDeltaAbsDev",
                  "Sort_UsageDeltaRelDev"),
            group("Process Usage", "Sort_LHS_UsagePeak", "Sort_RHS_UsagePeak", "Sort_UsagePeakAbsDev",
                  "Sort_UsagePeakRelDev"),
            group("Peak Usage Delta", "Sort_LHS_UsagePeakDelta", "Sort_RHS_UsagePeakDelta",
                  "Sort_UsagePeakDeltaAbsDev", "Sort_UsagePeakDeltaRelDev"),
            group("Peak Usage", "Sort_LHS_Usage", "Sort_RHS_Usage", "Sort_UsageAbsDev", "Sort_UsageRelDev")};
  }
  if (metric == tg::kMetricDetailedMemory) {
    const auto group = [](std::string_view heading, Field lhs, Field rhs, Field abs, Field rel) {
      lhs.label = "LHS:";
      rhs.label = "RHS:";
      abs.label = "AbsDev:";
      rel.label = "RelDev:";
      return SortGroup{heading, {lhs, rhs, abs, rel}};
    };
    // The name attributes of the AbsDev and RelDev cells, and of the last
    // group's LHS cell, differ from their ids.
    return {group("Committed", {"", "Sort_LHS_Committed"}, {"", "Sort_RHS_Committed"},
                  {"", "Sort_CommittedAbsDev", "Sort_AbsDev_Committed"},
                  {"", "Sort_CommittedRelDev", "Sort_RelDev_committed"}),
            group("Reserved", {"", "Sort_LHS_Reserved"}, {"", "Sort_RHS_Reserved"},
                  {"", "Sort_ReservedAbsDev", "Sort_AbsDev_Reserved"},
                  {"", "Sort_ReservedRelDev", "Sort_RelDev_reserved"}),
            group("Dlls", {"", "Sort_LHS_Dlls"}, {"", "Sort_RHS_Dlls"}, {"", "Sort_DllsAbsDev", "Sort_AbsDev_Dlls"},
                  {"", "Sort_DllsRelDev", "Sort_RelDev_dlls"}),
            group("OS Kernel", {"", "Sort_LHS_NonProcess"}, {"", "Sort_RHS_NonProcess"},
                  {"", "Sort_NonProcessAbsDev", "Sort_AbsDev_NonProcess"},
                  {"", "Sort_NonProcessRelDev", "Sort_RelDev_os"}),
            group("Free", {"", "Sort_LHS_Free", "Sort_LHS_free"}, {"", "Sort_RHS_Free"},
                  {"", "Sort_FreeAbsDev", "Sort_AbsDev_free"}, {"", "Sort_FreeRelDev", "Sort_RelDev_free"})};
  }
  return {};
}

// The comparison's metric sort cells: the groups side by side, each under its
// heading, with a black border between groups.
void appendComparisonSorts(std::string& out, const std::vector<SortGroup>& groups) {
  out += kBlankRow;
  out += "<tr>";
  for (std::size_t g = 0; g < groups.size(); ++g) {
    if (g > 0) out += kSpacerCells;
    out += "<td colspan=\"2\" style=\"font-weight:bold;\">";
    out += groups[g].heading;
    out += "</td>";
  }
  out += "</tr>\n";
  const std::size_t rows = groups.empty() ? 0 : groups.front().fields.size();
  for (std::size_t r = 0; r < rows; ++r) {
    out += "<tr>";
    for (std::size_t g = 0; g < groups.size(); ++g) {
      if (g > 0) out += kSpacerCells;
      const bool last = g + 1 == groups.size();
      appendField(out, groups[g].fields[r], last ? std::string_view{} : "border-right:1px solid black;");
    }
    out += "</tr>\n";
  }
  out += kBlankRow;
}

}  // namespace

std::string writeFilterForm(std::string_view metric, bool isComparison) {
  std::string out;
  out += "        <div id=\"userInputs\" style=\"width:100%;text-align:left;\">\n";
  out += "<table id=\"UserInputsTableId\" class=\"dataTable\" border=\"0\" cellspacing=\"0\" cellpadding=\"0\" "
         "style=\"width:99%;\">\n";

  out += "<tr><td><table class=\"dataTable userInputs\">\n";
  appendBlockHead(out, "FilterData", "Filters", "FilterExpandCollapse", true);
  appendPaneOpen(out, "FilterData", "2");
  appendFieldRows(out, kDetailFilters, 2);
  out += "</table></td></tr>\n</table></td></tr>\n";

  out += "<tr><td><table class=\"dataTable userInputs\" style=\"width:98%;\">\n";
  appendBlockHead(out, "SortData", "Sort", "SortExpandCollapse", false);
  appendPaneOpen(out, "SortData", "2");
  out += "<tr><td><table caption=\"MetaData\">\n";
  appendFieldRows(out, kMetaDataSorts, 2);
  out += "</table></td><td>&nbsp;</td><td><table caption=\"";
  out += metric == tg::kMetricTime ? "Time" : "Memory";
  out += "\">\n";
  if (isComparison) {
    appendComparisonSorts(out, comparisonSorts(metric));
  } else {
    appendFieldRows(out, singleRunSorts(metric), 1);
  }
  out += "</table></td></tr>\n</table></td></tr>\n</table></td></tr>\n";

  appendRefreshRow(out, "userInputsAction", "FilterMessage");
  out += "</table>\n        </div>\n";
  return out;
}

std::string writeCallTreeFilterForm() {
  static const std::vector<Field> filters = {
      {"Phase:", "CT_phasename"}, {"Grouping:", "CT_groupingname"},
      {"Model:", "CT_modelname"}, {"Target:", "CT_targetname"}};
  std::string out;
  out += "        <div id=\"CT_userInputs\" style=\"width:100%;text-align:left;\">\n";
  out += "<table id=\"CT_UserInputsTableId\" class=\"dataTable\" border=\"0\" cellspacing=\"0\" cellpadding=\"0\" "
         "style=\"width:99%;\">\n";
  out += "<tr><td><table class=\"dataTable userInputs\">\n";
  out += "<tr><td style=\"border-bottom:1px solid white;width:15px;\"><a href=\"javascript:showInputTable("
         "'CT_FilterData')\">Filters</a></td><td style=\"border-bottom:1px solid white;\"><div "
         "id=\"CT_FilterDataDisp\"></div></td><td style=\"border-bottom:1px solid white;\"><span "
         "id=\"CT_FilterExpandCollapse\" style=\"cursor:pointer;\" onclick=\"showInputTable('CT_FilterData');\">"
         "&#9660;</span></td></tr>\n";
  appendPaneOpen(out, "CT_FilterData", "3");
  appendFieldRows(out, filters, 2);
  out += "</table></td></tr>\n</table></td></tr>\n";
  appendRefreshRow(out, "CT_userInputsAction", "CT_FilterMessage");
  out += "</table>\n        </div>\n";
  return out;
}
