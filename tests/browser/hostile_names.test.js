// SPDX-License-Identifier: BSD-3-Clause
// Phase names and labels made of markup, quotes, backslashes and percent signs:
// the reports show them as text, run none of them, and the links pass the
// exact name on.
'use strict';
const { test } = require('node:test');
const assert = require('node:assert/strict');
const { browserForTests, settle } = require('./chromium');

const browser = browserForTests();

const NAMES = [
  '<img src=x onerror="window.injected = 1">',
  'it\'s "quoted" back',
  '100% done %27',
  '</script><script>window.injected = 2;</script>',
  '<!--<script>window.injected = 3;',
];

const notRun = async (page) => assert.equal(await page.evaluate(() => typeof window.injected), 'undefined');

test('names with markup are shown as text in the aggregate table, before and after sorting', async () => {
  for (const name of ['aggregate_hostile_names.html', 'detail_hostile_names.html']) await browser.visit(name, {}, async (page) => {
    for (const round of ['as loaded', 'sorted']) {
      const shown = await page.evaluate(() => Array.from(document.querySelectorAll('#aggregateSummaryTable td[id$="col0"]'),
                                                         (cell) => cell.textContent));
      for (const phase of NAMES) assert.ok(shown.includes(phase), `${name} ${round}: ${JSON.stringify(phase)}`);
      await page.locator('#aggregateSummaryTableFirstRow span', { hasText: 'Phase' }).click();
      await settle(page);
    }
    assert.equal(await page.locator('#aggregateSummaryTable img').count(), 0);
    await notRun(page);
  });
});

test('names with markup are shown as text in the Call Tree and Details tabs', async () => {
  const { page, errors } = await browser.open('detail_hostile_names.html', { tab: 'Call Tree' });
  const treeText = await page.locator('#callTreeSummaryTable').innerText();
  assert.ok(treeText.includes('<img src=x'), treeText);
  await page.locator('#callTreeSummaryTable a', { hasText: 'quoted' }).click();
  await settle(page);
  assert.match(await page.locator('#phaseTD0').textContent(), /^it's "quoted" back/);
  await page.locator('#userInputs input[value=Refresh]').click();
  await settle(page);
  assert.ok((await page.locator('#phaseSummaryTable').innerText()).includes('</script><script>'));
  await notRun(page);
  assert.deepEqual(errors, []);
});

test('a phase link of a comparison passes the exact name on', async () => {
  const { page, errors } = await browser.open('diff_hostile_names.html');
  // Stand in for the detail view: note what the link asks for.
  await page.evaluate(() => { window.openDetailTab = (name) => { window.openedPhase = name; }; });
  for (const name of NAMES) {
    await page.evaluate(() => { window.openedPhase = undefined; });
    await page.locator('#aggregateSummaryTable td[id$="col0"] a').filter({ hasText: name }).first().click();
    await settle(page);
    assert.equal(await page.evaluate(() => window.openedPhase), name);
  }
  const heads = await page.locator('#aggregateSummaryTableLastHeaderRow').innerText();
  assert.match(heads, /<b>left<\/b>[^]*right's/);
  await notRun(page);
  assert.deepEqual(errors, []);
});
