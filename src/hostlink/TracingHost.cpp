#include "hostlink/TracingHost.h"

#include "hostlink/InterposedHost.h"
#include "hostlink/TracedCall.h"

#include <tuple>
#include <utility>

namespace ocuva {

/// The record's fields as an array, or null.
static void appendJson(std::string& json, const BoardRecord& record) {
    if (!record.visit([&json](const auto&... fields) { appendJsonArray(json, fields...); })) {
        appendJson(json, nullptr);
    }
}

namespace {

/// Writes down each call as it returns.
struct Tracer {
    Trace& trace;

    template <class Call, class... Argument>
    auto operator()(const HostCall& which, const Call& call, const Argument&... passed) const {
        TracedCall line(trace, which.library, which.function, std::tuple_cat(passed.in()...));
        if constexpr (std::is_void_v<decltype(call())>) {
            call();
            line.end(nullptr);
        } else {
            const auto result = call();
            line.end(result, std::tuple_cat(passed.out(result)...));
            return result;
        }
    }
};

class TracedNotifier final : public Notifier {
public:
    TracedNotifier(Trace& trace, std::unique_ptr<Notifier> inner)
        : m_trace(trace)
        , m_inner(std::move(inner)) {}

    void setOnNotify(OnNotify receiver) override {
        if (!receiver) {
            m_inner->setOnNotify(nullptr);
            return;
        }
        m_inner->setOnNotify([this, onNotify = std::move(receiver)](const Notification& message) {
            begin("OnNotify", message.msgHandler, message.strComponent, message.strSubComponent,
                  message.strId)
                .end(nullptr);
            onNotify(message);
        });
    }
    void Subscribe(const std::string& filter) override {
        auto call = begin(__func__, filter);
        m_inner->Subscribe(filter);
        call.end(nullptr);
    }
    void Send(const std::string& component, const std::string& subComponent, const std::string& id) override {
        auto call = begin(__func__, component, subComponent, id);
        m_inner->Send(component, subComponent, id);
        call.end(nullptr);
    }

private:
    template <class... In> TracedCall begin(const char* function, const In&... in) {
        return TracedCall(m_trace, "m_notifier", function, std::tie(in...));
    }

    Trace& m_trace;
    std::unique_ptr<Notifier> m_inner;
};

} // namespace

struct TracingHost::Libraries {
    Libraries(Host& host, const std::filesystem::path& traceFile)
        : inner(host)
        , trace(traceFile)
        , traced(Tracer{trace}, inner) {}

    Host& inner;
    Trace trace;
    InterposedHost<Tracer> traced;
};

TracingHost::TracingHost(Host& host, const std::filesystem::path& traceFile)
    : m_libraries(std::make_unique<Libraries>(host, traceFile)) {}

TracingHost::~TracingHost() = default;

#define TRACED_LIBRARY(Class, library, file, FUNCTIONS)                                                      \
    Class& TracingHost::library() { return m_libraries->traced.library(); }
TARN_LIBRARIES(TRACED_LIBRARY)
#undef TRACED_LIBRARY

std::unique_ptr<Notifier> TracingHost::createNotifier() {
    return std::make_unique<TracedNotifier>(m_libraries->trace, m_libraries->inner.createNotifier());
}

} // namespace ocuva
