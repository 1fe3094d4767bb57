// SPDX-License-Identifier: BSD-3-Clause
// Check boxes of the detail and call tree tables and the totals of the checked
// rows. Only the rows in the window have boxes; the marks of the whole view
// live in the view's Checked array, parallel to its Index.

// The value that stands for a run that lacks the row, in comparison data.
var MISSING_RUN_VALUE = -99.99;

// Handler of a table's check boxes; index 999999 is the header's box, which
// marks or clears every row of the view.
function updateViewChecked(view, allFlag, tableId, allBoxId, chkbox, index) {
    if (index == 999999) {
        view[allFlag] = chkbox.checked;
        for (var i = 0; i < view.Index.length; i++) view.Checked[i] = chkbox.checked;
        // Only the window's rows have boxes.
        var table = document.getElementById(tableId);
        var boxes = table ? table.getElementsByTagName('input') : [];
        for (var b = 0; b < boxes.length; b++) {
            if (boxes[b].id != allBoxId) boxes[b].checked = chkbox.checked;
        }
    } else {
        if (!chkbox.checked) {
            view[allFlag] = false;
            var allBox = document.getElementById(allBoxId);
            if (allBox) allBox.checked = false;
        }
        view.Checked[index] = chkbox.checked;
    }
}

// A totals row is a list of totals, each { id, field, how, skipMissing }: the
// element that shows it, the data field, and how rows combine: 'sum', 'max'
// (from 0 up), or 'last' (the value of the last checked row). skipMissing
// leaves out rows whose value is the missing-run value.
function emptyTotals(specs) {
    var values = new Array(specs.length);
    for (var k = 0; k < specs.length; k++) values[k] = 0;
    return values;
}

function addRowToTotals(specs, values, row) {
    for (var k = 0; k < specs.length; k++) {
        var column = specs[k];
        var value = row[column.field];
        if (column.skipMissing && value == MISSING_RUN_VALUE) continue;
        if (column.how == 'sum') values[k] += value;
        else if (column.how == 'max') values[k] = Math.max(values[k], value);
        else values[k] = value;
    }
}

function showTotals(specs, values) {
    for (var k = 0; k < specs.length; k++) {
        var cell = document.getElementById(specs[k].id);
        if (cell) cell.innerHTML = createScientificNotation(values[k]);
    }
}
