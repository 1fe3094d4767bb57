#include "collect/paths.h"

#include <algorithm>

namespace {

std::string& rootPath() {
  static std::string root;
  return root;
}

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

void hostRootPathSet(std::string_view path) { rootPath() = tgNormalizePath(path); }

const std::string& hostRootPath() { return rootPath(); }
