#pragma once
// Regular expressions in tests. GoogleTest's own know no classes and no counts where the system has no POSIX.

#include <gmock/gmock.h>
#include <regex>
#include <string>

namespace ocuva {

/// The whole text is of that form (ECMAScript).
MATCHER_P(HasForm, form, std::string(negation ? "is not" : "is") + " of the form " + form) {
    return std::regex_match(std::string(arg), std::regex(form));
}

} // namespace ocuva
