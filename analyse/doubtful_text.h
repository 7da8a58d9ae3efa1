// Comments, blanks and numbers that engines delimit in different ways. The design drops comments and writes
// blanks anew, which changes the statement for an engine that takes part of a comment for code, code for a
// comment, or a blank for a letter.
#pragma once

#include "analyse/refusal.h"

namespace tessel::analyse {

/// Refuses the first place of a parsed text of which it depends on the engine what it means:
/// - a line comment that a carriage return alone ends: some engines only know the line feed;
/// - "--" between two operands without a blank (5--1), which are two signs where comments need a blank or do
/// not
///   exist;
/// - a block comment with the mark of code for one engine, or one that opens another, which nests in some;
/// - a word that follows a number without a blank (1AND b): one invalid token for some;
/// - a null character, where many stop reading;
/// - a blank that is none of ASCII's, or a vertical tab: part of a name for some, invalid for others.
[[nodiscard]] Outcome CheckText(const sql::Statement& statement);

}  // namespace tessel::analyse
