// SPDX-License-Identifier: BSD-3-Clause
// The inflated bytes of a zlib stream held in memory, read front to back
// through a window that is reused: a variable of a gigabyte is read without
// a gigabyte of memory (whose fresh pages alone would cost seconds to fault
// in).
#pragma once

#include <zlib.h>

#include <cstddef>
#include <cstdint>
#include <memory>

#include "host/level5_elements.h"

namespace tg::level5 {

class InflateWindow {
 public:
  explicit InflateWindow(const Bytes& compressed);
  ~InflateWindow();
  InflateWindow(const InflateWindow&) = delete;
  InflateWindow& operator=(const InflateWindow&) = delete;

  // Makes at least `count` bytes from the position readable; false when the
  // stream ends first or is damaged.
  bool want(std::size_t count);
  const unsigned char* data() const { return buffer_.data() + start_; }
  std::size_t size() const { return end_ - start_; }
  void skip(std::size_t count) { start_ += count; }
  // Inflates what is left of the stream, dropping it; true when the stream
  // ends whole, its checksum matching.
  bool endsWhole();

 private:
  bool inflateMore(std::size_t room);
  bool checksumMatches() const;

  const Bytes& compressed_;
  z_stream z_{};
  bool open_ = false;
  int status_ = Z_OK;
  std::uint32_t adler_ = 1;  // of the bytes inflated so far
  Bytes buffer_;
  std::size_t start_ = 0;
  std::size_t end_ = 0;
};

}  // namespace tg::level5
