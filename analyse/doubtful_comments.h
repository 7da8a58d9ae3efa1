// Comments that engines delimit in different ways. The design drops comments, which changes the statement for
// an engine that takes part of one for code, or code for a comment.
#pragma once

#include <optional>
#include <string_view>

#include "common/diagnostic.h"

namespace tessel::analyse {

/// The first comment of a parsed text of which it depends on the engine what belongs to it:
/// - a line comment that a carriage return alone ends: some engines only know the line feed;
/// - "--" between two operands without a blank (5--1), which are two signs where comments need a blank or do
/// not
///   exist;
/// - a block comment with the mark of code for one engine, or one that opens another, which nests in some.
[[nodiscard]] std::optional<TextRange> DoubtfulComment(std::wstring_view text);

}  // namespace tessel::analyse
