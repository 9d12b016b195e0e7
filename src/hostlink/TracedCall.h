#pragma once
// How one crossing of the seam becomes one line of a trace; the form of the line stands in TracingHost.h.

#include "hostlink/JsonText.h"
#include "hostlink/TraceWriter.h"

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

namespace ocuva {

/// Numbers and dates the lines of one trace.
class Trace {
public:
    /// The dates count from here.
    explicit Trace(const std::filesystem::path& file)
        : m_writer(file) {}

    /// False where the lines go nowhere, and need not be made.
    bool isOpen() const { return m_writer.isOpen(); }

    /// Appends a line; `body` is the line from its "lib" on, without the closing brace.
    void write(const std::string& body);

private:
    TraceWriter m_writer;
    std::chrono::steady_clock::time_point m_start = std::chrono::steady_clock::now();
    std::uint64_t m_lastNumber = 0;
};

/// One call: made before it with what is passed in, ended after it with what came back.
class TracedCall {
public:
    /// The names are those of Host.h; the trace outlives the call.
    template <class... In>
    TracedCall(Trace& trace, std::string_view library, std::string_view function, const std::tuple<In...>& in)
        : m_trace(trace) {
        if (m_trace.isOpen()) {
            m_body.reserve(160);
            m_body += "\"lib\":\"";
            m_body += library;
            m_body += "\",\"fn\":\"";
            m_body += function;
            m_body += "\",\"in\":";
            appendJson(m_body, in);
        }
    }

    /// To be called when the host has returned; null is the result of a function that has none.
    template <class Result, class... Out> void end(Result result, const std::tuple<Out...>& out = {}) {
        if (m_trace.isOpen()) {
            m_body += ",\"out\":";
            appendJson(m_body, out);
            m_body += ",\"ret\":";
            appendJson(m_body, result);
            m_trace.write(m_body);
        }
    }

private:
    Trace& m_trace;
    std::string m_body;
};

} // namespace ocuva
