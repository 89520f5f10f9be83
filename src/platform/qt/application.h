#pragma once

#include <memory>

class QApplication;

namespace platform {

/// The program on the desktop: its name, its icon and its event loop. Made once, before any form.
class Application {
  public:
    Application(int& argc, char** argv);  ///< argc and argv must outlive it.
    ~Application();

    int run();  ///< Serves events until the main window has been unloaded; returns the exit code.

  private:
    std::unique_ptr<QApplication> application_;
};

}  // namespace platform
