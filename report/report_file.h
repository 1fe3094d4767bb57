// The file a report is written to: whole or not at all (see WholeFile). Each
// piece is written at once; the first failed write fails the report, and
// commit() says whether the report reached its place.
#pragma once

#include <span>
#include <string_view>

#include "host/whole_file.h"

class ReportFile {
 public:
  explicit ReportFile(std::string_view path) : file_(path) {}

  bool isOpen() const { return file_.isOpen(); }
  void write(std::string_view piece) { file_.write(piece); }
  // Writes a page that stands in for a report, one line at a time.
  void writeLines(std::span<const std::string_view> lines);
  // Moves the finished report into place; false when any write failed.
  bool commit() { return file_.commit(); }

 private:
  WholeFile file_;
};
