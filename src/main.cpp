#include <cstdio>

#include "commandLine.h"
#include "frmMain.h"
#include "platform/base/process.h"
#include "platform/qt/window/application.h"
#include "product.h"

int main(int argc, char** argv) {
    const CommandLine line = read(argc, argv);
    if (line.answer) {
        std::fputs(line.answer->text.c_str(), line.answer->exitCode == 0 ? stdout : stderr);
        return platform::endOutput("velmora", line.answer->exitCode);
    }
    platform::Application application(argc, argv, PRODUCT_NAME, PRODUCT_ID);
    application.setZoom(line.zoom);
    const auto main = gfrmMain.hold();
    main->form.show();
    return application.run();
}
