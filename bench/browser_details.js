// Browser benchmark of the detail and call tree tables: pages written by
// tg_make_reports bench-tables (a detail report of a million raw points, call
// trees of 100 000 nodes deep and wide), opened in Chromium. Prints the median
// of each measure. Usage: node bench/browser_details.js [BUILD_DIR]
'use strict';
const { execFileSync } = require('child_process');
const fs = require('fs');
const os = require('os');
const path = require('path');

const root = path.resolve(__dirname, '..');
const build = path.resolve(process.argv[2] || path.join(root, 'build'));
const work = fs.mkdtempSync(path.join(os.tmpdir(), 'tg-bench-tables-'));
process.env.TG_REPORT_DIR = work;
const { launchBrowser, openReport, settle } = require(path.join(root, 'tests/browser/chromium'));

function median(values) {
  const sorted = [...values].sort((a, b) => a - b);
  return sorted[Math.floor(sorted.length / 2)];
}

function report(name, values, goal) {
  const m = median(values);
  console.log(`${name.padEnd(44)} median ${m.toFixed(1).padStart(8)} ms  (${values.length} runs, goal < ${goal} ms)`);
}

// Runs `action` (a page function) and returns its time in ms, layout included.
function timed(page, action, arg) {
  return page.evaluate(([source, argument]) => {
    const run = new Function('arg', source);
    const start = performance.now();
    run(argument);
    void document.body.offsetHeight;
    return performance.now() - start;
  }, [action, arg]);
}

async function details(browser) {
  const firstRows = [];
  const loads = [];
  for (let i = 0; i < 3; i++) {
    const page = await browser.context.newPage();
    const start = Date.now();
    await page.goto('file://' + path.join(work, 'details_1m.html'), { waitUntil: 'load', timeout: 120000 });
    loads.push(Date.now() - start);
    await page.evaluate(() => { ShowTable('phaseSummary'); userInputsAction(); });
    await page.waitForSelector('#phaseTD0');
    firstRows.push(Date.now() - start);
    if (i < 2) await page.close();
    else {
      const rows = await page.evaluate(() => dataView.Index.length);
      const scroll = [];
      for (let s = 0; s < 60; s++) {
        scroll.push(await timed(page, `
          var scroller = document.getElementById('phaseSummaryScrollTableDiv');
          scroller.scrollTop = (arg * 7919 % 1000) / 1000 * (scroller.scrollHeight - scroller.clientHeight);
          reGenerateTable(scroller, 'Detail');`, s));
      }
      const filter = [];
      const sort = [];
      for (let r = 0; r < 5; r++) {
        filter.push(await timed(page, `
          document.getElementById('phasename').value = '^Step 042$';
          document.getElementById('Sort_phasename').value = '';
          document.getElementById('Sort_self').value = '';
          userInputsAction();`));
        sort.push(await timed(page, `
          document.getElementById('phasename').value = '';
          document.getElementById('Sort_phasename').value = '1';
          document.getElementById('Sort_self').value = '2';
          userInputsAction();`));
      }
      const kept = await page.evaluate(() => { document.getElementById('phasename').value = '^Step 042$'; userInputsAction(); return dataView.Index.length; });
      console.log(`detail report: ${rows} rows, the filter keeps ${kept}`);
      report('details: navigation to first rows', firstRows, 5000);
      report('  of which the page load (data script)', loads, 5000);
      report('details: one scroll step', scroll, 16);
      report('details: filter keeping 1%', filter, 1000);
      report('details: two-rank sort of every row', sort, 2000);
      await page.close();
    }
  }
}

async function callTree(browser, name, foldNode) {
  const open = [];
  let page;
  for (let i = 0; i < 3; i++) {
    if (page) await page.close();
    page = await browser.context.newPage();
    await page.goto('file://' + path.join(work, name), { waitUntil: 'load', timeout: 120000 });
    await settle(page);
    open.push(await timed(page, "ShowTable('callTreeSummary');"));
  }
  const unfold = [];
  const fold = [];
  for (let r = 0; r < 3; r++) {
    unfold.push(await timed(page, `
      document.getElementById('CT_phasename').value = '.';
      CT_userInputsAction();`));
  }
  const nodes = await page.evaluate(() => CTDataView.Index.length);
  // Folds and unfolds, in turn, the node at view position `foldNode` of the
  // unfolded tree, shown in the window's row of that number.
  await page.evaluate(() => { lastStartIndex['CallTree'] = 0; renderCTDetailTable(); });
  for (let f = 0; f < 10; f++) {
    fold.push(await timed(page, 'toggleCallTreeChildren(arg, CTDataView.Index[arg], arg);', foldNode));
  }
  await page.close();
  console.log(`${name}: ${nodes} rows unfolded`);
  report(`${name}: open the tab`, open, 2000);
  report(`${name}: unfold all (filter ".")`, unfold, 2000);
  report(`${name}: one fold or unfold`, fold, 50);
}

(async () => {
  execFileSync(path.join(build, 'tg_make_reports'), ['bench-tables', work], { stdio: 'inherit' });
  const browser = await launchBrowser();
  try {
    await details(browser);
    await callTree(browser, 'tree_deep.html', 1);
    await callTree(browser, 'tree_wide.html', 0);
  } finally {
    await browser.close();
    fs.rmSync(work, { recursive: true, force: true });
  }
})().catch((error) => {
  console.error(error);
  process.exit(1);
});
