#include "tavocad/window/Templates.h"

#include "qt/QtToolkit.h"

#include <QDir>

void addProgramTemplates(QtToolkit& toolkit) {
    Q_INIT_RESOURCE(tavocad); // the linker leaves it out of a static library otherwise
    toolkit.addTemplatePath(QStringLiteral(":/tavocad"));
}
