// The reader of the editor's colouring definition on any file.
#include "controls/editor/sql_ini.h"
#include "tests/fuzz/fuzz_input.h"

using namespace tessel;
using fuzz::Check;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view file(reinterpret_cast<const char*>(data), size);
    const controls::ColouringDefinition definition = controls::ReadSqlIni(file);
    Check(definition == controls::ReadSqlIni(file), "reading twice gives the same");
    Check(definition.points >= 1 && definition.points <= 200, "letters have a size that can be shown");
    Check(!definition.font.empty(), "letters have a font");
    for (const controls::StyleLook& look : definition.looks)
        Check(look.colour.value_or(0) <= 0xFFFFFF && look.background.value_or(0) <= 0xFFFFFF,
              "colours have 24 bits");
    return 0;
}
