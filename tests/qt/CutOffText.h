#pragma once

#include <string>
#include <vector>

class QWidget;

// One line for every visible widget of `window` that shows less than its whole text or stands out of its
// parent.
std::vector<std::string> cutOffTexts(const QWidget& window);
