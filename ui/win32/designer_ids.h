// The identifiers of the designer window's controls, fixed so that tests and assistive programs find them.
#pragma once

#include <windows.h>

namespace tessel::ui {

enum ControlId : int {
    kIdAccept = IDOK,
    kIdCancel = IDCANCEL,
    kIdSyntaxTree = 101,    // KewlButtons1
    kIdAddTable = 102,      // KewlButtons2
    kIdRunQuery = 103,      // KewlButtons3
    kIdRemoveColumn = 104,  // KewlButtons4
    kIdClearAll = 105,      // KewlButtons5
    kIdHelp = 108,          // KewlButtons8
    kIdDistinct = 110,      // ChkDistinct
    kIdTabs = 120,          // sTab
    kIdGrid = 121,          // dxG
    kIdDiagram = 122,       // dgmTables
    kIdEditor = 123,        // edtSQL
    kIdBrowser = 124,       // schemaView
    kIdReason = 125,        // lblNo
    kIdFocus = 126,         // txtFocus
    kIdProperties = 127,    // schemaProps
    kIdPageSplitter = 130,  // HSR
    kIdMainSplitter = 131,  // VSplit1
    kIdBrowserSplitter = 132,
    kIdPanel = 140,
    kIdErrorLine = 150,   // under edtSQL
    kIdReasonText = 151,  // below lblNo's text
    kIdReasonLink = 152,
    kIdFindBar = 153,  // over edtSQL
};

}  // namespace tessel::ui
