// SPDX-License-Identifier: BSD-3-Clause
// The raw points written straight as a level-5 element, and the packed store
// they come from: the same bytes as the host arrays' encoding, a zlib stream
// that inflates to them, and points that come back from the store as they
// went in.
#include <gtest/gtest.h>
#include <zlib.h>

#include <filesystem>
#include <fstream>
#include <random>

#include "host/level5_encoder.h"
#include "scratch_files.h"
#include "scripting/errors.h"
#include "store/raw_points_array.h"
#include "store/raw_points_element.h"
#include "store/trace_file.h"
#include "store_points_test.h"

namespace {

namespace l5 = tg::level5;

class RawPointsElement : public StorePointsTest {
 protected:
  // Points of every shape a store or a foreign file can hold: the three
  // classes, a Cogwheel point that says it is a host point, a type without a
  // class and without records, a null pointer and a plain host point.
  static RawPointVector oddPoints() {
    RawPointVector points = threeClasses();
    auto cw = std::make_shared<TGCWGENDataPoint>();
    cw->pointType = 0;
    cw->modelId = id(tg::kModelKind, "model");
    cw->phaseId = id(tg::kPhaseKind, "cw");
    points.push_back(cw);
    auto odd = std::make_shared<TGORRERYDataPoint>();
    odd->pointType = 7;
    odd->groupingId = 1 << 28;
    odd->phaseId = -5;
    odd->basicMemStats.reset();
    odd->detailedMemStats.reset();
    odd->cpuTime = -1e300;
    points.push_back(odd);
    points.push_back(nullptr);
    auto plain = std::make_shared<TGORRERYDataPoint>();
    plain->phaseId = id(tg::kPhaseKind, "a");
    plain->wallTime = 1.0 / 3.0;
    points.push_back(plain);
    return points;
  }

  static l5::Bytes inflated(const l5::Bytes& stream) {
    l5::Bytes out(stream.size() * 64 + 4096);
    uLongf size = out.size();
    EXPECT_EQ(uncompress(out.data(), &size, stream.data(), stream.size()), Z_OK);
    out.resize(size);
    return out;
  }

  static l5::Bytes written(const RawPointVector& points) {
    l5::Bytes stream;
    l5::RowDeflater out([&](const unsigned char* p, std::size_t n) {
      stream.insert(stream.end(), p, p + n);
      return true;
    });
    EXPECT_TRUE(writeRawPointsElement(out, kRawDataVariable, points.size(), [&](const auto& take) {
      for (const auto& p : points) take(RawPointFields::of(p.get()));
    }));
    EXPECT_TRUE(out.finish());
    return inflated(stream);
  }

  static l5::Bytes encoded(const RawPointVector& points) {
    l5::Bytes bytes;
    EXPECT_TRUE(l5::encodeArray(bytes, kRawDataVariable, rawPointsToCellArray(points).get()));
    return bytes;
  }
};

TEST_F(RawPointsElement, RowsAreTheBytesOfTheHostArraysEncoding) {
  const RawPointVector points = oddPoints();
  EXPECT_EQ(written(points), encoded(points));
  EXPECT_EQ(written({}), encoded({}));
}

// Enough rows of many lengths and values for the deflate window to slide
// several times (copies reach back to rows of other lengths), and for the
// rows to inflate beyond what is inflated whole at opening: loading reads
// them through a window, with the same points, and refuses them damaged.
TEST_F(RawPointsElement, LongTracesInflateWholeAndLoadThroughAWindow) {
  std::mt19937 rng(5);
  RawPointVector points;
  const RawPointVector odd = oddPoints();
  for (int i = 0; i < 70000; ++i) {
    const RawPointPtr& pick = odd[rng() % odd.size()];
    const RawPointPtr p = pick ? RawPointFields::of(pick.get()).toPoint() : nullptr;
    if (p) {
      p->phaseId = id(tg::kPhaseKind, std::string(rng() % 40, 'p') + std::to_string(rng() % 7));
      p->wallTime = i + (rng() % 1000) * 1e-6;
      if (p->basicMemStats) p->basicMemStats->procMemUsage = 1e8 + rng() % 4096;
    }
    points.push_back(p);
  }
  EXPECT_EQ(written(points), encoded(points));
  tgtest::ScratchDir scratch;
  const std::string file = (scratch.dir() / "long.orf").string();
  saveTraceFile(file, points);
  RawPointVector back;
  TempoGaugingSystemInfo info;
  std::string root;
  ASSERT_TRUE(loadTraceFile(file, back, info, root));
  // Loaded rows are the rows saved (names interned again, gaps cleared).
  EXPECT_EQ(encoded(back), encoded(points));
  loadTraceIntoStore(file);
  EXPECT_EQ(rawCount(), points.size());

  const std::string bytes = tgtest::readFile(file);
  for (const std::size_t at : {bytes.size() / 2, bytes.size() - 20}) {
    std::string damaged = bytes;
    damaged[at] = static_cast<char>(damaged[at] ^ 0x5A);
    const std::string name = (scratch.dir() / ("damaged" + std::to_string(at) + ".orf")).string();
    std::ofstream(name, std::ios::binary) << damaged;
    RawPointVector none;
    EXPECT_THROW(loadTraceFile(name, none, info, root),
                 hfnd::except::Exception<tempogauge::TempoGauge::OpenFileFailed>) << at;
    EXPECT_TRUE(none.empty());
  }
}

TEST_F(RawPointsElement, StoreGivesBackWhatWentIn) {
  const RawPointVector points = oddPoints();
  RawPointStore store;
  for (const auto& p : points) store.push_back(p);
  ASSERT_EQ(store.size(), points.size());
  for (std::size_t i = 0; i < points.size(); ++i) {
    SCOPED_TRACE(i);
    const RawPointPtr back = store.at(i);
    ASSERT_EQ(back == nullptr, points[i] == nullptr);
    if (!back) continue;
    EXPECT_EQ(typeid(*back), typeid(*points[i]));
    EXPECT_EQ(back->basicMemStats == nullptr, points[i]->basicMemStats == nullptr);
    EXPECT_EQ(back->detailedMemStats == nullptr, points[i]->detailedMemStats == nullptr);
  }
  // The same rows, so the same fields, ids and figures.
  RawPointVector all(store.begin(), store.end());
  EXPECT_EQ(encoded(all), encoded(points));
  // Erasing keeps the order of the rest.
  store.eraseIf([](const RawPointFields& f) { return f.pointClass != 0; });
  RawPointVector hosts(store.begin(), store.end());
  EXPECT_EQ(encoded(hosts), encoded({points[0], points[4], points[6]}));
}

TEST_F(RawPointsElement, BasicPointsTake56BytesAndDetailedOnesTheirFigures) {
  RawPointStore store;
  const RawPointPtr basic = std::make_shared<TGORRERYDataPoint>();
  constexpr std::size_t kCount = 1000000;
  for (std::size_t i = 0; i < kCount; ++i) store.push_back(basic);
  EXPECT_LE(store.bytesHeld() / double(kCount), 57.0);
  auto detailed = std::make_shared<TGCWGENDataPoint>();
  *detailed->detailedMemStats = tg::DetailedMemStats(1, 2, 3, 4, 5);
  RawPointStore rich;
  for (std::size_t i = 0; i < kCount; ++i) rich.push_back(detailed);
  EXPECT_LE(rich.bytesHeld() / double(kCount), 57.0 + 2 * (20 + 40));
}

}  // namespace
