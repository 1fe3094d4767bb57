// SPDX-License-Identifier: BSD-3-Clause
// The steps that every report document takes, whatever its views: the
// opening up to the header table, the end of the body, the script elements of
// the library and the tab and aggregate scripts. Each driver calls them in its
// own order and writes its views and data between them.
#pragma once

#include <string>
#include <string_view>

#include "report/report_file.h"

class TempoGauge;

class ReportDocument {
 public:
  // `hasDetailedMemStats`: the report's runs have detailed memory samples
  // (both runs, for a comparison).
  ReportDocument(ReportFile& file, std::string_view metric, bool isComparison, bool aggregateOnly,
                 bool hasDetailedMemStats);

  void write(std::string_view piece) { file_.write(piece); }

  // The doctype line, the head, the body element (which follows the mouse for
  // the memory chart's dialog in a "detailedmemory" report), the centered
  // block's opening and the header table with the tab bars.
  void writeOpening(TempoGauge* store, int maxDepth, std::string_view title);
  // The scrollers beside the tables, then the ends of body and document.
  void writeBodyEnd(bool skipDetail);
  // The script element that switches between the views.
  void writeTabScript();
  // The sort script element, then the common library in a script element
  // that stays open for the data and table scripts that follow. The run
  // labels are "none" in single-run reports.
  void writeLibraryScripts(std::string_view lhsName, std::string_view rhsName);
  // The aggregate table's functions; they close the open script element when
  // the report has the aggregate view only.
  void writeAggregateScript();
  // The detail table's functions, which close the open script element.
  void writeDetailScript();
  // The script element of the call tree table.
  void writeCallTreeScript();

 private:
  // Writes what `append` appends to the reused piece buffer.
  template <typename Append>
  void writePiece(Append append);

  ReportFile& file_;
  std::string_view metric_;
  bool isComparison_;
  bool aggregateOnly_;
  bool hasDetailedMemStats_;
  std::string piece_;
};
