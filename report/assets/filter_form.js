// SPDX-License-Identifier: BSD-3-Clause
// The filter and sort forms beneath the detail and call tree tables: opening
// and closing their panes, reading their cells, and the Refresh buttons. A
// filter cell holds a regular expression over the names of its attribute; a
// sort cell holds the rank of its column among the sort keys.

// The metric sort cells of this report, in the order they are read: the cell's
// id and the data field it orders by. A later cell with the same rank wins.
var metricSortCells = [
//#if !comparison && time
    ['Sort_self', 'WCSelf'], ['Sort_selfPchild', 'WCElapsed']
//#endif
//#if !comparison && basicmemory
    ['Sort_UsageDelta', 'UsageDelta'], ['Sort_Usage', 'Usage'], ['Sort_UsagePeakDelta', 'UsagePeakDelta'],
    ['Sort_UsagePeak', 'UsagePeak']
//#endif
//#if !comparison && detailedmemory
    ['Sort_Committed', 'Committed'], ['Sort_Reserved', 'Reserved'], ['Sort_Dlls', 'Dlls'],
    ['Sort_NonProcess', 'NonProcess'], ['Sort_Free', 'Free']
//#endif
//#if comparison && time
    // No data field is named after the Abs Dev cell's key, so that cell orders nothing.
    ['Sort_LHS_WCSelf', 'LHS_WCSelf'], ['Sort_RHS_WCSelf', 'RHS_WCSelf'], ['Sort_WCSelfAbsDev', 'WCSelfbsDev'],
    ['Sort_WCSelfRelDev', 'WCSelfRelDev']
//#endif
];
//#if comparison && basicmemory
metricSortCells = comparisonSortCells(['UsageDelta', 'Usage', 'UsagePeakDelta', 'UsagePeak']);
//#endif
//#if comparison && detailedmemory
metricSortCells = comparisonSortCells(['Committed', 'Reserved', 'Dlls', 'NonProcess', 'Free']);
//#endif

// The four cells of each compared quantity: left, right, absolute and relative
// deviation; each cell's id is its field with the prefix "Sort_".
function comparisonSortCells(quantities) {
    var cells = new Array();
    for (var q = 0; q < quantities.length; q++) {
        var fields = ['LHS_' + quantities[q], 'RHS_' + quantities[q], quantities[q] + 'AbsDev', quantities[q] + 'RelDev'];
        for (var f = 0; f < fields.length; f++) cells.push(['Sort_' + fields[f], fields[f]]);
    }
    return cells;
}

// The value of a form cell; a cell the page lacks reads as empty.
function formCellValue(id) {
    var cell = document.getElementById(id);
    return cell ? cell.value : '';
}

// Reads the cells of a form into Params.Filter (in the order the filters
// apply) and Params.Sort.
function parseInputs(viewType) {
    var Params = new Array();
    Params['Filter'] = new Array();
    var prefix = (viewType == 'Detail') ? '' : 'CT_';
    Params.Filter.Phase = formCellValue(prefix + 'phasename');
    Params.Filter.Grouping = formCellValue(prefix + 'groupingname');
    Params.Filter.Model = formCellValue(prefix + 'modelname');
    Params.Filter.Target = formCellValue(prefix + 'targetname');
    if (viewType == 'Detail') {
        Params.Filter.Machine = formCellValue('machinename');
        Params.Filter.Chart = formCellValue('chartname');
    }
    // The sort cells are read for either view; the detail form exists wherever
    // the call tree's does. The Exec Order cell is not read.
    Params['Sort'] = new Array();
    Params.Sort.Phase = formCellValue('Sort_phasename');
    Params.Sort.Model = formCellValue('Sort_modelname');
    Params.Sort.Target = formCellValue('Sort_targetname');
    Params.Sort.Machine = formCellValue('Sort_machinename');
    Params.Sort.Chart = formCellValue('Sort_chartname');
    for (var s = 0; s < metricSortCells.length; s++) {
        Params.Sort[metricSortCells[s][1]] = formCellValue(metricSortCells[s][0]);
    }
    return Params;
}

// The panes of the forms: their open flag, arrow and table kind.
function inputPane(inputType) {
    switch (inputType) {
        case 'FilterData': return { open: filterDataTable, arrow: 'FilterExpandCollapse', tableType: 'Detail' };
        case 'SortData':   return { open: sortDataTable, arrow: 'SortExpandCollapse', tableType: 'Detail' };
        default:           return { open: CT_filterDataTable, arrow: 'CT_FilterExpandCollapse', tableType: 'CallTree' };
    }
}

function setInputPaneOpen(inputType, open) {
    var pane = document.getElementById(inputType);
    if (pane) pane.style.display = open ? 'block' : 'none';
    var arrow = document.getElementById(inputPane(inputType).arrow);
    if (arrow) arrow.innerHTML = open ? '&#9650;' : '&#9660;';
    switch (inputType) {
        case 'FilterData': filterDataTable = open; break;
        case 'SortData':   sortDataTable = open; break;
        default:           CT_filterDataTable = open; break;
    }
}

// Opens or closes a pane, then redraws its table, whose row count follows the
// form's height.
function showInputTable(inputType) {
    var pane = inputPane(inputType);
    setInputPaneOpen(inputType, !pane.open);
    if (pane.tableType == 'Detail') {
        if (document.getElementById('phaseSummaryTableDiv').style.display == 'block') renderDetailTable();
    } else {
        if (document.getElementById('callTreeSummaryTableDiv').style.display == 'block') renderCTDetailTable();
    }
}

// The first filter cell of a form whose text the filter can't compile, as
// { id, message }, or null. Expressions are compiled as the filters compile
// them: the cell's text in a typed filter; in the call tree's exact mode, the
// text followed by "_self".
function invalidFilterCell(viewType, useRegExpForFilter) {
    var prefix = (viewType == 'Detail') ? '' : 'CT_';
    var names = (viewType == 'Detail') ? ['Phase', 'Grouping', 'Model', 'Target', 'Machine', 'Chart']
                                       : ['Phase', 'Grouping', 'Model', 'Target'];
    if (!useRegExpForFilter && viewType == 'Detail') return null;
    for (var n = 0; n < names.length; n++) {
        var id = prefix + names[n].toLowerCase() + 'name';
        var value = formCellValue(id);
        if (value == '') continue;
        try {
            new RegExp(useRegExpForFilter ? value : value + '_self');
        } catch (e) {
            return { id: id, message: names[n] + ': "' + value + '" is not a valid regular expression (' +
                                      e.message + ')' };
        }
    }
    return null;
}

// Marks the cell that holds an invalid expression and says so beside the
// Refresh button, or clears both; true when the form may be applied. The
// view and the table keep what they showed.
function checkFilterCells(viewType, useRegExpForFilter) {
    var prefix = (viewType == 'Detail') ? '' : 'CT_';
    var bad = invalidFilterCell(viewType, useRegExpForFilter);
    var names = ['phase', 'grouping', 'model', 'target', 'machine', 'chart'];
    for (var n = 0; n < names.length; n++) {
        var cell = document.getElementById(prefix + names[n] + 'name');
        if (!cell) continue;
        var isBad = bad != null && bad.id == cell.id;
        cell.style.backgroundColor = isBad ? '#FFD8D8' : '';
        cell.title = isBad ? bad.message : '';
    }
    var message = document.getElementById(prefix + 'FilterMessage');
    if (message) message.innerHTML = bad ? htmlText(bad.message) : '';
    if (bad) {
        var pane = (viewType == 'Detail') ? 'FilterData' : 'CT_FilterData';
        if (!inputPane(pane).open) showInputTable(pane);
    }
    return bad == null;
}

// Refresh of the detail form: applies the filters and sorts, first row on top.
function userInputsAction() {
    if (!checkFilterCells('Detail', true)) return;
    setInputPaneOpen('FilterData', false);
    setInputPaneOpen('SortData', false);
    lastStartIndex['Detail'] = 0;
    modifyDataView(true);
    renderDetailTable();
}

// Refresh of the call tree form.
function CT_userInputsAction() {
    if (!checkFilterCells('CallTree', true)) return;
    setInputPaneOpen('CT_FilterData', false);
    modifyCTDataView(true);
    renderCTDetailTable();
}
