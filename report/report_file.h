// The file a report is written to: opened with "w+" (so an old report is
// truncated first) and closed when the object goes out of scope. Each piece is
// written at once; like the report text itself, write results are not checked.
#pragma once

#include <cstdio>
#include <memory>
#include <span>
#include <string_view>

class ReportFile {
 public:
  explicit ReportFile(std::string_view path);

  bool isOpen() const { return file_ != nullptr; }
  void write(std::string_view piece);
  // Writes a page that stands in for a report, one line at a time.
  void writeLines(std::span<const std::string_view> lines);

 private:
  struct Closer {
    void operator()(std::FILE* file) const { std::fclose(file); }
  };
  std::unique_ptr<std::FILE, Closer> file_;
};
