#include "standards/StandardText.h"

#include <QString>

namespace ocuva {

namespace {
constexpr qsizetype extensionLength = 4; // ".std"
}

std::string standardText(const std::string& name, const std::string& directory) {
    const QString full = QString::fromLocal8Bit(name);
    const QString folder = QString::fromLocal8Bit(directory);
    const qsizetype start = folder.size() + 1; // behind the path separator
    const qsizetype length = full.size() - start - extensionLength;
    if (folder.isEmpty() || !full.startsWith(folder, Qt::CaseInsensitive) || length < 0) {
        return name;
    }
    return full.mid(start, length).toLocal8Bit().toStdString();
}

} // namespace ocuva
