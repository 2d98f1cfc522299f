#pragma once

#include <QApplication>

// The one application of a test program, without a display unless QT_QPA_PLATFORM asks for one. Never
// destroyed: Qt allows one per process and the tests' order is not known.
inline QApplication& qtApp() {
    static QApplication* app = [] {
        if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
        static int argc = 1;
        static char name[] = "test";
        static char* argv[] = {name, nullptr};
        return new QApplication(argc, argv);
    }();
    return *app;
}
