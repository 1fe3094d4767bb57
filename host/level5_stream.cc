// SPDX-License-Identifier: BSD-3-Clause
#include "host/level5_stream.h"

#include <algorithm>
#include <cstring>
#include <limits>

namespace tg::level5 {

namespace {
constexpr std::size_t kPiece = 4u << 20;  // inflated at a time
}  // namespace

InflateWindow::InflateWindow(const Bytes& compressed) : compressed_(compressed) {
  open_ = inflateInit(&z_) == Z_OK;
  z_.next_in = const_cast<unsigned char*>(compressed_.data());
  z_.avail_in = static_cast<uInt>(std::min<std::size_t>(compressed_.size(), std::numeric_limits<uInt>::max()));
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
  end_ = buffer_.size() - z_.avail_out;
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

bool InflateWindow::endsWhole() {
  while (status_ == Z_OK) {
    start_ = end_;
    if (!inflateMore(kPiece)) break;
  }
  return status_ == Z_STREAM_END;
}

}  // namespace tg::level5
