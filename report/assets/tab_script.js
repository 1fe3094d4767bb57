// SPDX-License-Identifier: BSD-3-Clause
// Tab switching: ShowTable hides every view and shows the chosen one, building
// its data view at first use. Lines between "//#if" and "//#endif" are kept only
// in reports of the named variant, so the running page tests no flags.

var screenH = 480;
if (parseInt(navigator.appVersion) > 3) {
    screenH = screen.height;
} else if (navigator.appName == "Netscape" && parseInt(navigator.appVersion) == 3 && navigator.javaEnabled()) {
    var jToolkit = java.awt.Toolkit.getDefaultToolkit();
    var jScreenSize = jToolkit.getScreenSize();
    screenH = jScreenSize.height;
}

// Replaces itself at the first call by the best implementation the browser
// allows, then runs it.
var getElementsByClassName = function (className, tag, elm) {
    if (document.getElementsByClassName) {
        getElementsByClassName = function (className, tag, elm) {
            elm = elm || document;
            var elements = elm.getElementsByClassName(className),
                nodeName = (tag) ? new RegExp("\b" + tag + "\b", "i") : null,
                returnElements = [],
                current;
            for (var i = 0, il = elements.length; i < il; i += 1) {
                current = elements[i];
                if (!nodeName || nodeName.test(current.nodeName)) {
                    returnElements.push(current);
                }
            }
            return returnElements;
        };
    } else if (document.evaluate) {
        getElementsByClassName = function (className, tag, elm) {
            tag = tag || "*";
            elm = elm || document;
            var classes = className.split(" "),
                classesToCheck = "",
                xhtmlNamespace = "http://www.w3.org/1999/xhtml",
                namespaceResolver = (document.documentElement.namespaceURI === xhtmlNamespace) ? xhtmlNamespace : null,
                returnElements = [],
                elements,
                node;
            for (var j = 0, jl = classes.length; j < jl; j += 1) {
                classesToCheck += "[contains(concat(' ', @class, ' '), ' " + classes[j] + " ')]";
            }
            try {
                elements = document.evaluate(".//" + tag + classesToCheck, elm, namespaceResolver, 0, null);
            } catch (e) {
                elements = document.evaluate(".//" + tag + classesToCheck, elm, null, 0, null);
            }
            while ((node = elements.iterateNext())) {
                returnElements.push(node);
            }
            return returnElements;
        };
    } else {
        getElementsByClassName = function (className, tag, elm) {
            tag = tag || "*";
            elm = elm || document;
            var classes = className.split(" "),
                classesToCheck = [],
                elements = (tag === "*" && elm.all) ? elm.all : elm.getElementsByTagName(tag),
                current,
                returnElements = [],
                match;
            for (var k = 0, kl = classes.length; k < kl; k += 1) {
                classesToCheck.push(new RegExp("(^|\\s)" + classes[k] + "(\\s|$)"));
            }
            for (var l = 0, ll = elements.length; l < ll; l += 1) {
                current = elements[l];
                match = false;
                for (var m = 0, ml = classesToCheck.length; m < ml; m += 1) {
                    match = classesToCheck[m].test(current.className);
                    if (!match) {
                        break;
                    }
                }
                if (match) {
                    returnElements.push(current);
                }
            }
            return returnElements;
        };
    }
    return getElementsByClassName(className, tag, elm);
};

//#if detailedmemory && detailedMemStats && aggregateOnly
// The body follows the mouse for the memory chart's pop-ups; a report of the
// aggregate view alone has no chart, and nothing to drag.
function dialogMove(event) {
}

//#endif
function SetHeaderVisibility(headerClassName, visibilityStr) {
    var headers = getElementsByClassName(headerClassName);
    if (headers == null || headers.length == 0) return;
    headers[0].style.display = visibilityStr;
}

// Sets the display of an element of the page; a view that this report does not
// carry has no element, and is skipped.
function setElementDisplay(id, displayStr) {
    var element = document.getElementById(id);
    if (element) element.style.display = displayStr;
}

function setElementVisibility(id, visibilityStr) {
    var element = document.getElementById(id);
    if (element) element.style.visibility = visibilityStr;
}
//#if detailedmemory && !aggregateOnly

// The chart's own elements, hidden and shown together.
//#if comparison
var memChartElementIds = ['graphLabelCanvasDiffDiv', 'legendCanvasDiffDiv', 'phaseNamesCanvasDiffDiv',
    'absDevCanvasDiffDiv', 'dataSet1CanvasDiffDiv', 'dataSet2CanvasDiffDiv',
    'upDownArrowsPhaseNamesCanvasDiffDiv', 'upDownArrowsAbsDevCanvasDiffDiv',
    'upDownArrowsDataSet1CanvasDiffDiv', 'upDownArrowsDataSet2CanvasDiffDiv', 'fakeCanvasDiffDiv',
    'absDevLabelCanvasDiffDiv', 'dataSet1LabelCanvasDiffDiv', 'dataSet2LabelCanvasDiffDiv',
    'topTicksCanvasDiffDiv', 'absDevMatte', 'dataSet1Matte', 'dataSet2Matte'];
//#else
var memChartElementIds = ['scrollcanvasdiv', 'lockedcanvasdiv', 'fakecanvasdiv', 'legendCanvasDiv'];
//#endif

function showSavedChartOverlays() {
    var count = (typeof savedOutlineDivIds == 'undefined') ? 0 : savedOutlineDivIds.length;
    for (var i = 0; i < count; i++) setElementVisibility(savedOutlineDivIds[i], 'visible');
    count = (typeof savedPopupDivIds == 'undefined') ? 0 : savedPopupDivIds.length;
    for (var j = 0; j < count; j++) setElementVisibility(savedPopupDivIds[j], 'visible');
}
//#endif

function ShowTable(tableType) {
    setElementDisplay('aggregateSummaryDiv', 'none');
    setElementDisplay('aggregateSummaryScrollTableDiv', 'none');
    setElementDisplay('systemInfoTableDiv', 'none');
//#if !aggregateOnly && !comparison
    setElementDisplay('callTreeSummaryDiv', 'none');
    setElementDisplay('CT_userInputs', 'none');
    setElementDisplay('callTreeSummaryScrollTableDiv', 'none');
//#endif
//#if !aggregateOnly
    setElementDisplay('phaseSummaryDiv', 'none');
    setElementDisplay('userInputs', 'none');
    setElementDisplay('phaseSummaryScrollTableDiv', 'none');
//#endif
    SetHeaderVisibility('aggregateSumHeader', 'none');
    SetHeaderVisibility('sysInfoHeader', 'none');
//#if !aggregateOnly
    SetHeaderVisibility('phaseSumHeader', 'none');
//#endif
//#if !aggregateOnly && !comparison
    SetHeaderVisibility('callTreeHeader', 'none');
//#endif
//#if detailedmemory && !aggregateOnly
    var memoryCanvasTable = document.getElementById('memoryCanvasTable');
    if (canvasSupport) {
        if (memoryCanvasTable && memoryCanvasTable.style.visibility == 'visible') {
            savedOutlineDivIds = new Array();
            savedPopupDivIds = new Array();
            var outline;
//#if comparison
            var suffixes = ['a', 'b', 'c'];
            for (var s = 0; s < suffixes.length; s++) {
                for (var i = 0; i < 100; i++) {
                    outline = document.getElementById('outlineDiv' + i + suffixes[s]);
                    if (outline && outline.style.visibility == 'visible') {
                        savedOutlineDivIds.push(outline.id);
                        outline.style.visibility = 'hidden';
                    }
                }
            }
//#else
            for (var i = 0; i < 100; i++) {
                outline = document.getElementById('outlineDiv' + i);
                if (outline && outline.style.visibility == 'visible') {
                    savedOutlineDivIds.push(outline.id);
                    outline.style.visibility = 'hidden';
                }
            }
//#endif
            for (var p = 100; p >= 0; p--) {
                var popup = document.getElementById('popupDiv' + p);
                if (popup && popup.style.zIndex >= '1000') {
                    savedPopupDivIds.push(popup.id);
                    popup.style.visibility = 'hidden';
                }
            }
        }
        for (var h = 0; h < memChartElementIds.length; h++) setElementVisibility(memChartElementIds[h], 'hidden');
    } else {
        setElementVisibility('noSupport', 'hidden');
    }
    if (memoryCanvasTable) {
        memoryCanvasTable.style.height = '0px';
        memoryCanvasTable.style.visibility = 'hidden';
    }
    SetHeaderVisibility('memoryCanvasHeader', 'none');
//#endif
    activeTab = tableType;

    switch (tableType) {
        case 'aggregateSummary':
            setElementDisplay('aggregateSummaryDiv', 'block');
            setElementDisplay('aggregateSummaryScrollTableDiv', 'block');
            if (aggDataViewCreated == false) {
                PhaseLengths = getStringLengths(Phase);
                GroupingLengths = getStringLengths(Grouping);
                ModelLengths = getStringLengths(Model);
                TargetLengths = getStringLengths(Target);
                MachineLengths = getStringLengths(Machine);
                ChartLengths = getStringLengths(Chart);
                ExpandStrLengths = getStringLengths(ExpandStr);
                createAggDataView();
                aggDataViewCreated = true;
                renderAggregateTable();
//#if detailedmemory && !aggregateOnly
                renderMemChart();
//#endif
            }
            if (resizeTabContent['Aggregate']) {
                renderAggregateTable();
                resizeTabContent['Aggregate'] = false;
            }
            SetHeaderVisibility('aggregateSumHeader', 'block');
            break;
        case 'systemInfo':
            setElementDisplay('systemInfoTableDiv', 'block');
            SetHeaderVisibility('sysInfoHeader', 'block');
            break;
//#if !aggregateOnly
        case 'phaseSummary':
            setElementDisplay('userInputs', 'block');
            setElementDisplay('phaseSummaryScrollTableDiv', 'block');
            setElementDisplay('phaseSummaryDiv', 'block');
            if (resizeTabContent['Detail']) {
                renderDetailTable();
                resizeTabContent['Detail'] = false;
            }
            updateTotals();
            SetHeaderVisibility('phaseSumHeader', 'block');
            break;
//#endif
//#if !aggregateOnly && !comparison
        case 'callTreeSummary':
            setElementDisplay('CT_userInputs', 'block');
            setElementDisplay('callTreeSummaryDiv', 'block');
            if (ctDataViewCreated == false) {
                createCTDataView();
                ctDataViewCreated = true;
                renderCTDetailTable();
            }
            if (resizeTabContent['CallTree']) {
                renderCTDetailTable();
                resizeTabContent['CallTree'] = false;
            }
            updateCTTotals();
            setElementDisplay('callTreeSummaryScrollTableDiv', 'block');
            SetHeaderVisibility('callTreeHeader', 'block');
            break;
//#endif
//#if detailedmemory && !aggregateOnly
        case 'memCanvas':
            var chartTable = document.getElementById('memoryCanvasTable');
            if (chartTable) chartTable.style.visibility = 'visible';
            if (canvasSupport) {
                showSavedChartOverlays();
//#if detailedMemStats
                if (chartTable) chartTable.style.height = '4000px';
                for (var v = 0; v < memChartElementIds.length; v++) setElementVisibility(memChartElementIds[v], 'visible');
//#if comparison
                if (x_absDev.height != ribbonHeight_absDev) setElementVisibility('topTicksCanvasDiffDiv', 'visible');
                if (originalWindowWidth == -1) originalWindowWidth = document.getElementById('widthTest').offsetWidth;
                showSavedChartOverlays();
//#endif
//#else
                if (chartTable) chartTable.style.height = '400px';
//#endif
                if (window.innerWidth === undefined) {
                    if (document.body.clientWidth < minWindowWidth) document.body.clientWidth = minWindowWidth;
                } else if (window.innerWidth < minWindowWidth) {
                    window.innerWidth = minWindowWidth;
                }
            } else {
                if (chartTable) chartTable.style.height = '300px';
                setElementVisibility('noSupport', 'visible');
            }
            SetHeaderVisibility('memoryCanvasHeader', 'block');
            break;
//#endif
    }
}
