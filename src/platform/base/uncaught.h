#pragma once

#include <cstdint>
#include <string>

namespace platform {

/// Gives the program the name that stands in the titles of its reports; until then it is "Program".
void setProgramName(const std::string& name);
const std::string& programName();

/// Tells the player of a failure by its number and description, with the name of where it happened in the title, and
/// waits for the answer.
void reportFailure(int32_t number, const std::string& description, const std::string& where);

/// Tells the player of the exception that is being handled, in a message box, and waits for the answer.
void reportUncaught();

}  // namespace platform
