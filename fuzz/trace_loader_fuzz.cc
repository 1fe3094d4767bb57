// SPDX-License-Identifier: BSD-3-Clause
// The trace loader on arbitrary bytes: the file is read and checked, each of
// its variables decoded, and, when it is a trace, its rows turned into points
// as a report would load them. Any input must end in a result, never in a
// crash, a leak or undefined behaviour.
#include <sys/mman.h>
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "host/level5_check.h"
#include "host/level5_decoder.h"
#include "store/trace_file.h"
#include "tempogauge/tempogauge.h"

namespace {

// The input as a file: an anonymous one in memory, named by its descriptor.
class MemoryFile {
 public:
  MemoryFile(const std::uint8_t* data, std::size_t size) : fd_(::memfd_create("trace", 0)) {
    if (fd_ < 0) return;
    std::size_t done = 0;
    while (done < size) {
      const ssize_t n = ::write(fd_, data + done, size - done);
      if (n <= 0) break;
      done += static_cast<std::size_t>(n);
    }
  }
  ~MemoryFile() {
    if (fd_ >= 0) ::close(fd_);
  }
  MemoryFile(const MemoryFile&) = delete;
  MemoryFile& operator=(const MemoryFile&) = delete;
  std::string path() const { return "/proc/self/fd/" + std::to_string(fd_); }
  bool isOpen() const { return fd_ >= 0; }

 private:
  int fd_;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const MemoryFile file(data, size);
  if (!file.isOpen()) return 0;
  std::vector<tg::level5::Variable> variables;
  bool swapped = false;
  if (!tg::level5::readFile(file.path(), variables, swapped)) return 0;
  for (const auto& v : variables) tg::level5::decodeElement(v.element, swapped);
  RawPointVector points;
  TempoGaugingSystemInfo info;
  std::string root;
  try {
    loadTraceFile(file.path(), points, info, root);
  } catch (const std::exception&) {
    // A file that is no trace is refused with a message: a result too.
  }
  return 0;
}
