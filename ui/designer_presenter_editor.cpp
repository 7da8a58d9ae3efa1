// What the presenter does with the editor's text beyond showing it.
#include "analyse/format_sql.h"
#include "common/text.h"
#include "ui/designer_presenter.h"
#include "ui/format_texts.h"

namespace tessel::ui {

namespace {

std::wstring WithPlace(std::wstring_view sentence, const Diagnostic& error) {
    return std::wstring(sentence) + L"\r\n\r\nLínea " + std::to_wstring(error.line) + L", columna " +
           std::to_wstring(error.column) + L": " + error.message;
}

}  // namespace

void DesignerPresenter::FormatText() {
    if (busy_) return;
    const std::wstring text = editor_.Text();
    if (IsAllWhiteSpace(text)) return;
    const analyse::Formatted formatted = analyse::FormatSQL(text);
    if (formatted.error) return view_.ShowMessage(WithPlace(texts::kFormatHasError, *formatted.error));
    if (!formatted.is_faithful) return view_.ShowMessage(texts::kFormatUnsure);
    if (formatted.text != text) editor_.SetLayout(formatted.text);
}

}  // namespace tessel::ui
