#pragma once
// Marks the host function that is running, for crash notes and for watching the loading of libraries.

#include <atomic>

namespace ocuva {

/// Keeps a single pointer, so that marking a call costs two stores. Set on the calling thread; read on any
/// thread and in a signal handler.
class CallMark {
public:
    /// The running function, for example "TarnStartStage of tn_micro_proxy.so"; null between calls.
    const char* current() const { return m_current.load(std::memory_order_relaxed); }

    /// Marks a function as running for the life of the object, and restores the previous mark: hosts may
    /// call back.
    class Scope {
    public:
        /// `words` outlives the object.
        Scope(CallMark& mark, const char* words)
            : m_mark(mark)
            , m_around(mark.current()) {
            set(words);
        }
        ~Scope() { set(m_around); }
        Scope(const Scope&) = delete;
        Scope& operator=(const Scope&) = delete;

    private:
        void set(const char* words) { m_mark.m_current.store(words, std::memory_order_relaxed); }

        CallMark& m_mark;
        const char* m_around;
    };

private:
    std::atomic<const char*> m_current{nullptr};
    static_assert(std::atomic<const char*>::is_always_lock_free, "a signal handler reads it");
};

} // namespace ocuva
