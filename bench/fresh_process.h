// SPDX-License-Identifier: BSD-3-Clause
// Runs a measurement in a child process of its own, so that what earlier
// benchmarks left in the heap and the store does not weigh on its figures.
#pragma once

#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cmath>
#include <functional>

namespace tgbench {

// The figures that `measure` returns, taken in a fresh child process; NaNs
// when the child fails.
template <std::size_t N>
std::array<double, N> inFreshProcess(const std::function<std::array<double, N>()>& measure) {
  std::array<double, N> figures;
  figures.fill(NAN);
  int pipeEnds[2];
  if (::pipe(pipeEnds) != 0) return figures;
  const pid_t child = ::fork();
  if (child == 0) {
    ::close(pipeEnds[0]);
    const std::array<double, N> mine = measure();
    const bool sent = ::write(pipeEnds[1], mine.data(), sizeof mine) == static_cast<ssize_t>(sizeof mine);
    ::_exit(sent ? 0 : 1);
  }
  ::close(pipeEnds[1]);
  if (child > 0) {
    std::array<double, N> got;
    if (::read(pipeEnds[0], got.data(), sizeof got) == static_cast<ssize_t>(sizeof got)) figures = got;
    int status = 0;
    ::waitpid(child, &status, 0);
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0) figures.fill(NAN);
  }
  ::close(pipeEnds[0]);
  return figures;
}

}  // namespace tgbench
