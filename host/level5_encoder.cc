// SPDX-License-Identifier: BSD-3-Clause
#include "host/level5_encoder.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <limits>
#include <string>

#include "host/utf16_text.h"

namespace tg::level5 {

namespace {

class Encoder {
 public:
  explicit Encoder(Bytes& out) : out_(out) {}

  bool array(std::string_view name, const oxArray* a, int depth) {
    if (depth > kMaxDepth) return false;
    const std::size_t tagAt = out_.size();
    word(miMATRIX);
    word(0);  // the length, filled in below
    const std::size_t start = out_.size();
    if (!content(name, a, depth)) return false;
    const std::size_t length = out_.size() - start;
    if (length > std::numeric_limits<std::uint32_t>::max()) return false;
    const auto n = static_cast<std::uint32_t>(length);
    std::memcpy(out_.data() + tagAt + 4, &n, 4);
    return true;
  }

 private:
  void word(std::uint32_t v) {
    const auto* p = reinterpret_cast<const unsigned char*>(&v);
    out_.insert(out_.end(), p, p + 4);
  }

  void padTo8() { out_.resize((out_.size() + 7) / 8 * 8, 0); }

  // One data element; up to 4 bytes go in the small form, as Octave writes them.
  void element(std::uint32_t type, const void* data, std::size_t bytes) {
    const auto* p = static_cast<const unsigned char*>(data);
    if (bytes > 0 && bytes <= 4) {
      word(type | static_cast<std::uint32_t>(bytes) << 16);
      out_.insert(out_.end(), p, p + bytes);
      out_.resize(out_.size() + (4 - bytes), 0);
      return;
    }
    word(type);
    word(static_cast<std::uint32_t>(bytes));
    if (bytes > 0) out_.insert(out_.end(), p, p + bytes);
    padTo8();
  }

  bool head(std::uint32_t cls, std::uint32_t flags, std::size_t rows, std::size_t cols, std::string_view name) {
    constexpr std::size_t kMaxDim = 0x7FFFFFFF;
    if (rows > kMaxDim || cols > kMaxDim) return false;
    const std::uint32_t flagWords[2] = {cls | flags, 0};
    element(miUINT32, flagWords, 8);
    const std::int32_t dims[2] = {static_cast<std::int32_t>(rows), static_cast<std::int32_t>(cols)};
    element(miINT32, dims, 8);
    element(miINT8, name.data(), name.size());
    return true;
  }

  template <class T>
  bool values(std::uint32_t cls, std::uint32_t flags, std::uint32_t type, const oxArray& a, const std::vector<T>& v,
              std::string_view name) {
    if (!head(cls, flags, a.rows(), a.cols(), name)) return false;
    const std::size_t n = std::min(v.size(), a.numel());
    if (n * sizeof(T) > std::numeric_limits<std::uint32_t>::max()) return false;
    element(type, v.data(), n * sizeof(T));
    return true;
  }

  bool characters(const oxArray& a, std::string_view name) {
    std::u16string units;
    std::size_t rows = a.rows(), cols = a.cols();
    if (oxIsCharVector(&a)) {
      if (a.numel() > 0) {
        units = tgUtf8ToUtf16(a.chars());
        // Keep the orientation; UTF-8 sequences shorten the vector.
        if (cols == 1 && rows > 1) rows = units.size();
        else rows = 1, cols = units.size();
      }
    } else {
      // A char matrix: each byte is one character of its column-major cell.
      for (const char c : a.chars()) units += static_cast<char16_t>(static_cast<unsigned char>(c));
    }
    if (!head(mxCHAR, 0, rows, cols, name)) return false;
    if (units.size() * 2 > std::numeric_limits<std::uint32_t>::max()) return false;
    element(miUTF16, units.data(), units.size() * 2);
    return true;
  }

  // A child array, or an empty double for a null one.
  bool child(const oxArray* a, int depth) {
    if (a) return array("", a, depth + 1);
    const oxArrayPtr empty = oxCreateDoubleMatrix(0, 0);
    return array("", empty.get(), depth + 1);
  }

  bool cells(const oxArray& a, std::string_view name, int depth) {
    if (!head(mxCELL, 0, a.rows(), a.cols(), name)) return false;
    for (std::size_t i = 0; i < a.numel(); ++i)
      if (!child(a.cell(i), depth)) return false;
    return true;
  }

  bool structure(const oxArray& a, std::string_view name, int depth) {
    if (!head(mxSTRUCT, 0, a.rows(), a.cols(), name)) return false;
    const auto& fields = a.fieldNames();
    std::size_t longest = 0;
    for (const auto& f : fields) longest = std::max(longest, f.size());
    const auto nameLength = static_cast<std::int32_t>(longest + 1);
    element(miINT32, &nameLength, 4);
    std::string names(fields.size() * static_cast<std::size_t>(nameLength), '\0');
    for (std::size_t f = 0; f < fields.size(); ++f) fields[f].copy(names.data() + f * nameLength, fields[f].size());
    element(miINT8, names.data(), names.size());
    for (std::size_t e = 0; !fields.empty() && e < a.numel(); ++e)
      for (std::size_t f = 0; f < fields.size(); ++f)
        if (!child(a.get_struct_field_by_number(e, static_cast<int>(f)), depth)) return false;
    return true;
  }

  bool content(std::string_view name, const oxArray* a, int depth) {
    if (!a) return false;
    switch (a->classID()) {
      case oxDOUBLE_CLASS: return values(mxDOUBLE, 0, miDOUBLE, *a, a->doubles(), name);
      case oxINT32_CLASS: return values(mxINT32, 0, miINT32, *a, a->int32s(), name);
      case oxUINT32_CLASS: return values(mxUINT32, 0, miUINT32, *a, a->uint32s(), name);
      case oxLOGICAL_CLASS: return values(mxUINT8, kLogicalFlag, miUINT8, *a, a->logicals(), name);
      case oxCHAR_CLASS: return characters(*a, name);
      case oxCELL_CLASS: return cells(*a, name, depth);
      case oxSTRUCT_CLASS: case oxOBJECT_CLASS: return structure(*a, name, depth);
      default: return false;
    }
  }

  Bytes& out_;
};

}  // namespace

namespace {

std::size_t elementSize(std::size_t bytes) { return bytes > 0 && bytes <= 4 ? 8 : 8 + (bytes + 7) / 8 * 8; }

std::size_t arraySize(std::string_view name, const oxArray* a) {
  // Tag, flags, dimensions, name.
  const std::size_t head = 8 + 16 + 16 + elementSize(name.size());
  if (!a) return head + elementSize(0);
  switch (a->classID()) {
    case oxDOUBLE_CLASS: return head + elementSize(a->numel() * 8);
    case oxINT32_CLASS: case oxUINT32_CLASS: return head + elementSize(a->numel() * 4);
    case oxLOGICAL_CLASS: return head + elementSize(a->numel());
    case oxCHAR_CLASS: return head + elementSize(a->numel() * 2);  // at most one unit per byte
    case oxCELL_CLASS: {
      std::size_t total = head;
      for (std::size_t i = 0; i < a->numel(); ++i) total += arraySize("", a->cell(i));
      return total;
    }
    case oxSTRUCT_CLASS: case oxOBJECT_CLASS: {
      std::size_t longest = 0;
      for (const auto& f : a->fieldNames()) longest = std::max(longest, f.size());
      std::size_t total = head + 8 + elementSize(a->fieldNames().size() * (longest + 1));
      // A struct without fields has no values, however many elements.
      for (std::size_t e = 0; !a->fieldNames().empty() && e < a->numel(); ++e)
        for (std::size_t f = 0; f < a->fieldNames().size(); ++f)
          total += arraySize("", a->get_struct_field_by_number(e, static_cast<int>(f)));
      return total;
    }
    default: return head;
  }
}

}  // namespace

std::size_t encodedSize(std::string_view name, const oxArray* array) { return arraySize(name, array); }

bool encodeArray(Bytes& out, std::string_view name, const oxArray* array) {
  const std::size_t before = out.size();
  Encoder encoder(out);
  if (encoder.array(name, array, 0)) return true;
  out.resize(before);
  return false;
}

}  // namespace tg::level5
