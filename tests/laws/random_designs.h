// Random designs. Tidy ones are as the designer itself leaves them: hidden columns last and with something to
// do, tables and captions filled in, criteria with their sign. Others hold any word in any cell.
#pragma once

#include "model/design.h"
#include "tests/laws/random_database.h"
#include "tests/laws/random_source.h"

namespace tessel::laws {

void FillTidyDesign(Random& random, const Database& database, model::Design& design);
void FillAnyDesign(Random& random, const Database& database, model::Design& design);

}  // namespace tessel::laws
