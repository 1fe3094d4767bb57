// SPDX-License-Identifier: BSD-3-Clause
// Input checks and conversions shared by the method handlers.
#include "scripting/handler_args.h"

#include <cctype>

#include "scripting/errors.h"

namespace tg::scripting {

bool isCharRow(const oxArray* value) { return oxGetClassID(value) == oxCHAR_CLASS && oxIsVector(value); }

std::string toText(const oxArray* value) { return oxArrayToStdString(value); }

std::string lowerCase(std::string text) {
  for (char& c : text) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return text;
}

std::vector<std::string> cellToStrings(const oxArray* cell) {
  std::vector<std::string> strings;
  const std::size_t count = oxGetNumberOfElements(cell);
  const std::size_t rows = cell ? cell->rows() : 0;
  for (std::size_t i = 0; i < count; ++i) {
    const oxArray* element = oxGetCell(cell, oxCalcSingleSubscript(cell, {i % rows, i / rows}));
    if (!oxIsCharVector(element)) tgRaise<tempogauge::TempoGauge::AddGroupingExpectedString>();
    strings.push_back(oxArrayToStdString(element));
  }
  return strings;
}

void setLogicalOutput(int& nout, objsys::OBSValue* out, bool value) {
  setOutput(nout, out, oxCreateLogicalScalar(value));
}

void setOutput(int& nout, objsys::OBSValue* out, oxArrayPtr value) {
  out[0].array = std::move(value);
  nout = 1;
}

}  // namespace tg::scripting
