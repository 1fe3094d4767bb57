// SPDX-License-Identifier: GPL-3.0-or-later
// __tempogauge_export__, the compiled half of the package function
// tempogauge_export (tempogauge_export.m checks the arguments): writes a
// saved trace, or the tracer's own points, in the Trace Event Format.
// Built into GaugeKit.oct in the package (its PKG_ADD autoloads the name
// from there, so that the live points are the adapter's) and as an oct-file
// of its own beside GaugeKit.oct in the build tree, where both share the
// tempogauge library.
#include <octave/oct.h>

#include <filesystem>
#include <stdexcept>
#include <string>
#include <system_error>
#include <vector>

#include "tempogauge/tempogauge.h"

namespace {

namespace TG = tempogauge::TempoGauge;

// The groupings that `grouping` stands for: its members when it is a
// parent, else itself ("GLOBAL" is every grouping).
std::vector<std::string> groupingsFor(const std::string& grouping) {
  std::vector<std::string> groupings = tgGetGroupingList(grouping);
  if (groupings.empty()) groupings.push_back(grouping);
  return groupings;
}

void exportSavedTrace(const std::string& orfFile, const std::string& jsonFile, const std::string& grouping) {
  std::error_code ignored;
  if (std::filesystem::equivalent(orfFile, jsonFile, ignored))
    throw std::invalid_argument("the JSON file " + jsonFile + " is the saved trace itself; choose another name");
  RawPointVector raw;
  TempoGaugingSystemInfo info;
  std::string root;
  if (!loadTraceFile(orfFile, raw, info, root)) tgRaise<TG::OpenFileFailed>(orfFile);
  if (raw.empty()) tgRaise<TG::NoRawTracerDataLoaded>(orfFile);
  const TGProcessedDataStruct run = tgGetProcessedDataForGroupings(&raw, groupingsFor(grouping));
  if (!writeTraceEventFile(jsonFile, run, info, std::filesystem::path(orfFile).stem().string()))
    tgRaise<TG::WriteFileFailed>(jsonFile);
}

void exportLivePoints(const std::string& jsonFile, const std::string& grouping) {
  if (TempoGauge::instance()->copyRawPoints()->empty()) tgRaise<TG::NoRawTracerData>();
  if (!writeTraceEventFile(jsonFile, grouping)) tgRaise<TG::WriteFileFailed>(jsonFile);
}

}  // namespace

DEFUN_DLD(__tempogauge_export__, args, ,
          "-*- texinfo -*-\n"
          "@deftypefn {} {} __tempogauge_export__ (@var{orffile}, @var{jsonfile}, @var{grouping})\n"
          "Internal: called by @code{tempogauge_export}; an empty @var{orffile} exports the live points.\n"
          "@end deftypefn") {
  if (args.length() != 3) print_usage();
  const std::string orfFile = args(0).xstring_value("__tempogauge_export__: ORFFILE must be text");
  const std::string jsonFile = args(1).xstring_value("__tempogauge_export__: JSONFILE must be text");
  const std::string grouping = args(2).xstring_value("__tempogauge_export__: GROUPING must be text");
  // The error is raised after the C++ exception is gone, so that nothing of
  // the failed call is alive while Octave unwinds.
  std::string errorId, errorText;
  try {
    ORInitialize_tempogauge();
    if (orfFile.empty()) exportLivePoints(jsonFile, grouping);
    else exportSavedTrace(orfFile, jsonFile, grouping);
    return ovl();
  } catch (const hfnd::except::IMsgIDException& e) {
    errorId = e.get_error_id();
    errorText = e.messageText();
  } catch (const UnpairedTraceError&) {
    errorId = "tempogauge:export:Unpaired";
    errorText = "the starts and ends of the phases in " + (orfFile.empty() ? "the live points" : orfFile) +
                " do not pair up; GaugeKit.Tracer.diagnosticReport shows where";
  } catch (const std::exception& e) {
    errorId = "tempogauge:export:Failed";
    errorText = e.what();
  }
  error_with_id(errorId.c_str(), "tempogauge_export: %s", errorText.c_str());
}
