#include "report/report_file.h"

#include <string>

ReportFile::ReportFile(std::string_view path) : file_(std::fopen(std::string(path).c_str(), "w+")) {}

void ReportFile::write(std::string_view piece) {
  if (file_ && !piece.empty()) std::fwrite(piece.data(), 1, piece.size(), file_.get());
}

void ReportFile::writeLines(std::span<const std::string_view> lines) {
  for (const auto line : lines) write(line);
}
