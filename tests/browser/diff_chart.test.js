// The comparison memory chart in Chromium, looked at through its pixels: the
// two runs and their difference, the shading of a phase that one run lacks,
// folding the panels, the shared scroll bar and the comparison pop-up.
'use strict';
const { test, before, after } = require('node:test');
const assert = require('node:assert/strict');
const { launchBrowser, openReport, settle } = require('./chromium');

let browser;
before(async () => { browser = await launchBrowser(); });
after(async () => { if (browser) await browser.close(); });

const PLAIN = ['#7aee3c', '#ffc8c8', '#ec0033', '#ffa500', '#666666'];
const SHADED = ['#62c42d', '#d1a1a1', '#a60327', '#c97f00', '#4d4d4d'];
const GRAPHS = ['absDevCanvasDiff', 'dataSet1CanvasDiff', 'dataSet2CanvasDiff'];

async function openChart() {
  const opened = await openReport(browser, 'diffchart.html');
  await opened.page.locator('.aggregateSumHeader a', { hasText: 'MemChart' }).click();
  await settle(opened.page);
  return opened;
}

// Colours (#rrggbb) drawn on each canvas, with their pixel counts.
function colours(page, ids) {
  return page.evaluate((ids) => {
    const all = {};
    for (const id of ids) {
      const canvas = document.getElementById(id);
      const data = canvas.getContext('2d').getImageData(0, 0, canvas.width, canvas.height).data;
      const counts = {};
      for (let i = 0; i < data.length; i += 4) {
        if (data[i + 3] < 255) continue;
        const hex = '#' + [data[i], data[i + 1], data[i + 2]].map((v) => v.toString(16).padStart(2, '0')).join('');
        counts[hex] = (counts[hex] || 0) + 1;
      }
      all[id] = counts;
    }
    return all;
  }, ids);
}

function count(counts, palette) {
  return palette.reduce((sum, colour) => sum + (counts[colour] || 0), 0);
}

// Scrolls the shared dummy so that row `row` stands near the left edge.
async function scrollToRow(page, row) {
  await page.evaluate((row) => {
    const dummy = document.getElementById('fakeCanvasDiffDiv');
    const m = dataLen - numBlankData - phasesToRender;
    dummy.scrollLeft = Math.max(0, (row - 3) / m) * (dummy.scrollWidth - dummy.clientWidth);
  }, row);
  await settle(page);
}

function canvasImages(page) {
  return page.evaluate((ids) => ids.map((id) => document.getElementById(id).toDataURL()), GRAPHS);
}

test('both runs and their difference are drawn, and one scroll moves every graph', async () => {
  const { page, errors } = await openChart();
  let drawn = await colours(page, GRAPHS);
  for (const id of GRAPHS) {
    for (const colour of PLAIN) assert.ok(drawn[id][colour] > 20, `${id} ${colour}`);
  }
  const before = await canvasImages(page);
  const firstName = await page.evaluate(() => visiblePhaseNames[0]);
  await scrollToRow(page, 100);
  const after = await canvasImages(page);
  for (let g = 0; g < GRAPHS.length; g++) assert.notEqual(after[g], before[g], `${GRAPHS[g]} is redrawn`);
  assert.notEqual(await page.evaluate(() => visiblePhaseNames[0]), firstName);
  drawn = await colours(page, GRAPHS);
  for (const id of GRAPHS) assert.ok(count(drawn[id], PLAIN) > 1000, id);
  assert.deepEqual(errors, []);
});

test('a phase that one run lacks is shaded in that run\'s graph only', async () => {
  const { page, errors } = await openChart();
  for (const [phase, lacking, other] of [['Only right', 'dataSet1CanvasDiff', 'dataSet2CanvasDiff'],
                                         ['Only left', 'dataSet2CanvasDiff', 'dataSet1CanvasDiff']]) {
    const row = await page.evaluate((phase) => procData.findIndex((r) => Phase[r.Phase] == phase), phase);
    assert.ok(row > 0, phase);
    await scrollToRow(page, row);
    assert.ok(await page.evaluate((phase) => visiblePhaseNames.includes(phase), phase), `${phase} is in view`);
    const drawn = await colours(page, [lacking, other]);
    for (const colour of SHADED) assert.ok(drawn[lacking][colour] > 20, `${phase}: ${lacking} ${colour}`);
    assert.equal(count(drawn[other], SHADED), 0, `${phase}: ${other} has no shading`);
  }
  assert.deepEqual(errors, []);
});

test('folding a panel hides it and moves the panels below; unfolding brings it back', async () => {
  const { page, errors } = await openChart();
  const state = () => page.evaluate(() => ({
    height: x_dataSet1.height,
    below: parseInt(document.getElementById('dataSet2CanvasDiffDiv').style.top),
    bars: document.getElementById('dataSet1CanvasDiff').getContext('2d').getImageData(0, 0, 400, 40).data
      .filter((v, i) => i % 4 == 0 && v == 0x7a).length,
  }));
  // The arrows: the left triangle folds one step, the right one opens one.
  const arrows = await page.locator('#upDownArrowsDataSet1CanvasDiff').boundingBox();
  const left = { x: arrows.x + 11, y: arrows.y + 11 };
  const right = { x: arrows.x + 29, y: arrows.y + 11 };
  const open = await state();
  assert.equal(open.height, 200);
  const steps = [[left, 40, -160], [left, 40, -160], [right, 200, 0], [right, 400, 200], [left, 200, 0]];
  for (const [arrow, height, shift] of steps) {
    await page.mouse.click(arrow.x, arrow.y);
    await settle(page);
    const now = await state();
    assert.equal(now.height, height);
    assert.equal(now.below - open.below, shift);
    if (height == 40) assert.equal(now.bars, 0, 'a ribbon shows no columns');
    else assert.ok(now.bars > 0, 'an open graph shows its columns');
  }
  assert.deepEqual(errors, []);
});

test('a click on a graph opens the comparison pop-up with both runs\' figures', async () => {
  const { page, errors } = await openChart();
  const at = await page.evaluate(() => {
    const rect = document.getElementById('dataSet1CanvasDiff').getBoundingClientRect();
    return { x: rect.left + window.scrollX + xticks[4] + 1, y: rect.top + window.scrollY + 100 };
  });
  await page.mouse.click(at.x, at.y);
  await settle(page);
  const popup = await page.evaluate(() => {
    const div = Array.from(document.querySelectorAll('[id^=popupDiv]')).find((d) => parseInt(d.style.zIndex) > 1000);
    return div && { text: div.innerText, row: procData[parseInt(div.getAttribute('data-row'))] };
  });
  assert.ok(popup, 'a pop-up is open');
  assert.match(popup.text, /Before \(Baseline\)\s+After\s+Abs\.Dev\.\s+Rel\.Dev\./);
  const free = `${popup.row.LHS_FreeStart}\\s+${popup.row.RHS_FreeStart}\\s+${popup.row.FreeStartAbsDev}`;
  assert.match(popup.text, new RegExp(free));
  assert.equal(await page.evaluate(() => ['a', 'b', 'c'].map((s) => document.getElementById('outlineDiv4' + s).style.visibility)
    .join()), 'visible,visible,visible');
  assert.deepEqual(errors, []);
});
