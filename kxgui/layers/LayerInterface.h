#pragma once

#include "kxgui/Export.h"

class CLayerDlg;

// Where a host keeps the layer manager that is open, to tell it what happens. Not owned.
class KXGUI_EXPORT CLayerInterface {
  public:
    void setLayerDlg(CLayerDlg* dialog) { m_dialog = dialog; }
    // Null when none is open.
    CLayerDlg* getLayerDlg() const { return m_dialog; }

  private:
    CLayerDlg* m_dialog = nullptr;
};
