// SPDX-License-Identifier: BSD-3-Clause
// A bidirectional table between names and dense ids (0, 1, 2, ... in order of
// first sight). Names compare as bytes.
#pragma once

#include <boost/bimap.hpp>
#include <boost/bimap/set_of.hpp>
#include <cstdint>
#include <string>

// A class rather than an alias, so that the store's public declaration can
// name it without Boost.
class NameTable : public boost::bimap<boost::bimaps::set_of<std::string>, boost::bimaps::set_of<std::int32_t>> {
 public:
  using bimap::bimap;
};
