## Copyright (C) 2026 the tempogauge developers
## SPDX-License-Identifier: GPL-3.0-or-later

## -*- texinfo -*-
## @deftypefn {} {} GaugeKit.Tracer.setStatisticsTypeForModel (@var{model}, @var{type})
## Name the kind of statistics that the points of a model carry.
##
## Points logged afterwards with @code{GaugeKit.Tracer.logCogwheelData} or
## @code{GaugeKit.Tracer.logLoomchartData} for @var{model} carry @var{type}
## in their statistics type, which the raw and processed data show.
##
## Inputs:
## @table @var
## @item model
## The model's name; text.
## @item type
## The statistics type's name; text.
## @end table
##
## Outputs: none.
##
## Errors: @code{tempogauge:TempoGauge:InvalidNames} when either name is
## empty.
##
## Example:
## @example
## GaugeKit.Tracer.setStatisticsTypeForModel ("plant", "Build");
## @end example
## @seealso{GaugeKit.Tracer.logCogwheelData}
## @end deftypefn

function setStatisticsTypeForModel (varargin)
  GaugeKit ("Tracer.setStatisticsTypeForModel", varargin{:});
endfunction

%!test
%! GaugeKit.Tracer.clearRawData ();
%! GaugeKit.Tracer.enable ("HelpStats", true);
%! GaugeKit.Tracer.setStatisticsTypeForModel ("HelpStatsModel", "Build");
%! GaugeKit.Tracer.logCogwheelData ("HelpStats", "HelpStatsModel", "t", "p", true);
%! GaugeKit.Tracer.logCogwheelData ("HelpStats", "HelpStatsModel", "t", "p", false);
%! p = GaugeKit.Tracer.getProcessedData ("grouping", "HelpStats");
%! assert (p{1}.statisticsTypeStr, "Build");
%!error id=tempogauge:TempoGauge:InvalidNames GaugeKit.Tracer.setStatisticsTypeForModel ("", "Build")
