## Copyright (C) 2026 the tempogauge developers
## SPDX-License-Identifier: GPL-3.0-or-later

## -*- texinfo -*-
## @deftypefn {} {} GaugeKit.Tracer.addGrouping (@var{grouping}, @var{children})
## Make a grouping whose children are other groupings.
##
## Switching the parent with @code{GaugeKit.Tracer.enable} switches every
## child, to any depth, and selecting the parent in a report or in
## @code{GaugeKit.Tracer.getProcessedData} selects the points of all of them.
## Children added to a parent that has been switched take its state.
##
## Inputs:
## @table @var
## @item grouping
## The parent's name, a char vector.
## @item children
## The children's names, a cell array of char vectors (may be empty).
## @end table
##
## Outputs: none.
##
## Errors: @code{tempogauge:TempoGauge:InvalidNames} when @var{grouping} is
## not text; @code{UnexpectedValue} when @var{children} is not a cell array;
## @code{AddGroupingExpectedString} when a child is not text;
## @code{AddGroupingError} when the parent already has children, or a child
## has children of its own.
##
## Example:
## @example
## @group
## GaugeKit.Tracer.addGrouping ("Solver", @{"Assemble", "Factorize"@});
## GaugeKit.Tracer.enable ("Solver", true);
## GaugeKit.Tracer.enable ("Factorize")
##   @result{} ans = 1
## @end group
## @end example
## @seealso{GaugeKit.Tracer.removeGrouping, GaugeKit.Tracer.enable}
## @end deftypefn

function addGrouping (varargin)
  GaugeKit ("Tracer.addGrouping", varargin{:});
endfunction

%!test
%! GaugeKit.Tracer.addGrouping ("HelpParent", {"HelpChildA", "HelpChildB"});
%! GaugeKit.Tracer.enable ("HelpParent", true);
%! assert (GaugeKit.Tracer.enable ("HelpChildB"), true);
%! GaugeKit.Tracer.removeGrouping ("HelpParent");
%!error id=tempogauge:TempoGauge:UnexpectedValue GaugeKit.Tracer.addGrouping ("HelpParent", "HelpChildA")
