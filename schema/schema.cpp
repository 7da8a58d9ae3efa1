#include "schema/schema.h"

#include <utility>

#include "common/identifiers.h"

namespace tessel::schema {

namespace {

/// Sources may give either of the two forms of a name; the other follows from it.
void CompleteNames(std::wstring& name, std::wstring& raw_name) {
    if (raw_name.empty()) raw_name = Unbracketed(name);
    if (name.empty() && !raw_name.empty()) name = WrittenName(raw_name);
}

/// Whether a name holds nothing but the database's own.
bool IsBare(const std::wstring& name) {
    constexpr std::wstring_view kNotFirst = L"[\"` ";
    return kNotFirst.find(name.front()) == std::wstring_view::npos && name.back() != L' ';
}

}  // namespace

Schema::Schema() = default;
Schema::~Schema() = default;
Schema::Schema(Schema&&) noexcept = default;
Schema& Schema::operator=(Schema&&) noexcept = default;

Schema::Schema(std::unique_ptr<SchemaSource> source) : source_(std::move(source)) {
    if (!source_) return;
    Result<std::vector<Object>> objects = source_->LoadObjects();
    if (!objects) {
        failed_ = true;
        return;
    }
    objects_ = std::move(objects).Value();
    for (Object& object : objects_) {
        if (object.name.empty())
            CompleteNames(object.name, object.raw_name);
        else if (object.raw_name.empty() && !IsBare(object.name))
            object.raw_name = Unbracketed(object.name);
    }
}

const Object* Schema::Find(std::wstring_view name) const {
    if (!names_) {
        names_.emplace(objects_.size());
        std::wstring key;
        for (std::uint32_t i = 0; i < objects_.size(); ++i) {
            key.clear();
            AppendIdentifierKey(objects_[i].name, key);
            names_->Add(NameHash(key), i, [&](std::uint32_t other) {
                return SameIdentifier(objects_[other].name, objects_[i].name);
            });
        }
    }
    const auto found = names_->Find(NameHash(IdentifierKey(name)), [&](std::uint32_t other) {
        return SameIdentifier(objects_[other].name, name);
    });
    return found ? &objects_[*found] : nullptr;
}

const std::vector<Field>& Schema::Fields(std::wstring_view object_name) const {
    static const std::vector<Field> kNone;
    const Object* object = Find(object_name);
    if (!object) return kNone;
    const std::wstring key = IdentifierKey(object->name);
    if (const auto known = fields_.find(key); known != fields_.end()) return known->second;

    std::vector<Field> fields;
    Object asked = *object;
    asked.raw_name = object->RawName();
    if (Result<std::vector<Field>> loaded = source_->LoadFields(asked)) fields = std::move(loaded).Value();
    for (Field& field : fields) CompleteNames(field.name, field.raw_name);
    MarkKeys(*object, fields);
    return fields_.emplace(key, std::move(fields)).first->second;
}

const Field* Schema::FindField(std::wstring_view object_name, std::wstring_view field_name) const {
    for (const Field& field : Fields(object_name)) {
        if (SameIdentifier(field.name, field_name)) return &field;
    }
    return nullptr;
}

const std::vector<ForeignKey>& Schema::ForeignKeys() const {
    if (!foreign_keys_) {
        foreign_keys_.emplace();
        if (source_ && !failed_) {
            if (Result<std::vector<ForeignKey>> loaded = source_->LoadForeignKeys()) {
                foreign_keys_ = std::move(loaded).Value();
            }
        }
    }
    return *foreign_keys_;
}

std::vector<const ForeignKey*> Schema::ForeignKeysOf(std::wstring_view object_name) const {
    std::vector<const ForeignKey*> keys;
    for (const ForeignKey& key : ForeignKeys()) {
        if (SameIdentifier(key.table, object_name) || SameIdentifier(key.referenced_table, object_name)) {
            keys.push_back(&key);
        }
    }
    return keys;
}

void Schema::MarkKeys(const Object& object, std::vector<Field>& fields) const {
    for (const ForeignKey& key : ForeignKeys()) {
        if (!SameIdentifier(key.table, object.name)) continue;
        for (const std::wstring& name : key.fields) {
            for (Field& field : fields) {
                if (!SameIdentifier(field.name, name)) continue;
                field.foreign_key = true;
                if (field.referenced_table.empty()) field.referenced_table = key.referenced_table;
            }
        }
    }
}

}  // namespace tessel::schema
