// A list of words that letters of either case find. Reading a colouring definition begins with a copy of the
// built-in lists, so the words stand in one text, in order, and a copy is two allocations.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "common/diagnostic.h"

namespace tessel::controls {

class WordList {
public:
    WordList() = default;
    explicit WordList(std::wstring_view words) { Add(words); }

    /// Adds the words of a text, which blanks or commas part. A word that is there already stays once.
    void Add(std::wstring_view words);
    /// Whether the word, in lower case, is in the list.
    [[nodiscard]] bool Contains(std::wstring_view lower) const;
    [[nodiscard]] std::size_t Size() const { return words_.size(); }
    /// The words in lower case, in the order of their code points.
    [[nodiscard]] std::wstring_view At(std::size_t index) const {
        return std::wstring_view(text_).substr(words_[index].offset, words_[index].length);
    }

    friend bool operator==(const WordList& left, const WordList& right);

private:
    std::wstring text_;
    std::vector<TextRange> words_;  ///< sorted by their text
};

}  // namespace tessel::controls
