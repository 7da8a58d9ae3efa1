#include "tests/laws/reading.h"

#include <algorithm>

#include "common/text.h"
#include "compose/compose.h"
#include "tests/laws/respelling.h"

namespace tessel::laws {

namespace {

const std::wstring kRelation = L"relation ";

/// The design without what the first composition settles: the tables' order, which becomes that of the joins,
/// the direction of inner joins, and the grouping by hidden filters, which every totals query has.
std::vector<std::wstring> SettledLines(const Reading& reading) {
    std::vector<std::wstring> lines;
    for (const std::wstring& text : reading.lines) {
        std::wstring& line = lines.emplace_back(text);
        // Each side of an equality of inner joins is as good as the other.
        const std::size_t sign = line.find(L" = ");
        if (line.starts_with(kRelation) && sign != std::wstring::npos) {
            const std::wstring left = line.substr(kRelation.size(), sign - kRelation.size());
            const std::size_t further = std::min(line.find(L" AND ", sign), line.size());
            const std::wstring right = line.substr(sign + 3, further - sign - 3);
            if (right < left) line = kRelation + right + L" = " + left + line.substr(further);
        }
        static const std::wstring grouped = L"|Agrupado por|No|";
        if (const std::size_t at = line.find(grouped); at != std::wstring::npos) {
            line.replace(at, grouped.size(), L"||No|");
        }
        line = WithoutSpelling(line);
    }
    std::ranges::sort(lines);
    return lines;
}

}  // namespace

Reading Read(const std::wstring& text, const schema::Schema* schema) {
    Reading reading;
    model::Design design;
    design.diagram.Bind(schema);
    reading.analysis = analyse::AnalyseSQL(text, design);
    reading.lines = DesignLines(design);
    if (reading.analysis.accepted) reading.composed = compose::BuildSQL(design);
    return reading;
}

std::string Print(const std::vector<std::wstring>& lines) {
    std::wstring text;
    for (const std::wstring& line : lines) text += L"  " + line + L"\n";
    return ToUtf8(text);
}

std::string Print(const Reading& reading) {
    std::string text = reading.analysis.accepted ? "accepted\n" : "refused\n";
    if (reading.analysis.error) text += ToUtf8(reading.analysis.error->message) + '\n';
    for (const std::wstring& message : reading.analysis.messages) text += ToUtf8(message) + '\n';
    return text + Print(reading.lines);
}

std::string Instability(const Reading& first, const schema::Schema* schema) {
    const Reading second = Read(first.composed, schema);
    if (!second.analysis.accepted || !second.analysis.messages.empty())
        return "is not read back: " + Print(second);
    if (SettledLines(second) != SettledLines(first))
        return "is read back as another design:\n" + Print(second.lines);
    const Reading third = Read(second.composed, schema);
    const bool stays = third.lines == second.lines && third.composed == second.composed;
    return stays ? "" : "becomes\n" + ToUtf8(second.composed) + "\nand then\n" + ToUtf8(third.composed);
}

}  // namespace tessel::laws
