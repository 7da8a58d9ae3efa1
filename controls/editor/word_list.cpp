#include "controls/editor/word_list.h"

#include <algorithm>

#include "common/text.h"

namespace tessel::controls {

void WordList::Add(std::wstring_view words) {
    std::size_t begin = 0;
    const auto parts = [](wchar_t ch) { return IsWhiteSpace(ch) || ch == L','; };
    while (begin < words.size()) {
        std::size_t end = begin;
        while (end < words.size() && !parts(words[end])) ++end;
        if (end > begin) {
            words_.push_back({text_.size(), end - begin});
            for (const wchar_t ch : words.substr(begin, end - begin)) text_.push_back(LowerChar(ch));
        }
        begin = end + 1;
    }
    const auto text_of = [this](TextRange word) {
        return std::wstring_view(text_).substr(word.offset, word.length);
    };
    std::ranges::sort(words_, {}, text_of);
    const auto same = [&text_of](TextRange a, TextRange b) { return text_of(a) == text_of(b); };
    words_.erase(std::unique(words_.begin(), words_.end(), same), words_.end());
}

bool WordList::Contains(std::wstring_view lower) const {
    const auto text_of = [this](TextRange word) {
        return std::wstring_view(text_).substr(word.offset, word.length);
    };
    return std::ranges::binary_search(words_, lower, {}, text_of);
}

bool operator==(const WordList& left, const WordList& right) {
    if (left.Size() != right.Size()) return false;
    for (std::size_t i = 0; i < left.Size(); ++i)
        if (left.At(i) != right.At(i)) return false;
    return true;
}

}  // namespace tessel::controls
