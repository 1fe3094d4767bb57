// Reading and checking whole level-5 data files. A damaged file can claim
// more elements, fields or nesting than its bytes hold; such a file is
// refused as a whole, so that no reader spends unbounded time or memory on
// it and no variable comes back half-read.
#pragma once

#include <string>
#include <vector>

#include "host/level5_elements.h"

namespace tg::level5 {

// One variable of a file: its name and its array element (tag and content),
// inflated when it was stored compressed.
struct Variable {
  std::string name;
  Bytes element;
};

// Reads `path`: true when it is a level-5 data file whose variables all lie
// wholly inside the file, inflate cleanly, and are consistent (every array's
// element count fits its data, every cell and field is a complete element,
// arrays nest at most kMaxDepth deep).
bool readFile(const std::string& path, std::vector<Variable>& variables, bool& swapped);

// Checks the array whose miMATRIX content is [at, end).
bool checkArray(const Reader& r, std::uint64_t at, std::uint64_t end, int depth);

}  // namespace tg::level5
