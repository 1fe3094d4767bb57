## dir = scratch (): a fresh temporary folder.
function dir = scratch ()
  dir = tempname ();
  mkdir (dir);
endfunction
