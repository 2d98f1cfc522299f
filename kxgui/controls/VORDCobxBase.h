#pragma once

#include "kxgui/Export.h"
#include "platform/host/DrawingTypes.h"
#include "platform/toolkit/ComboBox.h"

#include <cstdint>

// The base of every drop-down list of a drawing property. It does not know what it lists; it owns the
// mechanics: requests to refill, to select and to enable are recorded and carried out together a short moment
// later, so that a burst of drawing events costs one refill. Destroying the control drops what is pending.
class KXGUI_EXPORT VORDCobxBase : public CComboBox {
  public:
    // Where the list stands, which decides about its special entries.
    enum ControlType {
        typeToolbar = 0,      // the current property, in a toolbar
        typeNoLayerBlock = 1, // without ByLayer and ByBlock, with black: for things that belong to no layer
        typeDialog = 2,       // a property chosen in a dialog
        typeProperties = 3,   // the property of the selected objects
        typeLayer = 4         // a layer's own property: without ByLayer and ByBlock
    };

    VORDCobxBase(CWnd& parent, const char* name, bool editable = false);

    ControlType GetType() const { return m_type; }
    virtual void SetType(ControlType type) { m_type = type; }

    static constexpr unsigned updateMessage = CWnd::userMessage; // carried out as an update when it arrives
    static constexpr unsigned updateTimer = 1;
    static constexpr unsigned updateDelay = 50;           // ms
    static constexpr unsigned automatedUpdateDelay = 300; // ms, while a script or programmed routine runs
    static constexpr int automatedCommand = 4 | 32;       // the bits of CMDACTIVE that say so

    // Marks a refill as pending and (re)starts the update timer.
    void ScheduleUpdate();
    // Marks a selection as pending: by the whole text `name` (UTF-8), or by index when `name` is null.
    void ScheduleSelect(const char* name, int index);
    // Marks an enabled state as pending; nothing while the control's window does not exist.
    void ScheduleEnabled(int enable);
    bool IsScheduleEnabledSet() const { return enablePending != 0; }
    // Refills at once, as the timer would.
    void Refresh() { refillSafely(); }
    // Asks for a refill as soon as what is under way has finished.
    void PostUpdate();

    // Records the index; the list is told only when it shows another one. Returns the index.
    int SetCurSel(int index);
    // Selects the next entry after `start` (-1: from the first) whose whole text is `text`, `start` itself
    // being the last one looked at; -1 and nothing changed when there is none before the search wraps around to
    // an earlier entry.
    int SelectString(int start, const wchar_t* text, bool ignoreCase);

    void CreateToolTip(std::wstring_view text) { SetToolTip(text); }
    void SetUseBaseMListBox(int use) { m_useBaseMListBox = use; }
    int UseBaseMListBox() const { return m_useBaseMListBox; }

    // The host's selection set changed; members that show a property of the selected objects refresh here.
    virtual void OnSelectionSetChanged() {}

    // 0xRRGGBB, for a face that paints the list itself.
    static constexpr std::uint32_t noColor = 0xFFFFFFFF; // take the face's own
    virtual std::uint32_t GetBkColor() const { return noColor; }
    virtual std::uint32_t GetTextColor() const { return noColor; }
    virtual std::uint32_t GetTextDisabledColor() const { return noColor; }
    virtual std::uint32_t GetBkDisabledColor() const { return noColor; }
    virtual std::uint32_t GetHighlightedItemColor() const { return noColor; }
    std::uint32_t GetBkBrush() const { return IsWindowEnabled() ? GetBkColor() : GetBkDisabledColor(); }

    void OnTimer(unsigned id) override;
    std::intptr_t WindowProc(unsigned message, std::uintptr_t wParam, std::intptr_t lParam) override;

  protected:
    // The member's refill. Whatever it throws is dropped; the list is left as far as it got.
    virtual void RefillList() = 0;
    // The posted update arrived.
    virtual void OnUpdate();

    // The current document's database; null while the program is closing or no document is open.
    OdDbDatabasePtr checkCurrentDatabase() const;
    // Empties the list and answers the database to fill it from; null without a window or a database.
    OdDbDatabasePtr prepareUpdateList();
    void OnWindowGone() override;

    int curSel = -1, lastSel = -1; // the index last selected by the program, both written together

  private:
    void SetUpdateTimer();
    void selectPendingEntry();
    void refillSafely();

    unsigned timerId = 0;
    std::wstring pendingSelectName;
    int pendingSelectIndex = -1;
    int updatePending = 0, selectPending = 0, enablePending = 0;
    int pendingEnable = 0;
    ControlType m_type = typeToolbar;
    int m_useBaseMListBox = 0;
};
