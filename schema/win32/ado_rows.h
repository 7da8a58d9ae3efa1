// The rows of a recordset that a provider opened for us, read with distrust: a column may be missing, any
// call may fail at any row, and the end may never come. Every such thing ends the walk; what was read before
// stays valid.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "common/win32/dispatch.h"

namespace tessel::schema {

class AdoRows {
public:
    /// More rows than any schema has; a provider that never reports its end stops here.
    static constexpr std::size_t kDefaultLimit = 1'000'000;
    /// The same row that often one after the other is a cursor that does not move.
    static constexpr std::size_t kMostRepeats = 1000;

    /// Takes the answer of the call that opened the recordset.
    explicit AdoRows(const win32::CallResult& opened, std::size_t limit = kDefaultLimit);
    /// Closes the recordset.
    ~AdoRows();
    AdoRows(const AdoRows&) = delete;
    AdoRows& operator=(const AdoRows&) = delete;

    /// The provider gave a recordset. It may still fail at its first row.
    bool IsOpen() const { return static_cast<bool>(fields_); }
    /// Moves to the next row, at first to the first one. False at the end.
    bool Next();
    /// The walk ended by a failure instead of at the end.
    bool Failed() const { return failed_; }
    std::size_t RowsRead() const { return rows_; }

    /// The current row's value of a column; nothing when it is Null, missing or unreadable.
    std::optional<std::wstring> Text(const wchar_t* column) const;
    std::optional<long> Number(const wchar_t* column) const;
    /// "YES" and "NO" count as truth values too.
    std::optional<bool> Boolean(const wchar_t* column) const;

    const win32::Dispatch& Fields() const { return fields_; }

private:
    /// A member of an object that is called for every row: found by its name once.
    struct Member {
        win32::Dispatch object;
        std::optional<DISPID> id;
    };
    /// A column's field object as the first row that was asked had it, and what it said then.
    struct Column {
        const wchar_t* name;
        Member value;
        std::optional<std::wstring> first;
        std::size_t row;
    };
    /// What a field object says after a move: the new row's value, as in ADO, or still that of its own row.
    enum class FieldKind { Unknown, Moves, Stays };

    static Member FindMember(const win32::Dispatch& object, const wchar_t* name);
    static win32::CallResult Call(const Member& member, WORD flags);
    Member FieldOf(const wchar_t* column) const;
    win32::CallResult Value(const wchar_t* column) const;
    win32::CallResult FirstValue(const wchar_t* column) const;
    win32::CallResult ComparedValue(const Column& column) const;
    bool StandsStill();

    win32::Dispatch recordset_;
    win32::Dispatch fields_;
    Member move_next_;
    Member end_;
    mutable std::vector<Column> columns_;
    mutable FieldKind kind_ = FieldKind::Unknown;
    std::size_t limit_;
    std::size_t rows_ = 0;
    // What was read of the current row and of the one before, as numbers.
    mutable std::size_t seen_ = 0;
    std::size_t seen_before_ = 0;
    std::size_t repeats_ = 0;
    bool failed_ = false;
};

}  // namespace tessel::schema
