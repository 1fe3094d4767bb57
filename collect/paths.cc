// SPDX-License-Identifier: BSD-3-Clause
#include "collect/paths.h"

#include <algorithm>
#include <atomic>
#include <deque>
#include <mutex>

namespace {

// The host root may be set by one thread while another cleans names: each
// root text ever set is kept (they are few: one per distinct root) and the
// current one is published through an atomic pointer, so a reader's
// reference stays valid whatever is set after it.
struct RootPaths {
  std::mutex setting;
  std::deque<std::string> seen{std::string()};
  std::atomic<const std::string*> current{&seen.front()};
};

RootPaths& roots() {
  static RootPaths paths;
  return paths;
}

const std::string& rootPath() { return *roots().current.load(std::memory_order_acquire); }

void eraseFirstIfLonger(std::string& text, std::string_view marker) {
  if (text.size() <= marker.size()) return;
  if (const auto at = text.find(marker); at != std::string::npos) text.erase(at, marker.size());
}

}  // namespace

std::string tgNormalizePath(std::string_view path) {
  std::string out(path);
  std::replace(out.begin(), out.end(), '\\', '/');
  return out;
}

std::string tgStripHostRoot(std::string_view path) {
  std::string out = tgNormalizePath(path);
  const std::string& root = rootPath();
  if (!root.empty() && out.compare(0, root.size(), root) == 0) out.erase(0, root.size());
  return out;
}

std::string cleanPhaseName(std::string_view phaseName, bool stripCustomization) {
  std::string name = tgNormalizePath(tgStripHostRoot(phaseName));
  if (name.find('/') == 0) name.erase(0, 1);
  if (stripCustomization) {
    eraseFirstIfLonger(name, "/cw_internal_customization");
    eraseFirstIfLonger(name, "/cw_customization");
  } else if (name.rfind('/') == 0) {
    name.erase(0, 1);
  }
  return name;
}

void hostRootPathSet(std::string_view path) {
  const std::string normalized = tgNormalizePath(path);
  RootPaths& paths = roots();
  std::lock_guard lock(paths.setting);
  // Growing a deque at its end leaves its elements where they are.
  const auto known = std::find(paths.seen.begin(), paths.seen.end(), normalized);
  const std::string& root = known != paths.seen.end() ? *known : paths.seen.emplace_back(normalized);
  paths.current.store(&root, std::memory_order_release);
}

const std::string& hostRootPath() { return rootPath(); }
