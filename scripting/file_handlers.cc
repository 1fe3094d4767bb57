// SPDX-License-Identifier: BSD-3-Clause
// Handlers of the saved trace files: save all points, save the start-up
// points, load a file into the store.
#include <memory>
#include <string>

#include "collect/constants.h"
#include "collect/tempo_gauge.h"
#include "scripting/errors.h"
#include "scripting/handler_args.h"
#include "scripting/tracer_methods.h"
#include "store/trace_file.h"

using namespace tg::scripting;
using namespace tempogauge::TempoGauge;

namespace {

std::string fileNameInput(const oxArray* value) {
  if (!isCharRow(value)) tgRaise<ParameterMismatchString>("Filename");
  return toText(value);
}

}  // namespace

void TempoGauge_saveToFile::invoke(objsys::OBSClient*, int&, objsys::OBSValue*, int, objsys::OBSValue* in) {
  // Written straight from the store: no copy of the points is made.
  saveStoreTraceFile(fileNameInput(input(in, 0)));
}

void TempoGauge_saveCWStartupData::invoke(objsys::OBSClient*, int&, objsys::OBSValue*, int nin,
                                          objsys::OBSValue* in) {
  if (nin > 1) tgRaise<MaxParamsExceeded>("1");
  const std::string fileName = nin == 1 ? fileNameInput(input(in, 0)) : std::string(CW_STARTUP_FILE);
  const std::unique_ptr<RawPointVector> points =
      TempoGauge::instance()->rawDataForGrouping(tg::kStartupGrouping);
  saveTraceFile(fileName, *points);
}

void TempoGauge_loadTracerData::invoke(objsys::OBSClient*, int&, objsys::OBSValue*, int, objsys::OBSValue* in) {
  const std::string fileName = fileNameInput(input(in, 0));
  // A plain search, not a test of the end of the name.
  if (fileName.find(kTraceFileExtension) == std::string::npos) tgRaise<MissingOrfExt>();
  loadTraceIntoStore(fileName);
}
