// SPDX-License-Identifier: BSD-3-Clause
// Walks the process's address space (one pass over its mappings) and sums
// committed, reserved, free and module regions.
//
// A mapping without access rights is reserved, any other mapping committed; a
// hole between mappings below the top of the user address space is free; a
// mapping inside the image of an object the dynamic loader has loaded counts
// as module memory, committed and reserved alike.
#pragma once

#include <cstdint>
#include <string>

#include "collect/address_region_reader.h"
#include "collect/loaded_module_spans.h"

class AddressSpaceScanner {
 public:
  AddressSpaceScanner();
  // Refills the sums. When the walk can't be read, all sums and the region
  // count are 0.
  void scan();

  // Kept at 32 bits on purpose: nonProcessBytes wraps below.
  std::uint64_t totalAddressSpace = 0xFFFFFFFFull;
  std::uint64_t commitBytes = 0;
  std::uint64_t reservedBytes = 0;
  std::uint64_t freeBytes = 0;
  std::uint64_t privateBytes = 0;
  std::uint64_t moduleBytes = 0;
  std::uint64_t nonProcessBytes = 0;
  std::uint64_t regionCount = 0;
  std::string scanLabel;
  std::uint64_t highestUserAddress = 0;  // the platform's system information block

 private:
  AddressRegionReader regions_;
  LoadedModuleSpans modules_;
};
