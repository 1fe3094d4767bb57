// SPDX-License-Identifier: BSD-3-Clause
// Which root the report methods leave as the current one, through which
// phase names are stripped: a one-run report that reads a saved file takes
// that file's root, a comparison always the host's own, and the diagnostic
// report none at all.
#include <memory>
#include <string>

#include "collect/paths.h"
#include "collect_store_reset.h"
#include "host/host_bridge.h"
#include "host/standalone_bridge.h"
#include "scratch_files.h"
#include "scripting_call.h"

namespace {

using namespace scripting_test;

// The stand-alone host, with a root of the test's choosing.
class RootHost : public StandaloneBridge {
 public:
  int call(std::string_view name, tgArrayView<oxArrayPtr> outputs, tgArrayView<const oxArray* const> inputs) override {
    if (name != "orreryroot") return StandaloneBridge::call(name, outputs, inputs);
    if (!outputs.empty()) outputs[0] = oxCreateString(root);
    return 0;
  }
  std::string root;
};

class ScriptingReportRoots : public CollectStoreTest {
 protected:
  void SetUp() override {
    CollectStoreTest::SetUp();
    savedRoot_ = hostRootPath();
    tgSetHostBridge(host_);
  }
  void TearDown() override {
    tgSetHostBridge(nullptr);
    hostRootPathSet(savedRoot_);
    CollectStoreTest::TearDown();
  }

  // A trace of one phase saved by a host whose root is `root`.
  std::string savedTrace(const std::string& root) {
    const std::string g = unique("G");
    tgEnableTracer(g, true);
    for (const bool start : {true, false}) tgLogORRERYData(g, "phase", start);
    host_->root = root;
    const std::string file = scratch_.path("run.orf");
    call("saveToFile", inputs(text(file)));
    return file;
  }

  std::shared_ptr<RootHost> host_ = std::make_shared<RootHost>();
  tgtest::ScratchDir scratch_{"tg_report_roots"};

 private:
  std::string savedRoot_;
};

TEST_F(ScriptingReportRoots, OneRunFromAFileTakesItsRootComparisonsTheHostsDiagnosticsNone) {
  const std::string file = savedTrace("/saving/machine");
  EXPECT_EQ(hostRootPath(), "/saving/machine");
  host_->root = "/this/host";

  hostRootPathSet("/untouched");
  call("diagnosticReport", inputs(text("htmlfile"), text(scratch_.path("diag.html")), text("orffile"), text(file)));
  EXPECT_EQ(hostRootPath(), "/untouched");

  call("generateHTMLReport", inputs(text("htmlfile"), text(scratch_.path("one.html")), text("orffile"), text(file)));
  EXPECT_EQ(hostRootPath(), "/saving/machine");

  call("generateDifferenceReport", inputs(text("htmlfile"), text(scratch_.path("two.html")), text("lhsfile"),
                                          text(file), text("rhsfile"), text(file)));
  EXPECT_EQ(hostRootPath(), "/this/host");

  hostRootPathSet("/untouched");
  call("generateAggregateReport", inputs(text("htmlfile"), text(scratch_.path("live.html"))));
  EXPECT_EQ(hostRootPath(), "/this/host");
}

TEST_F(ScriptingReportRoots, RootIsStoredBeforeTheTestForRawPointsButNotBeforeTheOptionChecks) {
  host_->root = "/this/host";
  hostRootPathSet("/untouched");
  EXPECT_EQ(raised("generateHTMLReport", inputs(text("grouping"), text("G"))),
            "ExpectedNames('htmlfile' must be set)");
  EXPECT_EQ(hostRootPath(), "/untouched");
  EXPECT_EQ(raised("generateHTMLReport", inputs(text("htmlfile"), text(scratch_.path("empty.html")))),
            "NoRawTracerData()");
  EXPECT_EQ(hostRootPath(), "/this/host");
  // The diagnostic report writes what there is, even nothing.
  EXPECT_EQ(raised("diagnosticReport", inputs(text("htmlfile"), text(scratch_.path("diag.html")))), "none");
}

}  // namespace
