// A structural check of level-5 data files, made before the file library
// reads them. A damaged file can claim more elements, fields or nesting than
// its bytes hold, and reading such a claim can take unbounded time and memory;
// a file that passes has every count backed by the bytes that carry it.
#pragma once

#include <cstddef>
#include <string>

// True when `path` is a level-5 data file whose variables (compressed or not)
// all lie wholly inside the file and are consistent: every array's element
// count fits its data, every cell and field is a complete element, and arrays
// nest at most 64 deep.
bool tgLevel5FileIsSound(const std::string& path);

// Walks only the top-level elements of a level-5 file: true when the file
// ends exactly where its last element ends, with `count` set to the number
// of elements. Used after each write, as the file library does not report
// failed writes (a full disk, a size limit) itself.
bool tgLevel5ElementCount(const std::string& path, std::size_t& count);
