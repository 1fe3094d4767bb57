// SPDX-License-Identifier: BSD-3-Clause
// An oct-file function that does nothing: the yardstick against which the
// cost of a GaugeKit.Tracer.logORRERYData call from Octave is measured.
#include <octave/oct.h>

DEFUN_DLD(tg_empty_call, args, nargout, "Does nothing; for measurements only.") {
  (void)args;
  (void)nargout;
  return octave_value_list();
}
