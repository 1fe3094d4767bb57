// SPDX-License-Identifier: BSD-3-Clause
// The host's data files: named host arrays stored in a level-5 data file,
// the format Octave's load reads and save -v7 writes. Variables are written
// zlib-compressed; reading also takes uncompressed ones (save -v6) and files
// of either byte order. A file is read and checked whole when it is opened:
// a damaged one does not open, so no variable comes back half-read.
//
//   auto file = orfOpen("run.orf", "w");
//   if (!file || orfPutVariable(file.get(), "x", array) != 0) ...
//   int status = orfClose(file);
#pragma once

#include <memory>
#include <string_view>

#include "tempogauge/host/ox_array.h"

class orfFile;

struct orfFileCloser {
  void operator()(orfFile* file) const;  // closes, ignoring the result
};
using orfFilePtr = std::unique_ptr<orfFile, orfFileCloser>;

// Opens `name` for reading ("r") or creates or truncates it for writing
// ("w"). Null when the mode is neither, the file cannot be opened or made,
// or, for reading, it is not a sound level-5 data file.
orfFilePtr orfOpen(std::string_view name, std::string_view mode);

// Appends `array` as variable `name`; 0 on success. Fails for a null file or
// array, a file opened for reading, and a failed write (a full disk, a size
// limit); after a failed write every later put fails and closing reports it.
int orfPutVariable(orfFile* file, std::string_view name, const oxArray* array);

// The variable `name` as a new host array; null when the file has no such
// variable, it cannot be read, or it has no host form.
oxArrayPtr orfGetVariable(orfFile* file, std::string_view name);

// Closes the file and resets the handle; 0 on success. A null handle, a
// failed close and a file with a failed write give -1.
int orfClose(orfFilePtr& file);
