// SPDX-License-Identifier: BSD-3-Clause
// Reading and checking whole level-5 data files. A damaged file can claim
// more elements, fields or nesting than its bytes hold; such a file is
// refused as a whole, so that no reader spends unbounded time or memory on
// it and no variable comes back half-read.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "host/level5_elements.h"

namespace tg::level5 {

// One variable of a file: its name and its array element (tag and content),
// inflated when it was stored compressed.
struct Variable {
  std::string name;
  Bytes element;
  // A compressed variable too large to be inflated whole at opening keeps
  // its zlib stream here (and `element` stays empty), unchecked: whoever
  // reads it checks what it reads.
  Bytes compressed;
};

// Why a file could not be read.
enum class FileProblem { None, NoSuchFile, NotReadable, NotLevel5, Damaged };

// A short description of the problem: "no such file", "damaged", ...
const char* describe(FileProblem problem);

// Reads `path`: true when it is a level-5 data file whose variables all lie
// wholly inside the file, inflate cleanly, and are consistent (every array's
// element count fits its data, every cell and field is a complete element,
// arrays nest at most kMaxDepth deep). Octave states the length of a
// variable holding a 2-D char array of four characters or fewer four bytes
// too long; as Octave's own reader does, a variable whose stated length runs
// past the end of its data by less than one 8-byte unit is taken as the data
// there is. On failure `problem` (when given) says why.
// Compressed variables whose element is longer than `deferAbove` bytes are
// kept compressed (see Variable); their names are read from the stream's
// first bytes.
bool readFile(const std::string& path, std::vector<Variable>& variables, bool& swapped,
              FileProblem* problem = nullptr, std::uint64_t deferAbove = UINT64_MAX);

// Inflates and checks the stream of a variable kept compressed; false when
// it is damaged.
bool inflateDeferred(const Bytes& compressed, bool swapped, Bytes& element);

// Checks the array whose miMATRIX content is [at, end).
bool checkArray(const Reader& r, std::uint64_t at, std::uint64_t end, int depth);

}  // namespace tg::level5
