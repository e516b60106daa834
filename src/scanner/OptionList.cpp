// SPDX-License-Identifier: GPL-3.0-or-later
#include "scanner/OptionList.h"

#include <algorithm>
#include <libintl.h>
#include <vector>

namespace tarsel::scanner {

namespace {

/// In the user's language, where the drivers come with it.
const char* translated(const char* text) {
    return text && *text ? ::dgettext("sane-backends", text) : "";
}

bool isWord(const SANE_Option_Descriptor& option) {
    return option.type == SANE_TYPE_BOOL || option.type == SANE_TYPE_INT || option.type == SANE_TYPE_FIXED;
}

int valueCount(const SANE_Option_Descriptor& option) {
    return isWord(option) ? option.size / int(sizeof(SANE_Word)) : 1;
}

void packStrings(const SANE_String_Const* list, PackedWriter& options) {
    std::int32_t count = 0;
    while (list[count])
        ++count;
    options.number(count);
    for (std::int32_t i = 0; i < count; ++i) {
        options.text(list[i]);
        options.text(translated(list[i]));
    }
}

void packConstraint(const SANE_Option_Descriptor& option, PackedWriter& options) {
    const bool isThere = option.constraint.range != nullptr;
    options.number(isThere ? option.constraint_type : SANE_CONSTRAINT_NONE);
    if (!isThere)
        return;
    if (option.constraint_type == SANE_CONSTRAINT_RANGE)
        for (const SANE_Word word :
             {option.constraint.range->min, option.constraint.range->max, option.constraint.range->quant})
            options.number(word);
    else if (option.constraint_type == SANE_CONSTRAINT_WORD_LIST)
        for (std::int32_t i = 0; i <= option.constraint.word_list[0]; ++i) // the first is the length
            options.number(option.constraint.word_list[i]);
    else if (option.constraint_type == SANE_CONSTRAINT_STRING_LIST)
        packStrings(option.constraint.string_list, options);
}

bool canBeRead(const SANE_Option_Descriptor& option) {
    return SANE_OPTION_IS_ACTIVE(option.cap) && (option.cap & SANE_CAP_SOFT_DETECT) && option.size > 0 &&
           valueCount(option) == 1 && option.type != SANE_TYPE_BUTTON && option.type != SANE_TYPE_GROUP;
}

/// The driver writes into room of whole words.
void packValue(SANE_Handle handle, SANE_Int number, const SANE_Option_Descriptor& option,
               PackedWriter& options) {
    std::vector<SANE_Word> room(canBeRead(option) ? std::size_t(option.size) / sizeof(SANE_Word) + 2 : 0);
    const bool hasValue = !room.empty() && ::sane_control_option(handle, number, SANE_ACTION_GET_VALUE,
                                                                 room.data(), nullptr) == SANE_STATUS_GOOD;
    options.number(hasValue);
    if (hasValue && isWord(option))
        options.number(room[0]);
    else if (hasValue)
        options.text(reinterpret_cast<const char*>(room.data()));
}

SANE_Status setWord(SANE_Handle handle, const ScannerRequest& request, SANE_Int& info, SANE_Word& taken) {
    taken = request.word;
    return ::sane_control_option(handle, request.option, SANE_ACTION_SET_VALUE, &taken, &info);
}

SANE_Status setText(SANE_Handle handle, SANE_Int number, const SANE_Option_Descriptor& option,
                    const std::string& text, SANE_Int& info) {
    if (option.type != SANE_TYPE_STRING || std::int64_t(text.size()) >= option.size)
        return SANE_STATUS_INVAL;
    std::vector<char> room(std::size_t(option.size) + 1);
    std::ranges::copy(text, room.begin());
    return ::sane_control_option(handle, number, SANE_ACTION_SET_VALUE, room.data(), &info);
}

} // namespace

SANE_Status packOptions(SANE_Handle handle, PackedWriter& options) {
    SANE_Int count = 0;
    const SANE_Status status = ::sane_control_option(handle, 0, SANE_ACTION_GET_VALUE, &count, nullptr);
    static const SANE_Option_Descriptor missing = {
        "", "", "", SANE_TYPE_GROUP, SANE_UNIT_NONE, 0, SANE_CAP_INACTIVE, SANE_CONSTRAINT_NONE, {}};
    for (SANE_Int number = 1; status == SANE_STATUS_GOOD && number < count; ++number) {
        const SANE_Option_Descriptor* found = ::sane_get_option_descriptor(handle, number);
        const SANE_Option_Descriptor& option = found ? *found : missing;
        options.text(option.type == SANE_TYPE_GROUP ? "" : option.name);
        options.text(translated(option.title));
        options.text(translated(option.desc));
        for (const int value : {int(option.type), int(option.unit), int(option.cap), valueCount(option)})
            options.number(value);
        packConstraint(option, options);
        packValue(handle, number, option, options);
    }
    return status;
}

SANE_Status setOption(SANE_Handle handle, const ScannerRequest& request, const std::string& text,
                      SANE_Int& info, SANE_Word& taken) {
    const SANE_Option_Descriptor* option = ::sane_get_option_descriptor(handle, request.option);
    if (!option || !SANE_OPTION_IS_ACTIVE(option->cap) || !SANE_OPTION_IS_SETTABLE(option->cap))
        return SANE_STATUS_INVAL;
    switch (request.setting) {
    case ScannerSetting::Word:
        return isWord(*option) && valueCount(*option) == 1 ? setWord(handle, request, info, taken)
                                                           : SANE_STATUS_INVAL;
    case ScannerSetting::Text:
        return setText(handle, request.option, *option, text, info);
    case ScannerSetting::Automatic:
        return ::sane_control_option(handle, request.option, SANE_ACTION_SET_AUTO, nullptr, &info);
    case ScannerSetting::Button:
        return option->type == SANE_TYPE_BUTTON
                   ? ::sane_control_option(handle, request.option, SANE_ACTION_SET_VALUE, nullptr, &info)
                   : SANE_STATUS_INVAL;
    }
    return SANE_STATUS_INVAL;
}

} // namespace tarsel::scanner
