// SPDX-License-Identifier: BSD-3-Clause
#include "host/level5_stream.h"

#include <libdeflate.h>

#include <algorithm>
#include <cstring>
#include <limits>

namespace tg::level5 {

namespace {
constexpr std::size_t kPiece = 4u << 20;  // inflated at a time
}  // namespace

InflateWindow::InflateWindow(const Bytes& compressed) : compressed_(compressed) {
  // The zlib header is read here and the checksum kept with libdeflate's
  // Adler-32, many times as fast as the one zlib's inflate keeps: the
  // deflate data inside is inflated raw.
  const bool header = compressed_.size() >= 6 && (compressed_[0] & 0x0F) == 8 && (compressed_[0] >> 4) <= 7 &&
                      (compressed_[1] & 0x20) == 0 && (compressed_[0] * 256 + compressed_[1]) % 31 == 0;
  open_ = header && inflateInit2(&z_, -15) == Z_OK;
  z_.next_in = const_cast<unsigned char*>(compressed_.data()) + 2;
  z_.avail_in = header ? static_cast<uInt>(std::min<std::size_t>(compressed_.size() - 2,
                                                                 std::numeric_limits<uInt>::max()))
                       : 0;
  buffer_.resize(kPiece);
}

InflateWindow::~InflateWindow() {
  if (open_) inflateEnd(&z_);
}

bool InflateWindow::inflateMore(std::size_t room) {
  if (!open_ || status_ != Z_OK) return false;
  // Move what is unread to the front, and make room behind it.
  if (start_ > 0) {
    std::memmove(buffer_.data(), buffer_.data() + start_, end_ - start_);
    end_ -= start_;
    start_ = 0;
  }
  if (buffer_.size() < end_ + room) buffer_.resize(end_ + room);
  z_.next_out = buffer_.data() + end_;
  z_.avail_out = static_cast<uInt>(buffer_.size() - end_);
  status_ = inflate(&z_, Z_NO_FLUSH);
  const std::size_t filled = buffer_.size() - z_.avail_out;
  adler_ = libdeflate_adler32(adler_, buffer_.data() + end_, filled - end_);
  end_ = filled;
  if (status_ == Z_STREAM_END && !checksumMatches()) status_ = Z_DATA_ERROR;
  if (status_ == Z_BUF_ERROR && z_.avail_in == 0) return false;  // cut short
  return status_ == Z_OK || status_ == Z_STREAM_END;
}

bool InflateWindow::want(std::size_t count) {
  while (size() < count) {
    const std::size_t before = size();
    if (!inflateMore(std::max(kPiece, count)) && size() < count) return false;
    if (size() == before && status_ != Z_OK) return false;
  }
  return true;
}

bool InflateWindow::checksumMatches() const {
  if (z_.avail_in < 4) return false;
  const unsigned char* c = z_.next_in;
  const std::uint32_t stated = std::uint32_t{c[0]} << 24 | std::uint32_t{c[1]} << 16 | std::uint32_t{c[2]} << 8 | c[3];
  return stated == adler_;
}

bool InflateWindow::endsWhole() {
  while (status_ == Z_OK) {
    start_ = end_;
    if (!inflateMore(kPiece)) break;
  }
  return status_ == Z_STREAM_END;
}

}  // namespace tg::level5
