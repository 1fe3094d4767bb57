## Copyright (C) 2026 the tempogauge developers
## SPDX-License-Identifier: GPL-3.0-or-later

## -*- texinfo -*-
## @deftypefn {} {} GaugeKit.Tracer.logORRERYData (@var{grouping}, @var{phase}, @var{start})
## Record the start or the end of a phase of Octave code.
##
## The point is stored, with its wall-clock time, CPU time and memory sample,
## only when @var{grouping} is on (see @code{GaugeKit.Tracer.enable}) or
## global logging is on.  Otherwise the call does nothing and costs little, so
## the calls may stay in production code.  Every start needs its end, in the
## order of a call stack, for the phases to pair up in reports.
##
## Inputs:
## @table @var
## @item grouping
## The grouping that the point belongs to, a char row.
## @item phase
## The phase's name, a char row.  Names are free text; the file root of the
## host is stripped from names that hold it.
## @item start
## @code{true} at the start of the phase, @code{false} at its end.
## @end table
##
## Outputs: none.
##
## Errors: @code{tempogauge:TempoGauge:ParameterMismatchString} when a name
## is not a char row (an empty @code{""} included), and
## @code{ParameterMismatchBoolean} when @var{start} is not a logical scalar.
## The error's message names the argument.
##
## Example:
## @example
## @group
## GaugeKit.Tracer.enable ("MyGrouping", true);
## GaugeKit.Tracer.logORRERYData ("MyGrouping", "solve", true);
## x = rand (500) \ ones (500, 1);
## GaugeKit.Tracer.logORRERYData ("MyGrouping", "solve", false);
## @end group
## @end example
## @seealso{GaugeKit.Tracer.enable, GaugeKit.Tracer.logCogwheelData,
## GaugeKit.Tracer.logLoomchartData, GaugeKit.Tracer.generateHTMLReport}
## @end deftypefn

function logORRERYData (varargin)
  GaugeKit ("Tracer.logORRERYData", varargin{:});
endfunction

%!test
%! GaugeKit.Tracer.clearRawData ();
%! GaugeKit.Tracer.enable ("HelpLog", true);
%! GaugeKit.Tracer.logORRERYData ("HelpLog", "solve", true);
%! GaugeKit.Tracer.logORRERYData ("HelpLog", "solve", false);
%! GaugeKit.Tracer.enable ("HelpLogOff", false);
%! GaugeKit.Tracer.logORRERYData ("HelpLogOff", "ignored", true);
%! raw = GaugeKit.Tracer.getRawData ();
%! assert (numel (raw), 2);
%! assert ({raw{1}{3}, raw{1}{4}}, {"solve", "HelpLog"});
%!error id=tempogauge:TempoGauge:ParameterMismatchString GaugeKit.Tracer.logORRERYData ("g", "", true)
%!error id=tempogauge:TempoGauge:ParameterMismatchBoolean GaugeKit.Tracer.logORRERYData ("g", "p", 1)
%!demo
%! ## Two phases, one inside the other; the summary counts both.
%! GaugeKit.Tracer.clearRawData ();
%! GaugeKit.Tracer.enable ("Demo", true);
%! GaugeKit.Tracer.logORRERYData ("Demo", "outer", true);
%! GaugeKit.Tracer.logORRERYData ("Demo", "inner", true);
%! pause (0.05);
%! GaugeKit.Tracer.logORRERYData ("Demo", "inner", false);
%! GaugeKit.Tracer.logORRERYData ("Demo", "outer", false);
%! p = GaugeKit.Tracer.getProcessedData ("grouping", "Demo");
%! printf ("%s %s: %.3f s\n", p{1}.HTMLPhaseNumString, p{1}.phaseIDStr, p{1}.wcElapsedTime);
%! printf ("%s %s: %.3f s\n", p{2}.HTMLPhaseNumString, p{2}.phaseIDStr, p{2}.wcElapsedTime);
