## Copyright (C) 2026 the tempogauge developers
## SPDX-License-Identifier: GPL-3.0-or-later

## -*- texinfo -*-
## @deftypefn  {} {} GaugeKit.Tracer.saveCWStartupData ()
## @deftypefnx {} {} GaugeKit.Tracer.saveCWStartupData (@var{file})
## Save the points of the grouping @qcode{"Cogwheel Startup"} to a trace file.
##
## As @code{GaugeKit.Tracer.saveToFile}, with only the start-up points.
##
## Inputs:
## @table @var
## @item file
## The file's name, a char row; by default @file{CWStartupData.orf} in the
## current folder.
## @end table
##
## Outputs: none.
##
## Errors: @code{tempogauge:TempoGauge:ParameterMismatchString} when the
## file name is not a char row; @code{OpenFileFailed} when the file cannot be
## created; @code{DataWriteFail} when a variable cannot be written.  More than one input gives
## @code{MaxParamsExceeded}.
##
## Example:
## @example
## @group
## GaugeKit.Tracer.saveCWStartupData ("startup.orf");
## GaugeKit.Tracer.generateCWStartupReport ("orffile", "startup.orf");
## @end group
## @end example
## @seealso{GaugeKit.Tracer.logCWStartupData, GaugeKit.Tracer.saveToFile}
## @end deftypefn

function saveCWStartupData (varargin)
  GaugeKit ("Tracer.saveCWStartupData", varargin{:});
endfunction

%!test
%! GaugeKit.Tracer.clearRawData ();
%! GaugeKit.Tracer.enableCWStartupLogging (true);
%! GaugeKit.Tracer.enable ("HelpOther", true);
%! GaugeKit.Tracer.logCWStartupData ("boot", true);
%! GaugeKit.Tracer.logORRERYData ("HelpOther", "p", true);
%! GaugeKit.Tracer.logCWStartupData ("boot", false);
%! GaugeKit.Tracer.enableCWStartupLogging (false);
%! file = [tempname() ".orf"];
%! unwind_protect
%!   GaugeKit.Tracer.saveCWStartupData (file);
%!   s = load (file);
%!   assert (numel (s.TempoGaugingRawDataVector), 2);
%! unwind_protect_cleanup
%!   delete (file);
%! end_unwind_protect
