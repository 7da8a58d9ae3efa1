// What an analysis works with: the parsers of both statements, the table of forms, the design on the way.
//
// Making all that takes longer than analysing a short statement, so a desk is kept and used again. There is
// one spare desk; an analysis that finds it taken, on another thread or inside this one, makes a desk of its
// own, and whichever comes back last is kept. Nothing on it outlasts an analysis but memory.
#pragma once

#include <memory>

#include "analyse/faithfulness.h"
#include "analyse/forms.h"
#include "model/design.h"
#include "sqlparser/sql_parser.h"

namespace tessel::analyse {

struct Desk {
    sql::SqlParser original;
    Composed composed;
    Forms forms;
    model::Design draft;
};

/// A desk for the time of one analysis.
class BorrowedDesk {
public:
    BorrowedDesk();
    /// Gives the desk back, unless a large statement has made it heavy or an exception left it in disorder.
    ~BorrowedDesk();
    BorrowedDesk(const BorrowedDesk&) = delete;
    BorrowedDesk& operator=(const BorrowedDesk&) = delete;

    Desk& operator*() const { return *desk_; }
    Desk* operator->() const { return desk_.get(); }

private:
    std::unique_ptr<Desk> desk_;
    int exceptions_;
};

}  // namespace tessel::analyse
