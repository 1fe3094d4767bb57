## SPDX-License-Identifier: BSD-3-Clause
## GaugeKit.Tracer from Octave: the data methods, saved trace files and the
## report methods. Each method's ordinary use, then its argument checks with
## the IDs they raise, in the order the methods check them. Files are written
## to a fresh temporary folder.

## Logs a small nested run into `grouping`: outer > inner, twice.
%!function log_run (grouping)
%!  GaugeKit.Tracer.enable (grouping, true);
%!  for k = 1:2
%!    GaugeKit.Tracer.logORRERYData (grouping, "outer", true);
%!    GaugeKit.Tracer.logORRERYData (grouping, "inner", true);
%!    x = sum (rand (200) (:));
%!    GaugeKit.Tracer.logORRERYData (grouping, "inner", false);
%!    GaugeKit.Tracer.logORRERYData (grouping, "outer", false);
%!  endfor
%!endfunction

%!function ok = is_report (file)
%!  text = fileread (file);
%!  ok = numel (text) > 1000 && ! isempty (strfind (text, "<html"));
%!endfunction

## clearRawData: parity before the bound; only the named data goes.
%!test
%! GaugeKit.Tracer.clearRawData ();
%! log_run ("OctClearA");
%! log_run ("OctClearB");
%! GaugeKit.Tracer.clearRawData ("Grouping", "OctClearA");
%! raw = GaugeKit.Tracer.getRawData ();
%! assert (numel (raw), 8);
%! assert (all (cellfun (@(r) strcmp (r{4}, "OctClearB"), raw)));
%! ## A model with a target takes the whole model, not only the target.
%! GaugeKit.Tracer.logCogwheelData ("OctClearB", "m", "t1", "p", true);
%! GaugeKit.Tracer.logCogwheelData ("OctClearB", "m", "t2", "p", true);
%! GaugeKit.Tracer.clearRawData ("grouping", "OctClearB", "model", "m", "target", "t1");
%! assert (numel (GaugeKit.Tracer.getRawData ()), 8);
%! GaugeKit.Tracer.clearRawData ();
%! assert (numel (GaugeKit.Tracer.getRawData ()), 0);
%!test expect_errors ({
%!  "ExpectedEvenNumberOfParameters", "", @() GaugeKit.Tracer.clearRawData(1, 2, 3, 4, 5, 6, 7)
%!  "MaxParamsExceeded", "6", @() GaugeKit.Tracer.clearRawData("grouping", "a", "model", "b", "target", "c", "model", "d")
%!  "InvalidNames", "", @() GaugeKit.Tracer.clearRawData("target", "t")
%!  "InvalidNames", "", @() GaugeKit.Tracer.clearRawData("phase", "p")});

## getRawData and getProcessedData.
%!test
%! GaugeKit.Tracer.clearRawData ();
%! log_run ("OctData");
%! raw = GaugeKit.Tracer.getRawData ();
%! assert (size (raw), [1 8]);
%! assert (class (raw{1}{2}), "int32");
%! assert (raw{1}{7} <= raw{2}{7});          # wall times in order
%! p = GaugeKit.Tracer.getProcessedData ();
%! assert (iscell (p));
%! names = cellfun (@(s) s.phaseIDStr, p, "UniformOutput", false);
%! assert ([sum(strcmp (names, "outer")), sum(strcmp (names, "inner"))], [2 2]);
%! assert (all (cellfun (@(s) s.wcElapsedTime >= 0, p)));
%! q = GaugeKit.Tracer.getProcessedData ("grouping", {"OctData"});
%! assert (numel (q), numel (p));
%! ## Each pair replaces the one before: a model never logged gives nothing.
%! r = GaugeKit.Tracer.getProcessedData ("grouping", "OctData", "model", "OctNoModel");
%! assert (numel (r), 0);
%! GaugeKit.Tracer.clearRawData ();
%!test expect_errors ({
%!  "ExpectedEvenNumberOfParameters", "", @() GaugeKit.Tracer.getProcessedData("grouping")
%!  "ExpectedNames", "'grouping' or 'model'", @() GaugeKit.Tracer.getProcessedData(3, "x")
%!  "ParameterMismatchString", "grouping", @() GaugeKit.Tracer.getProcessedData("Grouping", 3)
%!  "AddGroupingExpectedString", "", @() GaugeKit.Tracer.getProcessedData("model", {"m", 1})
%!  "InvalidNames", "", @() GaugeKit.Tracer.getProcessedData("target", "t")});

## saveToFile, loadTracerData: a round trip keeps the order of the points,
## and Octave reads the file as a data file with the three variables (files
## that Octave writes: test_saved_trace_interop.m).
%!test
%! dir = scratch ();
%! GaugeKit.Tracer.clearRawData ();
%! log_run ("OctSave");
%! before = GaugeKit.Tracer.getRawData ();
%! file = fullfile (dir, "run.orf");
%! GaugeKit.Tracer.saveToFile (file);
%! s = load (file);
%! assert (sort (fieldnames (s)), sort ({"TempoGaugingRawDataVector"; "TempoGaugingSystemInfo"; "ORRERYRoot"}));
%! assert (numel (s.TempoGaugingRawDataVector), 8);
%! assert (s.ORRERYRoot, OCTAVE_HOME ());
%! assert (s.TempoGaugingSystemInfo.numCoresStr, num2str (nproc ()));
%! GaugeKit.Tracer.clearRawData ();
%! GaugeKit.Tracer.loadTracerData (file);
%! after = GaugeKit.Tracer.getRawData ();
%! assert (cellfun (@(r) r{3}, after, "UniformOutput", false), cellfun (@(r) r{3}, before, "UniformOutput", false));
%! assert (cellfun (@(r) r{7}, after), cellfun (@(r) r{7}, before));
%! GaugeKit.Tracer.clearRawData ();
%! remove_dir (dir);
%!test expect_errors ({
%!  "ParameterMismatchString", "Filename", @() GaugeKit.Tracer.saveToFile(42)
%!  "ParameterMismatchString", "Filename", @() GaugeKit.Tracer.saveToFile("")
%!  "OpenFileFailed", "no-such-folder", @() GaugeKit.Tracer.saveToFile(fullfile(tempdir(), "no-such-folder", "x.orf"))
%!  "ParameterMismatchString", "Filename", @() GaugeKit.Tracer.loadTracerData({"a.orf"})
%!  "MissingOrfExt", "", @() GaugeKit.Tracer.loadTracerData("trace.mat")
%!  "OpenFileFailed", "absent.orf.bak", @() GaugeKit.Tracer.loadTracerData(fullfile(tempdir(), "absent.orf.bak"))});

## saveCWStartupData: only the start-up grouping, by default into
## CWStartupData.orf in the current folder.
%!test
%! dir = scratch ();
%! here = pwd ();
%! unwind_protect
%!   cd (dir);
%!   GaugeKit.Tracer.clearRawData ();
%!   GaugeKit.Tracer.enableCWStartupLogging (true);
%!   GaugeKit.Tracer.logCWStartupData ("load libraries", true);
%!   GaugeKit.Tracer.logCWStartupData ("load libraries", false);
%!   log_run ("OctNotStartup");
%!   GaugeKit.Tracer.saveCWStartupData ();
%!   s = load ("CWStartupData.orf");
%!   assert (numel (s.TempoGaugingRawDataVector), 2);
%!   GaugeKit.Tracer.saveCWStartupData ("named.orf");
%!   assert (exist (fullfile (dir, "named.orf"), "file"), 2);
%!   ## The start-up reports read the live store by default.
%!   GaugeKit.Tracer.generateCWStartupReport ();
%!   assert (is_report (fullfile (dir, "CWStartup.html")));
%!   GaugeKit.Tracer.generateCWStartupDifferenceReport ("lhsfile", "named.orf");
%!   assert (is_report (fullfile (dir, "CWStartupDiff.html")));
%!   GaugeKit.Tracer.generateCWStartupReport ("HTMLFile", "startup-mem.html", "metric", "BasicMemory");
%!   assert (is_report (fullfile (dir, "startup-mem.html")));
%! unwind_protect_cleanup
%!   GaugeKit.Tracer.enableCWStartupLogging (false);
%!   GaugeKit.Tracer.clearRawData ();
%!   cd (here);
%!   remove_dir (dir);
%! end_unwind_protect
%!test expect_errors ({
%!  "MaxParamsExceeded", "1", @() GaugeKit.Tracer.saveCWStartupData("a.orf", "b.orf")
%!  "ParameterMismatchString", "Filename", @() GaugeKit.Tracer.saveCWStartupData(1)});

## generateHTMLReport and generateAggregateReport, from the store and from a file.
%!test
%! dir = scratch ();
%! GaugeKit.Tracer.clearRawData ();
%! log_run ("OctReport");
%! html = fullfile (dir, "detail.html");
%! GaugeKit.Tracer.generateHTMLReport ("htmlfile", html, "grouping", "OctReport");
%! assert (is_report (html));
%! file = fullfile (dir, "run.orf");
%! GaugeKit.Tracer.saveToFile (file);
%! GaugeKit.Tracer.clearRawData ();
%! GaugeKit.Tracer.generateAggregateReport ("HTMLFILE", fullfile (dir, "agg.html"), "orffile", file,
%!                                          "Metric", "Time", "showmeta", false);
%! assert (is_report (fullfile (dir, "agg.html")));
%! remove_dir (dir);
%!test expect_errors ({
%!  "MinParamsNotReached", "2", @() GaugeKit.Tracer.generateHTMLReport("htmlfile")
%!  "MaxParamsExceeded", "8", @() GaugeKit.Tracer.generateHTMLReport(1, 2, 3, 4, 5, 6, 7, 8, 9, 10)
%!  "ExpectedEvenNumberOfParameters", "", @() GaugeKit.Tracer.generateHTMLReport("htmlfile", "a.html", "grouping")
%!  "InvalidNames", "", @() GaugeKit.Tracer.generateHTMLReport(1, "a.html")
%!  "InvalidNames", "", @() GaugeKit.Tracer.generateHTMLReport("file", "a.html")
%!  "ParameterMismatchString", "htmlfile", @() GaugeKit.Tracer.generateHTMLReport("htmlfile", 1)
%!  "ParameterMismatchString", "showmeta", @() GaugeKit.Tracer.generateHTMLReport("htmlfile", "a.html", "showmeta", "yes")
%!  "InvalidMetric", "detailedmemory", @() GaugeKit.Tracer.generateAggregateReport("htmlfile", "a.html", "metric", "space")
%!  "ExpectedNames", "'htmlfile' must be set", @() GaugeKit.Tracer.generateHTMLReport("grouping", "GLOBAL")
%!  "OpenFileFailed", "absent.orf", @() GaugeKit.Tracer.generateHTMLReport("htmlfile", "a.html", "orffile", "absent.orf")});
%!test
%! GaugeKit.Tracer.clearRawData ();
%! expect_error ("tempogauge:TempoGauge:NoRawTracerData", "",
%!               @() GaugeKit.Tracer.generateAggregateReport ("htmlfile", "a.html"));
%!test
%! GaugeKit.Tracer.clearRawData ();
%! log_run ("OctUnwritable");
%! expect_error ("tempogauge:TempoGauge:WriteFileFailed", "no-such-folder",
%!               @() GaugeKit.Tracer.generateHTMLReport ("htmlfile", fullfile (tempdir (), "no-such-folder", "a.html")));
%! GaugeKit.Tracer.clearRawData ();

## generateDifferenceReport and generateAggregateDifferenceReport: a saved
## run against the live one.
%!test
%! dir = scratch ();
%! GaugeKit.Tracer.clearRawData ();
%! log_run ("OctDiff");
%! file = fullfile (dir, "lhs.orf");
%! GaugeKit.Tracer.saveToFile (file);
%! GaugeKit.Tracer.generateDifferenceReport ("htmlfile", fullfile (dir, "diff.html"), "lhsfile", file,
%!                                           "lhslabel", "before", "rhslabel", "after", "metric", "basicmemory");
%! assert (is_report (fullfile (dir, "diff.html")));
%! GaugeKit.Tracer.generateAggregateDifferenceReport ("htmlfile", fullfile (dir, "adiff.html"), "rhsfile", file);
%! assert (is_report (fullfile (dir, "adiff.html")));
%! GaugeKit.Tracer.clearRawData ();
%! expect_error ("tempogauge:TempoGauge:NoRawTracerDataLoaded", "current session",
%!               @() GaugeKit.Tracer.generateDifferenceReport ("htmlfile", fullfile (dir, "d.html"), "lhsfile", file));
%! remove_dir (dir);
%!test expect_errors ({
%!  "MinParamsNotReached", "4", @() GaugeKit.Tracer.generateDifferenceReport("htmlfile", "a.html")
%!  "MaxParamsExceeded", "8", @() GaugeKit.Tracer.generateDifferenceReport(1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14)
%!  "ExpectedEvenNumberOfParameters", "", @() GaugeKit.Tracer.generateAggregateDifferenceReport("htmlfile", "a", "lhsfile", "b", "c")
%!  "UnexpectedValue", "lhsfile", @() GaugeKit.Tracer.generateDifferenceReport("htmlfile", "a.html", "lhsfile", 3)
%!  "ParameterMismatchString", "metric", @() GaugeKit.Tracer.generateDifferenceReport("htmlfile", "a.html", "metric", 3)
%!  "ExpectedNames", "'htmlfile' and one of 'lhsfile' or 'rhsfile' to be set.", @() GaugeKit.Tracer.generateDifferenceReport("htmlfile", "a.html", "lhslabel", "x")
%!  "OpenFileFailed", "absent.orf", @() GaugeKit.Tracer.generateDifferenceReport("htmlfile", "a.html", "rhsfile", "absent.orf")});

## The start-up reports' own checks.
%!test expect_errors ({
%!  "MaxParamsExceeded", "4", @() GaugeKit.Tracer.generateCWStartupReport("htmlfile", "a", "orffile", "b", "metric", "time")
%!  "ParameterMismatchString", "nosuchoption", @() GaugeKit.Tracer.generateCWStartupReport("NoSuchOption", 1)
%!  "InvalidNames", "", @() GaugeKit.Tracer.generateCWStartupReport("grouping", "G")
%!  "MinParamsNotReached", "2", @() GaugeKit.Tracer.generateCWStartupDifferenceReport()
%!  "MaxParamsExceeded", "10", @() GaugeKit.Tracer.generateCWStartupDifferenceReport(1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12)
%!  "InvalidNames", "", @() GaugeKit.Tracer.generateCWStartupDifferenceReport("metric", "time")
%!  "ExpectedNames", "at least one of 'lhsfile' or 'rhsfile' must be set", @() GaugeKit.Tracer.generateCWStartupDifferenceReport("htmlfile", "a.html")});

## diagnosticReport: case-sensitive names, the class tested before the name.
%!test
%! dir = scratch ();
%! GaugeKit.Tracer.clearRawData ();
%! log_run ("OctDiag");
%! GaugeKit.Tracer.logORRERYData ("OctDiag", "left open", true);
%! GaugeKit.Tracer.diagnosticReport ("htmlfile", fullfile (dir, "diag.html"), "grouping", "OctDiag");
%! assert (! isempty (strfind (fileread (fullfile (dir, "diag.html")), "left open")));
%! GaugeKit.Tracer.clearRawData ();
%! ## An empty store still gets its (empty) report.
%! GaugeKit.Tracer.diagnosticReport ("htmlfile", fullfile (dir, "empty.html"));
%! assert (exist (fullfile (dir, "empty.html"), "file"), 2);
%! remove_dir (dir);
%!test expect_errors ({
%!  "MaxParamsExceeded", "6", @() GaugeKit.Tracer.diagnosticReport(1, 2, 3, 4, 5, 6, 7, 8)
%!  "InvalidNames", "", @() GaugeKit.Tracer.diagnosticReport("HTMLFILE", "a.html")
%!  "UnexpectedValue", "whatever", @() GaugeKit.Tracer.diagnosticReport("whatever", 1)
%!  "ExpectedNames", "'htmlfile' must be set.", @() GaugeKit.Tracer.diagnosticReport("grouping", "GLOBAL")});
