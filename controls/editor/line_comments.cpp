#include "controls/editor/line_comments.h"

#include <algorithm>
#include <vector>

#include "common/text.h"
#include "controls/editor/sql_colouring.h"

namespace tessel::controls {

namespace {

constexpr std::wstring_view kMark = L"--";

std::size_t IndentOf(std::wstring_view line) {
    std::size_t indent = 0;
    while (indent < line.size() && (line[indent] == L' ' || line[indent] == L'\t')) ++indent;
    return indent;
}

}  // namespace

std::wstring ToggleLineComments(std::wstring_view lines) {
    std::vector<std::wstring_view> pieces;
    while (!lines.empty()) {
        const std::size_t length = LineLength(lines);
        pieces.push_back(lines.substr(0, length));
        lines.remove_prefix(length);
    }
    bool all_comments = true;
    std::size_t indent = std::wstring_view::npos;
    for (std::wstring_view line : pieces) {
        if (IsAllWhiteSpace(line)) continue;
        indent = std::min(indent, IndentOf(line));
        all_comments = all_comments && line.substr(IndentOf(line)).starts_with(kMark);
    }
    std::wstring result;
    for (std::wstring_view line : pieces) {
        if (IsAllWhiteSpace(line)) {
            result += line;
        } else if (all_comments) {
            const std::size_t mark = IndentOf(line);
            std::wstring_view rest = line.substr(mark + kMark.size());
            if (rest.starts_with(L' ')) rest.remove_prefix(1);
            (result += line.substr(0, mark)) += rest;
        } else {
            ((result += line.substr(0, indent)) += kMark) += L' ';
            result += line.substr(indent);
        }
    }
    return result;
}

}  // namespace tessel::controls
