// SPDX-License-Identifier: BSD-3-Clause
// A variable of a data file written in rows, for variables too large to be
// made as one host array first (the raw points of a long trace).
#pragma once

#include <functional>

#include "host/data_file.h"
#include "host/level5_deflate.h"

// Appends one compressed variable whose array element (tag, content) `write`
// hands to the deflater row by row; `write` returns false to give the
// variable up. 0 on success; a failure fails the file as orfPutVariable's do.
int orfPutRows(orfFile* file, const std::function<bool(tg::level5::RowDeflater&)>& write);

// A variable of a file opened for reading, as it is held: its array element
// (tag and content, inflated and checked) or, for a variable too large to be
// inflated whole at opening, its zlib stream (unchecked: the reader checks
// what it reads). Both null when there is no such variable. The bytes live
// as long as the file is open.
struct orfHeldVariable {
  const tg::level5::Bytes* element = nullptr;
  const tg::level5::Bytes* compressed = nullptr;
  bool swapped = false;
};
orfHeldVariable orfVariableHeld(orfFile* file, std::string_view name);
