## Copyright (C) 2026 the tempogauge developers
## SPDX-License-Identifier: GPL-3.0-or-later

## -*- texinfo -*-
## @deftypefn {} {} GaugeKit.Tracer.generateAggregateReport ("htmlfile", @var{file}, @var{name}, @var{value}, @dots{})
## Write the aggregate report of one run: one row per phase.
##
## Each row sums all executions of a phase: the number of calls, total, self
## and mean times, and memory.  It is the short form of
## @code{GaugeKit.Tracer.generateHTMLReport}, and small even for long runs.
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
## GaugeKit.Tracer.generateAggregateReport ("htmlfile", "summary.html");
## @end example
## @seealso{GaugeKit.Tracer.generateHTMLReport,
## GaugeKit.Tracer.generateAggregateDifferenceReport}
## @end deftypefn

function generateAggregateReport (varargin)
  GaugeKit ("Tracer.generateAggregateReport", varargin{:});
endfunction

%!test
%! GaugeKit.Tracer.clearRawData ();
%! GaugeKit.Tracer.enable ("HelpReport", true);
%! GaugeKit.Tracer.logORRERYData ("HelpReport", "solve", true);
%! GaugeKit.Tracer.logORRERYData ("HelpReport", "solve", false);
%! file = [tempname() ".html"];
%! unwind_protect
%!   GaugeKit.Tracer.generateAggregateReport ("htmlfile", file, "grouping", "HelpReport", "metric", "basicmemory");
%!   text = fileread (file);
%!   assert (! isempty (strfind (text, "solve")));
%!   assert (! isempty (strfind (text, "</html>")));
%! unwind_protect_cleanup
%!   delete (file);
%! end_unwind_protect
%!error id=tempogauge:TempoGauge:InvalidMetric GaugeKit.Tracer.generateAggregateReport ("htmlfile", "x.html", "metric", "speed")
