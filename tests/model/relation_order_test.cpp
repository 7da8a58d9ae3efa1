// Relations as the user and the schema's keys want them, fitted into an order that composes to what the
// arrows show.
#include "model/relation_order.h"

#include <gtest/gtest.h>

#include <map>
#include <random>
#include <set>

#include "tests/model/sample_schema.h"
#include "tests/support/seed.h"

namespace tessel::model {
namespace {

/// "A>B" keeps A, "A<B" keeps B, "A-B" is inner. Fields have the tables' names in lower case.
DiagramRelation Relation(int key, const std::wstring& text) {
    const wchar_t sign = text[1];
    RelInfo info{text.substr(0, 1), L"x", text.substr(2, 1), L"x"};
    info.JType = sign == L'>' ? kLeftJoin : sign == L'<' ? kRightJoin : kInnerJoin;
    return {key, info};
}

Relations Group(const std::vector<std::wstring>& texts) {
    Relations group;
    for (const std::wstring& text : texts)
        group.push_back(Relation(static_cast<int>(group.size()) + 1, text));
    return group;
}

std::vector<std::wstring> Texts(const Relations& relations) {
    std::vector<std::wstring> texts;
    for (const DiagramRelation& relation : relations) {
        const wchar_t* sign = relation.info.JType == kLeftJoin    ? L">"
                              : relation.info.JType == kRightJoin ? L"<"
                                                                  : L"-";
        texts.push_back(relation.info.LeftTable + sign + relation.info.RightTable);
    }
    return texts;
}

using Order = std::vector<std::wstring>;

TEST(RelationOrder, AnInnerJoinOnATableWhoseRowsMayBeMissingIsNotFaithful) {
    EXPECT_TRUE(IsFaithfulOrder(Group({L"A-B", L"B>C"})));
    EXPECT_FALSE(IsFaithfulOrder(Group({L"A>B", L"B-C"})));
    EXPECT_TRUE(IsFaithfulOrder(Group({L"B-C", L"B<A"})));
}

TEST(RelationOrder, AnOuterJoinReachedFromItsRightTableIsNotFaithful) {
    EXPECT_FALSE(IsFaithfulOrder(Group({L"B-C", L"A>B"})));
}

TEST(RelationOrder, TwoTablesThatKeepTheirRowsAgainstOneHaveNoOrder) {
    EXPECT_FALSE(WithRelation(Group({L"A>B"}), Relation(9, L"C>B")));
}

TEST(RelationOrder, ADrawnOuterJoinReachedFromItsRightTableIsTurnedRound) {
    EXPECT_EQ(Texts(*WithRelation(Group({L"B-C"}), Relation(9, L"A>B"))), Order({L"B-C", L"B<A"}));
    EXPECT_EQ(Texts(*WithRelation(Group({L"B-C"}), Relation(9, L"A<B"))), Order({L"B-C", L"B>A"}));
}

TEST(RelationOrder, AnInnerJoinKeepsItsSides) {
    EXPECT_EQ(Texts(*WithRelation(Group({L"B-C"}), Relation(9, L"A-B"))), Order({L"B-C", L"A-B"}));
}

TEST(RelationOrder, AnInnerJoinComesBeforeTheOuterJoinThatWouldLoseItsRows) {
    EXPECT_EQ(Texts(*WithRelation(Group({L"A>B"}), Relation(9, L"B-C"))), Order({L"B-C", L"B<A"}));
}

TEST(RelationOrder, AKindThatNeedsAnotherOrderGetsIt) {
    EXPECT_EQ(Texts(*WithKind(Group({L"A-B", L"B-C"}), 1, kLeftJoin)), Order({L"B-C", L"B<A"}));
    EXPECT_EQ(Texts(*WithKind(Group({L"A-B", L"B-C"}), 2, kLeftJoin)), Order({L"A-B", L"B>C"}));
    EXPECT_EQ(Texts(*WithKind(Group({L"A-B", L"C-B"}), 2, kLeftJoin)), Order({L"A-B", L"B<C"}));
}

TEST(RelationOrder, TwoGroupsOfInnerJoinsWhoseRowsMayBeMissingHaveNoChain) {
    ASSERT_TRUE(IsFaithfulOrder(Group({L"D-E", L"D<A", L"A>B", L"B>C"})));
    EXPECT_FALSE(WithKind(Group({L"D-E", L"D<A", L"A>B", L"B>C"}), 4, kInnerJoin));
}

TEST(RelationOrder, AnAnalysedOrderThatIsNotFaithfulStays) {
    const Relations group = Group({L"A>B", L"B-C"});
    EXPECT_EQ(Texts(*WithRelation(group, Relation(9, L"D-A"))), Order({L"A>B", L"B-C", L"D-A"}));
    EXPECT_EQ(Texts(*WithKind(group, 2, kLeftJoin)), Order({L"A>B", L"B>C"}));
    EXPECT_FALSE(WithRelation(Group({L"A>B", L"B-C", L"D-E"}), Relation(9, L"C-D")));
}

TEST(RelationOrder, FurtherComparisonsStayBehindTheEqualityAndKeepTheOrder) {
    Relations group = Group({L"B-C"});
    DiagramRelation composite = Relation(9, L"A>B");
    composite.info.RightField = L"x AND A.y = B.y";
    const Relations joined = *WithRelation(group, composite);
    EXPECT_EQ(joined[1].info, (RelInfo{L"B", L"x", L"A", L"x AND A.y = B.y", kRightJoin}));
    EXPECT_FALSE(WithRelation(joined, Relation(10, L"D>B")));
}

TEST(RelationOrder, OtherGroupsStayWhereTheyAre) {
    const Relations relations = Group({L"X-Y", L"A>B", L"Y-Z"});
    EXPECT_EQ(Texts(*WithRelation(relations, Relation(9, L"B-C"))), Order({L"X-Y", L"B-C", L"B<A", L"Y-Z"}));
}

/// Rows of a chain and of the picture, computed independently: which tables have rows of their own in a
/// result row. Every subset of rows matters, so each table has a row for each set of partners that it meets.
class Evaluation {
public:
    /// A table's rows are numbers; two rows of related tables meet when `meets` says so.
    explicit Evaluation(std::mt19937& random) : random_(random) {}

    using Row = std::map<std::wstring, int>;  // 0 is a missing row
    using Rows = std::multiset<Row>;

    bool Meets(const DiagramRelation& relation, int left, int right) {
        const bool turned = relation.info.LeftTable > relation.info.RightTable;
        const auto place = std::make_tuple(relation.key, turned ? right : left, turned ? left : right);
        const auto [found, is_new] = meets_.try_emplace(place, false);
        if (is_new) found->second = random_() % 3 == 0;
        return found->second;
    }

    /// The chain, step by step, as a database joins.
    Rows OfChain(const Relations& chain) {
        Rows rows;
        for (int row = 1; row <= kRows; ++row) rows.insert({{chain[0].info.LeftTable, row}});
        std::set<std::wstring> tables = {chain[0].info.LeftTable};
        for (const DiagramRelation& relation : chain) {
            const bool from_left = tables.contains(relation.info.LeftTable);
            const std::wstring& known = from_left ? relation.info.LeftTable : relation.info.RightTable;
            const std::wstring& added = from_left ? relation.info.RightTable : relation.info.LeftTable;
            Rows next;
            std::set<int> met;
            for (const Row& row : rows) {
                bool any = false;
                for (int other = 1; other <= kRows; ++other) {
                    const int here = row.at(known);
                    if (here == 0 || !Meets(relation, from_left ? here : other, from_left ? other : here))
                        continue;
                    Row joined = row;
                    joined[added] = other;
                    next.insert(joined);
                    met.insert(other);
                    any = true;
                }
                if (!any && relation.info.JType == kLeftJoin) {
                    Row alone = row;
                    alone[added] = 0;
                    next.insert(alone);
                }
            }
            if (relation.info.JType == kRightJoin) {
                for (int other = 1; other <= kRows; ++other) {
                    if (met.contains(other)) continue;
                    Row alone;
                    for (const std::wstring& table : tables) alone[table] = 0;
                    alone[added] = other;
                    next.insert(alone);
                }
            }
            tables.insert(added);
            rows = std::move(next);
        }
        return rows;
    }

    /// The picture: tables connected by inner joins first, then each group's outer joins, from the group that
    /// nothing points at outwards.
    Rows OfPicture(const Relations& relations, const std::wstring& root) {
        Rows rows = OfInner(relations, root);
        const std::set<std::wstring> group = InnerGroup(relations, root);
        for (const DiagramRelation& relation : relations) {
            const std::wstring& kept =
                relation.info.JType == kRightJoin ? relation.info.RightTable : relation.info.LeftTable;
            const std::wstring& other =
                relation.info.JType == kRightJoin ? relation.info.LeftTable : relation.info.RightTable;
            if (relation.info.JType == kInnerJoin || !group.contains(kept)) continue;
            const Rows below = OfPicture(relations, other);
            Rows next;
            for (const Row& row : rows) {
                bool any = false;
                for (const Row& partner : below) {
                    const int a = row.at(kept);
                    const int b = partner.at(other);
                    if (b == 0 || !Meets(relation, kept == relation.info.LeftTable ? a : b,
                                         kept == relation.info.LeftTable ? b : a))
                        continue;
                    Row joined = row;
                    joined.insert(partner.begin(), partner.end());
                    next.insert(joined);
                    any = true;
                }
                if (any) continue;
                Row alone = row;
                for (const std::wstring& table : Below(relations, other)) alone[table] = 0;
                next.insert(alone);
            }
            rows = std::move(next);
        }
        return rows;
    }

private:
    static constexpr int kRows = 3;

    static std::set<std::wstring> InnerGroup(const Relations& relations, const std::wstring& table) {
        std::set<std::wstring> group = {table};
        for (bool grown = true; grown;) {
            grown = false;
            for (const DiagramRelation& relation : relations) {
                if (relation.info.JType != kInnerJoin) continue;
                if (group.contains(relation.info.LeftTable) == group.contains(relation.info.RightTable))
                    continue;
                group.insert(relation.info.LeftTable);
                group.insert(relation.info.RightTable);
                grown = true;
            }
        }
        return group;
    }

    static std::set<std::wstring> Below(const Relations& relations, const std::wstring& table) {
        std::set<std::wstring> below = InnerGroup(relations, table);
        for (bool grown = true; grown;) {
            grown = false;
            for (const DiagramRelation& relation : relations) {
                const bool right = relation.info.JType == kRightJoin;
                const std::wstring& kept = right ? relation.info.RightTable : relation.info.LeftTable;
                const std::wstring& other = right ? relation.info.LeftTable : relation.info.RightTable;
                if (relation.info.JType == kInnerJoin || !below.contains(kept) || below.contains(other))
                    continue;
                below.merge(InnerGroup(relations, other));
                grown = true;
            }
        }
        return below;
    }

    Rows OfInner(const Relations& relations, const std::wstring& table) {
        Rows rows;
        for (int row = 1; row <= kRows; ++row) rows.insert({{table, row}});
        std::set<std::wstring> tables = {table};
        for (bool grown = true; grown;) {
            grown = false;
            for (const DiagramRelation& relation : relations) {
                if (relation.info.JType != kInnerJoin) continue;
                const bool from_left = tables.contains(relation.info.LeftTable);
                if (from_left == tables.contains(relation.info.RightTable)) continue;
                const std::wstring& known = from_left ? relation.info.LeftTable : relation.info.RightTable;
                const std::wstring& added = from_left ? relation.info.RightTable : relation.info.LeftTable;
                Rows next;
                for (const Row& row : rows)
                    for (int other = 1; other <= kRows; ++other) {
                        const int here = row.at(known);
                        if (!Meets(relation, from_left ? here : other, from_left ? other : here)) continue;
                        Row joined = row;
                        joined[added] = other;
                        next.insert(joined);
                    }
                rows = std::move(next);
                tables.insert(added);
                grown = true;
            }
        }
        return rows;
    }

    std::mt19937& random_;
    std::map<std::tuple<int, int, int>, bool> meets_;
};

/// The table from which outer joins lead to all others: the one whose rows are always there.
std::wstring Root(const Relations& relations) {
    std::wstring table = relations[0].info.LeftTable;
    for (bool moved = true; moved;) {
        moved = false;
        std::set<std::wstring> group = {table};
        for (bool grown = true; grown;) {
            grown = false;
            for (const DiagramRelation& relation : relations) {
                if (relation.info.JType != kInnerJoin) continue;
                if (group.contains(relation.info.LeftTable) == group.contains(relation.info.RightTable))
                    continue;
                group.insert(relation.info.LeftTable);
                group.insert(relation.info.RightTable);
                grown = true;
            }
        }
        for (const DiagramRelation& relation : relations) {
            const bool right = relation.info.JType == kRightJoin;
            if (relation.info.JType == kInnerJoin) continue;
            if (!group.contains(right ? relation.info.LeftTable : relation.info.RightTable)) continue;
            table = right ? relation.info.RightTable : relation.info.LeftTable;
            moved = true;
            break;
        }
    }
    return table;
}

TEST(RelationOrder, WhateverIsDrawnAndChangedTheChainGivesTheRowsOfThePicture) {
    std::mt19937 random(static_cast<std::mt19937::result_type>(tests::Seed()));
    int changed = 0;
    int refused = 0;
    for (int round = 0; round < 1000; ++round) {
        const int tables = 2 + static_cast<int>(random() % 5);
        Relations relations;
        for (int i = 1; i < tables; ++i) {
            const std::wstring other(1, static_cast<wchar_t>(L'A' + random() % static_cast<unsigned>(i)));
            const std::wstring mine(1, static_cast<wchar_t>(L'A' + i));
            const wchar_t sign = L"-<>"[random() % 3];
            const bool turned = random() % 2 != 0;
            const auto joined = WithRelation(
                relations, Relation(i, (turned ? mine : other) + sign + (turned ? other : mine)));
            if (!joined) {
                ++refused;
                relations = *WithRelation(relations, Relation(i, other + L">" + mine));
            } else {
                relations = *joined;
            }
        }
        for (int step = 0; step < 3; ++step) {
            const int key = 1 + static_cast<int>(random() % static_cast<unsigned>(tables - 1));
            const auto next = WithKind(relations, key, static_cast<JoinKind>(random() % 3));
            next ? ++changed : ++refused;
            if (next) relations = *next;
            ASSERT_TRUE(IsFaithfulOrder(relations));
            ASSERT_EQ(static_cast<int>(relations.size()), tables - 1);
            Evaluation evaluation(random);
            ASSERT_EQ(evaluation.OfChain(relations), evaluation.OfPicture(relations, Root(relations)))
                << "round " << round;
        }
    }
    EXPECT_GT(changed, 1000);
    EXPECT_GT(refused, 100);
}

class SchemaRelations : public ::testing::Test {
protected:
    SchemaRelations() { diagram_.Bind(&schema_); }
    std::vector<std::wstring> Related() const {
        std::vector<std::wstring> texts;
        for (const DiagramRelation& relation : diagram_.Relations()) {
            const wchar_t* sign = relation.info.JType == kLeftJoin    ? L" > "
                                  : relation.info.JType == kRightJoin ? L" < "
                                                                      : L" = ";
            texts.push_back(relation.info.LeftTable + L"." + relation.info.LeftField + sign +
                            relation.info.RightTable + L"." + relation.info.RightField);
        }
        return texts;
    }

    schema::Schema schema_ = testing_support::SampleSchema();
    Diagram diagram_;
};

TEST_F(SchemaRelations, ATableAddedByTheUserIsRelatedAtOnceToTheTablesAlreadyThere) {
    diagram_.AddTable(L"Clientes", false);
    diagram_.AddTable(L"Empleados", false);
    EXPECT_TRUE(Related().empty());
    diagram_.AddTable(L"Pedidos", false);
    EXPECT_EQ(Related(), Order({L"Clientes.IdCliente = Pedidos.IdCliente",
                                L"Empleados.IdEmpleado = Pedidos.IdEmpleado"}));
}

TEST_F(SchemaRelations, TheReferencedTableMayComeLater) {
    diagram_.AddTable(L"Pedidos", false);
    diagram_.AddTable(L"Clientes", false);
    EXPECT_EQ(Related(), Order({L"Clientes.IdCliente = Pedidos.IdCliente"}));
}

TEST_F(SchemaRelations, ASelfReferenceAddsNone) {
    diagram_.AddTable(L"Empleados", false);
    EXPECT_TRUE(Related().empty());
}

TEST_F(SchemaRelations, ACompositeKeyAddsNone) {
    diagram_.AddTable(L"Almacén", false);
    diagram_.AddTable(L"Existencias", false);
    EXPECT_TRUE(Related().empty());
}

TEST_F(SchemaRelations, NoneIsDoubled) {
    diagram_.AddTable(L"Clientes", false);
    diagram_.AddTable(L"Pedidos", true);
    diagram_.AddRelation({L"Clientes", L"nombre", L"Pedidos", L"nombre"});
    diagram_.RemoveTable(L"Empleados");
    diagram_.AddTable(L"clientes", false);
    diagram_.AddTable(L"[Pedidos]", false);
    EXPECT_EQ(Related(), Order({L"Clientes.nombre = Pedidos.nombre"}));
}

TEST_F(SchemaRelations, TablesOfTheAnalysisGetTheStatementsOwnOnly) {
    diagram_.AddTable(L"Clientes", true);
    diagram_.AddTable(L"Pedidos", true);
    EXPECT_TRUE(Related().empty());
}

TEST_F(SchemaRelations, AJoinThatKeepsRowsStillKeepsThemWhenATableIsAdded) {
    diagram_.AddTable(L"Clientes", false);
    diagram_.AddTable(L"Pedidos", false);
    diagram_.SetRelationKind(diagram_.Relations()[0].key, kLeftJoin);
    diagram_.AddTable(L"Empleados", false);
    EXPECT_EQ(Related(), Order({L"Empleados.IdEmpleado = Pedidos.IdEmpleado",
                                L"Pedidos.IdCliente < Clientes.IdCliente"}));
}

TEST_F(SchemaRelations, WhereNoInnerJoinFitsTheRowsThatAreThereStay) {
    // Two groups of inner joins whose rows may be missing have no chain, so the last table is joined
    // outwards.
    for (const wchar_t* table : {L"A", L"B", L"C", L"Pedidos"}) diagram_.AddTable(table, true);
    ASSERT_EQ(diagram_.Relate({L"A", L"x", L"B", L"x", kLeftJoin}).outcome, RelationOutcome::Done);
    ASSERT_EQ(diagram_.Relate({L"B", L"y", L"C", L"y", kInnerJoin}).outcome, RelationOutcome::Done);
    ASSERT_EQ(diagram_.Relate({L"A", L"z", L"Pedidos", L"nombre", kLeftJoin}).outcome, RelationOutcome::Done);
    diagram_.AddTable(L"Clientes", false);
    EXPECT_EQ(Related().back(), L"Pedidos.IdCliente > Clientes.IdCliente");
    EXPECT_TRUE(IsFaithfulOrder(diagram_.Relations()));
}

TEST_F(SchemaRelations, ARelationThatIsThereOrWouldCloseARingIsNamedAsSuch) {
    for (const wchar_t* table : {L"A", L"B", L"C"}) diagram_.AddTable(table, true);
    const RelationResult first = diagram_.Relate({L"A", L"x", L"B", L"x"});
    ASSERT_EQ(first.outcome, RelationOutcome::Done);
    diagram_.Relate({L"B", L"x", L"C", L"x"});
    const RelationResult again = diagram_.Relate({L"b", L"X", L"a", L"X"});
    EXPECT_EQ(again.outcome, RelationOutcome::AlreadyThere);
    EXPECT_EQ(again.key, first.key);
    EXPECT_EQ(diagram_.Relate({L"C", L"y", L"A", L"y"}).outcome, RelationOutcome::ClosesRing);
    EXPECT_EQ(diagram_.Relate({L"A", L"y", L"B", L"y"}).outcome, RelationOutcome::ClosesRing);
    EXPECT_EQ(diagram_.Relate({L"A", L"y", L"Z", L"y"}).outcome, RelationOutcome::NoTables);
    EXPECT_EQ(diagram_.Relations().size(), 2u);
}

}  // namespace
}  // namespace tessel::model
