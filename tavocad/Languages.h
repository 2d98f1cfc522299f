#pragma once

#include <cstdint>
#include <span>
#include <string_view>

// The languages a person can switch to.
struct UiLanguage {
    const wchar_t* code;    // what the option and the LANGUAGE command take
    std::uint16_t id;       // VORD_MSGFunction's language id
    const wchar_t* ownName; // written in the language itself
    const char* posix;      // how LANG and its relatives begin
};

std::span<const UiLanguage> uiLanguages();
// Null for a code or id nobody knows; letter case does not matter.
const UiLanguage* uiLanguage(std::wstring_view code);
const UiLanguage* uiLanguage(std::uint16_t id);
// By the environment's LC_ALL, LC_MESSAGES or LANG; Korean for any other.
const UiLanguage& systemUiLanguage();
