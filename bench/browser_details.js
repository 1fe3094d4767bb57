// SPDX-License-Identifier: BSD-3-Clause
// Browser benchmark of the detail and call tree tables: pages written by
// tg_make_reports bench-tables (a detail report of a million raw points, call
// trees of 100 000 nodes deep and wide), opened in Chromium. Prints the median
// of each measure. Usage: node bench/browser_details.js [BUILD_DIR]
'use strict';
const path = require('path');

const root = path.resolve(__dirname, '..');
const build = path.resolve(process.argv[2] || path.join(root, 'build'));
const { openReport, median, timed, benchPages } = require(path.join(root, 'tests/browser/chromium'));

function report(name, values, goal) {
  console.log(`${name.padEnd(44)} median ${median(values).toFixed(1).padStart(8)} ms  (${values.length} runs, goal < ${goal} ms)`);
}

// Times `count` runs of the page function body `source` (given the run's number).
async function repeat(page, count, source) {
  const times = [];
  for (let i = 0; i < count; i++) times.push(await timed(page, source, i));
  return times;
}

// The Details form filled in and applied: a phase filter and two sort ranks.
const applyForm = (phase, rankName, rankSelf) => `
  document.getElementById('phasename').value = '${phase}';
  document.getElementById('Sort_phasename').value = '${rankName}';
  document.getElementById('Sort_self').value = '${rankSelf}';
  userInputsAction(); return dataView.Index.length;`;

async function details(browser, work) {
  const firstRows = [];
  const loads = [];
  let page;
  for (let i = 0; i < 3; i++) {
    if (page) await page.close();
    page = await browser.context.newPage();
    const start = Date.now();
    await page.goto('file://' + path.join(work, 'details_1m.html'), { waitUntil: 'load', timeout: 120000 });
    loads.push(Date.now() - start);
    await page.evaluate(() => { ShowTable('phaseSummary'); userInputsAction(); });
    await page.waitForSelector('#phaseTD0');
    firstRows.push(Date.now() - start);
  }
  const rows = await page.evaluate(() => dataView.Index.length);
  const scroll = await repeat(page, 60, `
    var scroller = document.getElementById('phaseSummaryScrollTableDiv');
    scroller.scrollTop = (arg * 7919 % 1000) / 1000 * (scroller.scrollHeight - scroller.clientHeight);
    reGenerateTable(scroller, 'Detail');`);
  const filter = [];
  const sort = [];
  for (let r = 0; r < 5; r++) {
    filter.push(await timed(page, applyForm('^Step 042$', '', '')));
    sort.push(await timed(page, applyForm('', '1', '2')));
  }
  const kept = await page.evaluate(new Function(applyForm('^Step 042$', '', '')));
  await page.close();
  console.log(`detail report: ${rows} rows, the filter keeps ${kept}`);
  report('details: navigation to first rows', firstRows, 5000);
  report('  of which the page load (data script)', loads, 5000);
  report('details: one scroll step', scroll, 16);
  report('details: filter keeping 1%', filter, 1000);
  report('details: two-rank sort of every row', sort, 2000);
}

async function callTree(browser, name, foldNode) {
  const open = [];
  let page;
  for (let i = 0; i < 3; i++) {
    if (page) await page.close();
    ({ page } = await openReport(browser, name, { timeout: 120000 }));
    open.push(await timed(page, "ShowTable('callTreeSummary');"));
  }
  const unfold = await repeat(page, 3, "document.getElementById('CT_phasename').value = '.'; CT_userInputsAction();");
  const nodes = await page.evaluate(() => CTDataView.Index.length);
  // Folds and unfolds, in turn, the node at view position `foldNode` of the
  // unfolded tree, shown in the window's row of that number.
  await page.evaluate(() => { lastStartIndex['CallTree'] = 0; renderCTDetailTable(); });
  const fold = [];
  for (let f = 0; f < 10; f++) fold.push(await timed(page, 'toggleCallTreeChildren(arg, CTDataView.Index[arg], arg);', foldNode));
  await page.close();
  console.log(`${name}: ${nodes} rows unfolded`);
  report(`${name}: open the tab`, open, 2000);
  report(`${name}: unfold all (filter ".")`, unfold, 2000);
  report(`${name}: one fold or unfold`, fold, 50);
}

benchPages(build, ['bench-tables'], async (browser, work) => {
  await details(browser, work);
  await callTree(browser, 'tree_deep.html', 1);
  await callTree(browser, 'tree_wide.html', 0);
});
