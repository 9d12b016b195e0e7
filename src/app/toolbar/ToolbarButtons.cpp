#include "app/toolbar/ToolbarButtons.h"

#include <QCoreApplication>

#include <algorithm>
#include <array>

namespace ocuva {

namespace {

using S = ButtonStyle;
using L = QLatin1StringView;

constexpr std::array buttons{
    ToolbarButton{L{"Save"}, L{QT_TRANSLATE_NOOP("MainToolbar", "Save")},
                  L{QT_TRANSLATE_NOOP("MainToolbar", "Save the current image to disk")}, S::Push},
    ToolbarButton{L{"Acq"}, L{QT_TRANSLATE_NOOP("MainToolbar", "Live")},
                  L{QT_TRANSLATE_NOOP("MainToolbar", "Start/Stop continuous video")}, S::Check},
    ToolbarButton{L{"Sep1"}, separatorText, L{}, S::Separator},
    ToolbarButton{L{"Zoom"}, L{QT_TRANSLATE_NOOP("MainToolbar", "Zoom")},
                  L{QT_TRANSLATE_NOOP("MainToolbar", "Magnify image")}, S::Check},
    ToolbarButton{L{"Cross"}, L{QT_TRANSLATE_NOOP("MainToolbar", "Cross")},
                  L{QT_TRANSLATE_NOOP("MainToolbar", "Show a cross at the center")}, S::Check},
    ToolbarButton{L{"Grid"}, L{QT_TRANSLATE_NOOP("MainToolbar", "Grid")},
                  L{QT_TRANSLATE_NOOP("MainToolbar", "Show a grid on the image")}, S::Check},
    ToolbarButton{L{"Sep2"}, separatorText, L{}, S::Separator},
    ToolbarButton{L{"Stage"}, L{QT_TRANSLATE_NOOP("MainToolbar", "Stage")},
                  L{QT_TRANSLATE_NOOP("MainToolbar", "Enter a stage position")}, S::Dropdown},
    ToolbarButton{L{"Standard"}, L{QT_TRANSLATE_NOOP("MainToolbar", "Standard")}, L{}, S::Push},
    ToolbarButton{L{"Focus"}, L{QT_TRANSLATE_NOOP("MainToolbar", "Autofocus")},
                  L{QT_TRANSLATE_NOOP("MainToolbar", "Compute and apply the autofocus")}, S::Push},
    ToolbarButton{L{"Sep3"}, separatorText, L{}, S::Separator},
    ToolbarButton{L{"Setup"}, L{QT_TRANSLATE_NOOP("MainToolbar", "Setup")},
                  L{QT_TRANSLATE_NOOP("MainToolbar", "Popup the setup window")}, S::Push},
    ToolbarButton{L{"Sep4"}, separatorText, L{}, S::Separator},
};

constexpr L separatorPrefix{"Sep"};

} // namespace

QString shownText(QLatin1StringView text) {
    return text.isEmpty() ? QString() : QCoreApplication::translate("MainToolbar", text.data());
}

std::span<const ToolbarButton> designButtons() { return buttons; }

const ToolbarButton* findButton(const QString& key) {
    const auto* const found = std::find_if(buttons.begin(), buttons.end(), [&](const ToolbarButton& b) {
        return b.style != S::Separator && key == b.key;
    });
    return found == buttons.end() ? nullptr : &*found;
}

bool isSeparatorKey(const QString& key) {
    if (!key.startsWith(separatorPrefix)) {
        return false;
    }
    const QString digits = key.mid(separatorPrefix.size());
    const int number = digits.toInt();
    // Comparing the texts refuses signs, blanks and leading zeros, so that a separator has one spelling only.
    return number >= 1 && number <= maxSeparators && digits == QString::number(number);
}

} // namespace ocuva
