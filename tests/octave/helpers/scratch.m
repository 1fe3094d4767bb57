## SPDX-License-Identifier: BSD-3-Clause
## dir = scratch (): a fresh temporary folder.
function dir = scratch ()
  dir = tempname ();
  mkdir (dir);
endfunction
