#pragma once
// A host around another one: something happens at each call, and then the other host's function runs. Written
// once for all functions; docs/host-boundary.md shows what the macros make of one of them.

#include "hostlink/Host.h"
#include "hostlink/HostArguments.h"

namespace ocuva {

/// Which function is called, and its result if it fails.
struct HostCall {
    const char* library;
    const char* function;
    TarnLong failure;
};

/// `Interposed<TnReg, Handler>` is a TnReg. Each call becomes `handler(HostCall, call, passed...)`, whose
/// result it hands on: `call()` calls the same function of `inner`, and `passed...` are the arguments with
/// their directions (HostArguments.h).
template <class Library, class Handler> class Interposed;

#define INTERPOSE_FUNCTION(library, result, name, failure, ...)                                              \
    result name(TARN_PARAMETERS(__VA_ARGS__)) override {                                                     \
        return m_handler(HostCall{#library, #name, failure}, [&] {                                           \
            return m_inner.name(TARN_ARGUMENTS(__VA_ARGS__));                                                \
        } __VA_OPT__(, ) TARN_PASSED(__VA_ARGS__));                                                          \
    }
#define INTERPOSE_LIBRARY(Class, library, file, FUNCTIONS)                                                   \
    template <class Handler> class Interposed<Class, Handler> : public Class {                               \
    public:                                                                                                  \
        Interposed(Handler handler, Class& inner)                                                            \
            : m_handler(handler)                                                                             \
            , m_inner(inner) {}                                                                              \
        FUNCTIONS(INTERPOSE_FUNCTION)                                                                        \
                                                                                                             \
    private:                                                                                                 \
        Handler m_handler;                                                                                   \
        Class& m_inner;                                                                                      \
    };
TARN_LIBRARIES(INTERPOSE_LIBRARY)
#undef INTERPOSE_LIBRARY
#undef INTERPOSE_FUNCTION

/// All libraries of a host, interposed. The inner host outlives it.
template <class Handler> class InterposedHost : public Host {
public:
    InterposedHost(Handler handler, Host& inner)
        : m_handler(handler)
        , m_inner(inner) {}

#define INTERPOSE_ACCESS(Class, library, file, FUNCTIONS)                                                    \
    Class& library() override { return m_##library; }
    TARN_LIBRARIES(INTERPOSE_ACCESS)
#undef INTERPOSE_ACCESS
    std::unique_ptr<Notifier> createNotifier() override { return m_inner.createNotifier(); }

private:
    Handler m_handler;
    Host& m_inner;
#define INTERPOSE_MEMBER(Class, library, file, FUNCTIONS)                                                    \
    Interposed<Class, Handler> m_##library{m_handler, m_inner.library()};
    TARN_LIBRARIES(INTERPOSE_MEMBER)
#undef INTERPOSE_MEMBER
};

/// Hands each call on; for classes that change a few functions only.
struct HandOn {
    template <class Call, class... Argument>
    auto operator()(const HostCall& /*which*/, const Call& call, const Argument&... /*passed*/) const {
        return call();
    }
};

} // namespace ocuva
