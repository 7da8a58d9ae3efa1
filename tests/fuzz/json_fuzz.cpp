// The designs and schemas that tesselsql reads, from any bytes.
#include <sstream>

#include "tests/fuzz/fuzz_input.h"
#include "tools/commands.h"
#include "tools/design_json.h"
#include "tools/schema_json.h"

using namespace tessel;
using fuzz::Check;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    std::istringstream in(bytes);
    std::ostringstream out, err;
    const int status = tools::RunCommand({"compose", "-"}, in, out, err);
    Check(status >= tools::kDone && status <= tools::kUnusable, "the command ends with one of its statuses");
    Check(status == tools::kDone || !err.str().empty(), "whoever fails says why");

    const tools::Json json = tools::Json::parse(bytes, nullptr, false);
    if (json.is_discarded()) return 0;
    static_cast<void>(tools::ReadSchema(json));
    model::Design design;
    if (tools::ReadDesign(json, design)) return 0;
    const tools::Json written = tools::DesignToJson(design);
    model::Design again;
    Check(!tools::ReadDesign(written, again), "what was written is read");
    Check(tools::DesignToJson(again) == written, "and comes back as it went in");
    return 0;
}
