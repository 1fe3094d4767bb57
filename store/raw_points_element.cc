// SPDX-License-Identifier: BSD-3-Clause
#include "store/raw_points_element.h"

#include <cstring>
#include <limits>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "collect/constants.h"
#include "collect/paths.h"
#include "collect/tempo_gauge.h"
#include "host/level5_check.h"
#include "host/level5_decoder.h"
#include "host/level5_stream.h"
#include "host/level5_encoder.h"
#include "host/utf16_text.h"
#include "store/raw_points_array.h"

namespace l5 = tg::level5;

namespace {

void appendWord(l5::Bytes& out, std::uint32_t v) {
  const auto* p = reinterpret_cast<const unsigned char*>(&v);
  out.insert(out.end(), p, p + 4);
}

// The element of one cell, made once by the encoder.
l5::Bytes cellElement(const oxArray* value) {
  l5::Bytes bytes;
  l5::encodeArray(bytes, "", value);
  return bytes;
}

// Array flags, dimensions and name of a 1 by `cols` cell array; the parts
// that follow the element's tag.
void appendCellHead(l5::Bytes& out, std::size_t cols, std::string_view name) {
  appendWord(out, l5::miUINT32);
  appendWord(out, 8);
  appendWord(out, l5::mxCELL);
  appendWord(out, 0);
  appendWord(out, l5::miINT32);
  appendWord(out, 8);
  appendWord(out, 1);
  appendWord(out, static_cast<std::uint32_t>(cols));
  if (!name.empty() && name.size() <= 4) {
    appendWord(out, l5::miINT8 | static_cast<std::uint32_t>(name.size()) << 16);
    out.insert(out.end(), name.begin(), name.end());
    out.resize(out.size() + 4 - name.size(), 0);
    return;
  }
  appendWord(out, l5::miINT8);
  appendWord(out, static_cast<std::uint32_t>(name.size()));
  out.insert(out.end(), name.begin(), name.end());
  out.resize((out.size() + 7) / 8 * 8, 0);
}

std::size_t cellHeadSize(std::string_view name) {
  l5::Bytes head;
  appendCellHead(head, 1, name);
  return head.size();
}

// Cell elements of the rows: the names' elements, kept per kind and id, and
// the elements of the scalars with their value's place.
class RowCells {
 public:
  RowCells()
      : tag_(cellElement(oxCreateString(tg::kRowVersionTag).get())),
        type_(cellElement(oxCreateInt32Scalar(0).get())),
        start_(cellElement(oxCreateLogicalScalar(false).get())),
        number_(cellElement(oxCreateDoubleScalar(0.0).get())) {}

  const l5::Bytes& name(std::uint32_t kind, std::int32_t id) {
    // Ids are dense from 0; -1 and ids far beyond any table go to the map.
    if (id >= -1 && id < (1 << 20)) {
      auto& byId = byKind_[kind];
      const auto slot = static_cast<std::size_t>(id + 1);
      if (slot >= byId.size()) byId.resize(slot + 1);
      if (byId[slot].empty()) byId[slot] = nameElement(kind, id);
      return byId[slot];
    }
    const std::uint64_t key = std::uint64_t{kind} << 32 | static_cast<std::uint32_t>(id);
    auto [it, fresh] = odd_.try_emplace(key);
    if (fresh) it->second = nameElement(kind, id);
    return it->second;
  }

  std::size_t rowSize(const RawPointFields& f) {
    std::size_t size = 8 + rowHead_ + tag_.size() + type_.size() + start_.size() + 10 * number_.size();
    forEachName(f, [&](const l5::Bytes& element) { size += element.size(); });
    return size;
  }

  void appendRow(l5::Bytes& out, const RawPointFields& f, std::size_t size) {
    const std::size_t width = f.pointClass == 2 ? 20 : f.pointClass == 1 ? 18 : 16;
    // The row's bytes are copied piece by piece into room made once.
    const std::size_t at = out.size();
    out.resize(at + size);
    unsigned char* p = out.data() + at;
    const auto put = [&p](const l5::Bytes& piece) {
      std::memcpy(p, piece.data(), piece.size());
      p += piece.size();
    };
    head_.clear();
    appendWord(head_, l5::miMATRIX);
    appendWord(head_, static_cast<std::uint32_t>(size - 8));
    appendCellHead(head_, width, "");
    put(head_);
    put(tag_);
    putScalar(p, type_, &f.pointType, 4, 4);
    forEachName(f, put);
    const unsigned char start = f.isStart ? 1 : 0;
    putScalar(p, start_, &start, 1, 4);
    putNumber(p, f.wallTime);
    putNumber(p, f.cpuTime);
    for (const double v : f.detailed) putNumber(p, f.detailedState == RawPointFields::Detailed::kFigures ? v : 0.0);
    for (const double v : f.basic) putNumber(p, f.hasBasic ? v : 0.0);
  }

 private:
  l5::Bytes nameElement(std::uint32_t kind, std::int32_t id) const {
    std::string text = tgGetNameStr(kind, id);
    if (kind == tg::kPhaseKind) text = cleanPhaseName(text, false);
    return cellElement(oxCreateString(text).get());
  }

  // The name cells of a row in their order: phase, grouping, the site's
  // names, statistics type.
  template <class F>
  void forEachName(const RawPointFields& f, F&& take) {
    take(name(tg::kPhaseKind, f.phaseId));
    take(name(tg::kGroupingKind, f.groupingId));
    if (f.pointClass >= 1) {
      take(name(tg::kModelKind, f.modelId));
      take(name(tg::kTargetKind, f.targetId));
    }
    if (f.pointClass == 2) {
      take(name(tg::kMachineKind, f.machineId));
      take(name(tg::kChartKind, f.chartId));
    }
    take(name(tg::kStatisticsTypeKind, f.statisticsTypeId));
  }

  // Copies `element` to p, with `bytes` of `value` at `fromEnd` bytes before
  // its end, and moves p past it.
  static void putScalar(unsigned char*& p, const l5::Bytes& element, const void* value, std::size_t bytes,
                        std::size_t fromEnd) {
    std::memcpy(p, element.data(), element.size());
    p += element.size();
    std::memcpy(p - fromEnd, value, bytes);
  }
  void putNumber(unsigned char*& p, double v) const { putScalar(p, number_, &v, 8, 8); }

  const std::size_t rowHead_ = cellHeadSize("");
  const l5::Bytes tag_, type_, start_, number_;
  l5::Bytes head_;
  std::vector<l5::Bytes> byKind_[tg::kNameKindCount];
  std::unordered_map<std::uint64_t, l5::Bytes> odd_;
};

// A null pointer's row is that of a default host point.
const RawPointFields& rowFields(const RawPointFields& f) {
  static const RawPointFields defaults;
  return f.pointClass < 0 ? defaults : f;
}

}  // namespace

bool writeRawPointsElement(l5::RowDeflater& out, std::string_view name, std::size_t count, const RawPointWalk& walk) {
  if (count > 0x7FFFFFFF) return false;
  RowCells cells;
  std::vector<std::uint32_t> sizes;
  sizes.reserve(count);
  std::uint64_t total = cellHeadSize(name);
  walk([&](const RawPointFields& f) {
    const std::size_t size = cells.rowSize(rowFields(f));
    sizes.push_back(static_cast<std::uint32_t>(size));
    total += size;
  });
  if (total > std::numeric_limits<std::uint32_t>::max() || sizes.size() != count) return false;

  l5::Bytes& buffer = out.buffer();
  appendWord(buffer, l5::miMATRIX);
  appendWord(buffer, static_cast<std::uint32_t>(total));
  appendCellHead(buffer, count, name);
  out.endRow();
  std::size_t row = 0;
  walk([&](const RawPointFields& f) {
    cells.appendRow(out.buffer(), rowFields(f), sizes[row++]);
    out.endRow();
  });
  return true;
}

// ---- reading ------------------------------------------------------------------

namespace {

// One cell of a row in the form the writer gives it: its class, flags,
// dimensions and data, read without making a host array.
struct PlainCell {
  std::uint32_t cls = 0;
  std::uint32_t flags = 0;
  std::uint32_t rows = 0;
  std::uint32_t cols = 0;
  std::uint32_t dataType = 0;
  const unsigned char* data = nullptr;
  std::uint32_t dataBytes = 0;
};

std::uint32_t wordAt(const unsigned char* p) {
  std::uint32_t v;
  std::memcpy(&v, p, 4);
  return v;
}

// Reads the miMATRIX content [p, p + size) as a 2-D array without a name;
// false for any other form.
bool plainCell(const unsigned char* p, std::uint64_t size, PlainCell& c) {
  if (size < 48 || wordAt(p) != l5::miUINT32 || wordAt(p + 4) != 8 || wordAt(p + 16) != l5::miINT32 ||
      wordAt(p + 20) != 8 || wordAt(p + 32) != l5::miINT8 || wordAt(p + 36) != 0)
    return false;
  c.cls = wordAt(p + 8) & 0xFF;
  c.flags = wordAt(p + 8) & 0xFF00;
  c.rows = wordAt(p + 24);
  c.cols = wordAt(p + 28);
  const std::uint32_t tag = wordAt(p + 40);
  if (tag >> 16 != 0) {  // small element
    c.dataType = tag & 0xFFFF;
    c.dataBytes = tag >> 16;
    c.data = p + 44;
    return c.dataBytes <= 4 && size == 48;
  }
  c.dataType = tag;
  c.dataBytes = wordAt(p + 44);
  c.data = p + 48;
  return size == 48 + (std::uint64_t{c.dataBytes} + 7) / 8 * 8;
}

bool isScalar(const PlainCell& c) { return c.rows == 1 && c.cols == 1 && (c.flags & l5::kComplexFlag) == 0; }

bool asDouble(const PlainCell& c, double& v) {
  if (c.cls != l5::mxDOUBLE || !isScalar(c) || c.dataType != l5::miDOUBLE || c.dataBytes != 8) return false;
  std::memcpy(&v, c.data, 8);
  return true;
}

// A char row (or the 0 by 0 empty text) as UTF-16 bytes.
bool asText(const PlainCell& c, std::string_view& units) {
  if (c.cls != l5::mxCHAR || c.dataType != l5::miUTF16 || (c.flags & l5::kComplexFlag) != 0) return false;
  const bool empty = c.rows == 0 && c.cols == 0;
  if (!empty && c.rows != 1) return false;
  if (c.dataBytes != 2 * std::uint64_t{c.cols} || (empty && c.dataBytes != 0)) return false;
  units = std::string_view(reinterpret_cast<const char*>(c.data), c.dataBytes);
  return true;
}

// Names met in the rows, by kind and UTF-16 bytes, with their ids; the last
// name of each kind first, as rows mostly repeat the row before.
class NameIds {
 public:
  std::int32_t id(std::uint32_t kind, std::string_view units) {
    Last& last = last_[kind];
    if (last.id != kNone && last.units == units) return last.id;
    auto& known = byKind_[kind];
    auto it = known.find(units);
    if (it == known.end()) {
      std::u16string text(units.size() / 2, u'\0');
      std::memcpy(text.data(), units.data(), units.size());
      it = known.emplace(std::string(units), tgGetId(kind, tgUtf16ToUtf8(text))).first;
    }
    last.units.assign(units);
    last.id = it->second;
    return it->second;
  }

 private:
  static constexpr std::int64_t kNone = INT64_MIN;
  struct Hash {
    using is_transparent = void;
    std::size_t operator()(std::string_view s) const { return std::hash<std::string_view>{}(s); }
  };
  struct Last {
    std::string units;
    std::int64_t id = kNone;
  };
  std::unordered_map<std::string, std::int32_t, Hash, std::equal_to<>> byKind_[tg::kNameKindCount];
  Last last_[tg::kNameKindCount];
};

// The fields of a row read straight from its bytes; false when the row is
// not in the written form (the caller then reads it through a host array).
bool plainRow(const l5::Reader& r, const l5::Element& row, NameIds& names, RawPointFields& f) {
  PlainCell head;
  const unsigned char* p = r.data() + row.dataAt;
  // The row's own head: a 1 by K cell array, K cells follow.
  if (row.bytes < 40 || wordAt(p) != l5::miUINT32 || wordAt(p + 8) != l5::mxCELL || wordAt(p + 16) != l5::miINT32 ||
      wordAt(p + 20) != 8 || wordAt(p + 24) != 1 || wordAt(p + 32) != l5::miINT8 || wordAt(p + 36) != 0)
    return false;
  const std::uint32_t width = wordAt(p + 28);
  if (width != 16 && width != 18 && width != 20) return false;
  f = RawPointFields{};
  f.pointClass = width == 20 ? 2 : width == 18 ? 1 : 0;

  std::uint64_t at = row.dataAt + 40;
  const std::uint64_t end = row.dataAt + row.bytes;
  PlainCell cells[20];
  for (std::uint32_t i = 0; i < width; ++i) {
    l5::Element cell;
    if (!r.element(at, end, cell) || cell.type != l5::miMATRIX) return false;
    if (!plainCell(r.data() + cell.dataAt, cell.bytes, cells[i])) return false;
    at = cell.next;
  }
  std::string_view text;
  if (!asText(cells[0], text) || text != std::string_view("1\0", 2)) return false;
  const PlainCell& type = cells[1];
  if (type.cls != l5::mxINT32 || !isScalar(type) || type.dataType != l5::miINT32 || type.dataBytes != 4) return false;
  std::memcpy(&f.pointType, type.data, 4);

  // Names, in the row's order (which is the order they are interned in).
  std::uint32_t column = 2;
  const auto name = [&](std::uint32_t kind, std::int32_t& id) {
    std::string_view units;
    if (!asText(cells[column++], units)) return false;
    id = names.id(kind, units);
    return true;
  };
  if (!name(tg::kPhaseKind, f.phaseId) || !name(tg::kGroupingKind, f.groupingId)) return false;
  if (f.pointClass >= 1 && (!name(tg::kModelKind, f.modelId) || !name(tg::kTargetKind, f.targetId))) return false;
  if (f.pointClass == 2 && (!name(tg::kMachineKind, f.machineId) || !name(tg::kChartKind, f.chartId))) return false;
  if (!name(tg::kStatisticsTypeKind, f.statisticsTypeId)) return false;

  const PlainCell& start = cells[column++];
  if (start.cls != l5::mxUINT8 || (start.flags & l5::kLogicalFlag) == 0 || !isScalar(start) ||
      start.dataType != l5::miUINT8 || start.dataBytes != 1)
    return false;
  f.isStart = start.data[0] != 0;
  double numbers[10];
  for (double& v : numbers)
    if (!asDouble(cells[column++], v)) return false;
  f.wallTime = numbers[0];
  f.cpuTime = numbers[1];
  // Detailed figures are kept when their sum is above zero; otherwise a host
  // point has none and the others a zero-filled record.
  if (numbers[2] + numbers[3] + numbers[4] + numbers[5] + numbers[6] > 0.0) {
    f.detailedState = RawPointFields::Detailed::kFigures;
    f.detailed = {numbers[2], numbers[3], numbers[4], numbers[5], numbers[6]};
  } else {
    f.detailedState = f.pointClass == 0 ? RawPointFields::Detailed::kNull : RawPointFields::Detailed::kZero;
  }
  f.hasBasic = true;
  f.basic = {numbers[7], numbers[8], numbers[9]};
  return true;
}

// The points of `array` as cellArrayToRawPoints reads them.
void takeDecoded(const oxArray* array, const std::function<void(const RawPointFields&)>& take) {
  RawPointVector points;
  cellArrayToRawPoints(array, points);
  for (const auto& p : points) take(RawPointFields::of(p.get()));
}

}  // namespace

void readRawPointsElement(const l5::Bytes& element, bool swapped,
                          const std::function<void(const RawPointFields&)>& take) {
  const l5::Reader r(element, swapped);
  l5::Element m;
  l5::ArrayHead head;
  const bool plainCells = !swapped && r.element(0, element.size(), m) && m.type == l5::miMATRIX && m.bytes > 0 &&
                          l5::readArrayHead(r, m.dataAt, m.dataAt + m.bytes, head) && head.cls == l5::mxCELL &&
                          head.dims.size() == 2 && head.dims[0] == 1;
  if (!plainCells) {
    const oxArrayPtr array = l5::decodeElement(element, swapped);
    takeDecoded(array.get(), take);
    return;
  }
  // A cell array read row by row: rows in the written form straight from the
  // bytes, others decoded; a row that does not decode ends the reading, as a
  // null element does.
  NameIds names;
  RawPointFields f;
  std::uint64_t at = head.rest;
  const std::uint64_t end = m.dataAt + m.bytes;
  for (std::uint64_t i = 0; i < head.count; ++i) {
    l5::Element row;
    if (!r.element(at, end, row) || row.type != l5::miMATRIX) return;
    at = row.next;
    if (plainRow(r, row, names, f)) {
      take(f);
      continue;
    }
    oxArrayPtr decoded = l5::decodeArray(r, row.dataAt, row.dataAt + row.bytes, 1);
    if (!decoded) return;
    auto one = oxCreateCellMatrix(1, 1);
    oxSetCell(one.get(), 0, std::move(decoded));
    takeDecoded(one.get(), take);
  }
}

bool readRawPointsStream(const l5::Bytes& compressed, bool swapped,
                         const std::function<void(const RawPointFields&)>& take) {
  const auto whole = [&] {
    l5::Bytes element;
    if (!l5::inflateDeferred(compressed, swapped, element)) return false;
    readRawPointsElement(element, swapped, take);
    return true;
  };
  if (swapped) return whole();  // rows are read straight in this machine's order only
  l5::InflateWindow window(compressed);
  if (!window.want(8)) return false;
  const std::uint64_t total = 8 + std::uint64_t{wordAt(window.data() + 4)};
  if (wordAt(window.data()) != l5::miMATRIX) return false;
  window.want(std::min<std::uint64_t>(total, 1u << 16));
  l5::ArrayHead head;
  {
    const l5::Reader r(window.data(), std::min<std::uint64_t>(window.size(), total), false);
    if (total == 8 || !l5::readArrayHead(r, 8, r.size(), head)) return whole();
  }
  if (head.cls != l5::mxCELL || head.dims.size() != 2 || head.dims[0] != 1) return whole();
  // Row by row: rows in the written form straight from the bytes (the form
  // is checked as they are read), others checked and decoded; a row that
  // does not decode ends the reading, as a null element does.
  NameIds names;
  RawPointFields f;
  std::uint64_t at = head.rest;
  window.skip(head.rest);
  bool reading = true;
  for (std::uint64_t i = 0; i < head.count; ++i) {
    if (total - at < 8 || !window.want(8)) return false;
    const std::uint64_t length = 8 + std::uint64_t{wordAt(window.data() + 4)};
    if (wordAt(window.data()) != l5::miMATRIX || length > total - at || !window.want(length)) return false;
    const l5::Reader r(window.data(), length, false);
    const l5::Element row{l5::miMATRIX, 8, length - 8, length};
    if (reading && plainRow(r, row, names, f)) {
      take(f);
    } else {
      if (!l5::checkArray(r, 8, length, 1)) return false;
      if (reading) {
        oxArrayPtr decoded = l5::decodeArray(r, 8, length, 1);
        if (decoded) {
          auto one = oxCreateCellMatrix(1, 1);
          oxSetCell(one.get(), 0, std::move(decoded));
          takeDecoded(one.get(), take);
        }
        reading = decoded != nullptr;
      }
    }
    window.skip(length);
    at += length;
  }
  return window.endsWhole();
}
