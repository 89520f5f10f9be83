#pragma once

#include <QtGlobal>

#include "platform/qt/window/application.h"

/// Makes this process a program on Qt's desktop of that name, once.
inline void setUpApplication(const char* desktop = "offscreen", const char* name = "Velmora") {
    static int argc = 1;
    static char program[] = "tests";
    static char* argv[] = {program, nullptr};
    qputenv("QT_QPA_PLATFORM", desktop);
    static const platform::Application application(argc, argv, name, "velmora");
}
