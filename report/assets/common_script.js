// SPDX-License-Identifier: BSD-3-Clause
// Common script of every report: shared globals, name and number helpers, and
// the virtual table rendering that the aggregate, detail and call tree tables
// plug into. Lines between "//#if" and "//#endif" are kept only in reports of
// the named variant; "@LHS_NAME@" and "@RHS_NAME@" become the run labels.

var isIE = navigator.appName.indexOf('Microsoft') > -1;

// Cached header and footer markup of each table.
var TableHdrStr = new Array();
TableHdrStr['Aggregate'] = '';
//#if !aggregateOnly
TableHdrStr['Detail'] = '';
TableHdrStr['CallTree'] = '';
//#endif
var TableFtrStr = new Array();
TableFtrStr['Aggregate'] = '';
//#if !aggregateOnly
TableFtrStr['Detail'] = '';
TableFtrStr['CallTree'] = '';
//#endif

// A tab whose window size changed while it was hidden is redrawn when shown.
var resizeTabContent = new Array();
resizeTabContent['Aggregate'] = false;
//#if !aggregateOnly
resizeTabContent['Detail'] = false;
resizeTabContent['CallTree'] = false;
//#endif

var baselinelabel = "<br>(Baseline)</br>";
var lhsLabel = "@LHS_NAME@" + baselinelabel.fontsize(0.8);
var rhsLabel = "@RHS_NAME@";
var activeTab = '';
//#if !aggregateOnly
var dataView = new Array();
dataView['Index'] = new Array();
dataView['Checked'] = new Array();
//#endif

// No table ever holds more real rows than this.
var ABSMAXNUMPHASES = 32;
// Nor does a scroller hold more blank rows than this.
var MAXSCROLLERROWS = 500;
var numPhasesToRenderInTable = new Array();
numPhasesToRenderInTable['Aggregate'] = ABSMAXNUMPHASES;
//#if !aggregateOnly
numPhasesToRenderInTable['Detail'] = ABSMAXNUMPHASES;
numPhasesToRenderInTable['CallTree'] = ABSMAXNUMPHASES;
//#endif
var aggrRowHeight = 0;
//#if !aggregateOnly
var callTreeToShow = false;
var filterDataTable = false;
var sortDataTable = false;
var CT_filterDataTable = false;
//#endif

// Builds a row constructor whose positional arguments are stored under the
// blank-separated field names.
function makeStruct(names) {
    var fieldNames = names.split(' ');
    var count = fieldNames.length;
    function constructor() {
        for (var i = 0; i < count; i++) {
            this[fieldNames[i]] = arguments[i];
        }
    }
    return constructor;
}

// Markup-safe text of a name: names come from the traced code and are shown
// through innerHTML.
function htmlText(str) {
    return String(str).replace(/&/g, '&amp;').replace(/</g, '&lt;').replace(/>/g, '&gt;')
                      .replace(/"/g, '&quot;').replace(/'/g, '&#39;');
}

// A name as a quoted script argument inside a javascript: link: backslashes and
// quotes are escaped for the script, '%' for the link's own decoding, and the
// whole for the attribute it stands in.
function linkArgument(str) {
    var quoted = "'" + String(str).replace(/\\/g, '\\\\').replace(/'/g, "\\'").replace(/"/g, '\\x22')
                                  .replace(/\r/g, '\\r').replace(/\n/g, '\\n') + "'";
    return htmlText(quoted.replace(/%/g, '%25'));
}

// The one place where a shown name could be decorated.
function createStrToShow(strToShow, str) {
    var hrefStr = '';
    var endStr = '';
    if (/\.\.\./.test(strToShow)) {
    }
    return hrefStr + strToShow + endStr;
}

// Pixel width of each string, measured in the hidden span.
function getStringLengths(stringArray) {
    var lengths = new Array();
    var span = document.getElementById('FakeSpan');
    if (span) {
        for (var i = 0; i < stringArray.length; i++) {
            span.innerHTML = htmlText(stringArray[i]);
            lengths.push(span.offsetWidth);
        }
    }
    return lengths;
}

// Cuts a name to the pixel width of its cell.
function modifyStrToShow(stringArray, origStr, cellWidth) {
    var names;
    var lengths;
    switch (stringArray) {
        case 'Phase':    names = Phase;    lengths = PhaseLengths;    break;
        case 'Grouping': names = Grouping; lengths = GroupingLengths; break;
        case 'Model':    names = Model;    lengths = ModelLengths;    break;
        case 'Target':   names = Target;   lengths = TargetLengths;   break;
        case 'Machine':  names = Machine;  lengths = MachineLengths;  break;
        case 'Chart':    names = Chart;    lengths = ChartLengths;    break;
        case 'Combined': names = visiblePhaseNames; lengths = visiblePhaseLengths; break;
        default: return origStr;
    }
    var strLength = -1;
    for (var i = 0; i < names.length; i++) {
        if (names[i] == origStr) {
            strLength = lengths[i];
            break;
        }
    }
    var MAXLENGTH = cellWidth - 5;
    var lengthPerChar = origStr.length / strLength;
    var numCharsAllowed = lengthPerChar * MAXLENGTH;
    if (strLength > MAXLENGTH) {
        var shortStr = '';
        for (var c = 0; c < origStr.length && c < numCharsAllowed - 3; c++) {
            shortStr += origStr.charAt(c);
        }
        return shortStr + '...';
    }
    return origStr;
}

// Fills the scroller with blank rows as tall as the view's rows, so that its
// native scroll bar shows the true position and length of the view.
function generateFakeDivContents(tableType) {
    var dataLength = 0;
    var rowHeight = 25;
    var cell;
    switch (tableType) {
        case 'Aggregate':
            divId = 'aggregateSummaryScrollTableDiv';
            dataLength = aggDataView.Index.length;
            break;
//#if !aggregateOnly
        case 'Detail':
            divId = 'phaseSummaryScrollTableDiv';
            dataLength = dataView.Index.length;
            rowHeight = 40;
            cell = document.getElementById('checkBoxTD1');
            if (cell) {
                rowHeight = cell.clientHeight;
                if (rowHeight == 0) rowHeight = 40;
            }
            break;
        case 'CallTree':
            divId = 'callTreeSummaryScrollTableDiv';
            dataLength = CTDataView.Index.length;
            cell = document.getElementById('ct_checkBoxTD1');
            if (cell) {
                rowHeight = cell.clientHeight;
                if (rowHeight == 0) rowHeight = 40;
            }
            break;
//#endif
    }
    var scroller = document.getElementById(divId);
    if (scroller) {
        // Up to MAXSCROLLERROWS entries each have a row; a longer view has
        // one row of the height of all its entries, which keeps the layout of
        // the page cheap.
        var rows = new Array();
        if (dataLength <= MAXSCROLLERROWS) {
            var rowText = '<tr><td style="border:0px;height:' + rowHeight + 'px;">&nbsp;</td></tr>';
            for (var i = 0; i < dataLength; i++) rows.push(rowText);
        } else {
            rows.push('<tr><td style="border:0px;height:' + (rowHeight * dataLength) + 'px;">&nbsp;</td></tr>');
        }
        scroller.innerHTML = '<table class="dataTable" width="1px" border="0" cellspacing="0" cellpadding="0">' +
                             rows.join('') + '</table>';
    }
}

// Places the scroller beside its table. The offsets are tuned per browser
// class and report variant.
function positionScrollbar(tableType) {
    var widthOffset = 3;
    var widthDetailMemOffset = 3;
    var widthOffsetIE9 = 3;
    var topOffset = 12;
    var topOffsetDiff = 15;
    var topOffsetIE = 15;
    var heightOffset = 60;

    function getInternetExplorerVersion() {
        var rv = -1;
        if (navigator.appName == 'Microsoft Internet Explorer') {
            var re = new RegExp("MSIE ([0-9]{1,}[\.0-9]{0,})");
            if (re.exec(navigator.userAgent) != null) rv = parseFloat(RegExp.$1);
        }
        return rv;
    }

    var tableId;
    switch (tableType) {
        case 'Aggregate':
            divId = 'aggregateSummaryScrollTableDiv';
            tableId = 'aggregateSummaryTable';
            fRowId = 'aggregateSummaryTableFirstRow';
            sRowId = 'aggregateSummaryTableSecondRow';
            lRowId = 'aggregateSummaryTableLastHeaderRow';
            break;
//#if !aggregateOnly
        case 'Detail':
            divId = 'phaseSummaryScrollTableDiv';
            tableId = 'phaseSummaryTable';
            fRowId = 'phaseSummaryTableFirstRow';
            lRowId = 'phaseSummaryTableLastHeaderRow';
            break;
        case 'CallTree':
            divId = 'callTreeSummaryScrollTableDiv';
            tableId = 'callTreeSummaryTable';
            fRowId = 'callTreeSummaryTableFirstRow';
            lRowId = 'callTreeSummaryTableLastHeaderRow';
            break;
//#endif
    }
    var scroller = document.getElementById(divId);
    var table = document.getElementById(tableId);
    if (!scroller || scroller.style.display == 'none' || !table) return;

    var left = table.offsetLeft + table.clientLeft;
    var width = table.offsetWidth;
    if (width == 0) width = table.clientWidth;
    var refRow = isIE ? table.firstChild.childNodes[2] : table.firstChild.childNodes[1];
    var top = 0;
    var height = 0;
    if (refRow) {
        top = refRow.offsetTop;
        if (top == 0) top = refRow.clientTop;
        height = refRow.offsetHeight + refRow.clientHeight;
    }
    var firstRow = document.getElementById(fRowId);
    var lastRow = document.getElementById(lRowId);
    var secondRow = document.getElementById(sRowId);
    var innerDiv1 = firstRow ? firstRow.offsetHeight : 0;
    var innerDiv2 = lastRow ? lastRow.offsetHeight : 0;
    var sRowHeight = secondRow ? secondRow.offsetHeight : 0;
    scrollBarHeight = table.offsetHeight - innerDiv1 - innerDiv2;

    if (isIE && getInternetExplorerVersion() <= 9) {
        if (tableType == 'Aggregate') {
//#if comparison && !time
            scroller.style.top = (top + height + topOffsetIE + innerDiv1) + 'px';
            scroller.style.height = (scrollBarHeight - innerDiv1) + 'px';
//#endif
//#if comparison && time
            scroller.style.top = (top + height + topOffsetIE + innerDiv2 - innerDiv1) + 'px';
            scroller.style.height = scrollBarHeight + 'px';
//#endif
//#if !comparison && !time
            scroller.style.top = (top + innerDiv1 + topOffsetIE) + 'px';
            scroller.style.height = scrollBarHeight + 'px';
//#endif
//#if !comparison && time
            scroller.style.top = (top + innerDiv1) + 'px';
            scroller.style.height = scrollBarHeight + 'px';
//#endif
        } else {
//#if comparison && !time
            scroller.style.top = (top + height + innerDiv1 + topOffsetIE) + 'px';
            scroller.style.height = (scrollBarHeight - innerDiv1) + 'px';
//#else
            scroller.style.top = (top + height) + 'px';
            scroller.style.height = scrollBarHeight + 'px';
//#endif
        }
        scroller.style.left = (left + width - widthOffsetIE9) + 'px';
    } else if (isIE) {
        if (tableType == 'Aggregate') {
            scroller.style.top = (top + height - topOffsetIE) + 'px';
        } else {
            scroller.style.top = (top + height) + 'px';
        }
        scroller.style.height = scrollBarHeight + 'px';
        scroller.style.left = (left + width) + 'px';
    } else {
        if (tableType == 'Aggregate') {
//#if comparison && !time
            scroller.style.top = (top + height + innerDiv1 + innerDiv2 - topOffsetDiff) + 'px';
            scroller.style.height = (scrollBarHeight - sRowHeight) + 'px';
//#endif
//#if comparison && time
            scroller.style.top = (top + height + innerDiv1 - innerDiv2 + topOffset) + 'px';
            scroller.style.height = scrollBarHeight + 'px';
//#endif
//#if !comparison && !time
            scroller.style.top = (top + height + innerDiv1 - innerDiv2 + topOffset) + 'px';
            scroller.style.height = scrollBarHeight + 'px';
//#endif
//#if !comparison && time
            scroller.style.top = (top + height + innerDiv1 - innerDiv2) + 'px';
            scroller.style.height = scrollBarHeight + 'px';
//#endif
//#if detailedmemory && !aggregateOnly
            scroller.style.left = (left + width - widthDetailMemOffset) + 'px';
//#else
            scroller.style.left = (left + width - widthOffset) + 'px';
//#endif
        } else {
//#if comparison && !time
            scroller.style.top = (top + height + topOffset + innerDiv2) + 'px';
            scroller.style.height = (scrollBarHeight - innerDiv1) + 'px';
//#endif
//#if comparison && time
            scroller.style.top = (top + height + topOffset) + 'px';
            scroller.style.height = scrollBarHeight + 'px';
//#endif
//#if !comparison && basicmemory
            scroller.style.top = (top + height + innerDiv1 - innerDiv2 + topOffset) + 'px';
            scroller.style.height = scrollBarHeight + 'px';
//#endif
//#if !comparison && !basicmemory
            scroller.style.top = (top + height + topOffset) + 'px';
            scroller.style.height = scrollBarHeight + 'px';
//#endif
            scroller.style.left = (left + width - widthOffset) + 'px';
        }
    }
    scroller.style.position = 'absolute';
}

// Scroll handler of a scroller: rewrites the rows in place to show the part of
// the view that matches the scroll position.
function reGenerateTable(divElem, tableType) {
    var dataLength = 0;
    switch (tableType) {
        case 'Aggregate': dataLength = aggDataView.Index.length; break;
//#if !aggregateOnly
        case 'Detail':    dataLength = dataView.Index.length; break;
        case 'CallTree':  dataLength = CTDataView.Index.length; break;
//#endif
    }
    var m = dataLength - numPhasesToRenderInTable[tableType];
    var scrollRange = divElem.scrollHeight - divElem.clientHeight;
    var percentScrolled = scrollRange > 0 ? divElem.scrollTop / scrollRange : 0;
    var begin = Math.floor(m * percentScrolled);
    var end = Math.floor(begin + numPhasesToRenderInTable[tableType]);
    if (end > dataLength) {
        end = dataLength;
        begin = end - numPhasesToRenderInTable[tableType];
    }
    // A view shorter than the table starts at its first entry.
    if (begin < 0) begin = 0;
    lastStartIndex[tableType] = begin;
    switch (tableType) {
        case 'Aggregate':
            generateAggregateSummaryTable(begin, end, true);
            break;
//#if !aggregateOnly
        case 'Detail':
            generatePhaseSummaryTable(begin, end, true);
            updateTotals();
            break;
        case 'CallTree':
            generateCallTreeTable(begin, end, true);
            updateCTTotals();
            break;
//#endif
    }
}

// Fits a table to the window and redraws it in full.
function tableResizeAction(tableType) {
    var tableId, outerDivId, tableDivId, secondRowId, dataLength = 0;
    var totalsRow;
    switch (tableType) {
        case 'Aggregate':
            tableId = 'aggregateSummaryTable';
            outerDivId = 'aggregateSummaryDiv';
            tableDivId = 'aggregateSummaryDiv';
            divId = 'aggregateSummaryScrollTableDiv';
            fRowId = 'aggregateSummaryTableFirstRow';
            // The aggregate's second header row is left to positionScrollbar.
            secondRowId = null;
            lRowId = 'aggregateSummaryTableLastHeaderRow';
            dataLength = aggDataView.Index.length;
            aggrRowHeight = 0;
            break;
//#if !aggregateOnly
        case 'Detail':
            tableId = 'phaseSummaryTable';
            outerDivId = 'phaseSummaryDiv';
            tableDivId = 'phaseSummaryTableDiv';
            divId = 'phaseSummaryScrollTableDiv';
            fRowId = 'phaseSummaryTableFirstRow';
            secondRowId = 'phaseSummaryTableSecondRow';
            lRowId = 'phaseSummaryTableLastHeaderRow';
            dataLength = dataView.Index.length;
            totalsRow = document.getElementById('phaseSummaryTableAggrRow');
            if (totalsRow && totalsRow.clientHeight > 0) aggrRowHeight = totalsRow.clientHeight;
            break;
        case 'CallTree':
            tableId = 'callTreeSummaryTable';
            outerDivId = 'callTreeSummaryDiv';
            tableDivId = 'callTreeSummaryTableDiv';
            divId = 'callTreeSummaryScrollTableDiv';
            fRowId = 'callTreeSummaryTableFirstRow';
            secondRowId = 'callTreeSummaryTableSecondRow';
            lRowId = 'callTreeSummaryTableLastHeaderRow';
            dataLength = CTDataView.Index.length;
            totalsRow = document.getElementById('callTreeSummaryTableAggrRow');
            if (totalsRow && totalsRow.clientHeight > 0) aggrRowHeight = totalsRow.clientHeight;
            break;
//#endif
    }
    var table = document.getElementById(tableId);
    var outerDiv = document.getElementById(outerDivId);
    if (!table || !outerDiv || outerDiv.style.display == 'none') return;

    computeNumPhasesToRender(tableType);
    maxNumPhases = Math.min(numPhasesToRenderInTable[tableType], dataLength);
    var end = Math.floor(lastStartIndex[tableType] + maxNumPhases);
    if (end > dataLength) {
        end = dataLength;
        lastStartIndex[tableType] = end - maxNumPhases;
    }
    switch (tableType) {
        case 'Aggregate': generateAggregateSummaryTable(lastStartIndex[tableType], end, false); break;
//#if !aggregateOnly
        case 'Detail':    generatePhaseSummaryTable(lastStartIndex[tableType], end, false); break;
        case 'CallTree':  generateCallTreeTable(lastStartIndex[tableType], end, false); break;
//#endif
    }

    var tableDiv = document.getElementById(tableDivId);
    var firstRow = document.getElementById(fRowId);
    var secondRow = secondRowId ? document.getElementById(secondRowId) : null;
    var lastRow = document.getElementById(lRowId);
    var scroller = document.getElementById(divId);
    if (scroller) {
        var scrollerHeight = tableDiv.clientHeight - (firstRow ? firstRow.clientHeight : 0) -
                             (secondRow ? secondRow.clientHeight : 0) - (lastRow ? lastRow.clientHeight : 0) -
                             aggrRowHeight;
        scroller.style.height = Math.max(scrollerHeight, 0) + 'px';
        scroller.style.display = 'block';
    }
    positionScrollbar(tableType);
}

// How many rows of a table the window can show, at most ABSMAXNUMPHASES.
function computeNumPhasesToRender(tableType) {
    var firstRowId, secondRowId, lastRowId, inputsId = null, checkCellId = null;
    var userInputsDivHeight = 0;
    var rowHeight = 25;
    switch (tableType) {
        case 'Aggregate':
            firstRowId = 'aggregateSummaryTableFirstRow';
            secondRowId = null;
            lastRowId = 'aggregateSummaryTableLastHeaderRow';
            break;
//#if !aggregateOnly
        case 'Detail':
            firstRowId = 'phaseSummaryTableFirstRow';
            secondRowId = 'phaseSummaryTableSecondRow';
            lastRowId = 'phaseSummaryTableLastHeaderRow';
            inputsId = 'UserInputsTableId';
            checkCellId = 'checkBoxTD1';
            break;
        case 'CallTree':
            firstRowId = 'callTreeSummaryTableFirstRow';
            secondRowId = 'callTreeSummaryTableSecondRow';
            lastRowId = 'callTreeSummaryTableLastHeaderRow';
            inputsId = 'CT_UserInputsTableId';
            checkCellId = 'ct_checkBoxTD1';
            break;
//#endif
    }
    if (inputsId) {
        var inputs = document.getElementById(inputsId);
        if (inputs) userInputsDivHeight = inputs.clientHeight;
        var checkCell = document.getElementById(checkCellId);
        rowHeight = checkCell ? checkCell.clientHeight : 0;
        if (rowHeight == 0) rowHeight = 40;
    }
    windowHeight = window.innerHeight;
    if (windowHeight === undefined) windowHeight = document.documentElement.offsetHeight;
    var headerTable = document.getElementById('headerTable');
    var headerHeight = headerTable ? headerTable.clientHeight : 0;
    var firstRow = document.getElementById(firstRowId);
    var secondRow = secondRowId ? document.getElementById(secondRowId) : null;
    var lastRow = document.getElementById(lastRowId);
    var actualTableHeight = windowHeight - headerHeight - (firstRow ? firstRow.clientHeight : 0) -
                            (secondRow ? secondRow.clientHeight : 0) - aggrRowHeight -
                            (lastRow ? lastRow.clientHeight : 0) - userInputsDivHeight - 20;
    if (actualTableHeight > 0 && rowHeight > 0) {
        numPhasesToRenderInTable[tableType] =
            Math.min(ABSMAXNUMPHASES, Math.floor(actualTableHeight / rowHeight) - 1);
    }
}

// Window resize handler, also run at load: redraws the visible table and marks
// the hidden ones for a redraw when they are shown next.
function onResizeAction() {
    TableHdrStr['Aggregate'] = '';
    TableFtrStr['Aggregate'] = '';
    resizeTabContent['Aggregate'] = false;
//#if !aggregateOnly
    TableHdrStr['Detail'] = '';
    TableHdrStr['CallTree'] = '';
    TableFtrStr['Detail'] = '';
    TableFtrStr['CallTree'] = '';
    resizeTabContent['Detail'] = false;
    resizeTabContent['CallTree'] = false;
//#endif
    switch (activeTab) {
        case 'aggregateSummary':
            tableResizeAction('Aggregate');
//#if !aggregateOnly
            resizeTabContent['Detail'] = true;
            resizeTabContent['CallTree'] = true;
//#endif
            break;
//#if !aggregateOnly
        case 'phaseSummary':
            tableResizeAction('Detail');
            updateTotals();
            resizeTabContent['Aggregate'] = true;
            resizeTabContent['CallTree'] = true;
            break;
        case 'callTreeSummary':
            tableResizeAction('CallTree');
            updateCTTotals();
            resizeTabContent['Aggregate'] = true;
            resizeTabContent['Detail'] = true;
            break;
//#endif
    }
//#if detailedmemory && !aggregateOnly
    canvasResizeAction();
//#endif
}

// The number format of all tables: two decimals, and engineering steps from
// ten thousand up to 1e15.
function createScientificNotation(val) {
    var negative = false;
    if (val < 0) {
        negative = true;
        val = Math.abs(val);
    }
    var text = (typeof val == 'number') ? val.toFixed(2) : val;
    if (val >= 10000) {
        if (val < 1e6) text = (Math.round(val / 10) / 100) + 'e3';
        else if (val < 1e9) text = (Math.round(val / 10000) / 100) + 'e6';
        else if (val < 1e12) text = (Math.round(val / 10000000) / 100) + 'e9';
        else if (val < 1e15) text = (Math.round(val / 10000000000) / 100) + 'e12';
    }
    if (negative && text != '0.00') text = '-' + text;
    return text;
}
//#if !aggregateOnly

// Narrows the call tree view by each filled-in filter field in turn.
function filterCTDataView(filterParams, useRegExpForFilter) {
    expandTreeToIndex = new Array();
    var fieldCounter = 0;
    for (var field in filterParams) {
        if (filterParams[field] != '' && field != 'unique') {
            var candidates = new Array();
            if (fieldCounter == 0) {
                for (var r = 0; r < callTreeArray.length; r++) candidates.push(callTreeArray[r].index);
            } else {
                candidates = CTDataView.Index.slice(0);
            }
            CTDataView.Index = new Array();
            CTDataView.Checked = new Array();
            CTDataView.AllCTChecked = false;
            for (var c = 0; c < candidates.length; c++) {
                callTreeToShow = false;
                var node = nodeArray[candidates[c]];
                hideCallTreeChildren(node.children, false);
                if (copyCTDataToView(filterParams[field], useRegExpForFilter, node, field)) {
                    expandTreeToIndex.push(node.index);
                    callTreeToShow = true;
                }
                var childIDs = getIDArray(node.children);
                var inChildren = checkFilterValInChildren(filterParams[field], useRegExpForFilter, childIDs, field);
                if (callTreeToShow || inChildren) {
                    CTDataView.Index.push(candidates[c]);
                    CTDataView.Checked.push(0);
                }
            }
        } else if (fieldCounter == 0) {
            createCTDataView();
        }
        fieldCounter++;
    }
}

// Recursive part of the call tree filter: notes every matching descendant.
function checkFilterValInChildren(filterVal, useRegExpForFilter, childIDs, field) {
    for (var i = 0; i < childIDs.Index.length; i++) {
        var childNode = nodeArray[childIDs.Index[i]];
        hideCallTreeChildren(childNode.children, false);
        checkFilterValInChildren(filterVal, useRegExpForFilter, getIDArray(childNode.children), field);
        if (copyCTDataToView(filterVal, useRegExpForFilter, childNode, field)) {
            expandTreeToIndex.push(childNode.index);
            callTreeToShow = true;
        }
    }
    return callTreeToShow;
}

// Whether one node passes one filter field, judged by its first data row.
function copyCTDataToView(filterVal, useRegExpForFilter, node, field) {
    var row = procData[node.IDs[0]];
    if (row[field] < 0) return true;
    strToMatch = eval(field)[row[field]];
    var matched = false;
    if (useRegExpForFilter) {
        var re = new RegExp(filterVal);
        matched = re.test(strToMatch);
        if (!matched && re.test('_self') && /_post$/.test(strToMatch)) matched = true;
    } else {
        matched = (strToMatch == filterVal) || new RegExp(filterVal + '_self').test(strToMatch);
    }
    return strToMatch == '' || matched;
}
//#endif

// Index in the view of the first rendered row of each table.
var lastStartIndex = new Array();
lastStartIndex['Aggregate'] = 0;
//#if !aggregateOnly
lastStartIndex['Detail'] = 0;
lastStartIndex['CallTree'] = 0;
//#endif
