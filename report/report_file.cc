#include "report/report_file.h"

void ReportFile::writeLines(std::span<const std::string_view> lines) {
  for (const auto line : lines) write(line);
}
