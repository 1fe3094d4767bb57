// SPDX-License-Identifier: BSD-3-Clause
// A zlib stream for data made of rows that repeat one another, as the cell
// rows of a saved trace do: each row is coded against the latest earlier row
// of the same length (or the row just before), as copies of its equal runs
// and literals for the bytes that differ, in fixed-code deflate blocks. The
// stream is a standard zlib stream that any inflater reads; it is made at
// the speed of a pass over the bytes, where a general compressor searches.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <unordered_map>

#include "host/level5_elements.h"

namespace tg::level5 {

class RowDeflater {
 public:
  // `sink` takes each piece of the compressed stream; a false answer ends
  // the writing (every later call does nothing and finish gives false).
  explicit RowDeflater(std::function<bool(const unsigned char*, std::size_t)> sink);

  // Append a row's bytes here, then call endRow.
  Bytes& buffer() { return data_; }
  void endRow();
  // Ends the stream (the last row must have been ended); false when the sink
  // refused a piece.
  bool finish();

  std::uint64_t bytesIn() const { return bytesIn_; }

 private:
  void putBits(std::uint64_t bits, unsigned count);
  void literal(unsigned char byte);
  void copy(std::size_t length, std::size_t distance);
  void flushOut(bool all);
  void slideWindow();

  std::function<bool(const unsigned char*, std::size_t)> sink_;
  Bytes data_;                // the window of earlier rows, then the rows being added
  std::size_t rowStart_ = 0;  // where the row being added starts in data_
  std::size_t lastRow_ = 0;   // start of the row before it
  bool haveLastRow_ = false;
  std::unordered_map<std::size_t, std::size_t> rowOfLength_;  // row length -> start of latest such row
  Bytes out_;
  std::uint64_t bitBuffer_ = 0;
  unsigned bitCount_ = 0;
  std::uint32_t adler_ = 1;
  std::uint64_t bytesIn_ = 0;
  bool ok_ = true;
};

}  // namespace tg::level5
