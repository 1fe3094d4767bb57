// SPDX-License-Identifier: BSD-3-Clause
// Yardsticks of the cost of a GaugeKit.Tracer.logORRERYData call from Octave:
// tg_empty_call does nothing with the same arguments; tg_cpp_log_cost (in
// the same file, reached by autoload) times the C++ stored point in a loop,
// so that both are measured in the Octave run that measures the call.
// tg_syscall_call and tg_cpp_syscall_cost do the first system call of a
// sample (getrusage) once per call from Octave and in a C++ loop: what a
// system call costs the interpreter around it, beyond the call itself.
#include <octave/oct.h>
#include <sys/resource.h>

#include <string>

#include "host/clock.h"
#include "tempogauge/collect.h"

DEFUN_DLD(tg_empty_call, args, nargout, "Does nothing; for measurements only.") {
  (void)args;
  (void)nargout;
  return octave_value_list();
}

DEFUN_DLD(tg_cpp_log_cost, args, , "US = tg_cpp_log_cost (GROUPING, PHASE, N): microseconds per tgLogORRERYData.") {
  if (args.length() != 3) print_usage();
  const std::string grouping = args(0).string_value();
  const std::string phase = args(1).string_value();
  const int pairs = args(2).int_value();
  const double start = huRealtime();
  for (int i = 0; i < pairs; ++i) {
    tgLogORRERYData(grouping, phase, true);
    tgLogORRERYData(grouping, phase, false);
  }
  return ovl((huRealtime() - start) / (2.0 * pairs) * 1e6);
}

DEFUN_DLD(tg_syscall_call, args, nargout, "One getrusage call; for measurements only.") {
  (void)args;
  (void)nargout;
  rusage usage{};
  ::getrusage(RUSAGE_SELF, &usage);
  return octave_value_list();
}

DEFUN_DLD(tg_cpp_syscall_cost, args, , "US = tg_cpp_syscall_cost (N): microseconds per getrusage in a C++ loop.") {
  if (args.length() != 1) print_usage();
  const int calls = args(0).int_value();
  rusage usage{};
  const double start = huRealtime();
  for (int i = 0; i < calls; ++i) ::getrusage(RUSAGE_SELF, &usage);
  return ovl((huRealtime() - start) / calls * 1e6);
}
