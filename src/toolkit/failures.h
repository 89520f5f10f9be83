#pragma once

#include <cstdint>
#include <string>

#include "platform/base/runtime.h"
#include "platform/base/uncaught.h"

/// Tells the player of a failure in the procedure of that name and waits for the answer.
inline void gsReportError(int32_t number, const std::string& description, const std::string& procedure) {
    platform::reportFailure(number, description, procedure);
}

/// Runs a body of which a failure is passed over: nobody is told, and the caller goes on.
template <class Body>
void unreported(Body&& body) {
    try {
        body();
    } catch (const RuntimeError&) {
    }
}

/// The common error path: runs the body; a failure in it is reported under the procedure's name, and the result is
/// then false, 0 or empty.
template <class Body>
auto guarded(const char* procedure, Body&& body) -> decltype(body()) {
    try {
        return body();
    } catch (const RuntimeError& error) {
        gsReportError(error.number(), error.what(), procedure);
        return decltype(body())();
    }
}
