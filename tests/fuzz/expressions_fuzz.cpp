// The helpers that read expressions by their characters: outer parentheses, aggregate words, descending
// items.
#include "common/mdl_global.h"
#include "compose/compose.h"
#include "tests/fuzz/fuzz_input.h"

using namespace tessel;
using fuzz::Check;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::wstring text = fuzz::InputText(data, size);
    std::wstring argument = text;
    const Result<std::wstring> stripped = StripOuterParens(argument);
    Check(argument == Trim(text), "the argument is trimmed in place", text, argument);
    if (stripped) {
        Check(stripped->size() <= argument.size(), "nothing is added", text, *stripped);
        Check(argument.find(*stripped) != std::wstring::npos, "what is left stood in the text", text,
              *stripped);
    }
    for (const std::wstring_view word : {L"sum", L"count", L"compute", L"avg", L"min", L"max"})
        if (HasFunctionWord(text, word))
            Check(IsAggregate(text), "a word found makes an aggregate", text, word);
    std::wstring item = text;
    const bool descending = compose::IsDescending(item);
    Check(item == Trim(text), "an item is trimmed in place", text, item);
    std::wstring same = text;
    const std::wstring rest = compose::StripDescending(same);
    Check(rest.size() <= item.size(), "stripping adds nothing", text, rest);
    if (!descending) Check(rest == item, "an ascending item stays", text, rest);
    static_cast<void>(ADOTypeClass(text));
    return 0;
}
