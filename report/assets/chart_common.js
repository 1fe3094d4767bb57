// SPDX-License-Identifier: BSD-3-Clause
// What the memory charts of one run and of two runs share: the layout
// constants, the five bands, the label text and ellipsis, the y-tick label
// forms, the legend, the pop-up divs and their dragging, and small page helpers.
// A report carries one chart, so the chart script that follows this text
// defines the functions whose form differs (renderMemChart, swapCanvas, ...).

//#if !comparison
var marginLeft = 90;
var marginTop = 80;
var numTicksY = 11;
var canvasDivHeight = 430;
//#else
var marginLeft = 140;
var marginRight = 48;
//#endif
var defaultNumTicksY = 2;
var yTickLabelSpacing = 10;
var columnWidth = 23;
var tickLengthX = 5;
var tickLengthY = 5;
var boxSideLength = 10;
var eventLabelVertSpacing = 15;
var eventLabelRotate = 75;
var minWindowWidth = 916;
var tickLabelFontSize = 10;
var maxLabelHeight = 550;
var legendFont = "12px Sans-Serif";
var yLabelFont = "14pt Sans-Serif";
var eventLabelFont = "12px Sans-Serif";
var multiplier1 = 1.3;
var multiplier2 = 0.85;
var enlargeCanvasArea = 200;

// The bands from index 0 up; columns stack them from the last down to the
// first, so non-process lies lowest and free on top.
var colors = ["#7AEE3C", "#FFC8C8", "#EC0033", "#FFA500", "#666666"];
var bandLegends = ["Free", "Reserved", "Committed", "Dlls", "Non-process"];
var bandTerms = ["freeMem", "heapRes", "heapCom", "otherUsed", "kernelRes"];
var bandFields = ["FreeStart", "ReservedStart", "CommittedStart", "DllsStart", "NonProcessStart"];
// The names of the bands in the pop-ups' figures.
var bandPopupNames = ["Free", "HeapRes", "HeapCom", "OtherUsed", "KernelRes"];

var windowWidth;
var dataLen;
var phasesToRender;
var xticks = new Array();
var leftX = new Array();
var rightX = new Array();
var bEllipsed = new Array();
var unellipsedPhaseNames = new Array();
var visiblePhaseNames = new Array();
var visiblePhaseLengths = new Array();
var max = 0;
var extraPaddingW = 0;
var someOutlineDivIsVisible = false;
var registeredPhaseOutlines = new Array();
var savedOutlineDivIds = new Array();
var savedPopupDivIds = new Array();
var zeroBasedIndicesOfClickedPhase = new Array();
var availablePopupIndices = new Array();
var activeMinInd = -1;
var minIndAlias = -1;
var percentScrolled = 0;
var dialogIsClicked = false;
var originalDialogTopLeftCoord_X = 0;
var originalDialogTopLeftCoord_Y = 0;
var originalCursorCoord_X = 0;
var originalCursorCoord_Y = 0;
var dialogClickedID = '';

// Returns the array without duplicates, keeping the last of equal elements.
Array.prototype.unique = function () {
    var result = new Array();
    for (var i = 0; i < this.length; i++) {
        var later = false;
        for (var j = i + 1; j < this.length; j++) {
            if (this[j] === this[i]) {
                later = true;
                break;
            }
        }
        if (!later) result.push(this[i]);
    }
    return result;
};

// Ids of the elements of a collection whose id contains `str` and, with a
// suffix, also ends in it.
function filterMe(_this_, str, suffix) {
    var ids = new Array();
    for (var i = 0; i < _this_.length; i++) {
        var id = _this_[i].id;
        if (id && id.indexOf(str) >= 0 && (suffix === undefined || id.charAt(id.length - 1) == suffix)) ids.push(id);
    }
    return ids;
}

var userAgentLower = navigator.userAgent.toLowerCase();
if (userAgentLower.indexOf('firefox') >= 0) {
    HTMLCollection.prototype.filter = function (str, suffix) { return filterMe(this, str, suffix); };
} else if (userAgentLower.indexOf('chrome') >= 0) {
    NodeList.prototype.filter = function (str, suffix) { return filterMe(this, str, suffix); };
}

// Few phases widen the columns so that they still fill the screen.
var screenW = 5000;
if (parseInt(navigator.appVersion) > 3) {
    screenW = screen.width;
} else if (navigator.appName == "Netscape" && parseInt(navigator.appVersion) == 3 && navigator.javaEnabled()) {
    screenW = java.awt.Toolkit.getDefaultToolkit().getScreenSize().width;
}
if (procData.length > 0 && columnWidth * procData.length < screenW) {
    columnWidth = Math.ceil(screenW / procData.length);
}

// Removes the first element equal to `item`; returns the array.
function removeItems(array, item) {
    for (var i = 0; i < array.length; i++) {
        if (array[i] == item) {
            array.splice(i, 1);
            break;
        }
    }
    return array;
}

function getPageEventCoords(evt) {
    var coords = { left: 0, top: 0 };
    if (evt.pageX !== undefined) {
        coords.left = evt.pageX;
        coords.top = evt.pageY;
    } else if (evt.clientX !== undefined) {
        coords.left = evt.clientX + document.body.scrollLeft - document.body.clientLeft;
        coords.top = evt.clientY + document.body.scrollTop - document.body.clientTop;
        if (document.body.parentElement && document.body.parentElement.clientLeft) {
            var bodParent = document.body.parentElement;
            coords.left += bodParent.scrollLeft - bodParent.clientLeft;
            coords.top += bodParent.scrollTop - bodParent.clientTop;
        }
    }
    return coords;
}

function getDocHeight() {
    var D = document;
    return Math.max(D.body.scrollHeight, D.documentElement.scrollHeight, D.body.offsetHeight,
                    D.documentElement.offsetHeight, D.body.clientHeight, D.documentElement.clientHeight);
}

function sinDeg(degrees) { return Math.sin(Math.PI * degrees / 180); }

// The label of row `i`: phase/model/target/machine/chart, each part only where
// the row has a name for it; its width is the sum of the names' widths + 10.
function phaseLabelText(i, realRowsOnly) {
    var row = procData[i];
    var text = '';
    var width = 0;
    if (row === undefined || (realRowsOnly && i > procData.length - 1 - numBlankData)) return { text: text, width: 10 };
    var parts = [[row.Phase, Phase, PhaseLengths], [row.Model, Model, ModelLengths], [row.Target, Target, TargetLengths],
                 [row.Machine, Machine, MachineLengths], [row.Chart, Chart, ChartLengths]];
    for (var p = 0; p < parts.length; p++) {
        var id = parts[p][0];
        if (id >= 0 && parts[p][1].length > 0 && parts[p][1][id] !== undefined) {
            if (p > 0) text += '/';
            text += parts[p][1][id];
            width += parts[p][2][id] || 0;
        }
    }
    return { text: text, width: width + 10 };
}

// Cuts out the names of rows `begin` to `end` (exclusive) and begins
// `visiblePhaseLengths` afresh with their widths.
function phaseLabelSlice(begin, end, realRowsOnly) {
    var names = new Array();
    visiblePhaseLengths = new Array();
    for (var i = begin; i < end; i++) {
        var label = phaseLabelText(i, realRowsOnly);
        names.push(label.text);
        visiblePhaseLengths.push(label.width);
    }
    return names;
}

// The values of one field for rows `begin` to `end` (exclusive).
function fieldSlice(field, begin, end) {
    var values = new Array();
    for (var i = begin; i < end; i++) values.push(procData[i] === undefined ? 0 : procData[i][field]);
    return values;
}

// The widest of the labels of rows `begin` to `end` in the context's font,
// each distinct label measured once.
function widestLabel(ctx, begin, end, realRowsOnly) {
    var widths = {};
    var widest = 0;
    for (var i = begin; i < end; i++) {
        var text = phaseLabelText(i, realRowsOnly).text;
        var width = widths[text];
        if (width === undefined) width = widths[text] = ctx.measureText(text).width;
        if (width > widest) widest = width;
    }
    return widest;
}

function largestOf(values) {
    var largest = 0;
    for (var i = 0; i < values.length; i++) if (values[i] > largest) largest = values[i];
    return largest;
}

// Picks the multipliers of the label estimate for the widest visible label.
function chooseLabelMultipliers() {
    if (multiplier1 * largestOf(visiblePhaseLengths) / sinDeg(eventLabelRotate) > maxLabelHeight) {
        multiplier1 = 1.4;
        multiplier2 = 0.65;
    } else {
        multiplier1 = 1.2;
        multiplier2 = 0.85;
    }
}

// Draws the label of visible column `count` rotated at the current origin:
// blue and cut with "..." when it is longer than the labels' room. Returns
// the text drawn.
function drawPhaseLabel(ctx, count, text) {
    var stringLength = multiplier1 * visiblePhaseLengths[count];
    var maxStringLength = maxLabelHeight / sinDeg(eventLabelRotate);
    ctx.fillStyle = 'black';
    bEllipsed[count] = false;
    unellipsedPhaseNames[count] = text;
    if (stringLength > maxStringLength) {
        var cut = modifyStrToShow('Combined', text, maxStringLength * multiplier2);
        if (cut.indexOf('...') >= 0) {
            ctx.fillStyle = 'blue';
            bEllipsed[count] = true;
            text = cut;
        }
    }
    ctx.fillText(text, 0, 0);
    return text;
}

// Whether a registered pop-up name belongs to a drawn label, which may be cut.
function labelMatches(registered, label) {
    if (registered == label) return true;
    var dots = label.indexOf('...');
    return dots >= 0 && registered.indexOf(label.substring(0, dots)) == 0;
}

// The text of y tick `i` of `numTicks`: zoomed axes show the non-process
// offset first ("NP = ") and the rise above it after ("+"); an axis of zeros
// spans the whole 64-bit space.
function yTickLabel(i, numTicks, maxValue, zoomed, nonProcessOffset, zoomTotal) {
    if (maxValue <= 0) return i == 0 ? '0' : (i == numTicks - 1 ? '~8TB' : '');
    if (!zoomed) return '' + Math.round(i * maxValue / (numTicks - 1));
    var value = (i == 0) ? nonProcessOffset : Math.round(i * (maxValue - zoomTotal) / (numTicks - 1));
    var text = (value >= 10000) ? createScientificNotation(value) : '' + Math.round(value);
    return (i == 0 ? 'NP = ' : '+') + text;
}

// Figures of the pop-ups: two decimals, engineering steps from 10000.
function popupFigure(value, engineering) {
    var rounded = Math.round(value * 100) / 100;
    return (engineering && rounded >= 10000) ? createScientificNotation(rounded) : rounded;
}

function drawLegendBoxes(canvasId, leftIndent) {
    var ctx = document.getElementById(canvasId).getContext('2d');
    ctx.font = legendFont;
    for (var b = 0; b < colors.length; b++) {
        ctx.fillStyle = colors[b];
        ctx.fillRect(leftIndent, 15, boxSideLength, boxSideLength);
        leftIndent += boxSideLength + 8;
        ctx.fillStyle = 'black';
        ctx.fillText(bandLegends[b], leftIndent, 24);
        leftIndent += ctx.measureText(bandLegends[b]).width + 30;
    }
}

// The hundred recycled pop-up divs, "popupDiv1" to "popupDiv100".
function makePopupDivs() {
    var writeStr = '';
    for (var i = 1; i <= 100; i++) {
        writeStr += '<div id="popupDiv' + i + '"></div>';
        availablePopupIndices.push(i);
    }
    return writeStr;
}

// Styles a taken pop-up div and places it at the click, inside the window
// and the document.
function placePopup(popupID, left, top, rightLimit) {
    var popupWidth = 180;
    var popupHeight = 270;
    var div = document.getElementById(popupID);
    div.style.zIndex = '-1000';
    div.style.width = '0px';
    div.style.height = '0px';
    div.style.overflow = 'visible';
    div.style.position = 'absolute';
    div.style.backgroundColor = 'white';
    div.style.visibility = 'visible';
    if (left + popupWidth > rightLimit) left = rightLimit - popupWidth;
    if (top + popupHeight > getDocHeight()) top = getDocHeight() - popupHeight;
    div.style.left = left + 'px';
    div.style.top = top + 'px';
    div.onselectstart = function () { return false; };
    div.onmousedown = function () { return false; };
    return div;
}

// The pop-up's title row: the handle for dragging and the close button. The
// button cell is the fourth child of the title row, where the charts rewrite
// the outline it hides.
function popupTitleRow(popupID, closeCall) {
    return '<tr style="background-color:#C0C0C0">' +
        '<td colspan="4" style="cursor:move" onmousedown="dialogButtonDown(event,\'' + popupID + '\')" ' +
        'onmouseup="dialogButtonUp(event,\'' + popupID + '\')"><b>Memory statistics</b></td>' +
        '<td align="right"><div style="cursor:pointer" onclick="' + closeCall + '">X</div></td></tr>';
}

// The highest z-index among the pop-ups, walking their ids from "popupDiv0"
// until one is missing.
function highestPopupZIndex() {
    var highest = 0;
    for (var i = 0; document.getElementById('popupDiv' + i); i++) {
        var z = parseInt(document.getElementById('popupDiv' + i).style.zIndex);
        if (z > highest) highest = z;
    }
    return highest;
}

function dialogButtonDown(event, popupID) {
    dialogIsClicked = true;
    dialogClickedID = popupID;
    var div = document.getElementById(popupID);
    div.style.zIndex = '' + (Math.max(highestPopupZIndex(), 1000) + 1);
    originalDialogTopLeftCoord_X = parseInt(div.style.left);
    originalDialogTopLeftCoord_Y = parseInt(div.style.top);
    originalCursorCoord_X = event.clientX - marginLeft - 10;
    originalCursorCoord_Y = event.clientY;
}

// The body's mouse move handler: a held pop-up follows the cursor.
function dialogMove(event) {
    if (!dialogIsClicked) return;
    var div = document.getElementById(dialogClickedID);
    if (!div) return;
    div.style.left = (originalDialogTopLeftCoord_X + (event.clientX - marginLeft - 10 - originalCursorCoord_X)) + 'px';
    div.style.top = (originalDialogTopLeftCoord_Y + (event.clientY - originalCursorCoord_Y)) + 'px';
}

function dialogButtonUp(event, popupID) {
    dialogIsClicked = false;
}

// Empties a pop-up and gives its number back; returns the name it showed.
function releasePopup(divID, zeroBasedIndexOfClickedPhase) {
    var div = document.getElementById('popupDiv' + divID);
    var name = '';
    var hidden = div.getElementsByTagName('p');
    if (hidden.length > 0) name = hidden[0].textContent;
    removeItems(registeredPhaseOutlines, name);
    div.innerHTML = '';
    div.style.zIndex = '-1000';
    document.body.style.cursor = 'auto';
    availablePopupIndices.push(divID);
    removeItems(zeroBasedIndicesOfClickedPhase, zeroBasedIndexOfClickedPhase);
    return name;
}
