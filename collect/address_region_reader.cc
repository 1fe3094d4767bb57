// SPDX-License-Identifier: BSD-3-Clause
#include "collect/address_region_reader.h"

#include <fcntl.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <charconv>

namespace {

// The region query of /proc/<pid>/maps (Linux 6.11 on). Declared here because
// older kernel headers lack it; the layout is part of the kernel's ABI.
struct ProcmapQuery {
  std::uint64_t size;
  std::uint64_t query_flags;
  std::uint64_t query_addr;
  std::uint64_t vma_start;
  std::uint64_t vma_end;
  std::uint64_t vma_flags;
  std::uint64_t vma_page_size;
  std::uint64_t vma_offset;
  std::uint64_t inode;
  std::uint32_t dev_major;
  std::uint32_t dev_minor;
  std::uint32_t vma_name_size;
  std::uint32_t build_id_size;
  std::uint64_t vma_name_addr;
  std::uint64_t build_id_addr;
};
constexpr unsigned long kProcmapQuery = _IOWR('f', 17, ProcmapQuery);
constexpr std::uint64_t kReadable = 0x01;
constexpr std::uint64_t kWritable = 0x02;
constexpr std::uint64_t kExecutable = 0x04;
constexpr std::uint64_t kCoveringOrNext = 0x10;

// Closes a descriptor when the scope ends.
struct FileDescriptor {
  explicit FileDescriptor(int value) : fd(value) {}
  ~FileDescriptor() {
    if (fd >= 0) ::close(fd);
  }
  FileDescriptor(const FileDescriptor&) = delete;
  FileDescriptor& operator=(const FileDescriptor&) = delete;
  int fd;
};

// Parses "start-end perms ..." at `at`; false for a line that doesn't parse.
bool parseLine(const char* at, const char* lineEnd, AddressRegion& region) {
  auto r = std::from_chars(at, lineEnd, region.start, 16);
  if (r.ec != std::errc() || r.ptr == lineEnd || *r.ptr != '-') return false;
  r = std::from_chars(r.ptr + 1, lineEnd, region.end, 16);
  if (r.ec != std::errc() || lineEnd - r.ptr < 5 || r.ptr[0] != ' ') return false;
  const char* perms = r.ptr + 1;
  region.noAccess = perms[0] == '-' && perms[1] == '-' && perms[2] == '-';
  return region.start < region.end;
}

}  // namespace

bool AddressRegionReader::forEach(const std::function<void(const AddressRegion&)>& visit) {
  const FileDescriptor maps(::open("/proc/self/maps", O_RDONLY | O_CLOEXEC));
  if (maps.fd < 0) return false;
  if (method_ != Method::Text) {
    const int result = walkByQuery(maps.fd, visit);
    if (result >= 0) {
      method_ = Method::Query;
      return result == 1;
    }
    method_ = Method::Text;
  }
  return walkText(maps.fd, visit);
}

int AddressRegionReader::walkByQuery(int fd, const std::function<void(const AddressRegion&)>& visit) {
  std::uint64_t address = 0;
  for (bool first = true;; first = false) {
    ProcmapQuery query{};
    query.size = sizeof query;
    query.query_flags = kCoveringOrNext;
    query.query_addr = address;
    if (::ioctl(fd, kProcmapQuery, &query) != 0) {
      if (errno == ENOENT) return first ? 0 : 1;  // no mapping at or above the address
      return first && (errno == ENOTTY || errno == EINVAL || errno == EOPNOTSUPP) ? -1 : 0;
    }
    if (query.vma_end <= address) return 1;  // guards against a kernel that doesn't move on
    const AddressRegion region{query.vma_start, query.vma_end,
                               (query.vma_flags & (kReadable | kWritable | kExecutable)) == 0};
    visit(region);
    address = query.vma_end;
  }
}

bool AddressRegionReader::walkText(int fd, const std::function<void(const AddressRegion&)>& visit) {
  // The buffer is kept between walks and only ever grows.
  if (text_.size() < 65536) text_.resize(65536);
  std::size_t length = 0;
  for (;;) {
    if (length == text_.size()) text_.resize(text_.size() * 2);
    const ssize_t got = ::read(fd, text_.data() + length, text_.size() - length);
    if (got < 0) return false;
    if (got == 0) break;
    length += static_cast<std::size_t>(got);
  }
  if (length == 0) return false;
  const char* at = text_.data();
  const char* const end = at + length;
  while (at < end) {
    const char* lineEnd = std::find(at, end, '\n');
    if (AddressRegion region; parseLine(at, lineEnd, region)) visit(region);
    at = lineEnd == end ? end : lineEnd + 1;
  }
  return true;
}
