## Copyright (C) 2026 the tempogauge developers
## SPDX-License-Identifier: GPL-3.0-or-later

## -*- texinfo -*-
## @deftypefn  {} {@var{processed} =} GaugeKit.Tracer.getProcessedData ()
## @deftypefnx {} {@var{processed} =} GaugeKit.Tracer.getProcessedData ("grouping", @var{grouping})
## @deftypefnx {} {@var{processed} =} GaugeKit.Tracer.getProcessedData ("model", @var{model})
## Pair the recorded points into phase executions.
##
## Each start is paired with its end; the executions are numbered by their
## place in the call tree (@qcode{"1"}, @qcode{"1.1"}, @dots{}).  Time above
## 0.1 s that no phase accounts for becomes a gap row (@qcode{"<parent>_self"},
## @qcode{"<phase>_post"} or @qcode{"Unaccounted Phase"}).
##
## Inputs: without input, every grouping (@qcode{"GLOBAL"}).  Otherwise
## name/value pairs; only the last pair counts:
## @table @asis
## @item @qcode{"grouping"}
## a grouping's name (with its children), or a cell array of names;
## @item @qcode{"model"}
## a model's name, or a cell array of names.
## @end table
##
## Output:
## @table @var
## @item processed
## A 1-by-N cell array of scalar structs, one per execution in start order,
## with the fields @code{phaseIDStr}, @code{groupingStr},
## @code{HTMLPhaseNumString}, @code{stackDepth}, @code{wcStartTime},
## @code{wcElapsedTime}, @code{cpuStartTime}, @code{cpuElapsedTime}, the
## memory at the end of the phase and its change in MiB
## (@code{procMemUsage}, @code{procMemUsageDelta}, @dots{}), @code{gapRow},
## @code{errorRow}, and for models @code{modelStr} and @code{targetStr}.
## Empty when the starts and ends do not pair up; then
## @code{GaugeKit.Tracer.diagnosticReport} shows where.
## @end table
##
## Errors: @code{tempogauge:TempoGauge:ExpectedEvenNumberOfParameters},
## @code{ExpectedNames} when an option's name is not text,
## @code{ParameterMismatchString} when its value is neither text nor a cell,
## @code{InvalidNames} for an unknown option.
##
## Example:
## @example
## @group
## p = GaugeKit.Tracer.getProcessedData ("grouping", "MyGrouping");
## for k = 1:numel (p)
##   printf ("%-8s %-20s %8.3f s\n", p@{k@}.HTMLPhaseNumString,
##           p@{k@}.phaseIDStr, p@{k@}.wcElapsedTime);
## endfor
## @end group
## @end example
## @seealso{GaugeKit.Tracer.getRawData, GaugeKit.Tracer.generateHTMLReport}
## @end deftypefn

function processed = getProcessedData (varargin)
  processed = GaugeKit ("Tracer.getProcessedData", varargin{:});
endfunction

%!test
%! GaugeKit.Tracer.clearRawData ();
%! GaugeKit.Tracer.enable ("HelpProc", true);
%! GaugeKit.Tracer.logORRERYData ("HelpProc", "outer", true);
%! GaugeKit.Tracer.logORRERYData ("HelpProc", "inner", true);
%! GaugeKit.Tracer.logORRERYData ("HelpProc", "inner", false);
%! GaugeKit.Tracer.logORRERYData ("HelpProc", "outer", false);
%! p = GaugeKit.Tracer.getProcessedData ("grouping", "HelpProc");
%! assert (cellfun (@(s) s.HTMLPhaseNumString, p, "uniformoutput", false), {"1", "1.1"});
%! assert (p{1}.wcElapsedTime >= p{2}.wcElapsedTime);
%! GaugeKit.Tracer.logORRERYData ("HelpProc", "open", true);
%! assert (isempty (GaugeKit.Tracer.getProcessedData ("grouping", "HelpProc")));
