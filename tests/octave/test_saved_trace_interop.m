## SPDX-License-Identifier: BSD-3-Clause
## Saved trace files between tempogauge and Octave: a file tempogauge saves
## is an ordinary data file to Octave's load, with the three variables in
## order and the cell rows of the fixed layout; files Octave writes with
## save -v7 and -v6 load into tempogauge with the same points. Files of the
## wrong kind and rows not as written: store_trace_file_test.cc,
## host_data_file_test.cc and store_cell_rows_test.cc.

## One row of the layout: tag, type, phase, grouping, [model, target,
## [machine, chart]], statistics type, isStart, then ten doubles.
%!function row = make_row (type, names, start, values)
%!  row = [{"1", int32(type)}, names, {start}, num2cell(values)];
%!endfunction

%!function check_row_classes (row)
%!  n = numel (row);
%!  assert (any (n == [16 18 20]));
%!  assert (row{1}, "1");
%!  assert (class (row{2}), "int32");
%!  for k = 3:(n - 11)
%!    assert (ischar (row{k}), sprintf ("cell %d is %s", k, class (row{k})));
%!  endfor
%!  assert (class (row{n - 10}), "logical");
%!  for k = (n - 9):n
%!    assert (class (row{k}), "double");
%!    assert (size (row{k}), [1 1]);
%!  endfor
%!endfunction

## A trace saved by tempogauge: three variables in order, rows of 16, 18
## and 20 cells of the fixed classes, the system information struct.
%!test
%! dir = scratch ();
%! GaugeKit.Tracer.clearRawData ();
%! GaugeKit.Tracer.enable ("InteropG", true);
%! GaugeKit.Tracer.logORRERYData ("InteropG", "host phase", true);
%! GaugeKit.Tracer.logCogwheelData ("InteropG", "modelA", "targetA", "cw phase", true);
%! GaugeKit.Tracer.logLoomchartData ("InteropG", "modelA", "targetA", "machineA", "chartA", "lc phase", true);
%! GaugeKit.Tracer.logLoomchartData ("InteropG", "modelA", "targetA", "machineA", "chartA", "lc phase", false);
%! GaugeKit.Tracer.logCogwheelData ("InteropG", "modelA", "targetA", "cw phase", false);
%! GaugeKit.Tracer.logORRERYData ("InteropG", "host phase", false);
%! file = fullfile (dir, "saved.orf");
%! GaugeKit.Tracer.saveToFile (file);
%! s = load (file);
%! assert (fieldnames (s), {"TempoGaugingRawDataVector"; "TempoGaugingSystemInfo"; "ORRERYRoot"});
%! raw = s.TempoGaugingRawDataVector;
%! assert (iscell (raw) && isequal (size (raw), [1 6]));
%! assert (cellfun (@numel, raw), [16 18 20 20 18 16]);
%! cellfun (@check_row_classes, raw);
%! assert (cellfun (@(r) r{2}, raw), int32 ([0 1 2 2 1 0]));
%! assert (raw{1}([3 4]), {"host phase", "InteropG"});
%! assert (raw{2}([3 4 5 6]), {"cw phase", "InteropG", "modelA", "targetA"});
%! assert (raw{3}([3 4 5 6 7 8]), {"lc phase", "InteropG", "modelA", "targetA", "machineA", "chartA"});
%! assert (cellfun (@(r) r{end - 10}, raw), [true true true false false false]);
%! ## Wall times rise, and resident memory is a real sample.
%! walls = cellfun (@(r) r{end - 9}, raw);
%! assert (all (diff (walls) >= 0));
%! assert (raw{1}{end - 2} > 0);
%! ## The same rows as getRawData gives.
%! assert (raw, GaugeKit.Tracer.getRawData ());
%! info = s.TempoGaugingSystemInfo;
%! assert (fieldnames (info), {"processorStr"; "cpuSpeedStr"; "numCoresStr"; "totalPhysMemStr";
%!                             "operatingSystemStr"; "ORRERYVersionStr"; "javaVMVersionStr";
%!                             "installedProductsStr"});
%! assert (all (structfun (@ischar, info)));
%! assert (info.ORRERYVersionStr, version ());
%! assert (! isempty (regexp (info.cpuSpeedStr, '^[0-9.]+ [GM]Hz$', "once")));
%! assert (ischar (s.ORRERYRoot) && rows (s.ORRERYRoot) == 1);
%! GaugeKit.Tracer.clearRawData ();
%! remove_dir (dir);

## Files that Octave writes, compressed (-v7) and not (-v6), load with the
## same points, names (also beyond ASCII) and figures, in order.
%!test
%! dir = scratch ();
%! TempoGaugingRawDataVector = {};
%! TempoGaugingRawDataVector{end+1} = make_row (0, {"phase é", "OctG", "stats"}, true,
%!                                              [0.5 0.125 0 0 0 0 0 100 200 300]);
%! TempoGaugingRawDataVector{end+1} = make_row (1, {"cw", "OctG", "model", "target", ""}, true,
%!                                              [1.5 0.25 10 20 30 40 50 1 2 3]);
%! TempoGaugingRawDataVector{end+1} = make_row (2, {"lc", "OctG", "model", "target", "machine", "chart", ""},
%!                                              false, 1e9 + (1:10));
%! TempoGaugingRawDataVector{end+1} = make_row (0, {"phase é", "OctG", "stats"}, false,
%!                                              [2.75 1.125 0 0 0 0 0 101 201 301]);
%! TempoGaugingSystemInfo = struct ("processorStr", "CPU X", "cpuSpeedStr", "3 GHz", "numCoresStr", "4",
%!   "totalPhysMemStr", "8192", "operatingSystemStr", "OS Y", "ORRERYVersionStr", "9.9",
%!   "javaVMVersionStr", "", "installedProductsStr", "list");
%! ORRERYRoot = "/elsewhere/root";
%! for format = {"-v7", "-v6"}
%!   file = fullfile (dir, ["octave" format{1} ".orf"]);
%!   save (format{1}, file, "TempoGaugingRawDataVector", "TempoGaugingSystemInfo", "ORRERYRoot");
%!   GaugeKit.Tracer.clearRawData ();
%!   GaugeKit.Tracer.loadTracerData (file);
%!   assert (GaugeKit.Tracer.getRawData (), TempoGaugingRawDataVector);
%! endfor
%! ## The rows are read along the first row of the array: a column of rows
%! ## gives its first point only.
%! TempoGaugingRawDataVector = TempoGaugingRawDataVector.';
%! save ("-v7", file, "TempoGaugingRawDataVector");
%! GaugeKit.Tracer.loadTracerData (file);
%! assert (numel (GaugeKit.Tracer.getRawData ()), 1);
%! GaugeKit.Tracer.clearRawData ();
%! remove_dir (dir);

## Octave states the length of a 2-D char array of four characters or fewer
## four bytes too long; its own load takes such a file, and so does ours.
%!test
%! dir = scratch ();
%! TempoGaugingRawDataVector = {make_row(0, {"p", "OctG", ""}, true, 1:10), make_row(0, {"p", "OctG", ""}, false, 2:11)};
%! ORRERYRoot = ["ab"; "cd"];
%! for format = {"-v7", "-v6"}
%!   file = fullfile (dir, ["short2d" format{1} ".orf"]);
%!   save (format{1}, file, "TempoGaugingRawDataVector", "ORRERYRoot");
%!   saved = load (file);
%!   assert (saved.ORRERYRoot, ORRERYRoot);
%!   GaugeKit.Tracer.clearRawData ();
%!   GaugeKit.Tracer.loadTracerData (file);
%!   assert (GaugeKit.Tracer.getRawData (), TempoGaugingRawDataVector);
%! endfor
%! GaugeKit.Tracer.clearRawData ();
%! remove_dir (dir);
