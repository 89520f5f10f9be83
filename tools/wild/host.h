#pragma once

#include <functional>
#include <string>

#include "tools/wild/ledger.h"

// What a run has of its own, so that it leaves nothing behind and finds nothing there.

namespace wild {

/// Goes on in a folder of the run's own, beside the program, in which all that belongs to the program lies too, with
/// the same addresses each time; the folder's path. Under another name, since the game keeps its scores beside itself.
std::string moveToOwnFolder(char** arguments);

/// Empties it of what the game has written; or takes it away.
void clearFolder(const std::string& folder);
void leaveFolder(const std::string& folder);

/// Does something in a process of its own; false if it ended otherwise than by the game's own end, or stopped answering
/// for too long. Why is in the ledger.
bool inOwnProcess(Ledger& ledger, const std::function<void()>& action);

/// The ledger of the runs, which their processes share.
Ledger& sharedLedger();

}  // namespace wild
