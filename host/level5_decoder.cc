#include "host/level5_decoder.h"

#include <cstdint>
#include <cstring>
#include <limits>
#include <string>

#include "host/utf16_text.h"

namespace tg::level5 {

namespace {

// Rows and the product of the other dimensions; false when that overflows.
bool shape(const ArrayHead& head, std::size_t& rows, std::size_t& cols) {
  rows = head.dims.empty() ? 0 : head.dims[0];
  cols = 1;
  for (std::size_t d = 1; d < head.dims.size(); ++d) {
    if (head.dims[d] != 0 && cols > SIZE_MAX / head.dims[d]) return false;
    cols *= head.dims[d];
  }
  return true;
}

// The data element at `at` holding at least `count` values.
bool dataElement(const Reader& r, std::uint64_t at, std::uint64_t end, std::uint64_t count, Element& data) {
  if (at >= end || end - at < 8) {
    data = Element{};
    return count == 0;
  }
  if (!r.element(at, end, data)) return false;
  const std::uint64_t size = typeSize(data.type);
  return size != 0 && data.bytes / size >= count;
}

// `v` as an integer of type T, truncated; 0 when it is NaN or beyond T's range,
// which only damaged data give (the value an integer cell of the wrong form
// reads as).
template <class T>
T toInteger(double v) {
  constexpr double kBelow = static_cast<double>(std::numeric_limits<T>::min()) - 1.0;
  constexpr double kAbove = static_cast<double>(std::numeric_limits<T>::max()) + 1.0;
  return v > kBelow && v < kAbove ? static_cast<T>(v) : T{0};
}

oxArrayPtr numeric(const Reader& r, const ArrayHead& head, std::uint64_t end) {
  std::size_t rows = 0, cols = 0;
  if (!shape(head, rows, cols)) return nullptr;
  const std::uint64_t n = head.count;
  Element data;
  if (!dataElement(r, head.rest, end, n, data)) return nullptr;
  oxClassID target = oxDOUBLE_CLASS;
  switch (head.cls) {
    case mxUINT8: target = (head.flags & kLogicalFlag) ? oxLOGICAL_CLASS : oxINT32_CLASS; break;
    case mxINT8: case mxINT16: case mxUINT16: case mxINT32: target = oxINT32_CLASS; break;
    case mxUINT32: target = oxUINT32_CLASS; break;
    default: break;  // double, single, 64-bit integers
  }
  auto a = oxCreateNumericArray(rows, cols, target);
  const std::uint64_t size = typeSize(data.type);
  // The common case, doubles stored as doubles in this machine's order, is a copy.
  if (target == oxDOUBLE_CLASS && data.type == miDOUBLE && !r.swapped()) {
    if (n > 0) std::memcpy(a->doubles().data(), r.data() + data.dataAt, n * 8);
    return a;
  }
  for (std::uint64_t i = 0; i < n; ++i) {
    const double v = r.value(data.type, data.dataAt + i * size);
    switch (target) {
      case oxLOGICAL_CLASS: a->logicals()[i] = v != 0.0 ? 1 : 0; break;
      case oxINT32_CLASS: a->int32s()[i] = toInteger<std::int32_t>(v); break;
      case oxUINT32_CLASS: a->uint32s()[i] = toInteger<std::uint32_t>(v); break;
      default: a->doubles()[i] = v; break;
    }
  }
  return a;
}

oxArrayPtr characters(const Reader& r, const ArrayHead& head, std::uint64_t end) {
  std::size_t rows = 0, cols = 0;
  if (!shape(head, rows, cols)) return nullptr;
  const std::uint64_t n = head.count;
  Element data;
  if (!dataElement(r, head.rest, end, n, data)) return nullptr;
  if (n == 0) return std::make_unique<oxArray>(oxCHAR_CLASS, rows, cols);
  const bool vector = rows <= 1 || cols <= 1;
  const std::uint64_t size = typeSize(data.type);
  std::string text;
  text.reserve(n);
  if (size == 1) {
    text.assign(reinterpret_cast<const char*>(r.data() + data.dataAt), n);
  } else if (vector && size == 2) {
    std::u16string units(n, u'\0');
    for (std::uint64_t i = 0; i < n; ++i)
      units[i] = static_cast<char16_t>(r.value(miUINT16, data.dataAt + i * 2));
    text = tgUtf16ToUtf8(units);
  } else {
    for (std::uint64_t i = 0; i < n; ++i) {
      const auto code = static_cast<std::uint32_t>(r.value(size == 2 ? miUINT16 : miUINT32, data.dataAt + i * size));
      if (vector) tgAppendUtf8(text, code);
      else text += code < 256 ? static_cast<char>(code) : '?';
    }
  }
  if (vector) {
    // A vector's UTF-8 text may be longer than its character count.
    const bool column = cols == 1 && rows > 1;
    auto a = std::make_unique<oxArray>(oxCHAR_CLASS, column ? text.size() : 1, column ? 1 : text.size());
    a->chars() = std::move(text);
    return a;
  }
  auto a = std::make_unique<oxArray>(oxCHAR_CLASS, rows, cols);
  a->chars() = std::move(text);
  return a;
}

// The next `count` miMATRIX children from `at`, in order, through `take`.
template <class Take>
bool children(const Reader& r, std::uint64_t at, std::uint64_t end, std::uint64_t count, int depth, Take take) {
  if (at > end || count > (end - at) / 8) return false;
  for (std::uint64_t i = 0; i < count; ++i) {
    Element child;
    if (!r.element(at, end, child) || child.type != miMATRIX) return false;
    take(i, decodeArray(r, child.dataAt, child.dataAt + child.bytes, depth + 1));
    at = child.next;
  }
  return true;
}

oxArrayPtr cells(const Reader& r, const ArrayHead& head, std::uint64_t end, int depth) {
  std::size_t rows = 0, cols = 0;
  if (!shape(head, rows, cols)) return nullptr;
  auto a = oxCreateCellMatrix(rows, cols);
  const bool ok = children(r, head.rest, end, head.count, depth,
                           [&](std::uint64_t i, oxArrayPtr v) { a->setCell(i, std::move(v)); });
  return ok ? std::move(a) : nullptr;
}

oxArrayPtr structure(const Reader& r, const ArrayHead& head, std::uint64_t end, int depth) {
  std::uint64_t at = head.rest;
  std::string className;
  if (head.cls == mxOBJECT) {
    Element name;
    if (!r.element(at, end, name) || name.type != miINT8) return nullptr;
    className.assign(reinterpret_cast<const char*>(r.data() + name.dataAt), name.bytes);
    at = name.next;
  }
  Element length, names;
  if (!r.element(at, end, length) || length.type != miINT32 || length.bytes != 4) return nullptr;
  const std::uint64_t nameLength = r.word(length.dataAt);
  if (!r.element(length.next, end, names) || names.type != miINT8) return nullptr;
  if (nameLength == 0 ? names.bytes != 0 : names.bytes % nameLength != 0) return nullptr;
  const std::uint64_t fieldCount = nameLength == 0 ? 0 : names.bytes / nameLength;
  std::vector<std::string> fields;
  for (std::uint64_t f = 0; f < fieldCount; ++f) {
    const char* p = reinterpret_cast<const char*>(r.data() + names.dataAt + f * nameLength);
    fields.emplace_back(p, strnlen(p, nameLength));
  }
  std::size_t rows = 0, cols = 0;
  if (!shape(head, rows, cols)) return nullptr;
  oxArrayPtr a;
  if (head.cls == mxOBJECT) {
    a = std::make_unique<oxArray>(oxOBJECT_CLASS, rows, cols);
    a->setClassName(className);
    for (const auto& f : fields) a->addField(f);
  } else {
    a = oxCreateStructArray(rows, cols, fields);
  }
  // Values come element by element, each with its fields in order. A
  // repeated name merges into its first field, which keeps the first value.
  const bool ok = children(r, names.next, end, head.count * fieldCount, depth, [&](std::uint64_t i, oxArrayPtr v) {
    const std::uint64_t element = i / fieldCount, field = i % fieldCount;
    if (a->fieldNumber(fields[field]) == static_cast<int>(field)) a->setFieldByNumber(element, static_cast<int>(field), std::move(v));
  });
  return ok ? std::move(a) : nullptr;
}

}  // namespace

oxArrayPtr decodeArray(const Reader& r, std::uint64_t at, std::uint64_t end, int depth) {
  if (depth > kMaxDepth) return nullptr;
  if (at == end) return oxCreateDoubleMatrix(0, 0);
  ArrayHead head;
  if (!readArrayHead(r, at, end, head)) return nullptr;
  switch (head.cls) {
    case mxCHAR: return characters(r, head, end);
    case mxCELL: return cells(r, head, end, depth);
    case mxSTRUCT: case mxOBJECT: return structure(r, head, end, depth);
    case mxDOUBLE: case mxSINGLE: case mxINT8: case mxUINT8: case mxINT16: case mxUINT16: case mxINT32:
    case mxUINT32: case mxINT64: case mxUINT64:
      return numeric(r, head, end);
    default: return nullptr;
  }
}

oxArrayPtr decodeElement(const Bytes& element, bool swapped) {
  const Reader r(element, swapped);
  Element m;
  if (!r.element(0, element.size(), m) || m.type != miMATRIX) return nullptr;
  return decodeArray(r, m.dataAt, m.dataAt + m.bytes, 0);
}

}  // namespace tg::level5
