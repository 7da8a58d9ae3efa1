// The designer window's controls: which there are, how they are created, and where they stand at every size
// and resolution. What they do is the business of DesignerWindow.
//
//   form
//     picTop      "Agregar tabla al diagrama", "Ejecutar consulta …", "Ver árbol de sintaxis"
//     VSplit1     schemaView above schemaProps | strip (sTab, and over it the pages HSR and picSQL)
//       HSR       dgmTables above picDsn (picCtrs, dxG, lblNo)
//       picSQL    what finds and replaces, edtSQL, the line that tells its errors
//     picBottom   picBtns: "&Aceptar", "&Cancelar", "Ay&uda"
#pragma once

#include <windows.h>

#include "common/win32/handles.h"
#include "common/win32/window.h"
#include "controls/browser/win32/schema_browser.h"
#include "controls/browser/win32/schema_props.h"
#include "controls/diagram/win32/diagram_view.h"
#include "controls/editor/win32/sql_editor.h"
#include "controls/grid/win32/design_grid_view.h"
#include "controls/splitter/win32/splitter_bar.h"
#include "ui/win32/designer_ids.h"
#include "ui/win32/editor_error_line.h"
#include "ui/win32/find_replace_bar.h"
#include "ui/win32/panel.h"
#include "ui/win32/reason_label.h"
#include "ui/window_place.h"

namespace tessel::ui {

class DesignerForm : public win32::Window {
protected:
    /// Who is told what the controls report from the beginning; the others are bound to their model later.
    struct Listeners {
        controls::BrowserEvents* browser = nullptr;
        controls::SqlEditorEvents* editor = nullptr;
        controls::SplitterEvents* splitters = nullptr;
        std::function<void()> reason_link;  ///< the link of lblNo was pressed
    };

    /// Creates every control, of no size yet. False when Windows refuses one.
    bool CreateControls(const Listeners& listeners);
    void ApplyFonts();
    /// Takes the scale of the monitor the window is on, for itself and every control; lays nothing out.
    void ApplyScale();
    /// In the middle of the monitor that the window of the host is on; of the primary one without a window.
    void PlaceOnMonitorOf(HWND host);
    /// Back inside the work area, after the screens changed.
    void KeepReachable();
    void MoveTo(const Area& place);
    /// The smallest outer size: what a usable window needs, or the whole work area of a small screen.
    SIZE SmallestSize() const;
    void LayoutForm();
    void LayoutStrip();
    void DivideDesignPage(int height);
    void LayoutDesignPane();
    int Px(int dips) const;

    Panel buttons_;  // picBtns
    Panel strip_;
    Panel design_pane_;                    // picDsn
    Panel grid_buttons_;                   // picCtrs
    Panel sql_page_;                       // picSQL
    controls::SplitterBar main_splitter_;  // VSplit1
    controls::SplitterBar page_splitter_;  // HSR
    controls::SplitterBar browser_splitter_;
    controls::SchemaBrowser browser_;  // schemaView
    controls::SchemaProps props_;      // schemaProps
    controls::DiagramView diagram_;    // dgmTables
    controls::DesignGridView grid_;    // dxG
    controls::SqlEditor editor_;       // edtSQL
    FindReplaceBar find_bar_;
    EditorErrorLine error_line_;
    ReasonLabel reason_;  // lblNo
    HWND tabs_ = nullptr;
    HWND tips_ = nullptr;
    HWND focus_ = nullptr;
    HWND accept_ = nullptr;
    HWND cancel_ = nullptr;
    HWND help_ = nullptr;
    HWND syntax_tree_ = nullptr;
    HWND add_table_ = nullptr;
    HWND run_query_ = nullptr;
    HWND remove_column_ = nullptr;
    HWND clear_all_ = nullptr;
    HWND distinct_ = nullptr;

    win32::UniqueFont font_;
    int dpi_ = 96;
    bool is_page_divided_ = false;

private:
    bool CreateButton(HWND& button, HWND parent, const wchar_t* caption, int id, DWORD style,
                      const wchar_t* tip);
    void AddTip(HWND control, const wchar_t* tip);
    void ApplyOwnFonts();
    /// The height that they need.
    int LayoutTopButtons(int inner_width);
    void LayoutBottomButtons(const SIZE& inner);
    void LayoutGridButtons();
    void LayoutSqlPage();
    void CutPageOutOfTabs();
    int ButtonWidth(HWND button) const;
    int FromTwips(int twips) const;
    int ToTwips(int pixels) const;
};

}  // namespace tessel::ui
