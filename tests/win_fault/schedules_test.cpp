// Sessions under schedules of faults: every automation type instead of the answer that was due, several
// faults at random calls, members that cannot be found, and objects that do something of their own before
// they answer. As everywhere, the host gets an answer that it may get, and finds its windows, its focus, its
// pointer and its references as they were.
//
// TESSEL_FAULTS=all runs each trick at every call, and TESSEL_SESSIONS sets the number of random sessions.
#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <random>

#include "common/win32/dispatch.h"
#include "tests/support/seed.h"
#include "tests/win_fault/designer_session.h"
#include "tests/win_fault/tricks.h"
#include "ui/win32/designer_ids.h"

namespace tessel::tests {
namespace {

constexpr wchar_t kStatement[] =
    L"SELECT Clientes.Nombre, Pedidos.IdPedido FROM (Clientes INNER JOIN Pedidos ON Clientes.IdCliente = "
    L"Pedidos.IdCliente) WHERE Clientes.Nombre = @cliente";

bool RunsAll() {
    const char* asked = std::getenv("TESSEL_FAULTS");
    return asked && std::string(asked) == "all";
}

/// A short session runs the statement; a long one opens everything that there is to open before.
enum class Length { Short, Long };

std::vector<SessionStep> StepsOf(Length length, bool accepts) {
    const SessionStep last = PressButton(accepts ? ui::kIdAccept : ui::kIdCancel);
    if (length == Length::Short) return {PressButton(ui::kIdRunQuery), last};
    return {OpenWholeBrowser(),
            WalkGridRows(),
            PressButton(ui::kIdAddTable),
            PressButton(ui::kIdSyntaxTree),
            ChooseTab(1),
            PressButton(ui::kIdRunQuery),
            ChooseTab(0),
            last};
}

class Schedules : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(ComponentLibrary::Instance().IsLoaded()); }

    SessionAnswer RunUnder(const SharedPlan& plan, bool accepts, Length length) {
        std::vector<std::wstring> statements;
        const RecordsetClass recordsets(
            [&] { return MakeFaulty(SessionRecordset(&statements).Get(), plan); });
        const FakeConnection fake = SessionConnection();
        connection_ = MakeFaulty(fake.object.Get(), plan);
        const std::vector<FakePtr> offered = {ForeignParameter(L"otro", L"adInteger", L"1"),
                                              ForeignParameter(L"cliente", L"adVarChar", L"Ana")};
        const FakePtr parameters =
            length == Length::Short ? MakeCollection(offered) : MakeEnumerable(offered);
        quillon_ = ComponentLibrary::Instance().CreateQuillon();
        quillon_->putref_ParamCol(MakeFaulty(parameters.Get(), plan).Get());
        // What a trick lets go of must live on in the call that runs.
        const SessionAnswer answer =
            RunSession(quillon_.Get(), connection_.Get(), kStatement, StepsOf(length, accepts));
        quillon_.Reset();
        connection_.Reset();
        return answer;
    }

    void Expect(const SharedPlan& plan, bool accepts, Length length = Length::Short) {
        ++sessions_;
        const long counted = win32::ServerCount::Value();
        host_.Focus();
        const SessionAnswer answer = RunUnder(plan, accepts, length);
        SCOPED_TRACE(ToUtf8(plan->struck));
        EXPECT_EQ(answer.result, S_OK);
        EXPECT_FALSE(answer.log.stuck);
        if (answer.sql != kStatement) {
            EXPECT_TRUE(accepts && answer.log.designer_shown);
            EXPECT_NE(answer.sql.find(L"Clientes.Nombre = @cliente"), std::wstring::npos)
                << ToUtf8(answer.sql);
        }
        EXPECT_EQ(host_.Disturbance(), "");
        EXPECT_EQ(win32::ServerCount::Value(), counted) << "references were not given back";
        EXPECT_EQ(ComponentLibrary::Instance().CanUnloadNow(), S_OK);
    }

    /// A session in which nothing happens, for its numbers of calls and of look-ups.
    FaultPlan Undisturbed(Length length) {
        const auto plan = std::make_shared<FaultPlan>();
        Expect(plan, true, length);
        EXPECT_GT(plan->calls, 50);
        return *plan;
    }
    long Calls(Length length = Length::Short) { return Undisturbed(length).calls; }

    void TearDown() override {
        std::printf("%d sessions\n", sessions_);
        std::fflush(stdout);
    }

    HostWindow host_;
    win32::ComPtr<_Quillon> quillon_;
    win32::ComPtr<IDispatch> connection_;
    int sessions_ = 0;
};

TEST_F(Schedules, AnyTypeMayComeInsteadOfTheAnswer) {
    const std::vector<Trick> tricks = AnswerTricks();
    const Length length = RunsAll() ? Length::Long : Length::Short;
    const long calls = Calls(length);
    // In every round each call, of a short run every fifth one, plays another trick.
    const std::size_t rounds = RunsAll() ? tricks.size() : 1;
    for (std::size_t round = 0; round < rounds; ++round) {
        for (long at = 0; at < calls; at += RunsAll() ? 1 : 5) {
            const Trick& trick = tricks[(static_cast<std::size_t>(at) + round) % tricks.size()];
            SCOPED_TRACE("call " + std::to_string(at) + ": " + trick.name);
            const auto plan = std::make_shared<FaultPlan>();
            plan->tricks[at] = trick;
            Expect(plan, at % 2 == 0, length);
        }
        std::printf("round %zu of %zu, %ld calls\n", round + 1, rounds, calls);
        std::fflush(stdout);
    }
}

TEST_F(Schedules, AnyTypeMayComeAgainAndAgain) {
    const std::vector<Trick> tricks = AnswerTricks();
    const long calls = Calls();
    for (std::size_t i = 0; i < tricks.size(); i += RunsAll() ? 1 : 2) {
        const auto plan = std::make_shared<FaultPlan>();
        plan->later_trick = tricks[i];
        plan->tricks_from = static_cast<long>(i * 7) % calls;
        SCOPED_TRACE("from call " + std::to_string(plan->tricks_from) + " on: " + tricks[i].name);
        Expect(plan, i % 4 < 2);
    }
}

TEST_F(Schedules, AMemberMayNotBeFound) {
    constexpr HRESULT kAnswers[] = {E_FAIL, DISP_E_UNKNOWNNAME, E_NOTIMPL, S_OK, RPC_E_DISCONNECTED};
    const long lookups = Undisturbed(Length::Long).lookups;
    const long step = RunsAll() ? 1 : 41;
    for (long at = 0; at < lookups * static_cast<long>(std::size(kAnswers)); at += step) {
        const auto plan = std::make_shared<FaultPlan>();
        plan->lookup_at = at / static_cast<long>(std::size(kAnswers));
        plan->lookup_result = kAnswers[at % static_cast<long>(std::size(kAnswers))];
        SCOPED_TRACE("look-up " + std::to_string(plan->lookup_at) + ": " +
                     std::to_string(plan->lookup_result));
        Expect(plan, at % 2 == 0, Length::Long);
    }
}

TEST_F(Schedules, SeveralFaultsMayComeTogether) {
    std::mt19937_64 random(Seed());
    const char* asked = std::getenv("TESSEL_SESSIONS");
    const int sessions = asked ? std::atoi(asked) : 12;
    const std::vector<Trick> tricks = AnswerTricks();
    const long calls = Calls(Length::Long);
    for (int session = 0; session < sessions && !HasFailure(); ++session) {
        const auto plan = std::make_shared<FaultPlan>();
        std::string described = "session " + std::to_string(session) + ":";
        for (auto faults = 2 + random() % 4; faults > 0; --faults) {
            const long at = static_cast<long>(random() % static_cast<unsigned long>(calls));
            const Trick& trick = tricks[random() % tricks.size()];
            plan->tricks[at] = trick;
            described += " " + std::to_string(at) + " " + trick.name + ";";
        }
        SCOPED_TRACE(described);
        Expect(plan, random() % 2 == 0, Length::Long);
    }
}

/// What the host's own code may do while we wait for its answer.
class Meanwhile : public Schedules {
protected:
    void ExpectAt(
        const char* name, const std::function<void()>& deed,
        const std::function<void()>& afterwards = [] {}) {
        const long calls = Calls(Length::Long);
        const long step = RunsAll() ? 1 : 53;
        for (long at = 0; at < calls; at += step) {
            SCOPED_TRACE(std::string(name) + " at call " + std::to_string(at));
            const auto plan = std::make_shared<FaultPlan>();
            plan->tricks[at] = Trick{name, deed, {}};
            Expect(plan, at % 2 == 0, Length::Long);
            afterwards();
        }
    }

    static void LetMessagesThrough() {
        MSG message{};
        for (int i = 0; i < 2000 && PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE); ++i) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    }
    static BOOL CALLBACK DisturbChild(HWND window, LPARAM) {
        InvalidateRect(window, nullptr, TRUE);
        PostMessageW(window, WM_KEYDOWN, VK_DELETE, 0);
        PostMessageW(window, WM_KEYDOWN, VK_RIGHT, 0);
        PostMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(20, 20));
        PostMessageW(window, WM_LBUTTONUP, 0, MAKELPARAM(20, 20));
        PostMessageW(window, WM_TIMER, 1, 0);
        return TRUE;
    }
    static BOOL CALLBACK Disturb(HWND window, LPARAM) {
        wchar_t name[64] = L"";
        GetClassNameW(window, name, 64);
        if (!std::wstring(name).starts_with(L"Tessel")) return TRUE;
        InvalidateRect(window, nullptr, TRUE);
        for (const WPARAM command :
             {ui::kIdAccept, ui::kIdCancel, ui::kIdRunQuery, ui::kIdClearAll, ui::kIdSyntaxTree})
            PostMessageW(window, WM_COMMAND, command, 0);
        PostMessageW(window, WM_KEYDOWN, VK_RETURN, 0);
        PostMessageW(window, WM_KEYDOWN, VK_ESCAPE, 0);
        PostMessageW(window, WM_CLOSE, 0, 0);
        EnumChildWindows(window, DisturbChild, 0);
        return TRUE;
    }
};

TEST_F(Meanwhile, AnObjectMayCallTheDesignerAgain) {
    ExpectAt("DesingQry again", [this] {
        BSTR text = win32::Bstr(L"SELECT 1").Detach();
        BSTR caption = win32::Bstr(L"").Detach();
        IDispatch* connection = connection_.Get();
        win32::Bstr result;
        EXPECT_EQ(quillon_->DesingQry(&connection, &text, &caption, result.Put()), S_OK);
        EXPECT_EQ(result.View(), L"SELECT 1") << "the one that is open already stays the only one";
        SysFreeString(text);
        SysFreeString(caption);
    });
}

TEST_F(Meanwhile, AnObjectMayAskForAParameterOrLoadTheSchemaAgain) {
    ExpectAt("GetParameter and LoadSchema", [this] {
        BSTR name = win32::Bstr(L"cliente").Detach();
        win32::ComPtr<_cParameter> parameter;
        static_cast<void>(quillon_->GetParameter(&name, parameter.Put()));
        SysFreeString(name);
        win32::ComPtr<IDispatch> schema;
        quillon_->get_CurrentSchema(schema.Put());
        if (schema) static_cast<void>(win32::Dispatch(schema).Call(L"LoadSchema", connection_.Get()));
    });
}

TEST_F(Meanwhile, TheHostMayLetGoOfEverything) {
    ExpectAt("let go", [this] {
        if (!quillon_) return;
        quillon_->putref_ParamCol(nullptr);
        quillon_->putref_CurrentSchema(nullptr);
        quillon_.Reset();
        connection_.Reset();
    });
}

TEST_F(Meanwhile, MessagesMayGoThrough) {
    ExpectAt("messages", [] {
        Sleep(15);  // the driver's timer is due
        LetMessagesThrough();
    });
}

TEST_F(Meanwhile, TheUserMayPressEverythingWhileACallRuns) {
    ExpectAt("gestures", [] {
        EnumThreadWindows(GetCurrentThreadId(), Disturb, 0);
        LetMessagesThrough();
    });
}

TEST_F(Meanwhile, ADesignerThatIsOpenedOutOfAnotherCallOfOursTakesGestures) {
    host_.Focus();
    const win32::ComPtr<_Quillon> outer = ComponentLibrary::Instance().CreateQuillon();
    const FakePtr parameters = MakeFake();
    int opened = 0;
    parameters->On(L"Count", [&](const FakeCall&) {
        ++opened;
        const SessionAnswer answer = RunUnder(std::make_shared<FaultPlan>(), true, Length::Short);
        EXPECT_TRUE(answer.log.designer_shown);
        EXPECT_FALSE(answer.log.stuck);
        EXPECT_EQ(answer.log.previews, 1);
        return Value(0);
    });
    outer->putref_ParamCol(MakeFaulty(parameters.Get(), std::make_shared<FaultPlan>()).Get());
    BSTR name = win32::Bstr(L"cliente").Detach();
    win32::ComPtr<_cParameter> parameter;
    EXPECT_EQ(outer->GetParameter(&name, parameter.Put()), S_OK);
    SysFreeString(name);
    EXPECT_EQ(opened, 1);
    EXPECT_EQ(host_.Disturbance(), "");
}

TEST_F(Meanwhile, TheHostMayShowAMessageOfItsOwn) {
    ExpectAt("a message box", [] {
        // The driver closes it like every other. What had the focus before is the host's business.
        const HWND focus = GetFocus();
        MessageBoxW(nullptr, L"Un aviso del programa", L"Programa", MB_OK);
        SetFocus(focus);
    });
}

BOOL CALLBACK DestroyOurs(HWND window, LPARAM) {
    wchar_t name[64] = L"";
    GetClassNameW(window, name, 64);
    if (std::wstring(name).starts_with(L"Tessel")) DestroyWindow(window);
    return TRUE;
}

TEST_F(Meanwhile, OurWindowsMayBeDestroyed) {
    ExpectAt("destruction", [] { EnumThreadWindows(GetCurrentThreadId(), DestroyOurs, 0); });
}

TEST_F(Meanwhile, TheProgramMayBeToldToEnd) {
    ExpectAt(
        "the end", [] { PostQuitMessage(7); },
        [] {
            MSG message{};
            EXPECT_TRUE(PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE))
                << "the host is told too";
            EXPECT_EQ(message.wParam, 7u);
        });
}

}  // namespace
}  // namespace tessel::tests
