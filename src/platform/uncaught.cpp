#include "platform/uncaught.h"

#include <cstdint>
#include <exception>

#include "platform/desktop.h"
#include "runtime.h"

namespace platform {
namespace {

constexpr int32_t internalError = 51;

std::string& programName() {
    static std::string name = "Program";
    return name;
}

void report(int32_t number, const std::string& description) {
    messageBox("Error In " + programName(), "Error " + std::to_string(number) + " - " + description);
}

}  // namespace

void setProgramName(const std::string& name) { programName() = name; }

void reportUncaught() {
    try {
        throw;
    } catch (const RuntimeError& error) {
        report(error.number(), error.what());
    } catch (const std::exception& error) {
        report(internalError, std::string("Internal error: ") + error.what());
    } catch (...) {
        report(internalError, "Internal error");
    }
}

}  // namespace platform
