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

    /// How many times as large as on the screen's own scale all will be shown when the main window opens, as far as it
    /// has room there; 0 for the largest whole zoom that leaves some of the screen free. Without it the zoom is 1.
    void setZoom(double zoom);

    /// Serves events until the main window has been unloaded, as an interrupt or a termination signal does too; returns
    /// the exit code.
    int run();
};

}  // namespace platform
