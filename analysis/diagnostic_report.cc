#include "analysis/diagnostic_report.h"


#include "collect/constants.h"
#include "collect/tempo_gauge.h"
#include "host/whole_file.h"

namespace {

std::string headerRow(std::int32_t mode) {
  std::string out =
      "            <tr>\n"
      "                <th>Point Type</th>\n"
      "                <th>Grouping</th>\n";
  if (mode > 0) {
    out +=
        "                <th>Model</th>\n"
        "                <th>Target</th>\n";
  }
  if (mode > 1) {
    out +=
        "                <th>Machine</th>\n"
        "                <th>Chart</th>\n";
  }
  out +=
      "                <th>Phase Name</th>\n"
      "                <th>isPhaseStart</th>\n"
      "                <th>WC Time</th>\n"
      "                <th>CPU Time</th>\n"
      "                <th>Free</th>\n"
      "                <th>Committed</th>\n"
      "                <th>Reserved</th>\n"
      "                <th>DLLs</th>\n"
      "                <th>Non-process</th>\n"
      "            </tr>\n";
  return out;
}

}  // namespace

std::int32_t diagnosticColumns(const TempoGauge* tracer, const RawPointVector* raw, std::string_view groupingName) {
  std::int32_t mode = 0;
  if (!raw) return mode;
  const bool isGlobal = groupingName == tg::kGlobalGrouping;
  const std::int32_t groupingId = tracer ? tracer->findId(tg::kGroupingKind, groupingName) : -1;
  for (const auto& point : *raw) {
    if (mode >= 2) break;
    if (!point) continue;
    if (point->pointType > mode && (isGlobal || point->groupingId == groupingId)) mode = point->pointType;
  }
  return mode;
}

std::int32_t walkForDiagnostic(TempoGauge* /*tracer*/, RawPointVector* raw, std::string_view groupingName,
                               RawToProcessedMap& map, TGProcessedDataStruct& result) {
  result.maxDepth = 0;
  if (!raw || raw->empty()) return 1;
  // The walk of the pairing, selecting by the one name, with these changes:
  // phases left open don't count as a failed walk, and the totals' copies stay
  // 0. With an empty stack a long interval inserts no gap: the point is
  // handled as usual, so the walk always moves on.
  const PairingWalkSettings settings{selectByGroupings({std::string(groupingName)}), &map, false};
  const bool leftOpen = walkRawPoints(*raw, settings, result);
  result.topWCTotalCopy = 0.0;
  result.topCPUTotalCopy = 0.0;
  return leftOpen ? 1 : 0;
}

bool writeDiagnosticReport(TempoGauge* tracer, const std::string& path, std::string_view groupingName,
                           RawPointVector* raw) {
  WholeFile file(path);
  if (!file.isOpen()) return false;
  const std::int32_t mode = diagnosticColumns(tracer, raw, groupingName);
  RawToProcessedMap map;
  TGProcessedDataStruct result;
  walkForDiagnostic(tracer, raw, groupingName, map, result);

  std::string text =
      "<html>\n"
      "    <body style=\"font-family:Courier New\">\n"
      "        <table border=\"1\" cellspacing=\"0\" width=\"1600px\">\n";
  text += headerRow(mode);
  if (raw) {
    for (const auto& point : *raw) {
      if (!point) continue;
      const auto found = map.find(point.get());
      // Points the walk didn't select have no row; gap points are hidden, so
      // the table shows only what was really logged.
      if (found == map.end() || !found->second || found->second->isGapRow()) continue;
      text += point->writeDiagnosticRow(mode, found->second);
      if (text.size() > (1u << 20)) {
        if (!file.write(text)) return false;
        text.clear();
      }
    }
  }
  text +=
      "        </table>\n"
      "    </body>\n"
      "</html>\n";
  file.write(text);
  return file.commit();
}
