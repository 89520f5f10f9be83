#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <random>
#include <sstream>
#include <string>
#include <type_traits>
#include <vector>

#include "platform/controls.h"
#include "platform/form.h"
#include "platform/printer.h"
#include "platform/shared/slots.h"
#include "platform/sim/simulation.h"
#include "platform/toolbar.h"

/// What the files of the simulated desktop share.
namespace sim {

/// Names one form or menu for good; 0 names nothing. A handler may destroy its own object, and the next one may
/// be made at the same address, so what has to outlast a handler is a serial and never a pointer.
using Serial = uint64_t;
Serial nextSerial();  ///< A new one, from 1 upward.

using Control = platform::Control::Impl;

/// A key that went down, or repeats.
struct Stroke {
    int code;       ///< As in platform::key.
    int character;  ///< As handlers get it; 0 for a key without one.
    bool repeat = false;
};

/// An event to come.
struct Posted {
    uint64_t order;  ///< How many were posted before it.
    std::function<void()> action;
};

/// The one piece of music, where it stands and whether it plays.
struct Music {
    double length = 120000;  ///< Milliseconds; 0 while there is no such file.
    bool device = true;      ///< Whether there is anything to hear it with.
    uint64_t performance = 0;
    bool playing = false;
    double start = 0;  ///< Milliseconds from its beginning, where it stands or has begun to play.
    double since = 0;  ///< When it began to play there.
};

constexpr int keyCodes = 256;  ///< A key's code lies below, from 1.

/// All that is on the desktop and all that will happen on it.
struct State {
    double now = 0;          ///< Milliseconds.
    double startSecond = 0;  ///< Of the day, when the desktop was switched on.
    uint32_t seed = 0;
    uint32_t seedings = 0;
    std::mt19937 generator;

    std::function<void(const std::string& line)> log;
    std::shared_ptr<const std::function<void()>> hands;  ///< Shared, since a turn may replace them.
    double handsAt = -1;                                 ///< When the hands last had their turn.
    uint64_t arrivals = 0;
    int idleServices = 0;  ///< How often in a row doEvents() has found nothing.

    std::multimap<double, Posted> posted;  ///< By the time they are due.
    uint64_t postings = 0;

    std::vector<platform::Form::Impl*> forms;  ///< The open ones, the one on top last.
    platform::ToolBar::Impl* toolBar = nullptr;
    platform::PopupMenu::Impl* menu = nullptr;         ///< The open one.
    std::array<std::optional<Serial>, keyCodes> held;  ///< Who was on top when the key went down.
    bool keyRepeats = false;                           ///< Of the key whose handler runs.
    Serial clicked = 0;  ///< On which the left button went down, where Enter means something; 0 for none.
    std::vector<std::string> messages;
    bool screenReader = false;
    std::vector<std::string> announcements;

    platform::Printer printer;
    int printerFailsAtLine = 0;  ///< Of a document, from 1; 0 at none.
    bool printerFailsAtEnd = false;
    std::vector<std::vector<platform::PrintedLine>> sheets;
    Music music;
};

/// The one desktop. It is never destroyed, since forms in static storage may go after everything else.
State& state();

/// Notes that an event has arrived.
void arrive();

/// Lets go of the program's own folder and of all that it holds.
void emptyProgramFolder();

/// Writes a line to the log, parts after the time in milliseconds; costs nothing while there is no log.
template <class... Parts>
void note(const Parts&... parts) {
    if (!state().log) return;
    std::ostringstream line;
    line << static_cast<int64_t>(state().now);
    ((line << ' ' << parts), ...);
    state().log(line.str());
}

/// Runs an event's handler, if there is one; an error that leaves it is reported and goes no further.
template <class... Values>
void deliver(const std::function<void(Values...)>& handler, std::type_identity_t<Values>... values) {
    platform::callSlot(handler, values...);
}

/// Serves events as long as the condition holds; fails with NothingLeft when there is none.
template <class Condition>
void serveWhile(Condition condition) {
    while (condition())
        if (!step()) throw NothingLeft();
}

/// The open form with that serial; null if it isn't open.
platform::Form::Impl* openForm(Serial serial);

/// Who takes keys and clicks now: the open menu, or else the form on top; 0 if nothing is open.
Serial inputOwner();

/// A key goes down, or repeats if it is held.
void keyGoesDown(Stroke stroke);

/// Whether it is a key of a tool button's own, which it then presses unless it repeats.
bool pressToolButton(const Stroke& stroke);

/// Gives a key to the control with the focus and to the button that answers it, after the form has let it through.
void pressOnControls(platform::Form::Impl& form, Stroke stroke);
/// Gives the form's focus to its first control, unless one has it.
void focusFirst(platform::Form::Impl& form);

}  // namespace sim

/// A form on the simulated desktop.
struct platform::Form::Impl {
    explicit Impl(Form& form) : owner(form) {}
    ~Impl();                  ///< Closes it and leaves its controls without a form.
    void open(bool asModal);  ///< Puts it on top and runs onLoad.
    void close();             ///< Takes it off the screen. Nothing if it isn't open.

    Form& owner;
    const sim::Serial serial = sim::nextSerial();
    Surface surface;
    double left = 0;  ///< Twips.
    double top = 0;   ///< Twips.
    bool modal = false;
    bool unloading = false;
    std::vector<Control::Impl*> controls;  ///< In tab order.
    Control::Impl* focus = nullptr;
};

/// A panel on the simulated desktop.
struct platform::Panel::Impl {
    Form::Impl& form;  ///< For what is made on it.
    std::string caption;
};

/// What there is to a control on the simulated desktop. How a person edits, chooses and goes on is the window's affair.
struct platform::Control::Impl {
    enum class Kind { Other, Text, Check, Option };

    /// The last in its form's tab order.
    Impl(Control& control, Kind kindOfControl, const Panel::Impl& holder);
    ~Impl();  ///< Off its form, if that is still there.

    Control& owner;
    const Kind kind;
    Form::Impl* form;  ///< Null once the form is gone.
    bool enabled = true;
    std::string caption;
    int answers = 0;                                 ///< The key that presses it from anywhere on its form.
    const std::function<void()>* onPress = nullptr;  ///< Null where nothing is pressed.
    bool value = false;                              ///< Ticked or chosen.
    std::string text;
    int maxLength = 0;  ///< Characters that may be typed; 0 for no limit.
};

/// A menu on the simulated desktop.
struct platform::PopupMenu::Impl {
    explicit Impl(PopupMenu& menu) : owner(menu) {}

    PopupMenu& owner;
    const sim::Serial serial = sim::nextSerial();
};
