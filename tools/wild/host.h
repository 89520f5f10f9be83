#pragma once

#include <functional>
#include <string>

#include "tools/wild/ledger.h"

// What a run has of its own, so that it leaves nothing behind and finds nothing there.

namespace wild {

/// A folder of the run's own, beside the program, in which all that belongs to the program lies too; it goes with the
/// run.
struct OwnFolder {
    /// Makes it and starts the program anew in there, since the game keeps its scores beside itself, and with the same
    /// addresses each time. The program that was started so finds it made.
    explicit OwnFolder(char** arguments);
    ~OwnFolder();
    OwnFolder(const OwnFolder&) = delete;
    OwnFolder& operator=(const OwnFolder&) = delete;

    std::string path;
};

/// Takes away what the game has written there.
void clearFolder(const std::string& folder);

/// From now on an interrupt ends the run, and not at once, so that its folder goes.
void stopOnInterrupt();
bool isStopped();

/// Does something in a process of its own; false if it ended otherwise than by the game's own end, or stopped answering
/// for too long. Why is in the ledger. It ends with the run that is stopped.
bool inOwnProcess(Ledger& ledger, const std::function<void()>& action);

/// The ledger of the runs, which their processes share.
Ledger& sharedLedger();

}  // namespace wild
