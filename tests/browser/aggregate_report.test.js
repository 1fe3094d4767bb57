// The aggregate report of one run, as a reader sees it in Chromium: virtual
// rendering beside the scroller, sorting by column heads, the System Info tab.
'use strict';
const { test, before, after } = require('node:test');
const assert = require('node:assert/strict');
const { launchBrowser, openReport, settle } = require('./chromium');

let browser;
before(async () => { browser = await launchBrowser(); });
after(async () => { if (browser) await browser.close(); });

// The texts of the data rows now in the aggregate table.
function dataRows(page) {
  return page.evaluate(() => {
    const rows = [];
    for (const row of document.querySelectorAll('#aggregateSummaryTable tr')) {
      const first = row.querySelector('td');
      if (first && /^aggRow\d+col0$/.test(first.id)) {
        rows.push(Array.from(row.querySelectorAll('td')).map((cell) => cell.textContent));
      }
    }
    return rows;
  });
}

function numbersOf(texts) {
  return texts.map((text) => Number(text));
}

test('a trace with 150 phases shows at most 32 rows beside a scroller, and scrolling shows later phases', async () => {
  const { page, errors } = await openReport(browser, 'aggregate_time.html');
  const rows = await dataRows(page);
  const viewLength = await page.evaluate(() => aggDataView.Index.length);
  assert.ok(viewLength > 100, `the view holds ${viewLength} phases`);
  assert.ok(rows.length > 0 && rows.length <= 32, `${rows.length} real rows`);
  assert.equal(await page.locator('#aggregateSummaryTable tr td[id$="col0"]').count(), rows.length);

  const layout = await page.evaluate(() => {
    const scroller = document.getElementById('aggregateSummaryScrollTableDiv');
    const table = document.getElementById('aggregateSummaryTable').getBoundingClientRect();
    const box = scroller.getBoundingClientRect();
    return { display: scroller.style.display, scrollHeight: scroller.scrollHeight,
             clientHeight: scroller.clientHeight, fakeRows: scroller.querySelectorAll('tr').length,
             scrollerLeft: box.left, scrollerTop: box.top, scrollerBottom: box.bottom,
             tableRight: table.right, tableTop: table.top, tableBottom: table.bottom };
  });
  assert.equal(layout.display, 'block');
  assert.equal(layout.fakeRows, viewLength, 'one blank scroller row per view entry');
  assert.ok(layout.scrollHeight > layout.clientHeight, 'the scroller can scroll');
  assert.ok(Math.abs(layout.scrollerLeft - layout.tableRight) < 30,
            `scroller at ${layout.scrollerLeft}, table ends at ${layout.tableRight}`);
  assert.ok(layout.scrollerTop >= layout.tableTop && layout.scrollerBottom <= layout.tableBottom + 40,
            'the scroller stands beside the table');

  const firstNames = rows.map((row) => row[0]);
  await page.evaluate(() => {
    const scroller = document.getElementById('aggregateSummaryScrollTableDiv');
    scroller.scrollTop = scroller.scrollHeight;
  });
  await settle(page);
  const scrolled = await dataRows(page);
  assert.equal(scrolled.length, rows.length, 'scrolling rewrites the rows in place');
  const lastName = await page.evaluate(() => Phase[aggData[aggDataView.Index[aggDataView.Index.length - 1]].Phase]);
  assert.equal(scrolled[scrolled.length - 1][0], lastName, 'the end of the scroller shows the last phase');
  assert.ok(scrolled.some((row) => !firstNames.includes(row[0])), 'later phases come into view');
  assert.deepEqual(errors, []);
});

test('the row count follows the window height', async () => {
  const { page, errors } = await openReport(browser, 'aggregate_time.html', { width: 1280, height: 500 });
  const small = (await dataRows(page)).length;
  assert.ok(small > 0 && small < 32, `${small} rows in a low window`);
  await page.setViewportSize({ width: 1280, height: 1400 });
  await settle(page);
  const tall = (await dataRows(page)).length;
  assert.ok(tall > small && tall <= 32, `${tall} rows after the window grew`);
  assert.deepEqual(errors, []);
});

test('a click on a column head sorts by that column, the next click reverses it', async () => {
  const { page, errors } = await openReport(browser, 'aggregate_time.html', { width: 1280, height: 700 });
  const timeHead = page.locator('#aggregateSummaryTableFirstRow span', { hasText: 'Wallclock Time (Secs)' });
  await timeHead.click();
  await settle(page);
  let times = numbersOf((await dataRows(page)).map((row) => row[2]));
  assert.ok(times.length > 1);
  assert.deepEqual(times, [...times].sort((a, b) => a - b), 'ascending after the first click');
  let allTimes = await page.evaluate(() => aggDataView.Index.map((i) => aggData[i].WCElapsed));
  assert.deepEqual(allTimes, [...allTimes].sort((a, b) => a - b), 'the whole view is sorted');

  await timeHead.click();
  await settle(page);
  times = numbersOf((await dataRows(page)).map((row) => row[2]));
  assert.deepEqual(times, [...times].sort((a, b) => b - a), 'descending after the second click');

  // A new column always starts ascending; names sort without regard to case.
  await page.locator('#aggregateSummaryTableFirstRow span', { hasText: 'Phase' }).click();
  await settle(page);
  const names = (await dataRows(page)).map((row) => row[0].toLowerCase());
  assert.deepEqual(names, [...names].sort());
  assert.deepEqual(errors, []);
});

test('the System Info tab shows the record and hides the aggregate view', async () => {
  const { page, errors } = await openReport(browser, 'aggregate_time.html');
  assert.equal(await page.locator('#systemInfoTableDiv').isVisible(), false, 'hidden after load');
  await page.locator('.aggregateSumHeader a', { hasText: 'System Info' }).click();
  await settle(page);
  assert.equal(await page.locator('#systemInfoTableDiv').isVisible(), true);
  assert.equal(await page.locator('#aggregateSummaryDiv').isVisible(), false);
  assert.equal(await page.locator('#aggregateSummaryScrollTableDiv').isVisible(), false);
  assert.equal(await page.locator('.sysInfoHeader').isVisible(), true);
  assert.equal(await page.locator('.aggregateSumHeader').isVisible(), false);
  const text = await page.locator('#systemInfoTableDiv').innerText();
  assert.match(text, /Processor:\s*Test CPU <model> "X"/);
  assert.match(text, /Operating System:\s*Test OS <1\.0> & friends/);
  assert.match(text, /<script>window\.injected = true;<\/script>/, 'product text is shown, not run');
  assert.equal(await page.evaluate(() => typeof window.injected), 'undefined');

  await page.locator('.sysInfoHeader a', { hasText: 'Aggregate' }).click();
  await settle(page);
  assert.equal(await page.locator('#aggregateSummaryDiv').isVisible(), true);
  assert.equal(await page.locator('#systemInfoTableDiv').isVisible(), false);
  assert.ok((await dataRows(page)).length > 0);
  assert.deepEqual(errors, []);
});

test('the memory variants of the aggregate report open with their columns', async () => {
  const expected = {
    'aggregate_basicmemory.html': ['Process Usage Delta', 'Peak Usage Delta'],
    'aggregate_detailedmemory.html': ['Com', 'Res', 'Dll', 'OS', 'Free'],
  };
  for (const [name, heads] of Object.entries(expected)) {
    const { page, errors } = await openReport(browser, name);
    const headText = await page.locator('#aggregateSummaryTableLastHeaderRow').innerText();
    for (const head of heads) assert.ok(headText.includes(head), `${name}: ${head}`);
    const rows = await dataRows(page);
    assert.ok(rows.length > 0 && rows.length <= 32, `${name}: ${rows.length} rows`);
    // Phase names in an aggregate-only report are not links.
    assert.equal(await page.locator('#aggregateSummaryTable a').count(), 0);
    await page.mouse.move(200, 200);
    await page.mouse.move(300, 300);
    await page.locator('#aggregateSummaryTableLastHeaderRow span').first().click();
    await settle(page);
    assert.deepEqual(errors, []);
  }
});

test('the tabs of a detail report switch without errors, and the tab bar stays', async () => {
  const { page, errors } = await openReport(browser, 'detail_time.html');
  for (const tab of ['callTreeSummary', 'phaseSummary', 'systemInfo', 'aggregateSummary']) {
    await page.evaluate((name) => ShowTable(name), tab);
    await settle(page);
    assert.equal(await page.evaluate(() => activeTab), tab);
  }
  assert.ok(await page.locator('#aggregateSummaryTable td[id$="col0"]').first().isVisible());
  assert.deepEqual(errors, []);
});

test('a phase link of a single-run detail report opens the call tree tab', async () => {
  const { page, errors } = await openReport(browser, 'detail_time.html');
  await page.locator('#aggregateSummaryTable td[id$="col0"] a').first().click();
  await settle(page);
  assert.equal(await page.evaluate(() => activeTab), 'callTreeSummary');
  assert.deepEqual(errors, []);
});
