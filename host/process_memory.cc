// SPDX-License-Identifier: BSD-3-Clause
#include "host/process_memory.h"

#include <fcntl.h>
#include <pthread.h>
#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <charconv>

namespace tg::host {
namespace {

// The statm file stays open for the life of the process. An open
// /proc/self file keeps naming the process that opened it, so a forked child
// drops the parent's descriptor and opens its own at its first read.
class StatmFile {
 public:
  StatmFile() { pthread_atfork(nullptr, nullptr, &StatmFile::forgetInChild); }

  int descriptor() noexcept {
    int fd = fd_.load(std::memory_order_acquire);
    if (fd >= 0) return fd;
    const int opened = ::open("/proc/self/statm", O_RDONLY | O_CLOEXEC);
    if (opened < 0) return -1;
    if (fd_.compare_exchange_strong(fd, opened, std::memory_order_acq_rel)) return opened;
    ::close(opened);  // another thread got there first
    return fd;
  }

  static StatmFile& instance() {
    static StatmFile file;
    return file;
  }

  // The highest resident size any sample has shown: the peak given out never
  // falls below it. getrusage's peak and statm's resident size are counted by
  // different bookkeeping in the kernel, and the former can lag the latter.
  std::uint64_t raisePeak(std::uint64_t candidate) noexcept {
    std::uint64_t seen = peak_.load(std::memory_order_relaxed);
    while (candidate > seen && !peak_.compare_exchange_weak(seen, candidate, std::memory_order_relaxed)) {
    }
    return candidate > seen ? candidate : seen;
  }

 private:
  static void forgetInChild() {
    StatmFile& self = instance();
    const int fd = self.fd_.exchange(-1, std::memory_order_acq_rel);
    if (fd >= 0) ::close(fd);
    self.peak_.store(0, std::memory_order_relaxed);  // a child's peak is its own
  }

  std::atomic<int> fd_{-1};
  std::atomic<std::uint64_t> peak_{0};
};

// Reads the next decimal field; false if there is none.
bool nextNumber(const char*& at, const char* end, std::uint64_t& value) noexcept {
  while (at < end && *at == ' ') ++at;
  const auto result = std::from_chars(at, end, value);
  if (result.ec != std::errc()) return false;
  at = result.ptr;
  return true;
}

}  // namespace

bool readProcessCounters(ProcessCounters& out) noexcept {
  StatmFile& statm = StatmFile::instance();
  const int fd = statm.descriptor();
  if (fd < 0) return false;
  char text[128];
  const ssize_t length = ::pread(fd, text, sizeof text, 0);
  if (length <= 0) return false;
  const char* at = text;
  const char* const end = text + length;
  std::uint64_t sizePages = 0;
  std::uint64_t residentPages = 0;
  if (!nextNumber(at, end, sizePages) || !nextNumber(at, end, residentPages)) return false;
  static const std::uint64_t pageSize = static_cast<std::uint64_t>(::sysconf(_SC_PAGESIZE));
  rusage usage{};
  if (::getrusage(RUSAGE_SELF, &usage) != 0) return false;
  out.residentBytes = residentPages * pageSize;
  out.virtualBytes = sizePages * pageSize;
  const std::uint64_t reportedPeak = static_cast<std::uint64_t>(usage.ru_maxrss) * 1024u;
  out.peakResidentBytes = statm.raisePeak(std::max(reportedPeak, out.residentBytes));
  return true;
}

}  // namespace tg::host
