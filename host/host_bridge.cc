// SPDX-License-Identifier: BSD-3-Clause
#include "host/host_bridge.h"

#include <mutex>
#include <stdexcept>
#include <string>

#include "host/host_print.h"
#include "host/standalone_bridge.h"

namespace {

std::mutex& bridgeMutex() {
  static std::mutex m;
  return m;
}

std::shared_ptr<HostBridge>& installedBridge() {
  static std::shared_ptr<HostBridge> bridge;
  return bridge;
}

std::shared_ptr<HostBridge> standaloneBridge() {
  static const auto bridge = std::make_shared<StandaloneBridge>();
  return bridge;
}

}  // namespace

std::shared_ptr<HostBridge> tgHostBridge() {
  std::lock_guard lock(bridgeMutex());
  if (installedBridge()) return installedBridge();
  return standaloneBridge();
}

void tgSetHostBridge(std::shared_ptr<HostBridge> bridge) {
  {
    std::lock_guard lock(bridgeMutex());
    installedBridge() = bridge;
  }
  if (bridge) {
    // The printer holds the bridge alive for as long as it is installed.
    tgSetHostPrinter([bridge](std::string_view text) { bridge->print(text); });
  } else {
    tgSetHostPrinter(nullptr);
  }
}

int oexCallORRERY(int nlhs, oxArrayPtr* plhs, int nrhs, const oxArray* const* prhs, std::string_view name) {
  if (nlhs < 0 || nrhs < 0 || (nlhs > 0 && !plhs) || (nrhs > 0 && !prhs)) return -1;
  const auto bridge = tgHostBridge();
  return bridge->call(name, tgArrayView<oxArrayPtr>(plhs, static_cast<std::size_t>(nlhs)),
                      tgArrayView<const oxArray* const>(prhs, static_cast<std::size_t>(nrhs)));
}

void tgRunHostCommand(std::string_view function, tgArrayView<const oxArray* const> arguments) {
  const auto bridge = tgHostBridge();
  const int status = bridge->call(function, {}, arguments);
  if (status != 0)
    throw std::runtime_error("host command '" + std::string(function) + "' failed with status " +
                             std::to_string(status));
}
