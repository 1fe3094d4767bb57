// Saved trace files: the shared save path, loading into a vector and into
// the store, and files that are missing, damaged, full or of the wrong kind.
#include <gtest/gtest.h>

#include <sys/resource.h>
#include <unistd.h>

#include <csignal>
#include <cstring>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <random>
#include <vector>

#include "host/data_file.h"
#include "host_array_text.h"
#include "raised_text.h"
#include "root_host.h"
#include "scratch_files.h"
#include "scripting/errors.h"
#include "store/raw_points_array.h"
#include "store/system_info_collection.h"
#include "store/trace_file.h"

namespace fs = std::filesystem;

namespace {

// Offsets at which the file's top-level elements end (compressed elements
// are not padded).
std::vector<std::uintmax_t> elementEnds(const std::string& file) {
  const std::string b = tgtest::readFile(file);
  std::vector<std::uintmax_t> ends;
  std::size_t at = 128;
  while (at + 8 <= b.size()) {
    std::uint32_t bytes;
    std::memcpy(&bytes, b.data() + at + 4, 4);
    at += 8 + bytes;
    ends.push_back(at);
  }
  return ends;
}

class TraceFile : public RootHostTest {
 protected:
  void SetUp() override {
    RootHostTest::SetUp();
    host->root = "/opt/testhost";
  }
  std::string path(const std::string& name) const { return scratch_.path(name); }

  // Logs a small run of all three kinds; phase names carry the host's root.
  void logRun(const std::string& grouping) {
    tgAddGrouping(grouping);
    tgEnableTracer(grouping, true);
    const std::string outer = host->root + "/toolbox/outer.m";
    tgLogORRERYData(grouping, outer, true);
    tgLogCogwheelData(grouping, "model", "target", "cw", true);
    tgLogLoomchartData(grouping, "model", "target", "machine", "chart", "lc", true);
    tgLogLoomchartData(grouping, "model", "target", "machine", "chart", "lc", false);
    tgLogCogwheelData(grouping, "model", "target", "cw", false);
    tgLogORRERYData(grouping, outer, false);
    tgEnableTracer(grouping, false);
  }

  tgtest::ScratchDir scratch_{"tg_trace_file"};
};

// The order of the three variables, as Octave's load sees it, is tested in
// tests/octave/test_saved_trace_interop.m.
TEST_F(TraceFile, LoadKeepsTheOrderAndTheLoadedNamesLoseTheRoot) {
  const std::string grouping = unique("G");
  logRun(grouping);
  const auto live = store().copyRawPoints();
  const std::string file = path("run.orf");
  saveTraceFile(file, *live);

  RawPointVector points;
  TempoGaugingSystemInfo info;
  std::string root;
  ASSERT_TRUE(loadTraceFile(file, points, info, root));
  EXPECT_EQ(root, "/opt/testhost");
  // The same rows (rows lose the root, so the live points' rows match).
  EXPECT_EQ(tgtest::arrayText(rawPointsToCellArray(points).get()), tgtest::arrayText(rawPointsToCellArray(*live).get()));
  EXPECT_EQ(tgGetNameStr(tg::kGroupingKind, points[0]->groupingId), grouping);
  EXPECT_EQ(tgGetNameStr(tg::kPhaseKind, points[0]->phaseId), "toolbox/outer.m");
  EXPECT_EQ(tgGetNameStr(tg::kPhaseKind, (*live)[0]->phaseId), "/opt/testhost/toolbox/outer.m");
  EXPECT_EQ(info.processorStr, getCachedSystemInfo()->processorStr);
  EXPECT_EQ(info.installedProductsStr, getCachedSystemInfo()->installedProductsStr);
}

TEST_F(TraceFile, LoadingIntoTheStoreReplacesPointsRecordAndRoot) {
  logRun(unique("Saved"));
  const std::string file = path("other-machine.orf");
  host->root = "/other/machine";
  saveTraceFile(file, *store().copyRawPoints());
  const std::size_t saved = rawCount();

  host->root = "/local/host";
  hostRootPathSet("/local/host");
  tgClearRawData();
  logRun(unique("Live"));
  logRun(unique("Live2"));
  ASSERT_EQ(rawCount(), 2 * saved);
  loadTraceIntoStore(file);
  EXPECT_EQ(rawCount(), saved);
  EXPECT_EQ(hostRootPath(), "/other/machine");
  {
    std::lock_guard lock(store().mutex());
    ASSERT_TRUE(store().loadedSystemInfo);
    EXPECT_EQ(store().loadedSystemInfo->cpuSpeedStr, getCachedSystemInfo()->cpuSpeedStr);
  }
  EXPECT_EQ(tgGetNameStr(tg::kGroupingKind, rawAt(0)->groupingId), unique("Saved"));
}

// Files without usable rows: only a root, variables of the wrong kind (the
// record left as it was, the root empty), and an empty trace.
TEST_F(TraceFile, FilesWithoutRowsLoadAsNoPoints) {
  const auto put = [&](const std::string& name, std::vector<std::pair<const char*, oxArrayPtr>> variables) {
    auto f = orfOpen(path(name), "w");
    for (const auto& [variable, value] : variables) EXPECT_EQ(orfPutVariable(f.get(), variable, value.get()), 0);
    EXPECT_EQ(orfClose(f), 0);
    return path(name);
  };
  std::vector<std::pair<const char*, oxArrayPtr>> wrong;
  wrong.emplace_back("TempoGaugingRawDataVector", oxCreateDoubleScalar(4));
  wrong.emplace_back("TempoGaugingSystemInfo", oxCreateString("no struct"));
  wrong.emplace_back("ORRERYRoot", oxCreateDoubleScalar(7));
  std::vector<std::pair<const char*, oxArrayPtr>> rootOnly;
  rootOnly.emplace_back("ORRERYRoot", oxCreateString("/r"));
  saveTraceFile(path("empty.orf"), {});
  const std::pair<std::string, std::string> cases[] = {
      {put("root-only.orf", std::move(rootOnly)), "/r"}, {put("wrong.orf", std::move(wrong)), ""},
      {path("empty.orf"), "/opt/testhost"}};
  for (const auto& [file, wantRoot] : cases) {
    RawPointVector points;
    TempoGaugingSystemInfo info;
    info.processorStr = "unchanged";
    std::string root = "before";
    ASSERT_TRUE(loadTraceFile(file, points, info, root)) << file;
    EXPECT_TRUE(points.empty()) << file;
    EXPECT_EQ(root, wantRoot);
    EXPECT_EQ(info.processorStr == "unchanged", file != path("empty.orf")) << file;
    logRun(unique("G"));
    loadTraceIntoStore(file);
    EXPECT_EQ(rawCount(), 0u) << file;
    EXPECT_EQ(hostRootPath(), wantRoot);
  }
}

TEST_F(TraceFile, BadFilesRaiseOpenFileFailedAndLeaveTheStoreAlone) {
  logRun(unique("G"));
  const std::string good = path("good.orf");
  saveTraceFile(good, *store().copyRawPoints());
  const std::size_t before = rawCount();

  const std::string bytes = tgtest::readFile(good);
  const auto write = [&](const std::string& name, std::string_view content) {
    std::ofstream(path(name), std::ios::binary) << content;
    return path(name);
  };
  std::string noise(4096, '\0');
  std::mt19937 random(7);
  for (auto& c : noise) c = static_cast<char>(random());
  std::string damaged = bytes;
  damaged[200] ^= 0x5A;  // inside the compressed raw data
  const std::vector<std::string> bad{
      path("missing.orf"),
      write("empty.orf", {}),
      write("noise.orf", noise),
      write("cut.orf", bytes.substr(0, bytes.size() - 10)),
      write("damaged.orf", damaged),
      scratch_.dir().string(),
  };
  for (const auto& file : bad) {
    RawPointVector points;
    TempoGaugingSystemInfo info;
    std::string root;
    const std::string failed = "OpenFileFailed(" + file + ")";
    EXPECT_EQ(tgtest::raisedText([&] { loadTraceFile(file, points, info, root); }), failed);
    EXPECT_TRUE(points.empty()) << file;
    EXPECT_EQ(tgtest::raisedText([&] { loadTraceIntoStore(file); }), failed);
    EXPECT_EQ(rawCount(), before) << file;
  }
}

TEST_F(TraceFile, SavesThatCannotBeMadeOrWrittenRaise) {
  const std::string file = path("no/such/folder/run.orf");
  EXPECT_EQ(tgtest::raisedText([&] { saveTraceFile(file, {}); }), "OpenFileFailed(" + file + ")");
  EXPECT_FALSE(fs::exists(file));
  logRun(unique("G"));
  EXPECT_EQ(tgtest::raisedText([&] { saveTraceFile("/dev/full", *store().copyRawPoints()); }),
            "DataWriteFail(Raw Data,/dev/full)");
}

// Saves `points` under a file size limit just short of the end of each of
// the three variables in turn; 0 when every save raised DataWriteFail with
// that variable's label and left the trace saved before at that name as it was.
int savesUnderSizeLimits(const RawPointVector& points, const std::string& reference, const std::string& target) {
  std::signal(SIGXFSZ, SIG_IGN);
  saveTraceFile(reference, points);
  const auto ends = elementEnds(reference);
  if (ends.size() != 3) return 2;
  const std::vector<std::string> labels{"Raw Data", "System Information", "ORRERY Root"};
  rlimit limit{};
  getrlimit(RLIMIT_FSIZE, &limit);
  const rlim_t unlimited = limit.rlim_cur;
  saveTraceFile(target, {});
  const std::string before = tgtest::readFile(target);
  for (std::size_t k = 0; k < 3; ++k) {
    limit.rlim_cur = ends[k] - 4;
    setrlimit(RLIMIT_FSIZE, &limit);
    const std::string raised = tgtest::raisedText([&] { saveTraceFile(target, points); });
    limit.rlim_cur = unlimited;
    setrlimit(RLIMIT_FSIZE, &limit);
    if (raised != "DataWriteFail(" + labels[k] + "," + target + ")") {
      std::fprintf(stderr, "put %zu: %s\n", k, raised.c_str());
      return 1;
    }
    if (tgtest::readFile(target) != before) return 3;
  }
  return 0;
}

// Runs in a fresh process, as it lowers the process's file size limit.
TEST_F(TraceFile, EachFailedPutNamesItsVariable) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  logRun(unique("G"));
  const auto points = store().copyRawPoints();
  EXPECT_EXIT(std::_Exit(savesUnderSizeLimits(*points, path("reference.orf"), path("limited.orf"))),
              ::testing::ExitedWithCode(0), "");
}

}  // namespace
