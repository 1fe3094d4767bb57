// SPDX-License-Identifier: BSD-3-Clause
// Which root the report methods leave as the current one, through which
// phase names are stripped: a one-run report that reads a saved file takes
// that file's root, a comparison always the host's own, and the diagnostic
// report none at all.
#include <string>

#include "collect/paths.h"
#include "root_host.h"
#include "scratch_files.h"
#include "scripting_call.h"

namespace {

using namespace scripting_test;

class ScriptingReportRoots : public RootHostTest {
 protected:
  // A trace of one phase saved by a host whose root is `root`.
  std::string savedTrace(const std::string& root) {
    const std::string g = unique("G");
    tgEnableTracer(g, true);
    for (const bool start : {true, false}) tgLogORRERYData(g, "phase", start);
    host->root = root;
    const std::string file = scratch_.path("run.orf");
    call("saveToFile", inputs(text(file)));
    return file;
  }

  tgtest::ScratchDir scratch_{"tg_report_roots"};
};

TEST_F(ScriptingReportRoots, OneRunFromAFileTakesItsRootComparisonsTheHostsDiagnosticsNone) {
  const std::string file = savedTrace("/saving/machine");
  EXPECT_EQ(hostRootPath(), "/saving/machine");
  host->root = "/this/host";

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
  host->root = "/this/host";
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
