#pragma once

#include "kxgui/Export.h"
#include "platform/drawing/OdCmColor.h"
#include "platform/drawing/OdDb.h"
#include "platform/drawing/OdDbObjectId.h"
#include "platform/host/DrawingTypes.h"
#include "platform/text/OdString.h"

class CWnd;

// The work behind MGUIManager: each operation builds its dialog, runs it and hands out what was chosen. The
// dialogs bracket their own modal runs.
class KXGUI_EXPORT MGUIManagerImpl {
  public:
    // True when it ended with OK; `color` is the choice then and untouched otherwise. `options` as
    // CColorDlg::Options.
    bool runColor(OdCmColor& color, unsigned options, CWnd* parent) const;
    // As MGUIManager::DisplayColorDialog.
    int displayColorIndex(int defaultColor, int* color, unsigned options, CWnd* parent) const;
    int displayLinetype(bool special, OdDbObjectId current, OdDbObjectId* linetype, CWnd* parent) const;
    int displayLineWeight(OdDb::LineWeight* lineWeight) const;
    int displayAskMessageBox(const OdString& message, bool& doNotAsk, int& endCode) const;

    bool chooseCurrentLinetype(const OdDbDatabasePtr& database) const;
    bool chooseCurrentLineWeight(const OdDbDatabasePtr& database) const;

    // `blockName` is what it opens on and, after OK, what was chosen.
    bool chooseArrowBlock(OdDbDatabase* database, OdString& blockName, CWnd* parent) const;

    // Says that there is no such dialog; false.
    bool missing(const OdString& dialogName) const;
};
