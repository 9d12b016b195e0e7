#pragma once
// The kinds of files that a file dialog offers, written as one text.

#include <QList>
#include <QString>
#include <QStringList>

namespace ocuva {

/// One entry of the dialog's list: what it shows, with the pattern in parentheses, and the extension without
/// its dot.
struct FileKind {
    QString shown;
    QString extension;

    bool operator==(const FileKind&) const = default;
};

/// Reads "TIFF (*.tif):*.tif|BMP (*.bmp):*.bmp": entries between bars, each with what is shown, a colon, and
/// its pattern. The text is the program's own and never wrong.
QList<FileKind> fileKinds(const QString& filter);

/// What a file dialog takes as its list.
QStringList shownKinds(const QList<FileKind>& kinds);

} // namespace ocuva
