#pragma once

#include <string>

namespace platform {

/// The program on the desktop: its name, its icon and its event loop. Made once, before any form.
class Application {
  public:
    /// The name is what people read; the id is that of the desktop file and, with "-" and the size in pixels behind it,
    /// of the pictures that are the program's icon. argc and argv must outlive the program's forms. Without a display
    /// the process ends with one sentence and exit code 1.
    Application(int& argc, char** argv, const std::string& name, const std::string& id);

    /// Serves events until the main window has been unloaded, as an interrupt or a termination signal does too; returns
    /// the exit code.
    int run();
};

}  // namespace platform
