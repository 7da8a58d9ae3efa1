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
    std::unique_ptr<Statement> next = EndLast();
    const bool is_part =
        text_ && text.data() >= text_->data() && text.data() <= text_->data() + text_->size();
    if (text_ && text_.use_count() == 1 && !is_part) {
        text_->assign(text);
    } else {
        text_ = std::make_shared<std::wstring>(text);
    }
    return Analyse(std::move(next));
}

bool SqlParser::Parse(std::wstring&& text) {
    std::unique_ptr<Statement> next = EndLast();
    text_ = std::make_shared<std::wstring>(std::move(text));
    return Analyse(std::move(next));
}

/// Ends the last statement. An empty one takes over the room of its lists.
std::unique_ptr<Statement> SqlParser::EndLast() {
    errors_.clear();
    auto next = std::make_unique<Statement>();
    if (statement_) next->TakeRoomOf(*statement_);
    statement_.reset();
    return next;
}

bool SqlParser::Analyse(std::unique_ptr<Statement> empty) {
    if (text_->size() > kLongestText) {
        errors_.push_back(MakeDiagnostic({}, {}, std::wstring(messages::kTooLong)));
        return true;
    }
    Grammar grammar(text_, errors_);
    statement_ = grammar.Run(std::move(empty));
    return !errors_.empty();
}

}  // namespace tessel::sql
