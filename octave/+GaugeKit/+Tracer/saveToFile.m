## Copyright (C) 2026 the tempogauge developers
## SPDX-License-Identifier: GPL-3.0-or-later

## -*- texinfo -*-
## @deftypefn {} {} GaugeKit.Tracer.saveToFile (@var{file})
## Save every recorded point to a trace file.
##
## The file is a level-5 data file that Octave's @code{load} reads, with three
## variables: @code{TempoGaugingRawDataVector} (the rows of
## @code{GaugeKit.Tracer.getRawData}), @code{TempoGaugingSystemInfo} (this
## machine and host) and @code{ORRERYRoot} (the host's root folder).  Reports
## take it with their @qcode{"orffile"}, @qcode{"lhsfile"} and
## @qcode{"rhsfile"} options, and so does the @command{tempogauge} command.
## The extension @file{.orf} is the custom; it is not required.
##
## Inputs:
## @table @var
## @item file
## The file's name, a char row.
## @end table
##
## Outputs: none.
##
## Errors: @code{tempogauge:TempoGauge:ParameterMismatchString} when the
## file name is not a char row; @code{OpenFileFailed} when the file cannot be
## created; @code{DataWriteFail} when a variable cannot be written.
##
## Example:
## @example
## @group
## GaugeKit.Tracer.saveToFile ("myrun.orf");
## s = load ("myrun.orf");
## numel (s.TempoGaugingRawDataVector)
## @end group
## @end example
## @seealso{GaugeKit.Tracer.loadTracerData, GaugeKit.Tracer.generateHTMLReport}
## @end deftypefn

function saveToFile (varargin)
  GaugeKit ("Tracer.saveToFile", varargin{:});
endfunction

%!test
%! GaugeKit.Tracer.clearRawData ();
%! GaugeKit.Tracer.enable ("HelpSave", true);
%! GaugeKit.Tracer.logORRERYData ("HelpSave", "p", true);
%! GaugeKit.Tracer.logORRERYData ("HelpSave", "p", false);
%! file = [tempname() ".orf"];
%! unwind_protect
%!   GaugeKit.Tracer.saveToFile (file);
%!   s = load (file);
%!   assert (fieldnames (s), {"TempoGaugingRawDataVector"; "TempoGaugingSystemInfo"; "ORRERYRoot"});
%!   assert (numel (s.TempoGaugingRawDataVector), 2);
%! unwind_protect_cleanup
%!   delete (file);
%! end_unwind_protect
%!error id=tempogauge:TempoGauge:OpenFileFailed GaugeKit.Tracer.saveToFile ("/nonexistent-folder/x.orf")
