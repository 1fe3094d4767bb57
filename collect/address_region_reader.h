// SPDX-License-Identifier: BSD-3-Clause
// Lists the mappings of the process's address space in address order.
//
// Where the kernel answers region queries on /proc/self/maps (the
// PROCMAP_QUERY ioctl), each mapping is asked for by address, which spares the
// kernel formatting a text line per mapping; elsewhere the text of
// /proc/self/maps is read and parsed.
#pragma once

#include <cstdint>
#include <functional>
#include <vector>

struct AddressRegion {
  std::uint64_t start = 0;
  std::uint64_t end = 0;  // one past the last byte
  bool noAccess = false;  // neither readable, writable nor executable
};

class AddressRegionReader {
 public:
  // `tryQueries` false reads the text from the start (the fallback path).
  explicit AddressRegionReader(bool tryQueries = true) : method_(tryQueries ? Method::Unknown : Method::Text) {}

  // Calls `visit` for each mapping, lowest first; false when the list can't
  // be read (nothing was visited then).
  bool forEach(const std::function<void(const AddressRegion&)>& visit);

 private:
  enum class Method { Unknown, Query, Text };
  // -1: queries are not supported here; 0: failed; 1: done.
  int walkByQuery(int fd, const std::function<void(const AddressRegion&)>& visit);
  bool walkText(int fd, const std::function<void(const AddressRegion&)>& visit);

  Method method_;
  std::vector<char> text_;  // reused between text walks
};
