#include "sqlparser/statement.h"

#include <utility>

namespace tessel::sql {
namespace {

template <class T>
void TakeRoom(std::vector<T>& to, std::vector<T>& from) {
    from.clear();
    to = std::move(from);
}

}  // namespace

void Statement::TakeRoomOf(Statement& old) {
    TakeRoom(Columns, old.Columns);
    TakeRoom(From, old.From);
    TakeRoom(JoinGroups, old.JoinGroups);
    TakeRoom(Tables, old.Tables);
    TakeRoom(GroupItems, old.GroupItems);
    TakeRoom(OrderItems, old.OrderItems);
    TakeRoom(nodes, old.nodes);
}

}  // namespace tessel::sql
