// SPDX-License-Identifier: BSD-3-Clause
// Name arrays of a report and the escaping of user text in them.
#include <gtest/gtest.h>

#include "collect/text_escape.h"
#include "analysis/report_data.h"
#include "collect/tempo_gauge.h"
#include "golden_text.h"

namespace {

// Ordinary names are written as they are, by id; a phase name is cleaned and
// line feeds become blanks. A null tracer, or one without tables, writes the
// arrays empty.
TEST(ReportDataNames, ArraysByIdWithOrdinaryNamesUnchanged) {
  tgtest::GoldenFile golden("report_data_names");
  TempoGauge tracer;
  tracer.initialize();
  tracer.lookupId(tg::kPhaseKind, "Load model_1.2/step-3", true);
  tracer.lookupId(tg::kPhaseKind, "/Solve", true);
  tracer.lookupId(tg::kGroupingKind, "MyGrouping", true);
  tracer.lookupId(tg::kModelKind, "two\nlines", true);
  tracer.lookupId(tg::kChartKind, "Chart A", true);
  tracer.lookupId(tg::kChartKind, "Chart B", true);
  tracer.lookupId(tg::kStatisticsTypeKind, "never written", true);
  golden.expect("names", writeNameArrays(&tracer));
  golden.expect("no tracer", writeNameArrays(nullptr));
  const TempoGauge bare;  // tables never created
  EXPECT_EQ(writeNameArrays(&bare), writeNameArrays(nullptr));
}

TEST(ReportDataNames, HostileNamesCannotBreakTheScript) {
  TempoGauge tracer;
  tracer.initialize();
  tracer.lookupId(tg::kGroupingKind, "a\"b'c\\d</script><script>alert(1)</script>\re", true);
  const std::string text = writeNameArrays(&tracer);
  EXPECT_NE(text.find("var Grouping = [\"a\\\"b\\'c\\\\d<\\/script><script>alert(1)<\\/script>\\re\"];\n"),
            std::string::npos)
      << text;
}

TEST(Escape, ScriptStringAndHtml) {
  EXPECT_EQ(escapeScriptString("Plain name_1.2/x-y z"), "Plain name_1.2/x-y z");
  EXPECT_EQ(escapeScriptString("x\ny</b"), "x\\ny<\\/b");
  EXPECT_EQ(escapeScriptString("<a>"), "<a>");
  // "<!--" would let a later "<script" keep the script element open past its end.
  EXPECT_EQ(escapeScriptString("<!--<script>"), "<\\!--<script>");
  EXPECT_EQ(escapeScriptString("a\xE2\x80\xA8" "b\xE2\x80\xA9" "c\xE2\x82\xAC"), "a\\u2028b\\u2029c\xE2\x82\xAC");
  EXPECT_EQ(escapeHtml("Plain name_1.2/x-y z"), "Plain name_1.2/x-y z");
  EXPECT_EQ(escapeHtml("<b a=\"1\" c='2'>&</b>"), "&lt;b a=&quot;1&quot; c=&#39;2&#39;&gt;&amp;&lt;/b&gt;");
}

}  // namespace
