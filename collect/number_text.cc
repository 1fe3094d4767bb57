// SPDX-License-Identifier: BSD-3-Clause
#include "collect/number_text.h"

#include <algorithm>
#include <boost/lexical_cast.hpp>
#include <charconv>
#include <chrono>
#include <cstdio>
#include <exception>
#include <limits>
#include <system_error>

#include "host/host_print.h"

std::string tgFormatDouble(double value, int precision) {
  // A text stream's default float format with precision p is the %g form with
  // p significant digits (p = 0 counts as 1); to_chars gives the same text
  // without the cost of a stream.
  const int p = std::clamp(precision, 0, 15);
  char buffer[64];
  const auto result = std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::general,
                                    p == 0 ? 1 : p);
  if (result.ec != std::errc()) return {};
  std::string text(buffer, result.ptr);
  // Streams spell non-finite values as inf, -inf and nan (or -nan).
  return text;
}

std::string tgDoubleToUString(double value, int precision) {
  std::string text;
  try {
    text = boost::lexical_cast<std::string>(value);  // up to 17 significant digits
    const auto dot = text.find('.');
    if (dot == std::string::npos) {
      if (precision < 1) return text;
      text += '.';
      text.append(static_cast<std::size_t>(precision), '0');
      return text;
    }
    // Cut, never round or pad. A precision of 0 also drops the last digit
    // before the point.
    const std::size_t keep = precision == 0 ? (dot == 0 ? 0 : dot - 1)
                                            : dot + static_cast<std::size_t>(precision) + 1;
    if (keep < text.size()) text.resize(keep);
  } catch (const std::exception& e) {
    tgHostPrintf("Exception in tgDoubleToUString\n %s\nParams: val=%f\tprecision=%d\n", e.what(), value,
                 precision);
  }
  return text;
}

std::string tgIntToUString(std::int32_t value) {
  std::string text;
  try {
    text = boost::lexical_cast<std::string>(value);
  } catch (const std::exception& e) {
    tgHostPrintf("Exception in tgIntToUString\n %s\nParam: val=%d\n", e.what(), value);
  }
  return text;
}

std::int64_t tgStopwatchStart() {
  return std::chrono::steady_clock::now().time_since_epoch().count();
}

void tgStopwatchElapsed(std::int64_t start, double* seconds, bool print) {
  using Clock = std::chrono::steady_clock;
  const auto ticks = Clock::now().time_since_epoch().count() - start;
  const double elapsed = static_cast<double>(ticks) * Clock::period::num / Clock::period::den;
  if (seconds) *seconds = elapsed;
  if (print) tgHostPrintf("Elapsed Time : %.7f s\n", elapsed);
}
