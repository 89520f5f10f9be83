#include "frmMain.h"
#include "platform/qt/application.h"

int main(int argc, char** argv) {
    platform::Application application(argc, argv, "Velmora", "velmora");
    const auto main = gfrmMain.hold();
    main->form.show();
    return application.run();
}
