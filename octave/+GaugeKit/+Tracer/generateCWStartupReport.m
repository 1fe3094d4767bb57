## Copyright (C) 2026 the tempogauge developers
## SPDX-License-Identifier: GPL-3.0-or-later

## -*- texinfo -*-
## @deftypefn  {} {} GaugeKit.Tracer.generateCWStartupReport ()
## @deftypefnx {} {} GaugeKit.Tracer.generateCWStartupReport (@var{name}, @var{value}, @dots{})
## Write the full report of the block-diagram tool's start-up.
##
## As @code{GaugeKit.Tracer.generateHTMLReport} for the grouping
## @qcode{"Cogwheel Startup"}, titled @qcode{"Cogwheel Startup Performance"}.
##
## Inputs: at most two name/value pairs:
## @table @asis
## @item @qcode{"htmlfile"}
## the report file; by default @file{CWStartup.html} in the current folder.
## @item @qcode{"orffile"}
## a saved trace file to show instead of the recorded points.
## @item @qcode{"metric"}
## @qcode{"time"} (default), @qcode{"basicmemory"} or @qcode{"detailedmemory"}.
## @end table
##
## Outputs: none.
##
## Errors: as @code{GaugeKit.Tracer.generateHTMLReport}.
##
## Example:
## @example
## GaugeKit.Tracer.generateCWStartupReport ("htmlfile", "startup.html");
## @end example
## @seealso{GaugeKit.Tracer.logCWStartupData,
## GaugeKit.Tracer.generateCWStartupDifferenceReport}
## @end deftypefn

function generateCWStartupReport (varargin)
  GaugeKit ("Tracer.generateCWStartupReport", varargin{:});
endfunction

%!test
%! GaugeKit.Tracer.clearRawData ();
%! GaugeKit.Tracer.enableCWStartupLogging (true);
%! GaugeKit.Tracer.logCWStartupData ("boot", true);
%! GaugeKit.Tracer.logCWStartupData ("boot", false);
%! GaugeKit.Tracer.enableCWStartupLogging (false);
%! file = [tempname() ".html"];
%! unwind_protect
%!   GaugeKit.Tracer.generateCWStartupReport ("htmlfile", file);
%!   assert (! isempty (strfind (fileread (file), "Cogwheel Startup Performance")));
%! unwind_protect_cleanup
%!   delete (file);
%! end_unwind_protect
