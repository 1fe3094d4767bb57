## Copyright (C) 2026 the tempogauge developers
## SPDX-License-Identifier: GPL-3.0-or-later

## -*- texinfo -*-
## @deftypefn {} {@var{flag} =} GaugeKit.Tracer.enableGlobalLogging (@var{flag})
## Record the points of every grouping, whether it is on or not.
##
## Inputs:
## @table @var
## @item flag
## @code{true} to record every point, @code{false} to go back to the
## switches of the groupings; a logical scalar.
## @end table
##
## Output:
## @table @var
## @item flag
## The input, unchanged.
## @end table
##
## Errors: @code{tempogauge:TempoGauge:ParameterMismatchBoolean} when
## @var{flag} is not a logical scalar.
##
## Example:
## @example
## @group
## GaugeKit.Tracer.enableGlobalLogging (true);
## GaugeKit.Tracer.logORRERYData ("NeverEnabled", "phase", true);   # recorded
## GaugeKit.Tracer.enableGlobalLogging (false);
## @end group
## @end example
## @seealso{GaugeKit.Tracer.enable}
## @end deftypefn

function flag = enableGlobalLogging (varargin)
  flag = GaugeKit ("Tracer.enableGlobalLogging", varargin{:});
endfunction

%!test
%! GaugeKit.Tracer.clearRawData ();
%! assert (GaugeKit.Tracer.enableGlobalLogging (true), true);
%! GaugeKit.Tracer.logORRERYData ("HelpNeverEnabled", "phase", true);
%! assert (GaugeKit.Tracer.enableGlobalLogging (false), false);
%! GaugeKit.Tracer.logORRERYData ("HelpNeverEnabled", "phase", false);
%! assert (numel (GaugeKit.Tracer.getRawData ()), 1);
%!error id=tempogauge:TempoGauge:ParameterMismatchBoolean GaugeKit.Tracer.enableGlobalLogging ("yes")
