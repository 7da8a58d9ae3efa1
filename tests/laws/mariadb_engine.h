// A MariaDB server of the test's own: started in a private folder, reached through a socket in it and through
// nothing else, and stopped with the object or with the process. It knows DISTINCTROW itself; names in
// brackets are sent in back quotes.
#pragma once

#include <mysql.h>
#include <sys/types.h>

#include <filesystem>
#include <memory>

#include "tests/laws/engine.h"

namespace tessel::laws {

class MariaDbEngine : public Engine {
public:
    MariaDbEngine() = default;
    ~MariaDbEngine() override;
    MariaDbEngine(const MariaDbEngine&) = delete;
    MariaDbEngine& operator=(const MariaDbEngine&) = delete;

    /// Starts the server and connects; fails the running test with the server's own words when that cannot be
    /// done.
    void Start();

    void Load(const std::vector<std::wstring>& script) override;
    [[nodiscard]] RowSet Query(std::wstring_view text) override;

private:
    struct Closer {
        void operator()(MYSQL* connection) const { mysql_close(connection); }
    };

    void Launch();
    bool Connect();
    bool HasEnded();
    std::string Log() const;
    void Run(const std::wstring& statement);

    std::filesystem::path folder_;
    pid_t server_ = 0;
    std::unique_ptr<MYSQL, Closer> connection_;
};

}  // namespace tessel::laws
