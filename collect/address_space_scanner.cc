// SPDX-License-Identifier: BSD-3-Clause
#include "collect/address_space_scanner.h"

#include <algorithm>

namespace {

// Top of the user address space on x86-64 (47-bit user addresses).
constexpr std::uint64_t kHighestUserAddress = 0x7fffffffffffull;

}  // namespace

AddressSpaceScanner::AddressSpaceScanner() {
  highestUserAddress = kHighestUserAddress;
  nonProcessBytes = totalAddressSpace - highestUserAddress + 1;  // wraps on purpose
}

void AddressSpaceScanner::scan() {
  commitBytes = reservedBytes = freeBytes = privateBytes = moduleBytes = 0;
  scanLabel.clear();
  modules_.refresh();

  const std::uint64_t top = highestUserAddress + 1;
  std::uint64_t covered = 0;  // every address below has been counted
  std::uint64_t count = 0;
  const std::pair<std::uint64_t, std::uint64_t>* lastSpan = nullptr;
  const bool walked = regions_.forEach([&](const AddressRegion& region) {
    // Above the user space lies the kernel's. The list may also shift while
    // it is read: count each address once.
    const std::uint64_t start = std::max(region.start, covered);
    const std::uint64_t stop = std::min(region.end, top);
    if (start >= stop) return;
    if (start > covered) {
      freeBytes += start - covered;
      ++count;
    }
    ++count;
    // The module test is reused while the mappings stay in one object's image.
    if (!lastSpan || start < lastSpan->first || start >= lastSpan->second) lastSpan = modules_.spanOf(start);
    const std::uint64_t size = stop - start;
    if (lastSpan)
      moduleBytes += size;
    else if (region.noAccess)
      reservedBytes += size;
    else
      commitBytes += size;
    covered = stop;
  });
  if (!walked) {
    commitBytes = reservedBytes = freeBytes = moduleBytes = 0;
    regionCount = 0;
    privateBytes = 0;
    return;
  }
  if (covered < top) {
    freeBytes += top - covered;
    ++count;
  }
  regionCount = count;
  privateBytes = reservedBytes + commitBytes;
}
