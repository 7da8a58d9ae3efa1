// A database engine as the laws need it: it runs statements and gives rows as text.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tessel::laws {

struct RowSet {
    bool prepared = false;
    std::string error;
    std::vector<std::string> names;
    std::vector<std::vector<std::string>> rows;  ///< NULL is the text "∅"
};

class Engine {
public:
    virtual ~Engine() = default;
    /// Forgets every table, then runs the statements. An error fails the running test.
    virtual void Load(const std::vector<std::wstring>& script) = 0;
    /// Runs one SELECT of the designer's dialect, in this engine's spelling.
    [[nodiscard]] virtual RowSet Query(std::wstring_view text) = 0;
};

}  // namespace tessel::laws
