#include "controls/grid/win32/design_grid_view.h"

namespace tessel::controls {

DesignGridView::~DesignGridView() { Bind(nullptr, nullptr); }

bool DesignGridView::Create(HWND parent, int id) {
    const win32::WindowClass window_class{L"TesselDesignGrid", CS_DBLCLKS, GetSysColorBrush(COLOR_WINDOW), IDC_ARROW};
    return CreateWindowOf(window_class, L"", WS_CHILD | WS_VISIBLE | WS_TABSTOP | WS_CLIPCHILDREN | WS_HSCROLL, 0, parent,
                          id);
}

void DesignGridView::Bind(model::DesignGrid* grid, GridEvents* events) {
    if (grid_) grid_->RemoveListener(this);
    grid_ = grid;
    events_ = events;
    if (grid_) grid_->AddListener(this);
    OnChanged();
}

bool DesignGridView::IsEditing() const { return false; }
void DesignGridView::BeginEdit(model::GridRow, int) {}
bool DesignGridView::CommitEdit() { return true; }
void DesignGridView::CancelEdit() {}
RECT DesignGridView::CellRect(model::GridRow, int) const { return {}; }

void DesignGridView::OnChanged() {
    if (IsCreated()) InvalidateRect(Handle(), nullptr, FALSE);
}

LRESULT DesignGridView::OnMessage(UINT message, WPARAM wparam, LPARAM lparam) {
    return Window::OnMessage(message, wparam, lparam);
}

}  // namespace tessel::controls
