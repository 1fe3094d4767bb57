// SPDX-License-Identifier: BSD-3-Clause
// Browser benchmark of the memory charts: a chart of one run of 100 000 phase
// executions and a comparison of two runs of 50 000 each, opened in Chromium.
// Prints the time to the first drawn chart (the chart's build and drawing at
// load and the showing of its tab; the whole page's load beside it) and the
// median redraw of one scroll step. Usage: node bench/browser_memchart.js BUILD_DIR [EXECUTIONS]
'use strict';
const path = require('path');
const root = path.resolve(__dirname, '..');
const { openReport, median, benchPages } = require(path.join(root, 'tests/browser/chromium'));

const build = path.resolve(process.argv[2] || path.join(root, 'build'));
const executions = Number(process.argv[3] || 100000);
const RUNS = 5;
const STEPS = 60;

// One opening of the page: its load and the share of the load handlers, which
// build the views and draw the chart; then STEPS scroll steps of the dummy,
// each timed until its drawing is on the canvas.
async function measure(browser, name, dummyId, canvasId) {
  // Times the chart's own work at load: its build and first drawing, and the
  // refit that the load's resize handler asks of it.
  const init = () => {
    window.chartMs = 0;
    document.addEventListener('DOMContentLoaded', () => {
      for (const name of ['renderMemChart', 'canvasResizeAction']) {
        const original = window[name];
        window[name] = function () {
          const start = performance.now();
          const result = original.apply(this, arguments);
          window.chartMs += performance.now() - start;
          return result;
        };
      }
    });
  };
  const { page, errors } = await openReport(browser, name, { init });
  const load = await page.evaluate(() => {
    const nav = performance.getEntriesByType('navigation')[0];
    return { total: nav.loadEventEnd, handlers: nav.loadEventEnd - nav.loadEventStart };
  });
  load.chart = await page.evaluate(() => {
    const start = performance.now();
    ShowTable('memCanvas');
    return window.chartMs + performance.now() - start;
  });
  const steps = await page.evaluate(([dummyId, canvasId, count]) => {
    const dummy = document.getElementById(dummyId);
    const ctx = document.getElementById(canvasId).getContext('2d');
    const step = (dummy.scrollWidth - dummy.clientWidth) / (count + 1);
    const times = [];
    for (let i = 1; i <= count; i++) {
      dummy.scrollLeft = Math.round(i * step);
      const start = performance.now();
      swapCanvas(dummy);
      ctx.getImageData(0, 0, 1, 1);
      times.push(performance.now() - start);
    }
    return times;
  }, [dummyId, canvasId, STEPS]);
  await page.close();
  if (errors.length) throw new Error(errors.join('; '));
  return { load, redraw: median(steps) };
}

const charts = [
  ['memory chart, one run of ' + executions, 'memchart.html', 'fakecanvasdiv', 'scrollcanvas', 1000],
  ['comparison chart, two runs of ' + executions / 2, 'diffchart.html', 'fakeCanvasDiffDiv', 'absDevCanvasDiff', 1500],
];
benchPages(build, ['bench', String(executions)], async (browser) => {
  for (const [title, name, dummyId, canvasId, goal] of charts) {
    const results = [];
    for (let r = 0; r < RUNS; r++) results.push(await measure(browser, name, dummyId, canvasId));
    const [total, handlers, chart] = ['total', 'handlers', 'chart'].map((k) => median(results.map((r) => r.load[k])));
    const redraw = median(results.map((r) => r.redraw));
    console.log(`${title}: first chart ${chart.toFixed(0)} ms (goal ${goal} ms; the whole page from navigation ` +
                `${total.toFixed(0)} ms, of it the load handlers ${handlers.toFixed(0)} ms), redraw of one scroll ` +
                `step ${redraw.toFixed(2)} ms (goal 16 ms); medians of ${RUNS} openings`);
  }
});
