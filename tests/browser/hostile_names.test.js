// Phase names and labels made of markup, quotes, backslashes and percent signs:
// the reports show them as text, run none of them, and the links of a
// comparison pass the exact name on.
'use strict';
const { test, before, after } = require('node:test');
const assert = require('node:assert/strict');
const { launchBrowser, openReport, settle } = require('./chromium');

const NAMES = [
  '<img src=x onerror="window.injected = 1">',
  'it\'s "quoted" back',
  '100% done %27',
  '</script><script>window.injected = 2;</script>',
  '<!--<script>window.injected = 3;',
];

let browser;
before(async () => { browser = await launchBrowser(); });
after(async () => { if (browser) await browser.close(); });

function shownNames(page) {
  return page.evaluate(() => Array.from(document.querySelectorAll('#aggregateSummaryTable td[id$="col0"]'))
    .map((cell) => cell.textContent));
}

test('names with markup are shown as text in the aggregate table', async () => {
  const { page, errors } = await openReport(browser, 'aggregate_hostile_names.html');
  const names = await shownNames(page);
  for (const name of NAMES) assert.ok(names.includes(name), `${JSON.stringify(name)} in ${JSON.stringify(names)}`);
  assert.equal(await page.locator('#aggregateSummaryTable img').count(), 0);
  await page.locator('#aggregateSummaryTableFirstRow span', { hasText: 'Phase' }).click();
  await settle(page);
  const sorted = await shownNames(page);
  for (const name of NAMES) assert.ok(sorted.includes(name), `${JSON.stringify(name)} after sorting`);
  assert.equal(await page.evaluate(() => typeof window.injected), 'undefined');
  assert.deepEqual(errors, []);
});

test('a phase link of a comparison passes the exact name on', async () => {
  const { page, errors } = await openReport(browser, 'diff_hostile_names.html');
  // Stand in for the detail view: note what the link asks for.
  await page.evaluate(() => { window.openDetailTab = (name) => { window.openedPhase = name; }; });
  for (const name of NAMES) {
    await page.evaluate(() => { window.openedPhase = undefined; });
    const link = page.locator('#aggregateSummaryTable td[id$="col0"] a').filter({ hasText: name }).first();
    await link.click();
    await settle(page);
    assert.equal(await page.evaluate(() => window.openedPhase), name);
  }
  const heads = await page.locator('#aggregateSummaryTableLastHeaderRow').innerText();
  assert.match(heads, /<b>left<\/b>/);
  assert.match(heads, /right's/);
  assert.equal(await page.evaluate(() => typeof window.injected), 'undefined');
  assert.deepEqual(errors, []);
});
