#pragma once

#include "tavocad/TavoSession.h"

class QWidget;

// Asks for the drawing to open or the file to save the current one to, starting in the folder of the current
// drawing, else of the drawing opened last. A name to save to without ending gets ".dxf". Nothing when the
// person gave up.
std::optional<std::filesystem::path> askFile(QWidget& owner, TavoSession& session,
                                             TavoSession::FileQuestion question);
