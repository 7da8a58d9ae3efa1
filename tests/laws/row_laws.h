// The run that every engine's test makes: many databases, many statements, one law.
#pragma once

#include "tests/laws/engine.h"

namespace tessel::laws {

/// Judges `rounds` statements on the engine; every difference fails the running test with its seed, both
/// statements and both results. Prints the tally.
void CheckRows(Engine& engine, int rounds);

}  // namespace tessel::laws
