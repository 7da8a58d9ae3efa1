#include "controls/editor/completion.h"

#include <algorithm>
#include <set>
#include <unordered_map>
#include <unordered_set>

#include "common/identifiers.h"
#include "common/text.h"
#include "controls/editor/completion_words.h"
#include "controls/editor/statement_outline.h"

namespace tessel::controls {

namespace {

using schema::ForeignKey;
using schema::ObjectKind;
using sql::Keyword;

/// A name with one of these cannot follow "@", since it would end there.
constexpr std::wstring_view kNotInMacro = L" \t\r\n{}[]+-*/<>=!(),:?'&\";.@";

const WordList& KnownFunctionNames() {
    static const WordList names = [] {
        std::wstring all;
        for (const KnownFunction& function : kFunctions) (all += function.name) += L' ';
        return WordList(all);
    }();
    return names;
}

class Completer {
public:
    Completer(std::wstring_view text, const StatementOutline& outline, const CompletionNames& names)
        : text_(text), outline_(outline), place_(outline.place), names_(names) {}

    std::vector<Candidate> Take() {
        if (place_.is_macro) {
            Macros();
        } else if (place_.is_qualified) {
            AfterPoint();
        } else if (place_.clause == OutlineClause::From && place_.wants_table) {
            Tables();
            if (place_.opens_parenthesis) Word(L"SELECT");
        } else if (place_.before != Keyword::As) {
            Anything();
        }
        return std::move(candidates_);
    }

private:
    void Add(CompletionKind kind, std::wstring text, std::wstring_view search) {
        candidates_.push_back({kind, std::move(text), SearchForm(search)});
    }
    void Add(CompletionKind kind, const std::wstring& text) { Add(kind, text, text); }
    void Words(Phrases words) {
        for (std::wstring_view word : words) Word(word);
    }
    void Word(std::wstring_view word) {
        if (used_words_.insert(word).second) Add(CompletionKind::Keyword, std::wstring(word));
    }

    const OutlineScope* ScopeAt(int scope) const {
        return scope == kNoScope ? nullptr : &outline_.scopes[static_cast<std::size_t>(scope)];
    }

    // The one place where fields are asked for: a schema reads those of a table on first use.
    void AppendFields(std::wstring_view table, std::vector<std::wstring>& fields) const {
        if (!names_.schema) return;
        for (const schema::Field& field : names_.schema->Fields(table)) fields.push_back(field.name);
    }

    std::vector<std::wstring> FieldsOf(const OutlineTable& table, int depth = 0) const {
        std::vector<std::wstring> fields;
        if (table.derived != kNoScope) {
            AppendColumns(table.derived, fields, depth);
            return fields;
        }
        for (const OutlineCommonTable& common : outline_.common_tables) {
            if (!SameIdentifier(common.name, table.name)) continue;
            AppendColumns(common.scope, fields, depth);
            return fields;
        }
        AppendFields(table.name, fields);
        return fields;
    }

    void AppendColumns(int scope, std::vector<std::wstring>& fields, int depth) const {
        // A common table may be made of itself.
        constexpr int kDeepest = 8;
        const OutlineScope* select = ScopeAt(scope);
        if (!select || depth > kDeepest) return;
        fields.insert(fields.end(), select->columns.begin(), select->columns.end());
        if (!select->all_fields) return;
        for (const OutlineTable& table : select->tables) {
            const std::vector<std::wstring> more = FieldsOf(table, depth + 1);
            fields.insert(fields.end(), more.begin(), more.end());
        }
    }

    void Macros() {
        for (const std::wstring& name : names_.parameters) {
            const bool in_braces = name.size() > 2 && name.front() == L'{' && name.back() == L'}';
            if (in_braces || (!name.empty() && name.find_first_of(kNotInMacro) == std::wstring::npos))
                Add(CompletionKind::Parameter, L'@' + name, name);
        }
        for (const std::wstring& name : names_.macros) Add(CompletionKind::Macro, L'@' + name, name);
    }

    void Tables() {
        for (const OutlineCommonTable& common : outline_.common_tables)
            Add(CompletionKind::Table, common.name);
        if (!names_.schema) return;
        for (const schema::Object& object : names_.schema->Objects())
            Add(object.kind == ObjectKind::View ? CompletionKind::View : CompletionKind::Table, object.name);
    }

    void AfterPoint() {
        // After FROM a point follows an owner, and what comes is a table.
        if (place_.clause == OutlineClause::From) return Tables();
        const std::wstring key = IdentifierKey(place_.qualifier);
        for (const OutlineScope* scope = ScopeAt(place_.scope); scope; scope = ScopeAt(scope->parent)) {
            for (const OutlineTable& table : scope->tables) {
                if (IdentifierKey(table.CalledAs()) != key) continue;
                return Fields(FieldsOf(table));
            }
        }
        Fields(FieldsOf({place_.qualifier, L"", kNoScope}));
    }

    void Fields(const std::vector<std::wstring>& fields) {
        for (const std::wstring& field : fields) Add(CompletionKind::Field, BracketIfNeeded(field), field);
        if (!fields.empty() && place_.clause == OutlineClause::Select) Add(CompletionKind::Field, L"*");
    }

    /// Between brackets stands a name and nothing else.
    bool IsInBrackets() const {
        return !place_.typed.empty() && (place_.typed.front() == L'[' || place_.typed.front() == L'`');
    }

    void Anything() {
        if (IsInBrackets()) {
            ScopeFields();
            return;
        }
        if (place_.wants_condition) Relations(L"ON ");
        if (const Phrases second = SecondWords(place_.before); !second.empty()) {
            Words(second);
            if (place_.before != Keyword::Not || !place_.wants_value) return;
        }
        if (place_.clause == OutlineClause::None || place_.clause == OutlineClause::With) {
            Words(kBeginnings);
            return;
        }
        if (place_.clause == OutlineClause::From || place_.clause == OutlineClause::Other ||
            !place_.wants_value) {
            WordsAfterValue();
            return;
        }
        if (place_.clause == OutlineClause::On && place_.before == Keyword::On) Relations(L"");
        Values();
    }

    void Values() {
        ScopeFields();
        if (place_.clause == OutlineClause::Select && place_.before == Keyword::Select) Words(kAfterSelect);
        if (place_.in_case) Words(kInCase);
        Functions();
        if (place_.opens_parenthesis) Word(L"SELECT");
        Words(kValueWords);
        Macros();
    }

    void WordsAfterValue() {
        const bool expression = place_.clause != OutlineClause::From && place_.clause != OutlineClause::Other;
        if (place_.wants_condition) Word(L"ON");
        if (place_.in_case) Words(kInCase);
        if (place_.in_select_itself) Words(FirstWordsAfter(place_.clause));
        if (expression) Words(kOperators);
        if (place_.in_select_itself) Words(ClausesAfter(place_.clause));
    }

    void ScopeFields() {
        const OutlineScope* scope = ScopeAt(place_.scope);
        if (place_.clause == OutlineClause::OrderBy && scope)
            for (const std::wstring& title : scope->titles) Add(CompletionKind::Field, title);
        std::unordered_map<std::wstring, int> holders;
        std::vector<std::vector<std::wstring>> fields;
        for (const OutlineScope* s = scope; s; s = ScopeAt(s->parent)) {
            for (const OutlineTable& table : s->tables) {
                fields.push_back(FieldsOf(table));
                std::set<std::wstring> keys;
                for (const std::wstring& field : fields.back()) keys.insert(IdentifierKey(field));
                for (const std::wstring& key : keys) ++holders[key];
            }
        }
        auto of_table = fields.begin();
        bool has_tables = false;
        for (const OutlineScope* s = scope; s; s = ScopeAt(s->parent)) {
            for (const OutlineTable& table : s->tables) {
                has_tables = true;
                for (const std::wstring& field : *of_table++) {
                    const std::wstring name = BracketIfNeeded(field);
                    const bool alone = holders[IdentifierKey(field)] == 1 || table.CalledAs().empty();
                    Add(CompletionKind::Field, alone ? name : table.CalledAs() + L"." + name, field);
                }
            }
        }
        std::unordered_set<std::wstring> called;
        for (const OutlineScope* s = scope; s; s = ScopeAt(s->parent))
            for (const OutlineTable& table : s->tables)
                if (!table.CalledAs().empty() && called.insert(IdentifierKey(table.CalledAs())).second)
                    Add(CompletionKind::Alias, table.CalledAs());
        // Before FROM is written any table can be meant.
        if (!has_tables) Tables();
    }

    void Functions() {
        const std::size_t end = place_.name.End();
        const bool opened = end < text_.size() && text_[end] == L'(';
        const WordList& known = KnownFunctionNames();
        for (const KnownFunction& function : kFunctions) {
            std::wstring text(function.name);
            if (!opened) text += function.has_arguments ? L"(" : L"()";
            Add(CompletionKind::Function, std::move(text), function.name);
        }
        if (!names_.words) return;
        const WordList& further = names_.words->functions;
        for (std::size_t i = 0; i < further.Size(); ++i) {
            if (known.Contains(further.At(i))) continue;
            std::wstring text(further.At(i));
            for (wchar_t& ch : text)
                if (ch >= L'a' && ch <= L'z') ch = static_cast<wchar_t>(ch - L'a' + L'A');
            Add(CompletionKind::Function, opened ? text : text + L"(", text);
        }
    }

    // The foreign keys between the tables on the two sides of the join at hand.
    void Relations(std::wstring_view before) {
        const OutlineScope* scope = ScopeAt(place_.scope);
        if (!scope || !names_.schema) return;
        const std::size_t end = std::min(place_.end_table, scope->tables.size());
        for (std::size_t right = place_.right_table; right < end; ++right)
            for (std::size_t left = place_.first_table; left < place_.right_table; ++left)
                RelationsBetween(scope->tables[left], scope->tables[right], before);
    }

    void RelationsBetween(const OutlineTable& left, const OutlineTable& right, std::wstring_view before) {
        if (left.name.empty() || right.name.empty()) return;
        for (const ForeignKey* key : names_.schema->ForeignKeysOf(right.name)) {
            const auto is = [](const std::wstring& a, const OutlineTable& b) {
                return SameIdentifier(a, b.name);
            };
            if (is(key->table, right) && is(key->referenced_table, left))
                Relation(left, key->referenced_fields, right, key->fields, before);
            if (is(key->table, left) && is(key->referenced_table, right))
                Relation(left, key->fields, right, key->referenced_fields, before);
        }
    }

    void Relation(const OutlineTable& left, const std::vector<std::wstring>& left_fields,
                  const OutlineTable& right, const std::vector<std::wstring>& right_fields,
                  std::wstring_view before) {
        if (left_fields.empty() || left_fields.size() != right_fields.size()) return;
        std::wstring text(before);
        for (std::size_t i = 0; i < left_fields.size(); ++i) {
            if (i > 0) text += L" AND ";
            text += left.CalledAs() + L"." + BracketIfNeeded(left_fields[i]) + L" = ";
            text += right.CalledAs() + L"." + BracketIfNeeded(right_fields[i]);
        }
        Add(CompletionKind::Relation, text);
    }

    std::wstring_view text_;
    const StatementOutline& outline_;
    const CaretPlace& place_;
    const CompletionNames& names_;
    std::vector<Candidate> candidates_;
    std::set<std::wstring_view> used_words_;
};

}  // namespace

Completion Complete(std::wstring_view text, std::size_t caret, const CompletionNames& names) {
    const StatementOutline outline = OutlineOf(text, caret);
    Completion completion;
    completion.replaced = outline.place.name;
    completion.typed = outline.place.typed;
    if (outline.place.can_complete) completion.candidates = Completer(text, outline, names).Take();
    return completion;
}

}  // namespace tessel::controls
