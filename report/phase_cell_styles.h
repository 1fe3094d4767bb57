// The indent rules phaseNameCell0, phaseNameCell1, ... of the style sheet: one
// per call tree depth, alternating white and pale blue, each 25 pixels further in.
#pragma once

#include <string>

std::string phaseCellIndentRules(int depthCount);
