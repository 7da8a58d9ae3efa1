// What the analysis makes of a text, in lines that can be compared and printed.
#pragma once

#include <string>
#include <vector>

#include "analyse/analyse_sql.h"

namespace tessel::laws {

struct Reading {
    analyse::Analysis analysis;
    std::vector<std::wstring> lines;  ///< the design's
    std::wstring composed;            ///< empty when refused
};

[[nodiscard]] Reading Read(const std::wstring& text, const schema::Schema* schema);

[[nodiscard]] std::string Print(const std::vector<std::wstring>& lines);
[[nodiscard]] std::string Print(const Reading& reading);

/// What is wrong when an accepted design is composed, read and composed again, or nothing. The second design
/// may differ in what the first composition settles; the third is the second.
[[nodiscard]] std::string Instability(const Reading& first, const schema::Schema* schema);

}  // namespace tessel::laws
