// SPDX-License-Identifier: BSD-3-Clause
// The progress line.
#include "cli/progress.h"

#include <unistd.h>

#include <cstdio>
#include <string>

namespace tg::cli {

Progress::Progress(int totalSteps) : total_(totalSteps), terminal_(isatty(STDERR_FILENO) == 1) {}

Progress::~Progress() {
  if (terminal_ && done_ > 0) std::fprintf(stderr, "\r\033[K");
}

void Progress::step(std::string_view what) {
  ++done_;
  if (!terminal_) return;
  const std::string text(what);
  std::fprintf(stderr, "\r\033[K[%d/%d] %s", done_, total_, text.c_str());
  std::fflush(stderr);
}

}  // namespace tg::cli
