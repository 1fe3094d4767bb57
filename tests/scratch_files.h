// SPDX-License-Identifier: BSD-3-Clause
// Files for tests: a scratch folder of the running test that goes when the
// test ends, whole-file reading, and counting in text.
#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <string_view>

namespace tgtest {

class ScratchDir {
 public:
  explicit ScratchDir(std::string_view prefix = "tg_test") {
    const auto* info = ::testing::UnitTest::GetInstance()->current_test_info();
    dir_ = std::filesystem::temp_directory_path() /
           (std::string(prefix) + "_" + std::to_string(::getpid()) + "_" + (info ? info->name() : "none") + "_" +
            std::to_string(++count()));
    std::filesystem::remove_all(dir_);
    std::filesystem::create_directories(dir_);
  }
  ~ScratchDir() {
    std::error_code ignored;
    std::filesystem::remove_all(dir_, ignored);
  }
  ScratchDir(const ScratchDir&) = delete;
  ScratchDir& operator=(const ScratchDir&) = delete;

  const std::filesystem::path& dir() const { return dir_; }
  std::string path(std::string_view name) const { return (dir_ / name).string(); }

 private:
  static int& count() {
    static int n = 0;
    return n;
  }
  std::filesystem::path dir_;
};

inline std::string readFile(const std::filesystem::path& path) {
  std::ifstream in(path, std::ios::binary);
  std::ostringstream text;
  text << in.rdbuf();
  return text.str();
}

inline std::size_t countOf(std::string_view text, std::string_view what) {
  std::size_t count = 0;
  for (auto pos = text.find(what); pos != std::string_view::npos; pos = text.find(what, pos + what.size())) ++count;
  return count;
}

// Each of `present` is in the text, and none of `absent`.
inline void expectHas(std::string_view text, std::initializer_list<std::string_view> present,
                      std::initializer_list<std::string_view> absent = {}) {
  for (const auto what : present) EXPECT_NE(text.find(what), std::string_view::npos) << "'" << what << "' is missing";
  for (const auto what : absent) EXPECT_EQ(text.find(what), std::string_view::npos) << "'" << what << "' is there";
}

// Each marker is found in the text, and after the one before it.
inline void expectInOrder(std::string_view text, std::initializer_list<std::string_view> markers) {
  std::size_t last = 0;
  std::string_view previous = "the start";
  for (const auto marker : markers) {
    const auto pos = text.find(marker, last);
    ASSERT_NE(pos, std::string_view::npos) << "'" << marker << "' is missing after '" << previous << "'";
    last = pos + marker.size();
    previous = marker;
  }
}

}  // namespace tgtest
