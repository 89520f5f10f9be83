#pragma once

#include <cstdint>
#include <string>

#include "play/model.h"

/// A kind of tile, 1 to 42, in words, such as "3 of Bamboo".
std::string gstrfKindName(int16_t kind);

/// One, two or three tiles that are offered as a set, in words, such as "a pair of 3 of Bamboo".
std::string gstrfSetName(const SetOfTiles& tiles);
