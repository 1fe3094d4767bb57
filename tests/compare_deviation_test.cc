// SPDX-License-Identifier: BSD-3-Clause
// Deviations of value pairs: rounding, thresholds, signs per metric, bands.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <utility>

#include "analysis/deviation.h"

namespace {

TEST(BandClass, BoundsBelongToTheBandBelowAndTheTableIsLopsided) {
  constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
  constexpr double kInf = std::numeric_limits<double>::infinity();
  const std::pair<double, const char*> cases[] = {
      {50.0001, " GT50"}, {50, " BETWN_45_50"}, {45, " BETWN_40_45"}, {0.0001, " BETWN_0_5"},
      {0, " BETWN_M5_0"}, {-0.0, " BETWN_M5_0"}, {-5, " BETWN_M10_M5"}, {-49.99, " BETWN_M50_M45"},
      {-50, " LTM50"}, {-1e300, " LTM50"}, {kNaN, " LTM50"}, {kInf, " GT50"},
      // Between 25 and 35 the positive side has one band; the negative side every step.
      {32, " BETWN_25_30"}, {35, " BETWN_25_30"}, {35.01, " BETWN_35_40"}, {25, " BETWN_20_25"},
      {-30, " BETWN_M35_M30"}, {-32, " BETWN_M35_M30"}};
  for (const auto& [value, band] : cases) EXPECT_EQ(bandClass(value), band) << value;
}

TEST(RoundToHundredths, HalvesAwayFromZero) {
  for (const auto& [value, rounded] : {std::pair{0.004, 0.0}, {0.005, 0.01}, {-0.005, -0.01}, {-0.004, 0.0},
                                       {-2.0, -2.0}})
    EXPECT_DOUBLE_EQ(roundToHundredths(value), rounded) << value;
}

constexpr double kAny = std::numeric_limits<double>::quiet_NaN();

struct DeviationCase {
  double lhs, rhs;
  const char* metric;
  double absDev, relDev;  // kAny: not checked
  const char* band;       // nullptr: not checked
};

TEST(ComputeDeviation, RoundingThresholdsAndSignsPerMetric) {
  const DeviationCase cases[] = {
      {7.25, 7.25, "time", 0, 0, " BETWN_M5_0"},
      {7.25, 7.25, "basicmemory", 0, 0, " BETWN_M5_0"},
      {7.25, 7.25, "detailedmemory", 0, 0, " BETWN_M5_0"},
      // One-sided rows.
      {0, 3.2, "time", 3.2, 100, " GT50"},
      {3.2, 0, "time", -3.2, -100, " LTM50"},
      {3.2, 0, "basicmemory", -3.2, -100, " LTM50"},
      // Small values round first: 0.004 and 0.003 are 0; 0.006 is 0.01, above the small limit.
      {0.004, 0.004, "time", 0, 0, nullptr},
      {0.003, 0.003, "time", 0, 0, nullptr},
      {0.004, 0.006, "detailedmemory", kAny, 100, nullptr},
      // A small difference rounds to hundredths; just above single-precision 0.01 it stays.
      {2.0, 2.006, "time", 0.01, 0.5, " BETWN_0_5"},
      {2.0, 2.0101, "time", 0.0101, kAny, nullptr},
      // From a zero LHS a small difference isn't rounded; 0.0092 itself rounds to 0.01.
      {0, 0.0092, "time", 0.01, 100, nullptr},
      // Memory keeps signs; time compares magnitudes.
      {-2, 2, "basicmemory", 4, 200, " GT50"},
      {-2, 2, "time", 0, 0, " BETWN_M5_0"},
      // Basic memory from zero: the sign of the RHS decides.
      {0, -1.5, "basicmemory", kAny, -100, nullptr},
      {0, 1.5, "basicmemory", kAny, 100, nullptr},
      {0, 0, "basicmemory", kAny, 0, nullptr},
      // A shrinking memory delta: relative to |l|.
      {-4, -3, "basicmemory", kAny, 25, nullptr},
      {10, 13.2, "time", 3.2, 32, " BETWN_25_30"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(std::to_string(c.lhs) + " vs " + std::to_string(c.rhs) + " " + c.metric);
    const Deviation d = computeDeviation(c.lhs, c.rhs, c.metric);
    if (!std::isnan(c.absDev)) {
      EXPECT_NEAR(d.absDev, c.absDev, 1e-12);
    }
    if (!std::isnan(c.relDev)) {
      EXPECT_NEAR(d.relDev, c.relDev, 1e-9);
    }
    if (c.band) {
      EXPECT_EQ(d.bkgColor, c.band);
    }
  }
}

}  // namespace
