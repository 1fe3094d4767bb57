// SPDX-License-Identifier: BSD-3-Clause
#include "collect/loaded_module_spans.h"

#include <link.h>
#include <unistd.h>

#include <algorithm>
#include <cstddef>

namespace {

struct LoaderCounts {
  unsigned long long adds = 0;
  unsigned long long subs = 0;
};

// Reads the load and unload counters from the first object and stops.
int readCounts(dl_phdr_info* info, std::size_t size, void* data) {
  auto* counts = static_cast<LoaderCounts*>(data);
  if (size >= offsetof(dl_phdr_info, dlpi_subs) + sizeof info->dlpi_subs) {
    counts->adds = info->dlpi_adds;
    counts->subs = info->dlpi_subs;
  }
  return 1;
}

// One span per object: from its lowest loaded segment to the end of its
// highest, in page units. Gaps between segments belong to the object too.
int collectSpan(dl_phdr_info* info, std::size_t, void* data) {
  auto* spans = static_cast<std::vector<std::pair<std::uint64_t, std::uint64_t>>*>(data);
  static const std::uint64_t page = static_cast<std::uint64_t>(::sysconf(_SC_PAGESIZE));
  std::uint64_t low = UINT64_MAX;
  std::uint64_t high = 0;
  for (int i = 0; i < info->dlpi_phnum; ++i) {
    const ElfW(Phdr)& segment = info->dlpi_phdr[i];
    if (segment.p_type != PT_LOAD) continue;
    const std::uint64_t start = info->dlpi_addr + segment.p_vaddr;
    low = std::min(low, start);
    high = std::max(high, start + segment.p_memsz);
  }
  if (low < high) spans->emplace_back(low / page * page, (high + page - 1) / page * page);
  return 0;
}

}  // namespace

void LoadedModuleSpans::refresh() {
  LoaderCounts counts;
  dl_iterate_phdr(&readCounts, &counts);
  // Counters of 0 mean the loader doesn't keep them: read the list every time.
  if (read_ && counts.adds != 0 && counts.adds == adds_ && counts.subs == subs_) return;
  spans_.clear();
  dl_iterate_phdr(&collectSpan, &spans_);
  std::sort(spans_.begin(), spans_.end());
  adds_ = counts.adds;
  subs_ = counts.subs;
  read_ = true;
}

const std::pair<std::uint64_t, std::uint64_t>* LoadedModuleSpans::spanOf(std::uint64_t address) const {
  // The last span starting at or below the address.
  auto it = std::upper_bound(spans_.begin(), spans_.end(), address,
                             [](std::uint64_t a, const auto& span) { return a < span.first; });
  if (it == spans_.begin()) return nullptr;
  --it;
  return address < it->second ? &*it : nullptr;
}
