// SPDX-License-Identifier: BSD-3-Clause
// Fixed text of the report documents that stands between the pieces.
#pragma once

#include <string_view>

inline constexpr std::string_view kDoctypeLine =
    "<!DOCTYPE html PUBLIC \"-//W3C//DTD XHTML 1.0 Strict//EN\"\n"
    "\"http://www.w3.org/TR/xhtml1/DTD/xhtml1-strict.dtd\">\n"
    "<html xmlns=\"http://www.w3.org/1999/xhtml\"xml:lang=\"en\" lang=\"en\">\n";
inline constexpr std::string_view kBodyPlain =
    "    <body onresize=\"onResizeAction()\" onload=\"ShowTable('aggregateSummary'); onResizeAction();\">\n";
inline constexpr std::string_view kBodyWithDialog =
    "    <body onresize=\"onResizeAction()\" onmousemove=\"dialogMove(event)\" "
    "onload=\"ShowTable('aggregateSummary'); onResizeAction();\">\n";
inline constexpr std::string_view kCenterOpen = "        <div align=\"center\">\n";
inline constexpr std::string_view kCenterClose = "        </div>\n";
inline constexpr std::string_view kBodyClose = "    </body>\n";
inline constexpr std::string_view kHtmlClose = "</html>\n";
inline constexpr std::string_view kScriptOpen = "    <script type=\"text/javascript\">\n";
inline constexpr std::string_view kScriptClose = "    </script>\n";

// Written instead of a report when the phases of the trace do not pair up.
inline constexpr std::string_view kErrorPageLines[] = {
    "<html>\n",
    "    <body>\n",
    "An error has been detected in the TempoGauge instrumentation.\n",
    "Please call:<br> GaugeKit.Tracer.diagnosticReport('htmlfile', 'mydiag.html')<br>\n",
    "to generate a Diagnostic Report to determine where the error(s) occur.\n",
    "    </body>\n",
    "</html>\n",
};

// Written instead of a detailed memory report of a trace without detailed
// memory samples: one form for single runs, one for comparisons.
inline constexpr std::string_view kMissingDetailPageLines[] = {
    "<html>\n",
    "    <body>\n",
    "Detailed memstats was not collected.<br>\n",
    "If generating report from a ORF file, please check if DetailedMemstats was enabled and is collected on a "
    "Windows platform.<br>\n",
    "If generating report with the data collected in the current session, please call:<br> "
    "GaugeKit.Tracer.clearRawData;<br>\n",
    "GaugeKit.Tracer.enableDetailedMemStats(true)<br>\n",
    "    </body>\n",
    "</html>\n",
};
inline constexpr std::string_view kComparisonMissingDetailPageLines[] = {
    "<html>\n",
    "    <body>\n",
    "Detailed memstats was not collected.<br>\n",
    "If generating report from a ORF file, please check if DetailedMemstats was enabled and is collected on a "
    "Windows platform.<br>\n",
    "If generating report with the data collected in the current session, please call:<br>"
    "GaugeKit.Tracer.clearRawData;<br>\n",
    "GaugeKit.Tracer.enableDetailedMemStats(true);<br>\n",
    "    </body>\n",
    "</html>\n",
};
