// SPDX-License-Identifier: BSD-3-Clause
// The Call Tree tab in Chromium: the merged tree folded and unfolded, check
// boxes and totals, the filter form, and the links from the aggregate table
// and to the Details tab.
'use strict';
const { test } = require('node:test');
const assert = require('node:assert/strict');
const { browserForTests, settle, cellTexts, expectedTotals } = require('./chromium');

const browser = browserForTests();
const openCallTree = (name) => browser.open(name, { tab: 'Call Tree' });

// The view as { name, count, checked, open } in display order.
function treeView(page) {
  return page.evaluate(() => CTDataView.Index.map((n, k) => ({
    name: Phase[procData[nodeArray[n].IDs[0]].Phase], count: nodeArray[n].IDs.length,
    checked: CTDataView.Checked[k] == 1 })));
}

const names = (rows) => rows.map((r) => r.name);

// The window row that shows a phase, by the text of its link.
function rowOf(page, name) {
  return page.locator('#callTreeSummaryTable tr[id^=CTR_]', {
    has: page.locator('a', { hasText: new RegExp(`^${name}$`) }) });
}

async function toggle(page, name) {
  await rowOf(page, name).locator('td.PlusMinusSpacer').click();
  await settle(page);
}

test('the tree opens two levels deep with loops merged, and a subtree folds and unfolds', async () => {
  const { page, errors } = await openCallTree('nested_time.html');
  const first = await treeView(page);
  assert.deepEqual(names(first), ['Outer', 'Loop', 'Loop_post', 'Deep 1', 'Deep 2', 'Tail']);
  assert.equal(first[1].count, 5, 'the five loop iterations are one node');
  assert.equal(await page.locator('#CT_aggregateTD').textContent(), 'Aggregate (N = 6)');
  const expander = (name) => rowOf(page, name).locator('td.PlusMinusSpacer').textContent();
  assert.deepEqual([await expander('Loop'), await expander('Outer')], ['[+]', '[-]']);
  // Each click on an expander, and the view after it; a leaf's changes nothing.
  const steps = [['Loop', '[-]', ['Outer', 'Loop', 'Inner', 'Inner_post', 'Loop_post', 'Deep 1', 'Deep 2', 'Tail']],
                 ['Outer', '[+]', ['Outer', 'Deep 1', 'Deep 2', 'Tail']],
                 ['Outer', '[-]', ['Outer', 'Loop', 'Loop_post', 'Deep 1', 'Deep 2', 'Tail']],
                 ['Tail', null, ['Outer', 'Loop', 'Loop_post', 'Deep 1', 'Deep 2', 'Tail']]];
  for (const [name, mark, view] of steps) {
    await toggle(page, name);
    assert.deepEqual(names(await treeView(page)), view, `after ${name}`);
    if (mark) assert.equal(await expander(name), mark, name);
  }
  // Shading follows depth: both children of Outer share one class.
  const classes = await page.evaluate(() => [2, 3, 4].map((r) => document.getElementById('ct_countTD' + r).className));
  assert.deepEqual(classes, ['dataCell phaseSummaryCell dataCellOdd', 'dataCell phaseSummaryCell dataCellOdd',
                             'dataCell phaseSummaryCell dataCellEven']);
  assert.deepEqual(errors, []);
});

test('a checked node sums its own executions into the totals, by metric', async () => {
  const reports = [
    { name: 'nested_time.html', totals: { CT_totalSelfTime: ['WCSelf', 'sum'] } },
    { name: 'nested_basicmemory.html',
      totals: { CT_totalDelta: ['UsageDelta', 'sum'], CT_totalUsage: ['Usage', 'max'],
                CT_totalPeakDelta: ['UsagePeakDelta', 'sum'], CT_totalPeak: ['UsagePeak', 'max'] } },
    { name: 'nested_detailedmemory.html',
      totals: { CT_totalCom: ['Committed', 'max'], CT_totalFree: ['Free', 'max'], CT_totalOS: ['NonProcess', 'max'] } },
  ];
  for (const { name, totals } of reports) await browser.visit(name, { tab: 'Call Tree' }, async (page) => {
    await toggle(page, 'Loop');
    await rowOf(page, 'Inner').locator('input[type=checkbox]').check();
    await rowOf(page, 'Tail').locator('input[type=checkbox]').check();
    await settle(page);
    const rows = await page.evaluate(() => procData.flatMap((row, i) => (['Inner', 'Tail'].includes(Phase[row.Phase]) ? [i] : [])));
    assert.equal(rows.length, 6);
    const expected = { ...(await expectedTotals(page, rows, totals)), CT_totalChecked: '2', CT_totalExecCount: '6' };
    assert.deepEqual(await cellTexts(page, Object.keys(expected)), Object.values(expected), name);
    // The header's box checks every row of the view.
    await page.locator('#AllCTChecked').check();
    await settle(page);
    assert.equal(await page.locator('#CT_totalChecked').textContent(), '' + (await treeView(page)).length);
  });
});

test('a filter keeps the way to a deep match open and checks the match; an invalid one leaves the tree', async () => {
  const { page, errors } = await openCallTree('nested_time.html');
  const refresh = async (value) => {
    if (!(await page.locator('#CT_FilterData').isVisible())) {
      await page.locator('#CT_userInputs a', { hasText: 'Filters' }).click();
    }
    await page.locator('#CT_phasename').fill(value);
    await page.locator('#CT_userInputs input[value=Refresh]').click();
    await settle(page);
  };
  await refresh('^Needle$');
  const rows = await treeView(page);
  assert.deepEqual(names(rows), ['Deep 1', 'Deep 2', 'Deep 3', 'Deep 4', 'Deep 5', 'Deep 6', 'Needle']);
  assert.deepEqual(rows.map((r) => r.checked), [false, false, false, false, false, false, true]);
  assert.equal(await page.locator('#CT_FilterDataDisp').textContent(), 'Phase::^Needle$');
  assert.equal(await rowOf(page, 'Needle').isVisible(), true);

  await refresh('Needle[');
  assert.match(await page.locator('#CT_FilterMessage').textContent(), /^Phase: "Needle\[" is not a valid regular expression/);
  assert.deepEqual(await treeView(page), rows);

  // Every cell empty: the first view again.
  await refresh('');
  assert.deepEqual(names(await treeView(page)).slice(0, 3), ['Outer', 'Loop', 'Loop_post']);
  assert.equal(await page.locator('#CT_FilterMessage').textContent(), '');
  assert.deepEqual(errors, []);
});

test('an aggregate link lands on its phase, and a node links to its executions in Details', async () => {
  const { page, errors } = await browser.open('nested_time.html');
  await page.locator('#aggregateSummaryTable a', { hasText: /^Needle$/ }).click();
  await settle(page);
  assert.equal(await page.evaluate(() => activeTab), 'callTreeSummary');
  assert.equal(await page.locator('#CT_phasename').inputValue(), 'Needle');
  assert.equal(await rowOf(page, 'Needle').locator('input[type=checkbox]').isChecked(), true);
  assert.equal(await page.locator('#CT_totalChecked').textContent(), '1');

  await page.locator('.callTreeHeader a', { hasText: 'Aggregate' }).click();
  await page.locator('#aggregateSummaryTable a', { hasText: /^Inner$/ }).click();
  await settle(page);
  await rowOf(page, 'Inner').locator('a').click();
  await settle(page);
  assert.equal(await page.evaluate(() => activeTab), 'phaseSummary');
  const rows = await page.evaluate(() => dataView.Index.map((i, k) => [Phase[procData[i].Phase], dataView.Checked[k]]));
  assert.deepEqual(rows, Array(5).fill(['Inner', 1]));
  assert.equal(await page.locator('#totalChecked').textContent(), '5');
  assert.equal(await page.locator('#totalSelfTime').textContent(), '0.75');
  assert.deepEqual(errors, []);
});

test('a filter opens the retained subtrees as the walk that splices each node in turn does', async () => {
  const { page, errors } = await openCallTree('nested_time.html');
  const mismatches = await page.evaluate(() => {
    let seed = 11;
    const random = () => (seed = (seed * 1103515245 + 12345) % 2147483648) / 2147483648;
    // The walk as a splice per inserted row.
    function plainExpand() {
      let maxSelf = -99999;
      let nodeToExpandTo = 0;
      for (let i = 0; i < CTDataView.Index.length; i++) {
        const node = nodeArray[CTDataView.Index[i]];
        if (contains(expandTreeToIndex, node.index)) {
          CTDataView.Checked[i] = true;
          let self = 0;
          for (const id of node.IDs) self += procData[id].WCSelf;
          if (self > maxSelf) { maxSelf = self; nodeToExpandTo = i; }
        }
        const childIDs = getIDArray(node.children);
        let firstIdx = i + 1;
        for (let c = 0; c < childIDs.Index.length; c++) {
          const id = childIDs.Index[c];
          CTDataView.Index.splice(firstIdx, 0, id);
          CTDataView.Checked.splice(firstIdx, 0, contains(expandTreeToIndex, id) ? true : childIDs.Checked[c]);
          firstIdx++;
          nodeArray[id].show = true;
        }
      }
      return nodeToExpandTo;
    }
    const found = [];
    for (let round = 0; round < 200; round++) {
      const count = 1 + Math.floor(random() * 25);
      const nodes = [];
      procData = [];
      for (let n = 0; n < count; n++) {
        const parent = n == 0 || random() < 0.2 ? n : Math.floor(random() * n);
        const ids = [procData.length];
        procData.push({ WCSelf: Math.floor(random() * 5) });
        nodes.push({ index: n, IDs: ids, Parent: parent, children: [], show: random() < 0.5 });
        if (parent != n) nodes[parent].children.push(nodes[n]);
      }
      const view = [];
      const marks = [];
      for (let v = Math.floor(random() * 4); v >= 0; v--) { view.push(Math.floor(random() * count)); marks.push(0); }
      const matches = nodes.filter(() => random() < 0.3).map((node) => node.index);
      const shows = nodes.map((node) => node.show);
      const run = (expand) => {
        nodeArray = nodes;
        nodes.forEach((node, k) => { node.show = shows[k]; });
        CTDataView.Index = view.slice();
        CTDataView.Checked = marks.slice();
        expandTreeToIndex = matches.slice();
        const at = expand();
        return JSON.stringify([at, CTDataView.Index, CTDataView.Checked, nodes.map((node) => node.show)]);
      };
      const expected = run(plainExpand);
      const actual = run(expandFilteredView);
      if (expected != actual) found.push({ expected, actual });
    }
    return found;
  });
  assert.deepEqual(mismatches.slice(0, 2), []);
  assert.deepEqual(errors, []);
});
