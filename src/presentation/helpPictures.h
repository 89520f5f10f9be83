#pragma once

#include <string>

#include "platform/help.h"

/// The picture that the help text asks for by that name: "tiles:" and the short names of tiles, joined by commas, or
/// "icon:" and the number of a button of the toolbar. One of no size for any other name.
///
/// Tiles are c1 to c9 circles, b1 to b9 bamboo, w1 to w9 characters, E S W N the winds, R G B the dragons, s1 to s4
/// seasons, f1 to f4 flowers, and "back", a tile that lies face down.
platform::HelpPicture gudtfHelpPicture(const std::string& strName);
