// The diagram's own commands, which change what is seen and not the design: fitting, arranging, copying a
// picture; the menu of the empty plane and the button in the corner.
#include "common/win32/clipboard.h"
#include "common/win32/dpi.h"
#include "common/win32/gdi.h"
#include "controls/diagram/diagram_texts.h"
#include "controls/diagram/win32/diagram_picture.h"
#include "controls/diagram/win32/diagram_view.h"

namespace tessel::controls {

namespace {

enum PlaneCommand : UINT { kFit = 1, kActualSize, kArrange, kCopyPicture };

// Of the button in the corner, at 96 dpi.
constexpr int kButtonRoom = 6;
constexpr int kButtonPadding = 10;
constexpr int kButtonExtraHeight = 8;

}  // namespace

void DiagramView::Fit() {
    state_.Fit();
    if (IsCreated()) Refresh();
}

bool DiagramView::CopyPicture() {
    state_.Update();
    const HENHMETAFILE metafile = diagram::MakeMetafile(painter_, state_);
    const HGLOBAL dib = diagram::MakeDib(painter_, state_);
    return (metafile || dib) && win32::CopyToClipboard(Handle(), dib, metafile);
}

bool DiagramView::OnCommandKey(WPARAM key) {
    if (key != 'C' || GetKeyState(VK_CONTROL) >= 0 || state_.HoldsMouse()) return false;
    CopyPicture();
    return true;
}

void DiagramView::ShowPlaneMenu(POINT screen) {
    const bool any = diagram_ && !diagram_->Tables().empty();
    const HMENU menu = CreatePopupMenu();
    if (!menu) return;
    const auto add = [menu](UINT command, std::wstring_view caption, bool enabled) {
        AppendMenuW(menu, MF_STRING | (enabled ? MF_ENABLED : MF_GRAYED), command,
                    std::wstring(caption).c_str());
    };
    add(kFit, diagram::FitEntry(), any);
    add(kActualSize, diagram::ActualSizeEntry(), Zoom() != 100);
    AppendMenuW(menu, MF_SEPARATOR, 0, nullptr);
    add(kArrange, diagram::ArrangeEntry(), any);
    add(kCopyPicture, diagram::CopyPictureEntry(), any);
    const auto chosen = static_cast<UINT>(TrackPopupMenu(menu, TPM_RETURNCMD | TPM_NONOTIFY | TPM_RIGHTBUTTON,
                                                         screen.x, screen.y, 0, Handle(), nullptr));
    DestroyMenu(menu);
    if (!IsCreated()) return;
    switch (chosen) {
        case kFit:
            return Fit();
        case kActualSize:
            return SetZoom(100);
        case kArrange:
            return state_.Arrange();
        case kCopyPicture:
            CopyPicture();
            return;
        default:
            return;
    }
}

// The button stands in the corner while there is something that it would bring into view.
void DiagramView::PlaceFitButton() {
    if (!fit_button_) return;
    // While a relation is being drawn the text that guides the user has that corner.
    const bool wanted =
        diagram_ && !diagram_->Tables().empty() && !state_.ShowsEverything() && !state_.IsRelating();
    if (wanted) {
        const SIZE text =
            win32::TextSize(win32::MeasuringDc(button_font_.get()).Get(), diagram::FitCaption());
        const int width = static_cast<int>(text.cx) + 2 * win32::Scale(kButtonPadding, dpi_);
        const int height = static_cast<int>(text.cy) + win32::Scale(kButtonExtraHeight, dpi_);
        const int room = win32::Scale(kButtonRoom, dpi_);
        const diagram::Size client = state_.View().Client();
        SetWindowPos(fit_button_, nullptr, client.width - width - room, client.height - height - room, width,
                     height, SWP_NOZORDER | SWP_NOACTIVATE);
    }
    if ((IsWindowVisible(fit_button_) != FALSE) != wanted)
        ShowWindow(fit_button_, wanted ? SW_SHOWNA : SW_HIDE);
}

}  // namespace tessel::controls
