#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <utility>

#include "platform/base/runtime.h"
#include "platform/controls.h"
#include "platform/desktop.h"
#include "platform/form.h"
#include "platform/sound.h"
#include "platform/toolbar.h"
#include "tests/contractFixture.h"

// What every back end of the platform layer promises.

namespace {

using namespace platform;
using namespace driver;
using namespace key;

TEST_F(Contract, ATimerMindsWhatIsChangedAndStandsStillWhileThePlayerIsAway) {
    struct {
        const char* what;
        void (*change)(Timer&);  // 60 ms after a timer of 100 ms was enabled, perhaps while the player is away
        int ticksAfter60;        // since then, or of being back
        int ticksAfter180;
    } const rows[] = {
        {"a changed interval counts from the change", [](Timer& t) { t.setInterval(120); }, 0, 1},
        {"the same interval goes on", [](Timer& t) { t.setInterval(100); }, 1, 2},
        {"enabling an enabled timer changes nothing", [](Timer& t) { t.setEnabled(true); }, 1, 2},
        {"a disabled timer is silent", [](Timer& t) { t.setEnabled(false); }, 0, 0},
        {"enabling anew counts a whole interval", [](Timer& t) { t.setEnabled(false), t.setEnabled(true); }, 0, 1},
    };
    showMain();
    for (const auto& row : rows)
        for (const bool away : {false, true}) {
            SCOPED_TRACE(std::string(row.what) + (away ? ", away" : ""));
            int ticks = 0;
            Timer timer;
            start(timer, 100, [&] { ++ticks; });
            run(60);
            if (away) goAway();
            run(away ? 75 : 0);
            row.change(timer);
            run(away ? 75 : 0);
            EXPECT_EQ(ticks, 0);
            if (away) comeBack();
            run(60);
            EXPECT_EQ(ticks, row.ticksAfter60);
            run(120);
            EXPECT_EQ(ticks, row.ticksAfter180);
        }
}

TEST_F(Contract, TickInsideItsHandlerIsKeptOnce) {
    showMain();
    const auto leaveMenu = [this](Timer&) {
        chooseMenuItem(0);
        PopupMenu menu(main_->form);
        menu.items = {"Easy"};
        menu.onClick = [](int item) { ADD_FAILURE() << item << " was chosen"; };
        menu.popUp();
    };
    struct {
        const char* what;
        std::function<void(Timer&)> change;  // at the end of a handler that took more than two intervals
        int ticks;
    } const rows[] = {
        {"one tick is kept, not two", [](Timer&) {}, 2},
        {"a changed interval drops it", [](Timer& t) { t.setInterval(300); }, 1},
        {"disabling drops it", [](Timer& t) { t.setEnabled(false), t.setEnabled(true); }, 1},
        {"a dialog drops it", [this](Timer&) { inDialog(*std::make_unique<Form>(), [] {}); }, 1},
        {"a menu drops it", leaveMenu, 1},
    };
    for (const auto& row : rows) {
        int ticks = 0, depth = 0;
        Timer timer;
        start(timer, 100, [&] {
            EXPECT_EQ(depth++, 0) << row.what << ": a tick came inside its own handler";
            if (++ticks == 1) {
                run(230);
                row.change(timer);
            }
            --depth;
        });
        run(120);
        run(30);
        EXPECT_EQ(ticks, row.ticks) << row.what;
    }
}

TEST_F(Contract, DoEventsServesWhatIsPendingOnce) {
    Timer timer;
    start(timer, 10, [&] {
        timer.setEnabled(false);
        post(0, [&] { note("event"); });
        note("before");
        doEvents();
        note("after");
        doEvents();
    });
    run(60);
    EXPECT_EQ(trace_, "before, event, after");
}

TEST_F(Contract, FormRunsItsHandlersOncePerShow) {
    Form form;
    form.onLoad = [&] { note(form.loaded() ? "load" : "load too early"); };
    form.onUnload = [&] {
        note("unload");
        form.unload();
    };
    form.resize(300 * twips, 200 * twips);
    form.move(30 * twips, 40 * twips);
    EXPECT_EQ(form.scaleWidth(), 300);
    EXPECT_EQ(form.scaleHeight(), 200);
    EXPECT_EQ(form.width(), 300 * twips);
    EXPECT_EQ(form.left(), 30 * twips);
    form.unload();
    EXPECT_EQ(trace_, "") << "a form that isn't loaded doesn't unload";
    for (int time = 0; time < 2; ++time) {
        form.show();
        EXPECT_TRUE(form.loaded());
        form.unload();
        EXPECT_FALSE(form.loaded());
    }
    EXPECT_EQ(trace_, "load, unload, load, unload");
}

TEST_F(Contract, ModalShowWaitsForTheUnload) {
    showMain();
    int ticks = 0;
    Timer timer;
    start(timer, 20, [&] { ++ticks; });
    Form outer, inner;
    post(100, [&] {
        note("inner");
        inDialog(inner, [&] { note(std::to_string(outer.loaded() && inner.loaded())); });
        note("inner gone");
        outer.unload();
    });
    note("outer");
    outer.showModal();
    note("outer gone");
    EXPECT_EQ(trace_, "outer, inner, 1, inner gone, outer gone");
    EXPECT_GE(ticks, 3) << "timers go on while a dialog is open";
}

TEST_F(Contract, FormMayBeLetGoOfWhileItUnloads) {
    showMain();
    struct Question {
        Form form;
        int answer = 0;
    };
    auto reference = std::make_shared<Question>();
    reference->form.onKeyPress = [&](int& character) {
        reference->answer = character;
        reference->form.unload();
    };
    reference->form.onUnload = [&] { reference.reset(); };
    post(10, [] { pressKey(Enter); });
    const auto held = reference;
    held->form.showModal();
    EXPECT_EQ(reference, nullptr);
    EXPECT_EQ(held->answer, Enter);
    EXPECT_FALSE(held->form.loaded());
}

TEST_F(Contract, KeysArriveAsCodesAndCharacters) {
    struct {
        int key;
        const char* trace;
    } const rows[] = {
        {Left, "main down 37"},
        {Down, "main down 40"},
        {'A', "main down 65, main press 97"},
        {'7', "main down 55, main press 55"},
        {Enter, "main down 13, main press 13"},
        {Escape, "main down 27, main press 27"},
        {Space, "main down 32, main press 32"},
    };
    showMain();
    noteKeys(main_->form, "main");
    for (const auto& row : rows) {
        trace_.clear();
        pressKey(row.key);
        EXPECT_EQ(trace_, row.trace);
    }
    for (const int pad : {Pad2, Pad4, Pad6, Pad8}) {
        trace_.clear();
        pressKey(pad);
        EXPECT_EQ(trace_.rfind("main down " + std::to_string(pad), 0), 0U) << trace_;
    }
}

TEST_F(Contract, KeyThatUnloadsItsFormGoesNoFurtherAndNothingComesBeforeItsAnswer) {
    showMain();
    noteKeys(main_->form, "main");
    main_->bar.setButtonKeys(2, {'P'});
    Form dialog, next;
    noteKeys(next, "next");
    dialog.onKeyDown = [&](int& code) {
        dialog.unload();
        if (code == 'N') inDialog(next, [] { pressKey('X'); });
    };
    dialog.onKeyPress = [&](int&) { note("dialog press"); };
    for (const int code : {int{Enter}, int{'N'}}) {
        post(10, [code] {
            for (const int inOneGo : {code, int{'A'}, int{'P'}}) pressKey(inOneGo);
            keyDown('R');
            clickToolButton(2);
        });
        dialog.showModal();
        note("answer");
        keyDown('R');
        keyUp('R');
    }
    pressKey('P');
    EXPECT_EQ(trace_, "answer, next down 88, next press 120, answer, tool 2");
}

TEST_F(Contract, AHeldKeySaysThatItRepeatsUntilItIsLetGo) {
    showMain();
    Form& form = main_->form;
    form.onKeyDown = [&](int& code) {
        if (code == Up) pressKey(Right);  // another key, while this one is still being served
        note(std::to_string(code) + (form.keyRepeats() ? " again" : ""));
    };
    Form dialog, next;
    noteKeys(dialog, "dialog");
    noteKeys(next, "next");
    struct {
        const char* what;
        std::function<void()> happens;
        const char* told;
    } const rows[] = {
        {"a press", [] { keyDown(Down); }, "40"},
        {"its repeats", [] { keyDown(Down), keyDown(Down); }, "40 again, 40 again"},
        {"another key", [] { keyDown(Pad2); }, "98"},
        {"both held", [] { keyDown(Down), keyDown(Pad2); }, "40 again, 98 again"},
        {"let go and pressed", [] { keyUp(Down), keyDown(Down); }, "40"},
        {"let go in a dialog", [&] { inDialog(dialog, [] { keyDown(Down), keyUp(Down); }); }, ""},
        {"pressed after it", [] { keyDown(Down); }, "40"},
        {"held through a dialog", [&] { inDialog(dialog, [] { keyDown(Down); }); }, ""},
        {"still held", [] { keyDown(Down); }, "40 again"},
        {"begun in another dialog", [&] { inDialog(dialog, [] { keyDown(Enter); }); },
         "dialog down 13, dialog press 13"},
        {"held into the next", [&] { inDialog(next, [] { keyDown(Enter), keyUp(Enter), keyDown(Enter); }); },
         "next down 13, next press 13"},
        {"held with a key inside", [] { keyDown(Up), keyDown(Up); }, "39, 38, 39, 38 again"},
    };
    for (const auto& row : rows) {
        trace_.clear();
        row.happens();
        EXPECT_EQ(trace_, row.told) << row.what;
    }
    for (const int code : {Down, Pad2, Up, Enter}) keyUp(code);
}

TEST_F(Contract, AHeldKeyIsLetGoWhenThePlayerGoesAwayAndAnyBringsHimBack) {
    showMain();
    noteKeys(main_->form, "main");
    int ticks = 0;
    Timer timer;
    start(timer, 10, [&] { ++ticks; });
    keyDown(Down);
    goAway();
    ticks = 0;
    run(60);
    EXPECT_EQ(ticks, 0);
    keyDown(Down);
    keyDown(Down);
    EXPECT_EQ(trace_, "main down 40") << "it goes on to repeat, but for nobody";
    run(60);
    EXPECT_GT(ticks, 0) << "without a window manager nothing else tells that he is back";
    keyUp(Down);
    keyDown(Down);
    keyUp(Down);
    EXPECT_EQ(trace_, "main down 40, main down 40");
}

TEST_F(Contract, AToolButtonIsPressedByClicksAndItsKeysUnlessADialogIsOpen) {
    showMain();
    noteKeys(main_->form, "main");
    main_->bar.setButtonKeys(2, {'P', Pause});
    main_->bar.setButtonKeys(3, {'Q'});
    main_->bar.setButtonImage(3, 0);
    Form dialog;
    noteKeys(dialog, "dialog");
    struct {
        const char* what;
        std::function<void()> happens;
        const char* trace;
    } const rows[] = {
        {"a click", [] { clickToolButton(2); }, "tool 2"},
        {"its key", [] { pressKey('P'); }, "tool 2"},
        {"its other key, held", [] { keyDown(Pause), keyDown(Pause), keyDown(Pause); }, "tool 2"},
        {"a click under a dialog", [&] { inDialog(dialog, [] { clickToolButton(2); }); }, ""},
        {"a key under it", [&] { inDialog(dialog, [] { pressKey('P'); }); }, "dialog down 80, dialog press 112"},
        {"held through it", [] { keyDown(Pause), keyUp(Pause); }, ""},
        {"pressed anew", [] { pressKey(Pause); }, "tool 2"},
        {"the key of a gap", [] { pressKey('Q'); }, "main down 81, main press 113"},
    };
    for (const auto& row : rows) {
        trace_.clear();
        row.happens();
        EXPECT_EQ(trace_, row.trace) << row.what;
    }
}

/// All that calls handlers, in one object.
struct Caller {
    Form form;
    ToolBar bar{form, 28, 1, {{}, 16, 0xC0C0C0}};
    Panel panel{form, {0, 0, 100, 50}};
    CommandButton button{panel, {5, 5, 40, 20}};
    Timer timer;
    MMControl music;
};

TEST_F(Contract, AHandlerMayLetGoOfWhatCallsIt) {
    using Handler = std::function<void()>;
    struct {
        const char* what;
        void (*arm)(Caller&, Handler);
        void (*provoke)(const Caller&);
    } const rows[] = {
        {"timer", [](Caller& caller, Handler handler) { start(caller.timer, 10, std::move(handler)); },
         [](const Caller&) { run(50); }},
        {"status event",
         [](Caller& caller, Handler handler) {
             caller.music.onStatusUpdate = std::move(handler);
             caller.music.setUpdateInterval(10);
         },
         [](const Caller&) { run(50); }},
        {"button", [](Caller& caller, Handler handler) { caller.button.onClick = std::move(handler); },
         [](const Caller& caller) { click(caller.button); }},
        {"tool button",
         [](Caller& caller, Handler handler) {
             caller.bar.onButtonClick = [handler = std::move(handler)](int) { handler(); };
         },
         [](const Caller&) { clickToolButton(1); }},
    };
    for (const auto& row : rows) {
        auto caller = std::make_unique<Caller>();
        caller->form.resize(100 * twips, 50 * twips);
        caller->bar.setButtonImage(1, 1);
        caller->form.show();
        bool captureLives = false;
        row.arm(*caller, [&caller, &captureLives, capture = std::make_shared<int>()] {
            const std::weak_ptr<int> watched = capture;
            bool& answer = captureLives;
            caller.reset();
            answer = !watched.expired();
        });
        row.provoke(*caller);
        EXPECT_EQ(caller, nullptr) << row.what;
        EXPECT_TRUE(captureLives) << row.what << ": what a handler has captured stays until it returns";
    }
}

TEST_F(Contract, UncaughtErrorIsReportedAndTheLoopGoesOn) {
    using Fault = std::function<void()>;
    struct {
        const char* what;
        std::function<void(Contract::Window&, Timer&, const Fault&)> arm;
        std::function<void()> provoke;
    } const rows[] = {
        {"timer", [](Window&, Timer& timer, const Fault& fault) { start(timer, 50, fault); }, [] { run(70); }},
        {"key down", [](Window& main, Timer&, const Fault& fault) { main.form.onKeyDown = [=](int&) { fault(); }; },
         [] { pressKey(Left); }},
        {"key press", [](Window& main, Timer&, const Fault& fault) { main.form.onKeyPress = [=](int&) { fault(); }; },
         [] { pressKey(Enter); }},
        {"tool button",
         [](Window& main, Timer&, const Fault& fault) { main.bar.onButtonClick = [=](int) { fault(); }; },
         [] { clickToolButton(1); }},
        {"load", [](Window& main, Timer&, const Fault& fault) { main.form.onLoad = fault; }, [] {}},
    };
    const std::pair<Fault, const char*> faults[] = {
        {[] { failure::overflow(); }, "Error In Program: Error 6 - Overflow"},
        {[] { throw std::logic_error("odd"); }, "Error In Program: Error 51 - Internal error: odd"},
        {[] { throw 7; }, "Error In Program: Error 51 - Internal error"},
    };
    for (const auto& row : rows) {
        for (const auto& [fault, message] : faults) {
            begin();
            showMain();
            Timer timer;
            row.arm(*main_, timer, fault);
            main_->form.unload();
            main_->form.show();
            row.provoke();
            timer.setEnabled(false);
            EXPECT_EQ(lastMessage(), message) << row.what;
            trace_.clear();
            post(0, [this] { note("next"); });
            run(20);
            EXPECT_EQ(trace_, "next") << row.what;
            main_.reset();
        }
    }
}

}  // namespace
