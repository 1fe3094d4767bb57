## SPDX-License-Identifier: BSD-3-Clause
## Cost of logging from Octave: a GaugeKit.Tracer.logORRERYData call that
## stores a point, against an empty oct-file function called with the same
## arguments, in one Octave run. Rounds of both alternate so that the load
## of the machine falls on both alike; the figures are medians over rounds,
## and the fastest round of each.
##
##   octave-cli bench/octave_log_cost.m [BUILD_DIR]
args = argv ();
build = "build";
if (! isempty (args))
  build = args{1};
endif
addpath (fullfile (build, "octave"));
addpath (fullfile (build, "octave-bench"));

calls = 500;        # per round; a round of logging stores 2 * calls points
rounds = 61;
grouping = "BenchGrouping";
phase = "bench phase";

GaugeKit.Tracer.enable (grouping, true);
GaugeKit.Tracer.clearRawData ();
tg_empty_call (grouping, phase, true);
GaugeKit.Tracer.logORRERYData (grouping, phase, true);
GaugeKit.Tracer.logORRERYData (grouping, phase, false);
stored_before = numel (GaugeKit.Tracer.getRawData ());

empty_us = zeros (rounds, 1);
log_us = zeros (rounds, 1);
off_us = zeros (rounds, 1);
for r = 1:rounds
  ## The same call with its grouping off: the adapter's and the handler's
  ## share, without the sample the core takes for a stored point.
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
  ## Keeps the store from growing across rounds.
  GaugeKit.Tracer.clearRawData ();
endfor

## The logging calls must have stored their points.
GaugeKit.Tracer.logORRERYData (grouping, phase, true);
GaugeKit.Tracer.logORRERYData (grouping, phase, false);
stored = numel (GaugeKit.Tracer.getRawData ());
if (stored != 2)
  error ("octave_log_cost: logORRERYData stored %d points instead of 2", stored);
endif
GaugeKit.Tracer.clearRawData ();

ratio = median (log_us) / median (empty_us);
## The fastest round of each is the one least disturbed by other load.
best_ratio = min (log_us) / min (empty_us);
printf ("octave_log_cost: empty oct-file call          %6.2f us (median of %d rounds)\n", median (empty_us), rounds);
printf ("octave_log_cost: GaugeKit.Tracer.logORRERYData %6.2f us (median of %d rounds)\n", median (log_us), rounds);
printf ("octave_log_cost: the same call, grouping off   %6.2f us (median of %d rounds)\n", median (off_us), rounds);
printf ("octave_log_cost: ratio %.2f (goal <= 1.5); without the stored point %.2f\n", ratio,
        median (off_us) / median (empty_us));
printf ("octave_log_cost: fastest rounds: empty %.2f us, logging %.2f us, grouping off %.2f us; ratio %.2f, without the stored point %.2f\n",
        min (empty_us), min (log_us), min (off_us), best_ratio, min (off_us) / min (empty_us));
