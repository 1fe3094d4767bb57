// SPDX-License-Identifier: BSD-3-Clause
// The host bridge: the stand-alone bridge's answers from this machine,
// installing another bridge, console output and the command distributor.
#include <gtest/gtest.h>

#include <unistd.h>

#include <array>
#include <filesystem>
#include <map>
#include <stdexcept>
#include <string>
#include <vector>

#include "host/host_bridge.h"
#include "tempogauge/collect.h"
#include "host/host_print.h"
#include "host/standalone_bridge.h"
#include "host/system_info.h"

namespace {

// Calls `function` on the stand-alone bridge with text inputs.
int askStandalone(std::string_view function, std::vector<std::string> texts, oxArrayPtr& answer) {
  StandaloneBridge bridge;
  std::vector<oxArrayPtr> inputs;
  std::vector<const oxArray*> raw;
  for (const auto& t : texts) inputs.push_back(oxCreateString(t));
  for (const auto& i : inputs) raw.push_back(i.get());
  std::array<oxArrayPtr, 1> out;
  const int status = bridge.call(function, out, raw);
  answer = std::move(out[0]);
  return status;
}

std::string askText(std::string_view function, std::vector<std::string> texts) {
  oxArrayPtr answer;
  EXPECT_EQ(askStandalone(function, std::move(texts), answer), 0) << function;
  EXPECT_TRUE(oxIsCharVector(answer.get())) << function;
  return oxArrayToStdString(answer.get());
}

// A host that records what it is asked and prints into a string.
class RecordingBridge : public HostBridge {
 public:
  int call(std::string_view name, tgArrayView<oxArrayPtr> outputs, tgArrayView<const oxArray* const> inputs) override {
    calls.emplace_back(name);
    for (const oxArray* in : inputs) calls.back() += " " + oxArrayToStdString(in);
    if (name == "fails") return 3;
    if (!outputs.empty()) outputs[0] = oxCreateString("answer");
    return 0;
  }
  void print(std::string_view text) override { printed += text; }
  std::vector<std::string> calls;
  std::string printed;
};

class InstalledBridge : public ::testing::Test {
 protected:
  void TearDown() override { tgSetHostBridge(nullptr); }
};

TEST(StandaloneBridge, AnswersFromThisMachineAndTheBuild) {
  EXPECT_EQ(askText("system_dependent", {"getcpu"}), tgProcessorName());
  EXPECT_FALSE(tgProcessorName().empty());
  EXPECT_EQ(askText("system_dependent", {"getos"}), tgOperatingSystemName());
  EXPECT_NE(askText("system_dependent", {"getwinsys"}).find("Linux"), std::string::npos);
  EXPECT_NE(askText("version", {}).find(tempogauge_version), std::string::npos);
  EXPECT_FALSE(askText("version", {"-java"}).empty());
  EXPECT_NE(askText("evalc", {"ver"}).find("tempogauge"), std::string::npos);
  oxArrayPtr cores;
  ASSERT_EQ(askStandalone("feature", {"numCores"}, cores), 0);
  ASSERT_TRUE(oxIsNumeric(cores.get()) && oxIsScalar(cores.get()));
  EXPECT_EQ(oxGetScalar(cores.get()), static_cast<double>(sysconf(_SC_NPROCESSORS_ONLN)));
}

TEST(StandaloneBridge, RootIsTheFolderOfTheLibrary) {
  const std::string root = askText("orreryroot", {});
  ASSERT_FALSE(root.empty());
  EXPECT_EQ(root, tgStandaloneRoot());
  // The tests run against the library in the build folder.
  EXPECT_TRUE(std::filesystem::exists(std::filesystem::path(root) / "libtempogauge.so") ||
              std::filesystem::exists(std::filesystem::path(root) / "lib"))
      << root;
}

TEST(StandaloneBridge, UnknownFunctionsAndArgumentsFail) {
  oxArrayPtr answer;
  for (const auto& [function, texts] : std::vector<std::pair<std::string, std::vector<std::string>>>{
           {"cwsvInternal", {"x"}}, {"version", {"-other"}}, {"system_dependent", {"getram"}}, {"system_dependent", {}},
           {"feature", {"numThreads"}}, {"evalc", {"ls"}}, {"orreryroot", {"x"}}})
    EXPECT_NE(askStandalone(function, texts, answer), 0) << function;
  // A numeric input where text is expected fails too.
  StandaloneBridge bridge;
  const auto number = oxCreateDoubleScalar(1);
  const std::array<const oxArray*, 1> inputs{number.get()};
  std::array<oxArrayPtr, 1> out;
  EXPECT_NE(bridge.call("feature", out, inputs), 0);
  // Asking for no output is allowed.
  EXPECT_EQ(bridge.call("version", {}, {}), 0);
}

TEST_F(InstalledBridge, CallsAndPrintsGoToTheInstalledBridge) {
  auto recording = std::make_shared<RecordingBridge>();
  tgSetHostBridge(recording);
  EXPECT_EQ(tgHostBridge(), recording);
  const auto arg = oxCreateString("numCores");
  const oxArray* inputs[] = {arg.get()};
  oxArrayPtr out[1];
  EXPECT_EQ(oexCallORRERY(1, out, 1, inputs, "feature"), 0);
  EXPECT_EQ(oxArrayToStdString(out[0].get()), "answer");
  EXPECT_NE(oexCallORRERY(1, out, 0, nullptr, "fails"), 0);
  EXPECT_NE(oexCallORRERY(1, nullptr, 0, nullptr, "feature"), 0);  // outputs wanted but no room
  EXPECT_EQ(recording->calls, (std::vector<std::string>{"feature numCores", "fails"}));
  tgHostPrintf("%d points in %s\n", 3, "run");
  EXPECT_EQ(recording->printed, "3 points in run\n");

  tgSetHostBridge(nullptr);
  EXPECT_NE(std::dynamic_pointer_cast<StandaloneBridge>(tgHostBridge()), nullptr);
  tgHostPrintf("to standard output\n");
  EXPECT_EQ(recording->printed, "3 points in run\n");
}

TEST_F(InstalledBridge, CommandsRunSynchronouslyAndReportFailure) {
  auto recording = std::make_shared<RecordingBridge>();
  tgSetHostBridge(recording);
  const auto a = oxCreateString("cwsvSetSkipDetailedStackDiagnostics");
  const auto b = oxCreateLogicalScalar(false);
  const std::array<const oxArray*, 2> args{a.get(), b.get()};
  tgRunHostCommand("cwsvInternal", args);
  ASSERT_EQ(recording->calls.size(), 1u);
  EXPECT_EQ(recording->calls[0].rfind("cwsvInternal cwsvSetSkipDetailedStackDiagnostics", 0), 0u);
  try {
    tgRunHostCommand("fails", {});
    FAIL() << "no exception";
  } catch (const std::runtime_error& e) {
    EXPECT_NE(std::string(e.what()).find("'fails'"), std::string::npos);
  }
  // The stand-alone bridge knows no commands.
  tgSetHostBridge(nullptr);
  EXPECT_THROW(tgRunHostCommand("cwsvInternal", args), std::runtime_error);
}

}  // namespace
