## Copyright (C) 2026 the tempogauge developers
## SPDX-License-Identifier: GPL-3.0-or-later

## -*- texinfo -*-
## @deftypefn {} {@var{flag} =} GaugeKit.Tracer.enableDetailedMemStats (@var{flag})
## Add a walk of the whole address space to every recorded point.
##
## By default a point carries the process's resident size, its peak and its
## virtual size.  With detailed statistics on, each point also sums the free,
## reserved, committed and shared-library memory of the address space, which
## the @qcode{"detailedmemory"} metric of the reports shows.  The walk costs
## about a tenth of a millisecond per point.
##
## Inputs:
## @table @var
## @item flag
## @code{true} to switch the walk on, @code{false} to switch it off; a
## logical scalar.
## @end table
##
## Output:
## @table @var
## @item flag
## The input, unchanged.
## @end table
##
## Errors: @code{tempogauge:TempoGauge:ParameterMismatchBoolean} when
## @var{flag} is not a logical scalar.
##
## Example:
## @example
## @group
## GaugeKit.Tracer.enableDetailedMemStats (true);
## GaugeKit.Tracer.logORRERYData ("MyGrouping", "allocate", true);
## A = zeros (4000);
## GaugeKit.Tracer.logORRERYData ("MyGrouping", "allocate", false);
## GaugeKit.Tracer.generateHTMLReport ("htmlfile", "mem.html",
##                                    "metric", "detailedmemory");
## @end group
## @end example
## @seealso{GaugeKit.Tracer.generateHTMLReport}
## @end deftypefn

function flag = enableDetailedMemStats (varargin)
  flag = GaugeKit ("Tracer.enableDetailedMemStats", varargin{:});
endfunction

%!test
%! GaugeKit.Tracer.clearRawData ();
%! GaugeKit.Tracer.enable ("HelpDetail", true);
%! assert (GaugeKit.Tracer.enableDetailedMemStats (true), true);
%! GaugeKit.Tracer.logORRERYData ("HelpDetail", "allocate", true);
%! GaugeKit.Tracer.logORRERYData ("HelpDetail", "allocate", false);
%! GaugeKit.Tracer.enableDetailedMemStats (false);
%! p = GaugeKit.Tracer.getProcessedData ("grouping", "HelpDetail");
%! assert (p{1}.commitMem > 0);
