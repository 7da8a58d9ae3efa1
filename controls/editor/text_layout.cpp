#include "controls/editor/text_layout.h"

#include <algorithm>

namespace tessel::controls {

namespace {

bool IsLayout(char ch) {
    return ch == ' ' || ch == '\t' || ch == '\r' || ch == '\n';
}

}  // namespace

std::size_t SamePlace(std::string_view before, std::size_t at, std::string_view after) {
    const std::string_view passed = before.substr(0, std::min(at, before.size()));
    const auto marks = std::count_if(passed.begin(), passed.end(), [](char ch) { return !IsLayout(ch); });
    std::size_t place = 0;
    for (auto left = marks; left > 0 && place < after.size(); ++place)
        if (!IsLayout(after[place])) --left;
    return place;
}

}  // namespace tessel::controls
