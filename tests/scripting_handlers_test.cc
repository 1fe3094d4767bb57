// The handlers of GaugeKit.Tracer, called through the registry: what the
// Octave tests cannot see from outside, namely nothing stored by a call that
// fails its checks, the options of clearRawData, and trace files named with
// ".orf" anywhere in the name. The argument checks and their IDs, method by
// method, are covered by tests/octave/*.m against a real Octave.
#include "collect_store_reset.h"
#include "scratch_files.h"
#include "scripting_call.h"

namespace {

using namespace scripting_test;
using ScriptingHandlers = CollectStoreTest;

TEST_F(ScriptingHandlers, CallsThatFailTheirChecksStoreNothing) {
  const std::string g = unique("G");
  tgEnableTracer(g, true);
  EXPECT_EQ(raised("logORRERYData", inputs(text(g), text("p"), number(1))), "ParameterMismatchBoolean(Start of Phase)");
  EXPECT_EQ(raised("logLoomchartData",
                   inputs(text(g), text("m"), text("t"), text("mc"), cells({"c"}), text("p"), flag(true))),
            "ParameterMismatchString(Chart Name)");
  EXPECT_EQ(rawCount(), 0u);
  call("logCogwheelData", inputs(text(g), text("m"), text("t"), text("p"), flag(false)));
  ASSERT_EQ(rawCount(), 1u);
  EXPECT_EQ(rawAt(0)->pointType, 1);
  EXPECT_FALSE(rawAt(0)->isStart());
}

TEST_F(ScriptingHandlers, ClearRawDataClearsByOption) {
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

TEST_F(ScriptingHandlers, SaveAndLoadTraceFiles) {
  const tgtest::ScratchDir scratch("tg_scripting");
  const std::string g = unique("G");
  tgEnableTracer(g, true);
  for (const bool start : {true, false}) tgLogORRERYData(g, "saved phase", start);
  EXPECT_EQ(raised("saveToFile", inputs(std::make_unique<oxArray>(oxCHAR_CLASS, 0, 0))),
            "ParameterMismatchString(Filename)");
  // ".orf" anywhere in the name passes the test of the extension.
  const std::string file = scratch.path("trace.orf.bak");
  call("saveToFile", inputs(text(file)));
  tgClearRawData();
  call("loadTracerData", inputs(text(file)));
  ASSERT_EQ(rawCount(), 2u);
  EXPECT_EQ(store().lookupName(tg::kPhaseKind, rawAt(0)->phaseId), "saved phase");
  EXPECT_TRUE(rawAt(0)->isStart());
  EXPECT_FALSE(rawAt(1)->isStart());
}

}  // namespace
