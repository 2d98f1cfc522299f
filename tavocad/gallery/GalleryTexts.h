#pragma once

#include "platform/drawing/OdCmColor.h"
#include "platform/drawing/OdDbObjectId.h"

#include <cstdint>
#include <string>

// How the gallery writes down what a program gets from a list.
namespace gallery {

// Room for the read-outs is limited: the first characters of a long text, and a mark that there are more.
constexpr std::size_t longest = 40;
std::wstring shortened(const std::wstring& text, std::size_t room = longest);

std::wstring nothingChosen();
// "0xC3000001"
std::wstring hexadecimal(std::uintptr_t value);
// "1,000,000"
std::wstring grouped(int value);
// "#2F"
std::wstring handleText(OdDbObjectId id);
// The item value of a colour list and the colour it stands for: "0xC3000001: color 1", "258".
std::wstring colorItem(std::uintptr_t item, const OdCmColor& color);
// "LUNITS = 2"
std::wstring variable(const wchar_t* name, int value);

} // namespace gallery
