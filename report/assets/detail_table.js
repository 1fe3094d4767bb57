// SPDX-License-Identifier: BSD-3-Clause
// The detail table: one row per phase execution (a row of procData), with check
// boxes whose totals show in the last row, filtered and sorted through the form
// beneath it. It renders through the virtual table engine of the common script:
// at most ABSMAXNUMPHASES real rows, rewritten in place on scrolling. Lines
// between "//#if" and "//#endif" are kept only in reports of the named variant.

// The metric columns, in the order of their cell numbers. Each holds: col, the
// number in the cell id; field; share, its width as a part of the Metric
// width; head, its label in the last header row; naTest and naTestRewrite, the
// field whose missing-run value makes the cell show "NA" in a full build and in
// an in-place rewrite; bkg and bkgRewrite, the field with the band class of a
// Rel Dev cell in either build; total, the totals cell beneath it or null.
function detailColumns() {
    var columns = new Array();
    function add(col, field, share, head, naTest, naTestRewrite, bkg, bkgRewrite, total) {
        columns.push({ col: col, field: field, share: share, head: head, naTest: naTest,
                       naTestRewrite: naTestRewrite, bkg: bkg, bkgRewrite: bkgRewrite, total: total });
    }
    function total(id, field, how, skipMissing) {
        return { id: id, field: field, how: how, skipMissing: skipMissing };
    }
//#if comparison
    // One group of four cells: left, right, absolute and relative deviation.
    // The Rel Dev cell shows "NA" when its group's Abs Dev field is missing.
    function addGroup(firstCol, name, share, totalName, how, skipMissing, relDevTest, bkgRewrite) {
        var absDev = name + 'AbsDev';
        add(firstCol, 'LHS_' + name, share, lhsLabel, 'LHS_' + name, 'LHS_' + name, null, null,
            total('totalLHS_' + totalName, 'LHS_' + name, how, skipMissing));
        add(firstCol + 1, 'RHS_' + name, share, rhsLabel, 'RHS_' + name, 'RHS_' + name, null, null,
            total('totalRHS_' + totalName, 'RHS_' + name, how, skipMissing));
        add(firstCol + 2, absDev, share, 'Abs Dev', absDev, absDev, null, null,
            total('totalAbsDev_' + totalName, absDev, how, skipMissing));
        add(firstCol + 3, name + 'RelDev', share, 'Rel Dev', relDevTest, absDev, name + 'BkgColor', bkgRewrite, null);
    }
//#if time
    addGroup(1, 'WCSelf', 0.25, 'WC', 'sum', true, 'WCSelfAbsDev', 'WCSelfBkgColor');
//#endif
//#if basicmemory
    // Rewritten Rel Dev cells of columns 8 and 16 take each other's band class.
    addGroup(1, 'UsageDelta', 0.06, 'UsageDelta', 'last', true, 'UsageDeltaAbsDev', 'UsageDeltaBkgColor');
    addGroup(5, 'Usage', 0.06, 'Usage', 'last', true, 'UsageAbsDev', 'UsagePeakBkgColor');
    addGroup(9, 'UsagePeakDelta', 0.06, 'UsagePeakDelta', 'last', true, 'UsagePeakDeltaAbsDev', 'UsagePeakDeltaBkgColor');
    addGroup(13, 'UsagePeak', 0.06, 'UsagePeak', 'last', true, 'UsagePeakAbsDev', 'UsageBkgColor');
//#endif
//#if detailedmemory
    // A full build tests the Rel Dev field itself.
    var groups = [['Committed', 'Com'], ['Reserved', 'Res'], ['Dlls', 'Dll'], ['NonProcess', 'OS'], ['Free', 'Free']];
    for (var g = 0; g < groups.length; g++) {
        var name = groups[g][0];
        addGroup(1 + 4 * g, name, 0.06, groups[g][1], 'last', false, name + 'RelDev', name + 'BkgColor');
    }
//#endif
//#else
//#if time
    add(1, 'WCSelf', 0.50, 'Self', null, null, null, null, total('totalSelfTime', 'WCSelf', 'sum', false));
    add(2, 'WCElapsed', 0.50, 'Self + Child', null, null, null, null, null);
//#endif
//#if basicmemory
    add(1, 'UsageDelta', 0.25, 'Process Usage Delta', null, null, null, null,
        total('totalUsageDelta', 'UsageDelta', 'sum', false));
    add(2, 'Usage', 0.25, 'Process Usage', null, null, null, null, total('totalUsage', 'Usage', 'max', false));
    add(3, 'UsagePeakDelta', 0.25, 'Peak Usage Delta', null, null, null, null,
        total('totalUsagePeakDelta', 'UsagePeakDelta', 'sum', false));
    add(4, 'UsagePeak', 0.25, 'Peak Usage', null, null, null, null, total('totalUsagePeak', 'UsagePeak', 'max', false));
//#endif
//#if detailedmemory
    var fields = [['Committed', 'Com'], ['Reserved', 'Res'], ['Dlls', 'Dll'], ['NonProcess', 'OS'], ['Free', 'Free']];
    for (var f = 0; f < fields.length; f++) {
        add(1 + f, fields[f][0], 0.20, fields[f][1], null, null, null, null,
            total('total' + fields[f][1], fields[f][0], 'max', false));
    }
//#endif
//#endif
    return columns;
}

var detailTableColumns = detailColumns();

// The totals of the table's footer, in column order.
function detailTotalSpecs() {
    var specs = new Array();
    for (var c = 0; c < detailTableColumns.length; c++) {
        if (detailTableColumns[c].total) specs.push(detailTableColumns[c].total);
    }
    return specs;
}

var detailTotalsSpecs = detailTotalSpecs();

// The totals of the checked rows are kept between calls and summed again only
// when the view or its marks changed, so that scrolling a long view stays
// cheap. Every change to dataView's marks in place raises detailChecksVersion.
var detailChecksVersion = 0;
var detailTotalsCache = { index: null, checked: null, length: -1, version: -1, values: null, count: 0 };

function noteDetailChecksChanged() {
    detailChecksVersion++;
}

// Refills the totals row from the checked rows.
function updateTotals() {
    if (detailTotalsSpecs.length == 0 || !document.getElementById(detailTotalsSpecs[0].id)) return;
    var cache = detailTotalsCache;
    if (cache.index !== dataView.Index || cache.checked !== dataView.Checked ||
        cache.length != dataView.Index.length || cache.version != detailChecksVersion) {
        var values = emptyTotals(detailTotalsSpecs);
        var chkCount = 0;
        for (var ii = 0; ii < dataView.Index.length; ii++) {
            if (dataView.Checked[ii] == 1) {
                addRowToTotals(detailTotalsSpecs, values, procData[dataView.Index[ii]]);
                chkCount++;
            }
        }
        detailTotalsCache = { index: dataView.Index, checked: dataView.Checked, length: dataView.Index.length,
                              version: detailChecksVersion, values: values, count: chkCount };
        cache = detailTotalsCache;
    }
    showTotals(detailTotalsSpecs, cache.values);
    document.getElementById('totalChecked').innerHTML = cache.count.toFixed(0);
}

// Handler of all check boxes; index 999999 means the header's box.
function updateDataViewChecked(chkbox, index) {
    updateViewChecked(dataView, 'AllChecked', 'phaseSummaryTable', 'AllChecked', chkbox, index);
    noteDetailChecksChanged();
    updateTotals();
}

// Whether a metric cell shows "NA": its test field holds the missing-run value.
function detailCellMissing(row, testField) {
    return testField != null && row[testField] == MISSING_RUN_VALUE;
}

// The name of an attribute of a row, or a blank where the row has none.
function detailAttributeName(names, id) {
    return id >= 0 ? names[id] : null;
}

// The shown text of a name cut to a cell width; a non-breaking space where the
// row has no such attribute.
function detailNameText(table, name, width) {
    if (name == null) return '\u00a0';
    return createStrToShow(modifyStrToShow(table, name, width), name);
}

// The contents of one row's cells: markup for the check box and the phase,
// plain text for the others (the text cells of an in-place rewrite are set as
// text, which costs the browser less than markup).
function detailRowContents(i, cellWidths) {
    var d = procData[dataView.Index[i]];
    var groupingName = detailAttributeName(Grouping, d.Grouping);
    var contents = new Array();
    var chkStr = (dataView.Checked[i] == 1) ? ' checked="checked"' : '';
    contents.checkBox = '<input id="checkBox' + i + '" type="checkbox"' + chkStr +
                        ' onclick="updateDataViewChecked(this, ' + i + ')"/>';
    contents.phaseName = detailNameText('Phase', Phase[d.Phase], cellWidths['Phase']);
    contents.grouping = '(Grouping:' + (groupingName == null ? '\u00a0' : groupingName) + ')';
    contents.phase = htmlText(contents.phaseName) + '<br><span style="font-size:8pt;">' +
                     htmlText(contents.grouping) + '</span>';
    contents.model = detailNameText('Model', detailAttributeName(Model, d.Model), 0.5 * cellWidths['Cogwheel']);
    var targetName = detailAttributeName(Target, d.Target);
    contents.target = (targetName == null) ? '\u00a0' : targetName;
    contents.machine = detailNameText('Machine', detailAttributeName(Machine, d.Machine), cellWidths['Machine']);
    contents.chart = detailNameText('Chart', detailAttributeName(Chart, d.Chart), cellWidths['Chart']);
    contents.exec = '' + dataView.Index[i];
    contents.row = d;
    return contents;
}

// A rewrite in place changes the check box and the texts of the phase cell
// that are there, rather than make new ones from markup.
function rewriteDetailCheckBox(cell, i) {
    var box = cell.firstChild;
    if (!box || box.nodeName != 'INPUT') {
        cell.innerHTML = detailRowContents(i, detailCellWidths).checkBox;
        return;
    }
    box.id = 'checkBox' + i;
    box.checked = (dataView.Checked[i] == 1);
    box.setAttribute('onclick', 'updateDataViewChecked(this, ' + i + ')');
}

function rewriteDetailPhaseCell(cell, contents) {
    var name = cell.firstChild;
    var grouping = cell.lastChild;
    if (name && name.nodeType == 3 && grouping && grouping.nodeName == 'SPAN') {
        name.nodeValue = contents.phaseName;
        grouping.textContent = contents.grouping;
    } else {
        cell.innerHTML = contents.phase;
    }
}

// Makes rows begin up to end of the view, or rewrites the cells of the rows
// that exist in place; returns the markup of the made rows.
function createPhaseSummaryTable(begin, end, cellWidths, onScrollCall) {
    var parts = new Array();
    var odd = true;
    numRows['Detail'] = 0;
    for (var i = begin; i < end; i++) {
        var r = numRows['Detail'];
        var tdClass = odd ? 'dataCellOdd' : 'dataCellEven';
        var contents = detailRowContents(i, cellWidths);
        var d = contents.row;
        if (onScrollCall) {
            var checkCell = document.getElementById('checkBoxTD' + r);
            if (!checkCell) break;
            rewriteDetailCheckBox(checkCell, i);
            rewriteDetailPhaseCell(document.getElementById('phaseTD' + r), contents);
            for (var c = 0; c < detailTableColumns.length; c++) {
                var column = detailTableColumns[c];
                var cell = document.getElementById('row' + r + 'col' + column.col);
                var missing = detailCellMissing(d, column.naTestRewrite);
                cell.textContent = missing ? 'NA' : createScientificNotation(d[column.field]);
                if (column.bkgRewrite && !missing) {
//#if time
                    cell.className = 'dataCell phaseSummaryCell ' + d[column.bkgRewrite];
//#else
                    cell.className = 'dataCell ' + d[column.bkgRewrite];
//#endif
                }
            }
            document.getElementById('modelTD' + r).textContent = contents.model;
            document.getElementById('targetTD' + r).textContent = contents.target;
            document.getElementById('machineTD' + r).textContent = contents.machine;
            document.getElementById('chartTD' + r).textContent = contents.chart;
            document.getElementById('execTD' + r).textContent = contents.exec;
        } else {
            var nameClass = '" class="phaseNameCell phaseSummaryCell ' + tdClass + '">';
            parts.push('<tr><td id="checkBoxTD' + r + '" class="checkboxCell phaseSummaryCell ' + tdClass + '">' +
                       contents.checkBox + '</td>');
            parts.push('<td id="phaseTD' + r + nameClass + contents.phase + '</td>');
            for (var k = 0; k < detailTableColumns.length; k++) {
                var col = detailTableColumns[k];
                var isMissing = detailCellMissing(d, col.naTest);
                var cellClass = 'dataCell phaseSummaryCell ' + tdClass + (col.bkg && !isMissing ? d[col.bkg] : '');
                parts.push('<td id="row' + r + 'col' + col.col + '" class="' + cellClass + '">' +
                           (isMissing ? 'NA' : createScientificNotation(d[col.field])) + '</td>');
            }
            parts.push('<td id="modelTD' + r + nameClass + htmlText(contents.model) + '</td>');
            parts.push('<td id="targetTD' + r + nameClass + htmlText(contents.target) + '</td>');
            parts.push('<td id="machineTD' + r + nameClass + htmlText(contents.machine) + '</td>');
            parts.push('<td id="chartTD' + r + nameClass + htmlText(contents.chart) + '</td>');
            parts.push('<td id="execTD' + r + '" class="dataCell phaseSummaryCell lastColumnCell ' + tdClass + '">' +
                       contents.exec + '</td></tr>');
            odd = !odd;
        }
        numRows['Detail']++;
    }
    return parts.join('');
}

function detailHeadCell(attributes, width, content) {
    return '<th ' + attributes + ' style="width:' + width + 'px;">' + content + '</th>';
}

// The header rows, for the widths of the moment.
function createPhaseSummaryHeader(cellWidths) {
    var chkStr = (dataView.AllChecked == 1) ? ' checked="checked"' : '';
//#if comparison && time
    var R1 = 2, R2 = 1, metricSpan = 4;
//#endif
//#if comparison && basicmemory
    var R1 = 3, R2 = 2, metricSpan = 16;
//#endif
//#if comparison && detailedmemory
    var R1 = 3, R2 = 2, metricSpan = 20;
//#endif
//#if comparison && !time && !basicmemory && !detailedmemory
    var R1 = 2, R2 = 1, metricSpan = 1;
//#endif
//#if !comparison
    var R1 = 2, metricSpan = Math.max(detailTableColumns.length, 1);
//#endif
//#if time
    var metricHead = 'Wallclock Time (Secs)';
//#else
    var metricHead = 'Memory (MB)';
//#endif
    var span = 'rowspan="' + R1 + '"';
    var str = '<tr id="phaseSummaryTableFirstRow">';
    str += detailHeadCell(span, cellWidths['CheckBox'], 'Select<br><input id="AllChecked" type="checkbox"' + chkStr +
                          ' onclick="updateDataViewChecked(this, 999999)"/>');
    str += detailHeadCell(span, cellWidths['Phase'], 'Phase');
    str += detailHeadCell('colspan="' + metricSpan + '"', cellWidths['Metric'], metricHead);
//#if comparison
    var toolSpan = 'rowspan="' + R2 + '" colspan="2"';
//#else
    var toolSpan = 'colspan="2"';
//#endif
    str += detailHeadCell(toolSpan, cellWidths['Cogwheel'], 'Cogwheel');
    str += detailHeadCell(toolSpan, cellWidths['Loomchart'], 'Loomchart');
    str += detailHeadCell(span, cellWidths['ExecOrder'], 'Exec Order') + '</tr>';
//#if comparison && basicmemory
    var groupHeads = ['Process Usage Delta', 'Process Usage', 'Peak Usage Delta', 'Peak Usage'];
//#endif
//#if comparison && detailedmemory
    var groupHeads = ['Com', 'Res', 'Dll', 'OS', 'Free'];
//#endif
//#if comparison && basicmemory || comparison && detailedmemory
    str += '<tr id="phaseSummaryTableSecondRow">';
    for (var g = 0; g < groupHeads.length; g++) {
        str += detailHeadCell('colspan="4"', cellWidths['Metric'] / groupHeads.length, groupHeads[g]);
    }
    str += '</tr>';
//#endif
    str += '<tr id="phaseSummaryTableLastHeaderRow">';
    for (var c = 0; c < detailTableColumns.length; c++) {
        var column = detailTableColumns[c];
        var width = column.share * cellWidths['Metric'];
//#if comparison && time
        // The Rel Dev head's width is written without its colon.
        if (c == detailTableColumns.length - 1) {
            str += '<th style="width' + width + 'px;">' + column.head + '</th>';
            continue;
        }
//#endif
        str += detailHeadCell('', width, column.head);
    }
    str += detailHeadCell('', cellWidths['Model'], 'Model') + detailHeadCell('', cellWidths['Target'], 'Target') +
           detailHeadCell('', cellWidths['Machine'], 'Machine') + detailHeadCell('', cellWidths['Chart'], 'Chart');
    return str + '</tr>';
}

// The totals row and the end of the table.
function createPhaseSummaryFooter() {
    var str = '<tr id="phaseSummaryTableAggrRow">' +
              '<td class="dataCell checkboxCell totalsCell"><div id="totalChecked">0</div></td>' +
              '<td id="aggTD" align="left" class="phaseNameCell totalsCell">&nbsp;</td>';
    for (var c = 0; c < detailTableColumns.length; c++) {
        var total = detailTableColumns[c].total;
        if (total) {
            str += '<td class="dataCell totalsCell"><div id="' + total.id + '">0.00</div></td>';
        } else {
            str += '<td class="dataCell totalsCell blankTotalsCell"></td>';
        }
    }
    for (var b = 0; b < 4; b++) str += '<td class="dataCell totalsCell blankTotalsCell"></td>';
    return str + '<td class="dataCell lastColumnCell totalsCell blankTotalsCell"></td></tr></table>';
}

// The cell widths of the last full build. A rewrite in place reuses them:
// reading the div's width would make the browser lay out the page on every
// scroll step, and the width changes only with a full build.
var detailCellWidths = null;

// Computes the widths and draws the table, or rewrites its rows in place.
function generatePhaseSummaryTable(begin, end, onScrollCall) {
    if (onScrollCall && detailCellWidths) {
        createPhaseSummaryTable(begin, end, detailCellWidths, onScrollCall);
        return '';
    }
    var tableDiv = document.getElementById('phaseSummaryTableDiv');
    var tableWidth = 0.99 * tableDiv.clientWidth;
    var cellWidths = new Array();
//#if comparison && time
    var shares = [0.150, 0.350, 0.20, 0.20, 0.02, 0.03];
//#endif
//#if comparison && !time
    var shares = [0.130, 0.570, 0.08, 0.07, 0.02, 0.03];
//#endif
//#if !comparison
    var shares = [0.200, 0.300, 0.150, 0.150, 0.05, 0.05];
//#endif
    var keys = ['Phase', 'Metric', 'Cogwheel', 'Loomchart', 'CheckBox', 'ExecOrder'];
    for (var k = 0; k < keys.length; k++) cellWidths[keys[k]] = shares[k] * tableWidth;
    cellWidths['Model'] = 0.90 * cellWidths['Cogwheel'];
    cellWidths['Target'] = 0.10 * cellWidths['Cogwheel'];
    cellWidths['Machine'] = 0.50 * cellWidths['Loomchart'];
    cellWidths['Chart'] = 0.50 * cellWidths['Loomchart'];
    if (onScrollCall) {
        createPhaseSummaryTable(begin, end, cellWidths, onScrollCall);
        return '';
    }
    detailCellWidths = cellWidths;
    var tableStr = '<table class="dataTable" id="phaseSummaryTable" cellspacing="0" cellpadding="0" style="width:' +
                   tableWidth + 'px;table-layout:fixed;">';
    if (TableHdrStr['Detail'] == '') TableHdrStr['Detail'] = createPhaseSummaryHeader(cellWidths);
    if (TableFtrStr['Detail'] == '') TableFtrStr['Detail'] = createPhaseSummaryFooter();
    var str = createPhaseSummaryTable(begin, end, cellWidths, onScrollCall);
    tableDiv.innerHTML = tableStr + TableHdrStr['Detail'] + str + TableFtrStr['Detail'];
    document.getElementById('aggTD').innerHTML = 'Aggregate (N = ' + dataView.Index.length + ')';
    document.getElementById('UserInputsTableId').style.width = tableWidth + 'px';
}

// Shows the table from scratch: a first build gives the rows a height to
// measure, the second fits the table to the window.
function renderDetailTable() {
    document.getElementById('phaseSummaryTableDiv').style.display = 'block';
    numPhasesToRenderInTable['Detail'] = ABSMAXNUMPHASES;
    maxNumPhases = Math.min(numPhasesToRenderInTable['Detail'], dataView.Index.length);
    generatePhaseSummaryTable(0, maxNumPhases, false);
    tableResizeAction('Detail');
}

// Applies the form: filters, then sorts, then sizes the scroller.
function modifyDataView(useRegExpForFilter) {
    var Params = parseInputs('Detail');
    filterDataView(Params.Filter, useRegExpForFilter);
    sortDataView(Params.Sort);
    generateFakeDivContents('Detail');
}

function IsNumeric(input) {
    return !isNaN(parseInt(input));
}

// Whether a name passes a filter cell. A typed expression is unanchored; when
// it matches the text "_self" it also lets every name with "_post" through.
// From a link the cell holds a full name that must match exactly, and a name
// with "_self" lets the "_post" names through as well.
function detailNameFilter(filterVal, useRegExpForFilter) {
    if (useRegExpForFilter) {
        var re = new RegExp(filterVal);
        var takesPost = re.test('_self');
        return function (name) {
            return name == '' || re.test(name) || (takesPost && /_post/.test(name));
        };
    }
    var exactTakesPost = filterVal.indexOf('_self') >= 0;
    return function (name) {
        return name == '' || name == filterVal || (exactTakesPost && /_post/.test(name));
    };
}

// Rebuilds the view from the filter cells, each narrowing the result of the
// one before. Every filter clears the marks. A name's verdict is found once
// per name, not once per row.
function filterDataView(filterParams, useRegExpForFilter) {
    var procDataLength = procData.length - numBlankData;
    var fieldCounter = 0;
    for (var field in filterParams) {
        var filterVal = filterParams[field];
        if (filterVal != '' && field != 'unique') {
            var names = eval(field);
            var passes = detailNameFilter(filterVal, useRegExpForFilter);
            var verdicts = new Array();
            var candidates = (fieldCounter == 0) ? null : dataView.Index.slice(0);
            var count = candidates ? candidates.length : procDataLength;
            var index = new Array();
            var checked = new Array();
            for (var c = 0; c < count; c++) {
                var rowIndex = candidates ? candidates[c] : c;
                var id = procData[rowIndex][field];
                if (id >= 0) {
                    var verdict = verdicts[id];
                    if (verdict === undefined) verdict = verdicts[id] = passes(names[id]);
                    if (!verdict) continue;
                }
                index.push(rowIndex);
                checked.push(0);
            }
            dataView.Index = index;
            dataView.Checked = checked;
            dataView.AllChecked = false;
        } else if (fieldCounter == 0) {
            var allRows = new Array(procDataLength);
            var noMarks = new Array(procDataLength);
            for (var r = 0; r < procDataLength; r++) {
                allRows[r] = r;
                noMarks[r] = 0;
            }
            dataView.Index = allRows;
            dataView.Checked = noMarks;
            dataView.AllChecked = false;
        }
        fieldCounter++;
    }
}

// Orders the view by the sort cells: a cell's number is its column's rank.
function sortDataView(sortParams) {
    var fieldsArray = new Array();
    for (var field in sortParams) {
        if (IsNumeric(sortParams[field])) fieldsArray[sortParams[field] - 1] = field;
    }
    if (fieldsArray.length > 0) {
        var sorted = detailSortOrder(dataView.Index, fieldsArray);
        for (var i = 0; i < sorted.length; i++) dataView.Index[i] = sorted[i];
        noteDetailChecksChanged();
    }
}

// The order that quicksort gives the view indices arr for the sort columns:
// ascending by the string key of each row, equal keys in their order in arr.
// The keys are those of quicksort: a phase name in lower case, or per number
// the text of parseInt(100000000 - value*100) padded to ten characters. Where
// each number's text is ten digits and no phase name ends the key of another
// one ahead of a later column, comparing keys is comparing the columns one by
// one, and the view is ordered by stable counting passes over each column's
// rank, last column first. Other views compare the whole keys.
function detailSortOrder(arr, sortCols) {
    var n = arr.length;
    var ranks = new Array();
    for (var c = 0; c < sortCols.length; c++) {
        var columnRanks = detailSortRanks(arr, sortCols[c], c == sortCols.length - 1);
        if (columnRanks === null) return detailSortByKeys(arr, sortCols);
        if (columnRanks !== undefined) ranks.push(columnRanks);
    }
    var order = new Array(n);
    for (var i = 0; i < n; i++) order[i] = i;
    for (var k = ranks.length - 1; k >= 0; k--) order = countingSortByRank(order, ranks[k]);
    var result = new Array(n);
    for (var j = 0; j < n; j++) result[j] = arr[order[j]];
    return result;
}

// The rank of each row's key part in one column, as an Int32Array by position
// in arr; undefined for a column whose part is the same on every row; null
// where the parts can't be compared column by column.
function detailSortRanks(arr, col, isLastColumn) {
    var n = arr.length;
    if (col == 'Phase') {
        var lower = new Array();
        var distinct = new Array();
        for (var i = 0; i < n; i++) {
            var id = procData[arr[i]].Phase;
            if (lower[id] === undefined) {
                lower[id] = Phase[id].toLowerCase();
                distinct.push(lower[id]);
            }
        }
        distinct.sort();
        var rankOf = new Object();
        var rank = 0;
        for (var d = 0; d < distinct.length; d++) {
            if (d > 0 && distinct[d] != distinct[d - 1]) {
                // A name that begins another one would be compared with the
                // next column's text.
                if (!isLastColumn && distinct[d].lastIndexOf(distinct[d - 1], 0) == 0) return null;
                rank++;
            }
            rankOf['k' + distinct[d]] = rank;
        }
        if (rank == 0) return undefined;
        var phaseRanks = new Int32Array(n);
        for (var p = 0; p < n; p++) phaseRanks[p] = rankOf['k' + lower[procData[arr[p]].Phase]];
        return phaseRanks;
    }
    var parts = new Float64Array(n);
    var allNaN = true;
    var anyNaN = false;
    for (var r = 0; r < n; r++) {
        var value = (col == 'ExecOrder') ? Number(arr[r]) : Number(procData[arr[r]][col]);
        var v = 100000000 - value * 100;
        if (v !== v) {
            anyNaN = true;
            continue;
        }
        allNaN = false;
        // Ten digits without sign or exponent: the text orders as the number.
        if (!(v == 0 || (v >= 1e-6 && v < 1e10))) return null;
        parts[r] = Math.floor(v);
    }
    if (allNaN) return undefined;
    if (anyNaN) return null;
    var values = new Float64Array(parts);
    values.sort();
    var unique = 0;
    for (var u = 0; u < n; u++) {
        if (u == 0 || values[u] != values[unique - 1]) values[unique++] = values[u];
    }
    if (unique == 1) return undefined;
    var numberRanks = new Int32Array(n);
    for (var q = 0; q < n; q++) {
        var lo = 0, hi = unique - 1, target = parts[q];
        while (lo < hi) {
            var mid = (lo + hi) >> 1;
            if (values[mid] < target) lo = mid + 1; else hi = mid;
        }
        numberRanks[q] = lo;
    }
    return numberRanks;
}

// A stable counting sort of positions by their rank.
function countingSortByRank(order, ranks) {
    var n = order.length;
    var maxRank = 0;
    for (var i = 0; i < n; i++) if (ranks[i] > maxRank) maxRank = ranks[i];
    var starts = new Int32Array(maxRank + 2);
    for (var j = 0; j < n; j++) starts[ranks[order[j]] + 1]++;
    for (var k = 1; k < starts.length; k++) starts[k] += starts[k - 1];
    var sorted = new Array(n);
    for (var m = 0; m < n; m++) sorted[starts[ranks[order[m]]]++] = order[m];
    return sorted;
}

// The general order: quicksort's whole keys, built once per row.
function detailSortByKeys(arr, sortCols) {
    var n = arr.length;
    var keys = new Array(n);
    for (var i = 0; i < n; i++) {
        var key = '';
        for (var c = 0; c < sortCols.length; c++) {
            var col = sortCols[c];
            if (col == 'Phase') {
                key += Phase[procData[arr[i]].Phase].toLowerCase();
                continue;
            }
            var value = (col == 'ExecOrder') ? Number(arr[i]) : Number(procData[arr[i]][col]);
            var text = '' + parseInt(100000000 - value * 100);
            while (text.length < 10) text = '0' + text;
            key += text;
        }
        keys[i] = key;
    }
    var positions = new Array(n);
    for (var p = 0; p < n; p++) positions[p] = p;
    positions.sort(function (a, b) {
        return keys[a] < keys[b] ? -1 : (keys[a] > keys[b] ? 1 : a - b);
    });
    var result = new Array(n);
    for (var r = 0; r < n; r++) result[r] = arr[positions[r]];
    return result;
}
