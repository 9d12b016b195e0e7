#pragma once
// Which function of the host's libraries is running, for those who have to name it afterwards or meanwhile.

#include <atomic>

namespace ocuva {

/// Keeps one pointer and nothing else, so that marking a call costs two stores. Set in the thread that calls;
/// read in any thread and in a signal handler.
class CallMark {
public:
    /// What is running, as a few words such as "TarnStartStage of tn_micro_proxy.so"; null between the calls.
    const char* current() const { return m_current.load(std::memory_order_relaxed); }

    /// Marks what runs while it lives; the one around it runs again afterwards, for a host calls back.
    class Scope {
    public:
        /// The words outlive it.
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
