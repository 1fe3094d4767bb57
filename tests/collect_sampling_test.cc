// SPDX-License-Identifier: BSD-3-Clause
// Sampling: the clocks, the process counters and the address-space walk.
#include <gtest/gtest.h>
#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstring>
#include <memory>
#include <vector>

#include "collect/address_region_reader.h"
#include "collect/address_space_scanner.h"
#include "host/clock.h"
#include "host/process_memory.h"
#include "tempogauge/tempogauge.h"

namespace {

constexpr std::uint64_t kMiB = 1u << 20;
// Everything below the top of the user address space.
constexpr std::uint64_t kUserSpace = 0x7fffffffffffull + 1;

// An anonymous mapping that goes when the test ends.
struct Mapping {
  Mapping(std::size_t bytes, int protection)
      : size(bytes), address(::mmap(nullptr, bytes, protection, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0)) {}
  ~Mapping() {
    if (address != MAP_FAILED) ::munmap(address, size);
  }
  std::size_t size;
  void* address;
};

TEST(Sampling, ClocksMoveForward) {
  const double wall = huRealtime();
  const double cpu = huCPUtime();
  volatile double sink = 0;
  for (int i = 0; i < 2000000; ++i) sink = sink + i * 0.5;
  EXPECT_GT(huRealtime(), wall);
  EXPECT_GT(huCPUtime(), cpu);
  EXPECT_GT(wall, 0.0);
}

// Over a workload that grows and frees memory, every logged point's peak is at
// least its usage, and the peak never falls from one point to the next.
TEST(Sampling, PeakNeverBelowUsageNorFalling) {
  tgEnableGlobalLogging(true);
  tgClearRawData();
  std::vector<std::unique_ptr<Mapping>> held;
  for (int round = 0; round < 20; ++round) {
    tgLogORRERYData(std::string("Sampling.Peak"), "grow", true);
    if (round % 4 == 3) {
      held.clear();  // give everything back
    } else {
      held.push_back(std::make_unique<Mapping>((2 + round % 3 * 3) * kMiB, PROT_READ | PROT_WRITE));
      std::memset(held.back()->address, 1, held.back()->size);
    }
    tgLogORRERYData(std::string("Sampling.Peak"), "grow", false);
  }
  tgEnableGlobalLogging(false);
  const std::unique_ptr<RawPointVector> points = TempoGauge::instance()->copyRawPoints();
  ASSERT_EQ(points->size(), 40u);
  double previousPeak = 0.0;
  for (std::size_t i = 0; i < points->size(); ++i) {
    const tg::BasicMemStats& basic = *(*points)[i]->basicMemStats;
    EXPECT_GE(basic.procMemUsagePeak, basic.procMemUsage) << "point " << i;
    EXPECT_GE(basic.procMemUsagePeak, previousPeak) << "point " << i;
    previousPeak = basic.procMemUsagePeak;
  }
  tgClearRawData();
}

// A child after fork reads its own counters, not its parent's, and they
// follow mapped and touched memory.
TEST(Sampling, ForkedChildReadsItsOwnCounters) {
  tg::host::ProcessCounters parent;
  ASSERT_TRUE(tg::host::readProcessCounters(parent));  // the file is open now
  const pid_t child = ::fork();
  ASSERT_NE(child, -1);
  if (child == 0) {
    tg::host::ProcessCounters before;
    if (!tg::host::readProcessCounters(before)) ::_exit(2);
    const Mapping block(64 * kMiB, PROT_READ | PROT_WRITE);
    tg::host::ProcessCounters mapped, after;
    if (!tg::host::readProcessCounters(mapped) || mapped.virtualBytes < before.virtualBytes + 64 * kMiB) ::_exit(3);
    std::memset(block.address, 1, block.size);
    if (!tg::host::readProcessCounters(after)) ::_exit(4);
    ::_exit(after.residentBytes >= before.residentBytes + 60 * kMiB && after.peakResidentBytes >= after.residentBytes ? 0 : 1);
  }
  int status = 0;
  ASSERT_EQ(::waitpid(child, &status, 0), child);
  ASSERT_TRUE(WIFEXITED(status));
  EXPECT_EQ(WEXITSTATUS(status), 0);
}

TEST(Sampling, WalkCoversTheWholeUserSpaceAndSortsMappingsByAccess) {
  AddressSpaceScanner scanner;
  const std::uint64_t nonProcess = scanner.nonProcessBytes;
  // The 32-bit total wraps below the 47-bit user top.
  EXPECT_EQ(nonProcess, 0xFFFFFFFFull - 0x7fffffffffffull + 1);
  EXPECT_GT(nonProcess, std::uint64_t{1} << 63);
  scanner.scan();
  EXPECT_EQ(scanner.commitBytes + scanner.reservedBytes + scanner.freeBytes + scanner.moduleBytes, kUserSpace);
  EXPECT_EQ(scanner.privateBytes, scanner.commitBytes + scanner.reservedBytes);
  EXPECT_GT(scanner.regionCount, 10u);
  EXPECT_GT(scanner.moduleBytes, 0u);  // at least this program and its libraries
  EXPECT_GT(scanner.commitBytes, 0u);
  EXPECT_TRUE(scanner.scanLabel.empty());
  EXPECT_EQ(scanner.nonProcessBytes, nonProcess);
  // New mappings are sorted by their access.
  const AddressSpaceScanner first = scanner;
  const Mapping reserved(256 * kMiB, PROT_NONE);
  const Mapping committed(128 * kMiB, PROT_READ);
  ASSERT_NE(reserved.address, MAP_FAILED);
  ASSERT_NE(committed.address, MAP_FAILED);
  scanner.scan();
  EXPECT_GE(scanner.reservedBytes, first.reservedBytes + 256 * kMiB);
  EXPECT_LT(scanner.reservedBytes, first.reservedBytes + 300 * kMiB);
  EXPECT_GE(scanner.commitBytes, first.commitBytes + 128 * kMiB);
  EXPECT_LT(scanner.commitBytes, first.commitBytes + 200 * kMiB);
  EXPECT_LE(scanner.freeBytes, first.freeBytes - 384 * kMiB);
  EXPECT_EQ(scanner.commitBytes + scanner.reservedBytes + scanner.freeBytes + scanner.moduleBytes, kUserSpace);
}

// Where nothing can be read (no file may be opened), a point is still stored:
// its basic record stays zero-filled and the walk's sums are zero, apart from
// the constant space above the user range.
TEST(Sampling, UnreadableCountersLeaveZeroFiguresAndStillStore) {
  tg::host::ProcessCounters parent;
  ASSERT_TRUE(tg::host::readProcessCounters(parent));  // the file is open in the parent
  const pid_t child = ::fork();
  ASSERT_NE(child, -1);
  if (child == 0) {
    const rlimit none{0, 0};
    if (::setrlimit(RLIMIT_NOFILE, &none) != 0) ::_exit(10);
    AddressSpaceScanner scanner;
    scanner.scan();
    if (scanner.regionCount != 0 || scanner.commitBytes + scanner.freeBytes + scanner.moduleBytes +
                                            scanner.reservedBytes + scanner.privateBytes !=
                                        0)
      ::_exit(11);
    tg::host::ProcessCounters counters;
    if (tg::host::readProcessCounters(counters)) ::_exit(12);
    tgEnableGlobalLogging(true);
    tgEnableDetailedMemStats(true);
    tgClearRawData();
    if (!tgLogORRERYData(std::string("Sampling.Unreadable"), "p", true)) ::_exit(13);
    const RawPointPtr point = TempoGauge::instance()->rawData->back();
    const auto& basic = *point->basicMemStats;
    const auto& detailed = *point->detailedMemStats;
    if (basic.procMemUsage + basic.procMemUsagePeak + basic.procVMSize != 0.0) ::_exit(14);
    if (detailed.commitMem + detailed.resMem + detailed.freeMem + detailed.dllsMem != 0.0) ::_exit(15);
    if (detailed.nonprocessMem != static_cast<double>(scanner.nonProcessBytes)) ::_exit(16);
    if (point->wallTime <= 0.0) ::_exit(17);
    ::_exit(0);
  }
  int status = 0;
  ASSERT_EQ(::waitpid(child, &status, 0), child);
  ASSERT_TRUE(WIFEXITED(status));
  EXPECT_EQ(WEXITSTATUS(status), 0);
}

// Both ways of listing the mappings see the same list. The lists are taken
// one after the other, so a mapping made in between is possible: retry.
TEST(Sampling, RegionQueriesAndMapsTextAgree) {
  AddressRegionReader queries(true);
  AddressRegionReader text(false);
  std::vector<AddressRegion> byQuery;
  std::vector<AddressRegion> byText;
  byQuery.reserve(100000);
  byText.reserve(100000);
  auto list = [](AddressRegionReader& reader, std::vector<AddressRegion>& regions) {
    regions.clear();
    EXPECT_TRUE(reader.forEach([&](const AddressRegion& r) {
      if (r.start < kUserSpace) regions.push_back(r);
    }));
  };
  list(text, byText);  // the text buffer is allocated now, not between the lists
  bool same = false;
  for (int attempt = 0; attempt < 5 && !same; ++attempt) {
    list(queries, byQuery);
    list(text, byText);
    same = byQuery.size() == byText.size() && byQuery.size() > 10;
    for (std::size_t i = 0; same && i < byQuery.size(); ++i)
      same = byQuery[i].start == byText[i].start && byQuery[i].end == byText[i].end &&
             byQuery[i].noAccess == byText[i].noAccess;
  }
  EXPECT_TRUE(same);
}

}  // namespace
