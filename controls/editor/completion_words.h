// The words and functions that completion offers, and which words go where. They are those that statements
// hold often; everything else the dialect knows can be typed.
#pragma once

#include <span>
#include <string_view>

#include "controls/editor/statement_outline.h"

namespace tessel::controls {

using Phrases = std::span<const std::wstring_view>;

struct KnownFunction {
    std::wstring_view name;
    bool has_arguments = true;
};

/// In the order of the list: totals first, then by name.
inline constexpr KnownFunction kFunctions[] = {
    {L"Sum"},       {L"Count"},     {L"Avg"},        {L"Min"},       {L"Max"},         {L"Abs"},
    {L"Asc"},       {L"CBool"},     {L"CCur"},       {L"CDate"},     {L"CDbl"},        {L"Chr"},
    {L"CInt"},      {L"CLng"},      {L"Coalesce"},   {L"CStr"},      {L"Date", false}, {L"DateAdd"},
    {L"DateDiff"},  {L"DatePart"},  {L"DateSerial"}, {L"DateValue"}, {L"Day"},         {L"First"},
    {L"Fix"},       {L"Format"},    {L"Hour"},       {L"IIf"},       {L"InStr"},       {L"Int"},
    {L"IsNull"},    {L"IsNumeric"}, {L"Last"},       {L"LCase"},     {L"Left"},        {L"Len"},
    {L"LTrim"},     {L"Mid"},       {L"Minute"},     {L"Month"},     {L"MonthName"},   {L"Now", false},
    {L"Nz"},        {L"Replace"},   {L"Right"},      {L"Round"},     {L"RTrim"},       {L"Second"},
    {L"StDev"},     {L"Str"},       {L"StrComp"},    {L"Switch"},    {L"Time", false}, {L"TimeSerial"},
    {L"TimeValue"}, {L"Trim"},      {L"UCase"},      {L"Val"},       {L"Var"},         {L"Weekday"},
    {L"Year"},
};

inline constexpr std::wstring_view kBeginnings[] = {L"SELECT", L"SELECT DISTINCTROW", L"SELECT TOP",
                                                    L"WITH",   L"PARAMETERS",         L"TRANSFORM"};
inline constexpr std::wstring_view kAfterSelect[] = {L"DISTINCTROW", L"DISTINCT", L"TOP", L"*"};
inline constexpr std::wstring_view kValueWords[] = {L"NOT", L"NULL", L"TRUE", L"FALSE", L"CASE", L"EXISTS"};
inline constexpr std::wstring_view kInCase[] = {L"WHEN", L"THEN", L"ELSE", L"END"};
inline constexpr std::wstring_view kOperators[] = {L"AND",         L"OR",          L"LIKE",    L"NOT LIKE",
                                                   L"IN",          L"NOT IN",      L"BETWEEN", L"IS NULL",
                                                   L"IS NOT NULL", L"NOT BETWEEN", L"XOR",     L"MOD"};

/// What can follow a word that is the first of two; empty when it is none.
[[nodiscard]] Phrases SecondWords(sql::Keyword first);
/// What ends or goes on with the part of the clause that was written: the likely words.
[[nodiscard]] Phrases FirstWordsAfter(OutlineClause clause);
/// The clauses that can follow.
[[nodiscard]] Phrases ClausesAfter(OutlineClause clause);

}  // namespace tessel::controls
