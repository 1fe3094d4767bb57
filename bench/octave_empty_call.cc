// SPDX-License-Identifier: BSD-3-Clause
// Yardsticks of the cost of a GaugeKit.Tracer.logORRERYData call from Octave:
// tg_empty_call does nothing with the same arguments; tg_cpp_log_cost (in
// the same file, reached by autoload) times the C++ stored point in a loop,
// so that both are measured in the Octave run that measures the call.
#include <octave/oct.h>

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
