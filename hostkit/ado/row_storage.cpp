#include "hostkit/ado/row_storage.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <new>

namespace tessel::ado {

using win32::UniqueVariant;

namespace {

/// Bytes of the value behind the type; 0 for Null, and for texts and byte arrays, which carry their length.
std::size_t FixedBytes(VARTYPE type) {
    switch (type) {
        case VT_UI1:
            return 1;
        case VT_BOOL:
        case VT_I2:
            return 2;
        case VT_I4:
        case VT_R4:
            return 4;
        case VT_I8:
        case VT_R8:
        case VT_DATE:
            return 8;
        case VT_DECIMAL:
            return sizeof(DECIMAL);
        default:
            return 0;
    }
}

constexpr unsigned char kBytesTag = 0xFF;
constexpr std::size_t kBlockBytes = std::size_t{1} << 20;

/// The bytes that a value takes behind its tag.
std::size_t BytesBehind(unsigned char tag, const unsigned char* value) {
    if (tag != VT_BSTR && tag != kBytesTag) return FixedBytes(tag);
    std::uint32_t count = 0;
    memcpy(&count, value, sizeof count);
    return sizeof count + count;
}

UniqueVariant ArrayOf(const unsigned char* bytes, std::uint32_t count) {
    UniqueVariant value;
    SAFEARRAY* array = SafeArrayCreateVector(VT_UI1, 0, count);
    if (!array) throw std::bad_alloc();
    memcpy(array->pvData, bytes, count);
    value.Address()->parray = array;
    value.Address()->vt = VT_ARRAY | VT_UI1;
    return value;
}

UniqueVariant TextOf(const unsigned char* bytes, std::uint32_t count) {
    UniqueVariant value;
    // Takes the number of bytes, which need not lie at an even address.
    value.Address()->bstrVal = SysAllocStringByteLen(reinterpret_cast<const char*>(bytes), count);
    if (!value.Get().bstrVal) throw std::bad_alloc();
    value.Address()->vt = VT_BSTR;
    return value;
}

}  // namespace

void AddValueText(const UniqueVariant& value, std::wstring_view null_text, std::wstring* target) {
    if (value.IsNothing()) {
        *target += null_text;
        return;
    }
    UniqueVariant text;
    if (SUCCEEDED(value.ChangedTo(VT_BSTR, &text))) *target += win32::TextOf(text.Get().bstrVal);
}

void RowStorage::AppendBytes(const void* bytes, std::size_t count) {
    const auto* first = static_cast<const unsigned char*>(bytes);
    row_.insert(row_.end(), first, first + count);
}

void RowStorage::AppendText(std::wstring_view text) {
    const auto bytes = static_cast<std::uint32_t>(text.size() * sizeof(wchar_t));
    const std::size_t at = row_.size();
    row_.resize(at + 1 + sizeof bytes + bytes);
    row_[at] = static_cast<unsigned char>(VT_BSTR);
    memcpy(&row_[at + 1], &bytes, sizeof bytes);
    if (bytes > 0) memcpy(&row_[at + 1 + sizeof bytes], text.data(), bytes);
}

void RowStorage::Append(const VARIANT& value) {
    if (value.vt == VT_BSTR) {
        AppendText(win32::TextOf(value.bstrVal));
    } else if (value.vt == (VT_ARRAY | VT_UI1)) {
        const std::uint32_t bytes = value.parray->rgsabound[0].cElements;
        row_.push_back(kBytesTag);
        AppendBytes(&bytes, sizeof bytes);
        AppendBytes(value.parray->pvData, bytes);
    } else if (const std::size_t count = FixedBytes(value.vt); count > 0) {
        row_.push_back(static_cast<unsigned char>(value.vt));
        if (value.vt == VT_DECIMAL)
            AppendBytes(&value.decVal, count);
        else
            AppendBytes(&value.llVal, count);
    } else {
        AppendNull();
    }
}

unsigned char* RowStorage::NewRow(std::size_t bytes) {
    if (bytes > room_) {
        room_ = std::max(kBlockBytes, bytes);
        blocks_.emplace_back(new unsigned char[room_]);
        free_ = blocks_.back().get();
    }
    unsigned char* const row = free_;
    starts_.push_back(row);
    free_ += bytes;
    room_ -= bytes;
    return row;
}

void RowStorage::EndRow() {
    memcpy(NewRow(row_.size()), row_.data(), row_.size());
    row_.clear();
}

void RowStorage::AddTextRow(std::span<const std::wstring_view> texts) {
    std::size_t bytes = texts.size();
    for (const std::wstring_view text : texts)
        if (!text.empty()) bytes += sizeof(std::uint32_t) + text.size() * sizeof(wchar_t);
    unsigned char* at = NewRow(bytes);
    for (const std::wstring_view text : texts) {
        *at++ = static_cast<unsigned char>(text.empty() ? VT_NULL : VT_BSTR);
        if (text.empty()) continue;
        const auto length = static_cast<std::uint32_t>(text.size() * sizeof(wchar_t));
        memcpy(at, &length, sizeof length);
        memcpy(at + sizeof length, text.data(), length);
        at += sizeof length + length;
    }
}

UniqueVariant RowStorage::Cell(std::size_t row, std::size_t column) const {
    const unsigned char* at = starts_[row];
    for (; column > 0; --column) at += 1 + BytesBehind(*at, at + 1);
    return CellAt(at);
}

UniqueVariant RowStorage::CellAt(const unsigned char* at) {
    const unsigned char tag = *at++;
    if (tag == VT_NULL) return UniqueVariant::Null();
    if (tag == VT_BSTR || tag == kBytesTag) {
        std::uint32_t count = 0;
        memcpy(&count, at, sizeof count);
        at += sizeof count;
        return tag == VT_BSTR ? TextOf(at, count) : ArrayOf(at, count);
    }
    UniqueVariant value;
    if (tag == VT_DECIMAL)
        memcpy(&value.Address()->decVal, at, FixedBytes(tag));
    else
        memcpy(&value.Address()->llVal, at, FixedBytes(tag));
    value.Address()->vt = tag;
    return value;
}

void RowStorage::AddRowText(std::size_t row, std::size_t columns, std::wstring_view column_end,
                            std::wstring_view null_text, std::wstring* target) const {
    const unsigned char* at = starts_[row];
    for (std::size_t i = 0; i < columns; ++i, at += 1 + BytesBehind(*at, at + 1)) {
        if (i > 0) *target += column_end;
        if (*at == VT_NULL) {
            *target += null_text;
            continue;
        }
        if (*at != VT_BSTR) {
            AddValueText(CellAt(at), null_text, target);
            continue;
        }
        std::uint32_t bytes = 0;
        memcpy(&bytes, at + 1, sizeof bytes);
        const std::size_t begin = target->size();
        target->resize(begin + bytes / sizeof(wchar_t));
        // The bytes need not lie at an even address.
        memcpy(target->data() + begin, at + 1 + sizeof bytes, bytes);
    }
}

}  // namespace tessel::ado
