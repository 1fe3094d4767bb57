// SPDX-License-Identifier: BSD-3-Clause
// Handlers of the grouping methods and of the statistics type of a model.
#include "scripting/errors.h"
#include "scripting/handler_args.h"
#include "scripting/tracer_methods.h"
#include "tempogauge/collect.h"

using namespace tg::scripting;
using namespace tempogauge::TempoGauge;

void TempoGauge_addGrouping::invoke(objsys::OBSClient*, int&, objsys::OBSValue*, int, objsys::OBSValue* in) {
  if (!oxIsCharVector(input(in, 0))) tgRaise<InvalidNames>();
  const std::string name = toText(input(in, 0));
  if (oxGetClassID(input(in, 1)) != oxCELL_CLASS) tgRaise<UnexpectedValue>(name);
  const std::vector<std::string> children = cellToStrings(input(in, 1));
  const std::string problem = tgAddGrouping(name, children);
  if (!problem.empty()) tgRaise<AddGroupingError>(problem);
}

void TempoGauge_removeGrouping::invoke(objsys::OBSClient*, int&, objsys::OBSValue*, int, objsys::OBSValue* in) {
  if (!oxIsCharVector(input(in, 0))) tgRaise<ParameterMismatchString>("grouping");
  const std::string name = toText(input(in, 0));
  if (!tgRemoveGrouping(name)) tgRaise<RemoveGroupingError>(name);
}

void TempoGauge_setStatisticsTypeForModel::invoke(objsys::OBSClient*, int&, objsys::OBSValue*, int,
                                                  objsys::OBSValue* in) {
  const std::string model = toText(input(in, 0));
  const std::string statisticsType = toText(input(in, 1));
  if (model.empty() || statisticsType.empty()) tgRaise<InvalidNames>();
  tgSetStatisticsTypeForModel(model, statisticsType);
}
