#pragma once

#include "platform/Export.h"
#include "platform/text/OdString.h"

class CWnd;

// Opens the command reference.
class TavoHelp {
  public:
    virtual ~TavoHelp() = default;

    // `window` (may be null) is what the user was in; an empty topic means the help's first page or what the
    // window is about.
    virtual void search(CWnd* window, const OdString& topic) = 0;
};

class KXPLATFORM_EXPORT CommandRefHelp {
  public:
    // Goes to the installed host's help; nothing happens without one.
    static void LocalSearch(CWnd* window, const OdString& topic);
};
