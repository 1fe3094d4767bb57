// Deviations of value pairs: rounding, thresholds, signs per metric, bands.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "analysis/deviation.h"

namespace {

TEST(BandClass, BoundsBelongToTheBandBelow) {
  EXPECT_EQ(bandClass(50.0001), " GT50");
  EXPECT_EQ(bandClass(50), " BETWN_45_50");
  EXPECT_EQ(bandClass(45), " BETWN_40_45");
  EXPECT_EQ(bandClass(0.0001), " BETWN_0_5");
  EXPECT_EQ(bandClass(0), " BETWN_M5_0");
  EXPECT_EQ(bandClass(-0.0), " BETWN_M5_0");
  EXPECT_EQ(bandClass(-5), " BETWN_M10_M5");
  EXPECT_EQ(bandClass(-49.99), " BETWN_M50_M45");
  EXPECT_EQ(bandClass(-50), " LTM50");
  EXPECT_EQ(bandClass(-1e300), " LTM50");
}

TEST(BandClass, LopsidedBetween25And35AndNaN) {
  EXPECT_EQ(bandClass(32), " BETWN_25_30");
  EXPECT_EQ(bandClass(35), " BETWN_25_30");
  EXPECT_EQ(bandClass(35.01), " BETWN_35_40");
  EXPECT_EQ(bandClass(25), " BETWN_20_25");
  EXPECT_EQ(bandClass(-30), " BETWN_M35_M30");  // the negative side has every step
  EXPECT_EQ(bandClass(-32), " BETWN_M35_M30");
  EXPECT_EQ(bandClass(std::numeric_limits<double>::quiet_NaN()), " LTM50");
  EXPECT_EQ(bandClass(std::numeric_limits<double>::infinity()), " GT50");
}

TEST(RoundToHundredths, HalvesAwayFromZero) {
  EXPECT_DOUBLE_EQ(roundToHundredths(0.004), 0.0);
  EXPECT_DOUBLE_EQ(roundToHundredths(0.005), 0.01);
  EXPECT_DOUBLE_EQ(roundToHundredths(-0.005), -0.01);
  EXPECT_DOUBLE_EQ(roundToHundredths(-0.004), 0.0);
  EXPECT_DOUBLE_EQ(roundToHundredths(-2.0), -2.0);
}

TEST(ComputeDeviation, IdenticalValuesAreInTheZeroBand) {
  for (const char* metric : {"time", "basicmemory", "detailedmemory"}) {
    const Deviation d = computeDeviation(7.25, 7.25, metric);
    EXPECT_EQ(d.absDev, 0.0) << metric;
    EXPECT_EQ(d.relDev, 0.0) << metric;
    EXPECT_EQ(d.bkgColor, " BETWN_M5_0") << metric;
  }
}

TEST(ComputeDeviation, OneSidedRows) {
  const Deviation onlyRhs = computeDeviation(0, 3.2, "time");
  EXPECT_DOUBLE_EQ(onlyRhs.absDev, 3.2);
  EXPECT_EQ(onlyRhs.relDev, 100);
  EXPECT_EQ(onlyRhs.bkgColor, " GT50");
  const Deviation onlyLhs = computeDeviation(3.2, 0, "time");
  EXPECT_DOUBLE_EQ(onlyLhs.absDev, -3.2);
  EXPECT_EQ(onlyLhs.relDev, -100);
  EXPECT_EQ(onlyLhs.bkgColor, " LTM50");
  const Deviation memoryOnlyLhs = computeDeviation(3.2, 0, "basicmemory");
  EXPECT_EQ(memoryOnlyLhs.relDev, -100);
}

TEST(ComputeDeviation, SmallValuesRoundFirst) {
  EXPECT_EQ(computeDeviation(0.004, 0.004, "time").relDev, 0);
  // The LHS rounds to 0 and the RHS to 0.01, which is above the small limit.
  EXPECT_EQ(computeDeviation(0.004, 0.006, "detailedmemory").relDev, 100);
  const Deviation zeroLhs = computeDeviation(0.003, 0.003, "time");
  EXPECT_EQ(zeroLhs.absDev, 0.0);
  EXPECT_EQ(zeroLhs.relDev, 0.0);
}

TEST(ComputeDeviation, SmallDifferenceRoundsToHundredths) {
  const Deviation d = computeDeviation(2.0, 2.006, "time");
  EXPECT_DOUBLE_EQ(d.absDev, 0.01);
  EXPECT_DOUBLE_EQ(d.relDev, 0.5);
  EXPECT_EQ(d.bkgColor, " BETWN_0_5");
  // Just above the single-precision 0.01 the difference stays as it is.
  const Deviation larger = computeDeviation(2.0, 2.0101, "time");
  EXPECT_NEAR(larger.absDev, 0.0101, 1e-12);
  // With a zero LHS a small difference isn't rounded.
  const Deviation fromZero = computeDeviation(0, 0.0092, "time");
  EXPECT_NEAR(fromZero.absDev, 0.01, 1e-15);  // 0.0092 itself rounds to 0.01 (below t)
  EXPECT_EQ(fromZero.relDev, 100);
}

TEST(ComputeDeviation, SignsPerMetric) {
  const Deviation memory = computeDeviation(-2, 2, "basicmemory");
  EXPECT_EQ(memory.absDev, 4);
  EXPECT_EQ(memory.relDev, 200);
  EXPECT_EQ(memory.bkgColor, " GT50");
  const Deviation time = computeDeviation(-2, 2, "time");
  EXPECT_EQ(time.absDev, 0);
  EXPECT_EQ(time.relDev, 0);
  EXPECT_EQ(time.bkgColor, " BETWN_M5_0");
  // Basic memory from zero: the sign of the RHS decides.
  EXPECT_EQ(computeDeviation(0, -1.5, "basicmemory").relDev, -100);
  EXPECT_EQ(computeDeviation(0, 1.5, "basicmemory").relDev, 100);
  EXPECT_EQ(computeDeviation(0, 0, "basicmemory").relDev, 0);
  // A shrinking memory delta: relative to |l|.
  EXPECT_DOUBLE_EQ(computeDeviation(-4, -3, "basicmemory").relDev, 25);
  EXPECT_EQ(computeDeviation(10, 13.2, "time").bkgColor, " BETWN_25_30");
}

}  // namespace
