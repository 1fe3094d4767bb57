// SPDX-License-Identifier: BSD-3-Clause
// The building blocks of level-5 data files: element types, array classes,
// and a bounds-checked reader of tagged elements in a byte buffer, for
// either byte order.
#pragma once

#include <boost/container/small_vector.hpp>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <vector>

namespace tg::level5 {

void* allocateBytes(std::size_t bytes);
void deallocateBytes(void* p, std::size_t bytes) noexcept;

// The allocator of byte buffers: buffers of many megabytes (the inflated
// rows of a long trace run to a gigabyte) are mapped with transparent huge
// pages, so that filling them takes a page fault per 2 MiB, not per 4 KiB.
template <class T>
struct BufferAllocator {
  using value_type = T;
  BufferAllocator() = default;
  template <class U>
  BufferAllocator(const BufferAllocator<U>&) noexcept {}
  T* allocate(std::size_t n) { return static_cast<T*>(allocateBytes(n * sizeof(T))); }
  void deallocate(T* p, std::size_t n) noexcept { deallocateBytes(p, n * sizeof(T)); }
  friend bool operator==(const BufferAllocator&, const BufferAllocator&) { return true; }
  friend bool operator!=(const BufferAllocator&, const BufferAllocator&) { return false; }
};
using Bytes = std::vector<unsigned char, BufferAllocator<unsigned char>>;

// Element types.
enum : std::uint32_t {
  miINT8 = 1, miUINT8 = 2, miINT16 = 3, miUINT16 = 4, miINT32 = 5, miUINT32 = 6, miSINGLE = 7,
  miDOUBLE = 9, miINT64 = 12, miUINT64 = 13, miMATRIX = 14, miCOMPRESSED = 15, miUTF8 = 16,
  miUTF16 = 17, miUTF32 = 18,
};

// Array classes.
enum : std::uint32_t {
  mxCELL = 1, mxSTRUCT = 2, mxOBJECT = 3, mxCHAR = 4, mxSPARSE = 5, mxDOUBLE = 6, mxSINGLE = 7,
  mxINT8 = 8, mxUINT8 = 9, mxINT16 = 10, mxUINT16 = 11, mxINT32 = 12, mxUINT32 = 13, mxINT64 = 14,
  mxUINT64 = 15,
};

// Array flag bits.
inline constexpr std::uint32_t kLogicalFlag = 0x0200;
inline constexpr std::uint32_t kComplexFlag = 0x0800;

// Nesting beyond this depth is refused: it only comes from damaged files.
inline constexpr int kMaxDepth = 64;

// Bytes per value of an element type; 0 for types that hold no plain values.
std::uint64_t typeSize(std::uint32_t type);

// One tagged element.
struct Element {
  std::uint32_t type = 0;
  std::uint64_t dataAt = 0;  // offset of the element's data
  std::uint64_t bytes = 0;   // length of its data
  std::uint64_t next = 0;    // offset of the element after it
};

class Reader {
 public:
  Reader(const unsigned char* data, std::uint64_t size, bool swapped) : b_(data), size_(size), swapped_(swapped) {}
  Reader(const Bytes& buffer, bool swapped) : Reader(buffer.data(), buffer.size(), swapped) {}

  std::uint64_t size() const { return size_; }
  const unsigned char* data() const { return b_; }
  bool swapped() const { return swapped_; }

  std::uint32_t word(std::uint64_t at) const {
    std::uint32_t v;
    std::memcpy(&v, b_ + at, 4);
    return swapped_ ? __builtin_bswap32(v) : v;
  }

  // The value at `at` of a plain element type, as a double.
  double value(std::uint32_t type, std::uint64_t at) const;

  // Reads the tag at `at`; false when the element does not fit before `end`.
  bool element(std::uint64_t at, std::uint64_t end, Element& e) const;

 private:
  const unsigned char* b_;
  std::uint64_t size_;
  bool swapped_;
};

// The parts every array element starts with.
struct ArrayHead {
  std::uint32_t cls = 0;
  std::uint32_t flags = 0;
  // Inline for the common two dimensions: a file of a million rows holds
  // seventeen million arrays, each checked and read.
  boost::container::small_vector<std::uint64_t, 4> dims;
  std::uint64_t count = 0;  // product of the dimensions
  Element name;
  std::uint64_t rest = 0;  // offset of the class's own parts
};

// Reads the head of the array whose miMATRIX content is [at, end); false
// when it is damaged (missing parts, negative or overflowing dimensions).
bool readArrayHead(const Reader& r, std::uint64_t at, std::uint64_t end, ArrayHead& head);

// True when the file header at the start of `header` (128 bytes) marks a
// level-5 file; sets `swapped` for a file written in the other byte order.
bool level5Header(const unsigned char* header, bool& swapped);

}  // namespace tg::level5
