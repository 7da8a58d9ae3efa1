// DesingQry step by step, over a window that records what it is told.
#include <gtest/gtest.h>

#include <algorithm>
#include <thread>

#include "common/win32/dispatch.h"
#include "component/quillon.h"
#include "tests/support/win32/fake_ado.h"
#include "tests/win_component/recorded_window.h"

namespace tessel {
namespace {

using component::Quillon;
using tests::FakeCall;
using tests::FakeConnection;
using tests::FakeDatabase;
using tests::TheWindow;
using win32::Bstr;
using win32::ComPtr;

FakeDatabase Database(const wchar_t* default_database) {
    FakeDatabase database;
    database.rowsets[20] = {{L"TABLE_NAME", L"TABLE_TYPE"}, {{L"Clientes", L"TABLE"}, {L"Ventas", L"VIEW"}}};
    database.default_database = default_database;
    return database;
}

struct Answer {
    std::wstring result;
    std::wstring caption;
};

class DesignerCall : public testing::Test {
protected:
    void SetUp() override { TheWindow() = tests::RecordedWindow(); }

    Answer Design(IDispatch* connection, const wchar_t* sql, const wchar_t* caption = L"") {
        BSTR text = Bstr(sql).Detach();
        BSTR name = Bstr(caption).Detach();
        Bstr result;
        EXPECT_EQ(quillon_->DesingQry(&connection, &text, &name, result.Put()), S_OK);
        EXPECT_EQ(win32::TextOf(text), sql) << "the caller's statement stays";
        Answer answer{std::wstring(result.View()), std::wstring(win32::TextOf(name))};
        SysFreeString(text);
        SysFreeString(name);
        return answer;
    }

    std::string Steps() const {
        std::string text;
        for (const std::string& step : TheWindow().steps) text += step + "\n";
        return text;
    }

    ComPtr<Quillon> quillon_ = win32::MakeObject<Quillon>();
};

TEST_F(DesignerCall, TheWindowIsGivenEverythingInOrder) {
    const FakeConnection connection = tests::MakeConnection(Database(L"ventas"));
    const Answer answer = Design(connection.object.Get(), L"SELECT 1");
    EXPECT_EQ(
        Steps(),
        "create\nLoadSchema 2 ventas\nSetConnection yes\nSetResultSQL SELECT 1\nSetDsn SELECT 1\nShowModal\n"
        "unload\nUnregisterWindowClasses\n");
    EXPECT_EQ(answer.result, L"SELECT 1");
}

TEST_F(DesignerCall, TheCaptionIsTheDefaultDatabaseAndGoesBackToTheCaller) {
    const FakeConnection connection = tests::MakeConnection(Database(L"ventas"));
    EXPECT_EQ(Design(connection.object.Get(), L"", L"").caption, L"ventas");
    EXPECT_EQ(Design(connection.object.Get(), L"", L"   ").caption, L"ventas");
}

TEST_F(DesignerCall, ACaptionOfTheCallersStays) {
    const FakeConnection connection = tests::MakeConnection(Database(L"ventas"));
    EXPECT_EQ(Design(connection.object.Get(), L"", L" Mi base ").caption, L" Mi base ");
    EXPECT_EQ(TheWindow().steps.at(1), "LoadSchema 2  Mi base ");
}

TEST_F(DesignerCall, WithoutADefaultDatabaseThereIsAFixedCaption) {
    const FakeConnection blank = tests::MakeConnection(Database(L"  "));
    EXPECT_EQ(Design(blank.object.Get(), L"").caption, L"Esquema de base de datos");
    EXPECT_EQ(TheWindow().steps.at(1), "LoadSchema 2 Esquema de base de datos");

    const FakeConnection full = tests::MakeConnection(Database(L""));
    const tests::FakePtr without = tests::MakeFake();
    without->On(L"OpenSchema", [&](const FakeCall&) {
        return tests::Value(tests::ObjectValue(tests::MakeRecordset(Database(L"").rowsets[20], full.line)));
    });
    EXPECT_EQ(Design(without.Get(), L"").caption, L"Esquema de base de datos");
}

TEST_F(DesignerCall, ABlankStatementIsNotLoaded) {
    const FakeConnection connection = tests::MakeConnection(Database(L"ventas"));
    for (const wchar_t* sql : {L"", L"   "}) {
        TheWindow() = tests::RecordedWindow();
        EXPECT_EQ(Design(connection.object.Get(), sql).result, sql);
        EXPECT_EQ(Steps().find("SetDsn"), std::string::npos);
        EXPECT_NE(Steps().find("ShowModal"), std::string::npos);
    }
}

TEST_F(DesignerCall, CancellingReturnsTheInputByteForByte) {
    const FakeConnection connection = tests::MakeConnection(Database(L"ventas"));
    const wchar_t sql[] = L" \t SELECT  \r\n'\u00d1' ;  ";
    EXPECT_EQ(Design(connection.object.Get(), sql).result, sql);
    EXPECT_EQ(Steps().find("\nResultSQL"), std::string::npos);
}

TEST_F(DesignerCall, AcceptingReturnsTheWindowsText) {
    const FakeConnection connection = tests::MakeConnection(Database(L"ventas"));
    TheWindow().accepts = true;
    EXPECT_EQ(Design(connection.object.Get(), L"SELECT 1").result, L"resultado");
    TheWindow().result.clear();
    EXPECT_EQ(Design(connection.object.Get(), L"SELECT 1").result, L"") << "an empty design is an answer too";
}

TEST_F(DesignerCall, WithoutAUsableConnectionNoWindowIsMade) {
    FakeDatabase closed = Database(L"ventas");
    closed.state = 0;
    const FakeConnection closed_connection = tests::MakeConnection(closed);
    const FakeConnection dead = tests::MakeConnection(Database(L"ventas"));
    dead.line->calls_left = 0;
    const tests::FakePtr wrong = tests::MakeFake();
    for (IDispatch* connection : {static_cast<IDispatch*>(nullptr), static_cast<IDispatch*>(wrong.Get()),
                                  static_cast<IDispatch*>(closed_connection.object.Get()),
                                  static_cast<IDispatch*>(dead.object.Get())}) {
        const Answer answer = Design(connection, L" SELECT 1 ");
        EXPECT_EQ(answer.result, L" SELECT 1 ");
        EXPECT_EQ(answer.caption, L"");
        EXPECT_EQ(Steps(), "");
    }
}

TEST_F(DesignerCall, AConnectionThatDiesHalfWayStillOpensTheDesigner) {
    const FakeConnection whole = tests::MakeConnection(Database(L"ventas"));
    Design(whole.object.Get(), L"x");
    const long calls = whole.line->calls_made;
    ASSERT_GT(calls, 5);
    for (long left = 0; left < calls; ++left) {
        TheWindow() = tests::RecordedWindow();
        const FakeConnection connection = tests::MakeConnection(Database(L"ventas"));
        connection.line->calls_left = left;
        EXPECT_EQ(Design(connection.object.Get(), L"SELECT 1").result, L"SELECT 1")
            << "after " << left << " calls";
    }
}

TEST_F(DesignerCall, AStepThatFailsIsSkippedAndTheNextOneRuns) {
    const FakeConnection connection = tests::MakeConnection(Database(L"ventas"));
    for (const char* failing : {"LoadSchema", "SetConnection", "ShowModal"}) {
        TheWindow() = tests::RecordedWindow();
        TheWindow().throws_in = failing;
        TheWindow().accepts = true;
        EXPECT_EQ(Design(connection.object.Get(), L"SELECT 1").result, L"resultado") << failing;
        EXPECT_NE(Steps().find("ShowModal\nResultSQL\nunload\nUnregisterWindowClasses\n"), std::string::npos)
            << failing;
    }
    TheWindow() = tests::RecordedWindow();
    TheWindow().accepts = true;
    TheWindow().throws_in = "ResultSQL";
    EXPECT_EQ(Design(connection.object.Get(), L"SELECT 1").result, L"SELECT 1");
}

TEST_F(DesignerCall, AWindowThatDoesNotHoldTheStatementIsNotShown) {
    const FakeConnection connection = tests::MakeConnection(Database(L"ventas"));
    for (const char* failing : {"SetResultSQL", "SetDsn"}) {
        TheWindow() = tests::RecordedWindow();
        TheWindow().throws_in = failing;
        TheWindow().accepts = true;
        EXPECT_EQ(Design(connection.object.Get(), L"SELECT 1").result, L"SELECT 1") << failing;
        EXPECT_EQ(Steps().find("ShowModal"), std::string::npos) << failing;
        EXPECT_TRUE(Steps().ends_with("unload\nUnregisterWindowClasses\n")) << failing << '\n' << Steps();
    }
}

TEST_F(DesignerCall, AWindowThatCannotBeMadeReturnsTheStatement) {
    const FakeConnection connection = tests::MakeConnection(Database(L"ventas"));
    TheWindow().refuses_creation = true;
    EXPECT_EQ(Design(connection.object.Get(), L"SELECT 1").result, L"SELECT 1");
    EXPECT_EQ(Steps(), "create\nunload\nUnregisterWindowClasses\n");
    TheWindow() = tests::RecordedWindow();
    TheWindow().throws_in = "create";
    EXPECT_EQ(Design(connection.object.Get(), L"SELECT 1").result, L"SELECT 1");
    TheWindow() = tests::RecordedWindow();
    Design(connection.object.Get(), L"SELECT 1");
    EXPECT_NE(Steps().find("ShowModal"), std::string::npos) << "the next call is not locked out";
}

TEST_F(DesignerCall, EveryCallReadsAFreshSchema) {
    const FakeConnection connection = tests::MakeConnection(Database(L"ventas"));
    ComPtr<IDispatch> first, second;
    Design(connection.object.Get(), L"x");
    quillon_->get_CurrentSchema(first.Put());
    Design(connection.object.Get(), L"x");
    quillon_->get_CurrentSchema(second.Put());
    ASSERT_TRUE(first && second);
    EXPECT_NE(first.Get(), second.Get());
    const win32::Dispatch reader(second);
    EXPECT_EQ(reader.Get(L"Count").Number(), 2);
    EXPECT_EQ(reader.Get(L"Name", 1).Text(), L"Clientes");
    EXPECT_EQ(reader.Get(L"Kind", 1).Number(), 1);
    EXPECT_EQ(reader.Get(L"Kind", 2).Number(), 2);
    EXPECT_EQ(reader.Get(L"Name", 3).Code(), DISP_E_BADINDEX);
    EXPECT_EQ(reader.Call(L"LoadSchema", tests::ObjectValue(connection.object)).Boolean(), true);
}

TEST_F(DesignerCall, ASecondDesignerWhileOneIsOpenReturnsItsStatement) {
    const FakeConnection connection = tests::MakeConnection(Database(L"ventas"));
    std::wstring inner;
    TheWindow().during_modal = [&] { inner = Design(connection.object.Get(), L"SELECT 2").result; };
    EXPECT_EQ(Design(connection.object.Get(), L"SELECT 1").result, L"SELECT 1");
    EXPECT_EQ(inner, L"SELECT 2");
    EXPECT_EQ(std::count(TheWindow().steps.begin(), TheWindow().steps.end(), "create"), 1);
}

TEST_F(DesignerCall, ASecondDesignerLeavesTheSchemaOfTheFirst) {
    const FakeConnection connection = tests::MakeConnection(Database(L"ventas"));
    const auto schema = [this] {
        ComPtr<IDispatch> current;
        EXPECT_EQ(quillon_->get_CurrentSchema(current.Put()), S_OK);
        return current;
    };
    TheWindow().during_modal = [&] {
        const ComPtr<IDispatch> before = schema();
        Design(connection.object.Get(), L"SELECT 2");
        EXPECT_EQ(schema().Get(), before.Get());
    };
    Design(connection.object.Get(), L"SELECT 1");
}

TEST_F(DesignerCall, ASecondDesignerInAnotherThreadReturnsItsStatement) {
    const FakeConnection connection = tests::MakeConnection(Database(L"ventas"));
    std::wstring other;
    std::wstring caption = L"none";
    TheWindow().during_modal = [&] {
        std::thread([&] {
            CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
            {
                // Objects of this thread alone: nothing of the first call is shared but the window.
                const FakeConnection own = tests::MakeConnection(Database(L"otra"));
                const ComPtr<Quillon> quillon = win32::MakeObject<Quillon>();
                IDispatch* object = own.object.Get();
                BSTR sql = Bstr(L"SELECT 2").Detach();
                BSTR name = Bstr(L"").Detach();
                Bstr result;
                EXPECT_EQ(quillon->DesingQry(&object, &sql, &name, result.Put()), S_OK);
                other = result.View();
                caption = win32::TextOf(name);
                SysFreeString(sql);
                SysFreeString(name);
            }
            CoUninitialize();
        }).join();
    };
    EXPECT_EQ(Design(connection.object.Get(), L"SELECT 1").result, L"SELECT 1");
    EXPECT_EQ(other, L"SELECT 2");
    EXPECT_EQ(caption, L"") << "a call that opens nothing fills nothing in";
    EXPECT_EQ(std::count(TheWindow().steps.begin(), TheWindow().steps.end(), "create"), 1);
}

TEST_F(DesignerCall, TheHostMayDropEverythingWhileTheWindowIsOpen) {
    const FakeConnection connection = tests::MakeConnection(Database(L"ventas"));
    TheWindow().accepts = true;
    TheWindow().during_modal = [&] {
        quillon_->putref_CurrentSchema(nullptr);
        quillon_.Reset();
    };
    Quillon* raw = quillon_.Get();
    IDispatch* given = connection.object.Get();
    BSTR sql = nullptr;
    Bstr result;
    EXPECT_EQ(raw->DesingQry(&given, &sql, nullptr, result.Put()), S_OK);
    EXPECT_EQ(result.View(), L"resultado");
    EXPECT_TRUE(win32::ServerCount::Value() > 0) << "the fakes count too";
}

TEST_F(DesignerCall, AfterTheCallTheConnectionBelongsToTheHostAlone) {
    const FakeConnection connection = tests::MakeConnection(Database(L"ventas"));
    Design(connection.object.Get(), L"x");
    quillon_->putref_CurrentSchema(nullptr);
    connection.object->AddRef();
    EXPECT_EQ(connection.object->Release(), 1u);
}

constexpr UINT kCounted = WM_APP + 7;
int messages_seen = 0;

LRESULT CALLBACK CountMessages(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    if (message == kCounted) ++messages_seen;
    return DefWindowProcW(window, message, wparam, lparam);
}

TEST_F(DesignerCall, PendingMessagesAreProcessedOnceAndQuittingIsLeftToTheHost) {
    messages_seen = 0;
    const HWND window = CreateWindowW(L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
    SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&CountMessages));
    PostMessageW(window, kCounted, 0, 0);
    Design(nullptr, L"x");
    EXPECT_EQ(messages_seen, 1);
    PostQuitMessage(5);
    Design(nullptr, L"x");
    MSG quit{};
    EXPECT_TRUE(PeekMessageW(&quit, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
    EXPECT_EQ(quit.wParam, 5u);
    DestroyWindow(window);
}

TEST_F(DesignerCall, ThePointerIsAnHourglassUntilTheWindowOpensAndThenTheHostsOwn) {
    const HCURSOR cross = LoadCursorW(nullptr, IDC_CROSS);
    const HCURSOR hourglass = LoadCursorW(nullptr, IDC_WAIT);
    SetCursor(cross);
    HCURSOR while_loading = nullptr, while_open = nullptr;
    const FakeConnection connection = tests::MakeConnection(Database(L"ventas"));
    const tests::FakePtr watching = tests::MakeFake();
    watching->On(L"OpenSchema", [&](const FakeCall&) {
        while_loading = GetCursor();
        return tests::Value(
            tests::ObjectValue(tests::MakeRecordset(Database(L"").rowsets[20], connection.line)));
    });
    TheWindow().during_modal = [&] { while_open = GetCursor(); };
    Design(watching.Get(), L"x");
    EXPECT_EQ(while_loading, hourglass);
    EXPECT_EQ(while_open, cross);
    EXPECT_EQ(GetCursor(), cross);
    Design(nullptr, L"x");
    EXPECT_EQ(GetCursor(), cross) << "after a failure too";
}

TEST_F(DesignerCall, TheWindowReadsTheHostsParameters) {
    const auto named = [](const wchar_t* name) {
        const tests::FakePtr parameter = tests::MakeFake();
        parameter->Set(L"Name", name);
        return parameter;
    };
    const tests::FakePtr nameless = tests::MakeFake();
    const FakeConnection connection = tests::MakeConnection(Database(L"ventas"));
    std::vector<std::wstring> names;
    TheWindow().during_modal = [&] { names = TheWindow().owner->ParameterNames(); };
    Design(connection.object.Get(), L"x");
    EXPECT_TRUE(names.empty()) << "no collection";
    quillon_->putref_ParamCol(tests::MakeCollection({named(L"desde"), nameless, named(L"hasta")}).Get());
    Design(connection.object.Get(), L"x");
    EXPECT_EQ(names, (std::vector<std::wstring>{L"desde", L"hasta"}));
    quillon_->putref_ParamCol(tests::MakeEnumerable({named(L"uno"), named(L"dos")}, 1).Get());
    Design(connection.object.Get(), L"x");
    EXPECT_EQ(names, std::vector<std::wstring>{L"uno"}) << "what a broken collection gave";
}

TEST_F(DesignerCall, TheWindowWritesTheValuesOfObjectsThatAreNotOurs) {
    const tests::FakePtr country = tests::MakeFake();
    country->Set(L"Name", L"pais");
    country->Set(L"eType", L"adVarChar");
    country->Set(L"Value", L"Chile");
    const tests::FakePtr broken = tests::MakeFake();
    broken->Set(L"Name", L"roto");
    broken->On(L"Value", [](const FakeCall&) { return tests::Raise(E_ACCESSDENIED, L"Valor secreto"); });
    const FakeConnection connection = tests::MakeConnection(Database(L"ventas"));
    quillon_->putref_ParamCol(tests::MakeCollection({country, broken}, 0).Get());
    std::optional<std::wstring> literal, text, broken_literal, broken_text, absent;
    bool error_left = true;
    TheWindow().during_modal = [&] {
        ui::DesignerOwner& owner = *TheWindow().owner;
        literal = owner.ParameterLiteral(L" PAIS ");
        text = owner.ParameterText(L"pais");
        absent = owner.ParameterLiteral(L"otro");
        ComPtr<IErrorInfo> info;
        broken_literal = owner.ParameterLiteral(L"roto");
        error_left = GetErrorInfo(0, info.Put()) == S_OK;
        broken_text = owner.ParameterText(L"roto");
        error_left = error_left || GetErrorInfo(0, info.Put()) == S_OK;
    };
    Design(connection.object.Get(), L"x");
    EXPECT_EQ(literal, L"'Chile'");
    EXPECT_EQ(text, L"Chile");
    EXPECT_EQ(absent, std::nullopt);
    EXPECT_EQ(broken_literal, std::nullopt);
    EXPECT_EQ(broken_text, std::nullopt);
    EXPECT_FALSE(error_left) << "no error of a parameter stays on the thread";
}

/// Calls DesingQry by name with the caption in the given form.
void DesignLate(const ComPtr<Quillon>& quillon, const FakeConnection& connection,
                win32::UniqueVariant caption) {
    const win32::Dispatch late(quillon.As<IDispatch>());
    const win32::CallResult result =
        late.Call(L"DesingQry", tests::ObjectValue(connection.object), L"SELECT 1", std::move(caption));
    ASSERT_TRUE(result) << ToUtf8(result.Message());
    EXPECT_EQ(result.Text(), L"SELECT 1");
}

TEST_F(DesignerCall, TheCaptionGoesBackThroughEveryFormOfReference) {
    const FakeConnection connection = tests::MakeConnection(Database(L"ventas"));
    BSTR text = nullptr;
    DesignLate(quillon_, connection, win32::UniqueVariant::ReferenceTo(&text));
    EXPECT_EQ(win32::TextOf(text), L"ventas");
    SysFreeString(text);

    win32::UniqueVariant empty;
    DesignLate(quillon_, connection, win32::UniqueVariant::ReferenceTo(empty.Address()));
    ASSERT_EQ(empty.Type(), VT_BSTR);
    EXPECT_EQ(win32::TextOf(empty.Get().bstrVal), L"ventas");

    win32::UniqueVariant blank(L"  ");
    DesignLate(quillon_, connection, win32::UniqueVariant::ReferenceTo(blank.Address()));
    EXPECT_EQ(win32::TextOf(blank.Get().bstrVal), L"ventas");

    win32::UniqueVariant own(L"Mi base");
    DesignLate(quillon_, connection, win32::UniqueVariant::ReferenceTo(own.Address()));
    EXPECT_EQ(win32::TextOf(own.Get().bstrVal), L"Mi base");

    DesignLate(quillon_, connection, win32::UniqueVariant(L""));
    DesignLate(quillon_, connection, win32::UniqueVariant::Missing());
}

TEST_F(DesignerCall, AnAcceptedStatementComesBackLateBound) {
    const FakeConnection connection = tests::MakeConnection(Database(L"ventas"));
    TheWindow().accepts = true;
    win32::UniqueVariant variable = tests::ObjectValue(connection.object);
    win32::UniqueVariant sql(L"SELECT 1");
    const win32::Dispatch late(quillon_.As<IDispatch>());
    EXPECT_EQ(late.Call(L"DesingQry", win32::UniqueVariant::ReferenceTo(variable.Address()),
                        win32::UniqueVariant::ReferenceTo(sql.Address()))
                  .Text(),
              L"resultado");
    EXPECT_EQ(win32::TextOf(sql.Get().bstrVal), L"SELECT 1") << "the caller's statement stays";
    EXPECT_EQ(variable.Object().Get(), connection.object.Get());
}

}  // namespace
}  // namespace tessel
