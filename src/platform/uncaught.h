#pragma once

#include <string>

namespace platform {

/// Gives the program the name that stands in the titles of its reports; until then it is "Program".
void setProgramName(const std::string& name);

/// Tells the player of the exception that is being handled, in a message box, and waits for the answer.
void reportUncaught();

}  // namespace platform
