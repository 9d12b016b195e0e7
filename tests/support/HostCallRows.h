#pragma once
// One call of every host function, some of them more than once, and what a trace shows of it.

#include "support/StubHost.h"

#include <functional>
#include <iosfwd>
#include <string>
#include <vector>

namespace ocuva {

/// A call, and what the trace of a prepared StubHost holds after it.
struct HostCallRow {
    /// What came back, as JSON.
    struct Answer {
        std::string outputs;
        std::string result;
        bool isUntouched = true; ///< no output was written
    };
    using MakeCall = std::function<Answer(Host&)>;

    const char* library;
    const char* function;
    MakeCall makeCall;
    const char* in;
    const char* out;
    const char* ret;
};

/// Every function of the table has a row at least.
const std::vector<HostCallRow>& hostCallRows();

/// Gives the stub answers that differ from each other and from the defaults, failures among them.
void prepare(StubHost& stub);

/// For messages of tests.
void PrintTo(const HostCallRow& row, std::ostream* out);

} // namespace ocuva
