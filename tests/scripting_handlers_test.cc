// SPDX-License-Identifier: BSD-3-Clause
// The handlers of GaugeKit.Tracer, called through the registry: what the
// Octave tests cannot see from outside, namely nothing stored by a call that
// fails its checks. The argument checks and their IDs, method by method, are
// covered by tests/octave/*.m against a real Octave.
#include "collect_store_reset.h"
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

}  // namespace
