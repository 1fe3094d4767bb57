// SPDX-License-Identifier: BSD-3-Clause
// The call tree table of a single-run report: one row per node of the merged
// call tree, folded and unfolded by the reader. The view, CTDataView, lists the
// visible nodes in display order; folding splices a subtree's rows out of it
// and unfolding splices them back. It renders through the virtual table engine
// of the common script. Lines between "//#if" and "//#endif" are kept only in
// reports of the named metric.

// The nodes that matched the filters in force.
var expandTreeToIndex = new Array();

// The metric columns after the execution count. Each holds: cell, the id stem
// of its cells; field and how, the data field and how a node's rows combine
// into the shown value; share, its width as a part of the metric width; head,
// its label; total, the totals cell beneath it, or null.
function callTreeColumns() {
    var columns = new Array();
    function add(cell, field, how, share, head, totalId, totalHow) {
        columns.push({ cell: cell, field: field, how: how, share: share, head: head,
                       total: totalId ? { id: totalId, field: field, how: totalHow, skipMissing: false } : null });
    }
//#if time
    add('ct_selfTD', 'WCSelf', 'sum', 0.45, 'Self', 'CT_totalSelfTime', 'sum');
    add('ct_sPlusCTD', 'WCElapsed', 'sum', 0.45, 'Self + Child', null, null);
//#endif
//#if basicmemory
    add('ct_deltaTD', 'UsageDelta', 'max', 0.25, 'Process Usage Delta', 'CT_totalDelta', 'sum');
    add('ct_usageTD', 'Usage', 'max', 0.25, 'Process Usage', 'CT_totalUsage', 'max');
    add('ct_peakDeltaTD', 'UsagePeakDelta', 'max', 0.25, 'Peak Usage Delta', 'CT_totalPeakDelta', 'sum');
    add('ct_peakTD', 'UsagePeak', 'max', 0.25, 'Peak Usage', 'CT_totalPeak', 'max');
//#endif
//#if detailedmemory
    add('ct_comTD', 'Committed', 'max', 0.2, 'Com', 'CT_totalCom', 'max');
    add('ct_resTD', 'Reserved', 'max', 0.2, 'Res', 'CT_totalRes', 'max');
    add('ct_dllTD', 'Dlls', 'max', 0.2, 'Dll', 'CT_totalDll', 'max');
    add('ct_osTD', 'NonProcess', 'max', 0.2, 'OS', 'CT_totalOS', 'max');
    add('ct_freeTD', 'Free', 'max', 0.2, 'Free', 'CT_totalFree', 'max');
//#endif
    return columns;
}

var callTreeTableColumns = callTreeColumns();

// The shown values of a node: its rows combined per column.
var callTreeValueSpecs = new Array();
// The footer's totals over the checked nodes' rows.
var callTreeTotalSpecs = new Array();
for (var ctc = 0; ctc < callTreeTableColumns.length; ctc++) {
    callTreeValueSpecs.push({ field: callTreeTableColumns[ctc].field, how: callTreeTableColumns[ctc].how });
    if (callTreeTableColumns[ctc].total) callTreeTotalSpecs.push(callTreeTableColumns[ctc].total);
}

// Refills the totals row from the checked nodes; a node counts its own rows,
// not its children's.
function updateCTTotals() {
    var values = emptyTotals(callTreeTotalSpecs);
    var chkCount = 0;
    var execCount = 0;
    for (var i = 0; i < CTDataView.Index.length; i++) {
        if (CTDataView.Checked[i] != 1) continue;
        var ids = nodeArray[CTDataView.Index[i]].IDs;
        for (var k = 0; k < ids.length; k++) {
            addRowToTotals(callTreeTotalSpecs, values, procData[ids[k]]);
            execCount++;
        }
        chkCount++;
    }
    showTotals(callTreeTotalSpecs, values);
    var checkedCell = document.getElementById('CT_totalChecked');
    if (checkedCell) checkedCell.innerHTML = chkCount.toFixed(0);
    var countCell = document.getElementById('CT_totalExecCount');
    if (countCell) countCell.innerHTML = execCount.toFixed(0);
}

// Handler of the check boxes; index 999999 is the header's box.
function updateCTDataViewChecked(chkbox, index) {
    updateViewChecked(CTDataView, 'AllCTChecked', 'callTreeSummaryTable', 'AllCTChecked', chkbox, index);
    updateCTTotals();
}

// Makes the row of a node at view position idx, or rewrites window row rowNum.
function createCallTreeRow(idx, node, checked, cellWidths, rowNum, onScrollCall) {
    var first = procData[node.IDs[0]];
    var level = first.HTMLPhaseNum.split('.').length - 1;
    var phaseStr = Phase[first.Phase];
    var modelStr = (first.Model != -1) ? Model[first.Model] : null;
    var targetStr = (first.Target != -1) ? Target[first.Target] : null;
    var chkStr = checked ? ' checked="checked"' : '';
    var highlightPhase = checked ? 'border:1px solid black;' : '';
    var cursorCSS = 'SpacerNoCursor';
    var expandStrIndex = 0;
    if (node.children.length > 0) {
        cursorCSS = 'SpacerCursor';
        expandStrIndex = node.children[0].show ? 2 : 1;
    }
    var evenStr = (level % 2 == 0) ? 'dataCellEven' : 'dataCellOdd';
    var leftPaddingVal = 10 + 25 * level;
    var phaseStrToShow = modifyStrToShow('Phase', phaseStr,
                                         cellWidths['Phase'] - leftPaddingVal - ExpandStrLengths[expandStrIndex]);
    var modelMarkup = (modelStr == null) ? '&nbsp;'
        : htmlText(createStrToShow(modifyStrToShow('Model', modelStr, 0.5 * cellWidths['Cogwheel']), modelStr));
    var targetMarkup = (targetStr == null) ? '&nbsp;' : htmlText(targetStr);
    var inputStr = '<input id="ct_checkBox' + idx + '" style="width:50px;" type="checkbox"' + chkStr +
                   ' onclick="updateCTDataViewChecked(this, ' + idx + ')"/>';
    var phaseNameTableStr = '<table><tr><td class="PlusMinusSpacer ' + cursorCSS + '" onclick="toggleCallTreeChildren(' +
                            idx + ',' + node.index + ',' + rowNum + ')">' + ExpandStr[expandStrIndex] + '</td>' +
                            '<td style="cursor:pointer;' + highlightPhase + '"><a href="javascript:openDetailTab(\'' +
                            node.index + '\')">' + htmlText(createStrToShow(phaseStrToShow, phaseStr)) +
                            '</a></td></tr></table>';
    var values = emptyTotals(callTreeValueSpecs);
    for (var k = 0; k < node.IDs.length; k++) addRowToTotals(callTreeValueSpecs, values, procData[node.IDs[k]]);

    var cellNum = rowNum + 1;
    var dataClass = 'dataCell phaseSummaryCell ' + evenStr;
    var nameClass = 'phaseNameCell phaseSummaryCell ' + evenStr;
    var phaseClass = 'phaseNameCell phaseSummaryCell phaseNameCell' + level;
    if (onScrollCall) {
        var rewrite = function (id, className, content) {
            var cell = document.getElementById(id + cellNum);
            if (!cell) return;
            cell.className = className;
            cell.innerHTML = content;
        };
        rewrite('ct_checkBoxTD', 'checkboxCell phaseSummaryCell ' + evenStr, inputStr);
        rewrite('ct_phaseNameTD', phaseClass + ' ' + evenStr, phaseNameTableStr);
        rewrite('ct_countTD', dataClass, node.IDs.length);
        for (var c = 0; c < callTreeTableColumns.length; c++) {
            rewrite(callTreeTableColumns[c].cell, dataClass, createScientificNotation(values[c]));
        }
        rewrite('ct_modelTD', nameClass, modelMarkup);
//#if time
        rewrite('ct_targetTD', 'phaseNameCell phaseSummaryCell lastColumnCell ' + evenStr, targetMarkup);
//#else
        rewrite('ct_targetTD', nameClass, targetMarkup);
//#endif
        return '';
    }
    var cellMarkup = function (id, className, content) {
        return '<td id="' + id + cellNum + '" class="' + className + '">' + content + '</td>';
    };
//#if time
    var str = '<tr id="CTR_' + rowNum + '">';
//#else
    var str = '<tr id="CTR_' + rowNum + '" style="display:table-row">';
//#endif
    str += cellMarkup('ct_checkBoxTD', 'checkboxCell phaseSummaryCell ' + evenStr, inputStr);
    str += cellMarkup('ct_phaseNameTD', phaseClass, phaseNameTableStr);
    str += cellMarkup('ct_countTD', dataClass, node.IDs.length);
    for (var m = 0; m < callTreeTableColumns.length; m++) {
        str += cellMarkup(callTreeTableColumns[m].cell, dataClass, createScientificNotation(values[m]));
    }
    str += cellMarkup('ct_modelTD', nameClass, modelMarkup);
    str += cellMarkup('ct_targetTD', nameClass + ' lastColumnCell', targetMarkup);
    return str + '</tr>';
}

// The expander cell of window row `index`.
function getCallTreeExpanderCellByID(index) {
    var phaseCell = document.getElementById('ct_phaseNameTD' + (index + 1));
    return phaseCell ? phaseCell.getElementsByTagName('td')[0] : null;
}

// The visible nodes of a subtree in display order: each child, then, where its
// first child is shown, the same listing of its own children.
function getIDArray(children) {
    var result = new Array();
    result['Index'] = new Array();
    result['Checked'] = new Array();
    appendVisibleNodes(children, result);
    return result;
}

function appendVisibleNodes(children, result) {
    for (var i = 0; i < children.length; i++) {
        result.Index.push(children[i].index);
        result.Checked.push(false);
        var grandChildren = children[i].children;
        if (grandChildren.length > 0 && grandChildren[0].show) appendVisibleNodes(grandChildren, result);
    }
}

// Marks a subtree hidden and, with clearCTDataView, takes its rows out of the
// view.
function hideCallTreeChildren(children, clearCTDataView) {
    var childIDs = getIDArray(children);
    for (var i = 0; i < childIDs.Index.length; i++) nodeArray[childIDs.Index[i]].show = false;
    if (!clearCTDataView || childIDs.Index.length == 0) return;
    var position = CTDataView.Index.indexOf(childIDs.Index[0]);
    if (position < 0) return;
    CTDataView.Index.splice(position, childIDs.Index.length);
    CTDataView.Checked.splice(position, childIDs.Index.length);
}

// Strict search of an array from its end.
function contains(a, eltVal) {
    for (var i = a.length - 1; i >= 0; i--) {
        if (a[i] === eltVal) return true;
    }
    return false;
}

// Whether a node matched the filters: a lookup in a set that follows
// expandTreeToIndex, so that a tree of many matches isn't searched once per row.
var expandTreeLookup = { array: null, length: -1, set: null };

function inExpandTree(nodeIndex) {
    var lookup = expandTreeLookup;
    if (lookup.array !== expandTreeToIndex || lookup.length != expandTreeToIndex.length) {
        var set = new Object();
        for (var i = 0; i < expandTreeToIndex.length; i++) set[expandTreeToIndex[i]] = true;
        expandTreeLookup = lookup = { array: expandTreeToIndex, length: expandTreeToIndex.length, set: set };
    }
    return lookup.set[nodeIndex] === true;
}

// Puts nodes and their marks into the view at a position, as one splice.
function insertIntoCTDataView(position, indices, checks) {
    if (indices.length == 0) return;
    if (position >= CTDataView.Index.length) {
        for (var i = 0; i < indices.length; i++) {
            CTDataView.Index.push(indices[i]);
            CTDataView.Checked.push(checks[i]);
        }
        return;
    }
    CTDataView.Index = CTDataView.Index.slice(0, position).concat(indices, CTDataView.Index.slice(position));
    CTDataView.Checked = CTDataView.Checked.slice(0, position).concat(checks, CTDataView.Checked.slice(position));
}

// Splices a subtree's visible nodes into the view after position idx; with
// checkItem the nodes that matched the filters come in checked. The listing is
// taken before the nodes are marked shown, so a child's subtree comes along
// exactly where its first child was open.
function showCallTreeChildren(idx, children, checkItem) {
    var childIDs = getIDArray(children);
    for (var i = 0; i < childIDs.Index.length; i++) {
        if (checkItem && inExpandTree(childIDs.Index[i])) childIDs.Checked[i] = true;
        nodeArray[childIDs.Index[i]].show = true;
    }
    insertIntoCTDataView(idx + 1, childIDs.Index, childIDs.Checked);
}

// Handler of the expander: folds an open row, unfolds a closed one.
function toggleCallTreeChildren(idx, nodeIndex, rowNum) {
    var node = nodeArray[nodeIndex];
    var elem = getCallTreeExpanderCellByID(rowNum);
    var text = elem ? elem.innerHTML : '';
    if (text.indexOf('[+]') < 0) {
        if (elem) elem.innerHTML = text.replace('[-', '[+');
        hideCallTreeChildren(node.children, true);
    } else {
        elem.innerHTML = text.replace('[+', '[-');
        showCallTreeChildren(idx, node.children, false);
    }
    renderCTDetailTable();
    updateCTTotals();
}

// Loops createCallTreeRow over the view from begin up to end.
function createCallTreeTableDataRows(begin, end, cellWidths, onScrollCall) {
    var parts = new Array();
    numRows['CallTree'] = 0;
    for (var i = begin; i < end; i++) {
        parts.push(createCallTreeRow(i, nodeArray[CTDataView.Index[i]], CTDataView.Checked[i], cellWidths,
                                     numRows['CallTree'], onScrollCall));
        numRows['CallTree']++;
    }
    return parts.join('');
}

function callTreeHeadCell(attributes, width, content) {
    return '<th ' + attributes + ' style="width:' + width + 'px;">' + content + '</th>';
}

// The cell widths of the last full build, which a rewrite in place reuses
// rather than have the browser lay out the page to measure the div again.
var callTreeCellWidths = null;

// Draws the table, or rewrites its rows in place.
function generateCallTreeTable(begin, end, onScrollCall) {
    if (onScrollCall && callTreeCellWidths) {
        createCallTreeTableDataRows(begin, end, callTreeCellWidths, onScrollCall);
        return;
    }
    var tableDiv = document.getElementById('callTreeSummaryTableDiv');
    var tableWidth = 0.99 * tableDiv.clientWidth;
    var cellWidths = new Array();
//#if time
    cellWidths['Phase'] = 0.350 * tableWidth;
    cellWidths['Cogwheel'] = 0.220 * tableWidth;
    var metricWidth = cellWidths['WCTime'] = 0.220 * tableWidth;
    var selectWidth = 0.05 * tableWidth;
    var metricHead = 'Wallclock Time (Secs)';
//#endif
//#if basicmemory
    cellWidths['Phase'] = 0.250 * tableWidth;
    cellWidths['Cogwheel'] = 0.250 * tableWidth;
    var metricWidth = cellWidths['BasicMem'] = 0.300 * tableWidth;
    var selectWidth = 0.025 * tableWidth;
    var metricHead = 'Memory (MB)';
//#endif
//#if detailedmemory
    cellWidths['Phase'] = 0.250 * tableWidth;
    cellWidths['Cogwheel'] = 0.200 * tableWidth;
    var metricWidth = cellWidths['DetailMem'] = 0.350 * tableWidth;
    var selectWidth = 0.025 * tableWidth;
    var metricHead = 'Memory (MB)';
//#endif
//#if !time && !basicmemory && !detailedmemory
    cellWidths['Phase'] = 0.350 * tableWidth;
    cellWidths['Cogwheel'] = 0.220 * tableWidth;
    var metricWidth = 0;
    var selectWidth = 0.05 * tableWidth;
    var metricHead = '';
//#endif
    cellWidths['Model'] = 0.7 * cellWidths['Cogwheel'];
    cellWidths['Target'] = 0.3 * cellWidths['Cogwheel'];
    if (onScrollCall) {
        createCallTreeTableDataRows(begin, end, cellWidths, onScrollCall);
        return;
    }
    callTreeCellWidths = cellWidths;
    var chkStr = (CTDataView.AllCTChecked == 1) ? ' checked="checked"' : '';
    var tableStr = '<table class="dataTable" id="callTreeSummaryTable" cellspacing="0" cellpadding="0" style="width:' +
                   tableWidth + 'px;table-layout:fixed;">';
    if (TableHdrStr['CallTree'] == '') {
        var head = '<tr id="callTreeSummaryTableFirstRow">' +
                   callTreeHeadCell('rowspan="2"', selectWidth, 'Select<br><input id="AllCTChecked" type="checkbox"' +
                                    chkStr + ' onclick="updateCTDataViewChecked(this, 999999)"/>') +
                   callTreeHeadCell('rowspan="2"', cellWidths['Phase'], 'Phase') +
                   callTreeHeadCell('rowspan="2"', 0.075 * tableWidth, 'ExecCount') +
                   callTreeHeadCell('colspan="' + Math.max(callTreeTableColumns.length, 1) + '"', metricWidth, metricHead) +
                   callTreeHeadCell('colspan="2"', cellWidths['Cogwheel'], 'Cogwheel') + '</tr>';
        head += '<tr id="callTreeSummaryTableLastHeaderRow">';
        for (var c = 0; c < callTreeTableColumns.length; c++) {
            head += callTreeHeadCell('', callTreeTableColumns[c].share * metricWidth, callTreeTableColumns[c].head);
        }
        head += callTreeHeadCell('', cellWidths['Model'], 'Model') + callTreeHeadCell('', cellWidths['Target'], 'Target');
        TableHdrStr['CallTree'] = head + '</tr>';
    }
    if (TableFtrStr['CallTree'] == '') {
        var foot = '<tr id="callTreeSummaryTableAggrRow">' +
                   '<td class="dataCell checkboxCell totalsCell"><div id="CT_totalChecked">0</div></td>' +
                   '<td id="CT_aggregateTD" align="left" class="dataCell totalsCell"></td>' +
                   '<td class="dataCell totalsCell"><div id="CT_totalExecCount">0.00</div></td>';
        for (var t = 0; t < callTreeTableColumns.length; t++) {
            var total = callTreeTableColumns[t].total;
            foot += total ? '<td class="dataCell totalsCell"><div id="' + total.id + '">0.00</div></td>'
                          : '<td class="dataCell blankTotalsCell"></td>';
        }
        foot += '<td class="dataCell blankTotalsCell"></td><td class="dataCell lastColumnCell blankTotalsCell"></td>';
        TableFtrStr['CallTree'] = foot + '</tr></table>';
    }
    var str = createCallTreeTableDataRows(begin, end, cellWidths, onScrollCall);
    tableDiv.innerHTML = tableStr + TableHdrStr['CallTree'] + str + TableFtrStr['CallTree'];
    document.getElementById('CT_aggregateTD').innerHTML = 'Aggregate (N = ' + CTDataView.Index.length + ')';
    document.getElementById('CT_UserInputsTableId').style.width = tableWidth + 'px';
}

// The first view: the top level and one level beneath it.
function createCTDataView() {
    CTDataView.Index = new Array();
    CTDataView.Checked = new Array();
    CTDataView.AllCTChecked = false;
    for (var r = 0; r < callTreeArray.length; r++) {
        CTDataView.Index.push(callTreeArray[r].index);
        CTDataView.Checked.push(false);
        showCallTreeChildren(CTDataView.Index.length - 1, callTreeArray[r].children, false);
    }
    lastStartIndex['CallTree'] = 0;
}

// Applies the filter form. With a match, every retained subtree opens to its
// full depth, every match is checked, and the table scrolls to three rows
// above the match with the most self time.
function modifyCTDataView(useRegExpForFilter) {
    var Params = parseInputs('CallTree');
    var shown = '';
    for (var field in Params.Filter) {
        var cell = document.getElementById('CT_' + field.toLowerCase() + 'name');
        if (cell && cell.value != '') shown += htmlText(field + '::' + cell.value);
    }
    document.getElementById('CT_FilterDataDisp').innerHTML = shown;
    filterCTDataView(Params.Filter, useRegExpForFilter);
    var nodeToExpandTo = 0;
    if (expandTreeToIndex.length > 0) nodeToExpandTo = expandFilteredView();
    lastStartIndex['CallTree'] = Math.max(0, nodeToExpandTo - 3);
}

// Walks the view from its start; each node's subtree listing is put right
// after it, and the walk goes on through the rows it put there. A node that
// matched is checked. Returns the position of the match with the most self
// time. The view is built in one pass (a stack of the rows still to walk)
// rather than by a splice per node.
function expandFilteredView() {
    var maxSelf = -99999;
    var nodeToExpandTo = 0;
    var pendingIndex = CTDataView.Index.slice(0).reverse();
    var pendingChecked = CTDataView.Checked.slice(0).reverse();
    var index = new Array();
    var checked = new Array();
    while (pendingIndex.length > 0) {
        var nodeIndex = pendingIndex.pop();
        var isChecked = pendingChecked.pop();
        var node = nodeArray[nodeIndex];
        var i = index.length;
        if (inExpandTree(nodeIndex)) {
            isChecked = true;
            var self = 0;
            for (var k = 0; k < node.IDs.length; k++) self += procData[node.IDs[k]].WCSelf;
            if (self > maxSelf) {
                maxSelf = self;
                nodeToExpandTo = i;
            }
        }
        index.push(nodeIndex);
        checked.push(isChecked);
        var childIDs = getIDArray(node.children);
        for (var c = 0; c < childIDs.Index.length; c++) nodeArray[childIDs.Index[c]].show = true;
        for (var p = childIDs.Index.length - 1; p >= 0; p--) {
            pendingIndex.push(childIDs.Index[p]);
            pendingChecked.push(inExpandTree(childIDs.Index[p]));
        }
    }
    CTDataView.Index = index;
    CTDataView.Checked = checked;
    return nodeToExpandTo;
}

// The aggregate table's link: the tree opened down to the phase, which is
// found and checked.
function openCallTreeTab(phaseName) {
    resizeTabContent['CallTree'] = false;
    document.getElementById('CT_phasename').value = phaseName;
    ShowTable('callTreeSummary');
    document.getElementById('callTreeSummaryTableDiv').style.display = 'block';
    if (!checkFilterCells('CallTree', false)) return;
    modifyCTDataView(false);
    renderCTDetailTable();
    updateCTTotals();
    dataRowHieght = 40;
    var dataRowHeight = 40;
    var firstCell = document.getElementById('ct_checkBoxTD1');
    if (firstCell) dataRowHeight = firstCell.clientHeight || 40;
    document.getElementById('callTreeSummaryScrollTableDiv').scrollTop = lastStartIndex['CallTree'] * dataRowHeight;
}

// Draws the table from lastStartIndex['CallTree']: a first build gives the
// rows a height to measure (a table that already has rows has one), then the
// table is fitted to the window.
function renderCTDetailTable() {
    document.getElementById('callTreeSummaryTableDiv').style.display = 'block';
    numPhasesToRenderInTable['CallTree'] = ABSMAXNUMPHASES;
    maxNumPhases = Math.min(ABSMAXNUMPHASES, CTDataView.Index.length);
    var end = Math.min(Math.floor(lastStartIndex['CallTree'] + maxNumPhases), CTDataView.Index.length);
    if (!document.getElementById('ct_checkBoxTD1')) generateCallTreeTable(end - maxNumPhases, end, false);
    generateFakeDivContents('CallTree');
    tableResizeAction('CallTree');
}
