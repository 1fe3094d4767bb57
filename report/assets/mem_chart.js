// SPDX-License-Identifier: BSD-3-Clause
// The memory chart of one run: one stacked column of five bands per phase
// execution, the phase labels rotated above, a fixed y axis on its own canvas
// and a dummy element whose scroll bar picks the slice that is drawn. Only the
// visible columns are ever drawn. Builds on chart_common.js.

var numBlankData = 0;
var x_locked, x_scroll, ctx_locked, ctx_scroll;
var visibleKernelRes = new Array();
var visibleFree = new Array();
var visibleOtherUsed = new Array();
var visibleHeapCom = new Array();
var visibleHeapRes = new Array();
var nonProcessZoom = 0;
var freeMemZoom = 0;

// The visible series by band index, as `colors` orders them.
function visibleBands() {
    return [visibleFree, visibleHeapRes, visibleHeapCom, visibleOtherUsed, visibleKernelRes];
}

function arraySlice(arrayType, begin, end) {
    if (arrayType == 'phases') return phaseLabelSlice(begin, end, true);
    return fieldSlice(bandFields[bandTerms.indexOf(arrayType)], begin, end);
}

// Refills the names and the five series for rows `begin` to `end`, the zoom
// offsets taken off the free and non-process figures.
function fillVisible(begin, end) {
    visiblePhaseNames = arraySlice('phases', begin, end);
    visibleFree = arraySlice('freeMem', begin, end);
    visibleHeapRes = arraySlice('heapRes', begin, end);
    visibleHeapCom = arraySlice('heapCom', begin, end);
    visibleOtherUsed = arraySlice('otherUsed', begin, end);
    visibleKernelRes = arraySlice('kernelRes', begin, end);
    for (var i = 0; i < visibleFree.length; i++) {
        if (visibleKernelRes[i] >= nonProcessZoom) visibleKernelRes[i] -= nonProcessZoom;
        if (visibleFree[i] >= freeMemZoom) visibleFree[i] -= freeMemZoom;
    }
}

function cart(imageCoord) {
    return x_locked.height - imageCoord;
}

function myfillRect(canvas, x, y, w, h) {
    var ctx = document.getElementById(canvas).getContext('2d');
    ctx.fillRect(x, cart(y) - h, w, h);
}

function myfillText(str, x, y) {
    ctx_locked.fillText(str, x, cart(y));
}

// Columns are centred on their ticks; the first and the last are halves.
function computeColumns() {
    xticks = new Array();
    leftX = new Array();
    rightX = new Array();
    for (var i = 0; i < phasesToRender; i++) xticks.push(0.5 + i * columnWidth);
    xticks[xticks.length - 1] -= 1;
    for (var c = 0; c < xticks.length; c++) {
        if (c == 0) {
            leftX.push(xticks[0]);
            rightX.push(xticks[0] + Math.floor(columnWidth / 2) + 0.5);
        } else if (c == xticks.length - 1) {
            leftX.push(rightX[c - 1]);
            rightX.push(xticks[c] - 0.5);
        } else {
            leftX.push(rightX[c - 1]);
            rightX.push(rightX[c - 1] + columnWidth);
        }
    }
}

function resizeScrollDiv() {
    var width = (windowWidth - marginLeft - 36) + 'px';
    document.getElementById('scrollcanvasdiv').style.width = width;
    document.getElementById('fakecanvasdiv').style.width = width;
}

function renderMemChart() {
    if (!document.getElementById('lockedcanvas') || !document.getElementById('scrollcanvas')) return;
    x_locked = document.getElementById('lockedcanvas');
    x_scroll = document.getElementById('scrollcanvas');
    ctx_locked = x_locked.getContext('2d');
    ctx_scroll = x_scroll.getContext('2d');
    windowWidth = (window.innerWidth === undefined) ? document.body.clientWidth : window.innerWidth;
    dataLen = procData.length;
    if (dataLen == 0) return;

    var desiredWidth = marginLeft + (dataLen - 1) * columnWidth;
    ctx_scroll.font = eventLabelFont;
    var lastLabel = phaseLabelText(dataLen - 1, false).text;
    extraPaddingW = Math.round(ctx_scroll.measureText(lastLabel).width * Math.cos(Math.PI * eventLabelRotate / 180));
    desiredWidth = Math.min(desiredWidth + extraPaddingW, 30000);
    document.getElementById('fakecanvas').style.width = (desiredWidth - marginLeft) + 'px';
    x_scroll.width = windowWidth + 100;

    numBlankData = Math.max(4, Math.ceil((extraPaddingW + 3) / columnWidth + 1));
    for (var b = 0; b < numBlankData; b++) {
        procData.push(new dataStruct(0, "0", 0, -1, -1, -1, -1, -1, -1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, " ", 0, 0,
                                     " ", 0, 0, " ", 0, 0, " ", 0, 0, " "));
    }
    dataLen = procData.length;

    // Room above the graph for the rotated labels.
    var requiredPaddingH = 0;
    var longestStr = 0;
    maxLabelHeight -= enlargeCanvasArea;
    var labelWidths = {};
    for (var r = 0; r < dataLen - numBlankData; r++) {
        var text = phaseLabelText(r, true).text;
        var tmp = labelWidths[text];
        if (tmp === undefined) tmp = labelWidths[text] = ctx_scroll.measureText(text).width;
        if (Math.round(tmp * 1.2 * sinDeg(eventLabelRotate) + eventLabelVertSpacing + 55) > maxLabelHeight) {
            requiredPaddingH = maxLabelHeight + 25 - enlargeCanvasArea;
            break;
        }
        if (tmp > longestStr) longestStr = tmp;
    }
    if (requiredPaddingH > 0) {
        longestStr *= 1.2;
        requiredPaddingH = Math.min(Math.round(longestStr * sinDeg(eventLabelRotate) + eventLabelVertSpacing + 65),
                                    maxLabelHeight + 25);
    }
    if (marginTop < requiredPaddingH) {
        var grow = requiredPaddingH - marginTop + enlargeCanvasArea;
        x_locked.height += grow;
        x_scroll.height += grow;
        marginTop = requiredPaddingH;
    }
    if (canvasDivHeight < x_locked.height + 20) canvasDivHeight = x_locked.height + 20;
    document.getElementById('lockedcanvasdiv').style.height = canvasDivHeight + 'px';
    document.getElementById('scrollcanvasdiv').style.height = canvasDivHeight + 'px';
    document.getElementById('fakecanvasdiv').style.top = (80 + x_scroll.height) + 'px';

    phasesToRender = Math.min(Math.ceil(windowWidth / columnWidth) + 1, dataLen - numBlankData);
    computeColumns();

    for (var m = 0; m < dataLen; m++) {
        var row = procData[m];
        var total = row.NonProcess + row.Reserved + row.Dlls + row.Committed + row.Free;
        if (total > max) max = total;
    }
    drawTopTicks();
    drawLegendBoxes('legendCanvas', 100);

    // A 64-bit address space: the free and non-process figures would flatten
    // the other bands, so the axis starts at their smallest values.
    if (max > 5000) {
        nonProcessZoom = 1e16;
        freeMemZoom = 1e16;
        for (var z = 0; z < dataLen - numBlankData; z++) {
            nonProcessZoom = Math.min(nonProcessZoom, procData[z].NonProcessStart);
            freeMemZoom = Math.min(freeMemZoom, procData[z].FreeStart);
        }
    }
    fillVisible(0, phasesToRender);
    drawYticks();
    if (max > 5000) max -= nonProcessZoom + freeMemZoom;
    render(1, phasesToRender);

    ctx_scroll.strokeStyle = 'black';
    ctx_scroll.strokeRect(0.5, marginTop + 0.5, x_scroll.width - marginLeft - extraPaddingW - columnWidth,
                          x_scroll.height - marginTop - 6);

    var yLabel = (max > 0) ? "Virtual Memory (MB)" : "Virtual Memory";
    ctx_locked.save();
    ctx_locked.font = yLabelFont;
    ctx_locked.fillStyle = 'black';
    ctx_locked.translate(25, marginTop + (x_locked.height - marginTop - 6 - ctx_locked.measureText(yLabel).width) / 2);
    ctx_locked.rotate(1.5 * Math.PI);
    ctx_locked.textAlign = 'right';
    ctx_locked.fillText(yLabel, 0, 0);
    ctx_locked.restore();

    var writeStr = makePopupDivs();
    var outlineTop = marginTop + 82;
    var outlineHeight = x_scroll.height - marginTop - 9;
    for (var o = 0; o < xticks.length; o++) {
        var left = (o == 0) ? xticks[0] + marginLeft + 10 : xticks[o] + marginLeft + 10 - columnWidth / 2;
        var width = (o == 0) ? columnWidth / 2 : columnWidth;
        writeStr += '<div id="outlineDiv' + o + '" style="position:absolute;visibility:hidden;outline:1px solid black;' +
            'top:' + outlineTop + 'px;left:' + left + 'px;width:' + width + 'px;height:' + outlineHeight + 'px;"></div>';
    }
    document.getElementById('tableCanvasDiv').innerHTML += writeStr;
    resizeScrollDiv();
}

function drawYticks() {
    var tickLabelFontHeight = (tickLabelFontSize <= 10) ? 6 : (tickLabelFontSize <= 12 ? 9 : 10);
    if (max == 0) numTicksY = defaultNumTicksY;
    var spacing = (x_locked.height - marginTop - 6) / (numTicksY - 1);
    var zoomed = max > 5000;
    ctx_locked.strokeStyle = 'black';
    ctx_locked.fillStyle = 'black';
    ctx_locked.font = tickLabelFontSize + 'px Sans-Serif';
    ctx_locked.textAlign = 'right';
    for (var i = 0; i < numTicksY; i++) {
        var t = i * spacing + 5;
        var h_tick = (i == 0 || i == numTicksY - 1) ? t + 0.5 : t;
        var h_label = t - Math.ceil(tickLabelFontHeight / 2);
        ctx_locked.beginPath();
        ctx_locked.moveTo(marginLeft - tickLengthY, cart(h_tick));
        ctx_locked.lineTo(marginLeft, cart(h_tick));
        ctx_locked.stroke();
        var lab = yTickLabel(i, numTicksY, max, zoomed, nonProcessZoom, nonProcessZoom + freeMemZoom);
        ctx_locked.fillText(lab, marginLeft - yTickLabelSpacing, cart(h_label));
    }
    ctx_locked.textAlign = 'start';
}

function drawTopTicks() {
    ctx_scroll.strokeStyle = 'black';
    ctx_scroll.beginPath();
    for (var i = 0; i < xticks.length; i++) {
        ctx_scroll.moveTo(xticks[i], marginTop + 1);
        ctx_scroll.lineTo(xticks[i], marginTop + 1 - tickLengthX);
    }
    ctx_scroll.stroke();
}

function showMemStats(begin, end, endOfScroll) {
    if (max <= 0) return;
    var heightFactor = (x_scroll.height - marginTop - 6) / max;
    var bands = visibleBands();
    var realRows = procData.length - numBlankData;
    for (var i = 0; i < xticks.length && i < visiblePhaseNames.length; i++) {
        var ybottom = 0;
        var blank = endOfScroll && begin + i >= realRows;
        for (var b = bands.length - 1; b >= 0; b--) {
            var height = (bands[b][i] || 0) * heightFactor;
            ctx_scroll.fillStyle = blank ? '#FFFFFF' : colors[b];
            myfillRect('scrollcanvas', leftX[i], 5.5 + ybottom, rightX[i] - leftX[i], height);
            ybottom += height;
        }
    }
}

function render(begin, end) {
    var endOfScroll = false;
    if (end == procData.length) {
        begin += numBlankData;
        endOfScroll = true;
    } else {
        begin -= 1;
        end -= 1;
    }
    showMemStats(begin, end, endOfScroll);
    if (someOutlineDivIsVisible) {
        for (var o = 0; o < xticks.length; o++) setElementVisibility('outlineDiv' + o, 'hidden');
        someOutlineDivIsVisible = false;
    }
    var transY = marginTop - eventLabelVertSpacing;
    var angle = -Math.PI * eventLabelRotate / 180;
    var realRows = procData.length - numBlankData;
    var chartShown = document.getElementById('memoryCanvasTable').style.visibility == 'visible';
    ctx_scroll.font = eventLabelFont;
    chooseLabelMultipliers();
    for (var count = 0; count < visiblePhaseNames.length && count < xticks.length; count++) {
        var transX = count * columnWidth + tickLengthX + 4;
        var label = visiblePhaseNames[count];
        if (endOfScroll && begin + count >= realRows) label = '';
        ctx_scroll.save();
        ctx_scroll.translate(transX, transY);
        ctx_scroll.rotate(angle);
        label = drawPhaseLabel(ctx_scroll, count, label);
        ctx_scroll.restore();
        if (label == '') continue;
        var idx = Math.floor(transX / columnWidth);
        for (var r = 0; r < registeredPhaseOutlines.length; r++) {
            if (!labelMatches(registeredPhaseOutlines[r], label)) continue;
            if (zeroBasedIndicesOfClickedPhase.indexOf(begin + idx) < 0) continue;
            if (chartShown) setElementVisibility('outlineDiv' + idx, 'visible');
            someOutlineDivIsVisible = true;
            moveCloseButtons(begin + idx, idx);
        }
    }
    if (endOfScroll) {
        var edge = xticks[Math.max(0, xticks.length - numBlankData - 5)] - columnWidth / 2 + 0.5;
        ctx_scroll.fillStyle = '#FFFFFF';
        ctx_scroll.fillRect(edge, marginTop - tickLengthX - 2, (numBlankData + 4) * columnWidth, tickLengthX + 4);
    }
    return endOfScroll;
}

// Keeps the close button of the pop-up of execution `zeroBasedIndex` hiding
// the outline of the column where that execution now stands.
function moveCloseButtons(zeroBasedIndex, idx) {
    for (var k = 100; k >= 1; k--) {
        var popup = document.getElementById('popupDiv' + k);
        if (!popup || parseInt(popup.style.zIndex) < 1000 || popup.getAttribute('data-row') != '' + zeroBasedIndex) continue;
        var buttonCell = popup.childNodes[1].rows[0].cells[1];
        buttonCell.innerHTML = buttonCell.innerHTML.replace(/,\s*-?[0-9]+\)/, ',' + idx + ')');
    }
}

// Where the dummy's scroll bar stands: the first row drawn and one past the last.
function scrollSlice(D) {
    var m = procData.length - phasesToRender;
    var room = D.scrollWidth - D.clientWidth;
    percentScrolled = (room > 0) ? D.scrollLeft / room : 0;
    var begin = Math.floor(m * percentScrolled + 1);
    return { begin: begin, end: Math.floor(begin + phasesToRender - 1) };
}

function swapCanvas(D) {
    ctx_scroll.clearRect(1, 1, windowWidth, x_scroll.height);
    drawTopTicks();
    var slice = scrollSlice(D);
    if (slice.end == procData.length) {
        fillVisible(slice.begin + numBlankData, slice.end);
    } else {
        fillVisible(slice.begin - 1, slice.end);
    }
    ctx_scroll.beginPath();
    ctx_scroll.strokeStyle = 'black';
    var height = x_scroll.height - marginTop - 6;
    if (!render(slice.begin, slice.end)) {
        ctx_scroll.strokeRect(0.5, marginTop + 0.5, windowWidth, height);
    } else {
        ctx_scroll.strokeRect(0.5, marginTop + 0.5, xticks[Math.max(0, xticks.length - numBlankData - 5)] - columnWidth / 2,
                              height);
    }
}

function canvasResizeAction() {
    var test = document.getElementById('canvasSupportTest');
    if (!test || test.toString() != '[object HTMLCanvasElement]' || !x_scroll) return;
    windowWidth = (window.innerWidth === undefined) ? document.body.clientWidth : window.innerWidth;
    phasesToRender = Math.min(Math.ceil((windowWidth - marginLeft) / columnWidth) + 1 + numBlankData,
                              procData.length - numBlankData);
    computeColumns();
    x_scroll.width = windowWidth + 100;
    ctx_scroll = x_scroll.getContext('2d');
    swapCanvas(document.getElementById('fakecanvasdiv'));
    ctx_scroll.strokeRect(0.5, marginTop + 0.5, windowWidth, x_scroll.height - marginTop - 6);
    resizeScrollDiv();
}

// Finds the label under the mouse, following the labels' slant; the chart
// shows no tip of its own, the label is only noted.
function showToolTip(event) {
    if (!x_scroll) return;
    var X = event.clientX - marginLeft - 10;
    var distanceToGraph = (marginTop + 100) - event.clientY - window.pageYOffset;
    var calculatedXtick = X - distanceToGraph / Math.tan(Math.PI * eventLabelRotate / 180);
    var minInd = nearestTick(calculatedXtick);
    if (event.clientY + window.pageYOffset < marginTop + 80.5 && bEllipsed[minInd]) activeMinInd = minInd;
}

function nearestTick(X) {
    var minDist = 1000;
    var minInd = -1;
    for (var i = 0; i < xticks.length; i++) {
        if (Math.abs(xticks[i] - X) < minDist) {
            minDist = Math.abs(xticks[i] - X);
            minInd = i;
        }
    }
    return minInd;
}

function graphLimits() {
    var topLimit = marginTop + 80.5;
    return { top: topLimit, bottom: topLimit + x_scroll.height - marginTop - 6 };
}

function divMouseMove(evt) {
    if (!x_scroll) return;
    var coords = getPageEventCoords(evt);
    var limits = graphLimits();
    var limitX = (percentScrolled == 1) ? marginLeft + xticks[Math.max(0, xticks.length - numBlankData - 5)] - 2
                                        : marginLeft + windowWidth;
    var inside = coords.top > limits.top && coords.top < limits.bottom && coords.left < limitX;
    document.body.style.cursor = inside ? 'pointer' : 'auto';
}

function divMouseOut(evt) {
    document.body.style.cursor = 'auto';
}

function statsPopup(event) {
    if (!x_scroll) return;
    var coords = getPageEventCoords(event);
    var X = coords.left - marginLeft - 8;
    var Y = coords.top;
    var minInd = nearestTick(X);
    minIndAlias = minInd;
    var name = visiblePhaseNames[minInd];
    if (name === undefined) return;
    var bands = visibleBands();
    var allZero = true;
    for (var b = 0; b < bands.length; b++) if (bands[b][minInd] != 0) allZero = false;
    if (allZero && name == '') return;
    var limits = graphLimits();
    if (Y < limits.top || Y > limits.bottom) return;
    if (X >= window.innerWidth - marginLeft - 7 - 20 - columnWidth / 2 && percentScrolled != 1) return;
    if (availablePopupIndices.length == 0) return;

    var m = procData.length - phasesToRender;
    var zeroBasedIndexOfClickedPhase = Math.floor(m * percentScrolled + 1) + minInd - 1;
    if (percentScrolled == 1) zeroBasedIndexOfClickedPhase += numBlankData + 1;
    if (zeroBasedIndicesOfClickedPhase.indexOf(zeroBasedIndexOfClickedPhase) >= 0) return;

    var popupInd = availablePopupIndices.pop();
    var popupID = 'popupDiv' + popupInd;
    var div = placePopup(popupID, X + marginLeft + 8, Y, window.innerWidth);
    zeroBasedIndicesOfClickedPhase.push(zeroBasedIndexOfClickedPhase);

    var figures = new Array();
    for (var f = 0; f < bands.length; f++) {
        var value = bands[f][minInd];
        if (f == 0) value += freeMemZoom;
        if (f == 4) value += nonProcessZoom;
        figures.push(popupFigure(value, f == 0 || f == 4));
    }
    var phaseToDisplay = name.replace(/\//g, ' / ');
    var htmlTxt = '<p style="font-size:0px;display:none">' + htmlText(name) + '</p>' +
        '<table id="popupTable" class="dataTable" style="background-color:white">' +
        popupTitleRow(popupID, 'clearDiv(' + popupInd + ',' + zeroBasedIndexOfClickedPhase + ',' + minIndAlias + ')') +
        '<tr><td colspan="5">' + htmlText(phaseToDisplay) + '<table>';
    for (var r = 0; r < bands.length; r++) {
        htmlTxt += '<tr><td class="popupHeader" style="background-color:' + colors[r] + '">' + bandLegends[r] +
            '</td><td align="right">' + figures[r] + '</td></tr>';
    }
    htmlTxt += '</table></td></tr></table>';
    div.innerHTML = htmlTxt;
    div.setAttribute('data-row', '' + zeroBasedIndexOfClickedPhase);
    div.style.zIndex = '1000';
    setElementVisibility('outlineDiv' + minIndAlias, 'visible');
    registeredPhaseOutlines.push(name);
    someOutlineDivIsVisible = true;
}

function clearDiv(divID, zeroBasedIndexOfClickedPhase, minIndAlias) {
    releasePopup(divID, zeroBasedIndexOfClickedPhase);
    document.getElementById('popupDiv' + divID).removeAttribute('data-row');
    setElementVisibility('outlineDiv' + minIndAlias, 'hidden');
}
