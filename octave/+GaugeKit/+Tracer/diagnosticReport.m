## Copyright (C) 2026 the tempogauge developers
## SPDX-License-Identifier: GPL-3.0-or-later

## -*- texinfo -*-
## @deftypefn {} {} GaugeKit.Tracer.diagnosticReport ("htmlfile", @var{file}, @var{name}, @var{value}, @dots{})
## Write a plain table of the raw points that shows where phases do not pair up.
##
## Use it when a report says that the trace has errors, or
## @code{GaugeKit.Tracer.getProcessedData} returns nothing: every start and
## end is listed in order with its phase number, and the rows of a start
## without its end, or an end without its start, are marked.
##
## Inputs: name/value pairs; the names are case sensitive.
## @table @asis
## @item @qcode{"htmlfile"}
## the file to write (required).
## @item @qcode{"grouping"}
## the grouping to check; by default @qcode{"GLOBAL"}.
## @item @qcode{"orffile"}
## a saved trace file to check instead of the recorded points.
## @end table
##
## Outputs: none.
##
## Errors: @code{tempogauge:TempoGauge:MinParamsNotReached},
## @code{MaxParamsExceeded}, @code{ExpectedEvenNumberOfParameters};
## @code{UnexpectedValue} for a value that is not text; @code{InvalidNames}
## for an unknown option; @code{ExpectedNames} without @qcode{"htmlfile"};
## @code{OpenFileFailed}; @code{WriteFileFailed}.
##
## Example:
## @example
## GaugeKit.Tracer.diagnosticReport ("htmlfile", "diag.html");
## @end example
## @seealso{GaugeKit.Tracer.generateHTMLReport, GaugeKit.Tracer.getProcessedData}
## @end deftypefn

function diagnosticReport (varargin)
  GaugeKit ("Tracer.diagnosticReport", varargin{:});
endfunction

%!test
%! GaugeKit.Tracer.clearRawData ();
%! GaugeKit.Tracer.enable ("HelpDiag", true);
%! GaugeKit.Tracer.logORRERYData ("HelpDiag", "left open", true);
%! file = [tempname() ".html"];
%! unwind_protect
%!   GaugeKit.Tracer.diagnosticReport ("htmlfile", file, "grouping", "HelpDiag");
%!   assert (! isempty (strfind (fileread (file), "left open")));
%! unwind_protect_cleanup
%!   delete (file);
%! end_unwind_protect
%!error id=tempogauge:TempoGauge:InvalidNames GaugeKit.Tracer.diagnosticReport ("HTMLFILE", "x.html")
