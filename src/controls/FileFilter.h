#pragma once
// The kinds of files that a file dialog offers, written as one text, and the file that is chosen.

#include <QFileDialog>
#include <QList>
#include <QString>

namespace ocuva {

/// One entry of the dialog's list: what it shows, with the pattern in parentheses, and the extension without
/// its dot.
struct FileKind {
    QString shown;     ///< "TIFF (*.tif)"
    QString extension; ///< "tif"

    bool operator==(const FileKind&) const = default;
};

/// Reads "TIFF (*.tif):*.tif|BMP (*.bmp):*.bmp": entries between bars, each with what is shown, a colon, and
/// its pattern. The text is the program's own and never wrong.
QList<FileKind> fileKinds(const QString& filter);

/// Lets the dialog offer the kinds of that text. A name typed without extension gets that of the kind
/// chosen, the first one at the beginning.
void offerKinds(QFileDialog& dialog, const QString& filter);

/// Runs the dialog. Gives the full name in the system's notation, empty when the operator cancels.
QString chosenFile(QFileDialog& dialog);

} // namespace ocuva
