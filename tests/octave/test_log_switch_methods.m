## SPDX-License-Identifier: BSD-3-Clause
## GaugeKit.Tracer from Octave: the class listing, the logging methods, the
## switches, groupings and statistics types. Each method's ordinary use, then
## its argument checks with the IDs they raise, in the order the methods
## check them. Run with Octave's test(); the runner puts build/octave on the
## path.

%!function n = stored_points ()
%!  n = numel (GaugeKit.Tracer.getRawData ());
%!endfunction

## The class and its listing.
%!test
%! m = methods ("GaugeKit.Tracer");
%! assert (numel (m), 24);
%! names = {"setUseDetailedExceptionDiagnostics", "logORRERYData", "generateCWStartupDifferenceReport"};
%! assert (cellfun (@(name) any (strcmp (m, name)), names), [false true true]);

## The hidden method is callable by name and returns its input, although
## this host has no "cwsvInternal" command.
%!test
%! assert (GaugeKit.Tracer.setUseDetailedExceptionDiagnostics (true), true);
%! assert (GaugeKit.Tracer.setUseDetailedExceptionDiagnostics (false), false);
%!test expect_errors ({
%!  "ParameterMismatchBoolean", "Enable", @() GaugeKit.Tracer.setUseDetailedExceptionDiagnostics(1)});

## Function handles to methods and package functions, and a method called
## without parentheses.
%!test
%! ## In a fresh Octave, a handle made before any other use works too.
%! build = fileparts (file_in_loadpath ("GaugeKit.oct"));
%! [status, out] = system (sprintf ("octave-cli --norc --quiet --eval %s 2>&1",
%!   ["\"addpath ('" build "'); f = @GaugeKit.Tracer.enable; disp (f ('OctFirst', true))\""]));
%! assert (status, 0, out);
%! assert (strtrim (strsplit (out, "\n"){1}), "1");
%!test
%! enable = @GaugeKit.Tracer.enable;
%! assert (enable ("OctHandle", true), true);
%! assert (cellfun (@GaugeKit.Tracer.enable, {"OctHandle", "OctHandleOff"}), [true false]);
%! collect = @GaugeKit.cwsvStringTableDoGarbageCollection;
%! collect ();
%! raw = GaugeKit.Tracer.getRawData;
%! assert (iscell (raw));
%! assert (class (GaugeKit), "GaugeKit");

## The package functions, and a package function and the class named without
## parentheses, as Octave allows for anything that takes no input.
%!test
%! GaugeKit.cwsvStringTableDisableGarbageCollection ();
%! GaugeKit.cwsvStringTableDoGarbageCollection;
%! GaugeKit.cwsvStringTableEnableGarbageCollection
%! assert (class (GaugeKit.Tracer), "GaugeKit.Tracer");
%!test expect_error ("Octave:undefined-function", "GaugeKit.noSuchFunction", @() GaugeKit.noSuchFunction);

## The class system checks the counts of fixed signatures before a handler runs.
%!test expect_error ("objsys:NotEnoughInputs", "logORRERYData", @() GaugeKit.Tracer.logORRERYData ("g", "p"));
%!test expect_error ("objsys:TooManyInputs", "getRawData", @() GaugeKit.Tracer.getRawData (1));
%!test expect_error ("Octave:undefined-function", "noSuchMethod", @() GaugeKit.Tracer.noSuchMethod ());

## logORRERYData, logCogwheelData, logLoomchartData, logCWStartupData.
%!test
%! GaugeKit.Tracer.clearRawData ();
%! GaugeKit.Tracer.enable ("OctLog", true);
%! GaugeKit.Tracer.logORRERYData ("OctLog", "outer", true);
%! GaugeKit.Tracer.logCogwheelData ("OctLog", "model", "target", "block", true);
%! GaugeKit.Tracer.logLoomchartData ("OctLog", "model", "target", "machine", "chart", "state", true);
%! GaugeKit.Tracer.logLoomchartData ("OctLog", "model", "target", "machine", "chart", "state", false);
%! GaugeKit.Tracer.logCogwheelData ("OctLog", "model", "target", "block", false);
%! GaugeKit.Tracer.logORRERYData ("OctLog", "outer", false);
%! raw = GaugeKit.Tracer.getRawData ();
%! assert (size (raw), [1 6]);
%! assert (cellfun (@numel, raw), [16 18 20 20 18 16]);
%! assert ({raw{1}{1}, raw{1}{3}, raw{1}{4}, raw{2}{5}, raw{3}{8}, raw{1}{6}, raw{6}{6}},
%!         {"1", "outer", "OctLog", "model", "chart", true, false});
%! GaugeKit.Tracer.enable ("OctLog", false);
%! GaugeKit.Tracer.logORRERYData ("OctLog", "outer", true);
%! assert (stored_points (), 6);
%! GaugeKit.Tracer.clearRawData ();
%!test expect_errors ({
%!  "ParameterMismatchString", "Grouping", @() GaugeKit.Tracer.logORRERYData(1, 2, 3)
%!  "ParameterMismatchString", "Phase", @() GaugeKit.Tracer.logORRERYData("g", 1, 3)
%!  "ParameterMismatchString", "Phase", @() GaugeKit.Tracer.logORRERYData("g", "", true)
%!  "ParameterMismatchBoolean", "Start of Phase", @() GaugeKit.Tracer.logORRERYData("g", "p", 1)
%!  "ParameterMismatchString", "Model Name", @() GaugeKit.Tracer.logCogwheelData("g", 1, 2, "p", 3)
%!  "ParameterMismatchString", "Target Name", @() GaugeKit.Tracer.logCogwheelData("g", "m", {"t"}, "p", true)
%!  "ParameterMismatchBoolean", "Start of Phase", @() GaugeKit.Tracer.logCogwheelData("g", "m", "t", "p", "yes")
%!  "ParameterMismatchString", "Machine Name", @() GaugeKit.Tracer.logLoomchartData("g", "m", "t", 4, 5, "p", true)
%!  "ParameterMismatchString", "Chart Name", @() GaugeKit.Tracer.logLoomchartData("g", "m", "t", "mc", 5, "p", true)
%!  "ParameterMismatchString", "Phase", @() GaugeKit.Tracer.logCWStartupData(["ab"; "cd"], true)
%!  "ParameterMismatchBoolean", "Start of Phase", @() GaugeKit.Tracer.logCWStartupData("p", [true true])});

## enable: the count first, then the grouping, then the value.
%!test
%! answers = {GaugeKit.Tracer.enable("OctEnable"), GaugeKit.Tracer.enable("OctEnable", true), ...
%!            GaugeKit.Tracer.enable("OctEnable"), GaugeKit.Tracer.enable("OctEnable", false), ...
%!            GaugeKit.Tracer.enable("OctEnable")};
%! assert (answers, {false, true, true, false, false});
%!test expect_errors ({
%!  "MaxParamsExceeded", "2", @() GaugeKit.Tracer.enable(1, 2, 3)
%!  "MinParamsNotReached", "1", @() GaugeKit.Tracer.enable()
%!  "ParameterMismatchString", "Grouping", @() GaugeKit.Tracer.enable(1, 2)
%!  "ParameterMismatchBoolean", "Enable", @() GaugeKit.Tracer.enable("OctEnable", "on")});

## The three switches return the value they were given.
%!test
%! assert (GaugeKit.Tracer.enableGlobalLogging (true), true);
%! GaugeKit.Tracer.clearRawData ();
%! GaugeKit.Tracer.logORRERYData ("OctNeverEnabled", "p", true);
%! assert (stored_points (), 1);
%! assert (GaugeKit.Tracer.enableGlobalLogging (false), false);
%! GaugeKit.Tracer.logORRERYData ("OctNeverEnabled", "p", false);
%! assert (stored_points (), 1);
%! GaugeKit.Tracer.clearRawData ();
%!test
%! assert (GaugeKit.Tracer.enableCWStartupLogging (true), true);
%! assert (GaugeKit.Tracer.enable ("Cogwheel Startup"), true);
%! GaugeKit.Tracer.logCWStartupData ("startup phase", true);
%! GaugeKit.Tracer.logCWStartupData ("startup phase", false);
%! raw = GaugeKit.Tracer.getRawData ();
%! assert (raw{1}{4}, "Cogwheel Startup");
%! assert (GaugeKit.Tracer.enableCWStartupLogging (false), false);
%! GaugeKit.Tracer.clearRawData ();
%!test
%! assert (GaugeKit.Tracer.enableDetailedMemStats (true), true);
%! GaugeKit.Tracer.enable ("OctDetail", true);
%! GaugeKit.Tracer.logORRERYData ("OctDetail", "p", true);
%! raw = GaugeKit.Tracer.getRawData ();
%! assert (raw{1}{10} > 0);   # resident memory of the detailed sample
%! assert (GaugeKit.Tracer.enableDetailedMemStats (false), false);
%! GaugeKit.Tracer.clearRawData ();
%!test expect_errors ({
%!  "ParameterMismatchBoolean", "Enable", @() GaugeKit.Tracer.enableGlobalLogging("true")
%!  "ParameterMismatchBoolean", "Enable", @() GaugeKit.Tracer.enableCWStartupLogging(1)
%!  "ParameterMismatchBoolean", "Enable", @() GaugeKit.Tracer.enableDetailedMemStats([])});

## addGrouping, removeGrouping.
%!test
%! GaugeKit.Tracer.addGrouping ("OctParent", {"OctChildA", "OctChildB"});
%! GaugeKit.Tracer.enable ("OctParent", true);
%! assert (GaugeKit.Tracer.enable ("OctChildA"), true);
%! GaugeKit.Tracer.removeGrouping ("OctParent");
%! GaugeKit.Tracer.enable ("OctChildA", false);
%!test expect_errors ({
%!  "InvalidNames", "", @() GaugeKit.Tracer.addGrouping(1, {})
%!  "UnexpectedValue", "OctBad", @() GaugeKit.Tracer.addGrouping("OctBad", "child")
%!  "AddGroupingExpectedString", "", @() GaugeKit.Tracer.addGrouping("OctBad", {"a", 2})});
%!test
%! GaugeKit.Tracer.addGrouping ("OctTwice", {"OctTwiceChild"});
%! expect_error ("tempogauge:TempoGauge:AddGroupingError", "OctTwice",
%!               @() GaugeKit.Tracer.addGrouping ("OctTwice", {"OctTwiceChild"}));
%! GaugeKit.Tracer.removeGrouping ("OctTwice");
%!test expect_errors ({
%!  "ParameterMismatchString", "grouping", @() GaugeKit.Tracer.removeGrouping(7)
%!  "RemoveGroupingError", "OctNoSuchGrouping", @() GaugeKit.Tracer.removeGrouping("OctNoSuchGrouping")});

## setStatisticsTypeForModel: the model's points carry the type's name.
%!test
%! GaugeKit.Tracer.setStatisticsTypeForModel ("OctModel", "OctStats");
%! GaugeKit.Tracer.enable ("OctStatsGrouping", true);
%! GaugeKit.Tracer.logCogwheelData ("OctStatsGrouping", "OctModel", "t", "p", true);
%! raw = GaugeKit.Tracer.getRawData ();
%! assert (raw{end}{7}, "OctStats");
%! GaugeKit.Tracer.clearRawData ();
%!test expect_errors ({
%!  "InvalidNames", "", @() GaugeKit.Tracer.setStatisticsTypeForModel("", "type")
%!  "InvalidNames", "", @() GaugeKit.Tracer.setStatisticsTypeForModel("model", 5)});
