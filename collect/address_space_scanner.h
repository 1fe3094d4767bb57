// Walks the process's address space (one pass over /proc/self/maps) and sums
// committed, reserved, free and module regions.
#pragma once

#include <cstdint>
#include <string>

class AddressSpaceScanner {
 public:
  AddressSpaceScanner();
  void scan();

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
};
