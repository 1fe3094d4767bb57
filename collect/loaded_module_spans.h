// SPDX-License-Identifier: BSD-3-Clause
// Address ranges of the objects the dynamic loader has loaded (the program
// and its shared libraries), for telling module mappings from others.
#pragma once

#include <cstdint>
#include <utility>
#include <vector>

class LoadedModuleSpans {
 public:
  // Re-reads the loader's list when objects were loaded or unloaded since
  // the last call; otherwise keeps the spans it has.
  void refresh();

  // The span [first, second) holding `address`, or null.
  const std::pair<std::uint64_t, std::uint64_t>* spanOf(std::uint64_t address) const;

  std::size_t size() const { return spans_.size(); }

 private:
  std::vector<std::pair<std::uint64_t, std::uint64_t>> spans_;  // sorted, page-aligned
  unsigned long long adds_ = 0;
  unsigned long long subs_ = 0;
  bool read_ = false;
};
