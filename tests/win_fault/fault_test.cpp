// A whole session in which one late-bound call misbehaves, for every call and in every way: the host always
// gets an answer that it may get, and finds its windows, its focus and its pointer as they were, and every
// reference given back.
//
// By default every call is struck in one way, which changes from call to call; TESSEL_FAULTS=all strikes each
// in all ways, and TESSEL_FAULTS=N only the Nth.
#include <gtest/gtest.h>

#include <cstdlib>

#include "tests/support/win32/faulty_dispatch.h"
#include "tests/win_fault/designer_session.h"
#include "ui/win32/designer_ids.h"

namespace tessel::tests {
namespace {

constexpr wchar_t kStatement[] =
    L"SELECT Clientes.Nombre FROM Clientes WHERE Clientes.Nombre = @cliente AND Clientes.IdCliente > "
    L"@{minimo}";

/// One session on new objects, with its recordsets, its connection and its parameters under the plan.
SessionAnswer RunUnder(const SharedPlan& plan, bool accepts) {
    std::vector<std::wstring> statements;
    const RecordsetClass recordsets([&] { return MakeFaulty(SessionRecordset(&statements).Get(), plan); });
    const FakeConnection fake = SessionConnection();
    const win32::ComPtr<IDispatch> connection = MakeFaulty(fake.object.Get(), plan);
    const FakePtr parameters = MakeCollection({ForeignParameter(L"cliente", L"adVarChar", L"Ana"),
                                               ForeignParameter(L"{minimo}", L"adInteger", L"3")});
    const win32::ComPtr<_Quillon> quillon = ComponentLibrary::Instance().CreateQuillon();
    quillon->putref_ParamCol(MakeFaulty(parameters.Get(), plan).Get());
    return RunSession(quillon.Get(), connection.Get(), kStatement,
                      {PressButton(ui::kIdRunQuery), PressButton(accepts ? ui::kIdAccept : ui::kIdCancel)});
}

std::string Described(const FaultPlan& plan) {
    constexpr const char* kNames[] = {"fails",      "raises",  "nothing", "null object",
                                      "wrong type", "unknown", "huge",    "negative"};
    return "call " + std::to_string(plan.at) + (plan.from_then_on ? " and all later ones: " : ": ") +
           kNames[static_cast<int>(plan.fault)];
}

class Faults : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(ComponentLibrary::Instance().IsLoaded()); }

    void Expect(const SharedPlan& plan, bool accepts) {
        SCOPED_TRACE(Described(*plan) + (accepts ? ", accepted" : ", cancelled"));
        const long counted = win32::ServerCount::Value();
        host_.Focus();
        const SessionAnswer answer = RunUnder(plan, accepts);
        SCOPED_TRACE(ToUtf8(plan->struck));
        EXPECT_EQ(answer.result, S_OK);
        EXPECT_FALSE(answer.log.stuck);
        if (!accepts || !answer.log.designer_shown)
            EXPECT_EQ(answer.sql, kStatement);
        else
            EXPECT_NE(answer.sql.find(L"Clientes.Nombre = @cliente"), std::wstring::npos);
        if (answer.log.designer_shown) {
            EXPECT_TRUE(answer.caption == L"ventas" || answer.caption == L"Esquema de base de datos" ||
                        plan->fault == Fault::WrongType)
                << std::string(answer.caption.begin(), answer.caption.end());
            EXPECT_GE(answer.log.previews + answer.log.messages.size(), 1u) << "the user is told something";
        }
        EXPECT_EQ(host_.Disturbance(), "");
        EXPECT_EQ(win32::ServerCount::Value(), counted) << "references were not given back";
        EXPECT_EQ(ComponentLibrary::Instance().CanUnloadNow(), S_OK);
    }

    /// The number of calls of a session in which nothing fails.
    long CallsOfAGoodSession() {
        const auto plan = std::make_shared<FaultPlan>();
        host_.Focus();
        const SessionAnswer answer = RunUnder(plan, true);
        EXPECT_EQ(answer.log.previews, 1);
        EXPECT_TRUE(answer.log.messages.empty());
        return plan->calls;
    }

    HostWindow host_;
};

TEST_F(Faults, EveryCallOfASessionMayMisbehave) {
    const char* asked = std::getenv("TESSEL_FAULTS");
    const bool all = asked && std::string(asked) == "all";
    const bool only = asked && !all;
    const long calls = CallsOfAGoodSession();
    ASSERT_GT(calls, 50);
    int sessions = 0;
    for (long at = 0; at < calls; ++at)
        for (const Fault fault : kFaults) {
            if (only && at != std::atol(asked)) continue;
            if (!all && !only && static_cast<long>(fault) != at % static_cast<long>(std::size(kFaults)))
                continue;
            Expect(std::make_shared<FaultPlan>(FaultPlan{fault, at, false}), at % 2 == 0);
            ++sessions;
        }
    std::printf("%ld calls, %d sessions\n", calls, sessions);
}

TEST_F(Faults, EverythingMayGoWrongFromACallOn) {
    const long calls = CallsOfAGoodSession();
    const long step = std::getenv("TESSEL_FAULTS") ? 1 : 7;
    for (long at = 0; at < calls; at += step)
        Expect(std::make_shared<FaultPlan>(FaultPlan{kFaults[at % std::size(kFaults)], at, true}),
               at % 2 == 0);
}

}  // namespace
}  // namespace tessel::tests
