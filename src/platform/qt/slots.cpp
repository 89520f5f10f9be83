#include "platform/qt/slots.h"

#include "platform/desktop.h"
#include "runtime.h"

namespace platform::qt {
namespace {

constexpr char reportTitle[] = "Error In Velmora";
constexpr int internalError = 51;

void report(int number, const std::string& description) {
    messageBox(reportTitle, "Error " + std::to_string(number) + " - " + description);
}

}  // namespace

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

}  // namespace platform::qt
