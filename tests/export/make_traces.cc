// SPDX-License-Identifier: BSD-3-Clause
// Writes the saved traces that the viewer test exports and opens:
// nested.orf and unpaired.orf in the directory given.
#include <filesystem>
#include <iostream>

#include "export/export_traces.h"
#include "tempogauge/tempogauge.h"

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: tg_make_traces DIR\n";
    return 2;
  }
  const std::filesystem::path dir = argv[1];
  std::filesystem::create_directories(dir);
  saveTraceFile((dir / "nested.orf").string(), tgtest::nestedTrace());
  saveTraceFile((dir / "unpaired.orf").string(), tgtest::unpairedTrace());
  return 0;
}
