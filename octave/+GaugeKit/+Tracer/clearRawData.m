## Copyright (C) 2026 the tempogauge developers
## SPDX-License-Identifier: GPL-3.0-or-later

## -*- texinfo -*-
## @deftypefn  {} {} GaugeKit.Tracer.clearRawData ()
## @deftypefnx {} {} GaugeKit.Tracer.clearRawData (@var{name}, @var{value}, @dots{})
## Delete recorded points: all of them, or those of a grouping or a model.
##
## Without input every point goes, and the names they used are forgotten.
## With options only the matching points go:
##
## @table @asis
## @item @qcode{"grouping"} only
## the points of that grouping;
## @item @qcode{"grouping"} and @qcode{"model"}
## the points of that model within that grouping;
## @item @qcode{"grouping"}, @qcode{"model"} and @qcode{"target"}
## the same (the target does not narrow it further);
## @item @qcode{"model"} only
## the points of that model, in every grouping.
## @end table
##
## Inputs: up to three name/value pairs.  Names are compared without regard to
## case; values are text.
##
## Outputs: none.
##
## Errors: @code{tempogauge:TempoGauge:ExpectedEvenNumberOfParameters} for an
## odd number of inputs; @code{MaxParamsExceeded} for more than six;
## @code{InvalidNames} for an unknown option, or @qcode{"target"} alone.
##
## Example:
## @example
## @group
## GaugeKit.Tracer.clearRawData ("grouping", "MyGrouping");
## GaugeKit.Tracer.clearRawData ();              # everything
## @end group
## @end example
## @seealso{GaugeKit.Tracer.getRawData}
## @end deftypefn

function clearRawData (varargin)
  GaugeKit ("Tracer.clearRawData", varargin{:});
endfunction

%!test
%! GaugeKit.Tracer.clearRawData ();
%! GaugeKit.Tracer.enable ("HelpKeep", true);
%! GaugeKit.Tracer.enable ("HelpDrop", true);
%! GaugeKit.Tracer.logORRERYData ("HelpKeep", "p", true);
%! GaugeKit.Tracer.logORRERYData ("HelpDrop", "p", true);
%! GaugeKit.Tracer.clearRawData ("Grouping", "HelpDrop");
%! raw = GaugeKit.Tracer.getRawData ();
%! assert (numel (raw), 1);
%! assert (raw{1}{4}, "HelpKeep");
%! GaugeKit.Tracer.clearRawData ();
%! assert (isempty (GaugeKit.Tracer.getRawData ()));
%!error id=tempogauge:TempoGauge:InvalidNames GaugeKit.Tracer.clearRawData ("target", "t")
