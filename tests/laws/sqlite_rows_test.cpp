// What the design says and what the statement says, asked of SQLite.
#include <gtest/gtest.h>

#include "tests/laws/random_source.h"
#include "tests/laws/row_laws.h"
#include "tests/laws/sqlite_engine.h"

namespace tessel::laws {
namespace {

TEST(RowLaws, AcceptedStatementsGiveTheSameRowsOnSqlite) {
    SqliteEngine engine;
    CheckRows(engine, Rounds(4000));
}

}  // namespace
}  // namespace tessel::laws
