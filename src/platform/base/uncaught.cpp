#include "platform/base/uncaught.h"

#include <exception>

#include "platform/base/runtime.h"
#include "platform/desktop.h"

namespace platform {

void reportFailure(int32_t number, const std::string& description, const std::string& where) {
    messageBox("Error In " + where, "Error " + std::to_string(number) + " - " + description);
}

void reportUncaught() {
    constexpr int32_t internalError = 51;
    try {
        throw;
    } catch (const RuntimeError& error) {
        reportFailure(error.number(), error.what(), programName);
    } catch (const std::exception& error) {
        reportFailure(internalError, std::string("Internal error: ") + error.what(), programName);
    } catch (...) {
        reportFailure(internalError, "Internal error", programName);
    }
}

}  // namespace platform
