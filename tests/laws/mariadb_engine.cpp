#include "tests/laws/mariadb_engine.h"

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <fstream>
#include <sstream>
#include <thread>

#include "common/identifiers.h"
#include "common/text.h"
#include "sqlparser/lexer.h"

namespace tessel::laws {

namespace {

using std::chrono::steady_clock;

constexpr std::chrono::seconds kLongestStart(60);
constexpr std::chrono::milliseconds kPause(20);
constexpr const char* kPrograms[] = {"/usr/sbin/mariadbd", "/usr/bin/mariadbd", "/usr/sbin/mysqld"};

std::wstring InMariaDbWords(std::wstring_view text) {
    std::wstring spelled;
    sql::Lexer lexer(text);
    for (sql::Token token = lexer.Next(); token.kind != sql::TokenKind::End; token = lexer.Next()) {
        const std::wstring_view slice = text.substr(token.begin, token.length);
        if (token.kind == sql::TokenKind::BracketName) {
            spelled += L"`" + Unbracketed(slice) + L"`";
        } else {
            spelled += slice;
        }
    }
    return spelled;
}

}  // namespace

MariaDbEngine::~MariaDbEngine() {
    connection_.reset();
    if (server_ > 0) {
        kill(server_, SIGKILL);  // nothing in its folder is wanted any more
        waitpid(server_, nullptr, 0);
    }
    std::error_code ignored;
    if (!folder_.empty()) std::filesystem::remove_all(folder_, ignored);
}

void MariaDbEngine::Launch() {
    std::string pattern = (std::filesystem::temp_directory_path() / "tessel-laws-XXXXXX").string();
    ASSERT_NE(mkdtemp(pattern.data()), nullptr) << "no private folder for MariaDB at " << pattern;
    folder_ = pattern;
    std::filesystem::create_directory(folder_ / "data");
    const char* program = nullptr;
    for (const char* candidate : kPrograms) {
        if (!program && std::filesystem::exists(candidate)) program = candidate;
    }
    ASSERT_NE(program, nullptr) << "the MariaDB server is not installed (package mariadb-server)";

    std::vector<std::string> arguments = {
        program, "--no-defaults", "--datadir=" + (folder_ / "data").string(),
        "--socket=" + (folder_ / "socket").string(), "--pid-file=" + (folder_ / "pid").string(),
        "--log-error=" + (folder_ / "log").string(), "--tmpdir=" + folder_.string(),
        // Only this process may talk to it, so it needs neither network nor accounts.
        "--skip-networking", "--skip-grant-tables", "--skip-log-bin", "--skip-innodb",
        "--default-storage-engine=MEMORY", "--lower-case-table-names=1", "--character-set-server=utf8mb4",
        "--collation-server=utf8mb4_bin", "--sql-mode=NO_ENGINE_SUBSTITUTION"};
    if (geteuid() == 0) arguments.emplace_back("--user=root");
    std::vector<char*> raw;
    for (std::string& argument : arguments) raw.push_back(argument.data());
    raw.push_back(nullptr);

    const pid_t parent = getpid();
    server_ = fork();
    ASSERT_GE(server_, 0) << "no process for MariaDB";
    if (server_ > 0) return;
    // The server must not outlive a test that dies.
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (getppid() != parent) _exit(1);
    execv(program, raw.data());
    _exit(127);
}

bool MariaDbEngine::HasEnded() {
    if (waitpid(server_, nullptr, WNOHANG) == 0) return false;
    server_ = 0;
    return true;
}

bool MariaDbEngine::Connect() {
    connection_.reset(mysql_init(nullptr));
    mysql_options(connection_.get(), MYSQL_SET_CHARSET_NAME, "utf8mb4");
    const std::string socket = (folder_ / "socket").string();
    return mysql_real_connect(connection_.get(), nullptr, "root", nullptr, nullptr, 0, socket.c_str(), 0);
}

std::string MariaDbEngine::Log() const {
    std::ostringstream text;
    text << std::ifstream(folder_ / "log").rdbuf();
    return text.str();
}

void MariaDbEngine::Start() {
    ASSERT_NO_FATAL_FAILURE(Launch());
    const auto give_up = steady_clock::now() + kLongestStart;
    while (!Connect()) {
        ASSERT_FALSE(HasEnded()) << "MariaDB ended instead of starting:\n" << Log();
        ASSERT_LT(steady_clock::now(), give_up)
            << "MariaDB does not answer: " << mysql_error(connection_.get()) << '\n'
            << Log();
        std::this_thread::sleep_for(kPause);
    }
    // Literals compare as the tables' texts do.
    ASSERT_NO_FATAL_FAILURE(Run(L"SET NAMES utf8mb4 COLLATE utf8mb4_bin"));
}

void MariaDbEngine::Run(const std::wstring& statement) {
    const std::string text = ToUtf8(statement);
    ASSERT_EQ(mysql_real_query(connection_.get(), text.data(), text.size()), 0)
        << text << '\n'
        << mysql_error(connection_.get());
}

void MariaDbEngine::Load(const std::vector<std::wstring>& script) {
    for (const wchar_t* statement : {L"DROP DATABASE IF EXISTS laws", L"CREATE DATABASE laws", L"USE laws"}) {
        ASSERT_NO_FATAL_FAILURE(Run(statement));
    }
    for (const std::wstring& statement : script) ASSERT_NO_FATAL_FAILURE(Run(statement));
}

RowSet MariaDbEngine::Query(std::wstring_view text) {
    RowSet result;
    const std::string spelled = ToUtf8(InMariaDbWords(text));
    struct Freer {
        void operator()(MYSQL_RES* rows) const { mysql_free_result(rows); }
    };
    MYSQL* connection = connection_.get();
    std::unique_ptr<MYSQL_RES, Freer> rows;
    if (mysql_real_query(connection, spelled.data(), spelled.size()) == 0)
        rows.reset(mysql_store_result(connection));
    if (!rows) {
        result.error = mysql_error(connection);
        return result;
    }
    const unsigned columns = mysql_num_fields(rows.get());
    const MYSQL_FIELD* fields = mysql_fetch_fields(rows.get());
    for (unsigned column = 0; column < columns; ++column) result.names.emplace_back(fields[column].name);
    while (const MYSQL_ROW values = mysql_fetch_row(rows.get())) {
        std::vector<std::string> row;
        for (unsigned column = 0; column < columns; ++column) {
            row.emplace_back(values[column] ? values[column] : "∅");
        }
        result.rows.push_back(std::move(row));
    }
    result.prepared = true;
    return result;
}

}  // namespace tessel::laws
