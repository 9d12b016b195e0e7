#include "app/help/HelpView.h"

#include "app/help/HelpStyle.h"

#include <QAbstractTextDocumentLayout>
#include <QDesktopServices>
#include <QEvent>
#include <QResizeEvent>
#include <QScrollBar>
#include <QTextBlock>

#include <algorithm>
#include <cmath>
#include <utility>

namespace ocuva {

namespace {

// Longer lines are hard to read.
constexpr int widestLineInEms = 46;

// The anchor of a heading in links: small letters, blanks as hyphens, only letters and digits.
QString anchorOf(const QString& heading) {
    QString anchor;
    for (const QChar c : heading.toLower()) {
        if (c == u' ' || c == u'-') {
            anchor += u'-';
        } else if (c.isLetterOrNumber() || c == u'_') {
            anchor += c;
        }
    }
    return anchor;
}

} // namespace

HelpView::HelpView(QWidget* parent)
    : QTextBrowser(parent) {
    setAccessibleName(tr("Text of the manual"));
    setOpenLinks(false);
    setFrameShape(QFrame::NoFrame);
    setLineWrapMode(QTextEdit::FixedPixelWidth);
    connect(this, &QTextBrowser::anchorClicked, this, &HelpView::follow);
}

void HelpView::showText(const QString& markdown, const QDir& folder) {
    m_markdown = markdown;
    m_pictures.setFolder(folder);
    render();
}

void HelpView::render() {
    m_places.clear();
    m_shown = -1;
    // Made and styled before it is shown, so that it is laid out once.
    auto* const text = new QTextDocument(this);
    text->setMarkdown(m_markdown, QTextDocument::MarkdownDialectGitHub);
    styleHelp(*text, palette(), font());
    text->documentLayout()->registerHandler(QTextFormat::ImageObject, &m_pictures);
    setDocument(text);
    delete std::exchange(m_text, text);
    m_headings.clear();
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
        if (const int level = block.blockFormat().headingLevel(); level > 0) {
            m_headings.push_back({level, block.text(), block.position()});
        }
    }
    fitLines();
}

void HelpView::fitLines() {
    const int width = std::min(viewport()->width(), widestLineInEms * fontMetrics().height());
    m_pictures.setRoom(width - 2 * document()->documentMargin());
    setLineWrapColumnOrWidth(width);
    document()->markContentsDirty(0, document()->characterCount());
}

void HelpView::resizeEvent(QResizeEvent* event) {
    const int top = cursorForPosition(QPoint(0, 0)).position();
    QTextBrowser::resizeEvent(event);
    fitLines();
    if (event->oldSize().width() != event->size().width() && top > 0) {
        scrollToPosition(top); // the reader's place, not the same number of pixels
    }
}

void HelpView::changeEvent(QEvent* event) {
    QTextBrowser::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange) {
        styleHelp(*document(), palette(), font());
        mark();
    }
}

std::vector<Heading> HelpView::headings() const { return m_headings; }

void HelpView::scrollToPosition(int position) {
    const QTextBlock block = document()->findBlock(position);
    const QRectF place = document()->documentLayout()->blockBoundingRect(block);
    verticalScrollBar()->setValue(static_cast<int>(std::floor(place.top())));
}

int HelpView::headingAtTop() const {
    const QAbstractTextDocumentLayout* const layout = document()->documentLayout();
    // A heading that has just been brought to the top counts, rounding or not.
    const qreal top = verticalScrollBar()->value() + document()->documentMargin() + fontMetrics().height();
    const auto below =
        std::partition_point(m_headings.begin(), m_headings.end(), [&](const Heading& heading) {
            return layout->blockBoundingRect(document()->findBlock(heading.position)).top() <= top;
        });
    return static_cast<int>(below - m_headings.begin()) - 1;
}

int HelpView::search(const QString& text) {
    // A text that grows letter by letter stays at the place that it has found.
    const int from = m_shown >= 0 ? m_places[static_cast<std::size_t>(m_shown)].selectionStart()
                                  : cursorForPosition(QPoint(0, 0)).position();
    m_places.clear();
    m_shown = -1;
    for (QTextCursor place = document()->find(text); !text.isEmpty() && !place.isNull();
         place = document()->find(text, place)) {
        if (m_shown < 0 && place.selectionStart() >= from) {
            m_shown = places();
        }
        m_places.push_back(place);
    }
    if (!m_places.empty() && m_shown < 0) {
        m_shown = 0;
    }
    mark();
    return places();
}

void HelpView::step(bool forward) {
    if (!m_places.empty()) {
        m_shown = (m_shown + (forward ? 1 : places() - 1)) % places();
        mark();
    }
}

void HelpView::mark() {
    QList<QTextEdit::ExtraSelection> marks;
    for (int i = 0; i < places(); ++i) {
        QTextEdit::ExtraSelection one;
        one.cursor = m_places[static_cast<std::size_t>(i)];
        const bool shown = i == m_shown;
        one.format.setBackground(shown ? palette().highlight() : searchMarkBrush(palette()));
        one.format.setForeground(shown ? palette().highlightedText() : palette().text());
        marks.append(one);
    }
    setExtraSelections(marks);
    if (m_shown >= 0) {
        QTextCursor here = m_places[static_cast<std::size_t>(m_shown)];
        here.setPosition(here.selectionStart());
        setTextCursor(here);
        const QRect place = cursorRect();
        const int edge = 3 * place.height();
        // With some text before and after it.
        if (!viewport()->rect().adjusted(0, edge, 0, -edge).contains(place)) {
            verticalScrollBar()->setValue(verticalScrollBar()->value() + place.top() -
                                          viewport()->height() / 3);
        }
    }
}

void HelpView::follow(const QUrl& link) {
    if (!link.isRelative()) {
        QDesktopServices::openUrl(link);
        return;
    }
    const QString anchor = link.fragment().toLower();
    for (const Heading& heading : m_headings) {
        if (anchorOf(heading.text) == anchor) {
            scrollToPosition(heading.position);
            return;
        }
    }
}

} // namespace ocuva
