// SPDX-License-Identifier: BSD-3-Clause
// The memory charts in Chromium, looked at through their pixels: the band
// colours of one run, of two runs and of their difference, scrolling, the
// shading of a phase that one run lacks, folding the panels, the pop-ups, the
// cut labels and the notice of a trace without detailed statistics.
'use strict';
const { test } = require('node:test');
const assert = require('node:assert/strict');
const { browserForTests, settle, scrollTo, canvasColours, canvasImages, openPopups } = require('./chromium');

const browser = browserForTests();
const openChart = (name) => browser.open(name, { tab: 'MemChart' });

// Free, Reserved, Committed, Dlls, Non-process; and as shaded for a phase one
// run lacks.
const PLAIN = ['#7aee3c', '#ffc8c8', '#ec0033', '#ffa500', '#666666'];
const SHADED = ['#62c42d', '#d1a1a1', '#a60327', '#c97f00', '#4d4d4d'];
const GRAPHS = ['absDevCanvasDiff', 'dataSet1CanvasDiff', 'dataSet2CanvasDiff'];
const count = (counts, palette) => palette.reduce((sum, colour) => sum + (counts[colour] || 0), 0);

// Page coordinates of visible column `i` of a graph, `y` below its top.
function columnPoint(page, id, i, y) {
  return page.evaluate(([canvasId, column, down]) => {
    const rect = document.getElementById(canvasId).getBoundingClientRect();
    return { x: rect.left + window.scrollX + xticks[column] + 1, y: rect.top + window.scrollY + down };
  }, [id, i, y]);
}

async function clickColumn(page, id, i, y) {
  const at = await columnPoint(page, id, i, y);
  await page.mouse.click(at.x, at.y);
  await settle(page);
}

test('every graph draws the five bands, and one scroll redraws every graph with later executions', async () => {
  // The graph of one run, inside its margins; the graphs of a comparison.
  const charts = [['memchart.html', 'fakecanvasdiv', ['scrollcanvas'],
                   () => ({ x: 1, y: marginTop + 1, w: windowWidth - 200, h: x_scroll.height - marginTop - 8 })],
                  ['diffchart.html', 'fakeCanvasDiffDiv', GRAPHS, () => undefined]];
  for (const [name, dummy, graphs, graphBox] of charts) await browser.visit(name, { tab: 'MemChart' }, async (page) => {
    const box = await page.evaluate(graphBox);
    const expectBands = async (label) => {
      for (const id of graphs) {
        const drawn = await canvasColours(page, id, box);
        for (const colour of PLAIN) assert.ok(drawn[colour] > 20, `${name} ${id} ${label}: ${colour}`);
      }
    };
    await expectBands('at the start');
    assert.match(await page.evaluate(() => visiblePhaseNames[0]), /^Step 00000/);
    const before = await canvasImages(page, graphs);
    await scrollTo(page, dummy, 0.5);
    const first = await page.evaluate(() => visiblePhaseNames[0]);
    assert.ok(Number(first.slice(5)) > 100, first);
    const after = await canvasImages(page, graphs);
    graphs.forEach((id, g) => assert.notEqual(after[g], before[g], `${name}: ${id} is redrawn`));
    await expectBands('after the scroll');
  });
});

// Scrolls the shared dummy so that row `row` stands near the left edge.
async function scrollToRow(page, row) {
  await page.evaluate((r) => {
    const dummy = document.getElementById('fakeCanvasDiffDiv');
    dummy.scrollLeft = Math.max(0, (r - 3) / (dataLen - numBlankData - phasesToRender)) * (dummy.scrollWidth - dummy.clientWidth);
  }, row);
  await settle(page);
}

test('a phase that one run lacks is shaded in that run\'s graph only', async () => {
  const { page, errors } = await openChart('diffchart.html');
  for (const [phase, lacking, other] of [['Only right', 'dataSet1CanvasDiff', 'dataSet2CanvasDiff'],
                                         ['Only left', 'dataSet2CanvasDiff', 'dataSet1CanvasDiff']]) {
    const row = await page.evaluate((phase) => procData.findIndex((r) => Phase[r.Phase] == phase), phase);
    assert.ok(row > 0, phase);
    await scrollToRow(page, row);
    assert.ok(await page.evaluate((phase) => visiblePhaseNames.includes(phase), phase), `${phase} is in view`);
    const [shaded, plain] = await Promise.all([lacking, other].map((id) => canvasColours(page, id)));
    for (const colour of SHADED) assert.ok(shaded[colour] > 20, `${phase}: ${lacking} ${colour}`);
    assert.equal(count(plain, SHADED), 0, `${phase}: ${other} has no shading`);
  }
  assert.deepEqual(errors, []);
});

test('folding a panel hides it and moves the panels below; unfolding brings it back', async () => {
  const { page, errors } = await openChart('diffchart.html');
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
  const { page, errors } = await openChart('diffchart.html');
  await clickColumn(page, 'dataSet1CanvasDiff', 4, 100);
  const [popup] = await openPopups(page);
  assert.ok(popup, 'a pop-up is open');
  assert.match(popup.text, /Before \(Baseline\)\s+After\s+Abs\.Dev\.\s+Rel\.Dev\./);
  const row = await page.evaluate((r) => procData[r], popup.row);
  const free = `${row.LHS_FreeStart}\\s+${row.RHS_FreeStart}\\s+${row.FreeStartAbsDev}`;
  assert.match(popup.text, new RegExp(free));
  assert.equal(await page.evaluate(() => ['a', 'b', 'c'].map((s) => document.getElementById('outlineDiv4' + s).style.visibility)
    .join()), 'visible,visible,visible');
  assert.deepEqual(errors, []);
});

test('a click opens a pop-up with that execution\'s figures, which can be dragged and closed', async () => {
  const { page, errors } = await openChart('memchart.html');
  const bottom = await page.evaluate(() => x_scroll.height - 20);
  for (const column of [9, 5]) await clickColumn(page, 'scrollcanvas', column, bottom);
  let popups = await openPopups(page);
  assert.equal(popups.length, 2);
  const popup = popups.find((p) => /Step 00005/.test(p.text));
  const row = await page.evaluate(() => procData[5]);
  for (const [band, field] of [['Free', 'FreeStart'], ['Committed', 'CommittedStart'], ['Non-process', 'NonProcessStart']]) {
    assert.match(popup.text, new RegExp(`${band}\\s+${row[field]}(\\s|$)`), band);
  }
  assert.equal(await page.locator('#outlineDiv5').evaluate((d) => d.style.visibility), 'visible');

  const title = page.locator(`#${popup.id} td`, { hasText: 'Memory statistics' });
  const start = await title.boundingBox();
  await page.mouse.move(start.x + 20, start.y + 5);
  await page.mouse.down();
  await page.mouse.move(start.x + 120, start.y + 65, { steps: 4 });
  await page.mouse.up();
  const moved = await title.boundingBox();
  assert.equal(Math.round(moved.x - start.x), 100);
  assert.equal(Math.round(moved.y - start.y), 60);

  await page.locator(`#${popup.id} div`, { hasText: /^X$/ }).click();
  popups = await openPopups(page);
  assert.equal(popups.length, 1);
  assert.match(popups[0].text, /Step 00009/);
  assert.equal(await page.locator('#outlineDiv5').evaluate((d) => d.style.visibility), 'hidden');
  assert.deepEqual(errors, []);
});

test('at the far right the long last name is cut with an ellipsis, in blue', async () => {
  const { page, errors } = await openChart('memchart.html');
  await scrollTo(page, 'fakecanvasdiv', 1);
  const labels = await page.evaluate(() => ({ cut: bEllipsed.filter(Boolean).length, names: visiblePhaseNames }));
  assert.equal(labels.cut, 1);
  assert.match(labels.names.join('|'), /A phase whose name is far too long/);
  const box = await page.evaluate(() => ({ x: 0, y: 0, w: x_scroll.width, h: marginTop }));
  const blue = Object.entries(await canvasColours(page, 'scrollcanvas', box, 129)).reduce((sum, [hex, n]) =>
    sum + (parseInt(hex.slice(5), 16) > 150 && parseInt(hex.slice(1, 3), 16) < 90 ? n : 0), 0);
  assert.ok(blue > 20, 'the cut label is blue');
  assert.deepEqual(errors, []);
});

test('a 64-bit address space is zoomed: the axis starts at the non-process offset, the pop-up shows full figures', async () => {
  const { page, errors } = await openChart('detail_detailedmemory.html');
  const zoom = await page.evaluate(() => ({ nonProcessZoom, freeMemZoom, max, row: procData[3] }));
  assert.equal(zoom.nonProcessZoom, zoom.row.NonProcessStart, 'the non-process figure is the same in every row');
  assert.ok(zoom.freeMemZoom > 900000 && zoom.max > 0 && zoom.max < 5000, JSON.stringify(zoom));
  await clickColumn(page, 'scrollcanvas', 3, await page.evaluate(() => x_scroll.height - 20));
  const [popup] = await openPopups(page);
  const free = Math.round(zoom.row.FreeStart / 10) / 100;
  assert.match(popup.text, new RegExp(`Free\\s+${free}e3\\s`));
  assert.match(popup.text, new RegExp(`Non-process\\s+${Math.round(zoom.row.NonProcessStart * 100) / 100}(\\s|$)`));
  assert.deepEqual(errors, []);
});

test('a chart without detailed statistics shows the notice', async () => {
  const { page, errors } = await browser.open('memchart_notice.html');
  const text = await page.locator('#memoryCanvasTable').textContent();
  assert.match(text, /^Detailed Memory Statistic collection was not enabled at log time or is not available in this platform\./);
  assert.match(text, /GaugeKit\.Tracer\.enableDetailedMemStats\(true\) to collect Detailed Memory Statistics\.$/);
  assert.equal(await page.locator('#canvasSupportTest').count(), 0);
  await page.evaluate(() => canvasResizeAction());
  assert.deepEqual(errors, []);
});
