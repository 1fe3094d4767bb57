## Copyright (C) 2026 the tempogauge developers
## SPDX-License-Identifier: GPL-3.0-or-later

## -*- texinfo -*-
## @deftypefn {} {} GaugeKit.Tracer.logCWStartupData (@var{phase}, @var{start})
## Record the start or the end of a phase of the block-diagram tool's start-up.
##
## The point belongs to the grouping @qcode{"Cogwheel Startup"}, which
## @code{GaugeKit.Tracer.enableCWStartupLogging} switches.  Its points are
## saved by @code{GaugeKit.Tracer.saveCWStartupData} and shown by
## @code{GaugeKit.Tracer.generateCWStartupReport}.
##
## Inputs:
## @table @var
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
## GaugeKit.Tracer.enableCWStartupLogging (true);
## GaugeKit.Tracer.logCWStartupData ("load libraries", true);
## GaugeKit.Tracer.logCWStartupData ("load libraries", false);
## GaugeKit.Tracer.generateCWStartupReport ();   # writes CWStartup.html
## @end group
## @end example
## @seealso{GaugeKit.Tracer.enableCWStartupLogging, GaugeKit.Tracer.saveCWStartupData,
## GaugeKit.Tracer.generateCWStartupReport}
## @end deftypefn

function logCWStartupData (varargin)
  GaugeKit ("Tracer.logCWStartupData", varargin{:});
endfunction

%!test
%! GaugeKit.Tracer.clearRawData ();
%! GaugeKit.Tracer.enableCWStartupLogging (true);
%! GaugeKit.Tracer.logCWStartupData ("load libraries", true);
%! GaugeKit.Tracer.logCWStartupData ("load libraries", false);
%! GaugeKit.Tracer.enableCWStartupLogging (false);
%! raw = GaugeKit.Tracer.getRawData ();
%! assert (cellfun (@(r) r{4}, raw, "uniformoutput", false), {"Cogwheel Startup", "Cogwheel Startup"});
