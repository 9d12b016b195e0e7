#pragma once
// Distinguishes the program's changes to a control from the operator's.

#include <utility>

namespace ocuva {

/// Sets the flag for the life of the object and then restores its former value; can be nested.
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
