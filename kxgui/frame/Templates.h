#pragma once

// The numbers of the library's dialog templates. Their names and sizes stand in Templates.cpp.
enum KxTemplate : unsigned {
    IDD_UNITS = 2001,
    IDD_UNITS_DIRECTION,
    IDD_MESSAGE,
    IDD_MULTI_ASK,
    IDD_ASK_MESSAGE,
    IDD_WINDOW_XBUTTON,
    IDD_SINGLE_WINDOW_XBUTTON,
    IDD_COLOR,
    IDD_COLOR_INDEX,
    IDD_COLOR_TRUE,
    IDD_LINETYPE,
    IDD_LINEWEIGHT,
    IDD_SYSVARS,
    IDD_ARROW_BLOCK,
    IDD_PROPERTIES_BAR,
    IDD_LAYER_FILTER,
    IDD_LAYER_TRANSPARENCY,
};
