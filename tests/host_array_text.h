// SPDX-License-Identifier: BSD-3-Clause
// A host array as one line of text, for golden comparisons: 'chars', i7
// (int32), u7 (uint32), a double's first value, true or false, {cells} ({}
// when empty; [] an empty array of another class), and a struct's fields as
// name=value, six to a line.
#pragma once

#include <sstream>
#include <string>

#include "tempogauge/tempogauge.h"

namespace tgtest {

inline std::string arrayText(const oxArray* a) {
  if (!a) return "null";
  if (a->isEmpty()) return a->classID() == oxCHAR_CLASS ? "''" : a->classID() == oxCELL_CLASS ? "{}" : "[]";
  std::ostringstream out;
  switch (a->classID()) {
    case oxCHAR_CLASS: out << "'" << a->chars() << "'"; break;
    case oxLOGICAL_CLASS: out << (a->logicals()[0] ? "true" : "false"); break;
    case oxINT32_CLASS: out << "i" << a->int32s()[0]; break;
    case oxUINT32_CLASS: out << "u" << a->uint32s()[0]; break;
    case oxDOUBLE_CLASS: out << a->doubles()[0]; break;
    case oxCELL_CLASS:
      out << "{";
      for (std::size_t i = 0; i < a->numel(); ++i) out << (i ? " " : "") << arrayText(a->cell(i));
      out << "}";
      break;
    case oxSTRUCT_CLASS:
      for (std::size_t i = 0; i < a->fieldNames().size(); ++i)
        out << (i == 0 ? "" : i % 6 ? " " : "\n") << a->fieldNames()[i] << "="
            << arrayText(oxGetFieldByNumber(a, 0, static_cast<int>(i)));
      break;
    default: out << "class " << a->classID();
  }
  return out.str();
}

}  // namespace tgtest
