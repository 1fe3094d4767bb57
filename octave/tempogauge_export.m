## Copyright (C) 2026 the tempogauge developers
## SPDX-License-Identifier: GPL-3.0-or-later

## -*- texinfo -*-
## @deftypefn  {} {} tempogauge_export (@var{orffile}, @var{jsonfile})
## @deftypefnx {} {} tempogauge_export (@var{jsonfile})
## @deftypefnx {} {} tempogauge_export (@dots{}, "grouping", @var{grouping})
## Write a trace in the Trace Event Format (JSON) for trace viewers.
##
## Perfetto's UI, Chromium's trace viewer (@code{about:tracing}) and
## speedscope open the file: each phase execution is one complete event
## (start and duration in microseconds of wall-clock time, with the CPU time,
## the memory figures, the phase number and the grouping as arguments), the
## process memory is drawn as a counter track, and the machine's description
## is under @code{otherData}.  Gap phases (time inside a phase that none of
## its children accounts for) have the category @qcode{"gap"}.
##
## Inputs:
## @table @var
## @item orffile
## a trace saved by @code{GaugeKit.Tracer.saveToFile}; without it, the
## tracer's own points of this session are written;
## @item jsonfile
## the file to write.  It is replaced only once it is complete;
## @item grouping
## the grouping whose phases are written (with its children);
## @qcode{"GLOBAL"}, every grouping, when not given.
## @end table
##
## Errors: @code{tempogauge:export:Unpaired} when the starts and ends of the
## phases do not pair up (@code{GaugeKit.Tracer.diagnosticReport} shows
## where); @code{tempogauge:TempoGauge:OpenFileFailed} for a trace that
## cannot be read, @code{NoRawTracerDataLoaded} for one without points,
## @code{NoRawTracerData} when the tracer holds no points, and
## @code{WriteFileFailed} when @var{jsonfile} cannot be written.
##
## Example:
## @example
## @group
## GaugeKit.Tracer.enable ("MyGrouping", true);
## GaugeKit.Tracer.logORRERYData ("MyGrouping", "solve", true);
## x = rand (500) \ ones (500, 1);
## GaugeKit.Tracer.logORRERYData ("MyGrouping", "solve", false);
## GaugeKit.Tracer.saveToFile ("myrun.orf");
## tempogauge_export ("myrun.orf", "myrun.json");  % a saved run
## tempogauge_export ("live.json");                % this session's points
## @end group
## @end example
## @seealso{GaugeKit.Tracer.saveToFile, GaugeKit.Tracer.generateHTMLReport}
## @end deftypefn

function tempogauge_export (varargin)
  if (nargin < 1 || nargin > 4)
    print_usage ();
  endif
  ## An odd count starts with the JSON file: the live points.
  nfiles = 2 - mod (nargin, 2);
  files = varargin(1:nfiles);
  options = varargin(nfiles+1:end);
  grouping = "GLOBAL";
  if (! isempty (options))
    if (! (ischar (options{1}) && strcmpi (options{1}, "grouping")))
      error ("tempogauge:export:InvalidOption",
             "tempogauge_export: the only option is \"grouping\"");
    endif
    grouping = options{2};
    if (! (ischar (grouping) && isrow (grouping)))
      error ("tempogauge:export:InvalidOption",
             "tempogauge_export: the grouping must be a name (text)");
    endif
  endif
  for k = 1:nfiles
    if (! (ischar (files{k}) && isrow (files{k})))
      error ("tempogauge:export:InvalidFile",
             "tempogauge_export: file names are text; argument %d is a %s", k, class (files{k}));
    endif
  endfor
  if (nfiles == 1)
    __tempogauge_export__ ("", files{1}, grouping);
  else
    __tempogauge_export__ (files{1}, files{2}, grouping);
  endif
endfunction

## A saved run of two groupings, then the live points: one event per
## execution with the pairing's durations, names with quotes, the grouping
## option, and an unpaired run refused with the file left as it was.
%!function names = phase_names (json)
%!  events = jsondecode (fileread (json)).traceEvents;
%!  events = events(cellfun (@(e) strcmp (e.ph, "X"), events));
%!  names = cellfun (@(e) e.name, events, "uniformoutput", false)(:)';
%!endfunction

%!test
%! dir = tempname ();
%! mkdir (dir);
%! [orf, json] = deal (fullfile (dir, "run.orf"), fullfile (dir, "run.json"));
%! GaugeKit.Tracer.clearRawData ();
%! GaugeKit.Tracer.enable ("ExportA", true);
%! GaugeKit.Tracer.enable ("ExportB", true);
%! GaugeKit.Tracer.logORRERYData ("ExportA", "outer", true);
%! GaugeKit.Tracer.logORRERYData ("ExportA", "inner", true);
%! pause (0.02);
%! GaugeKit.Tracer.logORRERYData ("ExportA", "inner", false);
%! GaugeKit.Tracer.logORRERYData ("ExportA", "say \"hi\"", true);
%! GaugeKit.Tracer.logORRERYData ("ExportA", "say \"hi\"", false);
%! GaugeKit.Tracer.logORRERYData ("ExportA", "outer", false);
%! GaugeKit.Tracer.logORRERYData ("ExportB", "other", true);
%! GaugeKit.Tracer.logORRERYData ("ExportB", "other", false);
%! p = GaugeKit.Tracer.getProcessedData ("grouping", "ExportA");
%! GaugeKit.Tracer.saveToFile (orf);
%! tempogauge_export (json, "grouping", "ExportB");
%! assert (phase_names (json), {"other"});
%! GaugeKit.Tracer.logORRERYData ("ExportB", "never stops", true);
%! before = fileread (json);
%! try
%!   tempogauge_export (json);
%!   error ("an unpaired run was exported");
%! catch err
%!   assert (err.identifier, "tempogauge:export:Unpaired");
%!   assert (! isempty (strfind (err.message, "diagnosticReport")));
%! end_try_catch
%! assert (fileread (json), before);
%! GaugeKit.Tracer.clearRawData ();
%! tempogauge_export (orf, json, "grouping", "ExportA");
%! events = jsondecode (fileread (json)).traceEvents;
%! events = events(cellfun (@(e) strcmp (e.ph, "X"), events));
%! assert (numel (events), numel (p));
%! for k = 1:numel (p)
%!   assert (events{k}.name, p{k}.phaseIDStr);
%!   assert (events{k}.dur, 1e6 * p{k}.wcElapsedTime, 0.01);
%! endfor
%! assert (events{2}.dur >= 2e4);
%! tempogauge_export (orf, json);
%! assert (any (strcmp (phase_names (json), "other")));
%! confirm_recursive_rmdir (false, "local");
%! rmdir (dir, "s");

%!error <Invalid call> tempogauge_export ()
%!error <only option> tempogauge_export ("a.orf", "a.json", "metric", "time")
%!error <argument 1 is a double> tempogauge_export (1, "a.json")
%!error id=tempogauge:TempoGauge:OpenFileFailed tempogauge_export (tempname (), [tempname() ".json"])
