// The checks of the table of keys: one for each key that the page names, in a file for each pane.
//
//   const KeyCheck<DesignerKeys> kChecks[] = {
//       {L"F2", L"", [](DesignerKeys& keys) {
//            keys.Open(kStatement);
//            keys.Press();                                              // the key, as the page names it
//            keys.Until([&] { return keys.Grid().IsEditing(); }, "the cell is edited");
//        }},
//       ...
//   };
//   const KeyPane kPane(L"En la cuadrícula", kChecks);
//
// Every check becomes a test of its own, which opens a window of its own. A check may name several keys of
// the same effect, parted by " | "; then each is a test. What stands in the page and not here fails
// KeyTable.EveryKeyHasACheck, and the other way round.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/win_keys/key_table.h"

namespace tessel::testing {

template <class Bench>
struct KeyCheck {
    const wchar_t* keys;   ///< as the page writes them
    const wchar_t* where;  ///< what else the row's cell says
    void (*run)(Bench& bench);
};

/// What the checks say they press.
std::vector<TableKey>& CheckedKeys();
/// The names of a list parted by " | ".
std::vector<std::wstring> KeysOf(std::wstring_view list);
/// A test's name for a key: letters and digits only.
std::string TestName(std::wstring_view key, std::wstring_view where);

/// Makes tests of a pane's checks. `Bench` is a fixture that is constructed from a stroke and a check.
template <class Bench>
class KeyPane {
public:
    template <std::size_t kCount>
    KeyPane(const char* suite, const wchar_t* pane, const KeyCheck<Bench> (&checks)[kCount]) {
        for (const KeyCheck<Bench>& check : checks)
            for (const std::wstring& key : KeysOf(check.keys)) {
                CheckedKeys().push_back({pane, key, check.where});
                const std::string name = TestName(key, check.where);
                ::testing::RegisterTest(suite, name.c_str(), nullptr, nullptr, __FILE__, __LINE__,
                                        [key, run = check.run]() -> Bench* { return new Bench(key, run); });
            }
    }
};

}  // namespace tessel::testing
