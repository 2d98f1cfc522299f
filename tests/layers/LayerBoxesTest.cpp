#include "kxgui/layers/LayerBoxes.h"

#include <gtest/gtest.h>

using namespace kx::layers;

TEST(LayerBoxes, MarksInQuotedNamesEndNoSentence) {
    const auto check = [](const wchar_t* text, const wchar_t* instruction, const wchar_t* content) {
        const auto parts = partsOf(text);
        EXPECT_EQ(parts.instruction, instruction);
        EXPECT_EQ(parts.content, content);
    };
    check(L"Delete \"Plan 1.5? Old\"? It is gone then.", L"Delete \"Plan 1.5? Old\"?", L"It is gone then.");
    check(L"\u201Ca.b\u201D \u00ABc.d\u00BB. Rest", L"\u201Ca.b\u201D \u00ABc.d\u00BB.", L"Rest");
    check(L"One.\r\n\r\nTwo\r\n\tthree", L"One.", L"Two\r\n\tthree");
    check(L"\u4E00\u3002\r\n\r\n\u4E8C\u3002", L"\u4E00\u3002", L"\u4E8C\u3002");
    check(L"\n\"0\" stays.", L"\"0\" stays.", L"");
    check(L"\"open. Rest", L"\"open. Rest", L"");
}
