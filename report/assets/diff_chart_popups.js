// SPDX-License-Identifier: BSD-3-Clause
// The pointer, tooltips and statistics pop-ups of the comparison memory chart:
// a click on a column shows both runs' figures of that aligned row and outlines
// the column in every graph. Builds on diff_chart.js and chart_common.js.

function conditionalPointer(evt, divObj) {
    var X = getPageEventCoords(evt).left - marginLeft - 11;
    var limitX = document.getElementById('fakeCanvasDiffDiv').offsetWidth - 3 - (percentScrolled == 1 ? littleExtra : 0);
    var inside = X >= 0 && X <= limitX && !isRibbon(panelOf(divObj.id));
    document.body.style.cursor = inside ? 'pointer' : 'auto';
}

function showToolTip(event) {
    if (isRibbon(panels[0])) return;
    var localMarginTop = 90 + x_phaseNames.height;
    var X = event.clientX - marginLeft - 10;
    var distanceToGraph = localMarginTop - event.clientY - window.pageYOffset;
    var minDist = 1000;
    for (var i = 0; i < xticks.length; i++) {
        var calculatedXtick = X - distanceToGraph / Math.tan(Math.PI * eventLabelRotate / 180);
        if (Math.abs(xticks[i] - calculatedXtick) < minDist) {
            minDist = Math.abs(xticks[i] - calculatedXtick);
            if (bEllipsed[i]) activeMinInd = i;
        }
    }
}

function statsPopup(event, divObj) {
    var coords = getPageEventCoords(event);
    var X = coords.left - marginLeft - 11;
    var Y = coords.top;
    if (X > document.getElementById('fakeCanvasDiffDiv').offsetWidth - 3 || isRibbon(panelOf(divObj.id))) return;
    var minInd = -1;
    var minDist = 1000;
    for (var i = 0; i < xticks.length; i++) {
        if (Math.abs(xticks[i] - X) < minDist) {
            minDist = Math.abs(xticks[i] - X);
            minInd = i;
        }
    }
    var name = visiblePhaseNames[minInd];
    if (name === undefined || name == '') return;
    if (X >= window.innerWidth - marginLeft - 7 - 20 - columnWidth / 2 && percentScrolled != 1) return;
    var m = dataLen - numBlankData - phasesToRender;
    var zeroBasedIndexOfClickedPhase = Math.floor(m * percentScrolled + 1) + minInd - 1;
    if (percentScrolled == 1) zeroBasedIndexOfClickedPhase += 2 + numBlankData + 1;
    if (zeroBasedIndicesOfClickedPhase.indexOf(zeroBasedIndexOfClickedPhase) >= 0) return;
    if (availablePopupIndices.length == 0) return;

    var popupInd = availablePopupIndices.pop();
    var popupID = 'popupDiv' + popupInd;
    var div = placePopup(popupID, X + marginLeft + 11, Y, window.innerWidth - getScrollbarWidth());
    zeroBasedIndicesOfClickedPhase.push(zeroBasedIndexOfClickedPhase);
    var lhsText = plainLabel(lhsLabel);
    var rhsText = plainLabel(rhsLabel);
    var figures = '<table><tr><td class="diffPopupHeader">' + htmlText(lhsText) + '</td><td class="diffPopupHeader">' +
        htmlText(rhsText) + '</td><td class="diffPopupHeader">Abs.Dev.</td><td class="diffPopupHeader">Rel.Dev.</td></tr>';
    var names = '<table><tr><td class="popupHeader">&nbsp;</td></tr>';
    for (var b = 0; b < bandTerms.length; b++) {
        var lhs = visibleBands1[b][minInd] + (b == 0 ? freeMemZoom1 : (b == 4 ? nonProcessZoom1 : 0));
        var rhs = visibleBands2[b][minInd] + (b == 0 ? freeMemZoom2 : (b == 4 ? nonProcessZoom2 : 0));
        lhs = Math.round(lhs * 100) / 100;
        rhs = Math.round(rhs * 100) / 100;
        var absDev = Math.round((rhs - lhs) * 100) / 100;
        var relDev = Math.round(absDev / lhs * 1000) / 10;
        var engineering = b == 0 || b == 4;
        figures += '<tr style="height:28px"><td align="right">' + popupFigure(lhs, engineering) + '</td><td align="right">' +
            popupFigure(rhs, engineering) + '</td><td align="right">' + absDev + '</td><td align="right">' + relDev +
            '%</td></tr>';
        names += '<tr style="height:28px"><td class="popupHeader" style="background-color:' + colors[b] + '">' +
            bandLegends[b] + '</td></tr>';
    }
    var phaseToDisplay = name.replace(/\//g, ' / ');
    var htmlTxt = '<p style="font-size:0px;display:none">' + htmlText(name) + '</p>' +
        '<table id="popupTable" class="dataTable" style="background-color:white">' +
        popupTitleRow(popupID, 'clearDiv(' + popupInd + ',' + zeroBasedIndexOfClickedPhase + ',' + minInd + ')') +
        '<tr><td colspan="5">' + htmlText(phaseToDisplay) + '<table><tr><td style="background-color:white">Type</td></tr>' +
        '<tr><td>' + names + '</table></td><td>' + figures + '</table></td></tr></table></td></tr></table>';
    div.innerHTML = htmlTxt;
    div.setAttribute('data-row', '' + zeroBasedIndexOfClickedPhase);
    div.style.zIndex = '' + (Math.max(highestPopupZIndex(), 1000) + 1);
    for (var p = 1; p < panels.length; p++) {
        if (!isRibbon(panels[p])) setElementVisibility('outlineDiv' + minInd + panels[p].suffix, 'visible');
    }
    registeredPhaseOutlines.push(name);
    someOutlineDivIsVisible = true;
}

function clearDiv(divID, zeroBasedIndexOfClickedPhase, minInd) {
    releasePopup(divID, zeroBasedIndexOfClickedPhase);
    document.getElementById('popupDiv' + divID).removeAttribute('data-row');
    for (var p = 1; p < panels.length; p++) setElementVisibility('outlineDiv' + minInd + panels[p].suffix, 'hidden');
}
