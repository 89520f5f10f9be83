#pragma once

#include <string>

namespace platform {

/// Puts a file that neither takes nor gives anything in the place of each standard stream that is closed; to be called
/// before anything is opened. The next file that is opened, such as the score file, would else be that stream, and get
/// every warning that a library writes.
void holdStandardStreams();

/// From now on a pipe without a reader, and a file that may not grow, are errors of the call that writes, which has an
/// answer to them. The system would end the program by a signal.
void takeWriteErrors();

/// Empties standard output. The exit code to end with: the one given, but 1 instead of 0 if a part of the output
/// couldn't be written, of which the named program tells on standard error.
int endOutput(const std::string& program, int exitCode);

}  // namespace platform
