// The database on which the targets look at statements: a few tables whose names and fields are in the
// dictionary and in the corpus.
#pragma once

#include "tests/laws/random_database.h"

namespace tessel::fuzz {

[[nodiscard]] const laws::Database& SampleDatabase();
[[nodiscard]] const schema::Schema& SampleSchema();

}  // namespace tessel::fuzz
