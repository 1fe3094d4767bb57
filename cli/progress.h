// SPDX-License-Identifier: BSD-3-Clause
// Progress of long work, shown on one line of the terminal when standard
// error is one; silent otherwise, so that logs and pipes stay clean.
#pragma once

#include <string_view>

namespace tg::cli {

class Progress {
 public:
  explicit Progress(int totalSteps);
  ~Progress();
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;

  // Starts the next step and shows what it does.
  void step(std::string_view what);

 private:
  int total_;
  int done_ = 0;
  bool terminal_;
};

}  // namespace tg::cli
