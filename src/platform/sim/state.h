#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <random>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "platform/controls.h"
#include "platform/form.h"
#include "platform/printer.h"
#include "platform/shared/desk.h"
#include "platform/sim/simulation.h"
#include "platform/toolbar.h"

/// What the files of the simulated desktop share.
namespace sim {

using Control = platform::Control::Impl;

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

/// All that is on the desktop and all that will happen on it.
struct State {
    double now = 0;          ///< Milliseconds.
    double startSecond = 0;  ///< Of the day, when the desktop was switched on.
    uint32_t seed = 0;
    uint32_t seedings = 0;
    std::mt19937 generator;

    std::function<void(const std::string& line)> log;
    std::function<void()> witness;
    std::shared_ptr<const std::function<void()>> hands;  ///< Shared, since a turn may replace them.
    double handsAt = -1;                                 ///< When the hands last had their turn.
    uint64_t arrivals = 0;
    int idleServices = 0;  ///< How often in a row doEvents() has found nothing.

    std::multimap<double, Posted> posted;  ///< By the time they are due.
    uint64_t postings = 0;

    std::set<int> keysDown;
    platform::ToolBar::Impl* toolBar = nullptr;
    platform::PopupMenu* menu = nullptr;  ///< The open one.
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

/// Serves events as long as the condition holds; fails with NothingLeft when there is none.
template <class Condition>
void serveWhile(Condition condition) {
    while (condition())
        if (!step()) throw NothingLeft();
}

/// A form on the simulated desktop, with its controls.
class View final : public platform::FormView {
  public:
    explicit View(platform::Form& owner) : form(owner) {}

    void fitToSurface() override {}
    void place() override {}
    void showChanges() override { note("show"); }
    void setCaption(const std::string& text) override { note("title", text); }
    void announce(const std::function<std::string()>& text) override;
    void open(bool asDialog) override;
    void focusFirst() override;
    void wait() override;
    void leave() override { note("form closes"); }
    void retire() override;

    /// Gives a key that the form has let through to the control with the focus and to the button that answers it.
    void pressOnControls(platform::Stroke stroke);
    void focusOn(Control& control);  ///< Nothing if it is disabled.
    bool hasKeys() const;            ///< Whether it is the form on top, with nothing over it.

    platform::Form& form;
    std::vector<Control*> controls;  ///< In tab order.
    Control* focus = nullptr;
};

/// The view of a form.
View& viewOf(platform::Form& form);

/// A key goes down, or repeats if it is held; what it types as a handler gets it, or 0.
void keyGoesDown(int code, int character);

/// Whether it is a key of a tool button's own, which it then presses unless it repeats.
bool pressToolButton(const platform::Stroke& stroke);

}  // namespace sim

/// A panel on the simulated desktop.
struct platform::Panel::Impl {
    sim::View& view;  ///< Of the form that it lies on.
    std::string caption;
};

/// What there is to a control on the simulated desktop. How a person edits, chooses and goes on is the window's affair.
struct platform::Control::Impl {
    enum class Kind { Other, Text, Check, Option };

    /// The last in its form's tab order.
    Impl(Control& control, const Panel::Impl& holder, Kind kindOfControl = Kind::Other);
    ~Impl();  ///< Off its form, if that is still there.

    Control& owner;
    const Kind kind;
    sim::View* view;  ///< Null once the form is gone.
    bool enabled = true;
    std::string caption;
    int answers = 0;                                 ///< The key that presses it from anywhere on its form.
    const std::function<void()>* onPress = nullptr;  ///< Null where nothing is pressed.
    bool value = false;                              ///< Ticked or chosen.
    std::string text;
    int maxLength = 0;  ///< Characters that may be typed; 0 for no limit.
};
