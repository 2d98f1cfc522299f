#pragma once

#include "kxgui/Export.h"
#include "platform/drawing/OdCmColor.h"
#include "platform/drawing/OdDb.h"
#include "platform/drawing/OdDbObjectId.h"
#include "platform/host/DrawingTypes.h"
#include "platform/text/OdString.h"

#include <vector>

class CWnd;
class TavoEdCommandContext;

// How host commands open the shared standard dialogs.
//
// The static functions answer a host result code: 5100 when the dialog ended with OK, else -5002 with the out
// arguments untouched. A null out argument is allowed: the choice is then dropped. The others answer whether
// the user confirmed. Operations whose dialog this library does not have answer as a cancelled run and say so
// on the command line.
class KXGUI_EXPORT MGUIManager {
  public:
    MGUIManager() = default;
    // `context` (not owned, may be null) must outlive this. Its drawing, or else the working one, is what the
    // Show... operations without a database argument work on.
    explicit MGUIManager(TavoEdCommandContext* context) : m_context(context) {}

    // Colour by index: 0 is ByBlock, 256 is ByLayer, 1 to 255 the palette. Any other `defaultColor` stands for
    // the index chosen last (COLORINDEX), which each of these runs records. `special` nonzero: ByLayer and
    // ByBlock can be chosen. A chosen true colour is answered as the nearest index.
    static int DisplayColorDialog(int defaultColor, int* color, int special, CWnd* parent);
    // The same with every kind of colour, above the main window.
    static int DisplayColorDialog(const OdCmColor& defaultColor, OdCmColor& color, int special);
    static int DisplayColorDialogHideTrueColorTab(int defaultColor, int* color, int special, CWnd* parent);
    // `current` is selected at first and says which drawing's linetypes are listed; when it is null, the
    // working one's. `special` nonzero: ByLayer and ByBlock are listed, if the drawing's linetype table has
    // them.
    static int DisplayLinetypeDialog(int special, OdDbObjectId current, OdDbObjectId* linetype, CWnd* parent);
    // Opens on the current lineweight of the working drawing.
    static int DisplayLineWeightDialog(OdDb::LineWeight* lineWeight);
    // Always 5100; `endCode` is the dialog's end code (IDYES, IDNO, IDCANCEL).
    static int DisplayAskMessageBoxDialog(const OdString& message, bool& doNotAsk, int& endCode);

    // `color` is what it opens on and, after OK, what was chosen.
    bool ShowColorDialog(OdCmColor& color, bool special);
    // These make the choice what new objects get (CELTYPE, CELWEIGHT), as one undo step of the drawing; what
    // can't be stored is told in a box and answers false.
    bool ShowLineTypeDialog(const OdDbDatabasePtr& database);
    bool ShowLineWeightDialog();

    bool ShowToleranceDialog(OdString& tolerance);
    bool ShowToleranceDialog(OdDbObjectId tolerance);
    bool ShowLayerMatchDialog(OdDbObjectId& layer);
    bool ShowImageControlDialog(OdDbObjectId* image);
    bool ShowImageControlDialogAndGetDataOnly(OdDbObjectId* image, int& brightness, int& contrast, int& fade);
    bool ShowMTextBackMaskDialog(OdDbObjectId* mtext);
    bool ShowMTextColTypeDialog(OdDbObjectId* mtext);
    bool ShowHPatternPaletteDialog(TavoEdCommandContext* context, OdString& patternName, bool* changed);
    bool ShowHPatternTypeDialog(TavoEdCommandContext* context, int& type, OdString& patternName);
    bool ShowStyleDialog(bool modal, void* data);
    bool ShowSetAttributeNameDialog(OdDbObjectId* block, std::vector<OdString>& names);
    bool ShowCustomArrowBlockDialog(OdDbDatabase* database, OdString& blockName);
    bool ShowAutoRestoreControl(OdDbDatabase* database, const std::vector<OdString>& files);
    bool ShowEATTEDIT();

    TavoEdCommandContext* context() const { return m_context; }

  private:
    TavoEdCommandContext* m_context = nullptr;
};
