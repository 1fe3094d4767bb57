// SPDX-License-Identifier: BSD-3-Clause
// Packed raw points. Points live in chunks of kChunk records; a record holds
// what every point has, and its bits say where the rest is: the site (the
// ids of a Cogwheel or Loomchart point, or a point type that differs from the
// class) and detailed figures sit in vectors of the chunk, indexed from the
// record. Chunks are never moved or regrown, so a store of many points grows
// by what it holds and the logging path copies no earlier points.
#include "tempogauge/collect/raw_point_store.h"

#include <cstring>

namespace {

constexpr std::size_t kChunk = 4096;  // records per chunk; extras are indexed by 12 bits

// Bits of a record.
constexpr std::uint32_t kStartBit = 1u << 0;
constexpr std::uint32_t kGapBit = 1u << 1;
constexpr unsigned kClassShift = 2;  // 2 bits: 0, 1, 2, or 3 for a null pointer
constexpr std::uint32_t kNullBasicBit = 1u << 4;
constexpr unsigned kDetailedShift = 5;  // 2 bits: RawPointFields::Detailed
constexpr std::uint32_t kSiteBit = 1u << 7;
constexpr unsigned kSiteShift = 8;       // 12 bits
constexpr unsigned kFiguresShift = 20;   // 12 bits
constexpr std::uint32_t kIndexMask = 0xFFFu;
constexpr std::int32_t kNullClass = 3;

bool allZeroBits(const std::array<double, 5>& values) {
  for (const double v : values) {
    std::uint64_t bits;
    std::memcpy(&bits, &v, sizeof bits);
    if (bits != 0) return false;
  }
  return true;
}

}  // namespace

struct RawPointStore::Chunk {
  struct Record {
    double wallTime;
    double cpuTime;
    double basic[3];
    std::int32_t groupingId;
    std::int32_t phaseId;
    std::int32_t statisticsTypeId;
    std::uint32_t bits;
  };
  static_assert(sizeof(Record) == 56);
  struct Site {
    std::int32_t pointType, modelId, targetId, machineId, chartId;
  };

  // Not value-initialised: pages of the chunk become resident as they fill.
  std::unique_ptr<Record[]> records = std::make_unique_for_overwrite<Record[]>(kChunk);
  std::size_t count = 0;
  std::vector<Site> sites;
  std::vector<std::array<double, 5>> figures;
};

RawPointStore::RawPointStore() = default;
RawPointStore::~RawPointStore() = default;

void RawPointStore::clear() {
  chunks_.clear();
  size_ = 0;
}

void RawPointStore::swap(RawPointStore& other) noexcept {
  chunks_.swap(other.chunks_);
  std::swap(size_, other.size_);
}

void RawPointStore::push_back(const RawPointPtr& point) { append(RawPointFields::of(point.get())); }

void RawPointStore::assign(const RawPointVector& points) {
  RawPointStore fresh;
  for (const RawPointPtr& point : points) fresh.push_back(point);
  swap(fresh);
}

void RawPointStore::append(const RawPointFields& f) {
  if (chunks_.empty() || chunks_.back()->count == kChunk) chunks_.push_back(std::make_unique<Chunk>());
  Chunk& chunk = *chunks_.back();
  Chunk::Record& r = chunk.records[chunk.count];
  r.wallTime = f.wallTime;
  r.cpuTime = f.cpuTime;
  for (int i = 0; i < 3; ++i) r.basic[i] = f.hasBasic ? f.basic[static_cast<std::size_t>(i)] : 0.0;
  r.groupingId = f.groupingId;
  r.phaseId = f.phaseId;
  r.statisticsTypeId = f.statisticsTypeId;
  const std::int32_t cls = f.pointClass < 0 || f.pointClass > 2 ? kNullClass : f.pointClass;
  std::uint32_t bits = (f.isStart ? kStartBit : 0) | (f.isGap ? kGapBit : 0) |
                       (static_cast<std::uint32_t>(cls) << kClassShift) | (f.hasBasic ? 0 : kNullBasicBit);
  if (cls != kNullClass && (cls != 0 || f.pointType != 0)) {
    bits |= kSiteBit | static_cast<std::uint32_t>(chunk.sites.size()) << kSiteShift;
    chunk.sites.push_back({f.pointType, f.modelId, f.targetId, f.machineId, f.chartId});
  }
  RawPointFields::Detailed detailed = f.detailedState;
  if (detailed == RawPointFields::Detailed::kFigures && allZeroBits(f.detailed))
    detailed = RawPointFields::Detailed::kZero;
  bits |= static_cast<std::uint32_t>(detailed) << kDetailedShift;
  if (detailed == RawPointFields::Detailed::kFigures) {
    bits |= static_cast<std::uint32_t>(chunk.figures.size()) << kFiguresShift;
    chunk.figures.push_back(f.detailed);
  }
  r.bits = bits;
  ++chunk.count;
  ++size_;
}

void RawPointStore::unpack(std::size_t index, RawPointFields& f) const {
  const Chunk& chunk = *chunks_[index / kChunk];
  const Chunk::Record& r = chunk.records[index % kChunk];
  const std::uint32_t bits = r.bits;
  const auto cls = static_cast<std::int32_t>((bits >> kClassShift) & 3u);
  f.pointClass = cls == kNullClass ? -1 : cls;
  f.pointType = f.pointClass < 0 ? 0 : cls;
  f.groupingId = r.groupingId;
  f.phaseId = r.phaseId;
  f.statisticsTypeId = r.statisticsTypeId;
  f.modelId = f.targetId = f.machineId = f.chartId = -1;
  if (bits & kSiteBit) {
    const Chunk::Site& site = chunk.sites[(bits >> kSiteShift) & kIndexMask];
    f.pointType = site.pointType;
    if (cls >= 1) {
      f.modelId = site.modelId;
      f.targetId = site.targetId;
    }
    if (cls == 2) {
      f.machineId = site.machineId;
      f.chartId = site.chartId;
    }
  }
  f.isStart = (bits & kStartBit) != 0;
  f.isGap = (bits & kGapBit) != 0;
  f.wallTime = r.wallTime;
  f.cpuTime = r.cpuTime;
  f.hasBasic = (bits & kNullBasicBit) == 0;
  for (int i = 0; i < 3; ++i) f.basic[static_cast<std::size_t>(i)] = r.basic[i];
  f.detailedState = static_cast<RawPointFields::Detailed>((bits >> kDetailedShift) & 3u);
  if (f.detailedState == RawPointFields::Detailed::kFigures)
    f.detailed = chunk.figures[(bits >> kFiguresShift) & kIndexMask];
  else
    f.detailed = {};
}

RawPointFields RawPointStore::fields(std::size_t index) const {
  RawPointFields f;
  unpack(index, f);
  return f;
}

RawPointPtr RawPointStore::at(std::size_t index) const {
  if (index >= size_) throw std::out_of_range("RawPointStore::at: index beyond the points");
  return fields(index).toPoint();
}

void RawPointStore::insert(const_iterator pos, const RawPointPtr& point) {
  const RawPointPtr one[] = {point};
  insert(pos, std::begin(one), std::end(one));
}

RawPointVector RawPointStore::toVector() const {
  RawPointVector all;
  all.reserve(size_);
  forEach([&](const RawPointFields& f) { all.push_back(f.toPoint()); });
  return all;
}

std::size_t RawPointStore::bytesHeld() const {
  std::size_t bytes = chunks_.capacity() * sizeof(chunks_[0]);
  for (const auto& chunk : chunks_)
    bytes += sizeof(Chunk) + kChunk * sizeof(Chunk::Record) + chunk->sites.capacity() * sizeof(Chunk::Site) +
             chunk->figures.capacity() * sizeof(chunk->figures[0]);
  return bytes;
}

// ---- RawPointFields -----------------------------------------------------------

RawPointFields RawPointFields::of(const TGORRERYDataPoint* point) {
  RawPointFields f;
  if (!point) {
    f.pointClass = -1;
    return f;
  }
  const auto* cw = dynamic_cast<const TGCWGENDataPoint*>(point);
  const auto* lc = cw ? dynamic_cast<const TGLoomchartDataPoint*>(point) : nullptr;
  f.pointClass = lc ? 2 : cw ? 1 : 0;
  f.pointType = point->pointType;
  f.groupingId = point->groupingId;
  f.phaseId = point->phaseId;
  f.statisticsTypeId = point->statisticsTypeId;
  if (cw) {
    f.modelId = cw->modelId;
    f.targetId = cw->targetId;
  }
  if (lc) {
    f.machineId = lc->machineId;
    f.chartId = lc->chartId;
  }
  f.isStart = point->isStart();
  f.isGap = point->isGap();
  f.wallTime = point->wallTime;
  f.cpuTime = point->cpuTime;
  f.hasBasic = point->basicMemStats != nullptr;
  if (const auto& b = point->basicMemStats) f.basic = {b->procMemUsage, b->procMemUsagePeak, b->procVMSize};
  if (const auto& d = point->detailedMemStats) {
    f.detailed = {d->freeMem, d->resMem, d->commitMem, d->dllsMem, d->nonprocessMem};
    f.detailedState = Detailed::kFigures;
  } else {
    f.detailedState = Detailed::kNull;
  }
  return f;
}

RawPointPtr RawPointFields::toPoint(bool asCopy) const {
  RawPointPtr point;
  switch (pointClass) {
    case 0: point = std::make_shared<TGORRERYDataPoint>(); break;
    case 1: {
      auto cw = std::make_shared<TGCWGENDataPoint>();
      cw->modelId = modelId;
      cw->targetId = targetId;
      point = std::move(cw);
      break;
    }
    case 2: {
      auto lc = std::make_shared<TGLoomchartDataPoint>();
      lc->modelId = modelId;
      lc->targetId = targetId;
      lc->machineId = machineId;
      lc->chartId = chartId;
      point = std::move(lc);
      break;
    }
    default: return nullptr;
  }
  point->pointType = pointType;
  point->groupingId = groupingId;
  point->phaseId = phaseId;
  point->statisticsTypeId = statisticsTypeId;
  point->flags.isStart = isStart ? 1u : 0u;
  point->flags.isGap = isGap ? 1u : 0u;
  point->wallTime = wallTime;
  point->cpuTime = cpuTime;
  if (hasBasic || asCopy)
    *point->basicMemStats = tg::BasicMemStats(basic[0], basic[1], basic[2]);
  else
    point->basicMemStats.reset();
  if (detailedState == Detailed::kFigures)
    *point->detailedMemStats = tg::DetailedMemStats(detailed[0], detailed[1], detailed[2], detailed[3], detailed[4]);
  else if (detailedState == Detailed::kNull && !asCopy)
    point->detailedMemStats.reset();
  return point;
}
