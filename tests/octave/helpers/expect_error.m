## SPDX-License-Identifier: BSD-3-Clause
## expect_error (id, text, fcn): fcn () raises the error `id`, whose message
## holds `text` (unless it is empty).
function expect_error (id, text, fcn)
  try
    fcn ();
  catch err
    assert (err.identifier, id);
    if (! isempty (text))
      assert (! isempty (strfind (err.message, text)), sprintf ("message '%s' lacks '%s'", err.message, text));
    endif
    return;
  end_try_catch
  error ("expected the error %s, but nothing was raised", id);
endfunction
