#include "controls/editor/win32/editor_errors.h"

#include <algorithm>

#include "common/win32/dpi.h"
#include "common/win32/link_colour.h"
#include "common/win32/screen.h"
#include "controls/editor/editor_text.h"

namespace tessel::controls {

namespace {

constexpr uptr_t kErrorIndicator = 20;
constexpr uptr_t kNoteIndicator = 21;
constexpr COLORREF kErrorColour = RGB(0xD1, 0x1A, 0x1A);
constexpr int kRoomForWave = 1;     // below the line, at 96 dpi
constexpr int kHundredths = 100;    // the component's unit of a stroke's width
constexpr sptr_t kDwellTime = 500;  // milliseconds
constexpr const char* kTipFont = "Segoe UI";
constexpr sptr_t kTipPoints = 9;

void SetLook(const ScintillaCalls& editor, uptr_t indicator, int style, COLORREF colour, int stroke) {
    editor.Send(SCI_INDICSETSTYLE, indicator, style);
    editor.Send(SCI_INDICSETFORE, indicator, static_cast<sptr_t>(colour));
    editor.Send(SCI_INDICSETSTROKEWIDTH, indicator, stroke);
}

}  // namespace

// In high contrast the shape alone tells an error from a note: the colours are the user's.
void EditorErrors::ApplyLooks(const ScintillaCalls& editor, int dpi, int scale_percent) {
    const bool high_contrast = win32::IsHighContrast();
    const COLORREF text = GetSysColor(COLOR_WINDOWTEXT);
    const COLORREF note = win32::LinkColour(GetSysColor(COLOR_WINDOW), text);
    const int stroke = MulDiv(kHundredths, dpi, 96);
    SetLook(editor, kErrorIndicator, INDIC_SQUIGGLE, high_contrast ? text : kErrorColour, stroke);
    SetLook(editor, kNoteIndicator, INDIC_DOTS, high_contrast ? text : note, stroke);
    editor.Send(SCI_SETEXTRADESCENT, static_cast<uptr_t>(win32::Scale(kRoomForWave, dpi)));
    editor.Send(SCI_STYLESETFONT, STYLE_CALLTIP, kTipFont);
    editor.Send(SCI_STYLESETSIZEFRACTIONAL, STYLE_CALLTIP, kTipPoints * scale_percent);
    editor.Send(SCI_STYLESETFORE, STYLE_CALLTIP, static_cast<sptr_t>(GetSysColor(COLOR_INFOTEXT)));
    editor.Send(SCI_STYLESETBACK, STYLE_CALLTIP, static_cast<sptr_t>(GetSysColor(COLOR_INFOBK)));
    editor.Send(SCI_CALLTIPUSESTYLE, 0);
    editor.Send(SCI_SETMOUSEDWELLTIME, kDwellTime);
}

void EditorErrors::Show(const ScintillaCalls& editor, std::vector<EditorMark> marks) {
    marks_ = std::move(marks);
    const std::string_view bytes = editor.Bytes();
    for (const uptr_t indicator : {kErrorIndicator, kNoteIndicator}) {
        editor.Send(SCI_SETINDICATORCURRENT, indicator);
        editor.Send(SCI_INDICATORCLEARRANGE, 0, static_cast<sptr_t>(bytes.size()));
    }
    // Marks come in the order of the text more often than not: each is looked for from the one before.
    std::size_t units = 0;
    std::size_t offset = 0;
    for (std::size_t i = 0; i < marks_.size(); ++i) {
        const EditorMark& mark = marks_[i];
        if (mark.range.offset < units) units = offset = 0;
        offset += BytesOfUnits(bytes.substr(offset), mark.range.offset - units);
        units = mark.range.offset;
        const std::size_t length = BytesOfUnits(bytes.substr(offset), mark.range.length);
        editor.Send(SCI_SETINDICATORCURRENT, mark.is_error ? kErrorIndicator : kNoteIndicator);
        // The value leads from the character back to the mark.
        editor.Send(SCI_SETINDICATORVALUE, i + 1);
        editor.Send(SCI_INDICATORFILLRANGE, offset, static_cast<sptr_t>(length));
    }
}

bool EditorErrors::HandleNotify(const ScintillaCalls& editor, const SCNotification& notification) {
    const Sci_Position at = notification.position;
    if (notification.nmhdr.code == SCN_DWELLEND) {
        editor.Send(SCI_CALLTIPCANCEL);
        return true;
    }
    if (notification.nmhdr.code != SCN_DWELLSTART) return false;
    // A tip would close an open list.
    if (at < 0 || editor.Send(SCI_AUTOCACTIVE)) return true;
    for (const uptr_t indicator : {kErrorIndicator, kNoteIndicator}) {
        const sptr_t value = editor.Send(SCI_INDICATORVALUEAT, indicator, at);
        if (value < 1 || value > static_cast<sptr_t>(marks_.size())) continue;
        const std::string tip = ToEditorBytes(marks_[static_cast<std::size_t>(value) - 1].tip);
        editor.Send(SCI_CALLTIPSHOW, static_cast<uptr_t>(at), tip.c_str());
        break;
    }
    return true;
}

}  // namespace tessel::controls
