// The half of completion.h that knows no SQL: which candidates match a typed text.
#include <algorithm>

#include "common/text.h"
#include "controls/editor/completion.h"

namespace tessel::controls {

namespace {

// Base letters of U+00E0 to U+00FF; ñ is found by n, as in the schema browser.
constexpr std::wstring_view kBaseLetters = L"aaaaaa\u00E6ceeeeiiii\u00F0nooooo\u00F7ouuuuy\u00FEy";
constexpr wchar_t kFirstAccented = L'\u00E0';
constexpr wchar_t kLastAccented = L'\u00FF';
constexpr std::wstring_view kMarks = L"[]`@{}";

/// How well a candidate matches; less is better.
enum class Rank { Beginning, Word, Inside, No };

bool IsWordEnd(wchar_t ch) {
    return ch == L' ' || ch == L'_' || ch == L'.' || ch == L'-' || ch == L'(' || ch == L'/';
}

Rank RankOf(const Candidate& candidate, std::wstring_view wanted) {
    const std::wstring& search = candidate.search;
    std::size_t at = search.find(wanted);
    if (at == std::wstring::npos) return Rank::No;
    if (at == 0) return Rank::Beginning;
    for (; at != std::wstring::npos; at = search.find(wanted, at + 1))
        if (IsWordEnd(search[at - 1])) return Rank::Word;
    // One letter is in nearly every name.
    return wanted.size() > 1 && candidate.kind != CompletionKind::Keyword ? Rank::Inside : Rank::No;
}

bool IsTypedSmall(std::wstring_view typed) {
    return !typed.empty() &&
           std::none_of(typed.begin(), typed.end(), [](wchar_t ch) { return LowerChar(ch) != ch; });
}

}  // namespace

std::wstring SearchForm(std::wstring_view text) {
    std::wstring form;
    form.reserve(text.size());
    for (wchar_t ch : text) {
        if (kMarks.find(ch) != std::wstring_view::npos) continue;
        ch = LowerChar(ch);
        if (ch >= kFirstAccented && ch <= kLastAccented)
            ch = kBaseLetters[static_cast<std::size_t>(ch - kFirstAccented)];
        form.push_back(ch);
    }
    return form;
}

std::vector<std::size_t> Matching(const std::vector<Candidate>& candidates, std::wstring_view typed) {
    const std::wstring wanted = SearchForm(typed);
    std::vector<std::size_t> by_rank[static_cast<std::size_t>(Rank::No) + 1];
    for (std::size_t i = 0; i < candidates.size(); ++i) {
        const Rank rank = wanted.empty() ? Rank::Beginning : RankOf(candidates[i], wanted);
        by_rank[static_cast<std::size_t>(rank)].push_back(i);
    }
    std::vector<std::size_t> matching;
    for (Rank rank : {Rank::Beginning, Rank::Word, Rank::Inside}) {
        const auto& found = by_rank[static_cast<std::size_t>(rank)];
        matching.insert(matching.end(), found.begin(), found.end());
    }
    return matching;
}

std::wstring InsertedText(const Candidate& candidate, std::wstring_view typed) {
    if (candidate.kind != CompletionKind::Keyword || !IsTypedSmall(typed)) return candidate.text;
    return Lower(candidate.text);
}

}  // namespace tessel::controls
