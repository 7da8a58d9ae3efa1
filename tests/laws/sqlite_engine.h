// SQLite in memory. It reads the designer's dialect but for DISTINCTROW, which is sent as DISTINCT.
#pragma once

#include <sqlite3.h>

#include <memory>

#include "tests/laws/engine.h"

namespace tessel::laws {

class SqliteEngine : public Engine {
public:
    void Load(const std::vector<std::wstring>& script) override;
    [[nodiscard]] RowSet Query(std::wstring_view text) override;

private:
    struct Closer {
        void operator()(sqlite3* connection) const { sqlite3_close(connection); }
    };
    std::unique_ptr<sqlite3, Closer> connection_;
};

}  // namespace tessel::laws
