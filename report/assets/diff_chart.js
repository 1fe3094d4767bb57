// SPDX-License-Identifier: BSD-3-Clause
// The memory chart that compares two runs: a graph of their difference above
// one graph per run, all on one x axis under one scroll bar, with the phase
// labels on a panel of their own. Each panel folds to a ribbon, and the graphs
// have two open sizes. Row i of procData holds both runs' figures of aligned
// position i; a run that lacks the row holds -99.99 there, and its graph shows
// the stack of the row before in shaded colours. Builds on chart_common.js.

var MISSING = -99.99;
var numBlankData = 0;
var colorsShaded = ["#62c42d", "#d1a1a1", "#a60327", "#c97f00", "#4d4d4d"];
var indivGraphFont = "14px Sans-Serif";
var ribbonFont = "Bold 15px Sans-Serif";
var origAbsDevTop = 153;
var ribbonHeight_phaseNames = 40;
var collapsedHeight_phaseNames = 40;
var expandedHeight_phaseNames = 200;
var ribbonHeight_absDev = 40;
var ribbonHeight_dataSet1 = 40;
var ribbonHeight_dataSet2 = 40;
var expandedHeight_absDev = 400;
var expandedHeight_dataSet1 = 400;
var expandedHeight_dataSet2 = 400;
var collapsedHeight_absDev = 200;
var collapsedHeight_dataSet1 = 200;
var collapsedHeight_dataSet2 = 200;
var numTicksYexpanded = 11;
var numTicksYcollapsed = 5;
var littleExtra = 0;
var windowWidthOrig = (window.innerWidth === undefined) ? document.body.clientWidth : window.innerWidth;
var originalWindowWidth = -1;
// The width of a vertical scroll bar, measured at the build and at each
// resize rather than at each redraw, as the measuring forces a layout.
var scrollbarWidth = 0;

var x_graphLabel, ctx_graphLabel, x_legend, x_phaseNames, ctx_phaseNames, x_absDev, ctx_absDev;
var x_dataSet1, ctx_dataSet1, x_dataSet2, ctx_dataSet2, x_topTicks, ctx_topTicks;
var x_absDevLabel, x_dataSet1Label, x_dataSet2Label, x_fake;
var max1 = 0, max2 = 0;
var kernelResMin1 = 1e16, freeMemMin1 = 1e16, kernelResMin2 = 1e16, freeMemMin2 = 1e16;
var nonProcessZoom1 = 0, freeMemZoom1 = 0, nonProcessZoom2 = 0, freeMemZoom2 = 0;
var differenceRange = 0;
var topTicksH = -1;
var yTickLabels = new Array();
var yTickPositions = new Array();
var yLabelPositions = new Array();
var origLastLabel;
var origLastLabel_defined = false;
var widthLimit = 0;
var endOfScroll = false;
var firstRibbonLoaded = false;
var isRibbon_absDev = false, isRibbon_dataSet1 = false, isRibbon_dataSet2 = false;
// The visible figures of each run by band, in the order of `colors`; the
// named series are the same arrays.
var visibleBands1 = [[], [], [], [], []];
var visibleBands2 = [[], [], [], [], []];
var visibleFree1, visibleHeapRes1, visibleHeapCom1, visibleOtherUsed1, visibleKernelRes1;
var visibleFree2, visibleHeapRes2, visibleHeapCom2, visibleOtherUsed2, visibleKernelRes2;

function styleTop(id) { return parseInt(document.getElementById(id).style.top); }
function setStyle(id, name, value) {
    var element = document.getElementById(id);
    if (element) element.style[name] = value;
}
// A run label as plain text: without the baseline note's markup.
function plainLabel(label) {
    var holder = document.createElement('div');
    holder.innerHTML = label.replace(baselinelabel.fontsize(0.8), ' (Baseline)');
    return holder.textContent;
}
function sideField(leftOrRight, band) {
    return (leftOrRight == 'left' ? 'LHS_' : 'RHS_') + bandFields[band];
}

function arraySlice(leftOrRight, arrayType, begin, end) {
    if (arrayType == 'phases') return phaseLabelSlice(begin, end, false);
    return fieldSlice(sideField(leftOrRight, bandTerms.indexOf(arrayType)), begin, end);
}

// The value that stands for a row the run lacks: the entry before it in the
// slice, or for the slice's first entry the row before the slice.
function fillMissingPhaseData(leftOrRight, dataType, data, currentInd, beginInd) {
    if (currentInd == 0) {
        if (beginInd < 1) return 0;
        return arraySlice(leftOrRight, dataType, beginInd - 1, beginInd)[0];
    }
    return data[currentInd - 1];
}

// The five series of one run for rows `begin` to `end`, missing rows filled
// in (read through `fillFrom`), and whether each column is filled in.
function sideSlice(side, fillFrom, begin, end) {
    var bands = new Array();
    for (var b = 0; b < bandTerms.length; b++) bands.push(arraySlice(side, bandTerms[b], begin, end));
    var shaded = new Array();
    var kernel = bands[4];
    for (var i = 0; i < kernel.length; i++) {
        var missing = kernel[i] == MISSING;
        shaded.push(missing);
        if (!missing) continue;
        for (var f = 0; f < bands.length; f++) bands[f][i] = fillMissingPhaseData(fillFrom, bandTerms[f], bands[f], i, begin);
    }
    return { bands: bands, shaded: shaded };
}

// Refills the names and the ten series that the pop-ups read.
function fillVisible(begin, end) {
    visiblePhaseNames = arraySlice('left', 'phases', begin, end);
    visibleBands1 = sideSlice('left', 'left', begin, end).bands;
    visibleBands2 = sideSlice('right', 'left', begin, end).bands;
    zoomBands(visibleBands1, nonProcessZoom1, freeMemZoom1);
    zoomBands(visibleBands2, nonProcessZoom2, freeMemZoom2);
    visibleFree1 = visibleBands1[0]; visibleHeapRes1 = visibleBands1[1]; visibleHeapCom1 = visibleBands1[2];
    visibleOtherUsed1 = visibleBands1[3]; visibleKernelRes1 = visibleBands1[4];
    visibleFree2 = visibleBands2[0]; visibleHeapRes2 = visibleBands2[1]; visibleHeapCom2 = visibleBands2[2];
    visibleOtherUsed2 = visibleBands2[3]; visibleKernelRes2 = visibleBands2[4];
}

function zoomBands(bands, nonProcessOffset, freeOffset) {
    if (nonProcessOffset <= 0 && freeOffset <= 0) return;
    for (var i = 0; i < bands[0].length; i++) {
        if (bands[4][i] >= nonProcessOffset) bands[4][i] -= nonProcessOffset;
        if (bands[0][i] >= freeOffset) bands[0][i] -= freeOffset;
    }
}

function cart(canvasX, imageCoord) {
    return canvasX.height - imageCoord;
}

function myfillRect(canvas, x, y, w, h) {
    var element = document.getElementById(canvas);
    var height = parseInt(element.parentNode.style.height);
    element.getContext('2d').fillRect(x, height - y - h, w, h);
}

function getScrollbarWidth() {
    var outer = document.createElement('div');
    outer.style.cssText = 'position:absolute;top:-1000px;left:-1000px;width:100px;height:50px;overflow:hidden;';
    var inner = document.createElement('div');
    inner.style.height = '200px';
    outer.appendChild(inner);
    document.body.appendChild(outer);
    var withoutBar = inner.offsetWidth;
    outer.style.overflow = 'auto';
    var withBar = inner.offsetWidth;
    document.body.removeChild(document.body.lastChild);
    return withoutBar - withBar;
}

function getXtickLocations() {
    xticks = new Array();
    leftX = new Array();
    rightX = new Array();
    for (var i = 0; i < phasesToRender + 100; i++) xticks.push(0.5 + i * columnWidth);
    var limit = document.getElementById('fakeCanvasDiffDiv').offsetWidth;
    var rightEdge = limit - 1.5;
    for (var t = 1; t < xticks.length; t++) {
        if (xticks[t] > limit) {
            if (Math.abs(xticks[t - 1] - rightEdge) <= 1) xticks[t - 1] = rightEdge;
            break;
        }
    }
    for (var c = 0; c < xticks.length; c++) {
        if (c == 0) {
            leftX.push(xticks[0] - 0.5);
            rightX.push(xticks[0] + Math.floor(columnWidth / 2) + 0.5);
        } else {
            leftX.push(rightX[c - 1]);
            rightX.push(rightX[c - 1] + columnWidth);
        }
    }
}

// The half-range of the difference graph: the highest rise of the positive
// differences of one row, up to the next multiple of 25.
function getRange() {
    var maxDiff = 0;
    for (var i = 0; i < procData.length - numBlankData; i++) {
        var row = procData[i];
        var diffs = new Array();
        if (row.LHS_Reserved != MISSING && row.RHS_Reserved != MISSING) {
            for (var b = 0; b < bandFields.length; b++) diffs.push(row[bandFields[b] + 'AbsDev']);
        } else {
            var left = (row.LHS_NonProcess == MISSING && i > 0) ? procData[i - 1] : row;
            var right = (row.RHS_NonProcess == MISSING && i > 0) ? procData[i - 1] : row;
            for (var d = 0; d < bandFields.length; d++) {
                diffs.push(right['RHS_' + bandFields[d]] - left['LHS_' + bandFields[d]]);
            }
            diffs[0] = right.RHS_NonProcessStart - left.LHS_NonProcessStart;
        }
        var sum = 0;
        for (var s = 0; s < diffs.length; s++) if (diffs[s] > 0) sum += diffs[s];
        if (sum > maxDiff) maxDiff = sum;
    }
    return Math.ceil(maxDiff / 25) * 25;
}

function renderMemChart() {
    if (!canvasSupport || !document.getElementById('absDevCanvasDiff')) return;
    x_graphLabel = document.getElementById('graphLabelCanvasDiff'); ctx_graphLabel = x_graphLabel.getContext('2d');
    x_legend = document.getElementById('legendCanvasDiff');
    x_phaseNames = document.getElementById('phaseNamesCanvasDiff'); ctx_phaseNames = x_phaseNames.getContext('2d');
    x_absDev = document.getElementById('absDevCanvasDiff'); ctx_absDev = x_absDev.getContext('2d');
    x_dataSet1 = document.getElementById('dataSet1CanvasDiff'); ctx_dataSet1 = x_dataSet1.getContext('2d');
    x_dataSet2 = document.getElementById('dataSet2CanvasDiff'); ctx_dataSet2 = x_dataSet2.getContext('2d');
    x_topTicks = document.getElementById('topTicksCanvasDiff'); ctx_topTicks = x_topTicks.getContext('2d');
    x_absDevLabel = document.getElementById('absDevLabelCanvasDiff');
    x_dataSet1Label = document.getElementById('dataSet1LabelCanvasDiff');
    x_dataSet2Label = document.getElementById('dataSet2LabelCanvasDiff');
    x_fake = document.getElementById('fakeCanvasDiff');
    windowWidth = (window.innerWidth === undefined) ? document.body.clientWidth : window.innerWidth;
    marginLeft = x_graphLabel.width;
    dataLen = procData.length;
    if (dataLen == 0) return;

    scrollbarWidth = getScrollbarWidth();
    resizeAll();
    drawLegendBoxes('legendCanvasDiff', 25);
    drawRibbon('phaseNamesCanvasDiffDiv');
    for (var a = 0; a < panels.length; a++) drawUpDownArrows(document.getElementById(panels[a].arrows));

    ctx_absDev.font = eventLabelFont;
    var desiredWidth = marginLeft + (dataLen - 1) * columnWidth;
    extraPaddingW = Math.round(ctx_absDev.measureText(phaseLabelText(dataLen - 1, false).text).width *
                               Math.cos(Math.PI * eventLabelRotate / 180));
    desiredWidth = Math.min(desiredWidth + extraPaddingW, 30000);
    x_fake.style.width = (desiredWidth - marginLeft) + 'px';
    setStyle('fakeCanvasDiffDiv', 'left', (x_graphLabel.width + 10) + 'px');
    setStyle('fakeCanvasDiffDiv', 'width', (x_absDev.width + 3) + 'px');
    repositionScrollbar(true);

    numBlankData = Math.max(4, Math.ceil((extraPaddingW + 3) / columnWidth + 1));
    for (var b = 0; b < numBlankData; b++) {
        procData.push(new dataStruct(0, "0", 0, -1, -1, -1, -1, -1, -1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, " ", 0, 0,
                                     " ", 0, 0, " ", 0, 0, " ", 0, 0, " "));
    }
    dataLen = procData.length;

    var longestStr = widestLabel(ctx_absDev, 0, dataLen - numBlankData, false) * 1.1;
    maxLabelHeight -= enlargeCanvasArea;
    expandedHeight_phaseNames = Math.min(Math.round(longestStr * sinDeg(eventLabelRotate) + eventLabelVertSpacing + 55),
                                         maxLabelHeight);

    phasesToRender = Math.min(Math.ceil((windowWidth - marginLeft) / columnWidth) + 1, dataLen - numBlankData);
    getXtickLocations();

    for (var m = 0; m < dataLen - numBlankData; m++) {
        var row = procData[m];
        if (row.LHS_NonProcess != MISSING) {
            max1 = Math.max(max1, row.LHS_Free + row.LHS_Reserved + row.LHS_Committed + row.LHS_Dlls + row.LHS_NonProcess);
            kernelResMin1 = Math.min(kernelResMin1, row.LHS_NonProcess);
            freeMemMin1 = Math.min(freeMemMin1, row.LHS_Free);
        }
        if (row.RHS_NonProcess != MISSING) {
            max2 = Math.max(max2, row.RHS_Free + row.RHS_Reserved + row.RHS_Committed + row.RHS_Dlls + row.RHS_NonProcess);
            kernelResMin2 = Math.min(kernelResMin2, row.RHS_NonProcess);
            freeMemMin2 = Math.min(freeMemMin2, row.RHS_Free);
        }
    }
    // A 64-bit address space: each run's axis starts at its smallest free and
    // non-process figures, which would otherwise flatten the other bands.
    if (max1 > 5000) {
        max1 -= kernelResMin1 + freeMemMin1;
        nonProcessZoom1 = kernelResMin1;
        freeMemZoom1 = freeMemMin1;
    }
    if (max2 > 5000) {
        max2 -= kernelResMin2 + freeMemMin2;
        nonProcessZoom2 = kernelResMin2;
        freeMemZoom2 = freeMemMin2;
    }
    fillVisible(0, phasesToRender);
    max = Math.max(max1, max2);
    differenceRange = getRange();
    someOutlineDivIsVisible = false;
    registeredPhaseOutlines = new Array();

    updateYticks();
    drawTopTicks();
    widthLimit = document.getElementById('fakeCanvasDiffDiv').offsetWidth;
    origLastLabel_defined = false;
    render('absDevCanvasDiff', 1, phasesToRender);
    render('dataSet1CanvasDiff', 1, phasesToRender);
    render('dataSet2CanvasDiff', 1, phasesToRender);

    var writeStr = makePopupDivs();
    for (var g = 1; g < panels.length; g++) {
        var graph = panels[g];
        var top = styleTop(graph.div) + 2;
        var height = panelHeight(graph) - 2;
        for (var o = 0; o < phasesToRender; o++) {
            var left = (o == 0) ? xticks[0] + marginLeft + 11 : xticks[o] + marginLeft + 10 - columnWidth / 2 + 2;
            var width = (o == 0) ? columnWidth / 2 : columnWidth;
            writeStr += '<div id="outlineDiv' + o + graph.suffix + '" style="position:absolute;visibility:hidden;' +
                'outline:1px solid black;z-index:15;top:' + top + 'px;left:' + left + 'px;width:' + width +
                'px;height:' + height + 'px;"></div>';
        }
    }
    document.getElementById('tableCanvasDiv').innerHTML += writeStr;
}

// Draws the columns of `oneCtx` for rows `begin` to `end`, and with the
// difference graph the phase labels and the outlines of clicked phases.
function showMemStats(oneCtx, begin, end, endOfScroll) {
    var left = sideSlice('left', 'left', begin, end);
    var right = sideSlice('right', 'right', begin, end);
    if (!origLastLabel_defined) {
        origLastLabel = yTickLabels[yTickLabels.length - 1];
        origLastLabel_defined = true;
    }
    var absDevPanel = panels[1];
    if (oneCtx == 'dataSet1CanvasDiff' || oneCtx == 'dataSet2CanvasDiff') {
        var first = oneCtx == 'dataSet1CanvasDiff';
        var panel = panels[first ? 2 : 3];
        var side = first ? left : right;
        var sideMax = first ? max1 : max2;
        zoomBands(side.bands, first ? nonProcessZoom1 : nonProcessZoom2, first ? freeMemZoom1 : freeMemZoom2);
        if (sideMax > 0 && !isRibbon(panel)) drawStacks(panel, side, panelHeight(panel) / sideMax);
    } else if (oneCtx == 'absDevCanvasDiff') {
        if ((max1 > 0 || max2 > 0) && !isRibbon(absDevPanel) && parseFloat(origLastLabel) > 0) {
            var diffs = new Array();
            for (var b = 0; b < bandTerms.length; b++) {
                diffs.push(new Array());
                for (var i = 0; i < left.bands[b].length; i++) diffs[b].push(right.bands[b][i] - left.bands[b][i]);
            }
            drawDifference(diffs, (panelHeight(absDevPanel) / 2) / parseFloat(origLastLabel));
        }
        drawPhaseLabels(begin, end, endOfScroll);
    }
}

// Stacks the bands of one run from the bottom up, shaded where filled in.
function drawStacks(panel, side, heightFactor) {
    var ctx = panelCanvas(panel).getContext('2d');
    for (var i = 0; i < side.shaded.length && i < xticks.length; i++) {
        var right = rightX[i];
        var last = right > widthLimit;
        if (last) right = widthLimit - 3;
        var ybottom = 0;
        for (var b = bandTerms.length - 1; b >= 0; b--) {
            var height = (side.bands[b][i] || 0) * heightFactor;
            ctx.fillStyle = side.shaded[i] ? colorsShaded[b] : colors[b];
            myfillRect(panel.canvas, leftX[i], ybottom, right - leftX[i], height);
            ybottom += height;
        }
        if (last) break;
    }
}

// The difference graph: rises stack up from the midline, falls down from it,
// non-process nearest the line going up and lowest going down.
function drawDifference(diffs, heightFactor) {
    var panel = panels[1];
    var ctx = panelCanvas(panel).getContext('2d');
    var halfway = panelHeight(panel) / 2 + 1;
    for (var i = 0; i < diffs[0].length && i < xticks.length; i++) {
        var right = Math.min(rightX[i], widthLimit - 3);
        var ybottom = halfway - 1;
        var paintOffset = halfway - 3;
        for (var b = bandTerms.length - 1; b >= 0; b--) {
            var height = diffs[b][i] * heightFactor;
            if (height > 0) {
                ctx.fillStyle = colors[b];
                myfillRect(panel.canvas, leftX[i], ybottom, right - leftX[i], height);
                ybottom += height;
            } else if (height < 0) {
                paintOffset += height;
            }
        }
        ybottom = paintOffset;
        for (var n = bandTerms.length - 1; n >= 0; n--) {
            var fall = diffs[n][i] * heightFactor;
            if (fall >= 0) continue;
            ctx.fillStyle = colors[n];
            myfillRect(panel.canvas, leftX[i], ybottom, right - leftX[i], -fall);
            ybottom -= fall;
        }
    }
}

function drawPhaseLabels(begin, end, endOfScroll) {
    var namesPanel = panels[0];
    var namesFolded = isRibbon(namesPanel);
    if (!namesFolded) {
        ctx_phaseNames.fillStyle = '#FFFFFF';
        ctx_phaseNames.fillRect(0, 0, widthLimit, x_phaseNames.height);
    }
    if (someOutlineDivIsVisible) {
        for (var g = 1; g < panels.length; g++) {
            for (var o = 0; o < xticks.length; o++) setElementVisibility('outlineDiv' + o + panels[g].suffix, 'hidden');
        }
        someOutlineDivIsVisible = false;
    }
    var eventsSlice = arraySlice('left', 'phases', begin, end);
    visiblePhaseNames = eventsSlice;
    ctx_phaseNames.font = eventLabelFont;
    chooseLabelMultipliers();
    var chartShown = document.getElementById('memoryCanvasTable').style.visibility == 'visible';
    var realRows = procData.length - numBlankData;
    for (var i = 0; i < eventsSlice.length && i < xticks.length; i++) {
        var transX = i * columnWidth + 7;
        var label = (begin + i >= realRows) ? '' : eventsSlice[i];
        if (!namesFolded) {
            ctx_phaseNames.save();
            ctx_phaseNames.translate(transX, expandedHeight_phaseNames);
            ctx_phaseNames.rotate(-Math.PI * eventLabelRotate / 180);
            drawPhaseLabel(ctx_phaseNames, i, label);
            ctx_phaseNames.restore();
        }
        if (label == '' || zeroBasedIndicesOfClickedPhase.indexOf(begin + i) < 0) continue;
        for (var r = 0; r < registeredPhaseOutlines.length; r++) {
            if (registeredPhaseOutlines[r] != label) continue;
            for (var p = 1; p < panels.length; p++) {
                if (chartShown && !isRibbon(panels[p])) setElementVisibility('outlineDiv' + i + panels[p].suffix, 'visible');
            }
            someOutlineDivIsVisible = true;
            moveCloseButtons(begin + i, i);
        }
    }
    if (!endOfScroll && !namesFolded) {
        ctx_phaseNames.fillStyle = '#FFFFFF';
        ctx_phaseNames.fillRect(widthLimit, 0, 200, x_phaseNames.height);
    }
}

// Keeps the close button of the pop-up of execution `zeroBasedIndex` hiding
// the outlines of the column where that execution now stands.
function moveCloseButtons(zeroBasedIndex, idx) {
    for (var k = 100; k >= 1; k--) {
        var popup = document.getElementById('popupDiv' + k);
        if (!popup || parseInt(popup.style.zIndex) < 1000 || popup.getAttribute('data-row') != '' + zeroBasedIndex) continue;
        var buttonCell = popup.childNodes[1].rows[0].cells[1];
        buttonCell.innerHTML = buttonCell.innerHTML.replace(/,\s*-?[0-9]+\)/, ',' + idx + ')');
    }
}

function render(oneCtx, begin, end) {
    if (end == dataLen - numBlankData) {
        begin += 2 + numBlankData;
        end += numBlankData;
        endOfScroll = true;
    } else {
        begin -= 1;
        end -= 1;
        endOfScroll = false;
    }
    showMemStats(oneCtx, begin, end, endOfScroll);
    littleExtra = endOfScroll ? (numBlankData - 1.5) * columnWidth : 0;
    var width = windowWidth - scrollbarWidth;
    var suggestedRight = marginRight;
    if (endOfScroll) {
        var a = 10 + x_graphLabel.width + columnWidth * (end - begin - numBlankData) - 8;
        var c = 10 + x_graphLabel.width - 0.5 * columnWidth;
        suggestedRight = width - (Math.round((a - c) / columnWidth) * columnWidth + c + 3);
    }
    var rightIds = ['topTicksCanvasDiffDiv', 'absDevCanvasDiffDiv', 'dataSet1CanvasDiffDiv', 'dataSet2CanvasDiffDiv',
                    'phaseNamesCanvasDiffDiv'];
    for (var r = 0; r < rightIds.length; r++) setStyle(rightIds[r], 'right', suggestedRight + 'px');
    if (endOfScroll) {
        ctx_topTicks.fillStyle = '#FFFFFF';
        ctx_topTicks.fillRect(widthLimit - 2, 2, littleExtra + 20, x_topTicks.height - 2);
        ctx_absDev.fillStyle = '#FFFFFF';
        ctx_absDev.fillRect(widthLimit - 2, 0, littleExtra, x_absDev.height);
    }
    drawMidline(windowWidth - 10 - x_graphLabel.width - suggestedRight);
    drawTopTicks();
    fillVisible(begin, end);
}

function swapCanvas(D) {
    var m = dataLen - numBlankData - phasesToRender;
    var room = D.scrollWidth - D.clientWidth;
    percentScrolled = (room > 0) ? D.scrollLeft / room : 0;
    var begin = Math.floor(m * percentScrolled + 1);
    var end = Math.floor(begin + phasesToRender - 1);
    ctx_absDev.clearRect(isRibbon(panels[1]) ? 300 : 0, 0, x_absDev.width, x_absDev.height);
    render('absDevCanvasDiff', begin, end);
    for (var p = 2; p < panels.length; p++) {
        if (isRibbon(panels[p])) continue;
        panelCanvas(panels[p]).getContext('2d').clearRect(0, 0, windowWidth, panelHeight(panels[p]));
        render(panels[p].canvas, begin, end);
    }
}

function drawMidline(specificWidth) {
    var width = specificWidth || document.getElementById('fakeCanvasDiffDiv').offsetWidth;
    if (isRibbon(panels[1])) return;
    var halfway = x_absDev.height / 2 + 1;
    ctx_absDev.strokeStyle = '#FFFFFF';
    ctx_absDev.beginPath();
    ctx_absDev.moveTo(1, halfway);
    ctx_absDev.lineTo(width, halfway);
    ctx_absDev.stroke();
    ctx_absDev.strokeStyle = 'black';
    ctx_absDev.beginPath();
    ctx_absDev.moveTo(0, halfway);
    ctx_absDev.lineTo(width - 2, halfway);
    ctx_absDev.stroke();
}

function drawTopTicks() {
    var topTicksH = styleTop('absDevCanvasDiffDiv') - (82 + x_phaseNames.height);
    if (isNaN(topTicksH)) return;
    ctx_topTicks.fillStyle = '#FFFFFF';
    ctx_topTicks.fillRect(0, 0, x_topTicks.width, topTicksH);
    if (isRibbon(panels[1])) return;
    var right = parseInt(document.getElementById('topTicksCanvasDiffDiv').style.right) || 0;
    ctx_topTicks.strokeStyle = 'black';
    ctx_topTicks.beginPath();
    for (var i = 0; i < xticks.length; i++) {
        if (windowWidth - (28 + x_graphLabel.width + xticks[i]) < right) continue;
        ctx_topTicks.moveTo(xticks[i], topTicksH);
        ctx_topTicks.lineTo(xticks[i], topTicksH - tickLengthY);
    }
    ctx_topTicks.stroke();
}

// The y ticks and labels of all three graphs on the one label canvas.
function updateYticks() {
    yTickLabels = new Array();
    yTickPositions = new Array();
    yLabelPositions = new Array();
    getTickLabelsAndPositions(x_dataSet2Label);
    getTickLabelsAndPositions(x_dataSet1Label);
    getTickLabelsAndPositions(x_absDevLabel);
    var x = x_graphLabel;
    ctx_graphLabel.clearRect(0, 0, x.width, x.height);
    ctx_graphLabel.strokeStyle = 'black';
    ctx_graphLabel.fillStyle = 'black';
    ctx_graphLabel.font = tickLabelFontSize + 'px Sans-Serif';
    ctx_graphLabel.textAlign = 'right';
    ctx_graphLabel.beginPath();
    for (var i = 0; i < yTickLabels.length; i++) {
        ctx_graphLabel.moveTo(x.width - tickLengthY, cart(x, yTickPositions[i]));
        ctx_graphLabel.lineTo(x.width, cart(x, yTickPositions[i]));
        ctx_graphLabel.fillText(yTickLabels[i], x.width - yTickLabelSpacing + 2 - tickLengthY, cart(x, yLabelPositions[i]));
    }
    ctx_graphLabel.stroke();
    ctx_graphLabel.textAlign = 'start';
    if (isRibbon(panels[1]) && isRibbon(panels[2]) && isRibbon(panels[3])) return;
    var yLabel = (max1 > 0 && max2 > 0) ? "Virtual Memory (MB)" : "Virtual Memory";
    ctx_graphLabel.font = yLabelFont;
    var sum = panelHeight(panels[1]) + panelHeight(panels[2]) + panelHeight(panels[3]);
    var transY = sum / 2 + styleTop('absDevCanvasDiffDiv') + 30 - (ctx_graphLabel.measureText(yLabel).width / 2 + 60);
    ctx_graphLabel.save();
    ctx_graphLabel.translate(25, transY + ctx_graphLabel.measureText(yLabel).width);
    ctx_graphLabel.rotate(1.5 * Math.PI);
    ctx_graphLabel.fillText(yLabel, 0, 0);
    ctx_graphLabel.restore();
    drawIndivGraphLabel('absDevCanvasDiffDiv', "Absolute Deviation");
    drawIndivGraphLabel('dataSet1CanvasDiffDiv', lhsLabel);
    drawIndivGraphLabel('dataSet2CanvasDiffDiv', rhsLabel);
}

function drawIndivGraphLabel(divID, str) {
    var panel = panelOf(divID);
    if (isRibbon(panel)) return;
    var text = plainLabel(str);
    ctx_graphLabel.font = indivGraphFont;
    ctx_graphLabel.fillStyle = 'black';
    var centre = styleTop(divID) - 41 + panelHeight(panel) / 2 + ctx_graphLabel.measureText(text).width / 2;
    ctx_graphLabel.save();
    ctx_graphLabel.translate(kernelResMin1 > 5000 ? 60 : 85, centre + 40 - 40);
    ctx_graphLabel.rotate(1.5 * Math.PI);
    ctx_graphLabel.fillText(text, 0, 0);
    ctx_graphLabel.restore();
}

function getTickLabelsAndPositions(x) {
    var tickLabelFontHeight = (tickLabelFontSize <= 10) ? 6 : (tickLabelFontSize <= 12 ? 9 : 10);
    var panel = (x == x_absDevLabel) ? panels[1] : (x == x_dataSet1Label ? panels[2] : panels[3]);
    if (isRibbon(panel)) return;
    var height = panelHeight(panel);
    var numTicksY = (height == expandedHeight(panel)) ? numTicksYexpanded : numTicksYcollapsed;
    if (max == 0) numTicksY = defaultNumTicksY;
    var spacing = height / (numTicksY - 1);
    var first = panel == panels[2];
    var test64 = panel != panels[1] && (first ? freeMemZoom1 : freeMemZoom2) > 5000;
    var max_1or2 = first ? max1 : max2;
    var kernelResMin = first ? kernelResMin1 : (panel == panels[3] ? kernelResMin2 : Math.min(kernelResMin1, kernelResMin2));
    var inc = differenceRange * 2 / (numTicksY - 1);
    var graphTop = styleTop(panel.div);
    var offset = x_graphLabel.height - (graphTop - 41) - height;
    for (var i = 0; i < numTicksY; i++) {
        var t = i * spacing;
        var lab;
        if (panel == panels[1]) {
            if (max == 0) lab = yTickLabel(i, numTicksY, 0, false, 0, 0);
            else if (inc == 0) lab = (2 * i == numTicksY - 1) ? '0' : ' ';
            else lab = '' + Math.round(-differenceRange + i * inc);
        } else {
            var zoomTotal = first ? nonProcessZoom1 + freeMemZoom1 : nonProcessZoom2 + freeMemZoom2;
            lab = yTickLabel(i, numTicksY, test64 ? max_1or2 + zoomTotal : max_1or2, test64, kernelResMin, zoomTotal);
        }
        var h_tick = Math.min(Math.max(t, 0.5), height - 0.5);
        var h_label = Math.min(Math.max(t - Math.ceil(tickLabelFontHeight / 2), 1), height - 2 * tickLabelFontHeight);
        yTickLabels.push(lab);
        yTickPositions.push(h_tick + offset);
        yLabelPositions.push(h_label + offset);
    }
}

function repositionScrollbar(firstTime) {
    var dataSet2 = panels[3];
    setStyle('fakeCanvasDiffDiv', 'top', (styleTop(dataSet2.div) + panelHeight(dataSet2) + 7) + 'px');
    if (firstTime) {
        var right = parseInt(document.getElementById('topTicksCanvasDiffDiv').style.right) || 0;
        setStyle('fakeCanvasDiffDiv', 'width',
                 (windowWidth - 10 - x_graphLabel.width - right - getScrollbarWidth()) + 'px');
    }
}

function canvasResizeAction() {
    if (!canvasSupport || x_phaseNames === undefined) return;
    windowWidth = (window.innerWidth === undefined) ? document.body.clientWidth : window.innerWidth;
    scrollbarWidth = getScrollbarWidth();
    var canvases = [x_phaseNames, x_absDev, x_dataSet1, x_dataSet2, x_topTicks, x_legend];
    for (var c = 0; c < canvases.length; c++) canvases[c].width = windowWidth;
    drawLegendBoxes('legendCanvasDiff', 25);
    var dummy = document.getElementById('fakeCanvasDiffDiv');
    dummy.style.width = (dummy.offsetWidth + windowWidth - windowWidthOrig) + 'px';
    windowWidthOrig = windowWidth;
    widthLimit = dummy.offsetWidth;
    phasesToRender = Math.min(Math.ceil((windowWidth - 10 - x_graphLabel.width) / columnWidth) + 1,
                              dataLen - numBlankData);
    getXtickLocations();
    drawTopTicks();
    swapCanvas(dummy);
    drawMidline();
    putRibbonLabelsBack();
}

// ---- The panels' sizes and places; their folding is in diff_chart_panels.js, the pop-ups in diff_chart_popups.js.

function resizeAll() {
    x_graphLabel.width = 140;
    marginLeft = x_graphLabel.width;
    var wide = [x_legend, x_phaseNames, x_absDev, x_dataSet1, x_dataSet2, x_topTicks];
    for (var w = 0; w < wide.length; w++) wide[w].width = windowWidth;
    var heights = [ribbonHeight_phaseNames, expandedHeight_absDev, collapsedHeight_dataSet1, collapsedHeight_dataSet2];
    var tops = [81, origAbsDevTop - 20, 553, 773];
    for (var p = 0; p < panels.length; p++) {
        var panel = panels[p];
        var arrows = document.getElementById(panel.arrows);
        arrows.width = 38;
        arrows.height = 18;
        panelCanvas(panel).height = heights[p];
        setStyle(panel.div, 'height', heights[p] + 'px');
        setStyle(panel.div, 'top', tops[p] + 'px');
        setStyle(panel.div, 'right', marginRight + 'px');
        setStyle(panel.div, 'overflow', 'hidden');
        setStyle(panel.arrows + 'Div', 'top', tops[p] + 'px');
        if (panel.label) {
            var label = document.getElementById(panel.label);
            label.width = 90;
            label.height = heights[p];
            setStyle(panel.label + 'Div', 'top', tops[p] + 'px');
            setStyle(panel.label + 'Div', 'height', heights[p] + 'px');
        }
        if (panel.matte) {
            setStyle(panel.matte, 'top', tops[p] + 'px');
            setStyle(panel.matte, 'height', (heights[p] + 2) + 'px');
            setStyle(panel.matte, 'right', '0px');
            setStyle(panel.matte, 'width', marginRight + 'px');
        }
    }
    var defaultH = 773 + collapsedHeight_dataSet2 - 37;
    x_graphLabel.height = defaultH;
    setStyle('graphLabelCanvasDiffDiv', 'height', (defaultH + 2) + 'px');
    setStyle('topTicksCanvasDiffDiv', 'top', (102 + ribbonHeight_phaseNames - 20) + 'px');
    setStyle('topTicksCanvasDiffDiv', 'left', (10 + x_graphLabel.width + 1) + 'px');
    setStyle('topTicksCanvasDiffDiv', 'right', marginRight + 'px');
    setStyle('topTicksCanvasDiffDiv', 'overflow', 'hidden');
    setStyle('topTicksCanvasDiffDiv', 'height', (origAbsDevTop - 20 - (102 + ribbonHeight_phaseNames - 20)) + 'px');
    x_topTicks.height = 20;
}
