// A set of tables, each by its index in Statement::Tables. Nearly every statement has fewer than 64 of them,
// and then the set is one number.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace tessel::analyse {

class TableSet {
public:
    TableSet() = default;
    /// The tables from `first` up to, not including, `stop`.
    TableSet(int first, int stop) {
        for (int table = first; table < stop; ++table) Insert(table);
    }

    void Insert(int table) {
        if (table < kBits) {
            low_ |= Bit(table);
        } else {
            const auto word = static_cast<std::size_t>(table / kBits) - 1;
            if (high_.size() <= word) high_.resize(word + 1);
            high_[word] |= Bit(table);
        }
    }
    void Insert(const TableSet& tables) {
        if (high_.size() < tables.high_.size()) high_.resize(tables.high_.size());
        low_ |= tables.low_;
        for (std::size_t word = 0; word < tables.high_.size(); ++word) high_[word] |= tables.high_[word];
    }
    void Erase(const TableSet& tables) {
        low_ &= ~tables.low_;
        for (std::size_t word = 0; word < high_.size(); ++word) high_[word] &= ~tables.Word(word);
    }

    [[nodiscard]] bool Has(int table) const {
        const std::uint64_t bits = table < kBits ? low_ : Word(static_cast<std::size_t>(table / kBits) - 1);
        return (bits & Bit(table)) != 0;
    }
    [[nodiscard]] bool HasAll(const TableSet& tables) const {
        TableSet others = tables;
        others.Erase(*this);
        return others.IsEmpty();
    }
    [[nodiscard]] bool HasAny(const TableSet& tables) const {
        TableSet others = tables;
        others.Erase(*this);
        return others.Size() < tables.Size();
    }
    [[nodiscard]] bool IsEmpty() const { return Size() == 0; }
    [[nodiscard]] int Size() const {
        int size = std::popcount(low_);
        for (const std::uint64_t word : high_) size += std::popcount(word);
        return size;
    }
    /// The lowest one of a set that is not empty.
    [[nodiscard]] int First() const {
        int first = 0;
        while (!Has(first)) ++first;
        return first;
    }

private:
    static constexpr int kBits = 64;

    static std::uint64_t Bit(int table) { return std::uint64_t{1} << (table % kBits); }
    std::uint64_t Word(std::size_t word) const { return word < high_.size() ? high_[word] : 0; }

    std::uint64_t low_ = 0;
    std::vector<std::uint64_t> high_;  ///< the tables from the 64th on
};

}  // namespace tessel::analyse
