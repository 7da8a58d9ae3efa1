// Canonical forms as numbers: two forms are the same exactly when their numbers are.
//
// A form is a text, or a head with the numbers of its parts in order. Every form that is asked for is looked
// up among those that are there already and gets a number when it is new, so that a form is compared and kept
// as a number however large it is, and whoever builds a form from its parts never writes the parts out again.
// The forms of two statements can be compared when both were made by the same Forms.
//
// What heads mean, and when two statements have the same form, is the business of Canonical and its users.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tessel::analyse {

using Form = std::uint32_t;
/// No form has this number.
inline constexpr Form kNoForm = 0;

class Forms {
public:
    Forms();
    /// Forgets every form; the memory stays for those to come.
    void StartAgain();

    [[nodiscard]] Form Text(std::wstring_view text);
    /// The form of the name's IdentifierKey, which is the text that TextOf gives.
    [[nodiscard]] Form Identifier(std::wstring_view name);
    /// A head with its parts, which may be none. Heads are not mistaken for texts.
    [[nodiscard]] Form Node(std::uint32_t head, std::span<const Form> parts);

    /// The text of a form made by Text or Identifier; it lasts until the next form is made.
    [[nodiscard]] std::wstring_view TextOf(Form form) const;

private:
    struct Entry {
        std::uint32_t hash = 0;
        std::uint32_t begin = 0;  ///< in `texts_` or in `parts_`
        std::uint32_t length = 0;
        bool is_text = false;
    };

    Form Add(const Entry& entry);
    std::size_t SlotOf(std::uint32_t hash) const { return hash & (slots_.size() - 1); }
    void Grow();

    std::vector<Entry> entries_;  ///< by number; the first one is kNoForm
    std::vector<Form> slots_;     ///< open addressing; a power of two
    std::wstring texts_;
    std::vector<std::uint32_t> parts_;  ///< of each node its head and its parts
};

}  // namespace tessel::analyse
