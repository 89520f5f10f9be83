#pragma once

namespace platform {

/// The program on the desktop: its name, its icon and its event loop. Made once, before any form.
class Application {
  public:
    Application(int& argc, char** argv);  ///< argc and argv must outlive the program's forms.

    int run();  ///< Serves events until the main window has been unloaded; returns the exit code.
};

}  // namespace platform
