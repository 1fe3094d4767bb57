## Copyright (C) 2026 the tempogauge developers
## SPDX-License-Identifier: GPL-3.0-or-later

## -*- texinfo -*-
## @deftypefn {} {} GaugeKit.Tracer.removeGrouping (@var{grouping})
## Remove a grouping and all its children from the tree of groupings.
##
## The grouping and its children go back to "never switched"; their points
## already recorded stay.
##
## Inputs:
## @table @var
## @item grouping
## The grouping's name, a char vector.
## @end table
##
## Outputs: none.
##
## Errors: @code{tempogauge:TempoGauge:ParameterMismatchString} when
## @var{grouping} is not text; @code{RemoveGroupingError} when there is no
## such grouping.
##
## Example:
## @example
## @group
## GaugeKit.Tracer.addGrouping ("Solver", @{"Assemble", "Factorize"@});
## GaugeKit.Tracer.removeGrouping ("Solver");
## @end group
## @end example
## @seealso{GaugeKit.Tracer.addGrouping}
## @end deftypefn

function removeGrouping (varargin)
  GaugeKit ("Tracer.removeGrouping", varargin{:});
endfunction

%!test
%! GaugeKit.Tracer.addGrouping ("HelpRemoved", {"HelpRemovedChild"});
%! GaugeKit.Tracer.removeGrouping ("HelpRemoved");
%! fail ('GaugeKit.Tracer.removeGrouping ("HelpRemoved")', "HelpRemoved");
