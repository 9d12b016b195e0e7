#pragma once
// Keys for host objects.

#include <string>

namespace hosts {

/// A key that no other call on this machine returned: 36 characters in the form of a UUID, of lower-case
/// hexadecimal digits and '-'. Any thread; also right after a fork.
std::string uniqueKey();

} // namespace hosts
