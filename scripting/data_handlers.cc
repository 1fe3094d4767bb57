// SPDX-License-Identifier: BSD-3-Clause
// Handlers of the data methods: clearing raw points, and the raw and
// processed points as host arrays.
#include <memory>
#include <string>
#include <vector>

#include "collect/constants.h"
#include "collect/tempo_gauge.h"
#include "scripting/errors.h"
#include "scripting/handler_args.h"
#include "scripting/tracer_methods.h"
#include "tempogauge/analysis.h"
#include "tempogauge/collect.h"
#include "store/raw_points_array.h"

using namespace tg::scripting;
using namespace tempogauge::TempoGauge;

namespace {

// The 1 by n cell array of the processed points' structs.
oxArrayPtr processedPointsArray(const TGProcessedDataStruct& data) {
  const ProcessedPointVector& points = data.processedPoints;
  oxArrayPtr cells = oxCreateCellMatrix(1, points.size());
  for (std::size_t i = 0; i < points.size(); ++i) oxSetCell(cells.get(), i, points[i]->toStruct());
  return cells;
}

}  // namespace

void TempoGauge_clearRawData::invoke(objsys::OBSClient*, int&, objsys::OBSValue*, int nin, objsys::OBSValue* in) {
  // Parity is tested before the upper bound here, unlike elsewhere.
  if (nin == 0) {
    tgClearRawData();
    return;
  }
  if (nin % 2 != 0) tgRaise<ExpectedEvenNumberOfParameters>();
  if (nin > 6) tgRaise<MaxParamsExceeded>("6");
  std::string grouping, model, target;
  bool groupingGiven = false, modelGiven = false, targetGiven = false;
  for (int i = 0; i < nin; i += 2) {
    const std::string name = lowerCase(toText(input(in, i)));
    const std::string value = toText(input(in, i + 1));
    if (name == "model") {
      model = value;
      modelGiven = true;
    } else if (name == "grouping") {
      grouping = value;
      groupingGiven = true;
    } else if (name == "target") {
      target = value;
      targetGiven = true;
    } else {
      tgRaise<InvalidNames>();
    }
  }
  if (groupingGiven) {
    if (!modelGiven) {
      tgClearRawGroupingData(grouping);
    } else if (!targetGiven) {
      tgClearRawData(grouping, model);
    } else {
      // The wider clearing follows the narrower one: the target cannot spare
      // the rest of the model.
      tgClearRawData(grouping, model, target);
      tgClearRawData(grouping, model);
    }
  } else if (modelGiven) {
    tgClearRawModelData(model);
  } else {
    tgRaise<InvalidNames>();
  }
}

void TempoGauge_getRawData::invoke(objsys::OBSClient*, int& nout, objsys::OBSValue* out, int, objsys::OBSValue*) {
  const std::unique_ptr<RawPointVector> points = TempoGauge::instance()->copyRawPoints();
  oxArrayPtr cells = rawPointsToCellArray(*points);
  setOutput(nout, out, oxDuplicateArray(cells.get()));
  oxDestroyArray(cells);
}

void TempoGauge_getProcessedData::invoke(objsys::OBSClient*, int& nout, objsys::OBSValue* out, int nin,
                                         objsys::OBSValue* in) {
  if (nin % 2 != 0) tgRaise<ExpectedEvenNumberOfParameters>();
  std::vector<std::string> groupings{std::string(tg::kGlobalGrouping)};
  if (nin == 0) {
    setOutput(nout, out, processedPointsArray(tgGetProcessedDataForGroupings(nullptr, groupings)));
    return;
  }
  std::vector<std::string> models;
  // Each pair replaces the output of the pair before it.
  for (int i = 0; i < nin; i += 2) {
    const oxArray* nameInput = input(in, i);
    const oxArray* value = input(in, i + 1);
    if (!oxIsCharVector(nameInput)) tgRaise<ExpectedNames>("'grouping' or 'model'");
    const std::string name = lowerCase(toText(nameInput));
    if (name == "grouping") {
      if (oxGetClassID(value) == oxCELL_CLASS) {
        groupings = cellToStrings(value);
      } else {
        if (!oxIsCharVector(value)) tgRaise<ParameterMismatchString>(name);
        groupings = tgGetGroupingList(toText(value));
      }
      setOutput(nout, out, processedPointsArray(tgGetProcessedDataForGroupings(nullptr, groupings)));
    } else if (name == "model") {
      if (oxGetClassID(value) == oxCELL_CLASS) {
        models = cellToStrings(value);
      } else {
        if (!oxIsCharVector(value)) tgRaise<ParameterMismatchString>(name);
        models.push_back(toText(value));
      }
      setOutput(nout, out, processedPointsArray(tgGetProcessedDataForModels(nullptr, models)));
    } else {
      tgRaise<InvalidNames>();
    }
  }
}
