// SPDX-License-Identifier: BSD-3-Clause
#include "host/level5_deflate.h"

#include <libdeflate.h>

#include <array>
#include <cstring>
#include <limits>

namespace tg::level5 {
namespace {

constexpr std::size_t kWindow = 32768;        // the farthest a deflate copy reaches back
constexpr std::size_t kSlideAt = 4u << 20;    // the window is slid when this much is held
constexpr std::size_t kOutPiece = 1u << 20;   // compressed bytes handed on at a time
constexpr std::size_t kMaxCopy = 258;

// A code of the fixed deflate tables, ready to be written: the Huffman code
// with its bits reversed (deflate sends codes from the top bit) and any
// extra bits after it.
struct Code {
  std::uint32_t bits = 0;
  std::uint32_t count = 0;
};

std::uint32_t reversed(std::uint32_t code, unsigned length) {
  std::uint32_t r = 0;
  for (unsigned i = 0; i < length; ++i) r |= ((code >> i) & 1u) << (length - 1 - i);
  return r;
}

// The fixed code of a literal/length symbol (0..287).
Code symbolCode(unsigned symbol) {
  if (symbol < 144) return {reversed(0x30 + symbol, 8), 8};
  if (symbol < 256) return {reversed(0x190 + symbol - 144, 9), 9};
  if (symbol < 280) return {reversed(symbol - 256, 7), 7};
  return {reversed(0xC0 + symbol - 280, 8), 8};
}

struct Tables {
  std::array<Code, 256> literals;
  std::array<Code, kMaxCopy + 1> lengths;  // by copy length 3..258
  std::array<Code, kWindow + 1> distances;  // by distance 1..32768

  Tables() {
    for (unsigned b = 0; b < 256; ++b) literals[b] = symbolCode(b);
    static constexpr unsigned kLengthBase[29] = {3,  4,  5,  6,  7,  8,  9,  10, 11,  13,  15,  17,  19,  23, 27,
                                                 31, 35, 43, 51, 59, 67, 83, 99, 115, 131, 163, 195, 227, 258};
    static constexpr unsigned kLengthExtra[29] = {0, 0, 0, 0, 0, 0, 0, 0, 1, 1, 1, 1, 2, 2, 2,
                                                  2, 3, 3, 3, 3, 4, 4, 4, 4, 5, 5, 5, 5, 0};
    for (unsigned s = 0; s < 29; ++s) {
      const unsigned last = s + 1 < 29 ? kLengthBase[s + 1] - 1 : 258;
      for (unsigned length = kLengthBase[s]; length <= last && length <= kMaxCopy; ++length) {
        const Code c = symbolCode(257 + s);
        lengths[length] = {c.bits | (length - kLengthBase[s]) << c.count, c.count + kLengthExtra[s]};
      }
    }
    lengths[258] = {symbolCode(285).bits, symbolCode(285).count};
    unsigned base = 1;
    for (unsigned code = 0; code < 30; ++code) {
      const unsigned extra = code < 4 ? 0 : code / 2 - 1;
      for (unsigned d = base; d < base + (1u << extra) && d <= kWindow; ++d)
        distances[d] = {reversed(code, 5) | (d - base) << 5, 5 + extra};
      base += 1u << extra;
    }
  }
};

const Tables& tables() {
  static const Tables t;
  return t;
}

// Length of the run of equal bytes of a and b, up to `limit`.
std::size_t equalRun(const unsigned char* a, const unsigned char* b, std::size_t limit) {
  std::size_t n = 0;
  while (n + 8 <= limit) {
    std::uint64_t x, y;
    std::memcpy(&x, a + n, 8);
    std::memcpy(&y, b + n, 8);
    if (x != y) return n + static_cast<std::size_t>(__builtin_ctzll(x ^ y) / 8);
    n += 8;
  }
  while (n < limit && a[n] == b[n]) ++n;
  return n;
}

}  // namespace

RowDeflater::RowDeflater(std::function<bool(const unsigned char*, std::size_t)> sink) : sink_(std::move(sink)) {
  tables();
  out_.reserve(kOutPiece + 1024);
  out_.push_back(0x78);  // deflate with a 32 KiB window
  out_.push_back(0x01);  // no dictionary, fastest level; the header's check makes it a multiple of 31
  putBits(2, 3);         // a block that is not the last, with the fixed codes
}

void RowDeflater::putBits(std::uint64_t bits, unsigned count) {
  bitBuffer_ |= bits << bitCount_;
  bitCount_ += count;
  if (bitCount_ >= 32) {
    const auto word = static_cast<std::uint32_t>(bitBuffer_);
    const auto* p = reinterpret_cast<const unsigned char*>(&word);
    out_.insert(out_.end(), p, p + 4);  // little-endian machines only, as the file's own mark says
    bitBuffer_ >>= 32;
    bitCount_ -= 32;
  }
}

void RowDeflater::literal(unsigned char byte) {
  const Code c = tables().literals[byte];
  putBits(c.bits, c.count);
}

void RowDeflater::copy(std::size_t length, std::size_t distance) {
  const Code l = tables().lengths[length];
  const Code d = tables().distances[distance];
  putBits(l.bits, l.count);
  putBits(d.bits, d.count);
}

void RowDeflater::endRow() {
  const std::size_t length = data_.size() - rowStart_;
  if (length == 0 || !ok_) return;
  // The row to copy from: the latest of the same length, else the one before.
  std::size_t distance = 0;
  const auto same = rowOfLength_.find(length);
  if (same != rowOfLength_.end() && rowStart_ - same->second <= kWindow) distance = rowStart_ - same->second;
  else if (haveLastRow_ && rowStart_ - lastRow_ <= kWindow) distance = rowStart_ - lastRow_;

  const unsigned char* row = data_.data() + rowStart_;
  std::size_t i = 0;
  while (i < length) {
    if (distance != 0) {
      const std::size_t run = equalRun(row + i, row + i - distance, std::min(kMaxCopy, length - i));
      if (run >= 3) {
        copy(run, distance);
        i += run;
        continue;
      }
    }
    literal(row[i++]);
  }
  adler_ = libdeflate_adler32(adler_, row, length);
  bytesIn_ += length;
  rowOfLength_[length] = rowStart_;
  lastRow_ = rowStart_;
  haveLastRow_ = true;
  rowStart_ = data_.size();
  if (out_.size() >= kOutPiece) flushOut(false);
  if (data_.size() >= kSlideAt) slideWindow();
}

void RowDeflater::slideWindow() {
  // Keep the last window's worth of rows; positions move down with them.
  const std::size_t drop = data_.size() - kWindow;
  data_.erase(data_.begin(), data_.begin() + static_cast<std::ptrdiff_t>(drop));
  rowStart_ -= drop;
  for (auto it = rowOfLength_.begin(); it != rowOfLength_.end();) {
    if (it->second < drop) it = rowOfLength_.erase(it);
    else (it++)->second -= drop;
  }
  if (lastRow_ < drop) haveLastRow_ = false;
  else lastRow_ -= drop;
}

void RowDeflater::flushOut(bool all) {
  if (all) {
    while (bitCount_ >= 8) {
      out_.push_back(static_cast<unsigned char>(bitBuffer_));
      bitBuffer_ >>= 8;
      bitCount_ -= 8;
    }
    if (bitCount_ > 0) out_.push_back(static_cast<unsigned char>(bitBuffer_));
    bitBuffer_ = 0;
    bitCount_ = 0;
  }
  if (ok_ && !out_.empty()) ok_ = sink_(out_.data(), out_.size());
  out_.clear();
}

bool RowDeflater::finish() {
  if (data_.size() > rowStart_) endRow();
  putBits(0, 7);  // end of block: symbol 256 is seven zero bits
  putBits(3, 3);  // the last block, fixed codes, empty
  putBits(0, 7);
  flushOut(true);
  const unsigned char check[4] = {static_cast<unsigned char>(adler_ >> 24), static_cast<unsigned char>(adler_ >> 16),
                                  static_cast<unsigned char>(adler_ >> 8), static_cast<unsigned char>(adler_)};
  if (ok_) ok_ = sink_(check, sizeof check);
  return ok_;
}

}  // namespace tg::level5
