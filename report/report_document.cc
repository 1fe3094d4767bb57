// SPDX-License-Identifier: BSD-3-Clause
#include "report/report_document.h"

#include "collect/constants.h"
#include "report/document_fragments.h"
#include "report/page_head.h"
#include "report/report_scripts.h"
#include "report/tab_bars.h"
#include "report/tab_divs.h"

ReportDocument::ReportDocument(ReportFile& file, std::string_view metric, bool isComparison, bool aggregateOnly,
                               bool hasDetailedMemStats)
    : file_(file),
      metric_(metric),
      isComparison_(isComparison),
      aggregateOnly_(aggregateOnly),
      hasDetailedMemStats_(hasDetailedMemStats) {}

template <typename Append>
void ReportDocument::writePiece(Append append) {
  piece_.clear();
  append(piece_);
  file_.write(piece_);
}

void ReportDocument::writeOpening(TempoGauge* store, int maxDepth, std::string_view title) {
  const bool chartDialog = metric_ == tg::kMetricDetailedMemory && hasDetailedMemStats_;
  file_.write(kDoctypeLine);
  file_.write(writePageHead(store, maxDepth, title, isComparison_));
  file_.write(chartDialog ? kBodyWithDialog : kBodyPlain);
  file_.write(kCenterOpen);
  file_.write(writeHeaderTable(isComparison_, metric_, aggregateOnly_));
}

void ReportDocument::writeBodyEnd(bool skipDetail) {
  file_.write(writeScrollDivs(isComparison_, skipDetail));
  file_.write(kBodyClose);
  file_.write(kHtmlClose);
}

void ReportDocument::writeTabScript() {
  writePiece([&](std::string& out) {
    ::writeTabScript(out, metric_, hasDetailedMemStats_, isComparison_, aggregateOnly_);
  });
}

void ReportDocument::writeLibraryScripts(std::string_view lhsName, std::string_view rhsName) {
  writePiece([](std::string& out) { writeSortScript(out); });
  writePiece([&](std::string& out) {
    writeCommonScript(out, metric_, isComparison_, lhsName, rhsName, aggregateOnly_);
  });
}

void ReportDocument::writeAggregateScript() {
  writePiece([&](std::string& out) { ::writeAggregateScript(out, metric_, isComparison_, aggregateOnly_); });
}

void ReportDocument::writeDetailScript() {
  writePiece([&](std::string& out) { ::writeDetailScript(out, metric_, isComparison_); });
}

void ReportDocument::writeCallTreeScript() {
  writePiece([&](std::string& out) { ::writeCallTreeScript(out, metric_); });
}
