// Literal text that several report data emitters share: the head of the
// procData struct, the separator of rows, and the variables that the name
// arrays and the single-run aggregate data both declare.
#pragma once

#include <string>

namespace report_literals {

inline const std::string kProcHead =
    "        var dataStruct = makeStruct(\"isParent HTMLPhaseNum GapRow Phase Grouping Model Target Machine Chart ";
inline const std::string kRowSep = ",\n                    ";
inline const std::string kSharedVariables =
    "       var PhaseLengths     = new Array();\n"
    "       var GroupingLengths  = new Array();\n"
    "       var ModelLengths     = new Array();\n"
    "       var TargetLengths    = new Array();\n"
    "       var MachineLengths   = new Array();\n"
    "       var ChartLengths     = new Array();\n"
    "       var ExpandStrLengths = new Array();\n"
    "       var ExpandStr        = [\"&nbsp;&nbsp;&nbsp;\",\"[+]\",\"[-]\"];\n"
    "       var phaseStrToShow;\n"
    "       var modelStrToShow;\n"
    "       var machineStrToShow;\n"
    "       var chartStrToShow;\n"
    "       var phaseStr;\n"
    "       var modelStr;\n"
    "       var machineStr;\n"
    "       var chartStr;\n"
    "       var targetStr;\n"
    "       var groupingStr;\n";

}  // namespace report_literals
