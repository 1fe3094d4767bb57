// SPDX-License-Identifier: BSD-3-Clause
#include "report/system_info_table.h"

#include <string_view>

#include "collect/text_escape.h"

namespace {

void appendRow(std::string& out, std::string_view label, const std::string& value) {
  out += "                        <tr><td><b>";
  out += label;
  out += "</b></td><td>";
  out += escapeHtml(value);
  out += "</td></tr>\n";
}

const char* const kTableOpen =
    "            <table class=\"dataTable systemInfo\" id = \"systemInfoTable\" cellpadding=\"0\" cellspacing=\"0\">\n";

}  // namespace

std::string writeHardwareTable(const TempoGaugingSystemInfo* record) {
  if (record == nullptr) return {};
  std::string out;
  out += "\n                    <table class=\"SystemInfoText\" align=\"left\">\n";
  appendRow(out, "Processor: ", record->processorStr);
  appendRow(out, "CPU Speed: ", record->cpuSpeedStr);
  appendRow(out, "Cores: ", record->numCoresStr);
  appendRow(out, "Total Physical Memory (MB): ", record->totalPhysMemStr);
  appendRow(out, "Operating System: ", record->operatingSystemStr);
  appendRow(out, "ORRERY Version: ", record->ORRERYVersionStr);
  appendRow(out, "Java VM Version: ", record->javaVMVersionStr);
  out += "                        <tr><td>&nbsp;</td></tr>\n";
  out += "                    </table>\n                ";
  return out;
}

std::string writeSystemInfoTable(const TempoGaugingSystemInfo* record) {
  std::string out;
  out += "        <div id = \"systemInfoTableDiv\"  style=\"align:center;overflow:auto;border:2px solid #324678;\">\n";
  out += kTableOpen;
  out += "                <tr><th>Hardware/Software</th></tr>\n";
  out += "                <tr><td>";
  out += writeHardwareTable(record);
  out += "</td></tr>\n";
  out += "                <tr><th>OS/Product Details</th></tr>\n";
  out += "                <tr><td><pre class=\"SystemInfoText\">";
  if (record != nullptr) out += escapeHtml(record->installedProductsStr);
  out += "</pre></td></tr>\n";
  out += "            </table>\n";
  out += "        </div>\n";
  return out;
}

std::string writeSystemInfoComparison(const TempoGaugingSystemInfo& lhs, const TempoGaugingSystemInfo& rhs) {
  std::string out;
  out += "        <div id = \"systemInfoTableDiv\"  style=\"border: 2px solid rgb(50, 70, 120);width:100%;align:center;"
         "overflow:auto\">\n";
  out += kTableOpen;
  out += "                <tr><th colspan=\"2\">Hardware/Software</th></tr>\n";
  out += "                <tr><td>";
  out += writeHardwareTable(&lhs);
  out += "</td><td>";
  out += writeHardwareTable(&rhs);
  out += "</td></tr>\n";
  out += "                <tr><th colspan=\"2\">OS/Product Details</th></tr>\n";
  out += "                <tr><td colspan=\"2\"><div class=\"SystemInfoComparisonDiv\"><table style=\"width:100%;\">"
         "<tr class=\"SystemInfoTextComparison\"><td><pre>";
  out += escapeHtml(lhs.installedProductsStr);
  out += "</pre></td><td><pre>";
  out += escapeHtml(rhs.installedProductsStr);
  out += "</pre></td></tr></table></div></td></tr>\n";
  out += "            </table>\n";
  out += "        </div>\n";
  return out;
}
