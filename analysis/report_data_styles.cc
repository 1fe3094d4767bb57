// SPDX-License-Identifier: BSD-3-Clause
#include "analysis/report_data.h"
#include "analysis/report_data_text.h"

using tg::report_data::appendInt;

std::string writePhaseCellStyles(std::int32_t depths) {
  std::string out;
  for (std::int32_t d = 0; d < depths; ++d) {
    out += "            table.dataTable td.phaseNameCell";
    appendInt(out, d);
    out += " {\n";
    out += d % 2 == 0 ? "                background-color:#FFFFFF;\n" : "                background-color:#E7EBF5;\n";
    out += "                padding-left:";
    appendInt(out, 10 + 25 * static_cast<std::int64_t>(d));
    out += "px;\n            }\n\n";
  }
  return out;
}
