#include "setup/MagnificationSetup.h"

#include "base/Numbers.h"
#include "base/TextNumber.h"

#include <array>
#include <charconv>
#include <stdexcept>

namespace ocuva {

namespace {

std::string shortest(Single value) {
    std::array<char, 64> text{}; // the largest Single has 39 digits before its point
    const auto end =
        std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed).ptr;
    return {text.data(), end};
}

template <typename Number>
Number typedNumber(const char* field, const std::string& text, Number (*convert)(double)) {
    try {
        return convert(numericPrefix(text));
    } catch (const ArithmeticError& error) {
        throw std::runtime_error(std::string(field) + ": " + error.what());
    }
}

} // namespace

Magnification typedMagnification(const MagnificationTexts& typed) {
    return {typedNumber("Magnification", typed.magnification, &toLong),
            typedNumber("X Field", typed.x100, &toSingle), typedNumber("Y Field", typed.y100, &toSingle)};
}

MagnificationTexts MagnificationSetup::texts() const {
    const Magnification present = m_store.read();
    return {std::to_string(present.magnification), shortest(present.x100), shortest(present.y100)};
}

void MagnificationSetup::set(const MagnificationTexts& typed) {
    const Magnification magnification = typedMagnification(typed);
    m_store.write(magnification);
    m_mainWindow.showMagnification(magnification.magnification);
    try {
        m_mainWindow.DrawMicroMarker();
    } catch (const ArithmeticError& error) {
        throw std::runtime_error(std::string("There is no scale at this magnification (") + error.what() +
                                 ")");
    }
}

} // namespace ocuva
