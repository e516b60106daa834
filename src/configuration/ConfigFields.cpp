// SPDX-License-Identifier: GPL-3.0-or-later
#include "configuration/ConfigFields.h"

#include <type_traits>
#include <vector>

namespace tarsel {

namespace {

/// The group of that type in a record, const or not.
template <class Group, class Record>
auto& part(Record& record) {
    if constexpr (std::is_base_of_v<Group, ConfigRecordData>)
        return static_cast<std::conditional_t<std::is_const_v<Record>, const Group, Group>&>(record);
    else if constexpr (std::is_same_v<Group, settings::SaveAdvanced>)
        return record.SaveAdvanced;
    else if constexpr (std::is_same_v<Group, settings::BatchSave>)
        return record.BatchSave;
    else if constexpr (std::is_same_v<Group, settings::Twain>)
        return record.Twain;
    else if constexpr (std::is_same_v<Group, settings::Tasks>)
        return record.Tasks;
    else if constexpr (std::is_same_v<Group, settings::Album>)
        return record.Album;
    else
        return record.Print;
}

template <class Group, auto Member>
ConfigField field(const char* group, const char* name, FieldType type, FolderDefault folder) {
    using Value = std::remove_cvref_t<decltype(std::declval<Group&>().*Member)>;
    return {group,
            name,
            type,
            folder,
            [](const ConfigRecordData& record) -> ConfigValue { return part<Group>(record).*Member; },
            [](ConfigRecordData& record, const ConfigValue& value) {
                part<Group>(record).*Member = std::get<Value>(value);
            }};
}

std::vector<ConfigField> makeTable() {
    std::vector<ConfigField> fields;
#define GROUP(group)                                                                                         \
    {                                                                                                        \
        using Group = settings::group;                                                                       \
        const char* groupName = #group;
#define END_GROUP() }
#define ROW(type, name, folder)                                                                              \
    fields.push_back(field<Group, &Group::name>(groupName, #name, FieldType::type, FolderDefault::folder));
#define FIELD(type, name, value) ROW(type, name, None)
#define TEXT(type, name, value) ROW(type, name, None)
#define FOLDER(type, name, form) ROW(type, name, form)
#define BESIDE(type, name, value)
#include "configuration/ConfigFields.def"
#undef ROW
    return fields;
}

} // namespace

std::span<const ConfigField> configFields() {
    static const std::vector<ConfigField> table = makeTable();
    return table;
}

QString withSeparator(const QString& folder) {
    return folder.trimmed().endsWith(QLatin1Char('/')) ? folder : folder + QLatin1Char('/');
}

ConfigRecordData defaultRecord(const QString& programFolder) {
    ConfigRecordData record;
    for (const ConfigField& field : configFields()) {
        if (field.folder == FolderDefault::AsReported)
            field.assign(record, programFolder);
        else if (field.folder == FolderDefault::WithSeparator)
            field.assign(record, withSeparator(programFolder));
    }
    return record;
}

} // namespace tarsel
