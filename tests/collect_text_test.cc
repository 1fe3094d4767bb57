// SPDX-License-Identifier: BSD-3-Clause
// Phase-name cleaning, path helpers and number text.
#include <gtest/gtest.h>

#include <atomic>
#include <string>
#include <thread>
#include <tuple>

#include "tempogauge/tempogauge.h"

namespace {

// Sets the host root for one test and clears it afterwards.
class PathTest : public ::testing::Test {
 protected:
  void TearDown() override { hostRootPathSet(""); }
};

TEST_F(PathTest, RootBackslashesAndLeadingSlashGo) {
  hostRootPathSet("X:\\root");
  EXPECT_EQ(hostRootPath(), "X:/root");
  EXPECT_EQ(cleanPhaseName("X:\\root\\lib\\a.txt", false), "lib/a.txt");
  EXPECT_EQ(cleanPhaseName("X:\\root\\lib\\a.txt", true), "lib/a.txt");
}

TEST_F(PathTest, RootMatchingInTheMiddleLeavesTheNameWhole) {
  hostRootPathSet("/opt/host");
  EXPECT_EQ(tgStripHostRoot("/data/opt/host/x.m"), "/data/opt/host/x.m");
  EXPECT_EQ(cleanPhaseName("/data/opt/host/x.m", false), "data/opt/host/x.m");
  EXPECT_EQ(tgStripHostRoot("/opt/host/x.m"), "/x.m");
}

TEST_F(PathTest, CleaningSlashesAndCustomizationMarkers) {
  struct Case {
    const char* name;
    bool strip;
    const char* cleaned;
  };
  const Case cases[] = {
      {"//a", false, "a"}, {"/a/b", false, "a/b"}, {"a/b", false, "a/b"}, {"/", false, ""}, {"", false, ""},
      {"//a", true, "/a"},  // with stripping, only the first leading slash goes
      {"m/cw_customization/x", true, "m/x"}, {"m/cw_internal_customization/x", true, "m/x"},
      {"m/cw_customization/x", false, "m/cw_customization/x"},
      // What follows the marker stays; a marker at the end leaves its prefix.
      {"a/cw_customization", true, "a"}, {"a/cw_customizationX", true, "aX"},
      // Only the first occurrence of each marker goes.
      {"a/cw_customization/cw_customization", true, "a/cw_customization"}};
  for (const auto& c : cases) EXPECT_EQ(cleanPhaseName(c.name, c.strip), c.cleaned) << c.name << " " << c.strip;
}

// Setting the root while other threads clean names gives each of them one
// whole root or the other, never a torn one.
TEST_F(PathTest, RootCanChangeWhileNamesAreCleaned) {
  std::atomic<bool> stop{false};
  std::thread setter([&] {
    for (int i = 0; !stop.load(); ++i) hostRootPathSet(i % 2 ? "/first/root" : "/second/root/longer");
  });
  bool whole = true;
  for (int i = 0; i < 20000 && whole; ++i) {
    const std::string a = cleanPhaseName("/first/root/a.m", false);
    const std::string b = cleanPhaseName("/second/root/longer/b.m", false);
    whole = (a == "a.m" || a == "first/root/a.m") && (b == "b.m" || b == "second/root/longer/b.m");
  }
  stop = true;
  setter.join();
  EXPECT_TRUE(whole);
}

TEST(NumberText, DoubleToUStringCutsWithoutRoundingAndFormatDouble) {
  for (const auto& [value, digits, text] :
       {std::tuple{12.345, 1, "12.3"}, {12.5, 3, "12.5"}, {12.5, 0, "1"}, {12.99, 1, "12.9"}, {7.0, 2, "7.00"},
        {7.0, 0, "7"}, {-0.25, 1, "-0.2"}})
    EXPECT_EQ(tgDoubleToUString(value, digits), text) << value << " " << digits;
  for (const auto& [value, digits, text] : {std::tuple{1.23456, 2, "1.2"}, {1234567.0, 3, "1.23e+06"},
                                            {0.5, 0, "0.5"}, {1.0 / 3.0, 40, "0.333333333333333"}})
    EXPECT_EQ(tgFormatDouble(value, digits), text) << value << " " << digits;
  EXPECT_EQ(tgIntToUString(-2147483647 - 1), "-2147483648");
  EXPECT_EQ(tgIntToUString(0), "0");
}

}  // namespace
