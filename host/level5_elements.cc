// SPDX-License-Identifier: BSD-3-Clause
#include "host/level5_elements.h"

#include <sys/mman.h>

#include <new>

#include <limits>
#include <utility>

namespace tg::level5 {

std::uint64_t typeSize(std::uint32_t type) {
  switch (type) {
    case miINT8: case miUINT8: case miUTF8: return 1;
    case miINT16: case miUINT16: case miUTF16: return 2;
    case miINT32: case miUINT32: case miSINGLE: case miUTF32: return 4;
    case miDOUBLE: case miINT64: case miUINT64: return 8;
    default: return 0;
  }
}

namespace {

template <class T>
T load(const unsigned char* p, bool swapped) {
  unsigned char raw[sizeof(T)];
  std::memcpy(raw, p, sizeof(T));
  if (swapped)
    for (std::size_t i = 0; i < sizeof(T) / 2; ++i) std::swap(raw[i], raw[sizeof(T) - 1 - i]);
  T v;
  std::memcpy(&v, raw, sizeof(T));
  return v;
}

}  // namespace

double Reader::value(std::uint32_t type, std::uint64_t at) const {
  const unsigned char* p = b_ + at;
  switch (type) {
    case miINT8: return static_cast<std::int8_t>(*p);
    case miUINT8: case miUTF8: return *p;
    case miINT16: return load<std::int16_t>(p, swapped_);
    case miUINT16: case miUTF16: return load<std::uint16_t>(p, swapped_);
    case miINT32: return load<std::int32_t>(p, swapped_);
    case miUINT32: case miUTF32: return load<std::uint32_t>(p, swapped_);
    case miSINGLE: return load<float>(p, swapped_);
    case miDOUBLE: return load<double>(p, swapped_);
    case miINT64: return static_cast<double>(load<std::int64_t>(p, swapped_));
    case miUINT64: return static_cast<double>(load<std::uint64_t>(p, swapped_));
    default: return 0.0;
  }
}

bool Reader::element(std::uint64_t at, std::uint64_t end, Element& e) const {
  if (end > size_ || at > end || end - at < 8) return false;
  const std::uint32_t first = word(at);
  if ((first >> 16) != 0) {  // small element: type and length share one word, data in the next
    e.type = first & 0xFFFF;
    e.bytes = first >> 16;
    if (e.bytes > 4) return false;
    e.dataAt = at + 4;
    e.next = at + 8;
    return true;
  }
  e.type = first;
  e.bytes = word(at + 4);
  e.dataAt = at + 8;
  if (e.bytes > end - e.dataAt) return false;
  const std::uint64_t padded = (e.bytes + 7) / 8 * 8;
  e.next = padded <= end - e.dataAt ? e.dataAt + padded : end;
  return true;
}

bool readArrayHead(const Reader& r, std::uint64_t at, std::uint64_t end, ArrayHead& head) {
  Element flags, dims;
  if (!r.element(at, end, flags) || flags.type != miUINT32 || flags.bytes < 8) return false;
  const std::uint32_t flagWord = r.word(flags.dataAt);
  head.cls = flagWord & 0xFF;
  head.flags = flagWord & 0xFF00;
  if (!r.element(flags.next, end, dims) || dims.type != miINT32 || dims.bytes < 8 || dims.bytes % 4 != 0)
    return false;
  head.dims.clear();
  head.count = 1;
  for (std::uint64_t d = 0; d < dims.bytes / 4; ++d) {
    const std::uint64_t n = r.word(dims.dataAt + 4 * d);
    if (n > 0x7FFFFFFF) return false;  // a negative dimension
    if (n != 0 && head.count > std::numeric_limits<std::uint64_t>::max() / n) return false;
    head.count *= n;
    head.dims.push_back(n);
  }
  if (!r.element(dims.next, end, head.name) || head.name.type != miINT8) return false;
  head.rest = head.name.next;
  return true;
}

bool level5Header(const unsigned char* h, bool& swapped) {
  if (h[126] == 'I' && h[127] == 'M' && h[124] == 0x00 && h[125] == 0x01) {
    swapped = false;
    return true;
  }
  if (h[126] == 'M' && h[127] == 'I' && h[124] == 0x01 && h[125] == 0x00) {
    swapped = true;
    return true;
  }
  return false;
}

namespace {
constexpr std::size_t kMappedBuffer = std::size_t{16} << 20;
}  // namespace

void* allocateBytes(std::size_t bytes) {
  if (bytes < kMappedBuffer) return ::operator new(bytes);
  void* p = ::mmap(nullptr, bytes, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
  if (p == MAP_FAILED) throw std::bad_alloc();
  ::madvise(p, bytes, MADV_HUGEPAGE);  // a hint; without it the buffer works as well
  return p;
}

void deallocateBytes(void* p, std::size_t bytes) noexcept {
  if (bytes < kMappedBuffer) ::operator delete(p);
  else ::munmap(p, bytes);
}

}  // namespace tg::level5
