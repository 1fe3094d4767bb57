// SPDX-License-Identifier: BSD-3-Clause
#include "host/system_info.h"

#include <sys/sysinfo.h>
#include <sys/utsname.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <string_view>

namespace {

std::string trim(std::string_view text) {
  const auto first = text.find_first_not_of(" \t\r\n");
  if (first == std::string_view::npos) return {};
  const auto last = text.find_last_not_of(" \t\r\n");
  return std::string(text.substr(first, last - first + 1));
}

// The value of the first "key : value" line of /proc/cpuinfo whose key is one of `keys`
// (earlier keys win).
std::string cpuinfoValue(std::initializer_list<std::string_view> keys) {
  std::ifstream in("/proc/cpuinfo");
  std::string line;
  std::string best;
  std::size_t bestRank = keys.size();
  while (std::getline(in, line)) {
    const auto colon = line.find(':');
    if (colon == std::string::npos) continue;
    const std::string key = trim(std::string_view(line).substr(0, colon));
    std::size_t rank = 0;
    for (const auto k : keys) {
      if (rank < bestRank && key == k) {
        best = trim(std::string_view(line).substr(colon + 1));
        bestRank = rank;
        break;
      }
      ++rank;
    }
    if (bestRank == 0) break;
  }
  return best;
}

double readNumber(const char* path) {
  std::ifstream in(path);
  double value = 0.0;
  if (in >> value) return value;
  return 0.0;
}

}  // namespace

std::string tgProcessorName() {
  std::string name = cpuinfoValue({"model name", "Processor", "cpu model", "Hardware", "cpu"});
  if (!name.empty()) return name;
  utsname u{};
  if (uname(&u) == 0) return u.machine;
  return {};
}

double huCPUspeedOS() {
  if (const double khz = readNumber("/sys/devices/system/cpu/cpu0/cpufreq/cpuinfo_max_freq"); khz > 0.0)
    return khz;
  const std::string mhz = cpuinfoValue({"cpu MHz"});
  if (!mhz.empty()) {
    char* end = nullptr;
    const double value = std::strtod(mhz.c_str(), &end);
    if (end != mhz.c_str() && value > 0.0) return value * 1000.0;
  }
  return 0.0;
}

unsigned tgNumberOfCores() {
  const long n = sysconf(_SC_NPROCESSORS_ONLN);
  return n > 0 ? static_cast<unsigned>(n) : 1u;
}

double tgTotalPhysicalMemoryBytes() {
  struct sysinfo info {};
  if (sysinfo(&info) != 0) return 0.0;
  return static_cast<double>(info.totalram) * static_cast<double>(info.mem_unit);
}

std::string tgOperatingSystemName() {
  std::ifstream in("/etc/os-release");
  std::string line;
  while (std::getline(in, line)) {
    if (!line.starts_with("PRETTY_NAME=")) continue;
    std::string value = trim(std::string_view(line).substr(12));
    if (value.size() >= 2 && (value.front() == '"' || value.front() == '\'') && value.back() == value.front())
      value = value.substr(1, value.size() - 2);
    if (!value.empty()) return value;
  }
  utsname u{};
  if (uname(&u) == 0) return u.sysname;
  return {};
}

std::string tgKernelDescription() {
  utsname u{};
  if (uname(&u) != 0) return {};
  return std::string(u.sysname) + " " + u.release + " " + u.machine;
}
