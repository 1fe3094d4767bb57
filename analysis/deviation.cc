// SPDX-License-Identifier: BSD-3-Clause
#include "analysis/deviation.h"

#include <cmath>

#include "collect/constants.h"

namespace {

constexpr double kHundred = 100.0;
constexpr double kThreshold = 0.01;
// 0.01 in single precision, kept at that value.
constexpr double kSmall = static_cast<double>(0.01f);

}  // namespace

double roundToHundredths(double value) {
  const double scaled = kHundred * value;
  return scaled >= 0 ? std::floor(scaled + 0.5) / kHundred : std::ceil(scaled - 0.5) / kHundred;
}

Deviation computeDeviation(double l, double r, std::string_view metric) {
  if (l < kThreshold) l = roundToHundredths(l);
  if (r < kThreshold) r = roundToHundredths(r);
  const bool basic = metric == tg::kMetricBasicMemory;
  double a = 0.0;
  double a2 = 0.0;
  if (basic) {
    a = r - l;
  } else {
    a = std::fabs(r) - std::fabs(l);
    a2 = std::fabs(a) <= kSmall ? roundToHundredths(a) : 0.0;
  }
  double rel = 0.0;
  if (l != 0) {
    if (basic) {
      rel = a / std::fabs(l) * kHundred;
    } else {
      if (std::fabs(a) <= kSmall) a = a2;
      rel = a / l * kHundred;
    }
  } else if (basic) {
    rel = r > 0 ? kHundred : (r < 0 ? -kHundred : 0.0);
  } else {
    rel = std::fabs(r) > kSmall ? kHundred : 0.0;
  }
  return {a, rel, bandClass(rel)};
}

std::string_view bandClass(double x) {
  if (x > 50) return " GT50";
  if (x > 45) return " BETWN_45_50";
  if (x > 40) return " BETWN_40_45";
  if (x > 35) return " BETWN_35_40";
  if (x > 25) return " BETWN_25_30";
  if (x > 20) return " BETWN_20_25";
  if (x > 15) return " BETWN_15_20";
  if (x > 10) return " BETWN_10_15";
  if (x > 5) return " BETWN_5_10";
  if (x > 0) return " BETWN_0_5";
  if (x > -5) return " BETWN_M5_0";
  if (x > -10) return " BETWN_M10_M5";
  if (x > -15) return " BETWN_M15_M10";
  if (x > -20) return " BETWN_M20_M15";
  if (x > -25) return " BETWN_M25_M20";
  if (x > -30) return " BETWN_M30_M25";
  if (x > -35) return " BETWN_M35_M30";
  if (x > -40) return " BETWN_M40_M35";
  if (x > -45) return " BETWN_M45_M40";
  if (x > -50) return " BETWN_M50_M45";
  return " LTM50";
}
