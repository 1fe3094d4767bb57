// SPDX-License-Identifier: BSD-3-Clause
#include "host/host_print.h"

#include <cstdarg>
#include <cstdio>
#include <mutex>
#include <string>
#include <vector>

namespace {

std::mutex& printerMutex() {
  static std::mutex m;
  return m;
}

std::function<void(std::string_view)>& printer() {
  static std::function<void(std::string_view)> p;
  return p;
}

}  // namespace

void tgSetHostPrinter(std::function<void(std::string_view)> sink) {
  std::lock_guard lock(printerMutex());
  printer() = std::move(sink);
}

void tgHostPrintf(const char* format, ...) {
  va_list args;
  va_start(args, format);
  va_list copy;
  va_copy(copy, args);
  const int length = std::vsnprintf(nullptr, 0, format, copy);
  va_end(copy);
  std::string text(length > 0 ? static_cast<std::size_t>(length) : 0, '\0');
  if (length > 0) std::vsnprintf(text.data(), text.size() + 1, format, args);
  va_end(args);
  std::lock_guard lock(printerMutex());
  if (printer()) {
    printer()(text);
  } else {
    std::fwrite(text.data(), 1, text.size(), stdout);
    std::fflush(stdout);
  }
}
