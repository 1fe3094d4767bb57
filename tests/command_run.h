// SPDX-License-Identifier: BSD-3-Clause
// Runs the tempogauge command (built next to the test program) as a separate
// process in a folder, with its exit status, standard output and standard
// error apart.
#pragma once

#include <sys/wait.h>

#include <array>
#include <cstdio>
#include <filesystem>
#include <string>

#include "scratch_files.h"

namespace tgtest {

struct CommandResult {
  int status = -1;  // the exit status; -1 when killed by a signal
  std::string out;
  std::string err;
};

inline CommandResult runCommand(const std::filesystem::path& dir, const std::string& args) {
  namespace fs = std::filesystem;
  const fs::path exe = fs::read_symlink("/proc/self/exe").parent_path() / "tempogauge";
  const fs::path err = dir / ".stderr";
  const std::string command =
      "cd '" + dir.string() + "' && '" + exe.string() + "' " + args + " 2>'" + err.string() + "'";
  CommandResult result;
  FILE* pipe = ::popen(command.c_str(), "r");
  if (!pipe) return result;
  std::array<char, 4096> buffer{};
  while (const std::size_t n = std::fread(buffer.data(), 1, buffer.size(), pipe)) result.out.append(buffer.data(), n);
  const int status = ::pclose(pipe);
  result.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  result.err = readFile(err);
  fs::remove(err);
  return result;
}

}  // namespace tgtest
