// SPDX-License-Identifier: BSD-3-Clause
// Opens exported traces in speedscope, a trace viewer from npm, in Chromium:
// its Trace Event importer must read every phase, and its sandwich table must
// show each phase's total and self time as the trace holds them.
'use strict';
const assert = require('node:assert/strict');
const fs = require('fs');
const path = require('path');
const test = require('node:test');
const { chromium } = require('playwright-core');

const dir = process.env.TG_EXPORT_DIR;
const viewer = require.resolve('speedscope/dist/release/index.html');

const ODD = 'read "A"\nthen\r B\t</script>';

// Name -> [total ms, self ms]. Gaps fill each parent, so parents have no self
// time of their own.
const EXPECTED = new Map([
  ['solve', [2000, 0]],
  ['solve_self', [300, 300]],
  ['factorize', [1500, 0]],
  [ODD, [500, 500]],
  [ODD + '_post', [1000, 1000]],
  ['factorize_post', [200, 200]],
  ['report', [400, 400]],
]);

function milliseconds(text) {
  const scale = { ns: 1e-6, 'µs': 1e-3, ms: 1, s: 1000, min: 60000 };
  const m = /^([\d.]+)(ns|µs|ms|s|min)\b/u.exec(text.trim());
  assert.ok(m, `a duration: ${text}`);
  return Number(m[1]) * scale[m[2]];
}

async function sandwichRows(browser, file) {
  const page = await browser.newPage({ viewport: { width: 1400, height: 900 } });
  const errors = [];
  page.on('pageerror', (e) => errors.push(e.message));
  page.on('console', (m) => m.type() === 'error' && errors.push(m.text()));
  await page.goto('file://' + viewer);
  await page.setInputFiles('input[type=file]', file);
  await page.getByText('Sandwich').first().click();
  await page.waitForSelector('td');
  const rows = await page.evaluate(() =>
    [...document.querySelectorAll('tr')]
      .map((tr) => [...tr.querySelectorAll('td')].map((td) => td.textContent))
      .filter((cells) => cells.length === 3));
  await page.close();
  assert.deepEqual(errors, []);
  // The viewer shows a complete event's arguments after its name.
  return new Map(rows.map(([total, self, name]) => [name.replace(/ \{.*\}$/s, ''), [milliseconds(total),
                                                                                   milliseconds(self)]]));
}

test('speedscope shows the nested phases, gaps and an odd name with their times', async () => {
  const browser = await chromium.launch({ executablePath: '/usr/bin/chromium',
                                          args: ['--headless', '--no-sandbox', '--disable-gpu'] });
  try {
    const rows = await sandwichRows(browser, path.join(dir, 'nested.json'));
    assert.deepEqual([...rows.keys()].sort(), [...EXPECTED.keys()].sort());
    for (const [name, [total, self]] of EXPECTED) {
      const [shownTotal, shownSelf] = rows.get(name);
      assert.ok(Math.abs(shownTotal - total) < 1, `${name} total ${shownTotal} ms, expected ${total}`);
      assert.ok(Math.abs(shownSelf - self) < 1, `${name} self ${shownSelf} ms, expected ${self}`);
    }
  } finally {
    await browser.close();
  }
  // The gap phases are marked as such for viewers that show categories.
  const events = JSON.parse(fs.readFileSync(path.join(dir, 'nested.json'), 'utf8')).traceEvents;
  const gaps = events.filter((e) => e.ph === 'X' && e.cat === 'gap').map((e) => e.name).sort();
  assert.deepEqual(gaps, ['factorize_post', ODD + '_post', 'solve_self'].sort());
});

test('an unpaired trace is refused with the diagnostic hint and writes nothing', () => {
  const message = fs.readFileSync(path.join(dir, 'unpaired.err'), 'utf8');
  assert.match(message, /do not pair up; run 'tempogauge diagnose .*unpaired\.orf' to see where/);
  assert.equal(fs.existsSync(path.join(dir, 'unpaired.json')), false);
});
