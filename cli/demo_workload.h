// The demonstration's workload: a small simulation pipeline that does real
// computation and allocation in nested, instrumented phases. Its two variants
// differ in a few phases, so that a comparison has something to show.
#pragma once

#include <functional>
#include <string_view>

namespace tg::cli {

enum class DemoVariant { Baseline, Changed };

inline constexpr std::string_view kDemoGrouping = "Demo";

// Runs the workload once, logging its phases into the grouping kDemoGrouping.
// `onStage` is told the name of each top-level stage as it starts.
void runDemoWorkload(DemoVariant variant, const std::function<void(std::string_view)>& onStage);

}  // namespace tg::cli
