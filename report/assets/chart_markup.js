// SPDX-License-Identifier: BSD-3-Clause
// The memory chart's page elements, written where the script runs. A canvas
// written first tells whether the browser draws on canvases; the chart's
// elements stay hidden until the MemChart tab shows them.
var canvasSupport = false;
document.write('<canvas id="canvasSupportTest"></canvas>');
var supportTestNode = document.getElementById('canvasSupportTest');
var str = '';
if (supportTestNode && supportTestNode.toString() == '[object HTMLCanvasElement]') {
    canvasSupport = true;
//#if detailedMemStats
    var hidden = 'visibility:hidden;';
//#if comparison
    var graphHandlers = ' onclick="statsPopup(event,this)" onmousemove="conditionalPointer(event,this)"' +
        ' onmouseout="document.body.style.cursor=\'auto\'"';
    var arrowHandlers = ' onmouseover="document.body.style.cursor=\'pointer\'"' +
        ' onmouseout="document.body.style.cursor=\'auto\'" onclick="expandOrCollapse(this,event)"';
    // [div and canvas id, extra style of the div, extra attributes of the div]
    var chartElements = [
        ['graphLabelCanvasDiff', '', ''],
        ['legendCanvasDiff', '', ''],
        ['phaseNamesCanvasDiff', '', ' onmousemove="showToolTip(event)"'],
        ['absDevCanvasDiff', 'z-index:10;', graphHandlers],
        ['dataSet1CanvasDiff', 'z-index:10;', graphHandlers],
        ['dataSet2CanvasDiff', 'z-index:10;', graphHandlers],
        ['upDownArrowsPhaseNamesCanvasDiff', 'z-index:100;', arrowHandlers],
        ['upDownArrowsAbsDevCanvasDiff', 'z-index:100;', arrowHandlers],
        ['upDownArrowsDataSet1CanvasDiff', 'z-index:100;', arrowHandlers],
        ['upDownArrowsDataSet2CanvasDiff', 'z-index:100;', arrowHandlers],
        ['absDevLabelCanvasDiff', '', ''],
        ['dataSet1LabelCanvasDiff', '', ''],
        ['dataSet2LabelCanvasDiff', '', ''],
        ['topTicksCanvasDiff', '', ''],
        ['fakeCanvasDiff', '', ' onscroll="swapCanvas(this)"']];
    str = '<table id="memoryCanvasTable" class="dataTable blankTable" style="height:0px;visibility:hidden;"><tr><td>';
    for (var e = 0; e < chartElements.length; e++) {
        var element = chartElements[e];
        str += '<div id="' + element[0] + 'Div" style="' + hidden + element[1] + '"' + element[2] + '>' +
            '<canvas id="' + element[0] + '" height="400"' + (element[0] == 'fakeCanvasDiff' ? ' style="height:1px"' : '') +
            '></canvas></div>';
    }
    var mattes = ['absDevMatte', 'dataSet1Matte', 'dataSet2Matte'];
    for (var mt = 0; mt < mattes.length; mt++) {
        str += '<div id="' + mattes[mt] + '" style="' + hidden +
            'position:absolute;background-color:white;z-index:99;"></div>';
    }
    str += '<div id="tableCanvasDiv"></div>' +
        '<div id="widthTest" style="position:absolute;top:-1px;left:0px;width:100%;height:1px;"></div>';
//#else
    str = '<table id="memoryCanvasTable" class="dataTable blankTable" style="height:0px;visibility:hidden;"><tr><td>' +
        '<div id="lockedcanvasdiv" style="' + hidden + '"><canvas id="lockedcanvas" width="110" height="400"></canvas></div>' +
        '<div id="legendCanvasDiv" style="' + hidden + '"><canvas id="legendCanvas" width="700" height="400"></canvas></div>' +
        '<div id="scrollcanvasdiv" style="' + hidden + '" onclick="statsPopup(event)"' +
        ' onmousemove="divMouseMove(event);showToolTip(event);" onmouseout="divMouseOut(event);">' +
        '<canvas id="scrollcanvas" height="400"></canvas></div>' +
        '<div id="fakecanvasdiv" style="' + hidden + 'height:20px;" onscroll="swapCanvas(this)">' +
        '<canvas id="fakecanvas" height="400"></canvas></div>' +
        '<div id="tableCanvasDiv"></div>';
//#endif
    str += '</td></tr></table>';
//#else
    supportTestNode.parentNode.removeChild(supportTestNode);
    str = '<table id="memoryCanvasTable" style="height:0px;border:1px black;visibility:hidden;"><tr><td>' +
//#if comparison
        '<p class="style1">Detailed Memory Statistic collection was not enabled at log time or is not supported for the platform.</p>' +
//#else
        '<p class="style1">Detailed Memory Statistic collection was not enabled at log time or is not available in this platform.</p>' +
//#endif
        '<p class="style2">GaugeKit.Tracer.enableDetailedMemStats(true)</em></b> to collect Detailed Memory Statistics.</p>' +
        '</td></tr></table><div id="noSupport" style="visibility:hidden;"></div>';
//#endif
} else {
    str = '<table id="memoryCanvasTable" style="height:300px;" border="1" cellspacing="0"><tr><td>' +
        '<div id="noSupport" style="visibility:hidden;">' +
        '<p class="style1">Your browser does not support the HTML5 Canvas.</p>' +
        '<p class="style2">Browsers that support the HTML5 canvas to view the Memory Statistics chart<br>include Firefox, Safari and Chrome.</p>' +
        '</div></td></tr></table>';
}
document.write(str);
