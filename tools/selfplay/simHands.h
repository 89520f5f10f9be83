#pragma once

#include "platform/sim/simulation.h"
#include "tools/selfplay/hands.h"

namespace selfplay {

/// Hands on the simulated desktop.
class SimHands : public Hands {
  public:
    void press(int keyCode) const override { sim::pressKey(keyCode); }
    void click(int toolButton) const override { sim::clickToolButton(toolButton); }
};

}  // namespace selfplay
