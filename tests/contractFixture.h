#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>

#include "platform/desktop.h"
#include "platform/form.h"
#include "platform/timer.h"
#include "platform/toolbar.h"
#include "tests/contractDriver.h"

constexpr double twips = 15;  ///< A pixel.

/// Lets a timer tick from now on.
inline void start(platform::Timer& timer, int interval, std::function<void()> onTick) {
    timer.onTick = std::move(onTick);
    timer.setInterval(interval);
    timer.setEnabled(true);
}

/// A main window with a toolbar, and what has happened so far in one line.
class Contract : public testing::Test {
  protected:
    Contract() { driver::begin(); }

    struct Window {
        platform::Form form;
        platform::ToolBar bar{form, 28, 3, {{}, 16, 0xC0C0C0}};
    };

    void showMain() {
        main_ = std::make_unique<Window>();
        main_->form.resize(300 * twips, 200 * twips);
        for (int button = 1; button <= 3; ++button) main_->bar.setButtonImage(button, button);
        main_->bar.onButtonClick = [this](int button) { note("tool " + std::to_string(button)); };
        main_->form.show();
    }

    void note(const std::string& what) { trace_ += trace_.empty() ? what : ", " + what; }

    void noteKeys(platform::Form& form, const std::string& name) {
        form.onKeyDown = [this, name](int& code) { note(name + " down " + std::to_string(code)); };
        form.onKeyPress = [this, name](int& character) { note(name + " press " + std::to_string(character)); };
    }

    /// Shows a dialog for as long as it takes to do that in it.
    void inDialog(platform::Form& dialog, const std::function<void()>& action) {
        driver::post(10, [&] {
            action();
            dialog.unload();
        });
        dialog.resize(100 * twips, 50 * twips);
        dialog.showModal();
    }

    std::unique_ptr<Window> main_;
    std::string trace_;
};
