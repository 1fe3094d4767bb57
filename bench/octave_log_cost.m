## SPDX-License-Identifier: BSD-3-Clause
## Cost of logging from Octave, in one Octave run: a GaugeKit.Tracer.logORRERYData
## call that stores a point, against an empty oct-file function called with
## the same arguments and the C++ stored point (tgLogORRERYData in a C++
## loop). Goal: the call costs at most empty call + C++ point + 0.5 us.
## Also a phase (two calls) against what Octave's own profiler adds to each
## function call. Rounds of all alternate so that the load of the machine
## falls on each alike; the figures are medians over rounds. A last line
## shows what one system call (the getrusage of a sample) costs from Octave,
## over the empty call, against the same call in a C++ loop: a stored point
## from Octave pays that difference, which the C++ loop does not.
##
##   octave-cli bench/octave_log_cost.m [BUILD_DIR]
1;

function tg_bench_noop ()
endfunction

function text = ifelse_text (met)
  if (met)
    text = "met";
  else
    text = "not met";
  endif
endfunction

args = argv ();
build = "build";
if (! isempty (args))
  build = args{1};
endif
addpath (fullfile (build, "octave"));
addpath (fullfile (build, "octave-bench"));
autoload ("tg_cpp_log_cost", file_in_loadpath ("tg_empty_call.oct"));
autoload ("tg_syscall_call", file_in_loadpath ("tg_empty_call.oct"));
autoload ("tg_cpp_syscall_cost", file_in_loadpath ("tg_empty_call.oct"));

calls = 500;        # per round; a round of logging stores 2 * calls points
rounds = 61;
grouping = "BenchGrouping";
phase = "bench phase";

GaugeKit.Tracer.enable (grouping, true);
GaugeKit.Tracer.clearRawData ();
tg_empty_call (grouping, phase, true);
tg_cpp_log_cost (grouping, phase, 1);
tg_syscall_call (grouping, phase, true);
tg_cpp_syscall_cost (1);
GaugeKit.Tracer.logORRERYData (grouping, phase, true);
GaugeKit.Tracer.logORRERYData (grouping, phase, false);

empty_us = zeros (rounds, 1);
log_us = zeros (rounds, 1);
off_us = zeros (rounds, 1);
cpp_us = zeros (rounds, 1);
plain_us = zeros (rounds, 1);
profiled_us = zeros (rounds, 1);
syscall_us = zeros (rounds, 1);
cpp_syscall_us = zeros (rounds, 1);
for r = 1:rounds
  ## The same call with its grouping off: the adapter's share, without the
  ## sample the core takes for a stored point.
  GaugeKit.Tracer.enable (grouping, false);
  tic;
  for i = 1:calls
    GaugeKit.Tracer.logORRERYData (grouping, phase, true);
    GaugeKit.Tracer.logORRERYData (grouping, phase, false);
  endfor
  off_us(r) = toc / (2 * calls) * 1e6;
  GaugeKit.Tracer.enable (grouping, true);
  tic;
  for i = 1:calls
    tg_empty_call (grouping, phase, true);
    tg_empty_call (grouping, phase, false);
  endfor
  empty_us(r) = toc / (2 * calls) * 1e6;
  tic;
  for i = 1:calls
    GaugeKit.Tracer.logORRERYData (grouping, phase, true);
    GaugeKit.Tracer.logORRERYData (grouping, phase, false);
  endfor
  log_us(r) = toc / (2 * calls) * 1e6;
  cpp_us(r) = tg_cpp_log_cost (grouping, phase, calls);
  tic;
  for i = 1:calls
    tg_syscall_call (grouping, phase, true);
    tg_syscall_call (grouping, phase, false);
  endfor
  syscall_us(r) = toc / (2 * calls) * 1e6 - empty_us(r);
  cpp_syscall_us(r) = tg_cpp_syscall_cost (2 * calls);
  ## Keeps the store from growing across rounds.
  GaugeKit.Tracer.clearRawData ();
  ## What the profiler adds to a call of a function that does nothing.
  tic;
  for i = 1:calls
    tg_bench_noop ();
  endfor
  plain_us(r) = toc / calls * 1e6;
  profile on;
  tic;
  for i = 1:calls
    tg_bench_noop ();
  endfor
  profiled_us(r) = toc / calls * 1e6;
  profile off;
  profile clear;
endfor

## The logging calls must have stored their points.
GaugeKit.Tracer.logORRERYData (grouping, phase, true);
GaugeKit.Tracer.logORRERYData (grouping, phase, false);
stored = numel (GaugeKit.Tracer.getRawData ());
if (stored != 2)
  error ("octave_log_cost: logORRERYData stored %d points instead of 2", stored);
endif
GaugeKit.Tracer.clearRawData ();

empty = median (empty_us);
logged = median (log_us);
cpp = median (cpp_us);
limit = empty + cpp + 0.5;
profiler = median (profiled_us - plain_us);
printf ("octave_log_cost: empty oct-file call            %6.2f us (median of %d rounds)\n", empty, rounds);
printf ("octave_log_cost: C++ stored point              %6.2f us\n", cpp);
printf ("octave_log_cost: GaugeKit.Tracer.logORRERYData %6.2f us; goal <= empty + C++ point + 0.5 = %.2f us: %s (%+.2f us)\n",
        logged, limit, ifelse_text (logged <= limit), logged - empty - cpp);
printf ("octave_log_cost: the same call, grouping off   %6.2f us\n", median (off_us));
printf ("octave_log_cost: a phase (two calls)           %6.2f us; profile on adds %.2f us to each function call\n",
        2 * logged, profiler);
printf ("octave_log_cost: one getrusage from Octave     %6.2f us over the empty call; in a C++ loop %.2f us\n",
        median (syscall_us), median (cpp_syscall_us));
