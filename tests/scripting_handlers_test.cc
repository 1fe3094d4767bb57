// The handlers of GaugeKit.Tracer, called through the registry: the order of
// their checks and the IDs and arguments raised, their defaults, and their
// effect on the store.
#include <algorithm>
#include <filesystem>

#include "collect_store_reset.h"
#include "scripting_call.h"

namespace {

using namespace scripting_test;
using ScriptingHandlers = CollectStoreTest;

oxArrayPtr emptyText() { return std::make_unique<oxArray>(oxCHAR_CLASS, 0, 0); }

TEST_F(ScriptingHandlers, LoggingChecksEachInputInOrderBeforeStoring) {
  const std::string g = unique("G");
  tgEnableTracer(g, true);
  EXPECT_EQ(raised("logORRERYData", inputs(number(1), number(2), number(3))), "ParameterMismatchString(Grouping)");
  EXPECT_EQ(raised("logORRERYData", inputs(text(g), emptyText(), flag(true))), "ParameterMismatchString(Phase)");
  EXPECT_EQ(raised("logORRERYData", inputs(text(g), text("p"), number(1))), "ParameterMismatchBoolean(Start of Phase)");
  EXPECT_EQ(raised("logCogwheelData", inputs(text(g), text("m"), number(0), text("p"), number(1))),
            "ParameterMismatchString(Target Name)");
  EXPECT_EQ(raised("logLoomchartData",
                   inputs(text(g), text("m"), text("t"), text("mc"), cells({"c"}), text("p"), flag(true))),
            "ParameterMismatchString(Chart Name)");
  EXPECT_EQ(raised("logLoomchartData",
                   inputs(text(g), text("m"), text("t"), number(0), text("c"), text("p"), flag(true))),
            "ParameterMismatchString(Machine Name)");
  EXPECT_EQ(raised("logCWStartupData", inputs(text("p"), text("true"))), "ParameterMismatchBoolean(Start of Phase)");
  EXPECT_EQ(rawCount(), 0u);

  EXPECT_TRUE(call("logORRERYData", inputs(text(g), text("p"), flag(true))).empty());
  call("logCogwheelData", inputs(text(g), text("m"), text("t"), text("p"), flag(false)));
  call("logLoomchartData", inputs(text(g), text("m"), text("t"), text("mc"), text("c"), text("p"), flag(true)));
  ASSERT_EQ(rawCount(), 3u);
  EXPECT_EQ(rawAt(0)->pointType, 0);
  EXPECT_TRUE(rawAt(0)->isStart());
  EXPECT_EQ(rawAt(1)->pointType, 1);
  EXPECT_FALSE(rawAt(1)->isStart());
  EXPECT_EQ(rawAt(2)->pointType, 2);
}

TEST_F(ScriptingHandlers, SwitchesReturnTheirInput) {
  const std::string g = unique("G");
  EXPECT_EQ(raised("enable", inputs(number(1), number(2), number(3))), "MaxParamsExceeded(2)");
  EXPECT_EQ(raised("enable", {}), "MinParamsNotReached(1)");
  EXPECT_EQ(raised("enable", inputs(number(1))), "ParameterMismatchString(Grouping)");
  EXPECT_EQ(raised("enable", inputs(text(g), number(1))), "ParameterMismatchBoolean(Enable)");
  EXPECT_EQ(raised("enableGlobalLogging", inputs(number(1))), "ParameterMismatchBoolean(Enable)");
  EXPECT_EQ(raised("enableDetailedMemStats", inputs(text("on"))), "ParameterMismatchBoolean(Enable)");
  EXPECT_EQ(raised("enableCWStartupLogging", inputs(cells({}))), "ParameterMismatchBoolean(Enable)");

  // One input only asks, and changes nothing.
  EXPECT_FALSE(oxIsLogicalScalarTrue(call("enable", inputs(text(g)))[0].get()));
  EXPECT_FALSE(tgIsTracerEnabled(g));
  EXPECT_TRUE(oxIsLogicalScalarTrue(call("enable", inputs(text(g), flag(true)))[0].get()));
  EXPECT_TRUE(tgIsTracerEnabled(g));
  EXPECT_TRUE(oxIsLogicalScalarTrue(call("enable", inputs(text(g)))[0].get()));

  EXPECT_TRUE(oxIsLogicalScalarTrue(call("enableCWStartupLogging", inputs(flag(true)))[0].get()));
  EXPECT_TRUE(tgIsTracerEnabled(std::string(tg::kStartupGrouping)));
  EXPECT_FALSE(oxIsLogicalScalarTrue(call("enableCWStartupLogging", inputs(flag(false)))[0].get()));
  EXPECT_FALSE(tgIsTracerEnabled(std::string(tg::kStartupGrouping)));
  EXPECT_TRUE(oxIsLogicalScalarTrue(call("enableGlobalLogging", inputs(flag(true)))[0].get()));
  EXPECT_TRUE(tgLogORRERYData(unique("Other"), "p", true));
  EXPECT_TRUE(oxIsLogicalScalarTrue(call("enableDetailedMemStats", inputs(flag(true)))[0].get()));
  EXPECT_TRUE(store().detailedMemStatsEnabled);
}

TEST_F(ScriptingHandlers, GroupingsAndStatisticsTypes) {
  const std::string parent = unique("Parent");
  const std::string child = unique("Child");
  EXPECT_EQ(raised("addGrouping", inputs(number(1), cells({}))), "InvalidNames()");
  EXPECT_EQ(raised("addGrouping", inputs(text(parent), text(child))), "UnexpectedValue(" + parent + ")");
  oxArrayPtr mixed = oxCreateCellMatrix(1, 2);
  oxSetCell(mixed.get(), 0, oxCreateString(child));
  oxSetCell(mixed.get(), 1, oxCreateDoubleScalar(2));
  EXPECT_EQ(raised("addGrouping", inputs(text(parent), std::move(mixed))), "AddGroupingExpectedString()");

  call("addGrouping", inputs(text(parent), cells({child})));
  std::vector<std::string> members = tgGetGroupingList(parent);
  std::sort(members.begin(), members.end());
  EXPECT_EQ(members, (std::vector<std::string>{child, parent}));
  EXPECT_EQ(raised("addGrouping", inputs(text(parent), cells({child}))), "AddGroupingError(Group: " + parent + ")");

  EXPECT_EQ(raised("removeGrouping", inputs(number(1))), "ParameterMismatchString(grouping)");
  EXPECT_EQ(raised("removeGrouping", inputs(text(unique("Never")))), "RemoveGroupingError(" + unique("Never") + ")");
  EXPECT_EQ(raised("removeGrouping", inputs(text(parent))), "none");

  EXPECT_EQ(raised("setStatisticsTypeForModel", inputs(text("m"), text(""))), "InvalidNames()");
  EXPECT_EQ(raised("setStatisticsTypeForModel", inputs(number(3), text("type"))), "InvalidNames()");
  EXPECT_EQ(raised("setStatisticsTypeForModel", inputs(text("m"), text("type"))), "none");
}

TEST_F(ScriptingHandlers, ClearRawDataTestsParityFirstAndClearsByOption) {
  EXPECT_EQ(raised("clearRawData", inputs(text("a"), text("b"), text("c"), text("d"), text("e"), text("f"),
                                          text("g"))),
            "ExpectedEvenNumberOfParameters()");
  EXPECT_EQ(raised("clearRawData", inputs(text("grouping"), text("a"), text("model"), text("b"), text("target"),
                                          text("c"), text("grouping"), text("d"))),
            "MaxParamsExceeded(6)");
  EXPECT_EQ(raised("clearRawData", inputs(text("target"), text("t"))), "InvalidNames()");
  EXPECT_EQ(raised("clearRawData", inputs(text("phase"), text("t"))), "InvalidNames()");

  const std::string a = unique("A");
  const std::string b = unique("B");
  tgEnableTracer(a, true);
  tgEnableTracer(b, true);
  tgLogORRERYData(a, "p", true);
  tgLogORRERYData(b, "p", true);
  tgLogCogwheelData(b, "model", "t1", "p", true);
  tgLogCogwheelData(b, "model", "t2", "p", true);
  call("clearRawData", inputs(text("GROUPING"), text(a)));
  EXPECT_EQ(rawCount(), 3u);
  // Target and model given: the whole model goes, not only the target.
  call("clearRawData", inputs(text("grouping"), text(b), text("model"), text("model"), text("target"), text("t1")));
  EXPECT_EQ(rawCount(), 1u);
  call("clearRawData", {});
  EXPECT_EQ(rawCount(), 0u);
}

TEST_F(ScriptingHandlers, RawAndProcessedDataAsArrays) {
  const std::string g = unique("G");
  tgEnableTracer(g, true);
  for (const bool start : {true, false}) call("logORRERYData", inputs(text(g), text("phase"), flag(start)));
  const auto raw = call("getRawData", {});
  ASSERT_EQ(raw.size(), 1u);
  ASSERT_EQ(oxGetNumberOfElements(raw[0].get()), 2u);
  EXPECT_EQ(oxGetNumberOfElements(oxGetCell(raw[0].get(), 0)), 16u);

  EXPECT_EQ(raised("getProcessedData", inputs(text("grouping"))), "ExpectedEvenNumberOfParameters()");
  EXPECT_EQ(raised("getProcessedData", inputs(number(1), text(g))), "ExpectedNames('grouping' or 'model')");
  EXPECT_EQ(raised("getProcessedData", inputs(text("grouping"), number(1))), "ParameterMismatchString(grouping)");
  EXPECT_EQ(raised("getProcessedData", inputs(text("Model"), flag(true))), "ParameterMismatchString(model)");
  EXPECT_EQ(raised("getProcessedData", inputs(text("phase"), text(g))), "InvalidNames()");

  const auto global = call("getProcessedData", {});
  ASSERT_EQ(global.size(), 1u);
  EXPECT_EQ(oxGetNumberOfElements(global[0].get()), 1u);
  EXPECT_EQ(oxGetClassID(oxGetCell(global[0].get(), 0)), oxSTRUCT_CLASS);
  EXPECT_EQ(oxGetNumberOfElements(call("getProcessedData", inputs(text("GROUPING"), cells({g})))[0].get()), 1u);
  // Only the last pair counts: a model that was never logged gives nothing.
  const auto last = call("getProcessedData", inputs(text("grouping"), text(g), text("model"), text("none")));
  EXPECT_EQ(oxGetNumberOfElements(last[0].get()), 0u);
}

TEST_F(ScriptingHandlers, SaveAndLoadTraceFiles) {
  namespace fs = std::filesystem;
  const fs::path dir = fs::temp_directory_path() / ("tg_scripting_" + std::to_string(::getpid()));
  fs::create_directories(dir);
  const std::string g = unique("G");
  tgEnableTracer(g, true);
  for (const bool start : {true, false}) tgLogORRERYData(g, "saved phase", start);

  EXPECT_EQ(raised("saveToFile", inputs(number(1))), "ParameterMismatchString(Filename)");
  EXPECT_EQ(raised("saveToFile", inputs(emptyText())), "ParameterMismatchString(Filename)");
  EXPECT_EQ(raised("saveCWStartupData", inputs(text("a"), text("b"))), "MaxParamsExceeded(1)");
  EXPECT_EQ(raised("loadTracerData", inputs(number(1))), "ParameterMismatchString(Filename)");
  EXPECT_EQ(raised("loadTracerData", inputs(text((dir / "trace.mat").string()))), "MissingOrfExt()");
  EXPECT_EQ(raised("saveToFile", inputs(text((dir / "missing" / "x.orf").string()))),
            "OpenFileFailed(" + (dir / "missing" / "x.orf").string() + ")");

  // ".orf" anywhere in the name passes the test of the extension.
  const std::string file = (dir / "trace.orf.bak").string();
  call("saveToFile", inputs(text(file)));
  tgClearRawData();
  call("loadTracerData", inputs(text(file)));
  ASSERT_EQ(rawCount(), 2u);
  EXPECT_EQ(store().lookupName(tg::kPhaseKind, rawAt(0)->phaseId), "saved phase");
  EXPECT_TRUE(rawAt(0)->isStart());
  EXPECT_FALSE(rawAt(1)->isStart());
  EXPECT_EQ(raised("loadTracerData", inputs(text((dir / "absent.orf").string()))),
            "OpenFileFailed(" + (dir / "absent.orf").string() + ")");
  fs::remove_all(dir);
}

}  // namespace
