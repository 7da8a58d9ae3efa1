// What the designer window tells assistive programs while it is used with the keyboard.
#include <gmock/gmock.h>

#include "common/text.h"
#include "controls/diagram/diagram_texts.h"
#include "tests/win_access/access_fixture.h"
#include "tests/win_access/event_log.h"

namespace tessel::testing {

namespace {

using ::testing::ElementsAre;
using Lines = std::vector<std::wstring>;

class EventTest : public AccessTest {
protected:
    /// Presses a key and waits for the events that must come of it, in that order and no others.
    void Expect(WORD key, Lines expected, bool shift = false, bool control = false) {
        script_.Do([=, this] {
            log_.Clear();
            PressKey(key, shift, control);
        });
        ExpectEvents(std::move(expected));
    }
    void ExpectEvents(Lines expected) {
        script_.Until([=, this] { return log_.Lines().size() >= expected.size(); }, "the events have come");
        // What comes of one key has come when another message has gone the same way.
        script_.Do([=, this] {
            std::string all;
            for (const std::wstring& line : log_.Lines()) all += ToUtf8(line) + "\n";
            EXPECT_EQ(log_.Lines(), expected) << all;
        });
    }
    void FocusOn(int control) {
        script_.Do([=, this] {
            log_.Watch(Control(control));
            SetFocus(Control(control));
        });
        script_.Until([=, this] { return GetFocus() == Control(control); }, "the control has the keyboard");
    }
    void Finish(std::wstring_view statement = kCustomersAndOrders) {
        CloseAfterwards();
        Run(statement);
    }

    EventLog log_;
};

}  // namespace

TEST_F(EventTest, MovingInTheGridTellsEachCellOnce) {
    FocusOn(ui::kIdGrid);
    Expect(VK_RIGHT, {L"focus Campo, columna 2", L"selection Campo, columna 2"});
    Expect(VK_DOWN, {L"focus Título (Alias), columna 2, Pedidos.Importe",
                     L"selection Título (Alias), columna 2, Pedidos.Importe"});
    Expect(VK_END, {L"focus Título (Alias), columna 60", L"selection Título (Alias), columna 60"});
    Finish();
}

TEST_F(EventTest, ABlockIsToldAsASelection) {
    FocusOn(ui::kIdGrid);
    Expect(VK_RIGHT, {L"focus Campo, columna 2", L"selection within Columnas de la consulta"}, true);
    Finish();
}

TEST_F(EventTest, AnEmptiedCellTellsItsValue) {
    FocusOn(ui::kIdGrid);
    Expect(VK_DOWN, {L"focus Título (Alias), columna 1, Clientes.Nombre",
                     L"selection Título (Alias), columna 1, Clientes.Nombre"});
    Expect(VK_RIGHT, {L"focus Título (Alias), columna 2, Pedidos.Importe",
                      L"selection Título (Alias), columna 2, Pedidos.Importe"});
    Expect(VK_DELETE, {L"value Título (Alias), columna 2, Pedidos.Importe"});
    Finish();
}

TEST_F(EventTest, ComingBackToTheGridTellsTheCellAgain) {
    FocusOn(ui::kIdGrid);
    FocusOn(ui::kIdEditor);
    script_.Do([this] {
        log_.Clear();
        log_.Watch(Control(ui::kIdGrid));
        SetFocus(Control(ui::kIdGrid));
    });
    script_.Until([this] { return log_.CountOf(L"focus Campo, columna 1") > 0; }, "the cell is told");
    script_.Do([this] { EXPECT_EQ(log_.CountOf(L"focus Campo, columna 1"), 1u); });
    Finish();
}

TEST_F(EventTest, WalkingThroughTheDiagramTellsTablesFieldsAndRelations) {
    FocusOn(ui::kIdDiagram);
    Expect(VK_RIGHT, {L"focus Clientes", L"selection Clientes"});
    Expect(VK_DOWN, {L"focus * (todos los campos)", L"selection * (todos los campos)"});
    Expect(VK_DOWN, {L"focus IdCliente", L"selection IdCliente"});
    Expect(VK_SPACE, {L"state IdCliente"});
    Finish();
}

TEST_F(EventTest, WhatToDoForARelationIsAnnounced) {
    FocusOn(ui::kIdDiagram);
    Expect(VK_RIGHT, {L"focus Clientes", L"selection Clientes"});
    script_.Do([this] {
        log_.Clear();
        window_.Presenter().MenuChosen(ui::MenuCommand::mnuRelacionar);
    });
    const std::wstring hint = controls::diagram::RelatingText(L"Clientes", L"");
    ExpectEvents({L"show " + hint, L"alert " + hint});
    Finish();
}

TEST_F(EventTest, ADraggedBarTellsItsValue) {
    FocusOn(ui::kIdMainSplitter);
    script_.Do([this] {
        const HWND bar =
            FindWindowExW(Control(ui::kIdMainSplitter), nullptr, L"TesselSplitterGripV", nullptr);
        log_.Watch(bar);
        SetFocus(bar);
    });
    script_.Until([] { return true; });
    Expect(VK_RIGHT, {L"value Divisor entre el esquema y la consulta"});
    Finish();
}

TEST_F(EventTest, TypingInTheEditorTellsItsValue) {
    script_.Do([this] { ClickTab(ui::Tab::Sql); });
    script_.Until([this] { return IsWindowVisible(Control(ui::kIdEditor)) != FALSE; }, "the text is shown");
    FocusOn(ui::kIdEditor);
    script_.Do([this] {
        log_.Clear();
        TypeText(L"x");
    });
    script_.Until([this] { return log_.CountOf(L"value Consulta SQL") > 0; }, "the value is told");
    Finish();
}

}  // namespace tessel::testing
