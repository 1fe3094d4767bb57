// The memory chart of one run in Chromium, looked at through its pixels: the
// band colours, scrolling, the statistics pop-ups, the cut labels and the
// notice of a trace without detailed statistics.
'use strict';
const { test, before, after } = require('node:test');
const assert = require('node:assert/strict');
const { launchBrowser, openReport, settle } = require('./chromium');

let browser;
before(async () => { browser = await launchBrowser(); });
after(async () => { if (browser) await browser.close(); });

const BANDS = { Free: '#7aee3c', Reserved: '#ffc8c8', Committed: '#ec0033', Dlls: '#ffa500', 'Non-process': '#666666' };

async function openChart(name) {
  const opened = await openReport(browser, name);
  await opened.page.locator('.aggregateSumHeader a', { hasText: 'MemChart' }).click();
  await settle(opened.page);
  return opened;
}

// The colours (as #rrggbb) drawn in a rectangle of a canvas, with their counts.
function canvasColours(page, id, box) {
  return page.evaluate(([id, box]) => {
    const canvas = document.getElementById(id);
    const b = box || { x: 0, y: 0, w: canvas.width, h: canvas.height };
    const data = canvas.getContext('2d').getImageData(b.x, b.y, b.w, b.h).data;
    const counts = {};
    for (let i = 0; i < data.length; i += 4) {
      if (data[i + 3] < 255) continue;
      const hex = '#' + [data[i], data[i + 1], data[i + 2]].map((v) => v.toString(16).padStart(2, '0')).join('');
      counts[hex] = (counts[hex] || 0) + 1;
    }
    return counts;
  }, [id, box]);
}

// Page coordinates of the middle of visible column `i`, inside the graph.
function columnPoint(page, i) {
  return page.evaluate((i) => {
    const rect = document.getElementById('scrollcanvas').getBoundingClientRect();
    return { x: rect.left + window.scrollX + xticks[i], y: rect.top + window.scrollY + x_scroll.height - 20 };
  }, i);
}

function openPopups(page) {
  return page.evaluate(() => Array.from(document.querySelectorAll('[id^=popupDiv]'))
    .filter((d) => parseInt(d.style.zIndex) >= 1000)
    .map((d) => ({ id: d.id, text: d.innerText, left: d.style.left, top: d.style.top })));
}

test('the visible columns hold the five bands, and a scroll draws later executions', async () => {
  const { page, errors } = await openChart('memchart.html');
  const graph = await page.evaluate(() => ({ top: marginTop, w: windowWidth - 200, h: x_scroll.height - marginTop - 6 }));
  const box = { x: 1, y: graph.top + 1, w: graph.w, h: graph.h - 2 };
  const colours = await canvasColours(page, 'scrollcanvas', box);
  for (const [band, colour] of Object.entries(BANDS)) assert.ok(colours[colour] > 100, `${band} is drawn`);
  assert.match(await page.evaluate(() => visiblePhaseNames[0]), /^Step 00000/);

  const before = await page.evaluate(() => document.getElementById('scrollcanvas').toDataURL());
  await page.evaluate(() => {
    const dummy = document.getElementById('fakecanvasdiv');
    dummy.scrollLeft = (dummy.scrollWidth - dummy.clientWidth) / 2;
  });
  await settle(page);
  const first = await page.evaluate(() => visiblePhaseNames[0]);
  assert.ok(Number(first.slice(5)) > 100, first);
  assert.notEqual(await page.evaluate(() => document.getElementById('scrollcanvas').toDataURL()), before);
  const scrolled = await canvasColours(page, 'scrollcanvas', box);
  for (const [band, colour] of Object.entries(BANDS)) assert.ok(scrolled[colour] > 100, `${band} after the scroll`);
  assert.deepEqual(errors, []);
});

test('a click opens a pop-up with that execution\'s figures, which can be dragged and closed', async () => {
  const { page, errors } = await openChart('memchart.html');
  for (const column of [9, 5]) {
    const at = await columnPoint(page, column);
    await page.mouse.click(at.x, at.y);
    await settle(page);
  }
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
  await page.evaluate(() => {
    const dummy = document.getElementById('fakecanvasdiv');
    dummy.scrollLeft = dummy.scrollWidth;
  });
  await settle(page);
  const labels = await page.evaluate(() => ({ cut: bEllipsed.filter(Boolean).length, names: visiblePhaseNames }));
  assert.equal(labels.cut, 1);
  assert.match(labels.names.join('|'), /A phase whose name is far too long/);
  const blue = await page.evaluate(() => {
    const data = ctx_scroll.getImageData(0, 0, x_scroll.width, marginTop).data;
    let count = 0;
    for (let i = 0; i < data.length; i += 4) if (data[i + 3] > 128 && data[i + 2] > 150 && data[i] < 90) count++;
    return count;
  });
  assert.ok(blue > 20, 'the cut label is blue');
  assert.deepEqual(errors, []);
});

test('a 64-bit address space is zoomed: the axis starts at the non-process offset, the pop-up shows full figures', async () => {
  const { page, errors } = await openChart('detail_detailedmemory.html');
  const zoom = await page.evaluate(() => ({ nonProcessZoom, freeMemZoom, max, row: procData[3] }));
  assert.equal(zoom.nonProcessZoom, zoom.row.NonProcessStart, 'the non-process figure is the same in every row');
  assert.ok(zoom.freeMemZoom > 900000 && zoom.max > 0 && zoom.max < 5000, JSON.stringify(zoom));
  const at = await columnPoint(page, 3);
  await page.mouse.click(at.x, at.y);
  const [popup] = await openPopups(page);
  const free = Math.round(zoom.row.FreeStart / 10) / 100;
  assert.match(popup.text, new RegExp(`Free\\s+${free}e3\\s`));
  assert.match(popup.text, new RegExp(`Non-process\\s+${Math.round(zoom.row.NonProcessStart * 100) / 100}(\\s|$)`));
  assert.deepEqual(errors, []);
});

test('a chart without detailed statistics shows the notice', async () => {
  const { page, errors } = await openReport(browser, 'memchart_notice.html');
  const text = await page.locator('#memoryCanvasTable').textContent();
  assert.match(text, /^Detailed Memory Statistic collection was not enabled at log time or is not available in this platform\./);
  assert.match(text, /GaugeKit\.Tracer\.enableDetailedMemStats\(true\) to collect Detailed Memory Statistics\.$/);
  assert.equal(await page.locator('#canvasSupportTest').count(), 0);
  await page.evaluate(() => canvasResizeAction());
  assert.deepEqual(errors, []);
});
