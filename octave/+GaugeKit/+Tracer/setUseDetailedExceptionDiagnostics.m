## Copyright (C) 2026 the tempogauge developers
## SPDX-License-Identifier: GPL-3.0-or-later

## -*- texinfo -*-
## @deftypefn {} {@var{flag} =} GaugeKit.Tracer.setUseDetailedExceptionDiagnostics (@var{flag})
## Choose whether the host adds stack diagnostics to its errors.
##
## A hidden method: @code{methods ("GaugeKit.Tracer")} does not list it, but
## it can be called.
##
## Asks the host to include detailed stack diagnostics in its error
## reports (@code{true}) or to skip them (@code{false}).  A host without
## such a setting, Octave among them, ignores the request; the method
## returns its input either way, and the errors of the tracer keep their
## identifiers and messages.
##
## Inputs:
## @table @var
## @item flag
## A logical scalar.
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
## GaugeKit.Tracer.setUseDetailedExceptionDiagnostics (false);
## @end example
## @seealso{GaugeKit.Tracer.enable}
## @end deftypefn

function flag = setUseDetailedExceptionDiagnostics (varargin)
  flag = GaugeKit ("Tracer.setUseDetailedExceptionDiagnostics", varargin{:});
endfunction

%!test
%! assert (GaugeKit.Tracer.setUseDetailedExceptionDiagnostics (false), false);
%!error id=tempogauge:TempoGauge:ParameterMismatchBoolean GaugeKit.Tracer.setUseDetailedExceptionDiagnostics (0)
