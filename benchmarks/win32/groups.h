// The groups of the window's benchmarks, which window_bench runs by name.
#pragma once

#include <string>

#include "benchmarks/win32/measurements.h"

namespace tessel::bench {

struct Databases {
    std::wstring large_folder;  ///< esquema.db and millon.db
    std::wstring ventas;
};

/// 10,000 tables and 150,000 fields: to the first painted window, beside a plain list of the objects; a key
/// in the search box; a table opened in the browser.
void MeasureSchema(const Databases& databases, Measurements* measurements);
/// The sample database: to the first painted window, and both ways between the tabs with 60 columns.
void MeasureDesigner(const Databases& databases, Measurements* measurements);
/// 200 tables and 400 relations: placing, repainting, dragging a table.
void MeasureDiagram(const Databases& databases, Measurements* measurements);
/// A million rows of ten columns: fetched plainly, and shown in the preview. One process each.
void MeasurePlainFetch(const Databases& databases, Measurements* measurements);
void MeasurePreview(const Databases& databases, Measurements* measurements);

struct Group {
    const wchar_t* name;
    void (*run)(const Databases&, Measurements*);
};

inline constexpr Group kGroups[] = {
    {L"schema", MeasureSchema},          {L"designer", MeasureDesigner},
    {L"diagram", MeasureDiagram},        {L"preview_plain", MeasurePlainFetch},
    {L"preview_window", MeasurePreview},
};

}  // namespace tessel::bench
