#include "sqlparser/sql_parser.h"

#include <utility>

#include "common/text.h"
#include "sqlparser/grammar.h"
#include "sqlparser/messages.h"

namespace tessel::sql {
namespace {

// Offsets are 32 bits wide.
constexpr std::size_t kLongestText = 0x7FFFFFFF;

}  // namespace

bool SqlParser::Parse(std::wstring_view text) {
    std::vector<Node> memory = TakeMemory();
    const bool is_part =
        text_ && text.data() >= text_->data() && text.data() <= text_->data() + text_->size();
    if (text_ && text_.use_count() == 1 && !is_part) {
        text_->assign(text);
    } else {
        text_ = std::make_shared<std::wstring>(text);
    }
    return Analyse(std::move(memory));
}

bool SqlParser::Parse(std::wstring&& text) {
    std::vector<Node> memory = TakeMemory();
    text_ = std::make_shared<std::wstring>(std::move(text));
    return Analyse(std::move(memory));
}

/// Ends the last statement; what its nodes took remains.
std::vector<Node> SqlParser::TakeMemory() {
    std::vector<Node> memory;
    if (statement_) memory.swap(statement_->nodes);
    memory.clear();
    statement_.reset();
    errors_.clear();
    return memory;
}

bool SqlParser::Analyse(std::vector<Node> memory) {
    if (text_->size() > kLongestText) {
        errors_.push_back(MakeDiagnostic({}, {}, std::wstring(messages::kTooLong)));
        return true;
    }
    Grammar grammar(text_, errors_);
    statement_ = grammar.Run(std::move(memory));
    return !errors_.empty();
}

}  // namespace tessel::sql
