#pragma once

namespace selfplay {

/// What the built-in player does on a desktop. Each returns when whatever it has opened is closed again.
class Hands {
  public:
    virtual ~Hands() = default;
    virtual void press(int keyCode) const = 0;     ///< Down and up; a key of platform::key.
    virtual void click(int toolButton) const = 0;  ///< A button of the toolbar.
};

}  // namespace selfplay
