## Copyright (C) 2026 the tempogauge developers
## SPDX-License-Identifier: GPL-3.0-or-later

## -*- texinfo -*-
## @deftypefn  {} {@var{on} =} GaugeKit.Tracer.enable (@var{grouping}, @var{flag})
## @deftypefnx {} {@var{on} =} GaugeKit.Tracer.enable (@var{grouping})
## Switch the tracing of a grouping on or off, or ask whether it is on.
##
## A point is recorded only when its grouping is on (or global logging is
## on, see @code{GaugeKit.Tracer.enableGlobalLogging}).  Switching a grouping
## switches its child groupings as well (see
## @code{GaugeKit.Tracer.addGrouping}).  A name never seen before becomes a
## grouping of its own.
##
## Inputs:
## @table @var
## @item grouping
## The grouping's name, a char vector.
## @item flag
## @code{true} to switch it on, @code{false} to switch it off; a logical
## scalar.  Without it the state is only queried and nothing changes.
## @end table
##
## Output:
## @table @var
## @item on
## With @var{flag}, @var{flag} itself; without it, @code{true} when the
## grouping is on.  A logical scalar.
## @end table
##
## Errors: @code{tempogauge:TempoGauge:MinParamsNotReached} without input,
## @code{MaxParamsExceeded} with more than two,
## @code{ParameterMismatchString} when @var{grouping} is not text,
## @code{ParameterMismatchBoolean} when @var{flag} is not a logical scalar.
##
## Example:
## @example
## @group
## GaugeKit.Tracer.enable ("MyGrouping", true);
## GaugeKit.Tracer.enable ("MyGrouping")
##   @result{} ans = 1
## @end group
## @end example
## @seealso{GaugeKit.Tracer.enableGlobalLogging, GaugeKit.Tracer.addGrouping,
## GaugeKit.Tracer.logORRERYData}
## @end deftypefn

function on = enable (varargin)
  on = GaugeKit ("Tracer.enable", varargin{:});
endfunction

%!test
%! assert (GaugeKit.Tracer.enable ("HelpEnable", true), true);
%! assert (GaugeKit.Tracer.enable ("HelpEnable"), true);
%! GaugeKit.Tracer.enable ("HelpEnable", false);
%! assert (GaugeKit.Tracer.enable ("HelpEnable"), false);
%!error id=tempogauge:TempoGauge:MinParamsNotReached GaugeKit.Tracer.enable ()
