#include "presentation/buttons.h"

#include <iterator>
#include <string>

#include "frmMain.h"
#include "platform/pictures.h"
#include "presentation/commands.h"
#include "product.h"
#include "toolkit/failures.h"

namespace {

constexpr int imageWidth = 16;                   // pixels
constexpr platform::Color imageMask = 0xC0C0C0;  // lets the button show through

using State = std::string (*)(const frmMain&);
using Command = void (*)(frmMain&);

std::string onOff(bool on) { return on ? "On" : "Off"; }

struct ButtonRow {
    Button::Number button;
    const char* toolTip;
    State state;  // what the tool-tip says behind its text
    Command command;
    platform::ButtonKeys keys = {};  // that press it
};

constexpr State noState = nullptr;
constexpr Command noCommand = nullptr;
constexpr State levelState = [](const frmMain& m) { return std::string(rowOf(levels, m.mlngLevel).caption); };
constexpr State breakDownState = [](const frmMain& m) { return onOff(m.mblnBreakDown); };
constexpr State musicState = [](const frmMain& m) { return onOff(m.mblnMusicOn); };
constexpr State peekState = [](const frmMain& m) { return onOff(m.mblnPeek); };
constexpr State roundState = [](const frmMain& m) {
    return std::string(m.mblnRoundInChinese ? "(In Chinese)" : "(In English)");
};

constexpr ButtonRow buttons[] = {
    {Button::StartAnew, "Start Anew", noState, command::startAnew, {platform::key::F2}},
    {Button::Level, "Level:", levelState, command::chooseLevel},
    {Button::BreakDown, "Break Down:", breakDownState, command::toggleBreakDown},
    {Button::Music, "Music:", musicState, command::toggleMusicOn},
    {Button::HighScores, "High Scores", noState, command::showHighScores},
    {Button::RoundsSetting, "Rounds Setting", noState, command::setRounds},
    {Button::Round, "Round:", roundState, command::toggleRoundLanguage},
    {Button::Peek, "Peek:", peekState, command::togglePeek},
    {Button::Pause, "Pause", noState, command::pause, {'P', platform::key::Pause}},
    {Button::Stop, "Stop", noState, command::stop},
    {Button::Order, "Order", noState, command::showOrder},
    {Button::About, "About " PRODUCT_NAME "...", noState, command::showAbout},
    {Button::Help, "Help", noState, command::showHelp, {platform::key::F1}},
    {Button::Gap, "", noState, noCommand},
    {Button::Exit, "Exit", noState, command::exit},
};

/// True if every button has its row, and the rows stand in the order of the numbers.
constexpr bool buttonsInOrder() {
    for (int i = 0; i < static_cast<int>(std::size(buttons)); ++i)
        if (buttons[i].button != i + 1) return false;
    return std::size(buttons) == toolbarButtons;
}
static_assert(buttonsInOrder());

}  // namespace

platform::ImageList ImageList1() {
    const auto strip = guarded("ImageList1", [] { return platform::pictureByName("ImageList1"); });
    return {strip, imageWidth, imageMask};
}

void frmMain::msSetUpToolbar() {
    mnuLevel.caption = "Level";
    for (const LevelRow& level : levels) mnuLevel.items.emplace_back(level.caption);
    mnuLevel.checkedItem = 1;
    for (const ButtonRow& row : buttons) {
        tbrZQT.setButtonImage(row.button, gintfButtonImage(row.button));
        tbrZQT.setButtonKeys(row.button, row.keys);
    }
    tbrZQT.stretch(Button::Gap);
}

void frmMain::msSetToolTipText() {
    guarded("msSetToolTipText", [&] {
        for (const ButtonRow& row : buttons) {
            mastrToolTip[row.button] = row.toolTip;
            msShowToolTip(row.button);
        }
    });
}

void frmMain::msShowToolTip(int button) {
    const State state = rowOf(buttons, button).state;
    tbrZQT.setToolTip(button, mastrToolTip[button] + (state != noState ? state(*this) : ""));
}

void frmMain::tbrZQT_ButtonClick(int button) {
    guarded("tbrZQT_ButtonClick", [&] {
        const Command command = rowOf(buttons, button).command;
        if (command != noCommand) command(*this);
    });
}
