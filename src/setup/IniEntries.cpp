#include "setup/IniEntries.h"

#include <QStringList>

#include <algorithm>
#include <array>

namespace ocuva {

namespace {

constexpr Long entryCapacity = 200;
constexpr Long mostEntries = 100;

QString entry(TnLibProxy& libProxy, const char* section, Long number, const char* store) {
    std::array<char, entryCapacity> buffer{};
    const Long length = libProxy.TarnIniEnumString(section, number, buffer.data(), entryCapacity, store);
    return QString::fromLocal8Bit(buffer.data(), std::clamp<Long>(length, 0, entryCapacity));
}

} // namespace

bool fillFromIni(QComboBox& combo, TnLibProxy& libProxy, const char* section, const char* store) {
    const Long count = std::min(libProxy.TarnIniEnumNb(section, store), mostEntries);
    if (count < 1) {
        return false;
    }
    QStringList shown;
    for (Long number = 1; number <= count; ++number) {
        const QString text = entry(libProxy, section, number, store);
        shown.append(text.mid(text.indexOf(u'=') + 1));
    }
    combo.clear();
    combo.addItems(shown);
    return true;
}

} // namespace ocuva
