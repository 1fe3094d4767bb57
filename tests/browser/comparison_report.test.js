// SPDX-License-Identifier: BSD-3-Clause
// The aggregate difference report in Chromium: band classes on the deviation
// cells, "NA" for the run that lacks a phase, sorting; and every report kind
// opening without a script error.
'use strict';
const fs = require('fs');
const path = require('path');
const { test } = require('node:test');
const assert = require('node:assert/strict');
const { browserForTests, settle } = require('./chromium');

const browser = browserForTests();

const BAND = /\s(GT50|BETWN_\d+_\d+|BETWN_M\d+_M?\d+|LTM50)(\s|$)/;

// Cells of each data row by phase name: { column: { text, className } }.
function rowsByPhase(page) {
  return page.evaluate(() => {
    const rows = {};
    for (const row of document.querySelectorAll('#aggregateSummaryTable tr')) {
      const cells = Array.from(row.querySelectorAll('td'));
      if (!cells.length || !/^aggRow\d+col0$/.test(cells[0].id)) continue;
      rows[cells[0].textContent] = Object.fromEntries(cells.map((cell) => [
        cell.id.replace(/^.*col/, ''), { text: cell.textContent, className: cell.className }]));
    }
    return rows;
  });
}

// Texts of [phase, column] cells.
const texts = (rows, cells) => cells.map(([phase, column]) => rows[phase][column].text);

test('the time comparison bands its relative deviations, shows NA where a run lacks the phase, and sorts', async () => {
  const { page, errors } = await browser.open('aggdiff_time.html');
  const relDevHead = page.locator('#aggregateSummaryTableLastHeaderRow span', { hasText: 'Rel Dev' });
  const ascending = (a, b) => a - b;
  // As loaded, then sorted each way by the relative deviation: the classes
  // and texts stay with their rows.
  for (const order of [null, ascending, (a, b) => b - a]) {
    if (order) {
      await relDevHead.click();
      await settle(page);
      const values = await page.evaluate(() => aggDataView.Index.map((i) => aggData[i].WCSelfRelDev));
      assert.deepEqual(values, [...values].sort(order));
    }
    const rows = await rowsByPhase(page);
    assert.deepEqual(Object.keys(rows).sort(),
                     ['Compared run', 'Only left', 'Only right', 'Shared fast', 'Shared same', 'Shared slow']);
    assert.match(rows['Shared slow'][7].className, /^dataCell lastColumnCell dataCell(Odd|Even) GT50$/);
    assert.match(rows['Shared fast'][7].className, /\sLTM50$/);
    assert.match(rows['Shared same'][7].className, /\sBETWN_M5_0$/);
    for (const row of Object.values(rows)) assert.match(row[7].className, BAND);
    // Counts, then times: left, right, deviation. A one-sided phase's count
    // deviation is its present count.
    assert.deepEqual(texts(rows, [['Only left', 1], ['Only left', 2], ['Only left', 3], ['Only left', 4], ['Only left', 5],
                                  ['Only right', 1], ['Only right', 4], ['Only right', 5], ['Shared slow', 6]]),
                     ['1', 'NA', '1', '0.70', 'NA', 'NA', 'NA', '0.70', '2.00']);
  }
  const heads = await page.locator('#aggregateSummaryTableLastHeaderRow').innerText();
  assert.match(heads, /Before <run>\s*\(Baseline\)/, 'the labels are shown as text');
  assert.deepEqual(errors, []);
});

test('the memory comparisons band every relative deviation column', async () => {
  const relDevColumns = {
    'aggdiff_basicmemory.html': [7, 15],
    'aggdiff_detailedmemory.html': [7, 11, 15, 19, 23],
  };
  for (const [name, columns] of Object.entries(relDevColumns)) await browser.visit(name, {}, async (page) => {
    const rows = await rowsByPhase(page);
    assert.ok(Object.keys(rows).length >= 5, name);
    for (const [phase, row] of Object.entries(rows)) {
      for (const column of columns) assert.match(row[column].className, BAND, `${name} ${phase} col${column}`);
    }
    assert.deepEqual(texts(rows, [['Only left', 5], ['Only right', 4]]), ['NA', 'NA'], name);
    assert.equal(await page.locator('#aggregateSummaryTableSecondRow').count(), 1);
  });
});

test('every report written opens and shows its aggregate view without a script error', async () => {
  const names = fs.readFileSync(path.join(process.env.TG_REPORT_DIR, 'index.txt'), 'utf8').split('\n').filter(Boolean);
  assert.ok(names.length >= 12, names.join(', '));
  for (const name of names) {
    assert.ok(!name.endsWith('FAILED'), name);
    const { page, errors } = await browser.open(name);
    assert.equal(await page.locator('#aggregateSummaryDiv').isVisible(), true, name);
    assert.ok(await page.locator('#aggregateSummaryTable td[id$="col0"]').count() > 0, name);
    await page.setViewportSize({ width: 900, height: 600 });
    await page.mouse.move(100, 100);
    await page.mouse.move(400, 200);
    await settle(page);
    assert.deepEqual(errors, [], name);
    await page.close();
  }
});
