#include "benchmarks/win32/designer_host.h"
#include "benchmarks/win32/groups.h"
#include "common/win32/activation_context.h"
#include "controls/diagram/win32/diagram_view.h"
#include "model/diagram.h"

namespace tessel::bench {

namespace {

constexpr int kTables = 200;
constexpr int kRelations = 400;
constexpr int kFields = 15;
constexpr int kFrames = 61;
constexpr int kPlacings = 5;
constexpr SIZE kWindow = {1000, 700};

std::wstring TableName(int number) {
    return L"Tabla" + std::to_wstring(number);
}

/// Tables of fifteen fields.
class WideSource final : public schema::SchemaSource {
public:
    Result<std::vector<schema::Object>> LoadObjects() override {
        std::vector<schema::Object> objects;
        for (int number = 0; number < kTables; ++number)
            objects.push_back({TableName(number), L"", schema::ObjectKind::Table});
        return objects;
    }
    Result<std::vector<schema::Field>> LoadFields(const schema::Object&) override {
        std::vector<schema::Field> fields(kFields);
        for (int number = 0; number < kFields; ++number)
            fields[static_cast<std::size_t>(number)].name = L"Campo" + std::to_wstring(number);
        return fields;
    }
    Result<std::vector<schema::ForeignKey>> LoadForeignKeys() override {
        return std::vector<schema::ForeignKey>();
    }
};

/// Two keys of each table refer to tables before it, and two relations close a ring.
void Relate(model::Diagram& diagram) {
    int count = 0;
    const auto relate = [&](int left, int right, int field) {
        if (left == right || count == kRelations) return;
        ++count;
        diagram.AddRelation(
            {TableName(left), L"Campo0", TableName(right), L"Campo" + std::to_wstring(field), 0, false});
    };
    for (int number = 1; number < kTables; ++number) {
        relate(number / 3, number, 1);
        relate(number / 2, number, 2);
    }
    for (int number = 0; count < kRelations; ++number) relate(number, kTables - 1 - number, 3);
}

/// Handles what is waiting but timers, which on a busy machine come faster than they are handled.
void Pump() {
    static constexpr UINT kRanges[][2] = {{0, WM_TIMER - 1}, {WM_TIMER + 1, 0xFFFF}};
    MSG message;
    for (bool any = true; any;) {
        any = false;
        for (const auto& range : kRanges)
            while (PeekMessageW(&message, nullptr, range[0], range[1], PM_REMOVE)) {
                DispatchMessageW(&message);
                any = true;
            }
    }
}

/// The diagram in a frame of its own.
class Stage {
public:
    Stage() : schema_(std::make_unique<WideSource>()) {
        frame_ = CreateWindowExW(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE | WS_CLIPCHILDREN, 0, 0, kWindow.cx,
                                 kWindow.cy, nullptr, nullptr, nullptr, nullptr);
        ready_ = frame_ && view.Create(frame_, 1);
        if (ready_) MoveWindow(view.Handle(), 0, 0, kWindow.cx, kWindow.cy, FALSE);
        diagram.Bind(&schema_);
    }
    ~Stage() {
        view.Bind(nullptr, nullptr);
        if (frame_) DestroyWindow(frame_);
    }
    Stage(const Stage&) = delete;
    Stage& operator=(const Stage&) = delete;

    bool IsReady() const { return ready_; }

    /// Adds everything, which the view places on its first painting.
    void Fill() {
        for (int number = 0; number < kTables; ++number) diagram.AddTable(TableName(number), true);
        Relate(diagram);
        view.Bind(&diagram, nullptr);
    }
    void Show() {
        Pump();
        PaintNow(frame_);
    }

private:
    schema::Schema schema_;

public:
    model::Diagram diagram;
    controls::DiagramView view;

private:
    HWND frame_ = nullptr;
    bool ready_ = false;
};

void Repaint(Stage& stage, const char* name, Measurements* measurements) {
    for (int i = 0; i < kFrames; ++i) {
        const double seconds = SecondsUntilPainted(
            stage.view.Handle(), [&] { InvalidateRect(stage.view.Handle(), nullptr, FALSE); });
        if (i > 0) measurements->Add(name, seconds);
    }
}

/// The mouse holds a table by its title and goes round; each step counts until it is to be seen.
void Drag(Stage& stage, const char* name, Measurements* measurements) {
    const HWND view = stage.view.Handle();
    stage.view.Reveal(TableName(1), L"");
    stage.Show();
    const RECT table = stage.view.TableRect(TableName(1));
    const POINT title{(table.left + table.right) / 2, table.top + 6};
    SendMessageW(view, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(title.x, title.y));
    for (int i = 1; i <= kFrames; ++i) {
        const LPARAM place = MAKELPARAM(title.x + i * 3, title.y + i % 30 * 4);
        const double seconds = SecondsUntilPainted(view, [&] {
            SendMessageW(view, WM_MOUSEMOVE, MK_LBUTTON, place);
            Pump();
        });
        if (i > 1) measurements->Add(name, seconds);
    }
    SendMessageW(view, WM_LBUTTONUP, 0, MAKELPARAM(title.x, title.y));
    stage.Show();
}

}  // namespace

void MeasureDiagram(const Databases&, Measurements* measurements) {
    const win32::ActivationContext themed;
    for (int i = 0; i < kPlacings; ++i) {
        Stage stage;
        if (!stage.IsReady()) return;
        stage.Show();
        const double begun = Now();
        stage.Fill();
        stage.Show();
        measurements->Add("ShowLargeDiagram", Now() - begun,
                          {{"relations", static_cast<double>(stage.diagram.Relations().size())}});
        if (i > 0) continue;
        Repaint(stage, "RepaintLargeDiagram", measurements);
        Drag(stage, "DragInLargeDiagram", measurements);
        stage.view.SetZoom(25);
        stage.Show();
        Repaint(stage, "RepaintWholeLargeDiagram", measurements);
        Drag(stage, "DragInWholeLargeDiagram", measurements);
    }
}

}  // namespace tessel::bench
