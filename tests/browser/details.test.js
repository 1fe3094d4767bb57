// SPDX-License-Identifier: BSD-3-Clause
// The Details tab in Chromium: filters and sorts typed into its form, check
// boxes and their totals, the phase links of a comparison.
'use strict';
const { test } = require('node:test');
const assert = require('node:assert/strict');
const { browserForTests, settle, scrollTo, cellTexts, expectedTotals } = require('./chromium');

const browser = browserForTests();
const openDetails = (name, options) => browser.open(name, { tab: 'Details', ...options });

// Fills form cells by id (every other cell emptied) and presses Refresh.
async function refresh(page, cells) {
  await page.evaluate((values) => {
    for (const input of document.querySelectorAll('#userInputs input[type=text]')) input.value = values[input.id] || '';
  }, cells);
  await page.locator('#userInputs input[value=Refresh]').click();
  await settle(page);
}

// The view as names, self times and marks, in display order.
function view(page) {
  return page.evaluate(() => dataView.Index.map((i, k) => ({
    row: i, name: Phase[procData[i].Phase], self: procData[i].WCSelf, checked: dataView.Checked[k] == 1 })));
}

test('filter cells take regular expressions and narrow one another; "_self" passes "_post" names; bad ones are named', async () => {
  const { page, errors } = await openDetails('nested_time.html');
  const cases = [
    { cells: { phasename: '^Deep [2-4]$' }, names: ['Deep 2', 'Deep 3', 'Deep 4'] },
    { cells: { phasename: 'Inner' }, names: ['Inner', 'Inner_post'] },
    { cells: { phasename: '_self' }, names: ['Inner_post', 'Loop_post'] },
    { cells: { phasename: 'Deep|Needle', groupingname: '^Workload$' },
      names: ['Deep 1', 'Deep 2', 'Deep 3', 'Deep 4', 'Deep 5', 'Deep 6', 'Needle'] },
    { cells: { phasename: '.', groupingname: 'no such grouping' }, names: [] },
  ];
  for (const { cells, names } of cases) {
    await refresh(page, cells);
    const rows = await view(page);
    assert.deepEqual([...new Set(rows.map((r) => r.name))].sort(), names, JSON.stringify(cells));
    assert.ok(rows.every((r) => !r.checked), 'a refresh clears the marks');
    const shown = await page.locator('#aggTD').textContent();
    assert.equal(shown, `Aggregate (N = ${rows.length})`);
  }
  // Every cell empty: all executions in their order, nothing checked.
  await refresh(page, {});
  const all = await view(page);
  const total = await page.evaluate(() => procData.length - numBlankData);
  assert.deepEqual(all.map((r) => r.row), [...Array(total).keys()]);
  assert.deepEqual(await cellTexts(page, ['execTD0', 'execTD1', 'totalChecked']), ['0', '1', '0']);
  // A cell without a valid expression is named, and the table keeps its rows.
  await refresh(page, { phasename: 'Deep' });
  const before = await view(page);
  await refresh(page, { phasename: 'Deep (', Sort_self: '1' });
  assert.match(await page.locator('#FilterMessage').textContent(), /^Phase: "Deep \(" is not a valid regular expression/);
  assert.match(await page.locator('#phasename').getAttribute('title'), /not a valid regular expression/);
  assert.equal(await page.locator('#FilterData').isVisible(), true, 'the filter pane stays open on the cell');
  assert.deepEqual(await view(page), before);
  assert.equal(await page.locator('#phaseTD0').textContent(), 'Deep 1(Grouping:Workload)');
  await refresh(page, { phasename: 'Deep [16]' });
  assert.equal(await page.locator('#FilterMessage').textContent(), '');
  assert.deepEqual((await view(page)).map((r) => r.name), ['Deep 1', 'Deep 6']);
  assert.deepEqual(errors, []);
});

test('the view is ordered as quicksort orders it, for random rows and every kind of key', async () => {
  const { page, errors } = await openDetails('nested_time.html');
  const mismatches = await page.evaluate(() => {
    let seed = 7;
    const random = () => (seed = (seed * 1103515245 + 12345) % 2147483648) / 2147483648;
    const values = [0, 0.004, 1.5, 1.5, 12.345, 999999, 1000001, 5e7, -3, -99.99, -1e9, 1e12, NaN];
    const wide = [-9.8e7, -1e9, -3, 2];
    const found = [];
    for (let round = 0; round < 300; round++) {
      // Names that begin one another, in mixed case, so that the phase key
      // runs into the next column's text.
      Phase = ['ab', 'AB', 'abc', 'b', 'a', 'Ab_post', 'z', ''];
      procData = [];
      const count = 1 + Math.floor(random() * 40);
      const pick = (list) => list[Math.floor(random() * list.length)];
      // Plain hundredths; keys longer than ten characters; every kind at once.
      const kind = Math.floor(random() * 3);
      for (let i = 0; i < count; i++) {
        procData.push({ Phase: Math.floor(random() * Phase.length),
                        WCSelf: kind == 0 ? Math.floor(random() * 500) / 100 : pick(kind == 1 ? wide : values),
                        WCElapsed: Math.floor(random() * 4) });
      }
      const columns = [['Phase'], ['WCSelf'], ['Phase', 'WCSelf'], ['WCElapsed', 'Phase'], ['WCSelf', 'WCElapsed'],
                       [undefined, 'WCSelf'], ['Phase', 'WCElapsed', 'WCSelf'], ['ExecOrder']][round % 8];
      const indices = procData.map((_, i) => i).filter(() => random() < 0.8);
      const expected = quicksort(indices.slice(0), columns);
      const actual = detailSortOrder(indices, columns);
      if (JSON.stringify(expected) != JSON.stringify(actual)) found.push({ columns, expected, actual });
    }
    return found;
  });
  assert.deepEqual(mismatches.slice(0, 3), []);
  assert.deepEqual(errors, []);
});

test('check boxes sum their rows into the totals, by metric, and the header box marks the whole view', async () => {
  const reports = [
    { name: 'nested_time.html', totals: { totalSelfTime: ['WCSelf', 'sum'] } },
    { name: 'nested_basicmemory.html',
      totals: { totalUsageDelta: ['UsageDelta', 'sum'], totalUsage: ['Usage', 'max'],
                totalUsagePeakDelta: ['UsagePeakDelta', 'sum'], totalUsagePeak: ['UsagePeak', 'max'] } },
    { name: 'nested_detailedmemory.html',
      totals: { totalCom: ['Committed', 'max'], totalRes: ['Reserved', 'max'], totalDll: ['Dlls', 'max'],
                totalOS: ['NonProcess', 'max'], totalFree: ['Free', 'max'] } },
  ];
  // A low window, so that the view is longer than the table.
  const lowWindow = { tab: 'Details', viewport: { width: 1280, height: 700 } };
  for (const { name, totals } of reports) await browser.visit(name, lowWindow, async (page) => {
    await refresh(page, {});
    const expectTotals = async (rows, label) => {
      const expected = { ...(await expectedTotals(page, rows, totals)), totalChecked: '' + rows.length };
      assert.deepEqual(await cellTexts(page, Object.keys(expected)), Object.values(expected), `${name}: ${label}`);
    };
    const click = async (box, checked) => {
      await page.locator(box).setChecked(checked);
      await settle(page);
    };
    await page.locator('#checkBox1').check();
    await click('#checkBox3', true);
    await expectTotals([1, 3], 'two rows');
    await click('#AllChecked', true);
    const length = await page.evaluate(() => dataView.Index.length);
    const windowRows = await page.locator('#phaseSummaryTable input[id^=checkBox]').count();
    assert.ok(windowRows < length, `${name}: ${windowRows} of ${length} rows in the window`);
    await expectTotals([...Array(length).keys()], 'every row');
    // Rows scrolled into the window show the mark of the view.
    await scrollTo(page, 'phaseSummaryScrollTableDiv', 1);
    assert.equal(await page.locator(`#checkBox${length - 1}`).isChecked(), true, `${name}: the last row is marked`);
    await click(`#checkBox${length - 1}`, false);
    assert.equal(await page.locator('#AllChecked').isChecked(), false, `${name}: the header box clears`);
    await expectTotals([...Array(length - 1).keys()], 'all but the last row');
  });
});

test('a phase link of a comparison opens its executions checked, with "NA" for the run that lacks it', async () => {
  const cases = [
    { name: 'diff_time.html', phase: 'Shared slow', cells: { row0col1: '1.00', row0col2: '3.00', row0col3: '2.00' },
      totals: { totalLHS_WC: '1.00', totalRHS_WC: '3.00', totalAbsDev_WC: '2.00' } },
    // The deviations of a one-sided phase are those of its present side.
    { name: 'diff_time.html', phase: 'Only right', cells: { row0col1: 'NA', row0col2: '0.70', row0col3: '0.70' },
      totals: { totalLHS_WC: '0.00', totalRHS_WC: '0.70', totalAbsDev_WC: '0.70' } },
    { name: 'diff_basicmemory.html', phase: 'Only right',
      cells: { row0col1: 'NA', row0col5: 'NA', row0col9: 'NA', row0col13: 'NA', row0col2: '4.00' } },
    { name: 'diff_detailedmemory.html', phase: 'Only left',
      cells: { row0col2: 'NA', row0col6: 'NA', row0col10: 'NA', row0col14: 'NA', row0col18: 'NA' } },
  ];
  for (const { name, phase, cells, totals } of cases) await browser.visit(name, {}, async (page) => {
    await page.locator('#aggregateSummaryTable a', { hasText: new RegExp(`^${phase}$`) }).click();
    await settle(page);
    assert.equal(await page.locator('#phasename').inputValue(), phase);
    const rows = await view(page);
    assert.ok(rows.length > 0 && rows.every((r) => r.name == phase && r.checked), `${name}: ${JSON.stringify(rows)}`);
    assert.equal(await page.locator('#AllChecked').isChecked(), true);
    const shown = { ...cells, ...totals };
    assert.deepEqual(await cellTexts(page, Object.keys(shown)), Object.values(shown), `${name} ${phase}`);
  });
});

test('sort cells rank their columns, and each orders the view by its own field, in every report kind', async () => {
  const byName = (a, b) => (a.name.toLowerCase() < b.name.toLowerCase() ? -1 : a.name.toLowerCase() > b.name.toLowerCase() ? 1 : 0);
  const hundredths = (v) => Math.round(v * 100);
  // A repeated rank keeps the later cell, the ranks around a gap still count,
  // the Exec Order cell is not read.
  const rankCases = [
    { cells: { Sort_phasename: '1', Sort_self: '2' },
      ordered: (a, b) => byName(a, b) < 0 || (byName(a, b) == 0 && hundredths(a.self) >= hundredths(b.self)) },
    { cells: { Sort_phasename: '1', Sort_self: '1' }, ordered: (a, b) => hundredths(a.self) >= hundredths(b.self) },
    { cells: { Sort_self: '2' }, ordered: (a, b) => hundredths(a.self) >= hundredths(b.self) },
    { cells: { Sort_execorder: '1' }, ordered: (a, b) => a.row < b.row },
  ];
  // Cells whose field is not their id without "Sort_"; the Abs Dev cell of a
  // time comparison names no field and orders nothing.
  const fieldOf = { Sort_self: 'WCSelf', Sort_selfPchild: 'WCElapsed', Sort_WCSelfAbsDev: null };
  const reports = ['nested_time.html', 'nested_basicmemory.html', 'nested_detailedmemory.html', 'diff_time.html',
                   'diff_basicmemory.html', 'diff_detailedmemory.html'];
  for (const name of reports) await browser.visit(name, { tab: 'Details' }, async (page) => {
    for (const { cells, ordered } of name == 'nested_time.html' ? rankCases : []) {
      await refresh(page, cells);
      const rows = await view(page);
      for (let i = 1; i < rows.length; i++) {
        assert.ok(ordered(rows[i - 1], rows[i]), `${JSON.stringify(cells)}: ${rows[i - 1].name} before ${rows[i].name}`);
      }
    }
    const ids = await page.evaluate(() => Array.from(document.querySelectorAll('#SortData table[caption=Time] input, ' +
                                                                             '#SortData table[caption=Memory] input'), (input) => input.id));
    assert.ok(ids.length >= 2, `${name}: ${ids}`);
    for (const id of ids) {
      await refresh(page, { [id]: '1' });
      const field = id in fieldOf ? fieldOf[id] : id.slice('Sort_'.length);
      const order = await page.evaluate((f) => dataView.Index.map((i) => (f ? Math.round(procData[i][f] * 100) : i)), field);
      const expected = field ? [...order].sort((a, b) => b - a) : [...order].sort((a, b) => a - b);
      assert.deepEqual(order, expected, `${name}: ${id} orders by ${field}`);
    }
    if (name == 'diff_detailedmemory.html') {
      const names = await page.evaluate(() => ['Sort_LHS_Free', 'Sort_FreeAbsDev', 'Sort_NonProcessRelDev'].map(
        (id) => document.getElementById(id).name));
      assert.deepEqual(names, ['Sort_LHS_free', 'Sort_AbsDev_free', 'Sort_RelDev_os']);
    }
  });
});
