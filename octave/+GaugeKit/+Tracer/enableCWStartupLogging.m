## Copyright (C) 2026 the tempogauge developers
## SPDX-License-Identifier: GPL-3.0-or-later

## -*- texinfo -*-
## @deftypefn {} {@var{flag} =} GaugeKit.Tracer.enableCWStartupLogging (@var{flag})
## Switch the grouping @qcode{"Cogwheel Startup"} on or off.
##
## The same as @code{GaugeKit.Tracer.enable ("Cogwheel Startup", @var{flag})}:
## the points of @code{GaugeKit.Tracer.logCWStartupData} are recorded only
## while it is on.
##
## Inputs:
## @table @var
## @item flag
## A logical scalar.
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
## GaugeKit.Tracer.enableCWStartupLogging (true);
## @end example
## @seealso{GaugeKit.Tracer.logCWStartupData, GaugeKit.Tracer.enable}
## @end deftypefn

function flag = enableCWStartupLogging (varargin)
  flag = GaugeKit ("Tracer.enableCWStartupLogging", varargin{:});
endfunction

%!test
%! GaugeKit.Tracer.enableCWStartupLogging (true);
%! assert (GaugeKit.Tracer.enable ("Cogwheel Startup"), true);
%! GaugeKit.Tracer.enableCWStartupLogging (false);
%! assert (GaugeKit.Tracer.enable ("Cogwheel Startup"), false);
