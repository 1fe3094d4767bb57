#include "report/phase_cell_styles.h"

std::string phaseCellIndentRules(int depthCount) {
  std::string out;
  for (int depth = 0; depth < depthCount; ++depth) {
    out += "            table.dataTable td.phaseNameCell";
    out += std::to_string(depth);
    out += " {\n";
    out += depth % 2 == 0 ? "                background-color:#FFFFFF;\n" : "                background-color:#E7EBF5;\n";
    out += "                padding-left:";
    out += std::to_string(10 + 25 * depth);
    out += "px;\n            }\n\n";
  }
  return out;
}
