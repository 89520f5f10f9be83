#include <cstdio>

#include "commandLine.h"
#include "frmMain.h"
#include "platform/qt/window/application.h"
#include "product.h"

int main(int argc, char** argv) {
    if (const auto answer = answerTo(argc, argv)) {
        std::fputs(answer->text.c_str(), answer->exitCode == 0 ? stdout : stderr);
        return answer->exitCode;
    }
    platform::Application application(argc, argv, PRODUCT_NAME, PRODUCT_ID);
    const auto main = gfrmMain.hold();
    main->form.show();
    return application.run();
}
