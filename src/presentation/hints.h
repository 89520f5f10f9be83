#pragma once

// What the line beside the words Select Tiles tells.
namespace hint {
constexpr char none[] = "";
constexpr char startAnew[] = "Start Anew (F2) begins a match";
constexpr char offer[] = "Left and Right choose, Enter takes";
constexpr char paused[] = "Paused";
constexpr char stopped[] = "Stopped";
constexpr char lostAtEntry[] = "The hand is lost: the entry is taken";
constexpr char lostAtLastTile[] = "The hand is lost: it was the last tile";
}  // namespace hint
