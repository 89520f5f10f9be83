#pragma once

// What the product is called, and its files. The names are macros so that other literals can be joined to them.

#define PRODUCT_NAME "Velmora"
#define PRODUCT_ID "velmora"          ///< Of its desktop file and its icons.
#define PRODUCT_AUTHOR "Tavin Orlec"  ///< Who made it, and whom an order pays.
#define PRODUCT_VERSION_SHORT "1.0"
#define PRODUCT_VERSION PRODUCT_VERSION_SHORT ".0"

/// The files beside the program, which runs without any of them.
namespace productFile {
constexpr char help[] = "ZQT.hlp";
constexpr char music[] = "mendel1.mid";
constexpr char thunder[] = "Thunder2.wav";
constexpr char hiScores[] = "HiScore.dat";
}  // namespace productFile
