// SPDX-License-Identifier: BSD-3-Clause
// System information: the record as a struct and back, its collection from
// the host's answers (through a scripted host, since a real host's failures
// cannot be provoked), the CPU speed text and the host's root.
#include <gtest/gtest.h>

#include <map>
#include <string>
#include <tuple>

#include "collect/constants.h"
#include "collect/number_text.h"
#include "host/host_bridge.h"
#include "host/system_info.h"
#include "scripting/errors.h"
#include "store/system_info_array.h"
#include "store/system_info_collection.h"
#include "host_array_text.h"
#include "raised_text.h"

namespace TG = tempogauge::TempoGauge;

namespace {

// A host whose answers are set per query ("function arg"). A query without
// an answer fails with status 1.
class ScriptedHost : public HostBridge {
 public:
  int call(std::string_view name, tgArrayView<oxArrayPtr> outputs, tgArrayView<const oxArray* const> inputs) override {
    std::string key(name);
    for (const oxArray* in : inputs) key += " " + oxArrayToStdString(in);
    const auto it = answers.find(key);
    if (it == answers.end()) return 1;
    if (!outputs.empty()) outputs[0] = oxDuplicateArray(it->second.get());
    return 0;
  }
  void print(std::string_view) override {}

  void answer(const std::string& key, oxArrayPtr value) { answers[key] = std::move(value); }
  void answerAll() {
    answer("system_dependent getcpu", oxCreateString("Test CPU"));
    answer("system_dependent getos", oxCreateString("TestOS"));
    answer("system_dependent getwinsys", oxCreateString("Build 7"));
    answer("feature numCores", oxCreateDoubleScalar(8));
    answer("version", oxCreateString("9.1.0"));
    answer("version -java", oxCreateString("Java 1.8"));
    answer("evalc ver", oxCreateString("Product list\n"));
    answer("orreryroot", oxCreateString("/opt/testhost"));
  }
  std::map<std::string, oxArrayPtr> answers;
};

class SystemInfoHost : public ::testing::Test {
 protected:
  void SetUp() override { tgSetHostBridge(host); }
  void TearDown() override { tgSetHostBridge(nullptr); }
  std::shared_ptr<ScriptedHost> host = std::make_shared<ScriptedHost>();
};

TempoGaugingSystemInfo sample() {
  return {"cpu", "2.6 GHz", "4", "16384", "os", "ver", "java", "products"};
}

// The eight fields in order, joined by '|'.
std::string text(const TempoGaugingSystemInfo& r) {
  return r.processorStr + "|" + r.cpuSpeedStr + "|" + r.numCoresStr + "|" + r.totalPhysMemStr + "|" +
         r.operatingSystemStr + "|" + r.ORRERYVersionStr + "|" + r.javaVMVersionStr + "|" + r.installedProductsStr;
}

TEST(SystemInfoArray, StructHasTheEightFieldsInOrder) {
  const auto array = systemInfoToArray(sample());
  ASSERT_TRUE(oxIsStruct(array.get()));
  EXPECT_EQ(array->numel(), 1u);
  EXPECT_EQ(tgtest::arrayText(array.get()),
            "processorStr='cpu' cpuSpeedStr='2.6 GHz' numCoresStr='4' totalPhysMemStr='16384' operatingSystemStr='os' "
            "ORRERYVersionStr='ver'\njavaVMVersionStr='java' installedProductsStr='products'");
  TempoGaugingSystemInfo back;
  systemInfoFromArray(array.get(), back);
  EXPECT_EQ(text(back), text(sample()));
}

TEST(SystemInfoArray, ReadingIsByPositionAndTolerant) {
  // Other names, a number in field 1, only three fields: by position, empty where not text.
  auto odd = oxCreateStructArray(1, 1, {"a", "b", "c"});
  oxSetFieldByNumber(odd.get(), 0, 0, oxCreateString("first"));
  oxSetFieldByNumber(odd.get(), 0, 1, oxCreateDoubleScalar(2));
  oxSetFieldByNumber(odd.get(), 0, 2, oxCreateString("third"));
  TempoGaugingSystemInfo r = sample();
  systemInfoFromArray(odd.get(), r);
  EXPECT_EQ(text(r), "first||third|||||");
  // An object is read like a struct.
  auto object = oxCreateObject("Info");
  object->addField("p");
  oxSetFieldByNumber(object.get(), 0, 0, oxCreateString("from object"));
  systemInfoFromArray(object.get(), r);
  EXPECT_EQ(text(r), "from object|||||||");
  // Null, text and cells leave the record as it is.
  r = sample();
  systemInfoFromArray(nullptr, r);
  systemInfoFromArray(oxCreateString("text").get(), r);
  systemInfoFromArray(oxCreateCellMatrix(1, 8).get(), r);
  EXPECT_EQ(text(r), text(sample()));
  // An empty struct has no element 0: every field empty.
  systemInfoFromArray(oxCreateStructArray(0, 0, {"processorStr"}).get(), r);
  EXPECT_EQ(text(r), "|||||||");
}

TEST(SystemInfoText, CpuSpeedUnits) {
  for (const auto& [khz, text] : {std::pair{2600000, "2.6 GHz"}, {3456789, "3.4568 GHz"}, {1000000, "1000 MHz"},
                                  {800000, "800 MHz"}, {0, "0 MHz"}})
    EXPECT_EQ(tgCpuSpeedText(khz), text);
}

// Every field from the host; a failed query gives an empty field.
TEST_F(SystemInfoHost, CollectsEveryFieldAndFailedQueriesGiveEmptyOnes) {
  host->answerAll();
  TempoGaugingSystemInfo r;
  querySystemInfo(r);
  const std::string speed = tgCpuSpeedText(huCPUspeedOS()) + "|8|" +
                            tgFormatDouble(tgTotalPhysicalMemoryBytes() * tg::kBytesToMegabytes, 5);
  EXPECT_EQ(text(r), "Test CPU|" + speed + "|TestOS Build 7|9.1.0|Java 1.8|Product list\n");
  for (const char* query : {"version", "version -java", "system_dependent getwinsys"}) host->answers.erase(query);
  querySystemInfo(r);
  EXPECT_EQ(text(r), "Test CPU|" + speed + "|TestOS |||Product list\n");
}

TEST_F(SystemInfoHost, AnswersOfTheWrongFormRaiseUnexpectedValue) {
  const std::tuple<const char*, oxArrayPtr (*)(), const char*> cases[] = {
      {"version", [] { return oxCreateDoubleScalar(9); }, "CPU information"},
      {"system_dependent getcpu", [] { return oxCreateCellMatrix(1, 1); }, "CPU information"},
      {"evalc ver", [] { return oxCreateLogicalScalar(true); }, "installed products: [evalc('ver')]"},
      {"feature numCores", [] { return oxCreateNumericArray(1, 2, oxDOUBLE_CLASS); }, "Number of Cores"},
      {"feature numCores", [] { return oxCreateString("8"); }, "Number of Cores"}};
  TempoGaugingSystemInfo r;
  for (const auto& [query, answer, raised] : cases) {
    host->answerAll();
    host->answer(query, answer());
    r = {};
    EXPECT_EQ(tgtest::raisedText([&] { querySystemInfo(r); }), "UnexpectedValue(" + std::string(raised) + ")");
  }
  EXPECT_EQ(text(r).substr(0, 9), "Test CPU|");  // fields before the last failure stay
  host->answerAll();
  host->answer("feature numCores", oxCreateInt32Scalar(6));  // any numeric scalar
  querySystemInfo(r);
  EXPECT_EQ(r.numCoresStr, "6");
}

TEST_F(SystemInfoHost, RootIsAskedEveryTimeAndTheLastAnswerKept) {
  host->answer("orreryroot", oxCreateString("/opt/first"));
  EXPECT_EQ(getHostRoot(), "/opt/first");
  host->answer("orreryroot", oxCreateString("/opt/second"));
  EXPECT_EQ(getHostRoot(), "/opt/second");
  host->answers.erase("orreryroot");
  EXPECT_EQ(getHostRoot(), "/opt/second");
  host->answer("orreryroot", oxCreateDoubleScalar(1));
  EXPECT_EQ(tgtest::raisedText([] { getHostRoot(); }), "UnexpectedValue(ORRERY Root)");
}

TEST(SystemInfoCollection, OneCollectionServesBothEntries) {
  TempoGaugingSystemInfo first;
  collectSystemInfo(first);
  const TempoGaugingSystemInfo* cached = getCachedSystemInfo();
  ASSERT_NE(cached, nullptr);
  EXPECT_EQ(cached, getCachedSystemInfo());
  EXPECT_EQ(text(*cached), text(first));
  EXPECT_FALSE(first.processorStr.empty());
  EXPECT_NE(first.operatingSystemStr.find("Linux"), std::string::npos);
  EXPECT_GT(std::stod(first.totalPhysMemStr), 64.0);
  EXPECT_GE(std::stoi(first.numCoresStr), 1);
  // A struct of the live record is the cached one's.
  TempoGaugingSystemInfo fromArray;
  systemInfoFromArray(systemInfoToArray().get(), fromArray);
  EXPECT_EQ(text(fromArray), text(*cached));
}

}  // namespace

namespace {

// Runs in a fresh process (the threadsafe death-test style re-runs the test
// binary), so that this process's one collection is still to be made.
TEST(SystemInfoCollectionDeathTest, FailedCollectionIsMadeAgainAtTheNextCall) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  EXPECT_EXIT(
      {
        auto host = std::make_shared<ScriptedHost>();
        host->answerAll();
        host->answer("version", oxCreateDoubleScalar(1));
        tgSetHostBridge(host);
        TempoGaugingSystemInfo r;
        bool raised = false;
        try {
          collectSystemInfo(r);
        } catch (const hfnd::except::Exception<TG::UnexpectedValue>&) {
          raised = true;
        }
        host->answer("version", oxCreateString("9.2"));
        collectSystemInfo(r);
        host->answer("version", oxCreateString("changed later"));
        TempoGaugingSystemInfo again;
        collectSystemInfo(again);
        const bool ok = raised && r.ORRERYVersionStr == "9.2" && again.ORRERYVersionStr == "9.2" &&
                        getCachedSystemInfo()->ORRERYVersionStr == "9.2";
        tgSetHostBridge(nullptr);
        std::exit(ok ? 0 : 1);
      },
      ::testing::ExitedWithCode(0), "");
}

}  // namespace
