## Copyright (C) 2026 the tempogauge developers
## SPDX-License-Identifier: GPL-3.0-or-later

## -*- texinfo -*-
## @deftypefn {} {} GaugeKit.Tracer.generateDifferenceReport ("htmlfile", @var{file}, "lhsfile", @var{before}, @var{name}, @var{value}, @dots{})
## Write the full comparison of two runs: aggregate and details side by side.
##
## Inputs: name/value pairs, names compared without regard to case.
## @table @asis
## @item @qcode{"htmlfile"}
## the report file to write (required).
## @item @qcode{"lhsfile"}
## @itemx @qcode{"rhsfile"}
## the saved trace files of the left (baseline) and the right run; at least
## one is required, and an omitted side is the recorded points.
## @item @qcode{"lhslabel"}
## @itemx @qcode{"rhslabel"}
## the runs' names in the report; by default @qcode{"LHS"} and @qcode{"RHS"}.
## @item @qcode{"grouping"}
## the grouping whose points are compared; by default @qcode{"GLOBAL"}.
## @item @qcode{"metric"}
## @qcode{"time"} (default), @qcode{"basicmemory"} or @qcode{"detailedmemory"}.
## @end table
##
## Outputs: none.  Rows of the two runs are aligned by phase; each difference
## is shown with its percentage and coloured by its band.  When either run's
## phases do not pair up, the file is left empty and @code{WriteFileFailed}
## is raised; @code{GaugeKit.Tracer.diagnosticReport} shows where.
##
## Errors: @code{tempogauge:TempoGauge:MinParamsNotReached},
## @code{MaxParamsExceeded}, @code{ExpectedEvenNumberOfParameters};
## @code{InvalidNames} for an unknown option; @code{UnexpectedValue} for a
## value that is not text; @code{InvalidMetric}; @code{ExpectedNames} without
## @qcode{"htmlfile"} or without either file; @code{OpenFileFailed} when a
## file cannot be read; @code{NoRawTracerDataLoaded} when a side has no
## points; @code{WriteFileFailed}.
##
## Example:
## @example
## @group
## GaugeKit.Tracer.saveToFile ("before.orf");
## ## @dots{} change the code, clear, run again @dots{}
## GaugeKit.Tracer.generateDifferenceReport ("htmlfile", "diff.html",
##     "lhsfile", "before.orf", "lhslabel", "before", "rhslabel", "after");
## @end group
## @end example
## @seealso{GaugeKit.Tracer.generateAggregateDifferenceReport,
## GaugeKit.Tracer.saveToFile}
## @end deftypefn

function generateDifferenceReport (varargin)
  GaugeKit ("Tracer.generateDifferenceReport", varargin{:});
endfunction

%!test
%! GaugeKit.Tracer.clearRawData ();
%! GaugeKit.Tracer.enable ("HelpDiff", true);
%! GaugeKit.Tracer.logORRERYData ("HelpDiff", "solve", true);
%! GaugeKit.Tracer.logORRERYData ("HelpDiff", "solve", false);
%! before = [tempname() ".orf"];
%! file = [tempname() ".html"];
%! unwind_protect
%!   GaugeKit.Tracer.saveToFile (before);
%!   GaugeKit.Tracer.logORRERYData ("HelpDiff", "check", true);
%!   GaugeKit.Tracer.logORRERYData ("HelpDiff", "check", false);
%!   GaugeKit.Tracer.generateDifferenceReport ("htmlfile", file, "lhsfile", before, "lhslabel", "before", "rhslabel", "after");
%!   text = fileread (file);
%!   assert (! isempty (strfind (text, "check")));
%!   assert (! isempty (strfind (text, "before")));
%! unwind_protect_cleanup
%!   delete (before);
%!   delete (file);
%! end_unwind_protect
%!error id=tempogauge:TempoGauge:ExpectedNames GaugeKit.Tracer.generateDifferenceReport ("htmlfile", "x.html", "lhslabel", "a")
%!demo
%! ## Two runs of one loop, the second with an extra phase, compared.
%! GaugeKit.Tracer.clearRawData ();
%! GaugeKit.Tracer.enable ("Demo", true);
%! GaugeKit.Tracer.logORRERYData ("Demo", "solve", true);
%! x = rand (400) \ ones (400, 1);
%! GaugeKit.Tracer.logORRERYData ("Demo", "solve", false);
%! before = fullfile (tempdir (), "tempogauge-before.orf");
%! GaugeKit.Tracer.saveToFile (before);
%! GaugeKit.Tracer.logORRERYData ("Demo", "check", true);
%! r = norm (rand (400) * x);
%! GaugeKit.Tracer.logORRERYData ("Demo", "check", false);
%! file = fullfile (tempdir (), "tempogauge-diff.html");
%! GaugeKit.Tracer.generateDifferenceReport ("htmlfile", file, "lhsfile", before,
%!                                          "lhslabel", "before", "rhslabel", "after");
%! printf ("open %s in a browser\n", file);
