// SPDX-License-Identifier: BSD-3-Clause
// Handlers of the report methods: reports of one run (detail, aggregate,
// start-up, diagnostic) and of two runs (difference, aggregate difference,
// start-up difference).
#include <memory>
#include <string>

#include "collect/constants.h"
#include "collect/paths.h"
#include "collect/tempo_gauge.h"
#include "analysis/diagnostic_report.h"
#include "scripting/errors.h"
#include "scripting/handler_args.h"
#include "scripting/report_options.h"
#include "scripting/tracer_methods.h"
#include "tempogauge/report.h"
#include "store/system_info_collection.h"
#include "store/trace_file.h"

using namespace tg::scripting;
using namespace tempogauge::TempoGauge;

namespace {

const std::string kGlobal(tg::kGlobalGrouping);
const std::string kStartup(tg::kStartupGrouping);
const std::string kTime(tg::kMetricTime);

// ---- one run ----------------------------------------------------------------

ReportOptionRules singleRunRules() {
  return {2, "2", 8, "8",
          {{"htmlfile", OptionKind::Text}, {"grouping", OptionKind::Text}, {"orffile", OptionKind::Text},
           {"showmeta", OptionKind::Flag}, {"metric", OptionKind::Metric}},
          true, false, false};
}

ReportOptions singleRunDefaults() {
  ReportOptions defaults;
  defaults.text = {{"htmlfile", ""}, {"grouping", kGlobal}, {"orffile", ""}, {"metric", kTime}};
  defaults.showmeta = true;
  return defaults;
}

// The raw points and system information of a one-run report: from the file
// named by `orffile` when the option was given (its root becomes the current
// root), else from the store and this machine.
struct RunData {
  RawPointVector raw;
  TempoGaugingSystemInfo info;
};

RunData readOneRun(const ReportOptions& options) {
  RunData run;
  std::string root = getHostRoot();
  if (options.isGiven("orffile")) {
    const std::string& file = options.get("orffile");
    if (!loadTraceFile(file, run.raw, run.info, root)) tgRaise<OpenFileFailed>(file);
  } else {
    run.raw = *TempoGauge::instance()->copyRawPoints();
    collectSystemInfo(run.info);
  }
  hostRootPathSet(root);
  if (run.raw.empty()) tgRaise<NoRawTracerData>();
  return run;
}

using OneRunDriver = bool (*)(TempoGauge*, std::string_view, std::string_view, std::string_view, std::string_view,
                              bool, RawPointVector*, const TempoGaugingSystemInfo*);

void writeOneRun(OneRunDriver driver, const ReportOptions& options, const std::string& grouping,
                 const std::string& title, bool showmeta) {
  const std::string& htmlfile = options.get("htmlfile");
  RunData run = readOneRun(options);
  const bool written = driver(TempoGauge::instance(), htmlfile, grouping, title, options.get("metric"),
                              showmeta, &run.raw, &run.info);
  if (!written) tgRaise<WriteFileFailed>(htmlfile);
}

void singleRunReport(OneRunDriver driver, int nin, const objsys::OBSValue* in) {
  const ReportOptions options = readReportOptions(singleRunRules(), singleRunDefaults(), nin, in);
  if (options.get("htmlfile").empty()) tgRaise<ExpectedNames>("'htmlfile' must be set");
  writeOneRun(driver, options, options.get("grouping"), options.get("grouping"), options.showmeta);
}

// ---- two runs ---------------------------------------------------------------

ReportOptionRules differenceRules() {
  // The bound is 12 and the message says "8": both are required.
  return {4, "4", 12, "8",
          {{"grouping", OptionKind::Text}, {"htmlfile", OptionKind::Text}, {"lhsfile", OptionKind::Text},
           {"rhsfile", OptionKind::Text}, {"lhslabel", OptionKind::Text}, {"rhslabel", OptionKind::Text},
           {"metric", OptionKind::Metric}},
          true, true, false};
}

ReportOptions differenceDefaults(const std::string& grouping, const std::string& htmlfile) {
  ReportOptions defaults;
  defaults.text = {{"grouping", grouping}, {"htmlfile", htmlfile}, {"lhsfile", ""}, {"rhsfile", ""},
                   {"lhslabel", "LHS"},    {"rhslabel", "RHS"},    {"metric", kTime}};
  return defaults;
}

// One side of a comparison: the named file, or the store and this machine.
RunData readSide(const std::string& file) {
  RunData side;
  if (!file.empty()) {
    std::string fileRoot;  // dropped: comparisons strip with the host's own root
    if (!loadTraceFile(file, side.raw, side.info, fileRoot)) tgRaise<OpenFileFailed>(file);
  } else {
    side.raw = *TempoGauge::instance()->copyRawPoints();
    if (const TempoGaugingSystemInfo* cached = getCachedSystemInfo()) side.info = *cached;
  }
  return side;
}

using TwoRunDriver = bool (*)(TempoGauge*, std::string_view, std::string_view, std::string_view, std::string_view,
                              RawPointVector*, RawPointVector*, const TempoGaugingSystemInfo*,
                              const TempoGaugingSystemInfo*, std::string_view);

void writeTwoRuns(TwoRunDriver driver, const ReportOptions& options, const std::string& grouping) {
  const std::string& htmlfile = options.get("htmlfile");
  const std::string& lhsfile = options.get("lhsfile");
  const std::string& rhsfile = options.get("rhsfile");
  RunData left = readSide(lhsfile);
  RunData right = readSide(rhsfile);
  hostRootPathSet(getHostRoot());
  if (left.raw.empty()) tgRaise<NoRawTracerDataLoaded>(lhsfile);
  if (right.raw.empty()) tgRaise<NoRawTracerDataLoaded>(rhsfile);
  const bool written = driver(TempoGauge::instance(), htmlfile, grouping, options.get("lhslabel"),
                              options.get("rhslabel"), &left.raw, &right.raw, &left.info, &right.info,
                              options.get("metric"));
  if (!written) tgRaise<WriteFileFailed>(htmlfile);
}

void differenceReport(TwoRunDriver driver, int nin, const objsys::OBSValue* in) {
  const ReportOptions options = readReportOptions(differenceRules(), differenceDefaults(kGlobal, ""), nin, in);
  if (options.get("htmlfile").empty() || (options.get("lhsfile").empty() && options.get("rhsfile").empty()))
    tgRaise<ExpectedNames>("'htmlfile' and one of 'lhsfile' or 'rhsfile' to be set.");
  writeTwoRuns(driver, options, options.get("grouping"));
}

}  // namespace

void TempoGauge_generateHTMLReport::invoke(objsys::OBSClient*, int&, objsys::OBSValue*, int nin,
                                           objsys::OBSValue* in) {
  singleRunReport(&writeDetailReport, nin, in);
}

void TempoGauge_generateAggregateReport::invoke(objsys::OBSClient*, int&, objsys::OBSValue*, int nin,
                                                objsys::OBSValue* in) {
  singleRunReport(&writeAggregateReport, nin, in);
}

void TempoGauge_generateCWStartupReport::invoke(objsys::OBSClient*, int&, objsys::OBSValue*, int nin,
                                                objsys::OBSValue* in) {
  const ReportOptionRules rules{0, "0", 4, "4",
                                {{"htmlfile", OptionKind::Text}, {"orffile", OptionKind::Text},
                                 {"metric", OptionKind::Metric}},
                                true, false, true};
  ReportOptions defaults;
  defaults.text = {{"htmlfile", "CWStartup.html"}, {"orffile", ""}, {"metric", kTime}};
  const ReportOptions options = readReportOptions(rules, defaults, nin, in);
  writeOneRun(&writeDetailReport, options, kStartup, "Cogwheel Startup Performance", false);
}

void TempoGauge_diagnosticReport::invoke(objsys::OBSClient*, int&, objsys::OBSValue*, int nin,
                                         objsys::OBSValue* in) {
  // Names are case sensitive here, and the value's class is tested first.
  const ReportOptionRules rules{2, "2", 6, "6",
                                {{"htmlfile", OptionKind::Text}, {"grouping", OptionKind::Text},
                                 {"orffile", OptionKind::Text}},
                                false, true, true};
  ReportOptions defaults;
  defaults.text = {{"htmlfile", ""}, {"grouping", kGlobal}, {"orffile", ""}};
  const ReportOptions options = readReportOptions(rules, defaults, nin, in);
  const std::string& htmlfile = options.get("htmlfile");
  if (htmlfile.empty()) tgRaise<ExpectedNames>("'htmlfile' must be set.");
  RawPointVector raw;
  if (options.isGiven("orffile")) {
    TempoGaugingSystemInfo info;
    std::string root;
    if (!loadTraceFile(options.get("orffile"), raw, info, root)) tgRaise<OpenFileFailed>(options.get("orffile"));
  } else {
    raw = *TempoGauge::instance()->copyRawPoints();
  }
  // An empty vector still gets a report: it shows what there is.
  if (!writeDiagnosticReport(TempoGauge::instance(), htmlfile, options.get("grouping"), &raw))
    tgRaise<WriteFileFailed>(htmlfile);
}

void TempoGauge_generateDifferenceReport::invoke(objsys::OBSClient*, int&, objsys::OBSValue*, int nin,
                                                 objsys::OBSValue* in) {
  differenceReport(&writeDifferenceReport, nin, in);
}

void TempoGauge_generateAggregateDifferenceReport::invoke(objsys::OBSClient*, int&, objsys::OBSValue*, int nin,
                                                          objsys::OBSValue* in) {
  differenceReport(&writeAggregateDifferenceReport, nin, in);
}

void TempoGauge_generateCWStartupDifferenceReport::invoke(objsys::OBSClient*, int&, objsys::OBSValue*, int nin,
                                                          objsys::OBSValue* in) {
  ReportOptionRules rules{2, "2", 10, "10",
                          {{"htmlfile", OptionKind::Text}, {"lhsfile", OptionKind::Text},
                           {"rhsfile", OptionKind::Text}, {"lhslabel", OptionKind::Text},
                           {"rhslabel", OptionKind::Text}},
                          true, false, false};
  const ReportOptions options =
      readReportOptions(rules, differenceDefaults(kStartup, "CWStartupDiff.html"), nin, in);
  if (options.get("lhsfile").empty() && options.get("rhsfile").empty())
    tgRaise<ExpectedNames>("at least one of 'lhsfile' or 'rhsfile' must be set");
  writeTwoRuns(&writeDifferenceReport, options, kStartup);
}
