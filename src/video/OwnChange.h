#pragma once
// Tells a change that the program makes to a control from one that the operator makes.

#include <utility>

namespace ocuva {

/// Holds the flag for as long as it lives, and gives it back as it was, so that it can be nested.
class OwnChange {
public:
    /// Sets the flag, which outlives it.
    explicit OwnChange(bool& flag)
        : m_flag(flag)
        , m_before(std::exchange(flag, true)) {}
    ~OwnChange() { m_flag = m_before; }
    OwnChange(const OwnChange&) = delete;
    OwnChange& operator=(const OwnChange&) = delete;

private:
    bool& m_flag;
    bool m_before;
};

} // namespace ocuva
