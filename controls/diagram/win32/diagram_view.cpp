#include "controls/diagram/win32/diagram_view.h"

#include "common/win32/gdi.h"

namespace tessel::controls {

DiagramView::~DiagramView() {
    Bind(nullptr, nullptr);
    Destroy();
}

bool DiagramView::Create(HWND parent, int id) {
    return CreateWindowOf({L"TesselDiagram", CS_DBLCLKS}, L"", WS_CHILD | WS_VISIBLE | WS_TABSTOP | WS_CLIPSIBLINGS, 0,
                          parent, id);
}

void DiagramView::Bind(model::Diagram* diagram, DiagramEvents* events) {
    if (diagram_) diagram_->RemoveListener(this);
    diagram_ = diagram;
    events_ = events;
    if (diagram_) diagram_->AddListener(this);
    Redraw();
}

void DiagramView::Redraw() {
    if (IsCreated()) InvalidateRect(Handle(), nullptr, FALSE);
}

RECT DiagramView::TableRect(std::wstring_view) const { return {}; }
RECT DiagramView::FieldRect(std::wstring_view, std::wstring_view) const { return {}; }
RECT DiagramView::CheckRect(std::wstring_view, std::wstring_view) const { return {}; }
POINT DiagramView::RelationPoint(int) const { return {}; }
void DiagramView::SetZoom(int) {}

void DiagramView::OnChanged() { Redraw(); }

LRESULT DiagramView::OnMessage(UINT message, WPARAM wparam, LPARAM lparam) {
    switch (message) {
        case WM_ERASEBKGND:
            return 1;
        case WM_PAINT: {
            win32::BufferedPaint paint(Handle());
            win32::FillSolid(paint.Dc(), paint.Client(), GetSysColor(COLOR_WINDOW));
            return 0;
        }
        default:
            return Window::OnMessage(message, wparam, lparam);
    }
}

}  // namespace tessel::controls
