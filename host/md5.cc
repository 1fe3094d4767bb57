// SPDX-License-Identifier: BSD-3-Clause
#include "host/md5.h"

#include <md5.h>

namespace tg {

struct Md5Checksum::Context {
  MD5_CTX ctx;
};

Md5Checksum::Md5Checksum() : context_(std::make_unique<Context>()) { MD5Init(&context_->ctx); }

Md5Checksum::~Md5Checksum() = default;

void Md5Checksum::addn(const void* data, std::size_t size) {
  MD5Update(&context_->ctx, static_cast<const std::uint8_t*>(data), size);
}

std::array<std::uint8_t, 16> Md5Checksum::getValueAndReset() {
  std::array<std::uint8_t, 16> digest{};
  MD5Final(digest.data(), &context_->ctx);
  MD5Init(&context_->ctx);
  return digest;
}

}  // namespace tg
