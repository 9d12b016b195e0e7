#include "pictures/SaveWarnings.h"

#include "pictures/PictureDescription.h"
#include "pictures/PictureFile.h"
#include "platform/PathOf.h"

#include <QObject>

#include <algorithm>
#include <system_error>

namespace ocuva {

namespace {

QStringList losses(const FileSurplus& surplus) {
    QStringList lost;
    if (surplus.furtherPages) {
        lost << QObject::tr("Only the first page of this picture is saved.");
    }
    if (surplus.bitsPerChannel > 8) {
        lost << QObject::tr("Only 8 of its %1 bits per channel are saved.").arg(surplus.bitsPerChannel);
    }
    if (surplus.furtherChannels > 0) {
        lost << QObject::tr("Its transparency and any other channels besides its colours are not saved.");
    }
    return lost;
}

// Pictures other than the target that share its description file.
QStringList sharers(const std::filesystem::path& target) {
    const std::filesystem::path description = descriptionName(target).filename();
    QStringList names;
    std::error_code error;
    std::filesystem::directory_iterator entry(std::filesystem::absolute(target).parent_path(), error);
    for (; !error && entry != std::filesystem::directory_iterator(); entry.increment(error)) {
        const std::filesystem::path name = entry->path().filename();
        std::error_code ignored;
        const bool isTarget =
            name == target.filename() || std::filesystem::equivalent(*entry, target, ignored);
        if (!isTarget && canBeSavedAs(name) && descriptionName(name) == description) {
            names << nameOf(name);
        }
    }
    std::sort(names.begin(), names.end());
    return names;
}

} // namespace

QStringList saveWarnings(const Picture& picture, const std::filesystem::path& target) {
    QStringList warnings = losses(picture.surplus);
    if (const QStringList others = sharers(target); !others.isEmpty()) {
        const std::filesystem::path description = descriptionName(target);
        std::error_code error;
        const QString sentence =
            std::filesystem::exists(description, error)
                ? QObject::tr("\"%1\" is also the description of %2. This save replaces or removes it.")
                : QObject::tr("A \"%1\" written now will also be taken for the description of %2.");
        warnings << sentence.arg(nameOf(description.filename()), others.join(QStringLiteral(", ")));
    }
    return warnings;
}

} // namespace ocuva
