#pragma once
// Between file names of the windows and paths of the file system; every letter is kept on every system.

#include <QString>

#include <filesystem>

namespace ocuva {

/// The path of that name.
inline std::filesystem::path pathOf(const QString& name) { return {name.toStdU16String()}; }

/// The name of that path, as sentences show it and as Qt takes it.
inline QString nameOf(const std::filesystem::path& path) {
    return QString::fromStdU16String(path.u16string());
}

} // namespace ocuva
