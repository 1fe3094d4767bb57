// SPDX-License-Identifier: BSD-3-Clause
// Handlers of the switches: global logging, detailed memory statistics, the
// start-up grouping, one grouping ("enable"), and the hidden switch of
// detailed exception diagnostics. Each returns the value it was given.
#include <array>

#include "collect/constants.h"
#include "host/host_bridge.h"
#include "scripting/errors.h"
#include "scripting/handler_args.h"
#include "scripting/tracer_methods.h"
#include "tempogauge/collect.h"

using namespace tg::scripting;
using namespace tempogauge::TempoGauge;

namespace {

bool enableInput(const objsys::OBSValue* in) {
  if (!oxIsLogicalScalar(input(in, 0))) tgRaise<ParameterMismatchBoolean>("Enable");
  return oxIsLogicalScalarTrue(input(in, 0));
}

}  // namespace

void TempoGauge_enableGlobalLogging::invoke(objsys::OBSClient*, int& nout, objsys::OBSValue* out, int,
                                            objsys::OBSValue* in) {
  const bool value = enableInput(in);
  tgEnableGlobalLogging(value);
  setLogicalOutput(nout, out, value);
}

void TempoGauge_enableDetailedMemStats::invoke(objsys::OBSClient*, int& nout, objsys::OBSValue* out, int,
                                               objsys::OBSValue* in) {
  const bool value = enableInput(in);
  tgEnableDetailedMemStats(value);
  setLogicalOutput(nout, out, value);
}

void TempoGauge_enableCWStartupLogging::invoke(objsys::OBSClient*, int& nout, objsys::OBSValue* out, int,
                                               objsys::OBSValue* in) {
  const bool value = enableInput(in);
  tgEnableTracer(std::string(tg::kStartupGrouping), value);
  setLogicalOutput(nout, out, value);
}

void TempoGauge_enable::invoke(objsys::OBSClient*, int& nout, objsys::OBSValue* out, int nin,
                               objsys::OBSValue* in) {
  if (nin > 2) tgRaise<MaxParamsExceeded>("2");
  if (nin < 1) tgRaise<MinParamsNotReached>("1");
  if (!oxIsCharVector(input(in, 0))) tgRaise<ParameterMismatchString>("Grouping");
  const std::string grouping = toText(input(in, 0));
  bool result = false;
  if (nin == 2) {
    if (!oxIsLogicalScalar(input(in, 1))) tgRaise<ParameterMismatchBoolean>("Enable");
    result = oxIsLogicalScalarTrue(input(in, 1));
    tgEnableTracer(grouping, result);
  } else {
    result = tgIsTracerEnabled(grouping);
  }
  setLogicalOutput(nout, out, result);
}

void TempoGauge_debugEnableDiagnosticDetails::invoke(objsys::OBSClient*, int& nout, objsys::OBSValue* out, int,
                                                     objsys::OBSValue* in) {
  const bool enable = enableInput(in);
  // The host's setting is a skip flag, hence the negation.
  try {
    const oxArrayPtr setting = oxCreateString("cwsvSetSkipDetailedStackDiagnostics");
    const oxArrayPtr skip = oxCreateLogicalScalar(!enable);
    const std::array<const oxArray*, 2> args{setting.get(), skip.get()};
    tgRunHostCommand("cwsvInternal", args);
  } catch (...) {
  }
  setLogicalOutput(nout, out, enable);
}
