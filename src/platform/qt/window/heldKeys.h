#pragma once

#include <QtGlobal>
#include <map>

class QKeyEvent;
class QWidget;

namespace platform::qt {

/// What a window may do with a key event that says that a key went down.
enum class Press {
    New,     ///< It begins here.
    Repeat,  ///< Of a press that was the window's own.
    Foreign  ///< A repeat of a press that began before another window.
};

/// The keys that are held, each with the window that was on top when it went down.
class HeldKeys {
  public:
    Press take(const QKeyEvent& down, const QWidget* window);  ///< A key went down; null if no window may have it.
    const QWidget* letGo(const QKeyEvent& up);                 ///< A key came up; returns whose press it was, or null.
    void ignoreRepeatsFor(const QWidget* window);              ///< Of the keys that are held for it, as it is gone.
    void letGoOfAll();  ///< Repeats of no key that is held now are heard any more.

  private:
    struct Held {
        const QWidget* window = nullptr;
        quint64 released = 0;  // milliseconds of the event's own clock; 0 while it is down or unknown
    };

    bool isRepeat(const QKeyEvent& down) const;

    std::map<quint32, Held> held_;
};

}  // namespace platform::qt
