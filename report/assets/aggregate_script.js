// SPDX-License-Identifier: BSD-3-Clause
// The aggregate table: one row per phase with its execution count and its
// summed metric, sortable by each column head. It renders through the virtual
// table engine of the common script (row height 25, no totals row). Lines
// between "//#if" and "//#endif" are kept only in reports of the named variant.

// The sentinel that stands for a value of the run that lacks the row.
var AGG_MISSING_VALUE = -99.99;

// The data columns of the table after the phase name, in the order of their
// cell numbers. Each holds: col, the number in the cell id; field, the row
// field shown; width, the cell width; kind, 'count' (no number format), 'value'
// or 'relDev'; naTest and naTestRewrite, the field that makes the cell show
// "NA" when it holds the sentinel, in a full build and in an in-place rewrite;
// bkg, the band class field of a Rel Dev cell; last, the right-most cell of a
// time comparison.
function aggregateColumns(cellWidths) {
    var columns = new Array();
    function add(col, field, width, kind, naTest, naTestRewrite, bkg, last) {
        columns.push({ col: col, field: field, width: width, kind: kind, naTest: naTest,
                       naTestRewrite: naTestRewrite, bkg: bkg, last: last });
    }
//#if comparison
    var countWidth = 0.3 * cellWidths['Count'];
    add(1, 'LHS_Count', countWidth, 'count', 'LHS_Count', 'LHS_Count', null, false);
    add(2, 'RHS_Count', countWidth, 'count', 'RHS_Count', 'RHS_Count', null, false);
    add(3, 'CountAbsDev', countWidth, 'count', null, null, null, false);
    // One group of four cells: left, right, absolute and relative deviation.
    function addGroup(firstCol, name, width, absDevTest, absDevTestRewrite, last) {
        add(firstCol, 'LHS_' + name, width, 'value', 'LHS_' + name, 'LHS_' + name, null, false);
        add(firstCol + 1, 'RHS_' + name, width, 'value', 'RHS_' + name, 'RHS_' + name, null, false);
        add(firstCol + 2, name + 'AbsDev', width, 'value', absDevTest, absDevTestRewrite, null, false);
        add(firstCol + 3, name + 'RelDev', width, 'relDev', absDevTest, absDevTestRewrite, name + 'BkgColor', last);
    }
//#if time
    addGroup(4, 'WCSelf', 0.25 * cellWidths['Time'], 'WCETAbsDev', 'WCETAbsDev', true);
//#endif
//#if basicmemory
    addGroup(4, 'UsageDelta', 0.125 * cellWidths['Memory'], 'UsageDeltaAbsDev', 'UsageDeltaAbsDev', false);
    addGroup(12, 'UsagePeakDelta', 0.125 * cellWidths['Memory'], 'UsagePeakDeltaAbsDev', 'UsagePeakDeltaAbsDev', false);
//#endif
//#if detailedmemory
    var groupWidth = 0.125 * cellWidths['Memory'];
    addGroup(4, 'Committed', groupWidth, 'CommittedAbsDev', 'CommittedAbsDev', false);
    addGroup(8, 'Reserved', groupWidth, 'ReservedAbsDev', 'ReservedAbsDev', false);
    addGroup(12, 'Dlls', groupWidth, 'DllsAbsDev', 'DllsAbsDev', false);
    addGroup(16, 'NonProcess', groupWidth, 'UsageNonProcessAbsDev', 'NonProcessAbsDev', false);
    addGroup(20, 'Free', groupWidth, 'UsageFreeAbsDev', 'FreeAbsDev', false);
//#endif
//#else
    add(1, 'Count', cellWidths['Count'], 'count', null, null, null, false);
//#if time
    add(2, 'WCElapsed', 0.5 * cellWidths['Time'], 'value', null, null, null, false);
//#endif
//#if basicmemory
    add(2, 'UsageDelta', 0.5 * cellWidths['Memory'], 'value', null, null, null, false);
    add(4, 'UsagePeakDelta', 0.5 * cellWidths['Memory'], 'value', null, null, null, false);
//#endif
//#if detailedmemory
    var memWidth = 0.2 * cellWidths['Memory'];
    add(2, 'Committed', memWidth, 'value', null, null, null, false);
    add(3, 'Reserved', memWidth, 'value', null, null, null, false);
    add(4, 'Dlls', memWidth, 'value', null, null, null, false);
    add(5, 'NonProcess', memWidth, 'value', null, null, null, false);
    add(6, 'Free', memWidth, 'value', null, null, null, false);
//#endif
//#endif
    return columns;
}

// True when the cell shows "NA": its test field holds the sentinel.
function aggCellIsMissing(row, testField) {
    return testField != null && row[testField] == AGG_MISSING_VALUE;
}

function aggCellText(row, column, missing) {
    if (missing) return 'NA';
    if (column.kind == 'count') return '' + Math.abs(row[column.field]);
    return createScientificNotation(row[column.field]);
}

// The markup of the phase name cell's content: a link into the other views,
// or the bare name in a report that has the aggregate view only.
function aggPhaseCellContent(phaseName, cellWidths) {
    var shown = htmlText(createStrToShow(modifyStrToShow('Phase', phaseName, cellWidths['Phase']), phaseName));
//#if aggregateOnly
    return shown;
//#else
//#if comparison
    return '<a href="javascript:openDetailTab(' + linkArgument(phaseName) + ')">' + shown + '</a>';
//#else
    return '<a href="javascript:openCallTreeTab(' + linkArgument(phaseName) + ')">' + shown + '</a>';
//#endif
//#endif
}

// The markup of the view's rows from begin up to end.
function createAggregateSummaryTable(begin, end, cellWidths) {
    var columns = aggregateColumns(cellWidths);
    var parts = new Array();
    var tdClass = 'dataCellOdd';
    for (var i = begin; i < end; i++) {
        var rowNum = i - begin;
        var row = aggData[aggDataView.Index[i]];
        var phaseName = Phase[row.Phase];
        var cellId = 'aggRow' + rowNum + 'col';
        parts.push('<tr>');
//#if aggregateOnly
        parts.push('<td id="' + cellId + '0" class="phaseNameCell phaseSummaryCell ' + tdClass +
                   '" style="height:25px;width:' + cellWidths['Phase'] + 'px;">');
//#else
        parts.push('<td id="' + cellId + '0" class="phaseNameCell phaseSummaryCell ' + tdClass +
                   '" style="cursor:pointer;height:25px;width:' + cellWidths['Phase'] + 'px;">');
//#endif
        parts.push(aggPhaseCellContent(phaseName, cellWidths) + '</td>');
        for (var c = 0; c < columns.length; c++) {
            var column = columns[c];
            var missing = aggCellIsMissing(row, column.naTest);
            var cellClass;
            if (column.kind == 'count') {
                cellClass = 'dataCell phaseSummaryCell ' + tdClass;
            } else {
                cellClass = column.last ? 'dataCell lastColumnCell ' + tdClass : 'dataCell ' + tdClass;
                if (column.kind == 'relDev' && !missing) cellClass += row[column.bkg];
            }
            parts.push('<td id="' + cellId + column.col + '" class="' + cellClass + '" style="width:' +
                       column.width + 'px;">' + aggCellText(row, column, missing) + '</td>');
        }
        parts.push('</tr>');
        tdClass = (tdClass == 'dataCellOdd') ? 'dataCellEven' : 'dataCellOdd';
    }
    numRows['Aggregate'] = end - begin;
    return parts.join('');
}

// Rewrites the rows that exist in place to show the view from begin on.
function reCreateAggSummaryTableRows(begin, end, cellWidths) {
    var columns = aggregateColumns(cellWidths);
    var rowCount = 0;
    for (var i = begin; i < end; i++, rowCount++) {
        var row = aggData[aggDataView.Index[i]];
        var cellId = 'aggRow' + rowCount + 'col';
        var nameCell = document.getElementById(cellId + '0');
        if (!nameCell) break;
        nameCell.innerHTML = aggPhaseCellContent(Phase[row.Phase], cellWidths);
        for (var c = 0; c < columns.length; c++) {
            var column = columns[c];
            var cell = document.getElementById(cellId + column.col);
            if (!cell) continue;
            var missing = aggCellIsMissing(row, column.naTestRewrite);
            cell.innerHTML = aggCellText(row, column, missing);
            if (column.kind == 'relDev' && !missing) {
                cell.className = (column.last ? 'dataCell lastColumnCell ' : 'dataCell ') + row[column.bkg];
            }
        }
    }
}

// A sortable column head: clicking it sorts the view by that field.
function aggSortableHead(field, label) {
    return '<span style="cursor:pointer;" onclick="sortAggData(\'' + field + '\')">' + label + '</span>';
}

function aggHeadCell(attributes, width, content) {
    return '<th ' + attributes + ' style="width:' + width + 'px;">' + content + '</th>';
}

// The opening of the table and its header rows.
function createAggregateSummaryHeader(tableWidth, cellWidths) {
    var str = '<table class="dataTable" id="aggregateSummaryTable" cellspacing="0" cellpadding="0" style="width:' +
              tableWidth + 'px;table-layout:fixed;">';
    str += '<tr id="aggregateSummaryTableFirstRow">';
//#if comparison
    var countWidth = 0.33 * cellWidths['Count'];
    var lastRow = aggHeadCell('', countWidth, aggSortableHead('LHS_Count', lhsLabel)) +
                  aggHeadCell('', countWidth, aggSortableHead('RHS_Count', rhsLabel)) +
                  aggHeadCell('', countWidth, aggSortableHead('CountAbsDev', 'Abs Dev'));
    function groupHeads(name, width) {
        return aggHeadCell('', width, aggSortableHead('LHS_' + name, lhsLabel)) +
               aggHeadCell('', width, aggSortableHead('RHS_' + name, rhsLabel)) +
               aggHeadCell('', width, aggSortableHead(name + 'AbsDev', 'Abs Dev')) +
               aggHeadCell('', width, aggSortableHead(name + 'RelDev', 'Rel Dev'));
    }
//#if time
    str += aggHeadCell('rowspan="2"', cellWidths['Phase'], aggSortableHead('Phase', 'Phase'));
    str += aggHeadCell('rowspan="1" colspan="3"', cellWidths['Count'], aggSortableHead('Count', 'Count'));
    str += aggHeadCell('colspan="4"', cellWidths['Time'], 'Wallclock Time (Secs)');
    str += '</tr>';
    lastRow += groupHeads('WCSelf', 0.25 * cellWidths['Time']);
//#else
    str += aggHeadCell('rowspan="3"', cellWidths['Phase'], aggSortableHead('Phase', 'Phase'));
    str += aggHeadCell('rowspan="2" colspan="3"', cellWidths['Count'], aggSortableHead('Count', 'Count'));
//#if basicmemory
    str += aggHeadCell('colspan="8"', cellWidths['Memory'], 'Memory (MB)');
    str += '</tr><tr id="aggregateSummaryTableSecondRow">';
    str += aggHeadCell('colspan="4"', 0.25 * cellWidths['Memory'], 'Process Usage Delta');
    str += aggHeadCell('colspan="4"', 0.25 * cellWidths['Memory'], 'Peak Usage Delta');
    str += '</tr>';
    lastRow += groupHeads('UsageDelta', 0.125 * cellWidths['Memory']);
    lastRow += groupHeads('UsagePeakDelta', 0.125 * cellWidths['Memory']);
//#endif
//#if detailedmemory
    str += aggHeadCell('colspan="20"', cellWidths['Memory'], 'Memory (MB)');
    str += '</tr><tr id="aggregateSummaryTableSecondRow">';
    var groupLabels = ['Com', 'Res', 'Dll', 'OS', 'Free'];
    for (var g = 0; g < groupLabels.length; g++) {
        str += aggHeadCell('colspan="4"', 0.2 * cellWidths['Memory'], groupLabels[g]);
    }
    str += '</tr>';
    var groupFields = ['Committed', 'Reserved', 'Dlls', 'NonProcess', 'Free'];
    for (var f = 0; f < groupFields.length; f++) {
        lastRow += groupHeads(groupFields[f], 0.125 * cellWidths['Memory']);
    }
//#endif
//#endif
//#else
    var lastRow = '';
//#if time
    str += aggHeadCell('rowspan="1"', cellWidths['Phase'], aggSortableHead('Phase', 'Phase'));
    str += aggHeadCell('rowspan="1"', cellWidths['Count'], aggSortableHead('Count', 'Count'));
    str += '<th colspan="1" style="width:' + cellWidths['Time'] + 'px;height: 30px">' +
           aggSortableHead('WCElapsed', 'Wallclock Time (Secs)') + '</th>';
    str += '</tr>';
//#else
    str += aggHeadCell('rowspan="2"', cellWidths['Phase'], aggSortableHead('Phase', 'Phase'));
    str += aggHeadCell('rowspan="2"', cellWidths['Count'], aggSortableHead('Count', 'Count'));
//#if basicmemory
    str += aggHeadCell('colspan="2"', cellWidths['Memory'], 'Memory (MB)');
    str += '</tr>';
    lastRow += aggHeadCell('', 0.5 * cellWidths['Memory'], aggSortableHead('UsageDelta', 'Process Usage Delta'));
    lastRow += aggHeadCell('', 0.5 * cellWidths['Memory'], aggSortableHead('UsagePeakDelta', 'Peak Usage Delta'));
//#endif
//#if detailedmemory
    str += aggHeadCell('colspan="5"', cellWidths['Memory'], 'Memory (MB)');
    str += '</tr>';
    var heads = [['Committed', 'Com'], ['Reserved', 'Res'], ['Dlls', 'Dll'], ['NonProcess', 'OS'], ['Free', 'Free']];
    for (var h = 0; h < heads.length; h++) {
        lastRow += aggHeadCell('', 0.2 * cellWidths['Memory'], aggSortableHead(heads[h][0], heads[h][1]));
    }
//#endif
//#endif
//#endif
//#if !time && !basicmemory && !detailedmemory
    // A metric word without columns of its own: phase and count only.
    str += '</tr>';
//#endif
    str += '<tr id="aggregateSummaryTableLastHeaderRow">' + lastRow + '</tr>';
    return str;
}

// Computes the widths and draws the table, or rewrites its rows in place.
function generateAggregateSummaryTable(begin, end, onScrollCall) {
    var tableDiv = document.getElementById('aggregateSummaryDiv');
    var cellWidths = new Array();
//#if comparison && time
    var tableWidth = 0.85 * tableDiv.clientWidth;
    cellWidths['Phase'] = 0.30 * tableWidth;
    cellWidths['Count'] = 0.25 * tableWidth;
    cellWidths['Time'] = 0.45 * tableWidth;
//#endif
//#if !comparison && time
    var tableWidth = 0.60 * tableDiv.clientWidth;
    cellWidths['Phase'] = 0.50 * tableWidth;
    cellWidths['Count'] = 0.20 * tableWidth;
    cellWidths['Time'] = 0.30 * tableWidth;
//#endif
//#if comparison && basicmemory
    var tableWidth = 0.95 * tableDiv.clientWidth;
    cellWidths['Phase'] = 0.30 * tableWidth;
    cellWidths['Count'] = 0.15 * tableWidth;
    cellWidths['Memory'] = 0.55 * tableWidth;
//#endif
//#if !comparison && basicmemory
    var tableWidth = 0.75 * tableDiv.clientWidth;
    cellWidths['Phase'] = 0.50 * tableWidth;
    cellWidths['Count'] = 0.05 * tableWidth;
    cellWidths['Memory'] = 0.45 * tableWidth;
//#endif
//#if comparison && detailedmemory
    var tableWidth = 0.95 * tableDiv.clientWidth;
    cellWidths['Phase'] = 0.20 * tableWidth;
    cellWidths['Count'] = 0.10 * tableWidth;
    cellWidths['Memory'] = 0.70 * tableWidth;
//#endif
//#if !comparison && detailedmemory
    var tableWidth = 0.60 * tableDiv.clientWidth;
    cellWidths['Phase'] = 0.55 * tableWidth;
    cellWidths['Count'] = 0.05 * tableWidth;
    cellWidths['Memory'] = 0.50 * tableWidth;
//#endif
//#if !time && !basicmemory && !detailedmemory
    var tableWidth = 0.60 * tableDiv.clientWidth;
    cellWidths['Phase'] = 0.50 * tableWidth;
    cellWidths['Count'] = 0.20 * tableWidth;
//#endif
    if (onScrollCall) {
        reCreateAggSummaryTableRows(begin, end, cellWidths);
        return;
    }
    if (TableHdrStr['Aggregate'] == '') TableHdrStr['Aggregate'] = createAggregateSummaryHeader(tableWidth, cellWidths);
    var str = createAggregateSummaryTable(begin, end, cellWidths);
    if (TableFtrStr['Aggregate'] == '') TableFtrStr['Aggregate'] = '</table>';
    tableDiv.innerHTML = TableHdrStr['Aggregate'] + str + TableFtrStr['Aggregate'];
}
//#if !aggregateOnly
//#if comparison

// Opens the detail tab filtered to one phase name, sorted like the aggregate.
function openDetailTab(phaseName) {
    resizeTabContent['Detail'] = false;
    if (aggSortInfo['Col'] != '') {
        var sortId = ('Sort_' + aggSortInfo['Col']).replace('PlusChild', '').replace('SC', 'Self');
        var sortCell = document.getElementById(sortId);
        if (sortCell) sortCell.value = 1;
    }
    document.getElementById('phasename').value = phaseName;
    ShowTable('phaseSummary');
    document.getElementById('phaseSummaryTableDiv').style.display = 'block';
    modifyDataView(false);
    dataView.AllChecked = true;
    for (var i = 0; i < dataView.Index.length; i++) {
        dataView.Checked[i] = 1;
        var checkBox = document.getElementById('checkBox' + i);
        if (checkBox) checkBox.checked = true;
    }
    noteDetailChecksChanged();
    renderDetailTable();
    updateTotals();
}
//#else

// Opens the detail tab with the executions of one call tree node.
function openDetailTab(nodeIndex) {
    resizeTabContent['Detail'] = false;
    var node = nodeArray[nodeIndex];
    ShowTable('phaseSummary');
    var tableDiv = document.getElementById('phaseSummaryTableDiv');
    tableDiv.style.display = 'block';
    tableDiv.innerHTML = 'Loading Please wait ...';
    dataView.Index = new Array();
    dataView.Checked = new Array();
    dataView.AllChecked = true;
    for (var i = 0; i < node.IDs.length; i++) {
        dataView.Index.push(node.IDs[i]);
        dataView.Checked.push(1);
    }
    generateFakeDivContents('Detail');
    renderDetailTable();
    updateTotals();
}
//#endif
//#endif

// Draws the table from scratch at the current scroll position.
function renderAggregateTable() {
    numPhasesToRenderInTable['Aggregate'] = ABSMAXNUMPHASES;
    maxNumPhases = Math.min(numPhasesToRenderInTable['Aggregate'], aggDataView.Index.length);
    generateAggregateSummaryTable(0, maxNumPhases, false);
    tableResizeAction('Aggregate');
}

// Fills the view with the rows to show; the filter is not used.
function createAggDataView(filterParams) {
    aggDataView.Index = new Array();
    for (var count = 0; count < aggData.length; count++) {
//#if comparison
        var inView = !aggData[count].isParent || (aggData[count].IsParent && aggData[count].LHS_WCSelf > 0) ||
                     (aggData[count].IsParent && aggData[count].RHS_WCSelf > 0);
//#else
        var inView = !aggData[count].isParent || (aggData[count].isParent && aggData[count].WCElapsed > 0);
//#endif
        if (inView) aggDataView.Index.push(count);
    }
    generateFakeDivContents('Aggregate');
}

function aggDataSortFunction(a, b) {
    var col = aggSortInfo['Col'];
    var result;
    if (col == 'Phase') {
        var nameA = Phase[aggData[a].Phase].toLowerCase();
        var nameB = Phase[aggData[b].Phase].toLowerCase();
        result = (nameA < nameB) ? -1 : ((nameA > nameB) ? 1 : 0);
    } else {
        result = aggData[a][col] - aggData[b][col];
    }
    if (aggSortInfo['Asc'] == true) result = -result;
    return result;
}

// Click handler of a column head: the first click sorts ascending, the next
// one descending, and so on. The scroll position stays.
function sortAggData(col) {
    if (col != aggSortInfo['Col']) aggSortInfo['Asc'] = false;
    aggSortInfo['Col'] = col;
    aggDataView.Index.sort(aggDataSortFunction);
    aggSortInfo['Asc'] = !aggSortInfo['Asc'];
    maxNumPhases = Math.min(numPhasesToRenderInTable['Aggregate'], aggDataView.Index.length);
    generateAggregateSummaryTable(0, maxNumPhases, true);
    tableResizeAction('Aggregate');
}
