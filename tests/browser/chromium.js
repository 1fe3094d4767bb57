// Opens reports in Debian's Chromium through playwright-core, with a fresh
// profile per browser, and collects every script error a page raises.
'use strict';
const fs = require('fs');
const os = require('os');
const path = require('path');
const { chromium } = require('playwright-core');

const LAUNCH_ARGS = ['--headless', '--no-sandbox', '--disable-gpu', '--disable-background-networking',
                     '--disable-component-update', '--disable-sync', '--no-first-run'];

const reportDir = process.env.TG_REPORT_DIR;

async function launchBrowser() {
  if (!reportDir) throw new Error('TG_REPORT_DIR is not set: run the tests through tests/browser/run');
  const profile = fs.mkdtempSync(path.join(os.tmpdir(), 'tg-chromium-'));
  const context = await chromium.launchPersistentContext(profile, {
    executablePath: '/usr/bin/chromium',
    headless: true,
    args: LAUNCH_ARGS,
    viewport: { width: 1280, height: 1400 },
  });
  return {
    context,
    async close() {
      await context.close();
      fs.rmSync(profile, { recursive: true, force: true });
    },
  };
}

// Opens one report. `errors` gathers uncaught script errors and console
// errors; tests assert it stays empty.
async function openReport(browser, name, viewport) {
  const file = path.join(reportDir, name);
  if (!fs.existsSync(file)) throw new Error(`report ${file} was not written`);
  const page = await browser.context.newPage();
  const errors = [];
  page.on('pageerror', (error) => errors.push(`${name}: ${error.message}`));
  page.on('console', (message) => {
    if (message.type() === 'error') errors.push(`${name}: console: ${message.text()}`);
  });
  if (viewport) await page.setViewportSize(viewport);
  await page.goto('file://' + file, { waitUntil: 'load' });
  await settle(page);
  return { page, errors };
}

// Lets scroll and resize handlers run.
async function settle(page) {
  await page.evaluate(() => new Promise((resolve) => requestAnimationFrame(() => setTimeout(resolve, 30))));
}

module.exports = { launchBrowser, openReport, settle, reportDir };
