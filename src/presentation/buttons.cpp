#include "presentation/buttons.h"

#include <iterator>
#include <string>

#include "frmMain.h"
#include "platform/pictures.h"
#include "toolkit/failures.h"

namespace {

constexpr int imageWidth = 16;                   // pixels
constexpr platform::Color imageMask = 0xC0C0C0;  // lets the button show through

using State = std::string (*)(const frmMain&);
using Command = void (frmMain::*)();

std::string onOff(bool on) { return on ? "On" : "Off"; }

struct ButtonRow {
    Button::Number button;
    const char* toolTip;
    int image;    // in ImageList1, 0 for none
    State state;  // what the tool-tip says behind its text
    Command command;
    platform::ButtonKeys keys = {};  // that press it
};

constexpr State noState = nullptr;
constexpr Command noCommand = nullptr;
constexpr State levelState = [](const frmMain& m) { return m.mnuLevel.itemCaption(m.mlngLevel); };
constexpr State breakDownState = [](const frmMain& m) { return onOff(m.mblnBreakDown); };
constexpr State musicState = [](const frmMain& m) { return onOff(m.mblnMusicOn); };
constexpr State peekState = [](const frmMain& m) { return onOff(m.mblnPeek); };
constexpr State roundState = [](const frmMain& m) {
    return std::string(m.mblnRoundInChinese ? "(In Chinese)" : "(In English)");
};

constexpr ButtonRow buttons[] = {
    {Button::StartAnew, "Start Anew", 1, noState, &frmMain::msStartAnew, {platform::key::F2}},
    {Button::Level, "Level:", 2, levelState, &frmMain::msChooseLevel},
    {Button::BreakDown, "Break Down:", 3, breakDownState, &frmMain::msToggleBreakDown},
    {Button::Music, "Music:", 4, musicState, &frmMain::msToggleMusicOn},
    {Button::HighScores, "High Scores", 5, noState, &frmMain::msShowHighScores},
    {Button::RoundsSetting, "Rounds Setting", 6, noState, &frmMain::msSetRounds},
    {Button::Round, "Round:", 7, roundState, &frmMain::msToggleRoundLanguage},
    {Button::Peek, "Peek:", 8, peekState, &frmMain::msTogglePeek},
    {Button::Pause, "Pause", 9, noState, &frmMain::msPause, {'P', platform::key::Pause}},
    {Button::Stop, "Stop", 10, noState, &frmMain::msStop},
    {Button::Order, "Order", 11, noState, &frmMain::msShowOrder},
    {Button::About, "About Velmora...", 12, noState, &frmMain::msShowAbout},
    {Button::Help, "Help", 13, noState, &frmMain::msShowHelp, {platform::key::F1}},
    {Button::Gap, "", 0, noState, noCommand},
    {Button::Exit, "Exit", 14, noState, &frmMain::msExit},
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
    for (const LevelRow& level : levels) mnuLevel.addItem(level.caption);
    mnuLevel.setChecked(1, true);
    for (const ButtonRow& row : buttons) {
        tbrZQT.setButtonImage(row.button, row.image);
        tbrZQT.setButtonKeys(row.button, row.keys);
    }
    tbrZQT.setWidth(form.scaleWidth());
    const int count = tbrZQT.buttonCount();
    tbrZQT.setButtonWidth(Button::Gap, tbrZQT.width() - (count - 1) * tbrZQT.buttonWidth(count));
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
        if (command != noCommand) (this->*command)();
    });
}
