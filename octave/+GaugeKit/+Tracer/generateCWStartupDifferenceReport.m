## Copyright (C) 2026 the tempogauge developers
## SPDX-License-Identifier: GPL-3.0-or-later

## -*- texinfo -*-
## @deftypefn {} {} GaugeKit.Tracer.generateCWStartupDifferenceReport ("lhsfile", @var{before}, @var{name}, @var{value}, @dots{})
## Write the comparison of two start-ups of the block-diagram tool.
##
## As @code{GaugeKit.Tracer.generateDifferenceReport} for the grouping
## @qcode{"Cogwheel Startup"}, always by time.
##
## Inputs: name/value pairs: @qcode{"htmlfile"} (by default
## @file{CWStartupDiff.html}), @qcode{"lhsfile"}, @qcode{"rhsfile"} (at least
## one of the two), @qcode{"lhslabel"}, @qcode{"rhslabel"}.  There is no
## @qcode{"metric"}.
##
## Outputs: none.
##
## Errors: as @code{GaugeKit.Tracer.generateDifferenceReport};
## @code{InvalidNames} for @qcode{"metric"}.
##
## Example:
## @example
## GaugeKit.Tracer.generateCWStartupDifferenceReport ("lhsfile", "old.orf",
##                                                   "rhsfile", "new.orf");
## @end example
## @seealso{GaugeKit.Tracer.saveCWStartupData, GaugeKit.Tracer.generateCWStartupReport}
## @end deftypefn

function generateCWStartupDifferenceReport (varargin)
  GaugeKit ("Tracer.generateCWStartupDifferenceReport", varargin{:});
endfunction

%!error id=tempogauge:TempoGauge:InvalidNames GaugeKit.Tracer.generateCWStartupDifferenceReport ("lhsfile", "a.orf", "metric", "time")
%!test
%! GaugeKit.Tracer.clearRawData ();
%! GaugeKit.Tracer.enableCWStartupLogging (true);
%! GaugeKit.Tracer.logCWStartupData ("boot", true);
%! GaugeKit.Tracer.logCWStartupData ("boot", false);
%! GaugeKit.Tracer.enableCWStartupLogging (false);
%! before = [tempname() ".orf"];
%! file = [tempname() ".html"];
%! unwind_protect
%!   GaugeKit.Tracer.saveCWStartupData (before);
%!   GaugeKit.Tracer.generateCWStartupDifferenceReport ("htmlfile", file, "lhsfile", before);
%!   assert (! isempty (strfind (fileread (file), "boot")));
%! unwind_protect_cleanup
%!   delete (before);
%!   delete (file);
%! end_unwind_protect
