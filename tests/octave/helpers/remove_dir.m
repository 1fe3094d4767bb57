## SPDX-License-Identifier: BSD-3-Clause
## remove_dir (dir): removes the folder and everything in it.
function remove_dir (dir)
  confirm_recursive_rmdir (false, "local");
  rmdir (dir, "s");
endfunction
