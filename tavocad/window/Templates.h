#pragma once

class QtToolkit;

// Makes the Designer files of the program's own dialogs known.
void addProgramTemplates(QtToolkit& toolkit);
