#pragma once

#include "kxgui/controls/PropertyCobx.h"
#include "platform/drawing/OdCmColor.h"

#include <cstdint>

// Colours: the special ones its options and type say, ByLayer and ByBlock, the seven standard ones, and "Select
// Color...", which opens the dialog of all colours. A colour without an entry gets one before that last one.
// Item data is the encoding of drawing colours (the method in the top byte), or one of the marks below.
class KXGUI_EXPORT CCobxColor : public CCobxPropertyBase {
  public:
    CCobxColor(CWnd& parent, const char* name)
        : CCobxPropertyBase(parent, name, kx::controls::Property::color) {}

    static constexpr std::uintptr_t useCurrentItem = 257, noneItem = 258, backgroundItem = 259, blackItem = 260;
    static constexpr std::uintptr_t byLayerItem = 0xC0000000, byBlockItem = 0xC1000000,
                                    firstIndexItem = 0xC3000000;
    static constexpr std::uintptr_t selectColorItem = 0xC2008080;

    // Before the list is built, that is before its first refill.
    void SetUseCurrent(bool use) { m_useCurrent = use; }
    void SetNone(bool none) { m_none = none; }
    void SetNoneAndBackground(bool both) { m_noneAndBackground = both; }
    void SetType(ControlType type) override;

    // Builds the entries unless they are built, in the current language. A refill does this by itself.
    void BuildList();
    bool IsBuilt() const { return m_built; }

    // By layer when nothing that is a colour is selected; black for "Black".
    OdCmColor GetColor() const;
    void SelectColor(const OdCmColor& color) { SelectValue(kx::controls::colorValue(color)); }
    // The selected item's data, 0 when nothing is selected; selects the first entry of that data.
    std::uintptr_t GetSelectedItem() const { return GetItemData(GetCurSel()); }
    void SelectItem(std::uintptr_t item) { SetCurSel(FindItemData(item)); }

  protected:
    void RefillList() override;
    void Fill(const OdDbDatabasePtr& database) override;
    int EntryOf(const tv::dwg::Value& value) override;
    std::optional<tv::dwg::Value> ValueOf(int index) const override;
    std::wstring TextOf(const tv::dwg::Value& value) const override;
    void OnSelChange() override;
    void OnSpecialEntry(int index) override;
    std::wstring UndoName() const override;
    // Adds one; negative when there is no room for it, which ends the list.
    virtual int AddEntry(std::wstring_view text, std::uintptr_t item, const tv::ui::Picture& picture);

  private:
    bool isSelectColor(int index) const;
    // The entry of a colour that is none of the standard ones, made when there is none.
    int ownEntry(const OdCmColor& color);
    void showLayerColor();

    bool m_useCurrent = false, m_none = false, m_noneAndBackground = false;
    bool m_built = false;
    std::uint16_t m_language = 0; // the entries are in
    int m_own = -1;               // the entry of a colour that is none of the standard ones
};

// The colours alone, for things that have a colour of their own: no ByLayer, no ByBlock, nothing of the
// drawing's state.
class KXGUI_EXPORT CSimpleColorCobx : public CCobxColor {
  public:
    CSimpleColorCobx(CWnd& parent, const char* name) : CCobxColor(parent, name) {
        SetType(typeLayer);
        SetFollowsDrawing(false);
    }
    // Wherever it stands, there is no ByLayer; where nothing belongs to a layer there is black.
    void SetType(ControlType type) override {
        CCobxColor::SetType(type == typeNoLayerBlock ? typeNoLayerBlock : typeLayer);
    }
};
