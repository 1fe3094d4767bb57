// SPDX-License-Identifier: BSD-3-Clause
// Opens reports in Debian's Chromium through playwright-core, with a fresh
// profile per browser, collects every script error a page raises, and reads
// what the report shows: cells, totals, canvas colours, pop-ups. Shared by the
// browser tests and the browser benchmarks.
'use strict';
const fs = require('fs');
const os = require('os');
const path = require('path');
const { chromium } = require('playwright-core');

async function launchBrowser() {
  const profile = fs.mkdtempSync(path.join(os.tmpdir(), 'tg-chromium-'));
  const context = await chromium.launchPersistentContext(profile, {
    executablePath: '/usr/bin/chromium', headless: true, viewport: { width: 1280, height: 1400 },
    args: ['--headless', '--no-sandbox', '--disable-gpu', '--disable-background-networking',
           '--disable-component-update', '--disable-sync', '--no-first-run'],
  });
  return {
    context,
    async close() {
      await context.close();
      fs.rmSync(profile, { recursive: true, force: true });
    },
  };
}

// Opens one report of TG_REPORT_DIR. `errors` gathers uncaught script errors
// and console errors; tests assert it stays empty. `init` is a page function
// run before the page's own scripts.
async function openReport(browser, name, { viewport, init, timeout } = {}) {
  const dir = process.env.TG_REPORT_DIR;
  if (!dir) throw new Error('TG_REPORT_DIR is not set: run the tests through tests/browser/run');
  const file = path.join(dir, name);
  if (!fs.existsSync(file)) throw new Error(`report ${file} was not written`);
  const page = await browser.context.newPage();
  const errors = [];
  page.on('pageerror', (error) => errors.push(`${name}: ${error.message}`));
  page.on('console', (message) => {
    if (message.type() === 'error') errors.push(`${name}: console: ${message.text()}`);
  });
  if (viewport) await page.setViewportSize(viewport);
  if (init) await page.addInitScript(init);
  await page.goto('file://' + file, { waitUntil: 'load', timeout });
  await settle(page);
  return { page, errors };
}

// One browser for the tests of a file: `open` opens a report, on one of its
// tabs when `options.tab` names the text of the tab's link; `visit` opens it,
// runs `body` on the page, fails on any script error and closes the page.
function browserForTests() {
  const { before, after } = require('node:test');
  const assert = require('node:assert/strict');
  let browser;
  before(async () => { browser = await launchBrowser(); });
  after(async () => { if (browser) await browser.close(); });
  async function open(name, options = {}) {
    const opened = await openReport(browser, name, options);
    if (options.tab) {
      await opened.page.locator('.aggregateSumHeader a', { hasText: options.tab }).click();
      await settle(opened.page);
    }
    return opened;
  }
  return {
    open,
    async visit(name, options, body) {
      const { page, errors } = await open(name, options);
      await body(page);
      assert.deepEqual(errors, [], name);
      await page.close();
    },
  };
}

// Lets scroll and resize handlers run.
async function settle(page) {
  await page.evaluate(() => new Promise((resolve) => requestAnimationFrame(() => setTimeout(resolve, 30))));
}

// Scrolls an element to `fraction` of its range, across and down, and lets
// its handlers run.
async function scrollTo(page, id, fraction) {
  await page.evaluate(([elementId, f]) => {
    const element = document.getElementById(elementId);
    element.scrollTop = f * (element.scrollHeight - element.clientHeight);
    element.scrollLeft = f * (element.scrollWidth - element.clientWidth);
  }, [id, fraction]);
  await settle(page);
}

// The text of each element by id (null for one that is missing).
function cellTexts(page, ids) {
  return page.evaluate((list) => list.map((id) => {
    const cell = document.getElementById(id);
    return cell ? cell.textContent : null;
  }), ids);
}

// The totals the page should show for rows of procData: `specs` maps a total's
// element id to [field, 'sum' or 'max'], as the page formats them.
function expectedTotals(page, rows, specs) {
  return page.evaluate(([indices, all]) => {
    const out = {};
    for (const [id, [field, how]] of Object.entries(all)) {
      let value = 0;
      for (const i of indices) value = how == 'sum' ? value + procData[i][field] : Math.max(value, procData[i][field]);
      out[id] = createScientificNotation(value);
    }
    return out;
  }, [rows, specs]);
}

// The colours (#rrggbb) drawn in a rectangle of a canvas (the whole canvas
// without one) at least `minAlpha` opaque, with their pixel counts.
function canvasColours(page, id, box, minAlpha = 255) {
  return page.evaluate(([canvasId, b, alpha]) => {
    const canvas = document.getElementById(canvasId);
    const r = b || { x: 0, y: 0, w: canvas.width, h: canvas.height };
    const data = canvas.getContext('2d').getImageData(r.x, r.y, r.w, r.h).data;
    const counts = {};
    for (let i = 0; i < data.length; i += 4) {
      if (data[i + 3] < alpha) continue;
      const hex = '#' + [data[i], data[i + 1], data[i + 2]].map((v) => v.toString(16).padStart(2, '0')).join('');
      counts[hex] = (counts[hex] || 0) + 1;
    }
    return counts;
  }, [id, box, minAlpha]);
}

function canvasImages(page, ids) {
  return page.evaluate((list) => list.map((id) => document.getElementById(id).toDataURL()), ids);
}

// The chart pop-ups now open (those raised above the page).
function openPopups(page) {
  return page.evaluate(() => Array.from(document.querySelectorAll('[id^=popupDiv]'))
    .filter((d) => parseInt(d.style.zIndex) >= 1000)
    .map((d) => ({ id: d.id, text: d.innerText, row: parseInt(d.getAttribute('data-row')) })));
}

function median(values) {
  const sorted = [...values].sort((a, b) => a - b);
  return sorted[Math.floor(sorted.length / 2)];
}

// Runs `source` (a page function's body, given `arg`) and returns its time in
// ms, layout included.
function timed(page, source, arg) {
  return page.evaluate(([body, argument]) => {
    const run = new Function('arg', body);
    const start = performance.now();
    run(argument);
    void document.body.offsetHeight;
    return performance.now() - start;
  }, [source, arg]);
}

// A benchmark's run: tg_make_reports of `build` writes the pages of `args`
// ([mode, ...more]) into a fresh folder, `body` gets a browser on them; the
// folder and the browser go afterwards, and a failure ends the process.
function benchPages(build, [mode, ...more], body) {
  const work = fs.mkdtempSync(path.join(os.tmpdir(), 'tg-bench-'));
  process.env.TG_REPORT_DIR = work;
  let browser;
  (async () => {
    try {
      require('child_process').execFileSync(path.join(build, 'tg_make_reports'), [mode, work, ...more],
                                            { stdio: 'inherit' });
      browser = await launchBrowser();
      await body(browser, work);
    } finally {
      if (browser) await browser.close();
      fs.rmSync(work, { recursive: true, force: true });
    }
  })().catch((error) => {
    console.error(error);
    process.exit(1);
  });
}

module.exports = { launchBrowser, openReport, browserForTests, settle, scrollTo, cellTexts, expectedTotals,
                   canvasColours, canvasImages, openPopups, median, timed, benchPages };
