// SPDX-License-Identifier: BSD-3-Clause
#include "store/system_info_collection.h"

#include <memory>
#include <mutex>
#include <optional>
#include <string_view>

#include "collect/constants.h"
#include "collect/number_text.h"
#include "host/host_bridge.h"
#include "host/system_info.h"
#include "scripting/errors.h"

namespace TG = tempogauge::TempoGauge;

namespace {

enum class Expect { kCharVector, kNumericScalar };

// One host query: call `function` with an optional text input and one output.
// A failed call gives the empty text; an answer of the wrong form raises
// UnexpectedValue with `label`.
std::string queryHost(std::string_view function, std::optional<std::string_view> input, Expect expect,
                      std::string_view label) {
  oxArrayPtr in = input ? oxCreateString(*input) : nullptr;
  const oxArray* inputs[1] = {in.get()};
  oxArrayPtr out[1];
  const int status = oexCallORRERY(1, out, input ? 1 : 0, inputs, function);
  if (status != 0) return {};
  const oxArray* answer = out[0].get();
  if (expect == Expect::kCharVector) {
    if (!oxIsCharVector(answer)) tgRaise<TG::UnexpectedValue>(label);
    return oxArrayToStdString(answer);
  }
  if (!oxIsNumeric(answer) || !oxIsScalar(answer)) tgRaise<TG::UnexpectedValue>(label);
  return tgFormatDouble(oxGetScalar(answer), 15);
}

constexpr std::string_view kCpuLabel = "CPU information";

std::string systemDependent(std::string_view what) {
  return queryHost("system_dependent", what, Expect::kCharVector, kCpuLabel);
}

struct CollectedState {
  std::mutex mutex;
  TempoGaugingSystemInfo record;
  bool collected = false;
  std::unique_ptr<TempoGaugingSystemInfo> cached;
  bool cachedFlag = false;
};

CollectedState& state() {
  static CollectedState s;
  return s;
}

void collectLocked(CollectedState& s) {
  if (!s.collected) {
    querySystemInfo(s.record);
    s.collected = true;
  }
}

}  // namespace

std::string tgCpuSpeedText(double kiloHertz) {
  if (kiloHertz / 1e6 > 1.0) return tgFormatDouble(kiloHertz / 1e6, 5) + " GHz";
  return tgFormatDouble(kiloHertz / 1000.0, 5) + " MHz";
}

void querySystemInfo(TempoGaugingSystemInfo& r) {
  r.processorStr = systemDependent("getcpu");
  r.cpuSpeedStr = tgCpuSpeedText(huCPUspeedOS());
  r.numCoresStr = queryHost("feature", "numCores", Expect::kNumericScalar, "Number of Cores");
  r.totalPhysMemStr = tgFormatDouble(tgTotalPhysicalMemoryBytes() * tg::kBytesToMegabytes, 5);
  // The version texts come before the system's name.
  r.ORRERYVersionStr = queryHost("version", std::nullopt, Expect::kCharVector, kCpuLabel);
  r.javaVMVersionStr = queryHost("version", "-java", Expect::kCharVector, kCpuLabel);
  const std::string os = systemDependent("getos");
  r.operatingSystemStr = os + " " + systemDependent("getwinsys");
  r.installedProductsStr =
      queryHost("evalc", "ver", Expect::kCharVector, "installed products: [evalc('ver')]");
}

void collectSystemInfo(TempoGaugingSystemInfo& record) {
  auto& s = state();
  std::lock_guard lock(s.mutex);
  collectLocked(s);
  record = s.record;
}

const TempoGaugingSystemInfo* getCachedSystemInfo() {
  auto& s = state();
  std::lock_guard lock(s.mutex);
  if (s.cachedFlag) return s.cached.get();
  if (!s.cached) s.cached = std::make_unique<TempoGaugingSystemInfo>();
  collectLocked(s);
  *s.cached = s.record;
  s.cachedFlag = true;
  return s.cached.get();
}

std::string getHostRoot() {
  static std::mutex mutex;
  static std::string lastRoot;
  oxArrayPtr out[1];
  const int status = oexCallORRERY(1, out, 0, nullptr, "orreryroot");
  std::lock_guard lock(mutex);
  if (status != 0) return lastRoot;
  if (!oxIsCharVector(out[0].get())) tgRaise<TG::UnexpectedValue>("ORRERY Root");
  lastRoot = oxArrayToStdString(out[0].get());
  return lastRoot;
}
