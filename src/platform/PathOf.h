#pragma once
// From a file name of the windows to a path of the file system.

#include <QString>

#include <filesystem>

namespace ocuva {

/// The same name; every letter is kept on every system.
inline std::filesystem::path pathOf(const QString& name) { return {name.toStdU16String()}; }

} // namespace ocuva
