// SPDX-License-Identifier: BSD-3-Clause
// The demonstration's workload: a small simulation pipeline of nested,
// instrumented phases that compute and allocate for real. Its two variants
// differ in ways every report kind shows: one phase takes more than twice as
// long, one less than half, one is new, one is gone, one holds far more
// memory, and a loop runs one more time.
#pragma once

#include <functional>
#include <string_view>

namespace tg::cli {

enum class DemoVariant { Baseline, Changed };

inline constexpr std::string_view kDemoGrouping = "Demo";

// Runs the workload once, logging its phases into the grouping kDemoGrouping.
// `onStage` is told the name of each top-level stage as it starts.
void runDemoWorkload(DemoVariant variant, const std::function<void(std::string_view)>& onStage);

// How many times runDemoWorkload calls `onStage` for the variant.
int demoStageCount(DemoVariant variant);

}  // namespace tg::cli
