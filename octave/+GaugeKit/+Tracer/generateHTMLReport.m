## Copyright (C) 2026 the tempogauge developers
## SPDX-License-Identifier: GPL-3.0-or-later

## -*- texinfo -*-
## @deftypefn {} {} GaugeKit.Tracer.generateHTMLReport ("htmlfile", @var{file}, @var{name}, @var{value}, @dots{})
## Write the full report of one run: aggregate, call tree, details and memory chart.
##
## The Aggregate tab sums the executions of each phase; the Call Tree tab
## merges like calls into one tree that folds open; the Details tab lists
## every execution, to filter and sort; the memory chart draws the memory of
## each execution.
##
## Inputs: name/value pairs, names compared without regard to case; at most
## four pairs in one call.
## @table @asis
## @item @qcode{"htmlfile"}
## the report file to write (required); it is replaced if it exists.
## @item @qcode{"grouping"}
## the grouping whose points are shown, with its children; by default
## @qcode{"GLOBAL"}, every grouping.  It is also the report's title.
## @item @qcode{"orffile"}
## a saved trace file to show instead of the recorded points.
## @item @qcode{"metric"}
## @qcode{"time"} (default), @qcode{"basicmemory"} (resident and virtual
## size) or @qcode{"detailedmemory"} (the address-space walk, see
## @code{GaugeKit.Tracer.enableDetailedMemStats}).
## @item @qcode{"showmeta"}
## a logical scalar, accepted for compatibility; it changes nothing.
## @end table
##
## Outputs: none.  The report is one HTML file with its data and scripts
## inside; it opens in any browser, with no server.  A trace whose phases do
## not pair up gives a page that points to @code{GaugeKit.Tracer.diagnosticReport}.
##
## Errors: @code{tempogauge:TempoGauge:MinParamsNotReached},
## @code{MaxParamsExceeded}, @code{ExpectedEvenNumberOfParameters} for a
## wrong count; @code{InvalidNames} for an unknown option;
## @code{ParameterMismatchString} for a value of the wrong class;
## @code{InvalidMetric}; @code{ExpectedNames} without @qcode{"htmlfile"};
## @code{OpenFileFailed} when @qcode{"orffile"} cannot be read;
## @code{NoRawTracerData} when there are no points;
## @code{WriteFileFailed} when the report cannot be written.
##
## Example:
## @example
## @group
## GaugeKit.Tracer.generateHTMLReport ("htmlfile", "myrun.html",
##                                    "grouping", "MyGrouping");
## GaugeKit.Tracer.generateHTMLReport ("htmlfile", "old.html",
##                                    "orffile", "before.orf",
##                                    "metric", "basicmemory");
## @end group
## @end example
## @seealso{GaugeKit.Tracer.generateAggregateReport,
## GaugeKit.Tracer.generateDifferenceReport, GaugeKit.Tracer.diagnosticReport}
## @end deftypefn

function generateHTMLReport (varargin)
  GaugeKit ("Tracer.generateHTMLReport", varargin{:});
endfunction

%!test
%! GaugeKit.Tracer.clearRawData ();
%! GaugeKit.Tracer.enable ("HelpReport", true);
%! GaugeKit.Tracer.logORRERYData ("HelpReport", "solve", true);
%! GaugeKit.Tracer.logORRERYData ("HelpReport", "solve", false);
%! file = [tempname() ".html"];
%! unwind_protect
%!   GaugeKit.Tracer.generateHTMLReport ("htmlfile", file, "grouping", "HelpReport", "metric", "basicmemory");
%!   text = fileread (file);
%!   assert (! isempty (strfind (text, "solve")));
%!   assert (! isempty (strfind (text, "</html>")));
%! unwind_protect_cleanup
%!   delete (file);
%! end_unwind_protect
%!error id=tempogauge:TempoGauge:InvalidMetric GaugeKit.Tracer.generateHTMLReport ("htmlfile", "x.html", "metric", "speed")
%!demo
%! ## A run with a loop of two phases, as a report in a temporary folder.
%! GaugeKit.Tracer.clearRawData ();
%! GaugeKit.Tracer.enable ("Demo", true);
%! for k = 1:3
%!   GaugeKit.Tracer.logORRERYData ("Demo", "assemble", true);
%!   A = rand (300);
%!   GaugeKit.Tracer.logORRERYData ("Demo", "assemble", false);
%!   GaugeKit.Tracer.logORRERYData ("Demo", "solve", true);
%!   x = A \ ones (300, 1);
%!   GaugeKit.Tracer.logORRERYData ("Demo", "solve", false);
%! endfor
%! file = fullfile (tempdir (), "tempogauge-demo.html");
%! GaugeKit.Tracer.generateHTMLReport ("htmlfile", file, "grouping", "Demo");
%! printf ("open %s in a browser\n", file);
