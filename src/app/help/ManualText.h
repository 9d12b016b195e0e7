#pragma once
// The text of the help: the manual's pages from the program's folder, and the page of keys.

#include <QDir>
#include <QString>

#include <vector>

namespace ocuva {

/// One command that has a key.
struct KeyRow {
    QString key;     ///< as the keyboard names it: "Ctrl+S"
    QString command; ///< without access letter: "Save As"
    QString menu;    ///< the menu of the command
};

/// The title of the page of keys.
QString keysTitle();

/// A heading and a table in Markdown, one row a command.
QString keysPage(const std::vector<KeyRow>& keys);

/// The manual's folder, relative to the folder of the program file: the same in a build tree and in an
/// installation.
QDir manualFolder(const QString& programFolder);

/// The whole help as one Markdown text: the manual, the keys, the chapter for trainers. A page that cannot be
/// read leaves a sentence that says which and why; the others are there all the same.
QString helpText(const QDir& folder, const std::vector<KeyRow>& keys);

} // namespace ocuva
