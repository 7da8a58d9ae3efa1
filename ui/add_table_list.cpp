#include "ui/add_table_list.h"

#include "common/identifiers.h"
#include "common/text.h"

namespace tessel::ui {

namespace {

/// Table and fields of one end. A key of several fields shows them all.
std::wstring End(const std::wstring& table, const std::vector<std::wstring>& fields) {
    std::wstring text = table + L".";
    for (std::size_t i = 0; i < fields.size(); ++i) text += (i ? L", " : L"") + fields[i];
    return text;
}

}  // namespace

std::vector<std::wstring> AddTableEntries(const schema::Schema& schema) {
    std::vector<std::wstring> entries = {std::wstring(kAllTablesEntry)};
    for (const schema::Object& object : schema.Objects())
        if (object.kind == schema::ObjectKind::Table) entries.push_back(object.name);
    return entries;
}

std::size_t EntryOf(const std::vector<std::wstring>& entries, std::wstring_view table_name) {
    for (std::size_t i = 0; i < entries.size(); ++i)
        if (SameIdentifier(entries[i], table_name)) return i;
    return 0;
}

std::vector<std::wstring> AddTableLines(const schema::Schema& schema, std::wstring_view entry) {
    std::vector<std::wstring> lines;
    if (entry == kAllTablesEntry) {
        for (const schema::Object& object : schema.Objects()) lines.push_back(object.name + L"\t");
        return lines;
    }
    for (const schema::ForeignKey* key : schema.ForeignKeysOf(entry)) {
        const bool refers = SameIdentifier(key->table, entry);
        const std::wstring& related = refers ? key->referenced_table : key->table;
        lines.push_back(related + L"\t(" + End(key->referenced_table, key->referenced_fields) + L"<--" +
                        End(key->table, key->fields) + L")");
    }
    return lines;
}

std::vector<std::wstring> LinesHolding(const std::vector<std::wstring>& lines, std::wstring_view text) {
    const std::wstring wanted = Folded(text);
    if (wanted.empty()) return lines;
    std::vector<std::wstring> found;
    for (const std::wstring& line : lines)
        if (Lower(TableOfLine(line)).find(wanted) != std::wstring::npos) found.push_back(line);
    return found;
}

// A name may hold a tab of its own, between its brackets.
std::wstring TableOfLine(std::wstring_view line) {
    bool in_brackets = false;
    for (std::size_t i = 0; i < line.size(); ++i) {
        // A bracket that is doubled closes and opens again.
        if (line[i] == (in_brackets ? L']' : L'[')) in_brackets = !in_brackets;
        if (line[i] == L'\t' && !in_brackets) return std::wstring(line.substr(0, i));
    }
    return std::wstring(line);
}

}  // namespace tessel::ui
