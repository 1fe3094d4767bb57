#include "host/level5_check.h"

#include <zlib.h>

#include <array>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <limits>
#include <memory>
#include <vector>

namespace {

using Bytes = std::vector<unsigned char>;

// Element types of the format.
enum : std::uint32_t {
  miINT8 = 1, miUINT8 = 2, miINT16 = 3, miUINT16 = 4, miINT32 = 5, miUINT32 = 6, miSINGLE = 7,
  miDOUBLE = 9, miINT64 = 12, miUINT64 = 13, miMATRIX = 14, miCOMPRESSED = 15, miUTF8 = 16,
  miUTF16 = 17, miUTF32 = 18,
};

// Array classes.
enum : std::uint32_t {
  kCell = 1, kStruct = 2, kObject = 3, kChar = 4, kSparse = 5, kDouble = 6, kUInt64 = 15,
};

constexpr int kMaxDepth = 64;

std::uint64_t typeSize(std::uint32_t type) {
  switch (type) {
    case miINT8: case miUINT8: case miUTF8: return 1;
    case miINT16: case miUINT16: case miUTF16: return 2;
    case miINT32: case miUINT32: case miSINGLE: case miUTF32: return 4;
    case miDOUBLE: case miINT64: case miUINT64: return 8;
    default: return 0;
  }
}

// One tagged element inside [begin, end) of a buffer.
struct Element {
  std::uint32_t type = 0;
  std::uint64_t dataAt = 0;  // offset of the element's data
  std::uint64_t bytes = 0;   // length of its data
  std::uint64_t next = 0;    // offset of the element after it
};

class Reader {
 public:
  Reader(const Bytes& buffer, bool swapped) : b_(buffer), swapped_(swapped) {}

  std::uint32_t word(std::uint64_t at) const {
    const unsigned char* p = b_.data() + at;
    return swapped_ ? (std::uint32_t{p[0]} << 24 | std::uint32_t{p[1]} << 16 | std::uint32_t{p[2]} << 8 | p[3])
                    : (std::uint32_t{p[3]} << 24 | std::uint32_t{p[2]} << 16 | std::uint32_t{p[1]} << 8 | p[0]);
  }

  // Reads the tag at `at`; false when the element does not fit before `end`.
  bool element(std::uint64_t at, std::uint64_t end, Element& e) const {
    if (end > b_.size() || at > end || end - at < 8) return false;
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

  // Checks the array whose miMATRIX content is [at, end).
  bool matrix(std::uint64_t at, std::uint64_t end, int depth) const {
    if (depth > kMaxDepth) return false;
    if (at == end) return true;  // an empty element stands for an empty array
    Element flags, dims, name;
    if (!element(at, end, flags) || flags.type != miUINT32 || flags.bytes < 8) return false;
    const std::uint32_t flagWord = word(flags.dataAt);
    const std::uint32_t cls = flagWord & 0xFF;
    const bool complex = (flagWord & 0x0800) != 0;
    if (!element(flags.next, end, dims) || dims.type != miINT32 || dims.bytes < 8 || dims.bytes % 4 != 0)
      return false;
    std::uint64_t count = 1;
    for (std::uint64_t d = 0; d < dims.bytes / 4; ++d) {
      const std::uint64_t n = word(dims.dataAt + 4 * d);
      if (n > 0x7FFFFFFF) return false;  // a negative dimension
      if (n != 0 && count > std::numeric_limits<std::uint64_t>::max() / n) return false;
      count *= n;
    }
    if (!element(dims.next, end, name) || name.type != miINT8) return false;
    std::uint64_t cursor = name.next;
    switch (cls) {
      case kCell: return children(cursor, end, count, depth);
      case kObject: {
        Element className;
        if (!element(cursor, end, className) || className.type != miINT8) return false;
        cursor = className.next;
        [[fallthrough]];
      }
      case kStruct: {
        Element length, names;
        if (!element(cursor, end, length) || length.type != miINT32 || length.bytes != 4) return false;
        const std::uint64_t nameLength = word(length.dataAt);
        if (!element(length.next, end, names) || names.type != miINT8) return false;
        if (nameLength == 0) return names.bytes == 0 && (count == 0 || children(names.next, end, 0, depth));
        if (names.bytes % nameLength != 0) return false;
        const std::uint64_t fields = names.bytes / nameLength;
        if (fields != 0 && count > std::numeric_limits<std::uint64_t>::max() / fields) return false;
        return children(names.next, end, count * fields, depth);
      }
      case kChar: case kDouble: case 7: case 8: case 9: case 10: case 11: case 12: case 13: case 14: case kUInt64:
        return numeric(cursor, end, count, complex);
      default:
        return true;  // sparse, function handles, opaque: read or skipped as a whole
    }
  }

 private:
  // `count` complete miMATRIX elements, each sound, inside [at, end).
  bool children(std::uint64_t at, std::uint64_t end, std::uint64_t count, int depth) const {
    if (count > (end - at) / 8) return false;  // each needs at least its tag
    for (std::uint64_t i = 0; i < count; ++i) {
      Element child;
      if (!element(at, end, child) || child.type != miMATRIX) return false;
      if (!matrix(child.dataAt, child.dataAt + child.bytes, depth + 1)) return false;
      at = child.next;
    }
    return true;
  }

  // The real (and imaginary) data hold `count` values.
  bool numeric(std::uint64_t at, std::uint64_t end, std::uint64_t count, bool complex) const {
    for (int part = 0; part < (complex ? 2 : 1); ++part) {
      Element data;
      if (at >= end || end - at < 8) return count == 0;  // no data element: only for no values
      if (!element(at, end, data)) return false;
      const std::uint64_t size = typeSize(data.type);
      if (size == 0 || data.bytes / size < count) return false;
      at = data.next;
    }
    return true;
  }

  const Bytes& b_;
  bool swapped_;
};

// Inflates a compressed element; false when the stream is damaged or does
// not hold exactly one whole element.
bool inflateElement(const unsigned char* data, std::uint64_t size, bool swapped, Bytes& out) {
  if (size > std::numeric_limits<uInt>::max()) return false;
  z_stream z{};
  if (inflateInit(&z) != Z_OK) return false;
  const auto cleanup = [&z] { inflateEnd(&z); };
  z.next_in = const_cast<unsigned char*>(data);
  z.avail_in = static_cast<uInt>(size);
  // First the tag, to learn the element's length.
  std::array<unsigned char, 8> tag{};
  z.next_out = tag.data();
  z.avail_out = 8;
  int status = inflate(&z, Z_SYNC_FLUSH);
  if ((status != Z_OK && status != Z_STREAM_END) || z.avail_out != 0) return cleanup(), false;
  const Bytes tagBytes(tag.begin(), tag.end());
  const Reader tagReader(tagBytes, swapped);
  const std::uint64_t length = 8 + std::uint64_t{tagReader.word(4)};
  // zlib cannot expand data more than about 1032 times.
  if (length > size * 1100 + 1024) return cleanup(), false;
  out.assign(length, 0);
  std::copy(tag.begin(), tag.end(), out.begin());
  std::uint64_t filled = 8;
  while (filled < length && status != Z_STREAM_END) {
    const std::uint64_t chunk = std::min<std::uint64_t>(length - filled, 1u << 30);
    z.next_out = out.data() + filled;
    z.avail_out = static_cast<uInt>(chunk);
    status = inflate(&z, Z_SYNC_FLUSH);
    if (status != Z_OK && status != Z_STREAM_END) return cleanup(), false;
    filled += chunk - z.avail_out;
    if (status == Z_OK && z.avail_out != 0 && z.avail_in == 0) break;  // stream cut short
  }
  cleanup();
  return filled == length;
}

}  // namespace

bool tgLevel5FileIsSound(const std::string& path) {
  std::error_code ec;
  if (!std::filesystem::is_regular_file(path, ec)) return false;
  const std::uintmax_t size = std::filesystem::file_size(path, ec);
  if (ec || size < 128) return false;
  std::FILE* f = std::fopen(path.c_str(), "rb");
  if (!f) return false;
  Bytes file(size);
  const std::size_t got = std::fread(file.data(), 1, file.size(), f);
  std::fclose(f);
  if (got != file.size()) return false;
  bool swapped = false;
  if (file[126] == 'I' && file[127] == 'M' && file[124] == 0x00 && file[125] == 0x01) {
    swapped = false;
  } else if (file[126] == 'M' && file[127] == 'I' && file[124] == 0x01 && file[125] == 0x00) {
    swapped = true;
  } else {
    return false;
  }
  const Reader reader(file, swapped);
  std::uint64_t at = 128;
  while (file.size() - at >= 8) {
    Element e;
    if (!reader.element(at, file.size(), e)) return false;
    if (e.type == miCOMPRESSED) {
      Bytes inner;
      if (!inflateElement(file.data() + e.dataAt, e.bytes, swapped, inner)) return false;
      const Reader innerReader(inner, swapped);
      Element m;
      if (!innerReader.element(0, inner.size(), m)) return false;
      if (m.type == miMATRIX && !innerReader.matrix(m.dataAt, m.dataAt + m.bytes, 0)) return false;
      at = e.dataAt + e.bytes;  // compressed elements are not padded
    } else {
      if (e.type == miMATRIX && !reader.matrix(e.dataAt, e.dataAt + e.bytes, 0)) return false;
      at = e.next;
    }
  }
  return true;
}

bool tgLevel5ElementCount(const std::string& path, std::size_t& count) {
  count = 0;
  std::error_code ec;
  if (!std::filesystem::is_regular_file(path, ec)) return false;
  const std::uintmax_t size = std::filesystem::file_size(path, ec);
  if (ec || size < 128) return false;
  std::FILE* f = std::fopen(path.c_str(), "rb");
  if (!f) return false;
  const auto closer = [](std::FILE* file) { std::fclose(file); };
  std::unique_ptr<std::FILE, decltype(closer)> guard(f, closer);
  Bytes header(128);
  if (std::fread(header.data(), 1, header.size(), f) != header.size()) return false;
  if (header[126] != 'I' && header[126] != 'M') return false;
  const Reader reader(header, header[126] == 'M');
  std::uint64_t at = 128;
  while (at < size) {
    if (size - at < 8) return false;
    Bytes tag(8);
    if (std::fseek(f, static_cast<long>(at), SEEK_SET) != 0 || std::fread(tag.data(), 1, 8, f) != 8) return false;
    const Reader tagReader(tag, header[126] == 'M');
    const std::uint32_t type = tagReader.word(0);
    std::uint64_t bytes = tagReader.word(4);
    if (type == miMATRIX) bytes = (bytes + 7) / 8 * 8;
    if (bytes > size - at - 8) return false;
    at += 8 + bytes;
    ++count;
  }
  return at == size;
}
