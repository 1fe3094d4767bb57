// SPDX-License-Identifier: BSD-3-Clause
#include "host/standalone_bridge.h"

#include <dlfcn.h>

#include <cstdio>
#include <filesystem>
#include <string>

#include "host/system_info.h"

extern "C" {
extern const char* const tempogauge_version;
extern const char* const tempogauge_build_date;
}

namespace {

// The text of input `i` when it is a char vector; nothing otherwise.
bool textInput(tgArrayView<const oxArray* const> inputs, std::size_t i, std::string& text) {
  if (i >= inputs.size() || !oxIsCharVector(inputs[i])) return false;
  text = oxArrayToStdString(inputs[i]);
  return true;
}

int answer(tgArrayView<oxArrayPtr> outputs, oxArrayPtr value) {
  if (!outputs.empty()) outputs[0] = std::move(value);
  return 0;
}

constexpr int kUnknownFunction = 1;
constexpr int kBadArguments = 2;

std::string versionText() { return std::string(tempogauge_version) + " (stand-alone)"; }

std::string installedProducts() {
  const std::string rule(70, '-');
  return rule + "\n" + "tempogauge Version " + versionText() + ", built " + tempogauge_build_date + "\n" +
         "Operating System: " + tgKernelDescription() + "\n" + rule + "\n";
}

}  // namespace

std::string tgStandaloneRoot() {
  Dl_info info{};
  if (dladdr(reinterpret_cast<const void*>(&tgStandaloneRoot), &info) == 0 || !info.dli_fname) return {};
  std::error_code ec;
  std::filesystem::path library = std::filesystem::weakly_canonical(info.dli_fname, ec);
  if (ec) library = info.dli_fname;
  std::filesystem::path folder = library.parent_path();
  const std::string leaf = folder.filename().string();
  if (leaf == "lib" || leaf == "lib64" || leaf == "bin") folder = folder.parent_path();
  return folder.string();
}

int StandaloneBridge::call(std::string_view name, tgArrayView<oxArrayPtr> outputs,
                           tgArrayView<const oxArray* const> inputs) {
  std::string arg;
  if (name == "orreryroot") {
    if (!inputs.empty()) return kBadArguments;
    return answer(outputs, oxCreateString(tgStandaloneRoot()));
  }
  if (name == "version") {
    if (inputs.empty()) return answer(outputs, oxCreateString(versionText()));
    if (inputs.size() == 1 && textInput(inputs, 0, arg) && arg == "-java")
      return answer(outputs, oxCreateString("no Java VM"));
    return kBadArguments;
  }
  if (name == "evalc") {
    if (inputs.size() == 1 && textInput(inputs, 0, arg) && arg == "ver")
      return answer(outputs, oxCreateString(installedProducts()));
    return kBadArguments;
  }
  if (name == "system_dependent") {
    if (inputs.size() != 1 || !textInput(inputs, 0, arg)) return kBadArguments;
    if (arg == "getcpu") return answer(outputs, oxCreateString(tgProcessorName()));
    if (arg == "getos") return answer(outputs, oxCreateString(tgOperatingSystemName()));
    if (arg == "getwinsys") return answer(outputs, oxCreateString(tgKernelDescription()));
    return kBadArguments;
  }
  if (name == "feature") {
    if (inputs.size() == 1 && textInput(inputs, 0, arg) && arg == "numCores")
      return answer(outputs, oxCreateDoubleScalar(static_cast<double>(tgNumberOfCores())));
    return kBadArguments;
  }
  return kUnknownFunction;
}

void StandaloneBridge::print(std::string_view text) {
  std::fwrite(text.data(), 1, text.size(), stdout);
  std::fflush(stdout);
}
