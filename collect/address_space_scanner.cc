#include "collect/address_space_scanner.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <charconv>

namespace {

// Top of the user address space on x86-64 (47-bit user addresses).
constexpr std::uint64_t kHighestUserAddress = 0x7fffffffffffull;

// One line of the mapping list: "start-end perms offset dev inode [path]".
struct Mapping {
  std::uint64_t start = 0;
  std::uint64_t end = 0;
  bool noAccess = false;
};

// Parses the line at `at`, moving `at` past it; false at the end or on a line
// that doesn't parse (which is then skipped).
bool nextMapping(const char*& at, const char* end, Mapping& mapping, bool& parsed) {
  if (at >= end) return false;
  const char* lineEnd = std::find(at, end, '\n');
  parsed = false;
  auto r = std::from_chars(at, lineEnd, mapping.start, 16);
  if (r.ec == std::errc() && r.ptr < lineEnd && *r.ptr == '-') {
    r = std::from_chars(r.ptr + 1, lineEnd, mapping.end, 16);
    if (r.ec == std::errc() && lineEnd - r.ptr >= 5 && r.ptr[0] == ' ') {
      const char* perms = r.ptr + 1;
      mapping.noAccess = perms[0] == '-' && perms[1] == '-' && perms[2] == '-';
      parsed = mapping.start < mapping.end;
    }
  }
  at = lineEnd == end ? end : lineEnd + 1;
  return true;
}

}  // namespace

AddressSpaceScanner::AddressSpaceScanner() {
  highestUserAddress = kHighestUserAddress;
  nonProcessBytes = totalAddressSpace - highestUserAddress + 1;  // wraps on purpose
}

std::size_t AddressSpaceScanner::readMappings() {
  const int fd = ::open("/proc/self/maps", O_RDONLY | O_CLOEXEC);
  if (fd < 0) return 0;
  // The buffer is kept between scans and only ever grows.
  if (mapsText_.size() < 65536) mapsText_.resize(65536);
  std::size_t length = 0;
  for (;;) {
    if (length == mapsText_.size()) mapsText_.resize(mapsText_.size() * 2);
    const ssize_t got = ::read(fd, mapsText_.data() + length, mapsText_.size() - length);
    if (got < 0) length = 0;
    if (got <= 0) break;
    length += static_cast<std::size_t>(got);
  }
  ::close(fd);
  return length;
}

void AddressSpaceScanner::scan() {
  commitBytes = reservedBytes = freeBytes = privateBytes = moduleBytes = 0;
  scanLabel.clear();
  const std::size_t length = readMappings();
  if (length == 0) {
    regionCount = 0;
    return;
  }
  modules_.refresh();

  const std::uint64_t top = highestUserAddress + 1;
  std::uint64_t covered = 0;  // everything below has been counted
  std::uint64_t count = 0;
  const std::pair<std::uint64_t, std::uint64_t>* lastSpan = nullptr;
  const char* at = mapsText_.data();
  const char* const end = at + length;
  Mapping mapping;
  bool parsed = false;
  while (nextMapping(at, end, mapping, parsed)) {
    if (!parsed) continue;
    if (mapping.start >= top) break;  // the list is sorted; above lies the kernel's
    // The list is read in pieces and may shift between them: count each
    // address once.
    const std::uint64_t start = std::max(mapping.start, covered);
    const std::uint64_t stop = std::min(mapping.end, top);
    if (start >= stop) continue;
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
    else if (mapping.noAccess)
      reservedBytes += size;
    else
      commitBytes += size;
    covered = stop;
  }
  if (covered < top) {
    freeBytes += top - covered;
    ++count;
  }
  regionCount = count;
  privateBytes = reservedBytes + commitBytes;
}
