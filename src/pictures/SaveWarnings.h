#pragma once
// What saving a picture under a name would lose, to be said before it is saved.

#include "pictures/Picture.h"

#include <QStringList>

#include <filesystem>

namespace ocuva {

/// Sentences for the operator, none when nothing is lost: what of the picture's own file is not saved, and
/// which other pictures in the target's folder share the description that the save replaces. Reads the
/// target's folder.
QStringList saveWarnings(const Picture& picture, const std::filesystem::path& target);

} // namespace ocuva
