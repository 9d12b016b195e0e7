#pragma once
// Shows a Markdown text for reading: styled for the palette, pictures as wide as there is room, with its
// headings and a search.

#include "app/help/HelpPictures.h"

#include <QDir>
#include <QString>
#include <QTextBrowser>

#include <vector>

namespace ocuva {

/// An entry of the table of contents.
struct Heading {
    int level;    ///< 1 is a chapter
    QString text; ///< as it is read, without marks
    int position; ///< in the text, in characters
};

/// A link to a heading is followed within the text. User-interface thread.
class HelpView : public QTextBrowser {
    Q_OBJECT

public:
    /// Empty until showText.
    explicit HelpView(QWidget* parent = nullptr);

    /// Pictures are looked for relative to the folder. One that is missing shows its description.
    void showText(const QString& markdown, const QDir& folder);

    /// In the order of the text.
    std::vector<Heading> headings() const;
    /// Brings the heading at that position to the top.
    void scrollToPosition(int position);
    /// The index of the heading whose section is at the top of the view; -1 above the first.
    int headingAtTop() const;

    /// Marks every match of the text, in any letter case, and shows the first one from the current place.
    /// Returns the number of matches; an empty text marks nothing.
    int search(const QString& text);
    /// Shows the next or the one before, round the ends.
    void step(bool forward);
    /// Which of the places is shown, from 0; -1 for none.
    int shownPlace() const { return m_shown; }
    int places() const { return static_cast<int>(m_places.size()); } ///< that the search marked

protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void render();
    void fitLines();
    void mark();
    void follow(const QUrl& link);

    QString m_markdown;
    HelpPictures m_pictures;
    QTextDocument* m_text = nullptr; // the one that is shown
    std::vector<Heading> m_headings;
    std::vector<QTextCursor> m_places;
    int m_shown = -1;
};

} // namespace ocuva
