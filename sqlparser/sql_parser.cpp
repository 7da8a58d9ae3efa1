#include "sqlparser/sql_parser.h"

#include "common/text.h"
#include "sqlparser/grammar.h"
#include "sqlparser/messages.h"

namespace tessel::sql {
namespace {

// Offsets are 32 bits wide.
constexpr std::size_t kLongestText = 0x7FFFFFFF;

}  // namespace

bool SqlParser::Parse(std::wstring_view text) {
    statement_.reset();
    errors_.clear();
    if (text.size() > kLongestText) {
        errors_.push_back(MakeDiagnostic({}, {}, std::wstring(messages::kTooLong)));
        return true;
    }
    Grammar grammar(std::make_shared<const std::wstring>(text), errors_);
    statement_ = grammar.Run();
    return !errors_.empty();
}

}  // namespace tessel::sql
