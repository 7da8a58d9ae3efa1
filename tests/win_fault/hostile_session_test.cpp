// The window on schemas and values that nobody would make on purpose: everything is opened, selected, run and
// copied, and the session ends like any other.
#include <windows.h>
#include <gtest/gtest.h>

#include <commctrl.h>

#include <cmath>
#include <cstring>

#include "common/identifiers.h"
#include "common/win32/dispatch.h"
#include "hostkit/drive/input.h"
#include "tests/hostile/hostile_schema.h"
#include "tests/win_fault/designer_session.h"
#include "tests/win_fault/tricks.h"
#include "tests/win_preview/generated_recordset.h"
#include "ui/preview.h"
#include "ui/win32/designer_ids.h"

namespace tessel::tests {
namespace {

using win32::UniqueVariant;

/// A database of the tables with those raw names, each with a field of its own name and one called "id",
/// related in a ring, to themselves and to what is not there.
FakeDatabase DatabaseOf(const std::vector<std::wstring>& names, int fields = 1) {
    FakeDatabase database;
    FakeTable tables{{L"TABLE_NAME", L"TABLE_TYPE"}, {}};
    FakeTable columns{{L"TABLE_NAME", L"COLUMN_NAME", L"ORDINAL_POSITION", L"DATA_TYPE", L"IS_NULLABLE"}, {}};
    FakeTable keys{
        {L"PK_TABLE_NAME", L"PK_COLUMN_NAME", L"FK_TABLE_NAME", L"FK_COLUMN_NAME", L"ORDINAL", L"FK_NAME"},
        {}};
    for (std::size_t i = 0; i < names.size(); ++i) {
        const std::wstring& next = names[(i + 1) % names.size()];
        tables.rows.push_back({names[i], i % 5 == 4 ? L"VIEW" : L"TABLE"});
        columns.rows.push_back({names[i], names[i], L"1", L"202", L"1"});
        for (int field = 0; field < fields; ++field)
            columns.rows.push_back({names[i], L"id" + (field ? std::to_wstring(field) : L""),
                                    std::to_wstring(field + 2), L"3", L"0"});
        keys.rows.push_back({names[i], L"id", next, L"id", L"1", names[i]});
        keys.rows.push_back({names[i], names[i], names[i], L"id", L"1", L"propia"});
        keys.rows.push_back({L"no existe", L"id", names[i], L"id", L"1", L"perdida"});
    }
    database.rowsets[20] = std::move(tables);
    database.rowsets[4] = std::move(columns);
    database.rowsets[27] = std::move(keys);
    database.default_database = L"&Ventas %s \u202e[x]";
    return database;
}

std::wstring PictureFile(const wchar_t* name) {
    wchar_t folder[MAX_PATH] = L"";
    return GetEnvironmentVariableW(L"TESSEL_PICTURES", folder, MAX_PATH) ? std::wstring(folder) + L"\\" + name
                                                                         : L"";
}

class HostileSession : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(ComponentLibrary::Instance().IsLoaded()); }

    SessionAnswer Run(const std::wstring& sql, const std::vector<SessionStep>& steps) {
        const win32::ComPtr<_Quillon> quillon = ComponentLibrary::Instance().CreateQuillon();
        quillon->putref_ParamCol(parameters_.Get());
        host_.Focus();
        const SessionAnswer answer = RunSession(quillon.Get(), connection_.object.Get(), sql, steps);
        EXPECT_EQ(answer.result, S_OK);
        EXPECT_FALSE(answer.log.stuck);
        EXPECT_EQ(host_.Disturbance(), "");
        return answer;
    }

    FakePtr recordset_ = MakeFake();
    RecordsetClass recordsets_{[this] { return win32::ComPtr<IDispatch>(recordset_.Get()); }};
    HostWindow host_;
    FakeConnection connection_ = SessionConnection();
    FakePtr parameters_ = MakeCollection({ForeignParameter(L"a\tb & c %s \u202e", L"adVarChar", L"x")});
};

TEST_F(HostileSession, NamesOfEveryKindAreShownAndComeBackAsTheyWere) {
    std::vector<std::wstring> names;
    for (const testing::NamedText& name : testing::HostileNames()) names.push_back(name.text);
    connection_ = MakeConnection(DatabaseOf(names));
    std::wstring sql = L"SELECT ";
    for (std::size_t i = 0; i < 20; ++i) {
        const std::wstring written = WrittenName(names[i]);
        sql += (i ? L", " : L"") + written + L"." + written;
    }
    sql += L" FROM ";
    for (std::size_t i = 0; i < 20; ++i) sql += (i ? L", " : L"") + WrittenName(names[i]);
    int items = 0;
    const auto look = [&](HWND designer) {
        OpenWholeBrowser (&items)(designer);
        if (const std::wstring file = PictureFile(L"hostile_names.bmp"); !file.empty())
            testing::SavePicture(designer, file);
    };
    const SessionAnswer answer = Run(sql, {look, PressButton(ui::kIdAddTable), PressButton(ui::kIdSyntaxTree),
                                           PressButton(ui::kIdAccept)});
    // The root, two groups, and of every table itself, two fields and its group of relations.
    EXPECT_GE(items, static_cast<int>(3 + 4 * names.size()));
    EXPECT_EQ(answer.log.trees, 1);
    EXPECT_EQ(answer.log.dialogs, 1);
    EXPECT_TRUE(answer.log.messages.empty());
    for (std::size_t i = 0; i < 20; ++i)
        EXPECT_NE(answer.sql.find(WrittenName(names[i])), std::wstring::npos) << ToUtf8(names[i]);
}

TEST_F(HostileSession, NoTablesAtAllLeaveAWindowThatWorks) {
    connection_ = MakeConnection(DatabaseOf({}));
    const SessionAnswer answer = Run(L"", {PressButton(ui::kIdAddTable), PressButton(ui::kIdAccept)});
    EXPECT_EQ(answer.log.dialogs, 1);
}

TEST_F(HostileSession, ATableOfTwoThousandFieldsIsShown) {
    connection_ = MakeConnection(DatabaseOf({L"ancha"}, 2000));
    int items = 0;
    const SessionAnswer answer =
        Run(L"SELECT ancha.id1999 FROM ancha", {OpenWholeBrowser(&items), PressButton(ui::kIdAccept)});
    EXPECT_GE(items, 2000);
    EXPECT_NE(answer.sql.find(L"ancha.id1999"), std::wstring::npos);
}

TEST_F(HostileSession, ARowsetWithoutEndEnds) {
    FakeDatabase database = DatabaseOf({L"a", L"b"});
    for (auto& [number, table] : database.rowsets) table.never_ends = true;
    connection_ = MakeConnection(std::move(database));
    EXPECT_TRUE(Run(L"", {PressButton(ui::kIdCancel)}).log.designer_shown);
}

/// What the other object answers to the same call.
FakeAnswer Forwarded(const FakePtr& object, const wchar_t* member, const FakeCall& call) {
    std::vector<VARIANTARG> reversed;
    for (auto it = call.arguments.rbegin(); it != call.arguments.rend(); ++it) reversed.push_back(**it);
    DISPID id = 0;
    LPOLESTR name = const_cast<LPOLESTR>(member);
    object->GetIDsOfNames({}, &name, 1, 0, &id);
    const win32::CallResult got = win32::Dispatch(object.Get()).InvokeId(id, call.flags, reversed);
    return got ? Value(UniqueVariant::CopyOf(got.Value().Get())) : Fail(got.Code());
}

/// Paints everything anew, and lets the timers go off.
BOOL CALLBACK Stir(HWND window, LPARAM) {
    RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN);
    PostMessageW(window, WM_TIMER, 1, 0);
    return TRUE;
}

/// Errors that never end, each with a text that hardly does.
FakePtr EndlessErrors() {
    const FakePtr error = MakeFake();
    error->Set(L"Source", L"Motor");
    error->On(L"Description", [](const FakeCall&) { return Value(UniqueVariant(std::wstring(5000, L'&'))); });
    error->Set(L"Number", -1);
    error->Set(L"NativeError", 1);
    const FakePtr collection = MakeFake();
    collection->Set(L"Count", LONG_MAX);
    collection->On(L"Item", [error](const FakeCall&) { return Value(ObjectValue(error)); });
    return collection;
}

TEST_F(HostileSession, ErrorsWithoutEndAreReportedAsFarAsAMessageGoes) {
    connection_.object = MakeFake();
    const FakeConnection good = SessionConnection();
    for (const wchar_t* member : {L"State", L"OpenSchema", L"DefaultDatabase", L"Execute"})
        connection_.object->On(
            member, [good, member](const FakeCall& call) { return Forwarded(good.object, member, call); });
    connection_.object->On(L"Errors", [](const FakeCall&) { return Value(ObjectValue(EndlessErrors())); });
    recordset_->On(L"CursorLocation", [](const FakeCall&) { return Value(UniqueVariant()); });
    recordset_->On(L"Open", [](const FakeCall&) { return Raise(E_FAIL, std::wstring(100'000, L'x')); });
    const SessionAnswer answer =
        Run(L"SELECT 1 UNION SELECT 2", {PressButton(ui::kIdRunQuery), PressButton(ui::kIdAccept)});
    ASSERT_EQ(answer.log.messages.size(), 1u);
    EXPECT_LE(answer.log.messages[0].size(), ui::kLongestReport + 1);
}

TEST_F(HostileSession, ParametersWithoutEndAreOfferedAsFarAsTheyCount) {
    const FakePtr parameter = ForeignParameter(L"uno", L"adVarChar", L"x");
    parameters_ = MakeFake();
    parameters_->Set(L"Count", LONG_MAX);
    parameters_->On(L"Item", [parameter](const FakeCall&) { return Value(ObjectValue(parameter)); });
    EXPECT_EQ(Run(L"SELECT t.a FROM t", {PressButton(ui::kIdCancel)}).sql, L"SELECT t.a FROM t");
}

/// A recordset with a column for each trick's answer, and some values of good types that are hard to show.
std::vector<GeneratedColumn> HostileColumns() {
    std::vector<GeneratedColumn> columns;
    const auto add = [&](std::wstring name, std::function<UniqueVariant(LONG)> value) {
        columns.push_back({std::move(name), 202, std::move(value)});
    };
    for (const Trick& trick : AnswerTricks())
        add(L"&" + FromUtf8(trick.name) + L"\t%s", [trick](LONG) {
            UniqueVariant value;
            static_cast<void>(trick.after(value, nullptr));
            return value;
        });
    add(L"", [](LONG) { return UniqueVariant(L"\u05d0\u202e\u200fabc \U0001F600 e\u0301"); });
    add(std::wstring(300, L'n'), [](LONG) { return UniqueVariant(L"&Archivo\t\r\n%n%s"); });
    for (const double date : {-657435.0, 2958466.0, 1e18, -0.5, 0.99999999999, std::nan(""), HUGE_VAL})
        add(L"fecha", [date](LONG) { return UniqueVariant::Date(date); });
    for (const VARTYPE type : {VT_I1, VT_UI1, VT_I2, VT_UI2, VT_I4, VT_UI4, VT_I8, VT_UI8, VT_INT, VT_UINT,
                               VT_R4, VT_R8, VT_CY, VT_BOOL, VT_DECIMAL, VT_ERROR})
        add(L"tipo", [type](LONG) {
            UniqueVariant value;
            std::memset(value.Address(), 0xFF, sizeof(VARIANT));
            value.Address()->vt = type;
            return value;
        });
    return columns;
}

TEST_F(HostileSession, ValuesOfEveryKindAreShownAndCopied) {
    recordset_ = MakeGeneratedRecordset(HostileColumns(), 5);
    recordset_->On(L"CursorLocation", [](const FakeCall&) { return Value(UniqueVariant()); });
    recordset_->On(L"Open", [](const FakeCall&) { return Value(UniqueVariant()); });
    const SessionAnswer answer =
        Run(L"SELECT 1 UNION SELECT 2", {PressButton(ui::kIdRunQuery), PressButton(ui::kIdAccept)});
    EXPECT_EQ(answer.log.previews, 1);
    EXPECT_TRUE(answer.log.messages.empty())
        << ToUtf8(answer.log.messages.empty() ? L"" : answer.log.messages[0]);
}

TEST_F(HostileSession, ReadingRowsMayLetTheWindowPaintAndTheUserPress) {
    FakePtr rows = MakeGeneratedRecordset(NumberedColumns(), 5000);
    // The same recordset, which lets messages through while it reads.
    recordset_ = MakeFake();
    for (const wchar_t* member : {L"State", L"Fields", L"RecordCount", L"AbsolutePosition", L"GetRows"})
        recordset_->On(member, [rows, member](const FakeCall& call) {
            EnumThreadWindows(GetCurrentThreadId(), Stir, 0);
            MSG message{};
            for (int i = 0; i < 50 && PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE); ++i)
                DispatchMessageW(&message);
            return Forwarded(rows, member, call);
        });
    recordset_->On(L"CursorLocation", [](const FakeCall&) { return Value(UniqueVariant()); });
    recordset_->On(L"Open", [](const FakeCall&) { return Value(UniqueVariant()); });
    EXPECT_EQ(Run(L"SELECT 1 UNION SELECT 2", {PressButton(ui::kIdRunQuery), PressButton(ui::kIdAccept)})
                  .log.previews,
              1);
}

}  // namespace
}  // namespace tessel::tests
