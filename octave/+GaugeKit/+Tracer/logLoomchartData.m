## Copyright (C) 2026 the tempogauge developers
## SPDX-License-Identifier: GPL-3.0-or-later

## -*- texinfo -*-
## @deftypefn {} {} GaugeKit.Tracer.logLoomchartData (@var{grouping}, @var{model}, @var{target}, @var{machine}, @var{chart}, @var{phase}, @var{start})
## Record the start or the end of a phase of a state chart.
##
## As @code{GaugeKit.Tracer.logCogwheelData}, with the state machine and the
## chart that the phase works on as well.
##
## Inputs:
## @table @var
## @item grouping
## The grouping that the point belongs to, a char row.
## @item model
## @itemx target
## The model's and the build target's names, char rows.
## @item machine
## @itemx chart
## The state machine's and the chart's names, char rows.
## @item phase
## The phase's name, a char row.
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
## GaugeKit.Tracer.enable ("Charts", true);
## GaugeKit.Tracer.logLoomchartData ("Charts", "plant", "rtw", "m1", "c1", "parse", true);
## GaugeKit.Tracer.logLoomchartData ("Charts", "plant", "rtw", "m1", "c1", "parse", false);
## @end group
## @end example
## @seealso{GaugeKit.Tracer.logCogwheelData, GaugeKit.Tracer.logORRERYData}
## @end deftypefn

function logLoomchartData (varargin)
  GaugeKit ("Tracer.logLoomchartData", varargin{:});
endfunction

%!test
%! GaugeKit.Tracer.clearRawData ();
%! GaugeKit.Tracer.enable ("HelpLc", true);
%! GaugeKit.Tracer.logLoomchartData ("HelpLc", "plant", "rtw", "m1", "c1", "parse", true);
%! GaugeKit.Tracer.logLoomchartData ("HelpLc", "plant", "rtw", "m1", "c1", "parse", false);
%! raw = GaugeKit.Tracer.getRawData ();
%! assert (numel (raw), 2);
%! assert (raw{1}(3:8), {"parse", "HelpLc", "plant", "rtw", "m1", "c1"});
