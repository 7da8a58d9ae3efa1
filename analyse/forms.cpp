#include "analyse/forms.h"

#include <algorithm>
#include <array>

#include "common/identifiers.h"
#include "common/text.h"

namespace tessel::analyse {

namespace {

// Enough for most statements; both grow.
constexpr std::size_t kFirstSlots = 512;
constexpr std::size_t kFirstTexts = 2048;

constexpr std::size_t kShortName = 64;

constexpr std::uint32_t kSeedOfTexts = 0x811C9DC5u;
constexpr std::uint32_t kSeedOfNodes = 0x5BD1E995u;

std::uint32_t Mixed(std::uint32_t hash, std::uint32_t value) {
    hash = (hash ^ value) * 0x9E3779B1u;
    return hash ^ hash >> 15;
}

std::uint32_t HashOf(std::uint32_t head, std::span<const Form> parts) {
    std::uint32_t hash = Mixed(kSeedOfNodes, head);
    for (const Form part : parts) hash = Mixed(hash, part);
    return hash;
}

// Two characters a step: every step waits for the one before it.
std::uint32_t HashOf(std::wstring_view text) {
    std::uint32_t hash = kSeedOfTexts;
    std::size_t i = 0;
    for (; i + 1 < text.size(); i += 2) {
        hash =
            Mixed(hash, static_cast<std::uint32_t>(text[i]) ^ static_cast<std::uint32_t>(text[i + 1]) << 16);
    }
    return i < text.size() ? Mixed(hash, static_cast<std::uint32_t>(text[i])) : hash;
}

}  // namespace

Forms::Forms() : slots_(kFirstSlots, kNoForm) {
    entries_.reserve(kFirstSlots / 2);
    entries_.emplace_back();
    texts_.reserve(kFirstTexts);
    parts_.reserve(kFirstTexts);
}

void Forms::StartAgain() {
    entries_.resize(1);
    texts_.clear();
    parts_.clear();
    slots_.assign(kFirstSlots, kNoForm);
}

// A bare name, as most are, is its letters in lower case.
Form Forms::Identifier(std::wstring_view name) {
    std::array<wchar_t, kShortName> lower;
    if (name.size() <= lower.size() && !name.empty() && IsIdentifierStart(name.front()) &&
        name.back() != L' ') {
        std::ranges::transform(name, lower.begin(), LowerChar);
        return Text({lower.data(), name.size()});
    }
    std::wstring key;
    AppendIdentifierKey(name, key);
    return Text(key);
}

Form Forms::Text(std::wstring_view text) {
    const std::uint32_t hash = HashOf(text);
    for (std::size_t slot = SlotOf(hash); slots_[slot] != kNoForm;
         slot = SlotOf(static_cast<std::uint32_t>(slot) + 1)) {
        const Entry& entry = entries_[slots_[slot]];
        if (entry.hash == hash && entry.is_text && TextOf(slots_[slot]) == text) return slots_[slot];
    }
    const std::size_t begin = texts_.size();
    texts_ += text;
    return Add({hash, static_cast<std::uint32_t>(begin), static_cast<std::uint32_t>(text.size()), true});
}

Form Forms::Node(std::uint32_t head, std::span<const Form> parts) {
    const std::uint32_t hash = HashOf(head, parts);
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
