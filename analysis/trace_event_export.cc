// SPDX-License-Identifier: BSD-3-Clause
#include "analysis/trace_event_export.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <ostream>
#include <streambuf>
#include <string>
#include <string_view>
#include <vector>

#include <nlohmann/json.hpp>

#include "host/whole_file.h"
#include "tempogauge/analysis.h"
#include "tempogauge/collect.h"
#include "tempogauge/collect/constants.h"
#include "tempogauge/collect/tempo_gauge.h"
#include "tempogauge/store/system_info_collection.h"

namespace {

using nlohmann::json;

constexpr int kPid = 1;
constexpr int kTid = 1;

// Times travel as whole nanoseconds so that a child's end, rounded the same
// way as its parent's, never passes it; viewers get microseconds.
std::int64_t toNanoseconds(double seconds) { return std::llround(seconds * 1e9); }
double toMicroseconds(std::int64_t nanoseconds) { return static_cast<double>(nanoseconds) / 1e3; }

// One sample of the process memory track.
struct MemorySample {
  std::int64_t ns;
  double usage;
  double peak;
};

std::string nameOf(std::uint32_t kind, std::int32_t id) { return id < 0 ? std::string() : tgGetNameStr(kind, id); }

json phaseArgs(const TGORRERYProcessedDataPoint& p) {
  json args = {
      {"phase number", p.HTMLPhaseNumString},
      {"grouping", nameOf(tg::kGroupingKind, p.grouping)},
      {"wall time (s)", p.wcElapsedTime},
      {"cpu time (s)", p.cpuElapsedTime},
  };
  if (p.getModel() >= 0) args["model"] = nameOf(tg::kModelKind, p.getModel());
  if (p.getTarget() >= 0) args["target"] = nameOf(tg::kTargetKind, p.getTarget());
  if (p.getMachine() >= 0) args["machine"] = nameOf(tg::kMachineKind, p.getMachine());
  if (p.getChart() >= 0) args["chart"] = nameOf(tg::kChartKind, p.getChart());
  if (p.basicMem) {
    const auto& m = *p.basicMem;
    args["memory usage (MiB)"] = m.procMemUsage;
    args["memory usage change (MiB)"] = m.procMemUsageDelta;
    args["memory peak (MiB)"] = m.procMemUsagePeak;
    args["memory peak change (MiB)"] = m.procMemUsagePeakDelta;
    args["virtual size (MiB)"] = m.procVMSize;
    args["virtual size change (MiB)"] = m.procVMSizeDelta;
  }
  if (p.detailedMem) {
    const auto& d = *p.detailedMem;
    args["committed (MiB)"] = d.commitMem;
    args["committed change (MiB)"] = d.commitMemDelta;
    args["reserved (MiB)"] = d.resMem;
    args["free (MiB)"] = d.freeMem;
    args["libraries (MiB)"] = d.dllsMem;
    args["other processes (MiB)"] = d.nonprocessMem;
  }
  if (p.isGapRow()) args["gap"] = true;
  return args;
}

json machineDescription(const TempoGaugingSystemInfo& info) {
  return {{"processor", info.processorStr},           {"cpu speed", info.cpuSpeedStr},
          {"cores", info.numCoresStr},                {"physical memory", info.totalPhysMemStr},
          {"operating system", info.operatingSystemStr}, {"host version", info.ORRERYVersionStr},
          {"java version", info.javaVMVersionStr},    {"installed products", info.installedProductsStr}};
}

// Writes events one at a time, so that a long run is never held as one tree.
class EventWriter {
 public:
  explicit EventWriter(std::ostream& out) : out_(out) {}
  void add(const json& event) {
    out_ << (first_ ? "\n" : ",\n") << event.dump(-1, ' ', false, json::error_handler_t::replace);
    first_ = false;
  }

 private:
  std::ostream& out_;
  bool first_ = true;
};

json metadataEvent(std::string_view name, int tid, json args) {
  return {{"ph", "M"}, {"name", name}, {"pid", kPid}, {"tid", tid}, {"args", std::move(args)}};
}

// A stream's buffer that hands its text to a whole file in blocks; a failed
// write marks the file as failed, and commit() then reports it.
class WholeFileBuffer : public std::streambuf {
 public:
  explicit WholeFileBuffer(WholeFile& file) : file_(file) { setp(block_.data(), block_.data() + block_.size()); }
  ~WholeFileBuffer() override { sync(); }
  WholeFileBuffer(const WholeFileBuffer&) = delete;
  WholeFileBuffer& operator=(const WholeFileBuffer&) = delete;

 protected:
  int_type overflow(int_type c) override {
    if (sync() != 0) return traits_type::eof();
    if (!traits_type::eq_int_type(c, traits_type::eof())) {
      *pptr() = traits_type::to_char_type(c);
      pbump(1);
    }
    return traits_type::not_eof(c);
  }
  int sync() override {
    const std::string_view text(pbase(), static_cast<std::size_t>(pptr() - pbase()));
    setp(block_.data(), block_.data() + block_.size());
    return file_.write(text) ? 0 : -1;
  }

 private:
  WholeFile& file_;
  std::array<char, 1 << 16> block_{};
};

}  // namespace

void writeTraceEvents(std::ostream& out, const TGProcessedDataStruct& run, const TempoGaugingSystemInfo& info,
                      std::string_view title) {
  if (run.hasErrors)
    throw UnpairedTraceError("the starts and ends of the phases do not pair up; the diagnostic report shows where");
  const json machine = machineDescription(info);
  out << "{\"displayTimeUnit\":\"ms\",\"otherData\":"
      << machine.dump(-1, ' ', false, json::error_handler_t::replace) << ",\"traceEvents\":[";
  EventWriter events(out);
  events.add(metadataEvent("process_name", 0, {{"name", title}}));
  events.add(metadataEvent("process_labels", 0, {{"labels", info.processorStr + ", " + info.operatingSystemStr}}));
  events.add(metadataEvent("thread_name", kTid, {{"name", "phases"}}));

  std::vector<std::int64_t> openEnds;  // end of the open phase at each depth
  std::vector<MemorySample> memory;
  memory.reserve(run.processedPoints.size() * 2);
  for (const ProcessedPointPtr& point : run.processedPoints) {
    const TGORRERYProcessedDataPoint& p = *point;
    const auto depth = static_cast<std::size_t>(std::max(0, p.stackDepth));
    const std::int64_t start = toNanoseconds(p.wcStartTime);
    std::int64_t end = std::max(start, toNanoseconds(p.wcStartTime + p.wcElapsedTime));
    if (depth > 0 && depth <= openEnds.size()) end = std::min(end, openEnds[depth - 1]);
    openEnds.resize(depth);
    openEnds.push_back(end);
    events.add({{"ph", "X"},
                {"name", nameOf(tg::kPhaseKind, p.phaseID)},
                {"cat", p.isGapRow() ? "gap" : "phase"},
                {"pid", kPid},
                {"tid", kTid},
                {"ts", toMicroseconds(start)},
                {"dur", toMicroseconds(end - start)},
                {"args", phaseArgs(p)}});
    if (p.basicMem && !p.isGapRow()) {
      const auto& m = *p.basicMem;
      memory.push_back({start, m.procMemUsage - m.procMemUsageDelta, m.procMemUsagePeak - m.procMemUsagePeakDelta});
      memory.push_back({end, m.procMemUsage, m.procMemUsagePeak});
    }
  }
  std::stable_sort(memory.begin(), memory.end(),
                   [](const MemorySample& a, const MemorySample& b) { return a.ns < b.ns; });
  for (const MemorySample& sample : memory) {
    events.add({{"ph", "C"},
                {"name", "process memory (MiB)"},
                {"pid", kPid},
                {"tid", kTid},
                {"ts", toMicroseconds(sample.ns)},
                {"args", {{"usage", sample.usage}, {"peak", sample.peak}}}});
  }
  out << "\n]}\n";
}

bool writeTraceEventFile(std::string_view jsonFile, const TGProcessedDataStruct& run,
                         const TempoGaugingSystemInfo& info, std::string_view title) {
  if (run.hasErrors)
    throw UnpairedTraceError("the starts and ends of the phases do not pair up; the diagnostic report shows where");
  WholeFile file(jsonFile);
  if (!file.isOpen()) return false;
  {
    WholeFileBuffer buffer(file);
    std::ostream out(&buffer);
    writeTraceEvents(out, run, info, title);
    out.flush();
  }
  return file.commit();
}

bool writeTraceEventFile(std::string_view jsonFile, std::string_view grouping) {
  std::vector<std::string> groupings = tgGetGroupingList(std::string(grouping));
  if (groupings.empty()) groupings.emplace_back(grouping);
  const TGProcessedDataStruct run = tgGetProcessedDataForGroupings(nullptr, groupings);
  TempoGaugingSystemInfo info;
  collectSystemInfo(info);
  return writeTraceEventFile(jsonFile, run, info, grouping);
}
