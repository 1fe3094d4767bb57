#include "collect/address_space_scanner.h"

AddressSpaceScanner::AddressSpaceScanner() {
  // Top of the user address space on x86-64.
  highestUserAddress = 0x7fffffffffffull;
  nonProcessBytes = totalAddressSpace - highestUserAddress + 1;  // wraps on purpose
}
