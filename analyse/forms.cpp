#include "analyse/forms.h"

#include <algorithm>

#include "common/identifiers.h"

namespace tessel::analyse {

namespace {

// Enough for most statements; both grow.
constexpr std::size_t kFirstSlots = 512;
constexpr std::size_t kFirstTexts = 2048;

constexpr std::uint32_t kSeedOfTexts = 0x811C9DC5u;
constexpr std::uint32_t kSeedOfNodes = 0x5BD1E995u;

std::uint32_t Mixed(std::uint32_t hash, std::uint32_t value) {
    hash = (hash ^ value) * 0x9E3779B1u;
    return hash ^ hash >> 15;
}

template <class Range>
std::uint32_t HashOf(std::uint32_t seed, const Range& values) {
    std::uint32_t hash = seed;
    for (const auto value : values) hash = Mixed(hash, static_cast<std::uint32_t>(value));
    return hash;
}

}  // namespace

Forms::Forms() : slots_(kFirstSlots, kNoForm) {
    entries_.reserve(kFirstSlots / 2);
    entries_.emplace_back();
    texts_.reserve(kFirstTexts);
    parts_.reserve(kFirstTexts);
}

Form Forms::Text(std::wstring_view text) {
    const std::size_t begin = texts_.size();
    texts_ += text;
    return TakeText(begin);
}

Form Forms::Identifier(std::wstring_view name) {
    const std::size_t begin = texts_.size();
    AppendIdentifierKey(name, texts_);
    return TakeText(begin);
}

/// The form of what stands at the end of `texts_`, which goes again when the form is known.
Form Forms::TakeText(std::size_t begin) {
    const std::wstring_view text = std::wstring_view(texts_).substr(begin);
    const std::uint32_t hash = HashOf(kSeedOfTexts, text);
    for (std::size_t slot = SlotOf(hash); slots_[slot] != kNoForm;
         slot = SlotOf(static_cast<std::uint32_t>(slot) + 1)) {
        const Entry& entry = entries_[slots_[slot]];
        if (entry.hash != hash || !entry.is_text || TextOf(slots_[slot]) != text) continue;
        texts_.resize(begin);
        return slots_[slot];
    }
    return Add({hash, static_cast<std::uint32_t>(begin), static_cast<std::uint32_t>(text.size()), true});
}

Form Forms::Node(std::uint32_t head, std::span<const Form> parts) {
    const std::uint32_t hash = HashOf(Mixed(kSeedOfNodes, head), parts);
    const auto length = static_cast<std::uint32_t>(parts.size() + 1);
    for (std::size_t slot = SlotOf(hash); slots_[slot] != kNoForm;
         slot = SlotOf(static_cast<std::uint32_t>(slot) + 1)) {
        const Entry& entry = entries_[slots_[slot]];
        if (entry.hash != hash || entry.is_text || entry.length != length) continue;
        const auto known = parts_.begin() + entry.begin;
        if (*known == head && std::equal(parts.begin(), parts.end(), known + 1)) return slots_[slot];
    }
    const auto begin = static_cast<std::uint32_t>(parts_.size());
    parts_.push_back(head);
    parts_.insert(parts_.end(), parts.begin(), parts.end());
    return Add({hash, begin, length, false});
}

std::wstring_view Forms::TextOf(Form form) const {
    const Entry& entry = entries_[form];
    return std::wstring_view(texts_).substr(entry.begin, entry.length);
}

Form Forms::Add(const Entry& entry) {
    if (entries_.size() * 2 >= slots_.size()) Grow();
    std::size_t slot = SlotOf(entry.hash);
    while (slots_[slot] != kNoForm) slot = SlotOf(static_cast<std::uint32_t>(slot) + 1);
    slots_[slot] = static_cast<Form>(entries_.size());
    entries_.push_back(entry);
    return slots_[slot];
}

void Forms::Grow() {
    slots_.assign(slots_.size() * 2, kNoForm);
    for (Form form = 1; form < entries_.size(); ++form) {
        std::size_t slot = SlotOf(entries_[form].hash);
        while (slots_[slot] != kNoForm) slot = SlotOf(static_cast<std::uint32_t>(slot) + 1);
        slots_[slot] = form;
    }
}

}  // namespace tessel::analyse
