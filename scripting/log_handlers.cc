// SPDX-License-Identifier: BSD-3-Clause
// Handlers of the logging methods: every text input must be a char row and
// the start flag a logical scalar, checked first to last before anything is
// converted. The core's boolean result is dropped.
#include <array>
#include <string>

#include "scripting/errors.h"
#include "scripting/handler_args.h"
#include "scripting/tracer_methods.h"
#include "tempogauge/collect.h"

using namespace tg::scripting;
using namespace tempogauge::TempoGauge;

namespace {

// Checks the leading text inputs against their labels, then the start flag.
template <std::size_t N>
void checkLogInputs(const objsys::OBSValue* in, const std::array<const char*, N>& labels) {
  for (std::size_t i = 0; i < N; ++i)
    if (!isCharRow(input(in, static_cast<int>(i)))) tgRaise<ParameterMismatchString>(labels[i]);
  if (!oxIsLogicalScalar(input(in, N))) tgRaise<ParameterMismatchBoolean>("Start of Phase");
}

std::string text(const objsys::OBSValue* in, int index) { return toText(input(in, index)); }
bool flag(const objsys::OBSValue* in, int index) { return oxIsLogicalScalarTrue(input(in, index)); }

}  // namespace

void TempoGauge_logORRERYData::invoke(objsys::OBSClient*, int&, objsys::OBSValue*, int, objsys::OBSValue* in) {
  checkLogInputs(in, std::array{"Grouping", "Phase"});
  tgLogORRERYData(text(in, 0), text(in, 1), flag(in, 2));
}

void TempoGauge_logCogwheelData::invoke(objsys::OBSClient*, int&, objsys::OBSValue*, int, objsys::OBSValue* in) {
  checkLogInputs(in, std::array{"Grouping", "Model Name", "Target Name", "Phase"});
  tgLogCogwheelData(text(in, 0), text(in, 1), text(in, 2), text(in, 3), flag(in, 4));
}

void TempoGauge_logLoomchartData::invoke(objsys::OBSClient*, int&, objsys::OBSValue*, int, objsys::OBSValue* in) {
  checkLogInputs(in, std::array{"Grouping", "Model Name", "Target Name", "Machine Name", "Chart Name", "Phase"});
  tgLogLoomchartData(text(in, 0), text(in, 1), text(in, 2), text(in, 3), text(in, 4), text(in, 5), flag(in, 6));
}

void TempoGauge_logCWStartupData::invoke(objsys::OBSClient*, int&, objsys::OBSValue*, int, objsys::OBSValue* in) {
  checkLogInputs(in, std::array{"Phase"});
  tgLogCWStartupData(text(in, 0), flag(in, 1));
}
