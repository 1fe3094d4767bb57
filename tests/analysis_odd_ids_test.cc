// Ids that no name table holds, as a caller's own points may carry: they name
// nothing, and they must cost no more than any other id.
#include <gtest/gtest.h>

#include <sys/resource.h>

#include <climits>

#include "analysis_trace_builder.h"
#include "tempogauge/tempogauge.h"

namespace {

// Runs `body` with the address space capped, so that a table sized by an id
// fails at once instead of taking the machine's memory.
template <class Body>
void withAddressSpaceCap(Body body) {
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
  GTEST_SKIP() << "a sanitizer's shadow memory takes more address space than any cap allows";
#elif defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer)
  GTEST_SKIP() << "a sanitizer's shadow memory takes more address space than any cap allows";
#endif
#endif
  rlimit old{};
  ASSERT_EQ(getrlimit(RLIMIT_AS, &old), 0);
  rlimit capped = old;
  capped.rlim_cur = rlim_t{4} << 30;  // well above what this process needs
  if (old.rlim_max != RLIM_INFINITY && old.rlim_max < capped.rlim_cur) capped.rlim_cur = old.rlim_max;
  ASSERT_EQ(setrlimit(RLIMIT_AS, &capped), 0);
  try {
    body();
  } catch (...) {
    setrlimit(RLIMIT_AS, &old);
    throw;
  }
  setrlimit(RLIMIT_AS, &old);
}

TEST(AnalysisOddIds, HugeIdsNameNothingAndCostNothing) {
  tgtest::TraceBuilder t;
  t.start("Outer").start("Inner", 0.01).stop("Inner", 0.01).stop("Outer", 0.01);
  for (const auto& p : t.points) {
    p->groupingId = INT_MAX - 1;
    if (p->phaseId == tgGetId(tg::kPhaseKind, "Inner")) p->phaseId = INT_MAX - 3;
  }
  withAddressSpaceCap([&] {
    RawPointVector copy = t.points;
    // The grouping's name is empty: an empty name in the list selects it.
    const auto byGrouping = analyzeRawPoints(copy, {""}, false);
    ASSERT_FALSE(byGrouping.hasErrors);
    ASSERT_EQ(byGrouping.processedPoints.size(), 2u);
    const auto none = analyzeRawPoints(t.points, {"G"}, false);
    EXPECT_TRUE(none.processedPoints.empty());

    const auto table = buildAggregateTable(byGrouping.processedPoints);
    ASSERT_EQ(table.size(), 2u);
    const auto inner = table.find(INT_MAX - 3);
    ASSERT_NE(inner, table.end());
    EXPECT_EQ(inner->second->hitCount, 1);
    EXPECT_EQ(buildCallTree(byGrouping.processedPoints).size(), 1u);
  });
}

}  // namespace
