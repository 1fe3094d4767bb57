## SPDX-License-Identifier: BSD-3-Clause
## expect_errors (cases): each row of the cell array is the name of a message
## ID of tempogauge, a text its message holds, and the call that raises it.
function expect_errors (cases)
  for i = 1:rows (cases)
    expect_error (["tempogauge:TempoGauge:" cases{i,1}], cases{i,2}, cases{i,3});
  endfor
endfunction
