// The aggregate difference report in Chromium: band classes on the deviation
// cells, "NA" for the run that lacks a phase, sorting, both system records;
// and every report kind opening without a script error.
'use strict';
const fs = require('fs');
const path = require('path');
const { test, before, after } = require('node:test');
const assert = require('node:assert/strict');
const { launchBrowser, openReport, settle, reportDir } = require('./chromium');

let browser;
before(async () => { browser = await launchBrowser(); });
after(async () => { if (browser) await browser.close(); });

const BAND = /\s(GT50|BETWN_\d+_\d+|BETWN_M\d+_M?\d+|LTM50)(\s|$)/;

// Cells of each data row by phase name: [{ text, className }] in cell order.
function rowsByPhase(page) {
  return page.evaluate(() => {
    const rows = {};
    for (const row of document.querySelectorAll('#aggregateSummaryTable tr')) {
      const cells = Array.from(row.querySelectorAll('td'));
      if (cells.length && /^aggRow\d+col0$/.test(cells[0].id)) {
        rows[cells[0].textContent] = cells.map((cell) => ({ id: cell.id, text: cell.textContent, className: cell.className }));
      }
    }
    return rows;
  });
}

function cell(row, column) {
  return row.find((c) => c.id.endsWith('col' + column));
}

test('the time comparison bands its relative deviations and shows NA where a run lacks the phase', async () => {
  const { page, errors } = await openReport(browser, 'aggdiff_time.html');
  const rows = await rowsByPhase(page);
  for (const name of ['Shared fast', 'Shared slow', 'Shared same', 'Only left', 'Only right']) {
    assert.ok(rows[name], `row ${name} is shown`);
  }
  assert.match(cell(rows['Shared slow'], 7).className, /\sGT50$/);
  assert.match(cell(rows['Shared fast'], 7).className, /\sLTM50$/);
  assert.match(cell(rows['Shared same'], 7).className, /\sBETWN_M5_0$/);
  assert.match(cell(rows['Shared slow'], 7).className, /^dataCell lastColumnCell dataCell(Odd|Even) /);
  for (const row of Object.values(rows)) assert.match(cell(row, 7).className, BAND);

  const onlyLeft = rows['Only left'];
  assert.equal(cell(onlyLeft, 2).text, 'NA', 'right count');
  assert.equal(cell(onlyLeft, 5).text, 'NA', 'right time');
  assert.equal(cell(onlyLeft, 1).text, '1');
  assert.equal(cell(onlyLeft, 3).text, '1', 'the count deviation is the present count');
  assert.equal(cell(onlyLeft, 4).text, '0.70');
  const onlyRight = rows['Only right'];
  assert.equal(cell(onlyRight, 1).text, 'NA', 'left count');
  assert.equal(cell(onlyRight, 4).text, 'NA', 'left time');
  assert.equal(cell(onlyRight, 5).text, '0.70');
  assert.equal(cell(rows['Shared slow'], 6).text, '2.00');

  const heads = await page.locator('#aggregateSummaryTableLastHeaderRow').innerText();
  assert.match(heads, /Before <run>\s*\(Baseline\)/, 'the labels are shown as text');
  assert.deepEqual(errors, []);
});

test('sorting a comparison column keeps the band classes with their rows', async () => {
  const { page, errors } = await openReport(browser, 'aggdiff_time.html');
  const relDevHead = page.locator('#aggregateSummaryTableLastHeaderRow span', { hasText: 'Rel Dev' });
  await relDevHead.click();
  await settle(page);
  let order = await page.evaluate(() => aggDataView.Index.map((i) => aggData[i].WCSelfRelDev));
  assert.deepEqual(order, [...order].sort((a, b) => a - b));
  let rows = await rowsByPhase(page);
  assert.match(cell(rows['Shared slow'], 7).className, /\sGT50$/);
  assert.match(cell(rows['Shared fast'], 7).className, /\sLTM50$/);
  await relDevHead.click();
  await settle(page);
  order = await page.evaluate(() => aggDataView.Index.map((i) => aggData[i].WCSelfRelDev));
  assert.deepEqual(order, [...order].sort((a, b) => b - a));
  rows = await rowsByPhase(page);
  assert.match(cell(rows['Shared slow'], 7).className, /\sGT50$/);
  assert.equal(cell(rows['Only left'], 5).text, 'NA');
  assert.deepEqual(errors, []);
});

test('the memory comparisons band every relative deviation column', async () => {
  const relDevColumns = {
    'aggdiff_basicmemory.html': [7, 15],
    'aggdiff_detailedmemory.html': [7, 11, 15, 19, 23],
  };
  for (const [name, columns] of Object.entries(relDevColumns)) {
    const { page, errors } = await openReport(browser, name);
    const rows = await rowsByPhase(page);
    assert.ok(Object.keys(rows).length >= 5, name);
    for (const [phase, row] of Object.entries(rows)) {
      for (const column of columns) assert.match(cell(row, column).className, BAND, `${name} ${phase} col${column}`);
    }
    assert.equal(cell(rows['Only left'], 5).text, 'NA', `${name}: right value of a left-only phase`);
    assert.equal(cell(rows['Only right'], 4).text, 'NA', `${name}: left value of a right-only phase`);
    assert.equal(await page.locator('#aggregateSummaryTableSecondRow').count(), 1);
    await page.mouse.move(100, 100);
    await page.mouse.move(400, 200);
    assert.deepEqual(errors, []);
  }
});

test('the comparison System Info tab shows both records side by side', async () => {
  const { page, errors } = await openReport(browser, 'aggdiff_time.html');
  await page.locator('.aggregateSumHeader a', { hasText: 'System Info' }).click();
  await settle(page);
  assert.equal(await page.locator('#aggregateSummaryDiv').isVisible(), false);
  const text = await page.locator('#systemInfoTableDiv').innerText();
  assert.ok(text.indexOf('Left CPU') >= 0 && text.indexOf('Left CPU') < text.indexOf('Right CPU'), text);
  assert.equal(await page.evaluate(() => typeof window.injected), 'undefined');
  assert.deepEqual(errors, []);
});

test('every report written opens and shows its aggregate view without a script error', async () => {
  const names = fs.readFileSync(path.join(reportDir, 'index.txt'), 'utf8').split('\n').filter(Boolean);
  assert.ok(names.length >= 12, names.join(', '));
  for (const name of names) {
    assert.ok(!name.endsWith('FAILED'), name);
    const { page, errors } = await openReport(browser, name);
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

test('a phase link of the difference report opens the Details tab', async () => {
  const { page, errors } = await openReport(browser, 'diff_time.html');
  await page.locator('#aggregateSummaryTable td[id$="col0"] a').first().click();
  await settle(page);
  assert.equal(await page.evaluate(() => activeTab), 'phaseSummary');
  assert.equal(await page.locator('.phaseSumHeader').isVisible(), true);
  assert.equal(await page.locator('#aggregateSummaryDiv').isVisible(), false);
  assert.deepEqual(errors, []);
});
