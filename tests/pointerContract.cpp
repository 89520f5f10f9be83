#include "platform/controls.h"
#include "platform/desktop.h"
#include "tests/contractFixture.h"

// What the pointer does to forms that look at it, on every back end.

namespace {

using namespace platform;
using namespace driver;
using namespace key;

class PointerContract : public Contract {
  protected:
    /// Has the left half of the form, 50 pixels, answer to clicks, and notes what comes to it.
    void answerLeftHalf(Form& form, const std::string& name) {
        form.onPoint = [this](int x, int y) {
            at_ = std::to_string(x) + ' ' + std::to_string(y);
            return x < 50;
        };
        noteKeys(form, name);
    }

    std::string at_;  // where the pointer was last told to be
};

TEST_F(PointerContract, AClickIsEnterWhereTheFormHasAUseForIt) {
    struct {
        const char* what;
        void (*act)();
        const char* trace;
        const char* at;
    } const rows[] = {
        {"a way", [] { movePointer(10, 20), movePointer(60, 30); }, "", "60 30"},
        {"a click", [] { buttonDown(10, 20), buttonUp(12, 21); }, "d down 13, d press 13", "12 21"},
        {"two clicks",
         [] {
             for (int i = 0; i < 2; ++i) buttonDown(10, 20), buttonUp(10, 20);
         },
         "d down 13, d press 13, d down 13, d press 13", "10 20"},
        {"a click at no use", [] { buttonDown(50, 20), buttonUp(50, 20); }, "", "50 20"},
        {"let go elsewhere", [] { buttonDown(49, 20), buttonUp(51, 20); }, "", "51 20"},
        {"begun elsewhere", [] { buttonDown(51, 20), buttonUp(49, 20); }, "", "49 20"},
        {"beside the form", [] { buttonDown(40, 60), buttonUp(40, 60); }, "", ""},
        {"let go beside the form", [] { movePointer(40, 40), buttonDown(40, 40), buttonUp(40, 60); }, "", "40 40"},
    };
    showMain();
    for (const auto& row : rows) {
        trace_.clear();
        Form dialog;
        answerLeftHalf(dialog, "d");
        inDialog(dialog, [&] {
            movePointer(0, 0);
            at_.clear();
            row.act();
        });
        EXPECT_EQ(trace_, row.trace) << row.what;
        EXPECT_EQ(at_, row.at) << row.what;
    }
}

TEST_F(PointerContract, FramesAndPanelsLetClicksThrough) {
    showMain();
    Form dialog;
    answerLeftHalf(dialog, "d");
    const Panel outer(dialog, {0, 0, 100, 50});
    Panel holder(dialog, {0, 0, 60, 50});
    const Panel inner(holder, {5, 5, 40, 40});
    Shape frame(dialog);
    frame.setPlace({0, 0, 30, 30});
    frame.setVisible(true);
    inDialog(dialog, [&] {
        for (const int x : {12, 42, 48}) {
            at_.clear();
            buttonDown(x, 20);
            buttonUp(x, 21);
            EXPECT_EQ(at_, std::to_string(x) + " 21");
        }
    });
    EXPECT_EQ(trace_, "d down 13, d press 13, d down 13, d press 13, d down 13, d press 13");
}

TEST_F(PointerContract, AClickBelongsToOneForm) {
    showMain();
    Form below, above;
    answerLeftHalf(below, "below");
    answerLeftHalf(above, "above");
    inDialog(below, [&] {
        buttonDown(10, 20);
        inDialog(above, [] {
            buttonUp(10, 20);
            buttonDown(11, 20);
            buttonUp(11, 20);
            buttonDown(12, 20);
        });
        buttonUp(10, 20);
        buttonDown(10, 20);
        inDialog(above, [] {});
        buttonUp(10, 20);
        buttonDown(10, 20);
        messageBox("Program", "Stop");
        buttonUp(10, 20);
        note("again");
        buttonDown(10, 20);
        buttonUp(10, 20);
    });
    EXPECT_EQ(trace_, "above down 13, above press 13, again, below down 13, below press 13");
}

TEST_F(PointerContract, AFormMayGoWithAClick) {
    showMain();
    auto dialog = std::make_unique<Form>();
    answerLeftHalf(*dialog, "d");
    dialog->onKeyPress = [&](int&) { dialog.reset(); };
    post(10, [] { buttonDown(10, 20), buttonUp(10, 20); });
    dialog->resize(100 * twips, 50 * twips);
    dialog->showModal();
    EXPECT_EQ(dialog, nullptr);
    EXPECT_EQ(trace_, "d down 13");
}

}  // namespace
