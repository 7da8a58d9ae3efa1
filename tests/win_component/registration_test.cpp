// Registration in the machine's and in the user's keys. What the keys were before is put back afterwards,
// since other tests of the same prefix may rely on it.
#include <gtest/gtest.h>

#include "tests/win_component/component_library.h"

namespace tessel {
namespace {

using tests::ComponentLibrary;

constexpr wchar_t kQuillonClass[] = L"CLSID\\{9C22745D-E04C-46AE-BDAA-19F34EAF7171}";
constexpr wchar_t kParameterClass[] = L"CLSID\\{D42977C8-E2F9-43B7-B1B1-BDD7222F008B}";
constexpr wchar_t kTypeLibrary[] = L"TypeLib\\{8D742E8F-D2ED-435F-9EAD-1BEE6E8E7A2A}";
constexpr wchar_t kQuillonInterface[] = L"Interface\\{DD505E4F-3EA4-467B-ACB8-A5B722511362}";
constexpr wchar_t kParameterInterface[] = L"Interface\\{698B81CE-365D-4C53-A097-BF15C7BC5910}";
constexpr const wchar_t* kPlatform = sizeof(void*) == 8 ? L"win64" : L"win32";

const std::wstring kTopKeys[] = {kQuillonClass,       kParameterClass,      kTypeLibrary,
                                 kQuillonInterface,   kParameterInterface,  L"Tessel.Quillon",
                                 L"Tessel.Quillon.1", L"Tessel.cParameter", L"Tessel.cParameter.1"};

std::wstring ReadKey(HKEY root, const std::wstring& key, const wchar_t* name = nullptr) {
    wchar_t buffer[1024];
    DWORD size = sizeof buffer;
    const LSTATUS read = RegGetValueW(root, (L"Software\\Classes\\" + key).c_str(), name, RRF_RT_REG_SZ,
                                      nullptr, buffer, &size);
    return read == ERROR_SUCCESS ? buffer : L"(none)";
}

bool Exists(HKEY root, const std::wstring& key) {
    HKEY opened = nullptr;
    if (RegOpenKeyExW(root, (L"Software\\Classes\\" + key).c_str(), 0, KEY_READ, &opened) != ERROR_SUCCESS)
        return false;
    RegCloseKey(opened);
    return true;
}

class Registration : public testing::TestWithParam<bool> {
protected:
    void SetUp() override {
        root_ = GetParam() ? HKEY_CURRENT_USER : HKEY_LOCAL_MACHINE;
        was_registered_ = Exists(root_, kQuillonClass);
        ASSERT_TRUE(SUCCEEDED(Unregister()));
    }
    void TearDown() override {
        if (was_registered_) Register();
    }

    HRESULT Register() {
        return GetParam() ? ComponentLibrary::Instance().Install(true, L"user")
                          : ComponentLibrary::Instance().RegisterServer();
    }
    HRESULT Unregister() {
        return GetParam() ? ComponentLibrary::Instance().Install(false, L"USER")
                          : ComponentLibrary::Instance().UnregisterServer();
    }

    HKEY root_ = nullptr;
    bool was_registered_ = false;
};

TEST_P(Registration, WritesClassesProgIdsAndTypeLibrary) {
    ASSERT_EQ(Register(), S_OK);
    struct Case {
        std::wstring key;
        const wchar_t* name;
        std::wstring value;
    };
    const std::wstring path = tests::ComponentPath();
    const std::wstring library = kTypeLibrary;
    const Case cases[] = {
        {std::wstring(kQuillonClass) + L"\\InprocServer32", nullptr, path},
        {std::wstring(kQuillonClass) + L"\\InprocServer32", L"ThreadingModel", L"Apartment"},
        {std::wstring(kQuillonClass) + L"\\ProgID", nullptr, L"Tessel.Quillon.1"},
        {std::wstring(kQuillonClass) + L"\\VersionIndependentProgID", nullptr, L"Tessel.Quillon"},
        {std::wstring(kQuillonClass) + L"\\TypeLib", nullptr, L"{8D742E8F-D2ED-435F-9EAD-1BEE6E8E7A2A}"},
        {std::wstring(kQuillonClass) + L"\\Version", nullptr, L"1.1"},
        {std::wstring(kParameterClass) + L"\\InprocServer32", nullptr, path},
        {std::wstring(kParameterClass) + L"\\InprocServer32", L"ThreadingModel", L"Apartment"},
        {std::wstring(kParameterClass) + L"\\ProgID", nullptr, L"Tessel.cParameter.1"},
        {L"Tessel.Quillon\\CLSID", nullptr, L"{9C22745D-E04C-46AE-BDAA-19F34EAF7171}"},
        {L"Tessel.Quillon\\CurVer", nullptr, L"Tessel.Quillon.1"},
        {L"Tessel.Quillon.1\\CLSID", nullptr, L"{9C22745D-E04C-46AE-BDAA-19F34EAF7171}"},
        {L"Tessel.cParameter\\CLSID", nullptr, L"{D42977C8-E2F9-43B7-B1B1-BDD7222F008B}"},
        {L"Tessel.cParameter\\CurVer", nullptr, L"Tessel.cParameter.1"},
        {L"Tessel.cParameter.1\\CLSID", nullptr, L"{D42977C8-E2F9-43B7-B1B1-BDD7222F008B}"},
        {library + L"\\1.1\\409\\" + kPlatform, nullptr, path},
        {std::wstring(kQuillonInterface), nullptr, L"_Quillon"},
        {std::wstring(kQuillonInterface) + L"\\TypeLib", nullptr, L"{8D742E8F-D2ED-435F-9EAD-1BEE6E8E7A2A}"},
        {std::wstring(kQuillonInterface) + L"\\TypeLib", L"Version", L"1.1"},
        {std::wstring(kParameterInterface), nullptr, L"_cParameter"},
    };
    for (const Case& c : cases)
        EXPECT_EQ(ToUtf8(ReadKey(root_, c.key, c.name)), ToUtf8(c.value)) << ToUtf8(c.key);
    EXPECT_TRUE(Exists(root_, library + L"\\1.1\\FLAGS"));
    EXPECT_TRUE(SUCCEEDED(Unregister()));
}

TEST_P(Registration, UnregisteringLeavesNothing) {
    ASSERT_EQ(Register(), S_OK);
    for (const std::wstring& key : kTopKeys) EXPECT_TRUE(Exists(root_, key)) << ToUtf8(key);
    EXPECT_EQ(Unregister(), S_OK);
    for (const std::wstring& key : kTopKeys) EXPECT_FALSE(Exists(root_, key)) << ToUtf8(key);
    EXPECT_EQ(Unregister(), S_OK) << "a second time is no failure";
}

TEST_P(Registration, RegisteringTwiceIsRegisteringOnce) {
    ASSERT_EQ(Register(), S_OK);
    EXPECT_EQ(Register(), S_OK);
    EXPECT_EQ(Unregister(), S_OK);
    for (const std::wstring& key : kTopKeys) EXPECT_FALSE(Exists(root_, key)) << ToUtf8(key);
}

TEST_P(Registration, TouchesNoOtherScope) {
    const HKEY other = GetParam() ? HKEY_LOCAL_MACHINE : HKEY_CURRENT_USER;
    bool before[std::size(kTopKeys)];
    for (std::size_t i = 0; i < std::size(kTopKeys); ++i) before[i] = Exists(other, kTopKeys[i]);
    ASSERT_EQ(Register(), S_OK);
    for (std::size_t i = 0; i < std::size(kTopKeys); ++i) EXPECT_EQ(Exists(other, kTopKeys[i]), before[i]);
    EXPECT_EQ(Unregister(), S_OK);
    for (std::size_t i = 0; i < std::size(kTopKeys); ++i) EXPECT_EQ(Exists(other, kTopKeys[i]), before[i]);
}

INSTANTIATE_TEST_SUITE_P(Scopes, Registration, testing::Bool(),
                         [](const testing::TestParamInfo<bool>& param) {
                             return param.param ? std::string("User") : std::string("Machine");
                         });

/// Program identifiers are one set for both architectures, class identifiers a set for each.
TEST(RegistrationForTheMachine, ProgIdsStayUntilTheOtherArchitectureIsUnregisteredToo) {
    const REGSAM other_view = sizeof(void*) == 8 ? KEY_WOW64_32KEY : KEY_WOW64_64KEY;
    const std::wstring classes = L"Software\\Classes\\";
    const bool was_registered = Exists(HKEY_LOCAL_MACHINE, kQuillonClass);
    const ComponentLibrary& library = ComponentLibrary::Instance();
    ASSERT_EQ(library.RegisterServer(), S_OK);
    HKEY other = nullptr;
    const std::wstring other_key = classes + kQuillonClass + L"\\InprocServer32";
    ASSERT_EQ(RegCreateKeyExW(HKEY_LOCAL_MACHINE, other_key.c_str(), 0, nullptr, 0,
                              KEY_ALL_ACCESS | other_view, nullptr, &other, nullptr),
              ERROR_SUCCESS);
    RegCloseKey(other);

    EXPECT_EQ(library.UnregisterServer(), S_OK);
    EXPECT_FALSE(Exists(HKEY_LOCAL_MACHINE, kQuillonClass));
    EXPECT_TRUE(Exists(HKEY_LOCAL_MACHINE, L"Tessel.Quillon"));
    EXPECT_TRUE(Exists(HKEY_LOCAL_MACHINE, L"Tessel.Quillon.1"));
    EXPECT_FALSE(Exists(HKEY_LOCAL_MACHINE, L"Tessel.cParameter")) << "nobody else has this class";

    ASSERT_EQ(RegOpenKeyExW(HKEY_LOCAL_MACHINE, (classes + L"CLSID").c_str(), 0, KEY_ALL_ACCESS | other_view,
                            &other),
              ERROR_SUCCESS);
    RegDeleteTreeW(other, std::wstring(kQuillonClass).substr(6).c_str());
    RegCloseKey(other);
    EXPECT_EQ(library.UnregisterServer(), S_OK);
    EXPECT_FALSE(Exists(HKEY_LOCAL_MACHINE, L"Tessel.Quillon"));
    EXPECT_FALSE(Exists(HKEY_LOCAL_MACHINE, L"Tessel.Quillon.1"));
    if (was_registered) library.RegisterServer();
}

TEST(RegistrationForTheUser, TheOtherArchitecturesPartStays) {
    const std::wstring other = std::wstring(L"Software\\Classes\\") + kTypeLibrary + L"\\1.1\\409\\" +
                               (sizeof(void*) == 8 ? L"win32" : L"win64");
    const bool was_registered = Exists(HKEY_CURRENT_USER, kQuillonClass);
    const ComponentLibrary& library = ComponentLibrary::Instance();
    ASSERT_EQ(library.Install(true, L"user"), S_OK);
    RegSetKeyValueW(HKEY_CURRENT_USER, other.c_str(), nullptr, REG_SZ, L"x", 4);
    EXPECT_EQ(library.Install(false, L"user"), S_OK);
    EXPECT_TRUE(Exists(HKEY_CURRENT_USER, kTypeLibrary));
    EXPECT_TRUE(Exists(HKEY_CURRENT_USER, kQuillonInterface));
    RegDeleteTreeW(HKEY_CURRENT_USER, other.c_str());
    EXPECT_EQ(library.Install(false, L"user"), S_OK);
    EXPECT_FALSE(Exists(HKEY_CURRENT_USER, kTypeLibrary));
    if (!was_registered) return;
    EXPECT_EQ(library.Install(true, L"user"), S_OK);
}

TEST(RegistrationCommandLine, AnUnknownWordIsRefused) {
    EXPECT_EQ(ComponentLibrary::Instance().Install(true, L"todos"), E_INVALIDARG);
}

}  // namespace
}  // namespace tessel
