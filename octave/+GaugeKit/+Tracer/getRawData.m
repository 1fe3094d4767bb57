## Copyright (C) 2026 the tempogauge developers
## SPDX-License-Identifier: GPL-3.0-or-later

## -*- texinfo -*-
## @deftypefn {} {@var{raw} =} GaugeKit.Tracer.getRawData ()
## Return the recorded points, one cell row per point, in the order recorded.
##
## Output:
## @table @var
## @item raw
## A 1-by-N cell array.  Each element is a cell row: the version tag
## @qcode{"1"}, the point's kind (int32: 0 Octave code, 1 model, 2 chart),
## the phase's and the grouping's names, for models the model's and the
## target's names, for charts also the machine's and the chart's names, then
## the statistics type, the start flag (logical), the wall-clock and CPU times
## in seconds, and the memory sample in bytes.  This is the form that saved
## trace files hold.
## @end table
##
## Example:
## @example
## @group
## raw = GaugeKit.Tracer.getRawData ();
## printf ("%d points, the first of phase %s\n", numel (raw), raw@{1@}@{3@});
## @end group
## @end example
## @seealso{GaugeKit.Tracer.getProcessedData, GaugeKit.Tracer.saveToFile}
## @end deftypefn

function raw = getRawData (varargin)
  raw = GaugeKit ("Tracer.getRawData", varargin{:});
endfunction

%!test
%! GaugeKit.Tracer.clearRawData ();
%! GaugeKit.Tracer.enable ("HelpRaw", true);
%! GaugeKit.Tracer.logORRERYData ("HelpRaw", "p", true);
%! GaugeKit.Tracer.logORRERYData ("HelpRaw", "p", false);
%! raw = GaugeKit.Tracer.getRawData ();
%! assert (size (raw), [1 2]);
%! assert (raw{1}(1:4), {"1", int32(0), "p", "HelpRaw"});
%! assert ([raw{1}{6}, raw{2}{6}], [true false]);
%! assert (raw{2}{7} >= raw{1}{7});
