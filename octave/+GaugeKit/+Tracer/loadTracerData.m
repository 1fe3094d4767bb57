## Copyright (C) 2026 the tempogauge developers
## SPDX-License-Identifier: GPL-3.0-or-later

## -*- texinfo -*-
## @deftypefn {} {} GaugeKit.Tracer.loadTracerData (@var{file})
## Replace the recorded points by those of a saved trace file.
##
## The file's points become the tracer's, its system information is kept for
## the reports, and its root folder becomes the one that phase names are
## shown against.  Use it to look at an earlier run with
## @code{GaugeKit.Tracer.getProcessedData}; the report methods can also read
## a file directly through their @qcode{"orffile"} option.
##
## Inputs:
## @table @var
## @item file
## The file's name, a char row that holds @file{.orf}.
## @end table
##
## Outputs: none.
##
## Errors: @code{tempogauge:TempoGauge:ParameterMismatchString} when the name
## is not a char row; @code{MissingOrfExt} when it does not hold @file{.orf};
## @code{OpenFileFailed} when the file cannot be read as a trace file.  The
## recorded points are unchanged after an error.
##
## Example:
## @example
## @group
## GaugeKit.Tracer.saveToFile ("before.orf");
## GaugeKit.Tracer.clearRawData ();
## GaugeKit.Tracer.loadTracerData ("before.orf");
## @end group
## @end example
## @seealso{GaugeKit.Tracer.saveToFile}
## @end deftypefn

function loadTracerData (varargin)
  GaugeKit ("Tracer.loadTracerData", varargin{:});
endfunction

%!test
%! GaugeKit.Tracer.clearRawData ();
%! GaugeKit.Tracer.enable ("HelpLoad", true);
%! GaugeKit.Tracer.logORRERYData ("HelpLoad", "p", true);
%! GaugeKit.Tracer.logORRERYData ("HelpLoad", "p", false);
%! file = [tempname() ".orf"];
%! unwind_protect
%!   GaugeKit.Tracer.saveToFile (file);
%!   GaugeKit.Tracer.clearRawData ();
%!   GaugeKit.Tracer.loadTracerData (file);
%!   assert (numel (GaugeKit.Tracer.getRawData ()), 2);
%! unwind_protect_cleanup
%!   delete (file);
%! end_unwind_protect
%!error id=tempogauge:TempoGauge:MissingOrfExt GaugeKit.Tracer.loadTracerData ("run.mat")
%!error id=tempogauge:TempoGauge:OpenFileFailed GaugeKit.Tracer.loadTracerData ("/nonexistent-folder/x.orf")
