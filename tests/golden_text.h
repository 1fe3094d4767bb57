// Golden texts: emitted text compared with a section of a file under
// tests/golden/. A section is a header line "==== <name> (<size> bytes)"
// followed by exactly that many bytes and a line feed, so any text,
// trailing blanks and line feeds included, is kept exactly.
//
// TG_UPDATE_GOLDEN=1 writes the emitted text into the file instead; review
// the change with git diff before committing it.
#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tgtest {

class GoldenFile {
 public:
  explicit GoldenFile(std::string_view name)
      : path_(std::filesystem::path(__FILE__).parent_path() / "golden" / (std::string(name) + ".txt")) {
    std::ifstream in(path_, std::ios::binary);
    std::ostringstream all;
    all << in.rdbuf();
    const std::string text = all.str();
    for (std::size_t at = 0; at < text.size();) {
      const std::size_t eol = text.find('\n', at);
      const std::string header = text.substr(at, eol - at);
      const std::size_t open = header.rfind(" (");
      if (eol == std::string::npos || !header.starts_with("==== ") || open == std::string::npos) break;
      const std::size_t size = std::stoul(header.substr(open + 2));
      sections_.emplace_back(header.substr(5, open - 5), text.substr(eol + 1, size));
      at = eol + 1 + size + 1;
    }
  }

  // The section `name` holds `text`.
  void expect(const std::string& name, const std::string& text) {
    if (const char* update = std::getenv("TG_UPDATE_GOLDEN"); update && *update) {
      record(name, text);
      return;
    }
    for (const auto& [section, golden] : sections_) {
      if (section == name) {
        EXPECT_EQ(text, golden) << "golden section '" << name << "' of " << path_;
        return;
      }
    }
    ADD_FAILURE() << "no section '" << name << "' in " << path_ << " (TG_UPDATE_GOLDEN=1 writes it)";
  }

 private:
  void record(const std::string& name, const std::string& text) {
    bool found = false;
    for (auto& [section, golden] : sections_) {
      if (section == name) golden = text, found = true;
    }
    if (!found) sections_.emplace_back(name, text);
    std::filesystem::create_directories(path_.parent_path());
    std::ofstream out(path_, std::ios::binary);
    for (const auto& [section, golden] : sections_)
      out << "==== " << section << " (" << golden.size() << " bytes)\n" << golden << "\n";
  }

  std::filesystem::path path_;
  std::vector<std::pair<std::string, std::string>> sections_;
};

}  // namespace tgtest
