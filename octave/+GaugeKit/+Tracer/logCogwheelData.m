## Copyright (C) 2026 the tempogauge developers
## SPDX-License-Identifier: GPL-3.0-or-later

## -*- texinfo -*-
## @deftypefn {} {} GaugeKit.Tracer.logCogwheelData (@var{grouping}, @var{model}, @var{target}, @var{phase}, @var{start})
## Record the start or the end of a phase of a block-diagram model.
##
## As @code{GaugeKit.Tracer.logORRERYData}, with the model and the build
## target that the phase works on.  Reports show both, and
## @code{GaugeKit.Tracer.getProcessedData} and
## @code{GaugeKit.Tracer.clearRawData} can select points by model.
##
## Inputs:
## @table @var
## @item grouping
## The grouping that the point belongs to, a char row.
## @item model
## The model's name, a char row.
## @item target
## The build target's name, a char row.
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
## GaugeKit.Tracer.enable ("Build", true);
## GaugeKit.Tracer.logCogwheelData ("Build", "plant", "rtw", "compile", true);
## GaugeKit.Tracer.logCogwheelData ("Build", "plant", "rtw", "compile", false);
## @end group
## @end example
## @seealso{GaugeKit.Tracer.logORRERYData, GaugeKit.Tracer.logLoomchartData,
## GaugeKit.Tracer.setStatisticsTypeForModel}
## @end deftypefn

function logCogwheelData (varargin)
  GaugeKit ("Tracer.logCogwheelData", varargin{:});
endfunction

%!test
%! GaugeKit.Tracer.clearRawData ();
%! GaugeKit.Tracer.enable ("HelpCw", true);
%! GaugeKit.Tracer.logCogwheelData ("HelpCw", "plant", "rtw", "compile", true);
%! GaugeKit.Tracer.logCogwheelData ("HelpCw", "plant", "rtw", "compile", false);
%! p = GaugeKit.Tracer.getProcessedData ("model", "plant");
%! assert (numel (p), 1);
%! assert ({p{1}.phaseIDStr, p{1}.modelStr, p{1}.targetStr}, {"compile", "plant", "rtw"});
%!error id=tempogauge:TempoGauge:ParameterMismatchString GaugeKit.Tracer.logCogwheelData ("g", 1, "t", "p", true)
