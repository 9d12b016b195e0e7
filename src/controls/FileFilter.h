#pragma once
// The kinds of files that a file dialog offers, written as one text, and the file that is chosen.

#include <QFileDialog>
#include <QList>
#include <QString>

namespace ocuva {

/// One entry of the dialog's list: its text, with the pattern in parentheses, and the extension without
/// dot.
struct FileKind {
    QString shown;     ///< "TIFF (*.tif)"
    QString extension; ///< "tif"

    bool operator==(const FileKind&) const = default;
};

/// Parses "TIFF (*.tif):*.tif|BMP (*.bmp):*.bmp": entries separated by bars, each with its text, a colon
/// and its pattern. The text comes from the program and is always valid.
QList<FileKind> fileKinds(const QString& filter);

/// Lets the dialog offer these kinds of files. A name typed without extension gets that of the chosen
/// kind, initially the first one.
void offerKinds(QFileDialog& dialog, const QString& filter);

/// Runs the dialog. Gives the full name in the system's notation, empty when the operator cancels.
QString chosenFile(QFileDialog& dialog);

} // namespace ocuva
