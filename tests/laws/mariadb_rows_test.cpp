// What the design says and what the statement says, asked of MariaDB.
#include <gtest/gtest.h>

#include "tests/laws/mariadb_engine.h"
#include "tests/laws/random_source.h"
#include "tests/laws/row_laws.h"

namespace tessel::laws {
namespace {

TEST(RowLaws, AcceptedStatementsGiveTheSameRowsOnMariaDb) {
    MariaDbEngine engine;
    ASSERT_NO_FATAL_FAILURE(engine.Start());
    CheckRows(engine, Rounds(1500));
}

}  // namespace
}  // namespace tessel::laws
