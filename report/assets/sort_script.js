// SPDX-License-Identifier: BSD-3-Clause
// Orders view indices of procData by the sort columns, most significant first.
// Keys are strings: a name in lower case, or a number mapped so that larger
// values come first under string comparison. The pivot is taken out of arr, so
// the caller keeps the returned array.
function quicksort(arr, sortCols) {
    function createKeyForData(dataViewIndex, sortCols) {
        var key = '';
        for (var c = 0; c < sortCols.length; c++) {
            var col = sortCols[c];
            if (col == 'Phase') {
                key += Phase[procData[dataViewIndex].Phase].toLowerCase();
                continue;
            }
            var value = (col == 'ExecOrder') ? Number(dataViewIndex) : Number(procData[dataViewIndex][col]);
            var text = '' + parseInt(100000000 - value * 100);
            while (text.length < 10) text = '0' + text;
            key += text;
        }
        return key;
    }

    // Holds when the element at lo goes before the pivot: a smaller key, or an
    // equal key at a lower index.
    function compare(pivotVal, lo, hi) {
        var key = createKeyForData(arr[lo], sortCols);
        var pivotKey = createKeyForData(pivotVal, sortCols);
        return key < pivotKey || (key == pivotKey && lo < hi);
    }

    if (arr.length <= 1) return arr;
    var pivotIndex = Math.floor(arr.length / 2);
    var pivotVal = arr.splice(pivotIndex, 1)[0];
    var less = new Array();
    var greater = new Array();
    for (var x = 0; x < arr.length; x++) {
        if (compare(pivotVal, x, pivotIndex)) {
            less.push(arr[x]);
        } else {
            greater.push(arr[x]);
        }
    }
    return quicksort(less, sortCols).concat([pivotVal], quicksort(greater, sortCols));
}
