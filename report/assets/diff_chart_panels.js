// SPDX-License-Identifier: BSD-3-Clause
// The panels of the comparison memory chart: the arrows that fold a panel to
// its ribbon and open it to its two sizes, the ribbons' labels, and the moving
// of the panels below one that changes height. Builds on diff_chart.js.

// The four panels from the top down. Every panel below one that changes
// height moves with it; `suffix` names a graph's outline divs.
var panels = [
    { key: 'phaseNames', div: 'phaseNamesCanvasDiffDiv', canvas: 'phaseNamesCanvasDiff',
      arrows: 'upDownArrowsPhaseNamesCanvasDiff', label: null, matte: null, suffix: null },
    { key: 'absDev', div: 'absDevCanvasDiffDiv', canvas: 'absDevCanvasDiff', arrows: 'upDownArrowsAbsDevCanvasDiff',
      label: 'absDevLabelCanvasDiff', matte: 'absDevMatte', suffix: 'a' },
    { key: 'dataSet1', div: 'dataSet1CanvasDiffDiv', canvas: 'dataSet1CanvasDiff',
      arrows: 'upDownArrowsDataSet1CanvasDiff', label: 'dataSet1LabelCanvasDiff', matte: 'dataSet1Matte', suffix: 'b' },
    { key: 'dataSet2', div: 'dataSet2CanvasDiffDiv', canvas: 'dataSet2CanvasDiff',
      arrows: 'upDownArrowsDataSet2CanvasDiff', label: 'dataSet2LabelCanvasDiff', matte: 'dataSet2Matte', suffix: 'c' }];

function panelOf(idPart) {
    for (var p = 0; p < panels.length; p++) {
        if (idPart.indexOf(panels[p].canvas) >= 0 || idPart == panels[p].div) return panels[p];
        var key = panels[p].key;
        if (idPart.toLowerCase().indexOf(key.toLowerCase() + 'canvas') >= 0) return panels[p];
    }
    return null;
}
function panelIndex(panel) { return panels.indexOf(panel); }
function ribbonHeight(panel) { return window['ribbonHeight_' + panel.key]; }
function collapsedHeight(panel) { return window['collapsedHeight_' + panel.key]; }
function expandedHeight(panel) { return window['expandedHeight_' + panel.key]; }
function panelCanvas(panel) { return document.getElementById(panel.canvas); }
function panelHeight(panel) { return panelCanvas(panel).height; }
function isRibbon(panel) { return panelHeight(panel) == ribbonHeight(panel); }

function drawUpDownArrows(canvas) {
    var ctx = canvas.getContext('2d');
    ctx.fillStyle = '#A1A0A0';
    var triangles = [[[11, 4], [4, 16], [18, 16]], [[29, 16], [35, 4], [22, 4]]];
    for (var t = 0; t < triangles.length; t++) {
        ctx.beginPath();
        ctx.moveTo(triangles[t][0][0], triangles[t][0][1]);
        ctx.lineTo(triangles[t][1][0], triangles[t][1][1]);
        ctx.lineTo(triangles[t][2][0], triangles[t][2][1]);
        ctx.closePath();
        ctx.fill();
    }
}

// The arrows' handler: the left triangle folds a panel one step, the right
// one opens it one step; the panels below follow.
function expandOrCollapse(divObj, evt) {
    var panel = panelOf(divObj.id);
    var index = panelIndex(panel);
    var present = panelHeight(panel);
    var newExpandedHeight, newCollapsedHeight;
    if (index == 0) {
        newExpandedHeight = expandedHeight(panel);
        newCollapsedHeight = ribbonHeight(panel);
    } else if (present == ribbonHeight(panel)) {
        newExpandedHeight = collapsedHeight(panel);
        newCollapsedHeight = ribbonHeight(panel);
    } else if (present == collapsedHeight(panel)) {
        newExpandedHeight = expandedHeight(panel);
        newCollapsedHeight = ribbonHeight(panel);
    } else {
        newExpandedHeight = expandedHeight(panel);
        newCollapsedHeight = collapsedHeight(panel);
    }
    var relativeX = document.getElementById('widthTest').offsetWidth - evt.clientX;
    var newHeight = (relativeX >= 29) ? newCollapsedHeight : newExpandedHeight;
    if (index == 0 && present == expandedHeight(panel) && newHeight == present) return;
    for (var below = index + 1; below < panels.length; below++) shiftDivAndArrows(panels[below].div, newHeight - present);
    var comingFromRibbon = present == ribbonHeight(panel);
    panelCanvas(panel).height = newHeight;
    if (panel.matte) setStyle(panel.matte, 'height', (newHeight + 2) + 'px');
    if (newHeight == ribbonHeight(panel)) drawRibbon(panel.div);
    else if (comingFromRibbon) eraseRibbon(panel.div);
    else if (newHeight == expandedHeight(panel)) goToExpanded(panel.div);
    else goToCollapsed(panel.div);
    repositionScrollbar(false);
    updateYticks();
    for (var g = Math.max(index, 1); g < panels.length; g++) placeOutlines(panels[g]);
}

// Gives the outlines of a graph its height - 2 and its top + 2.
function placeOutlines(panel) {
    var top = (styleTop(panel.div) + 2) + 'px';
    var height = Math.max(panelHeight(panel) - 2, 0) + 'px';
    for (var o = 0; o < xticks.length; o++) {
        var outline = document.getElementById('outlineDiv' + o + panel.suffix);
        if (!outline) continue;
        outline.style.top = top;
        outline.style.height = height;
    }
}

function shiftDivAndArrows(divId, offset) {
    var panel = panelOf(divId);
    var top = styleTop(divId) + offset;
    setStyle(divId, 'top', top + 'px');
    setStyle(panel.arrows + 'Div', 'top', top + 'px');
    if (panel.label) setStyle(panel.label + 'Div', 'top', top + 'px');
    if (panel.matte) setStyle(panel.matte, 'top', top + 'px');
    if (panel == panels[1]) {
        if (topTicksH == -1) topTicksH = origAbsDevTop - (102 + parseInt(document.getElementById(panels[0].div).style.height));
        setStyle('topTicksCanvasDiffDiv', 'top', (top - topTicksH) + 'px');
    }
    placeOutlines(panel);
}

// Changes the graph label canvas with a panel's height, keeping its drawing
// for updateYticks to redo.
function growGraphLabel(change) {
    x_graphLabel.height += change;
    setStyle('graphLabelCanvasDiffDiv', 'height', (x_graphLabel.height + 2) + 'px');
}

function ribbonText(panel) {
    switch (panel.key) {
        case 'phaseNames': return 'Phase names';
        case 'absDev': return 'Absolute deviation';
        case 'dataSet1': return plainLabel(lhsLabel);
        default: return plainLabel(rhsLabel);
    }
}

function drawRibbon(div) {
    var panel = panelOf(div);
    var beforeH = parseInt(document.getElementById(div).style.height);
    var height = ribbonHeight(panel);
    setStyle(div, 'height', height + 'px');
    var canvas = panelCanvas(panel);
    if (canvas.height != height) canvas.height = height;
    if (panel.label) {
        setStyle(panel.label + 'Div', 'height', height + 'px');
        document.getElementById(panel.label).height = height;
    }
    var ctx = canvas.getContext('2d');
    ctx.font = ribbonFont;
    ctx.fillStyle = 'black';
    ctx.fillText(ribbonText(panel), 25, 25);
    if (panel.key == 'phaseNames') {
        setStyle(div, 'border', '1px solid black');
    } else {
        if (panel.key == 'absDev') setElementVisibility('topTicksCanvasDiffDiv', 'hidden');
        window['isRibbon_' + panel.key] = true;
        for (var o = 0; o < xticks.length; o++) setElementVisibility('outlineDiv' + o + panel.suffix, 'hidden');
    }
    if (firstRibbonLoaded) growGraphLabel(height - beforeH);
    firstRibbonLoaded = true;
    setStyle(div, 'backgroundColor', '#E7EBF5');
}

function eraseRibbon(div) {
    var panel = panelOf(div);
    var beforeH = parseInt(document.getElementById(div).style.height);
    var height = (panel.key == 'phaseNames') ? expandedHeight(panel) : collapsedHeight(panel);
    setStyle(div, 'height', height + 'px');
    panelCanvas(panel).height = height;
    if (panel.key == 'phaseNames') {
        setStyle(div, 'border', 'none');
    } else {
        setStyle(panel.label + 'Div', 'height', height + 'px');
        document.getElementById(panel.label).height = height;
        if (panel.key == 'absDev' && !isRibbon(panel)) setElementVisibility('topTicksCanvasDiffDiv', 'visible');
        window['isRibbon_' + panel.key] = false;
    }
    growGraphLabel(height - beforeH);
    setStyle(div, 'backgroundColor', '#FFFFFF');
    renderPanel(panel);
}

// Redraws one panel for the present scroll position.
function renderPanel(panel) {
    var m = dataLen - numBlankData - phasesToRender;
    var begin = Math.floor(m * percentScrolled + 1);
    var end = Math.floor(begin + phasesToRender - 1);
    render(panel.key == 'phaseNames' ? 'absDevCanvasDiff' : panel.canvas, begin, end);
}

function goToSize(div, height) {
    var panel = panelOf(div);
    var beforeH = parseInt(document.getElementById(div).style.height);
    setStyle(div, 'height', height + 'px');
    setStyle(panel.label + 'Div', 'height', height + 'px');
    document.getElementById(panel.label).height = height;
    setStyle(div, 'backgroundColor', '#FFFFFF');
    growGraphLabel(height - beforeH);
    placeOutlines(panel);
    renderPanel(panel);
}

function goToCollapsed(accompanyingDiv) {
    goToSize(accompanyingDiv, collapsedHeight(panelOf(accompanyingDiv)));
}

function goToExpanded(accompanyingDiv) {
    goToSize(accompanyingDiv, expandedHeight(panelOf(accompanyingDiv)));
}

function putRibbonLabelsBack() {
    for (var p = 0; p < panels.length; p++) {
        if (!isRibbon(panels[p])) continue;
        firstRibbonLoaded = false;
        drawRibbon(panels[p].div);
    }
}
