#include "qt/controls/BridgeFactory.h"

#include "qt/controls/ButtonBridges.h"
#include "qt/controls/ComboBridge.h"
#include "qt/controls/CommandButton.h"
#include "qt/controls/ContainerBridges.h"
#include "qt/controls/EditBridges.h"
#include "qt/controls/KxDrawArea.h"
#include "qt/controls/KxSwatchGrid.h"
#include "qt/controls/ListBoxBridge.h"
#include "qt/controls/ListBridge.h"
#include "qt/controls/SliderBridge.h"
#include "qt/controls/StaticBridges.h"
#include "qt/controls/TreeBridge.h"
#include "qt/controls/TreeView.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QTabWidget>

namespace tv::qt {
namespace {

template <class BridgeType, class Control, class Widget>
std::unique_ptr<Bridge> tie(CWnd& wnd, QWidget& widget) {
    auto* typed = qobject_cast<Widget*>(&widget);
    return typed ? std::make_unique<BridgeType>(static_cast<Control&>(wnd), *typed) : nullptr;
}

std::unique_ptr<Bridge> tieList(CWnd& wnd, QWidget& widget) {
    auto* view = dynamic_cast<ListView*>(&widget);
    return view ? std::make_unique<ListBridge>(static_cast<CListCtrl&>(wnd), *view) : nullptr;
}

std::unique_ptr<Bridge> tieTree(CWnd& wnd, QWidget& widget) {
    auto* view = dynamic_cast<TreeView*>(&widget);
    return view ? std::make_unique<TreeBridge>(static_cast<CTreeCtrl&>(wnd), *view) : nullptr;
}

bool isMultiLine(const CWnd& wnd) { return static_cast<const CEdit&>(wnd).multiLine(); }

} // namespace

std::unique_ptr<Bridge> makeBridge(CWnd& wnd, QWidget& widget) {
    using enum ui::ControlKind;
    switch (wnd.kind()) {
    case dialog:
    case page:
        return nullptr;
    case label:
        return tie<LabelBridge, CStatic, QLabel>(wnd, widget);
    case groupBox:
        return tie<GroupBoxBridge, CGroupBox, QGroupBox>(wnd, widget);
    case image:
        return tie<ImageBridge, CImage, QLabel>(wnd, widget);
    case button:
        if (qobject_cast<CommandButton*>(&widget)) return nullptr;
        return tie<ButtonBridge, CButton, QPushButton>(wnd, widget);
    case commandButton:
        return tie<ButtonBridge, CButton, CommandButton>(wnd, widget);
    case checkBox:
        return tie<ButtonBridge, CButton, QCheckBox>(wnd, widget);
    case radioButton:
        return tie<ButtonBridge, CButton, QRadioButton>(wnd, widget);
    case edit:
        return isMultiLine(wnd) ? tie<TextEditBridge, CEdit, QPlainTextEdit>(wnd, widget)
                                : tie<LineEditBridge, CEdit, QLineEdit>(wnd, widget);
    case comboBox:
        return tie<ComboBridge, CComboBox, DropDownBox>(wnd, widget);
    case listBox:
        return tie<ListBoxBridge, CListBox, QListWidget>(wnd, widget);
    case list:
        return tieList(wnd, widget);
    case tree:
        return tieTree(wnd, widget);
    case tab:
        return tie<TabBridge, CTabCtrl, QTabWidget>(wnd, widget);
    case slider:
        return tie<SliderBridge, CSliderCtrl, QSlider>(wnd, widget);
    case swatchGrid:
        return tie<SwatchGridBridge, CSwatchGrid, KxSwatchGrid>(wnd, widget);
    case drawArea:
        return tie<DrawAreaBridge, CDrawArea, KxDrawArea>(wnd, widget);
    }
    return nullptr;
}

const char* widgetClassFor(const CWnd& wnd) {
    using enum ui::ControlKind;
    switch (wnd.kind()) {
    case dialog:
        return "QDialog";
    case page:
        return "QWidget";
    case label:
    case image:
        return "QLabel";
    case groupBox:
        return "QGroupBox";
    case button:
        return "QPushButton";
    case commandButton:
        return "QCommandLinkButton";
    case checkBox:
        return "QCheckBox";
    case radioButton:
        return "QRadioButton";
    case edit:
        return isMultiLine(wnd) ? "QPlainTextEdit" : "QLineEdit";
    case comboBox:
        return "QComboBox";
    case listBox:
        return "QListWidget";
    case list:
        return "QTableView";
    case tree:
        return "QTreeWidget";
    case tab:
        return "QTabWidget";
    case slider:
        return "QSlider";
    case swatchGrid:
        return "KxSwatchGrid";
    case drawArea:
        return "KxDrawArea";
    }
    return "QWidget";
}

} // namespace tv::qt
