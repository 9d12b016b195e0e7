#pragma once
// Turns one call across the seam into one line of a trace. TracingHost.h describes the line.

#include "hostlink/JsonText.h"
#include "hostlink/TraceWriter.h"

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

namespace ocuva {

/// Numbers the lines of one trace and adds the time.
class Trace {
public:
    /// Times count from the construction.
    explicit Trace(const std::filesystem::path& file)
        : m_writer(file) {}

    /// False if lines are not written and need not be composed.
    bool isOpen() const { return m_writer.isOpen(); }

    /// Appends a line. `body` is the line from "lib" on, without the closing brace.
    void write(const std::string& body);

private:
    TraceWriter m_writer;
    std::chrono::steady_clock::time_point m_start = std::chrono::steady_clock::now();
    std::uint64_t m_lastNumber = 0;
};

/// One call: constructed before it with its inputs, ended after it with its outputs.
class TracedCall {
public:
    /// The names are those in Host.h. The trace outlives this object.
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

    /// To be called after the host has returned; null is the result of a function without one.
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
