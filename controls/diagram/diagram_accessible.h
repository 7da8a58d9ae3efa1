// The table diagram as assistive programs see it: its tables, each a list of check boxes (the fields, "*"
// first), then its relations, and while a relation is being drawn the line that tells the user what to do.
//
// A table keeps its number while it is on the diagram and gets it back when it returns; a relation's follows
// from its key. The keyboard's place is the model's selection. The texts are in diagram_accessible_texts.h.
#pragma once

#include <string>
#include <unordered_map>
#include <vector>

#include "common/accessible_tree.h"
#include "controls/diagram/diagram_state.h"

namespace tessel::controls::diagram {

/// What the diagram's view does for an assistive program.
class DiagramAccessibleHost {
public:
    virtual void CheckField(const std::wstring& table, const std::wstring& field, bool checked) = 0;
    virtual void OpenRelation(int key) = 0;
    /// Where the line stands that tells the user what to do, in client pixels.
    virtual AccessiblePlace HintPlace() const = 0;

protected:
    ~DiagramAccessibleHost() = default;
};

class DiagramAccessible final : public AccessibleTree {
public:
    DiagramAccessible(DiagramState& state, DiagramAccessibleHost& host) : state_(state), host_(host) {}

    static constexpr AccessibleId kHintId = -1;
    AccessibleId TableId(std::wstring_view table) const;
    /// Row 0 is "*".
    AccessibleId FieldId(std::wstring_view table, int row) const;
    static AccessibleId RelationId(int key);

    bool Has(AccessibleId id) const override;
    AccessibleElement Describe(AccessibleId id) const override;
    AccessibleId ParentOf(AccessibleId id) const override;
    std::vector<AccessibleId> ChildrenOf(AccessibleId id) const override;
    AccessibleId Beside(AccessibleId id, AccessibleDirection direction) const override;
    AccessibleId ElementAt(int x, int y) const override;
    AccessibleId Focused() const override;
    std::vector<AccessibleId> Selected() const override;
    bool Select(AccessibleId id, bool extend) override;
    void Act(AccessibleId id) override;

private:
    enum class Kind { Diagram, Table, Field, Relation, Hint, None };
    struct Part {
        Kind kind = Kind::None;
        int table = -1;
        int row = -1;
        int relation = 0;
    };
    Part PartOf(AccessibleId id) const;
    const model::DiagramTable& TableAt(int index) const;
    AccessibleElement DescribeField(const Part& part) const;
    void SetPlace(const Rect& plane, AccessibleElement& element) const;

    DiagramState& state_;
    DiagramAccessibleHost& host_;
    mutable std::unordered_map<std::wstring, int> numbers_;  ///< of the tables, by key of their names
    mutable std::vector<std::wstring> names_;                ///< by number
};

}  // namespace tessel::controls::diagram
