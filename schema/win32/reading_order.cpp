#include "schema/win32/reading_order.h"

#include <algorithm>
#include <optional>
#include <tuple>

namespace tessel::schema {

namespace {

/// Room for the order key of a name of usual length.
constexpr std::size_t kUsualKeyBytes = 512;
/// Ends the part of a key that holds the letters' own weights; accents and the like follow.
constexpr char kPartEnd = 1;

using Weight = std::uint16_t;

/// The part of a key that accents do not change.
std::string_view MainPart(const std::string& key) {
    return std::string_view(key).substr(0, key.find(kPartEnd));
}

Weight WeightAt(std::string_view bytes, std::size_t at) {
    const auto byte = [&](std::size_t i) {
        return i < bytes.size() ? static_cast<unsigned char>(bytes[i]) : 0u;
    };
    return static_cast<Weight>(byte(at) << 8 | byte(at + 1));
}

/// The weights of letters of the Latin scripts, as the system tells them when one is first met.
class LetterWeights {
public:
    explicit LetterWeights(LCID language)
        : language_(language), weights_(kLetters, kUnknown), follows_(kLetters * kLetters, false) {}

    /// Adds the weights of a name. False, and some of them may have been added, when it has a letter without
    /// a plain weight, or two that the language sorts as one.
    bool Append(std::wstring_view name, std::vector<Weight>* target) {
        std::size_t before = kLetters;
        for (const wchar_t ch : name) {
            const auto letter = static_cast<std::size_t>(ch);
            if (letter >= kLetters) return false;
            if (weights_[letter] == kUnknown) weights_[letter] = AskFor(ch);
            if (weights_[letter] == kNotPlain) return false;
            if (before < kLetters && !follows_[before * kLetters + letter] && !Follows(before, letter))
                return false;
            target->push_back(weights_[letter]);
            before = letter;
        }
        return true;
    }

private:
    static constexpr std::size_t kLetters = 0x180;
    // No letter has these weights: the first byte of one is above kPartEnd.
    static constexpr Weight kUnknown = 0;
    static constexpr Weight kNotPlain = 1;

    Weight AskFor(wchar_t ch) const {
        const std::string key = ReadingOrderKey({&ch, 1}, language_);
        const std::string_view main = MainPart(key);
        return main.size() == sizeof(Weight) ? WeightAt(main, 0) : kNotPlain;
    }

    /// Whether two letters in a row have the weights of each; languages with letters such as "ch" know pairs
    /// that do not.
    bool Follows(std::size_t before, std::size_t letter) {
        const wchar_t pair[] = {static_cast<wchar_t>(before), static_cast<wchar_t>(letter)};
        const std::string key = ReadingOrderKey({pair, 2}, language_);
        const std::string_view main = MainPart(key);
        const bool plain = main.size() == 2 * sizeof(Weight) && WeightAt(main, 0) == weights_[before] &&
                           WeightAt(main, sizeof(Weight)) == weights_[letter];
        if (plain) follows_[before * kLetters + letter] = true;
        return plain;
    }

    LCID language_;
    std::vector<Weight> weights_;
    std::vector<bool> follows_;  ///< pairs that were found plain
};

/// Names as weights, each with its group before and a 0 behind.
struct Weighed {
    std::vector<Weight> weights;
    std::vector<std::uint32_t> begins;

    const Weight* Of(std::uint32_t name) const { return weights.data() + begins[name]; }
};

Weighed Weigh(const std::vector<NameToOrder>& names, LCID language) {
    LetterWeights letters(language);
    Weighed weighed;
    std::size_t characters = 0;
    for (const NameToOrder& name : names) characters += name.name.size();
    weighed.weights.reserve(characters + 2 * names.size());
    weighed.begins.reserve(names.size());
    for (const NameToOrder& name : names) {
        weighed.begins.push_back(static_cast<std::uint32_t>(weighed.weights.size()));
        weighed.weights.push_back(static_cast<Weight>(name.group + 1));
        const std::size_t begin = weighed.weights.size();
        if (!letters.Append(name.name, &weighed.weights)) {
            weighed.weights.resize(begin);
            const std::string key = ReadingOrderKey(name.name, language);
            const std::string_view main = MainPart(key);
            for (std::size_t i = 0; i < main.size(); i += sizeof(Weight))
                weighed.weights.push_back(WeightAt(main, i));
        }
        weighed.weights.push_back(0);
    }
    return weighed;
}

bool IsLess(const Weight* a, const Weight* b) {
    for (; *a == *b; ++a, ++b)
        if (*a == 0) return false;
    return *a < *b;
}

/// A name while names are sorted: its next weights in one number, and where those behind them are.
struct Place {
    std::uint64_t next;
    const Weight* rest;
    std::uint32_t name;
};

constexpr std::size_t kWeightsAtOnce = sizeof(std::uint64_t) / sizeof(Weight);
constexpr int kWeightBits = 16;

/// Takes the weights that come next; behind the last one there are only zeros.
void Advance(Place& place) {
    place.next = 0;
    for (std::size_t i = 0; i < kWeightsAtOnce; ++i) {
        place.next = place.next << kWeightBits | *place.rest;
        if (*place.rest != 0) ++place.rest;
    }
}

bool IsAtEnd(std::uint64_t weights) {
    return (weights & 0xFFFF) == 0;
}

constexpr std::ptrdiff_t kFewNames = 16;

/// Sorts names that agree in the weights before: by those that come next into three parts, of which the
/// middle one agrees in them too. Long beginnings that many names share are so looked at once.
void SortByWeights(Place* first, Place* last) {
    while (last - first > kFewNames) {
        const std::uint64_t a = first->next, b = first[(last - first) / 2].next, c = last[-1].next;
        const std::uint64_t pivot = std::max(std::min(a, b), std::min(std::max(a, b), c));
        Place* const middle =
            std::partition(first, last, [&](const Place& place) { return place.next < pivot; });
        Place* const end =
            std::partition(middle, last, [&](const Place& place) { return place.next == pivot; });
        SortByWeights(first, middle);
        SortByWeights(end, last);
        if (IsAtEnd(pivot)) return;
        first = middle;
        last = end;
        std::for_each(first, last, Advance);
    }
    std::sort(first, last, [](const Place& x, const Place& y) {
        return x.next != y.next ? x.next < y.next : IsLess(x.rest, y.rest);
    });
}

/// Puts names of the same weights into order by the system's keys.
void SortEqualNames(std::uint32_t* first, std::uint32_t* last, const std::vector<NameToOrder>& names,
                    LCID language) {
    struct Keyed {
        std::string name, schema;
        std::uint32_t number;
    };
    std::vector<Keyed> keyed;
    for (const std::uint32_t* at = first; at != last; ++at)
        keyed.push_back(
            {ReadingOrderKey(names[*at].name, language), ReadingOrderKey(names[*at].schema, language), *at});
    std::sort(keyed.begin(), keyed.end(), [](const Keyed& a, const Keyed& b) {
        return std::tie(a.name, a.schema, a.number) < std::tie(b.name, b.schema, b.number);
    });
    std::transform(keyed.begin(), keyed.end(), first, [](const Keyed& entry) { return entry.number; });
}

}  // namespace

std::string ReadingOrderKey(std::wstring_view name, LCID language) {
    constexpr DWORD kFlags = LCMAP_SORTKEY | NORM_IGNORECASE;
    if (name.empty()) return {};
    const int length = static_cast<int>(name.size());
    char usual[kUsualKeyBytes];
    const int bytes = LCMapStringW(language, kFlags, name.data(), length, reinterpret_cast<wchar_t*>(usual),
                                   static_cast<int>(sizeof usual));
    if (bytes > 0) return std::string(usual, static_cast<std::size_t>(bytes));
    const int needed = LCMapStringW(language, kFlags, name.data(), length, nullptr, 0);
    std::string key(static_cast<std::size_t>(std::max(needed, 0)), '\0');
    LCMapStringW(language, kFlags, name.data(), length, reinterpret_cast<wchar_t*>(key.data()), needed);
    return key;
}

std::vector<std::uint32_t> ReadingOrder(const std::vector<NameToOrder>& names, LCID language) {
    const Weighed weighed = Weigh(names, language);
    std::vector<Place> places;
    places.reserve(names.size());
    for (std::uint32_t i = 0; i < names.size(); ++i) Advance(places.emplace_back(Place{0, weighed.Of(i), i}));
    SortByWeights(places.data(), places.data() + places.size());
    std::vector<std::uint32_t> order;
    order.reserve(names.size());
    for (const Place& place : places) order.push_back(place.name);
    for (auto first = order.begin(); first != order.end();) {
        const auto last = std::find_if(first + 1, order.end(), [&](std::uint32_t name) {
            return IsLess(weighed.Of(*first), weighed.Of(name));
        });
        if (last - first > 1) SortEqualNames(&*first, &*first + (last - first), names, language);
        first = last;
    }
    return order;
}

}  // namespace tessel::schema
