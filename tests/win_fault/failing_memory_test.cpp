// Memory that runs out inside the component, once or for good, at allocations spread over whole sessions and
// over the methods of its classes: the host gets an answer that it may get, no exception reaches it, its
// windows, focus and pointer are as they were, and nothing is kept.
//
// TESSEL_STARVED=number sets how many allocations of a session are struck; `all` strikes each.
#include <windows.h>

#include <commctrl.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <random>

#include "hostkit/drive/input.h"
#include "tests/support/seed.h"
#include "tests/win_fault/designer_session.h"
#include "tests/win_fault/starving_component.h"
#include "ui/views.h"
#include "ui/win32/designer_ids.h"

namespace tessel::tests {
namespace {

constexpr wchar_t kStatement[] =
    L"SELECT Clientes.Nombre, Pedidos.IdPedido FROM Clientes INNER JOIN Pedidos ON Clientes.IdCliente = "
    L"Pedidos.IdCliente WHERE Clientes.Nombre = 'Ana'";

enum class Shortage { Once, ForGood };

SessionStep SelectTab(ui::Tab tab) {
    return [tab](HWND designer) {
        SendMessageW(testing::Descendant(designer, ui::kIdTabs), TCM_SETCURFOCUS, static_cast<WPARAM>(tab),
                     0);
    };
}

class FailingMemory : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(component_.IsLoaded()); }

    /// A session of a user who presses everything and wants his statement, and who gives up at last.
    SessionAnswer RunStarved(long at, Shortage shortage, bool edits = true) {
        const RecordsetClass recordsets(
            [this] { return win32::ComPtr<IDispatch>(SessionRecordset(&statements_).Get()); });
        const win32::ComPtr<_Quillon> quillon = component_.Create<_Quillon>(__uuidof(Quillon));
        host_.Focus();
        statements_.clear();
        needed_memory_ = false;
        std::vector<SessionStep> steps = {PressButton(ui::kIdRunQuery),   SelectTab(ui::Tab::Sql),
                                          PressButton(ui::kIdSyntaxTree), SelectTab(ui::Tab::Design),
                                          PressButton(ui::kIdAccept),     PressButton(ui::kIdAccept),
                                          PressButton(ui::kIdCancel),     PressButton(ui::kIdCancel)};
        if (edits) steps.insert(steps.begin(), PressButton(ui::kIdDistinct));
        steps.push_back([this](HWND designer) {
            component_.Starve(-1, false);
            needed_memory_ = true;
            PostMessageW(designer, WM_CLOSE, 0, 0);
        });
        component_.Starve(at, shortage == Shortage::ForGood);
        const SessionAnswer answer = RunSession(quillon.Get(), connection_.object.Get(), kStatement, steps);
        made_ = component_.AllocationsMade();
        component_.Starve(-1, false);
        return answer;
    }

    /// Sessions with enough memory, which make everything that stays and say what answers are right.
    void Learn() {
        answers_ = {kStatement, RunStarved(-1, Shortage::Once, false).sql};
        for (int i = 0; i < 3; ++i) answers_.push_back(RunStarved(-1, Shortage::Once).sql);
        EXPECT_NE(answers_.back().find(L"DISTINCTROW"), std::wstring::npos);
        EXPECT_FALSE(needed_memory_);
        EXPECT_EQ(statements_.size(), 1u);
        allocations_ = made_;
        held_ = component_.AllocationsHeld();
    }

    void ExpectSound(long at, Shortage shortage) {
        SCOPED_TRACE("allocation " + std::to_string(at) +
                     (shortage == Shortage::Once ? "" : " and all later"));
        const SessionAnswer answer = RunStarved(at, shortage);
        EXPECT_TRUE(answer.result == S_OK || answer.result == E_OUTOFMEMORY) << std::hex << answer.result;
        const bool is_right = std::find(answers_.begin(), answers_.end(), answer.sql) != answers_.end();
        EXPECT_TRUE(is_right || FAILED(answer.result)) << ToUtf8(answer.sql);
        EXPECT_FALSE(answer.log.stuck);
        EXPECT_FALSE(needed_memory_) << "the window could not be closed without memory";
        EXPECT_EQ(host_.Disturbance(), "");
        EXPECT_EQ(component_.CanUnloadNow(), S_OK);
        EXPECT_LE(component_.AllocationsHeld(), held_);
    }

    /// Strikes allocations spread evenly over a session, each somewhere within its share.
    void StrikeSessions(Shortage shortage) {
        Learn();
        const char* asked = std::getenv("TESSEL_STARVED");
        const bool all = asked && std::string(asked) == "all";
        const long strikes = all ? allocations_ : asked ? std::atol(asked) : 20;
        std::mt19937_64 random(Seed());
        for (long i = 0; i < strikes; ++i) {
            const long from = allocations_ * i / strikes, to = allocations_ * (i + 1) / strikes;
            ExpectSound(from + static_cast<long>(random() % static_cast<unsigned long>(to - from)), shortage);
        }
        std::printf("%ld of %ld allocations of a session struck\n", strikes, allocations_);
    }

    StarvingComponent& component_ = StarvingComponent::Instance();
    std::vector<std::wstring> statements_;
    HostWindow host_;
    FakeConnection connection_ = SessionConnection();
    std::vector<std::wstring> answers_;
    bool needed_memory_ = false;
    long made_ = 0;
    long allocations_ = 0;
    long held_ = 0;
};

TEST_F(FailingMemory, ASessionGetsOverOneFailedAllocation) {
    StrikeSessions(Shortage::Once);
}

TEST_F(FailingMemory, ASessionEndsWhereMemoryIsUsedUp) {
    StrikeSessions(Shortage::ForGood);
}

TEST_F(FailingMemory, TheFirstAllocationsOfASession) {
    Learn();
    for (long at = 0; at < 12; ++at) ExpectSound(at, Shortage::Once);
}

TEST_F(FailingMemory, AnObjectThatCannotBeMadeIsRefused) {
    for (const CLSID& clsid : {__uuidof(Quillon), __uuidof(cParameter)}) {
        bool reached = true;
        for (long at = 0; reached; ++at) {
            void* factory = &factory;
            component_.Starve(at, false);
            HRESULT result = component_.GetClassObject(clsid, IID_IClassFactory, &factory);
            void* object = nullptr;
            if (SUCCEEDED(result)) {
                result =
                    static_cast<IClassFactory*>(factory)->CreateInstance(nullptr, IID_IDispatch, &object);
                static_cast<IClassFactory*>(factory)->Release();
            } else {
                EXPECT_EQ(factory, nullptr);
            }
            reached = component_.AllocationsMade() > at;
            component_.Starve(-1, false);
            EXPECT_EQ(result, reached ? E_OUTOFMEMORY : S_OK);
            EXPECT_EQ(object != nullptr, !reached);
            if (object) static_cast<IUnknown*>(object)->Release();
            EXPECT_EQ(component_.CanUnloadNow(), S_OK);
        }
    }
}

/// Calls a method with each of its allocations failing in turn, and looks at what it left when there is
/// memory again. It either refuses or succeeds.
template <class Call, class Look>
void StarveEachAllocation(StarvingComponent& component, const Call& call, const Look& look) {
    bool reached = true;
    long refusals = 0;
    for (long at = 0; reached; ++at) {
        component.Starve(at, false);
        const HRESULT result = call();
        reached = component.AllocationsMade() > at;
        component.Starve(-1, false);
        EXPECT_TRUE(result == S_OK || (reached && result == E_OUTOFMEMORY))
            << at << ": " << std::hex << result;
        look(SUCCEEDED(result));
        refusals += FAILED(result);
    }
    std::printf("%ld calls refused\n", refusals);
}

TEST_F(FailingMemory, PropertiesKeepTheirValue) {
    const auto parameter = component_.Create<_cParameter>(__uuidof(cParameter));
    const win32::Bstr before(L"un nombre que no cabe en poco sitio");
    const win32::Bstr after(L"otro nombre que es más largo y que tampoco cabe en el sitio del primero");
    ASSERT_EQ(parameter->put_Name(before.Get()), S_OK);
    StarveEachAllocation(
        component_, [&] { return parameter->put_Name(after.Get()); },
        [&](bool succeeded) {
            win32::Bstr name;
            EXPECT_EQ(parameter->get_Name(name.Put()), S_OK);
            EXPECT_EQ(name.View(), succeeded ? after.View() : before.View());
        });
}

TEST_F(FailingMemory, LiteralsAreGivenWholeOrNotAtAll) {
    const auto parameter = component_.Create<_cParameter>(__uuidof(cParameter));
    const win32::UniqueVariant value(L"un valor que no cabe en poco sitio");
    ASSERT_EQ(parameter->put_Value(value.Get()), S_OK);
    ASSERT_EQ(parameter->put_eType(win32::Bstr(L"adVarChar").Get()), S_OK);
    BSTR literal = nullptr;
    StarveEachAllocation(
        component_,
        [&] {
            literal = value.Get().bstrVal;  // whatever was there, a failure leaves nothing
            return parameter->SQLExpresion(&literal);
        },
        [&](bool succeeded) {
            EXPECT_EQ(win32::TextOf(literal),
                      succeeded ? std::wstring_view(L"'un valor que no cabe en poco sitio'") : L"");
            SysFreeString(std::exchange(literal, nullptr));
        });
}

TEST_F(FailingMemory, AParameterIsFoundOrTheCallRefused) {
    const auto quillon = component_.Create<_Quillon>(__uuidof(Quillon));
    const FakePtr parameters = MakeCollection({ForeignParameter(L"cliente", L"adVarChar", L"Ana"),
                                               ForeignParameter(L"importe", L"adDouble", L"3")});
    ASSERT_EQ(quillon->putref_ParamCol(parameters.Get()), S_OK);
    BSTR wanted = win32::Bstr(L"Importe").Detach();
    win32::ComPtr<_cParameter> found;
    StarveEachAllocation(
        component_, [&] { return quillon->GetParameter(&wanted, found.Put()); },
        [&](bool succeeded) {
            EXPECT_EQ(static_cast<bool>(found), succeeded);
            SetErrorInfo(0, nullptr);
        });
    SysFreeString(wanted);
}

TEST_F(FailingMemory, ALateBoundCallIsAnsweredOrRefused) {
    const auto parameter = component_.Create<IDispatch>(__uuidof(cParameter));
    const win32::UniqueVariant name(L"un nombre que no cabe en poco sitio");
    VARIANTARG argument = name.Get();
    DISPID put = DISPID_PROPERTYPUT;
    DISPPARAMS call{&argument, &put, 1, 1};
    StarveEachAllocation(
        component_,
        [&] {
            // A method's own failure is told as an exception of the call, which holds it.
            EXCEPINFO exception{};
            const HRESULT result = parameter->Invoke(1, IID{}, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYPUT,
                                                     &call, nullptr, &exception, nullptr);
            SysFreeString(exception.bstrSource);
            SysFreeString(exception.bstrDescription);
            return result == DISP_E_EXCEPTION ? exception.scode : result;
        },
        [](bool) {});
}

}  // namespace
}  // namespace tessel::tests
