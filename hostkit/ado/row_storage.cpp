#include "hostkit/ado/row_storage.h"

#include <cstdint>
#include <cstring>

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

}  // namespace

void RowStorage::AppendBytes(const void* bytes, std::size_t count) {
    const auto* first = static_cast<const unsigned char*>(bytes);
    bytes_.insert(bytes_.end(), first, first + count);
}

void RowStorage::Append(const VARIANT& value) {
    if (value.vt == VT_BSTR) {
        const std::uint32_t bytes = SysStringByteLen(value.bstrVal);
        bytes_.push_back(static_cast<unsigned char>(VT_BSTR));
        AppendBytes(&bytes, sizeof bytes);
        AppendBytes(value.bstrVal, bytes);
    } else if (value.vt == (VT_ARRAY | VT_UI1)) {
        const std::uint32_t bytes = value.parray->rgsabound[0].cElements;
        bytes_.push_back(kBytesTag);
        AppendBytes(&bytes, sizeof bytes);
        AppendBytes(value.parray->pvData, bytes);
    } else if (const std::size_t count = FixedBytes(value.vt); count > 0) {
        bytes_.push_back(static_cast<unsigned char>(value.vt));
        if (value.vt == VT_DECIMAL)
            AppendBytes(&value.decVal, count);
        else
            AppendBytes(&value.llVal, count);
    } else {
        bytes_.push_back(static_cast<unsigned char>(VT_NULL));
    }
}

void RowStorage::Add(const std::vector<UniqueVariant>& row) {
    starts_.push_back(bytes_.size());
    for (const UniqueVariant& value : row) Append(value.Get());
}

UniqueVariant RowStorage::Read(std::size_t* at) const {
    const unsigned char tag = bytes_[(*at)++];
    if (tag == VT_NULL) return UniqueVariant::Null();
    UniqueVariant value;
    if (tag == VT_BSTR || tag == kBytesTag) {
        std::uint32_t count = 0;
        memcpy(&count, &bytes_[*at], sizeof count);
        *at += sizeof count;
        // The end of the storage may be reached by an empty text: no element is addressed then.
        const unsigned char* first = bytes_.data() + *at;
        *at += count;
        if (tag == VT_BSTR) {
            std::wstring text(count / sizeof(wchar_t), L'\0');
            memcpy(text.data(), first, count);
            return UniqueVariant(std::wstring_view(text));
        }
        SAFEARRAY* array = SafeArrayCreateVector(VT_UI1, 0, count);
        if (!array) throw std::bad_alloc();
        memcpy(array->pvData, first, count);
        value.Address()->parray = array;
        value.Address()->vt = VT_ARRAY | VT_UI1;
        return value;
    }
    const std::size_t count = FixedBytes(tag);
    if (tag == VT_DECIMAL)
        memcpy(&value.Address()->decVal, &bytes_[*at], count);
    else
        memcpy(&value.Address()->llVal, &bytes_[*at], count);
    *at += count;
    value.Address()->vt = tag;
    return value;
}

std::vector<UniqueVariant> RowStorage::Row(std::size_t index, std::size_t count) const {
    std::vector<UniqueVariant> row;
    row.reserve(count);
    std::size_t at = starts_[index];
    for (std::size_t i = 0; i < count; ++i) row.push_back(Read(&at));
    return row;
}

}  // namespace tessel::ado
