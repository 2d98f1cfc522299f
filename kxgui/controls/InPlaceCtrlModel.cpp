#include "kxgui/controls/InPlaceCtrlModel.h"

int CInPlaceCtrlModel::rowOfKey(std::uintptr_t key) const {
    for (int row = 0, count = rowCount(); row < count; ++row)
        if (rowKey(row) == key) return row;
    return -1;
}
