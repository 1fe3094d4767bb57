#include "host/level5_check.h"

#include <libdeflate.h>
#include <zlib.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <cstdio>
#include <filesystem>
#include <limits>
#include <memory>

namespace tg::level5 {

namespace {

// `count` complete miMATRIX elements, each sound, inside [at, end).
bool checkChildren(const Reader& r, std::uint64_t at, std::uint64_t end, std::uint64_t count, int depth) {
  if (at > end || count > (end - at) / 8) return false;  // each needs at least its tag
  for (std::uint64_t i = 0; i < count; ++i) {
    Element child;
    if (!r.element(at, end, child) || child.type != miMATRIX) return false;
    if (!checkArray(r, child.dataAt, child.dataAt + child.bytes, depth + 1)) return false;
    at = child.next;
  }
  return true;
}

// The real (and imaginary) data hold `count` values.
bool checkNumeric(const Reader& r, std::uint64_t at, std::uint64_t end, std::uint64_t count, bool complex) {
  for (int part = 0; part < (complex ? 2 : 1); ++part) {
    if (at >= end || end - at < 8) return count == 0;  // no data element: only for no values
    Element data;
    if (!r.element(at, end, data)) return false;
    const std::uint64_t size = typeSize(data.type);
    if (size == 0 || data.bytes / size < count) return false;
    at = data.next;
  }
  return true;
}

// A top-level element may state a length up to this many bytes beyond its
// data: less than one 8-byte unit, which covers Octave's overstatement of four.
constexpr std::uint64_t kLengthSlack = 7;

// Sets the length in the tag at the start of `element` to its real content.
void restateLength(Bytes& element, bool swapped) {
  std::uint32_t length = static_cast<std::uint32_t>(element.size() - 8);
  if (swapped) length = __builtin_bswap32(length);
  std::memcpy(element.data() + 4, &length, 4);
}

// Reads up to `size` bytes of `file` into `out` (appending); false on a read
// error or when the file ends first.
bool readBytes(std::FILE* file, std::uint64_t size, Bytes& out) {
  const std::size_t at = out.size();
  out.resize(at + size);
  return std::fread(out.data() + at, 1, size, file) == size;
}

// zlib cannot expand data more than about 1032 times.
bool plausibleLength(std::uint64_t length, std::uint64_t compressed) { return length <= compressed * 1100 + 1024; }

// The element length that the tag at the start of the zlib stream `in`
// states (tag included); 0 when the stream does not begin with a whole tag.
std::uint64_t statedLength(const unsigned char* in, std::size_t size, bool swapped, Bytes* head = nullptr,
                           std::size_t headBytes = 8) {
  std::array<unsigned char, 8> tag{};
  Bytes local(std::max<std::size_t>(headBytes, 8));
  z_stream z{};
  if (inflateInit(&z) != Z_OK) return 0;
  z.next_in = const_cast<unsigned char*>(in);
  z.avail_in = static_cast<uInt>(std::min<std::uint64_t>(size, 1u << 30));
  z.next_out = local.data();
  z.avail_out = static_cast<uInt>(local.size());
  int status = Z_OK;
  while (z.avail_out != 0 && status == Z_OK) status = inflate(&z, Z_SYNC_FLUSH);
  inflateEnd(&z);
  const std::size_t got = local.size() - z.avail_out;
  if ((status != Z_OK && status != Z_STREAM_END && status != Z_BUF_ERROR) || got < 8) return 0;
  std::memcpy(tag.data(), local.data(), 8);
  if (head) {
    local.resize(got);
    *head = std::move(local);
  }
  return 8 + std::uint64_t{Reader(tag.data(), tag.size(), swapped).word(4)};
}

// Inflates the whole zlib stream `in` in one call of libdeflate, several
// times as fast as zlib's stream, when it holds exactly the element its tag
// states; false for anything else.
bool inflateWhole(const unsigned char* in, std::size_t size, bool swapped, Bytes& out) {
  const std::uint64_t length = statedLength(in, size, swapped);
  if (length == 0 || !plausibleLength(length, size)) return false;
  const std::unique_ptr<libdeflate_decompressor, void (*)(libdeflate_decompressor*)> inflater(
      libdeflate_alloc_decompressor(), &libdeflate_free_decompressor);
  if (!inflater) return false;
  out.resize(length);
  std::size_t produced = 0;
  if (libdeflate_zlib_decompress(inflater.get(), in, size, out.data(), length, &produced) != LIBDEFLATE_SUCCESS ||
      produced != length) {
    out.clear();
    return false;
  }
  return true;
}

// inflateWhole of the element of `size` bytes at the reading position of
// `file`; on false the file is back at that position.
bool inflateWhole(std::FILE* file, std::uint64_t size, bool swapped, Bytes& out) {
  const long at = std::ftell(file);
  if (at < 0) return false;
  Bytes in(size);
  if (std::fread(in.data(), 1, size, file) == size && inflateWhole(in.data(), in.size(), swapped, out)) return true;
  std::fseek(file, at, SEEK_SET);
  return false;
}

// Inflates the compressed element of `size` bytes at the reading position of
// `file`, reading it a piece at a time, so that memory follows the element's
// inflated size, not the file's; false when the stream is damaged or does not
// hold one whole element (give or take the slack of its stated length).
bool inflateElement(std::FILE* file, std::uint64_t size, bool swapped, Bytes& out) {
  if (inflateWhole(file, size, swapped, out)) return true;
  z_stream z{};
  if (inflateInit(&z) != Z_OK) return false;
  const std::unique_ptr<z_stream, int (*)(z_stream*)> guard(&z, &inflateEnd);
  std::vector<unsigned char> in(std::min<std::uint64_t>(size, 1u << 20));
  std::uint64_t unread = size;
  // Feeds the next piece of the compressed data when zlib has used the last.
  const auto feed = [&] {
    if (z.avail_in != 0 || unread == 0) return true;
    const std::size_t piece = std::min<std::uint64_t>(unread, in.size());
    if (std::fread(in.data(), 1, piece, file) != piece) return false;
    unread -= piece;
    z.next_in = in.data();
    z.avail_in = static_cast<uInt>(piece);
    return true;
  };
  // First the tag, to learn the element's length.
  std::array<unsigned char, 8> tag{};
  z.next_out = tag.data();
  z.avail_out = 8;
  int status = Z_OK;
  while (z.avail_out != 0 && status == Z_OK) {
    if (!feed()) return false;
    if (z.avail_in == 0) break;
    status = inflate(&z, Z_SYNC_FLUSH);
  }
  if ((status != Z_OK && status != Z_STREAM_END) || z.avail_out != 0) return false;
  const Reader tagReader(tag.data(), tag.size(), swapped);
  const std::uint64_t length = 8 + std::uint64_t{tagReader.word(4)};
  if (!plausibleLength(length, size)) return false;
  out.assign(tag.begin(), tag.end());
  // The buffer grows with what comes out, not with what the tag claims.
  std::uint64_t filled = 8;
  while (filled < length && status != Z_STREAM_END) {
    if (!feed()) return false;
    if (z.avail_in == 0) break;  // stream cut short
    const std::uint64_t room = std::min<std::uint64_t>(length - filled, std::max<std::uint64_t>(filled, 1u << 20));
    out.resize(filled + room);
    z.next_out = out.data() + filled;
    z.avail_out = static_cast<uInt>(room);
    while (z.avail_out != 0 && status == Z_OK) {
      if (!feed()) return false;
      if (z.avail_in == 0) break;
      status = inflate(&z, Z_SYNC_FLUSH);
    }
    if (status != Z_OK && status != Z_STREAM_END) return false;
    filled += room - z.avail_out;
  }
  // The stream must also end whole, its checksum matching: damage in its
  // last bytes leaves the element's bytes as stated but fails the check.
  std::array<unsigned char, 4096> sink{};
  while (status == Z_OK) {
    if (!feed()) return false;
    if (z.avail_in == 0) return false;  // stream cut short
    z.next_out = sink.data();
    z.avail_out = static_cast<uInt>(sink.size());
    status = inflate(&z, Z_SYNC_FLUSH);
  }
  if (status != Z_STREAM_END) return false;
  out.resize(filled);
  if (filled == length) return true;
  if (status != Z_STREAM_END || length - filled > kLengthSlack) return false;
  restateLength(out, swapped);
  return true;
}

// Checks one top-level element held in `element` (tag and content) and
// takes its name.
bool checkVariable(const Bytes& element, bool swapped, std::string& name) {
  const Reader r(element, swapped);
  Element m;
  if (!r.element(0, element.size(), m) || m.type != miMATRIX) return false;
  if (m.bytes == 0) return true;  // an empty element: a variable without name or content
  ArrayHead head;
  if (!readArrayHead(r, m.dataAt, m.dataAt + m.bytes, head)) return false;
  name.assign(reinterpret_cast<const char*>(element.data() + head.name.dataAt), head.name.bytes);
  return checkArray(r, m.dataAt, m.dataAt + m.bytes, 0);
}

}  // namespace

bool checkArray(const Reader& r, std::uint64_t at, std::uint64_t end, int depth) {
  if (depth > kMaxDepth) return false;
  if (at == end) return true;  // an empty element stands for an empty array
  ArrayHead head;
  if (!readArrayHead(r, at, end, head)) return false;
  std::uint64_t cursor = head.rest;
  switch (head.cls) {
    case mxCELL: return checkChildren(r, cursor, end, head.count, depth);
    case mxOBJECT: {
      Element className;
      if (!r.element(cursor, end, className) || className.type != miINT8) return false;
      cursor = className.next;
      [[fallthrough]];
    }
    case mxSTRUCT: {
      Element length, names;
      if (!r.element(cursor, end, length) || length.type != miINT32 || length.bytes != 4) return false;
      const std::uint64_t nameLength = r.word(length.dataAt);
      if (!r.element(length.next, end, names) || names.type != miINT8) return false;
      if (nameLength == 0 && names.bytes != 0) return false;
      if (nameLength != 0 && names.bytes % nameLength != 0) return false;
      const std::uint64_t fields = nameLength == 0 ? 0 : names.bytes / nameLength;
      // Elements without fields take no bytes; a count beyond the element's
      // own size only comes from a damaged file.
      if (fields == 0) return head.count <= end - at;
      if (fields != 0 && head.count > std::numeric_limits<std::uint64_t>::max() / fields) return false;
      return checkChildren(r, names.next, end, head.count * fields, depth);
    }
    case mxCHAR: case mxDOUBLE: case mxSINGLE: case mxINT8: case mxUINT8: case mxINT16: case mxUINT16:
    case mxINT32: case mxUINT32: case mxINT64: case mxUINT64:
      return checkNumeric(r, cursor, end, head.count, (head.flags & kComplexFlag) != 0);
    default:
      return true;  // sparse, function handles, opaque: skipped as a whole
  }
}

const char* describe(FileProblem problem) {
  switch (problem) {
    case FileProblem::None: return "readable";
    case FileProblem::NoSuchFile: return "no such file";
    case FileProblem::NotReadable: return "not readable (no permission, or not a regular file)";
    case FileProblem::NotLevel5: return "not a level-5 data file";
    case FileProblem::Damaged: return "damaged or cut short";
  }
  return "unknown problem";
}

namespace {

struct FileCloser {
  void operator()(std::FILE* file) const { std::fclose(file); }
};

// Reads the file an element at a time: the header first, then each element's
// tag, and only as many bytes as the tag states (and the file holds), so that
// a file of junk is refused at once and memory follows the variables' sizes.
// The name of the variable whose zlib stream is `in`, from its first bytes.
bool deferredName(const Bytes& in, bool swapped, std::string& name) {
  Bytes head;
  if (statedLength(in.data(), in.size(), swapped, &head, 4096) == 0) return false;
  const Reader r(head, swapped);
  ArrayHead array;
  if (!readArrayHead(r, 8, head.size(), array)) return false;
  name.assign(reinterpret_cast<const char*>(head.data() + array.name.dataAt), array.name.bytes);
  return true;
}

FileProblem readVariables(const std::string& path, std::vector<Variable>& variables, bool& swapped,
                          std::uint64_t deferAbove) {
  std::error_code ec;
  const auto status = std::filesystem::status(path, ec);
  if (status.type() == std::filesystem::file_type::not_found) return FileProblem::NoSuchFile;
  if (ec || !std::filesystem::is_regular_file(status)) return FileProblem::NotReadable;
  const std::unique_ptr<std::FILE, FileCloser> file(std::fopen(path.c_str(), "rb"));
  if (!file) return FileProblem::NotReadable;
  std::FILE* f = file.get();
  const std::uintmax_t size = std::filesystem::file_size(path, ec);
  if (ec) return FileProblem::NotReadable;
  // A read that comes short is a file that shrank while read, or a read error.
  const auto shortRead = [f] { return std::ferror(f) != 0 ? FileProblem::NotReadable : FileProblem::Damaged; };
  unsigned char header[128];
  if (size < sizeof header) return FileProblem::NotLevel5;
  if (std::fread(header, 1, sizeof header, f) != sizeof header) return shortRead();
  if (!level5Header(header, swapped)) return FileProblem::NotLevel5;
  std::uint64_t at = sizeof header;
  while (size - at >= 8) {
    unsigned char tagBytes[8];
    if (std::fread(tagBytes, 1, 8, f) != 8) return shortRead();
    const Reader tag(tagBytes, 8, swapped);
    const std::uint64_t available = size - at - 8;  // bytes after the tag
    Variable v;
    if ((tag.word(0) >> 16) != 0) {  // a small element, its data inside the tag
      Element e;
      if (!tag.element(0, 8, e)) return FileProblem::Damaged;
      at += 8;
      continue;  // carries no variable
    }
    Element e;
    e.type = tag.word(0);
    e.bytes = tag.word(4);
    if (e.type == miCOMPRESSED) {
      if (e.bytes > available) return FileProblem::Damaged;
      if (deferAbove != UINT64_MAX && e.bytes > 0) {
        // A stream that may inflate beyond deferAbove: keep it compressed
        // when its tag says it does.
        Bytes in;
        if (!readBytes(f, e.bytes, in)) return shortRead();
        if (statedLength(in.data(), in.size(), swapped) > deferAbove) {
          if (!deferredName(in, swapped, v.name)) return FileProblem::Damaged;
          v.compressed = std::move(in);
          variables.push_back(std::move(v));
          at += 8 + e.bytes;
          if (std::fseek(f, static_cast<long>(at), SEEK_SET) != 0) return FileProblem::NotReadable;
          continue;
        }
        if (std::fseek(f, static_cast<long>(at + 8), SEEK_SET) != 0) return FileProblem::NotReadable;
      }
      if (!inflateElement(f, e.bytes, swapped, v.element)) return std::ferror(f) ? shortRead() : FileProblem::Damaged;
      at += 8 + e.bytes;  // compressed elements are not padded
    } else if (e.type == miMATRIX) {
      v.element.assign(tagBytes, tagBytes + 8);
      if (e.bytes > available) {
        // The last variable of an uncompressed file may state a length a few
        // bytes beyond the end of the file.
        if (e.bytes - available > kLengthSlack) return FileProblem::Damaged;
        if (!readBytes(f, available, v.element)) return shortRead();
        restateLength(v.element, swapped);
        at = size;
      } else {
        if (!readBytes(f, e.bytes, v.element)) return shortRead();
        const std::uint64_t padded = std::min<std::uint64_t>((e.bytes + 7) / 8 * 8, available);
        at += 8 + padded;
      }
    } else {
      // Other plain elements carry no variable and are passed over; a tag of
      // no known type only comes from a damaged file.
      if (typeSize(e.type) == 0 || e.bytes > available) return FileProblem::Damaged;
      at += 8 + std::min<std::uint64_t>((e.bytes + 7) / 8 * 8, available);
    }
    if (std::fseek(f, static_cast<long>(at), SEEK_SET) != 0) return FileProblem::NotReadable;
    if (v.element.empty()) continue;
    if (!checkVariable(v.element, swapped, v.name)) return FileProblem::Damaged;
    variables.push_back(std::move(v));
  }
  return FileProblem::None;
}

}  // namespace

bool inflateDeferred(const Bytes& compressed, bool swapped, Bytes& element) {
  std::string name;
  return inflateWhole(compressed.data(), compressed.size(), swapped, element) &&
         checkVariable(element, swapped, name);
}

bool readFile(const std::string& path, std::vector<Variable>& variables, bool& swapped, FileProblem* problem,
              std::uint64_t deferAbove) {
  variables.clear();
  const FileProblem found = readVariables(path, variables, swapped, deferAbove);
  if (problem) *problem = found;
  if (found != FileProblem::None) variables.clear();
  return found == FileProblem::None;
}

}  // namespace tg::level5
