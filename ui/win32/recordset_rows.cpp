#include "ui/win32/recordset_rows.h"

#include <algorithm>

#include "common/mdl_global.h"
#include "ui/preview_texts.h"

namespace tessel::ui {

using win32::CallResult;
using win32::Dispatch;
using win32::UniqueVariant;

namespace {

constexpr wchar_t kRecordsetProgId[] = L"ADODB.Recordset";
constexpr LONG kClientCursor = 3;  // adUseClient
constexpr LONG kClosedState = 0;   // adStateClosed
constexpr int kBstrType = 8;       // adBSTR
constexpr int kGuidType = 72;      // adGUID
constexpr std::int64_t kPageRows = 256;
constexpr std::size_t kPagesKept = 16;
constexpr std::size_t kBytesShown = 64;
/// More than any engine answers with.
constexpr LONG kMostColumns = 8192;

Error ErrorOf(const CallResult& failure) {
    return Error{failure.Message()};
}

Result<Dispatch> CreateRecordset() {
    CLSID clsid{};
    win32::ComPtr<IDispatch> recordset;
    HRESULT result = CLSIDFromProgID(kRecordsetProgId, &clsid);
    if (SUCCEEDED(result))
        result = CoCreateInstance(clsid, nullptr, CLSCTX_ALL, __uuidof(IDispatch), recordset.PutVoid());
    if (FAILED(result)) return Error{preview_texts::kNoRecordset + win32::SystemMessage(result)};
    return Dispatch(std::move(recordset));
}

/// How an ADO type's values stand in their column. For literals a GUID counts as a number and a BSTR as a
/// date, but nobody reads them as such.
Alignment AlignmentOf(int type) {
    if (type == kGuidType || type == kBstrType) return Alignment::Left;
    switch (ADOTypeClass(ADOTypeName(type))) {
        case ValueClass::Number:
            return Alignment::Right;
        case ValueClass::DateTime:
            return Alignment::Centre;
        default:
            return Alignment::Left;
    }
}

std::wstring BytesAsText(const VARIANT& value) {
    SAFEARRAY* array = value.parray;
    LONG first = 0, last = -1;
    void* data = nullptr;
    if (!array || SafeArrayGetDim(array) != 1 || FAILED(SafeArrayGetLBound(array, 1, &first)) ||
        FAILED(SafeArrayGetUBound(array, 1, &last)) || FAILED(SafeArrayAccessData(array, &data)))
        return {};
    const std::size_t size = static_cast<std::size_t>(static_cast<std::int64_t>(last) - first + 1);
    const std::size_t shown = std::min(size, kBytesShown);
    constexpr wchar_t kDigits[] = L"0123456789ABCDEF";
    std::wstring text = L"0x";
    for (std::size_t i = 0; i < shown; ++i) {
        const unsigned char byte = static_cast<const unsigned char*>(data)[i];
        text += kDigits[byte >> 4];
        text += kDigits[byte & 15];
    }
    SafeArrayUnaccessData(array);
    if (shown < size) text += L'…';
    return text;
}

/// Says that rows are being read, as long as it lives.
class Reading {
public:
    explicit Reading(bool* flag) : flag_(flag) { *flag_ = true; }
    ~Reading() { *flag_ = false; }
    Reading(const Reading&) = delete;
    Reading& operator=(const Reading&) = delete;

private:
    bool* const flag_;
};

/// The value at a place of an array of fields by rows, or nullptr.
const VARIANT* ValueIn(const std::optional<CallResult>& values, int field, std::int64_t row) {
    if (!values || values->Value().Type() != (VT_ARRAY | VT_VARIANT)) return nullptr;
    SAFEARRAY* array = values->Value().Get().parray;
    LONG first[2] = {}, last[2] = {};
    VARTYPE type = VT_EMPTY;
    if (!array || SafeArrayGetDim(array) != 2 || FAILED(SafeArrayGetVartype(array, &type)) ||
        type != VT_VARIANT)
        return nullptr;
    for (UINT dimension = 0; dimension < 2; ++dimension)
        if (FAILED(SafeArrayGetLBound(array, dimension + 1, &first[dimension])) ||
            FAILED(SafeArrayGetUBound(array, dimension + 1, &last[dimension])))
            return nullptr;
    const std::int64_t wanted[2] = {std::int64_t{first[0]} + field, std::int64_t{first[1]} + row};
    if (wanted[0] > last[0] || wanted[1] > last[1]) return nullptr;
    LONG place[2] = {static_cast<LONG>(wanted[0]), static_cast<LONG>(wanted[1])};
    void* value = nullptr;
    return SUCCEEDED(SafeArrayPtrOfIndex(array, place, &value)) ? static_cast<const VARIANT*>(value)
                                                                : nullptr;
}

}  // namespace

PreviewCell CellOfValue(const VARIANT& value) {
    if (value.vt == VT_NULL || value.vt == VT_EMPTY) return {L"", true};
    if (value.vt == VT_BSTR) return {std::wstring(win32::TextOf(value.bstrVal)), false};
    if (value.vt == VT_BOOL) return {value.boolVal ? preview_texts::kYes : preview_texts::kNo, false};
    if (value.vt == (VT_ARRAY | VT_UI1)) return {BytesAsText(value), false};
    if (value.vt & VT_BYREF) return CellOfValue(UniqueVariant::CopyOf(value).Get());
    // An object has no text: it would be whatever its default property does, which is no business of a cell.
    UniqueVariant text;
    if (FAILED(UniqueVariant::CopyOf(value).ChangedTo(VT_BSTR, &text))) return {};
    return {std::wstring(win32::TextOf(text.Get().bstrVal)), false};
}

Result<std::unique_ptr<PreviewRows>> RecordsetRows::Open(IDispatch* connection, std::wstring_view statement) {
    const Result<Dispatch> created = CreateRecordset();
    if (!created) return created.Reason();
    const Dispatch& recordset = *created;
    if (const CallResult placed = recordset.Put(L"CursorLocation", kClientCursor); !placed)
        return ErrorOf(placed);
    if (const CallResult opened = recordset.Call(L"Open", statement, connection); !opened)
        return ErrorOf(opened);
    return Over(recordset);
}

Result<std::unique_ptr<PreviewRows>> RecordsetRows::Over(const Dispatch& recordset) {
    auto rows = std::unique_ptr<RecordsetRows>(new RecordsetRows(recordset));
    if (auto failure = rows->ReadShape()) return *failure;
    return std::unique_ptr<PreviewRows>(std::move(rows));
}

// A statement that returns no rows, such as an update, leaves a closed recordset, which has no fields.
std::optional<Error> RecordsetRows::ReadShape() {
    if (recordset_.Get(L"State").Number() == kClosedState) return Error{preview_texts::kNoRows};
    const Dispatch fields = recordset_.Get(L"Fields").Object();
    const CallResult counted = fields.Get(L"Count");
    if (!counted) return ErrorOf(counted);
    const LONG count = counted.Number().value_or(0);
    if (count <= 0) return Error{preview_texts::kNoRows};
    if (count > kMostColumns) return Error{preview_texts::kTooManyColumns};
    for (LONG i = 0; i < count; ++i) {
        const CallResult item = fields.Get(L"Item", i);
        if (!item) return ErrorOf(item);
        const Dispatch field = item.Object();
        columns_.push_back({field.Get(L"Name").Text().value_or(std::wstring()),
                            AlignmentOf(static_cast<int>(field.Get(L"Type").Number().value_or(0)))});
    }
    const CallResult rows = recordset_.Get(L"RecordCount");
    if (!rows) return ErrorOf(rows);
    row_count_ = rows.Number().value_or(-1);
    if (row_count_ < 0) return Error{preview_texts::kNoRowCount};
    return std::nullopt;
}

PreviewCell RecordsetRows::Cell(std::int64_t row, int column) {
    if (row < 0 || row >= row_count_ || column < 0 || column >= static_cast<int>(columns_.size())) return {};
    if (reading_) {
        unread_ = true;
        return {};
    }
    const Page& page = PageAt(row / kPageRows);
    const VARIANT* value = ValueIn(page.values, column, row % kPageRows);
    return value ? CellOfValue(*value) : PreviewCell{};
}

const RecordsetRows::Page& RecordsetRows::PageAt(std::int64_t number) {
    const auto kept =
        std::find_if(pages_.begin(), pages_.end(), [&](const Page& page) { return page.number == number; });
    if (kept != pages_.end()) {
        kept->last_used = ++uses_;
        return *kept;
    }
    if (pages_.size() < kPagesKept) return ReadPage(pages_.emplace_back(), number);
    return ReadPage(*std::min_element(pages_.begin(), pages_.end(),
                                      [](const Page& a, const Page& b) { return a.last_used < b.last_used; }),
                    number);
}

// A page that cannot be read stays empty until it falls out, so that painting does not try again without end.
const RecordsetRows::Page& RecordsetRows::ReadPage(Page& page, std::int64_t number) {
    const Reading reading(&reading_);
    page = {number, ++uses_, std::nullopt};
    ReadRows(page);
    return page;
}

void RecordsetRows::ReadRows(Page& page) {
    const std::int64_t first = page.number * kPageRows;
    const CallResult moved = recordset_.Put(L"AbsolutePosition", static_cast<LONG>(first + 1));
    if (!moved) {
        trouble_ = moved.Message();
        return;
    }
    page.values = recordset_.Call(L"GetRows", static_cast<LONG>(std::min(kPageRows, row_count_ - first)));
    if (!*page.values)
        trouble_ = page.values->Message();
    else if (!ValueIn(page.values, 0, 0))
        trouble_ = preview_texts::kBadPage;
}

}  // namespace tessel::ui
