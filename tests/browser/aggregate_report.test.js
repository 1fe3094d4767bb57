// SPDX-License-Identifier: BSD-3-Clause
// The aggregate report of one run, as a reader sees it in Chromium: virtual
// rendering beside the scroller, sorting by column heads, the System Info tab.
'use strict';
const { test } = require('node:test');
const assert = require('node:assert/strict');
const { browserForTests, settle, scrollTo } = require('./chromium');

const browser = browserForTests();

// The texts of the data rows now in the aggregate table.
function dataRows(page) {
  return page.evaluate(() => Array.from(document.querySelectorAll('#aggregateSummaryTable tr'))
    .filter((row) => /^aggRow\d+col0$/.test((row.querySelector('td') || {}).id))
    .map((row) => Array.from(row.querySelectorAll('td'), (cell) => cell.textContent)));
}

test('a trace with 150 phases shows at most 32 rows beside a scroller, and scrolling shows later phases', async () => {
  const { page, errors } = await browser.open('aggregate_time.html');
  const rows = await dataRows(page);
  const viewLength = await page.evaluate(() => aggDataView.Index.length);
  assert.ok(viewLength > 100, `the view holds ${viewLength} phases`);
  assert.ok(rows.length > 0 && rows.length <= 32, `${rows.length} real rows`);

  const layout = await page.evaluate(() => {
    const scroller = document.getElementById('aggregateSummaryScrollTableDiv');
    const table = document.getElementById('aggregateSummaryTable').getBoundingClientRect();
    const box = scroller.getBoundingClientRect();
    return { display: scroller.style.display, rows: scroller.querySelectorAll('tr').length,
             scrolls: scroller.scrollHeight > scroller.clientHeight, gap: Math.abs(box.left - table.right),
             beside: box.top >= table.top && box.bottom <= table.bottom + 40 };
  });
  // One blank scroller row per view entry; the scroller stands at the table's right.
  assert.deepEqual(layout, { display: 'block', rows: viewLength, scrolls: true, gap: layout.gap, beside: true });
  assert.ok(layout.gap < 30, `the scroller stands ${layout.gap} px from the table`);
  const firstNames = rows.map((row) => row[0]);
  await scrollTo(page, 'aggregateSummaryScrollTableDiv', 1);
  const scrolled = await dataRows(page);
  assert.equal(scrolled.length, rows.length, 'scrolling rewrites the rows in place');
  const lastName = await page.evaluate(() => Phase[aggData[aggDataView.Index[aggDataView.Index.length - 1]].Phase]);
  assert.equal(scrolled[scrolled.length - 1][0], lastName, 'the end of the scroller shows the last phase');
  assert.ok(scrolled.some((row) => !firstNames.includes(row[0])), 'later phases come into view');

  // The row count follows the window height.
  await page.setViewportSize({ width: 1280, height: 500 });
  await settle(page);
  const small = (await dataRows(page)).length;
  assert.ok(small > 0 && small < rows.length, `${small} rows in a low window`);
  await page.setViewportSize({ width: 1280, height: 1400 });
  await settle(page);
  assert.equal((await dataRows(page)).length, rows.length, 'the rows come back when the window grows');
  assert.deepEqual(errors, []);
});

test('a click on a column head sorts by that column, the next click reverses it', async () => {
  const { page, errors } = await browser.open('aggregate_time.html', { viewport: { width: 1280, height: 700 } });
  const clickHead = async (text) => {
    await page.locator('#aggregateSummaryTableFirstRow span', { hasText: text }).click();
    await settle(page);
  };
  const ascending = (a, b) => a - b;
  for (const order of [ascending, (a, b) => b - a]) {
    await clickHead('Wallclock Time (Secs)');
    const times = (await dataRows(page)).map((row) => Number(row[2]));
    assert.ok(times.length > 1);
    assert.deepEqual(times, [...times].sort(order));
    const allTimes = await page.evaluate(() => aggDataView.Index.map((i) => aggData[i].WCElapsed));
    assert.deepEqual(allTimes, [...allTimes].sort(order), 'the whole view is sorted');
  }
  // A new column always starts ascending; names sort without regard to case.
  await clickHead('Phase');
  const names = (await dataRows(page)).map((row) => row[0].toLowerCase());
  assert.deepEqual(names, [...names].sort());
  assert.deepEqual(errors, []);
});

test('the System Info tab shows the record (both records of a comparison) and hides the aggregate view', async () => {
  const cases = [
    { name: 'aggregate_time.html',
      shown: [/Processor:\s*Test CPU <model> "X"/, /Operating System:\s*Test OS <1\.0> & friends/,
              /<script>window\.injected = true;<\/script>/] },
    { name: 'aggdiff_time.html', shown: [/Left CPU[^]*Right CPU/] },
  ];
  for (const { name, shown } of cases) await browser.visit(name, {}, async (page) => {
    const visible = (selectors) => Promise.all(selectors.map((s) => page.locator(s).isVisible()));
    const views = ['#systemInfoTableDiv', '.sysInfoHeader', '#aggregateSummaryDiv', '#aggregateSummaryScrollTableDiv',
                   '.aggregateSumHeader'];
    assert.deepEqual(await visible(views), [false, false, true, true, true], `${name} after load`);
    await page.locator('.aggregateSumHeader a', { hasText: 'System Info' }).click();
    await settle(page);
    assert.deepEqual(await visible(views), [true, true, false, false, false], name);
    const text = await page.locator('#systemInfoTableDiv').innerText();
    for (const pattern of shown) assert.match(text, pattern, name);
    assert.equal(await page.evaluate(() => typeof window.injected), 'undefined', 'product text is shown, not run');

    await page.locator('.sysInfoHeader a', { hasText: 'Aggregate' }).click();
    await settle(page);
    assert.deepEqual(await visible(views.slice(0, 3)), [false, false, true], name);
    assert.ok((await dataRows(page)).length > 0);
  });
});

test('the memory variants of the aggregate report open with their columns, names not linked', async () => {
  const expected = {
    'aggregate_basicmemory.html': ['Process Usage Delta', 'Peak Usage Delta'],
    'aggregate_detailedmemory.html': ['Com', 'Res', 'Dll', 'OS', 'Free'],
  };
  for (const [name, heads] of Object.entries(expected)) await browser.visit(name, {}, async (page) => {
    const headText = await page.locator('#aggregateSummaryTableLastHeaderRow').innerText();
    for (const head of heads) assert.ok(headText.includes(head), `${name}: ${head}`);
    assert.equal(await page.locator('#aggregateSummaryTable a').count(), 0);
    await page.locator('#aggregateSummaryTableLastHeaderRow span').first().click();
    await settle(page);
  });
});
