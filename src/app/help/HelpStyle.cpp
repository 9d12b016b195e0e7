#include "app/help/HelpStyle.h"

#include <QFontDatabase>
#include <QFontMetricsF>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextFrame>
#include <QTextTable>

#include <algorithm>
#include <array>
#include <vector>

namespace ocuva {

namespace {

constexpr qreal marginPx = 18;
constexpr qreal lineHeightPercent = 120;
constexpr qreal cellPaddingPx = 5;

/// Sizes of the headings of level 1 to 3 against the text, and the room above them in heights of a line.
struct HeadingLook {
    qreal size;
    qreal above;
};
constexpr std::array<HeadingLook, 3> headingLooks{{{1.7, 1.6}, {1.3, 1.2}, {1.1, 0.9}}};

QColor mixed(const QColor& a, const QColor& b, qreal share) {
    const auto mix = [share](int x, int y) { return qRound(x + (y - x) * share); };
    return {mix(a.red(), b.red()), mix(a.green(), b.green()), mix(a.blue(), b.blue())};
}

/// Colours between background and text colour, so that they fit any palette.
QColor ground(const QPalette& palette, qreal share) {
    return mixed(palette.color(QPalette::Base), palette.color(QPalette::Text), share);
}

void styleTables(QTextFrame& frame, const QPalette& palette) {
    for (QTextFrame* const child : frame.childFrames()) {
        auto* const table = qobject_cast<QTextTable*>(child);
        if (table == nullptr) {
            styleTables(*child, palette);
            continue;
        }
        QTextTableFormat format = table->format();
        format.setBorder(1);
        format.setBorderCollapse(true);
        format.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
        format.setBorderBrush(ground(palette, 0.25));
        format.setCellSpacing(0);
        format.setCellPadding(cellPaddingPx);
        table->setFormat(format);
        for (int column = 0; column < table->columns(); ++column) {
            QTextTableCell cell = table->cellAt(0, column);
            QTextCharFormat head = cell.format();
            head.setBackground(ground(palette, 0.08));
            cell.setFormat(head);
        }
    }
}

template <typename Change> void changeFormats(const QTextBlock& block, Change change) {
    std::vector<QTextFragment> fragments; // taken first, as changes may join them
    for (auto part = block.begin(); !part.atEnd(); ++part) {
        fragments.push_back(part.fragment());
    }
    QTextCursor piece(block);
    for (const QTextFragment& fragment : fragments) {
        QTextCharFormat format = fragment.charFormat();
        change(format);
        piece.setPosition(fragment.position());
        piece.setPosition(fragment.position() + fragment.length(), QTextCursor::KeepAnchor);
        piece.setCharFormat(format);
    }
}

void styleHeading(const QTextBlock& block, const QFont& font) {
    const int level = std::min<int>(block.blockFormat().headingLevel(), headingLooks.size());
    const HeadingLook& look = headingLooks.at(static_cast<std::size_t>(level) - 1);
    const qreal line = QFontMetricsF(font).height();
    QTextCursor at(block);
    QTextBlockFormat format = block.blockFormat();
    format.setTopMargin(block.position() == 0 ? 0 : look.above * line);
    format.setBottomMargin(line / 2);
    at.setBlockFormat(format);
    changeFormats(block, [&](QTextCharFormat& characters) {
        characters.clearProperty(QTextFormat::FontSizeAdjustment); // it would outdo the size
        characters.setFontPointSize(font.pointSizeF() * look.size);
        characters.setFontWeight(QFont::DemiBold);
    });
}

void styleCode(const QTextBlock& block, const QPalette& palette) {
    QTextBlockFormat format = block.blockFormat();
    format.setBackground(ground(palette, 0.06));
    QTextCursor(block).setBlockFormat(format);
}

void styleInlineCode(const QTextBlock& block, const QStringList& fixedFamilies) {
    changeFormats(block, [&](QTextCharFormat& format) {
        if (format.fontFixedPitch()) {
            format.setFontFamilies(fixedFamilies);
        }
    });
}

} // namespace

void styleHelp(QTextDocument& text, const QPalette& palette, const QFont& font) {
    // In one edit: the text is laid out once, not after each change.
    QTextCursor edit(&text);
    edit.beginEditBlock();
    text.setDocumentMargin(marginPx);
    text.setDefaultFont(font);
    styleTables(*text.rootFrame(), palette);
    const QStringList fixed = QFontDatabase::systemFont(QFontDatabase::FixedFont).families();
    for (QTextBlock block = text.begin(); block.isValid(); block = block.next()) {
        styleInlineCode(block, fixed);
        const QTextBlockFormat format = block.blockFormat();
        if (format.headingLevel() > 0) {
            styleHeading(block, font);
        } else if (format.hasProperty(QTextFormat::BlockCodeFence) || format.nonBreakableLines()) {
            styleCode(block, palette);
        } else if (!block.text().contains(QChar::ObjectReplacementCharacter)) { // a picture needs no air
            QTextBlockFormat airy = format;
            airy.setLineHeight(lineHeightPercent, QTextBlockFormat::ProportionalHeight);
            QTextCursor(block).setBlockFormat(airy);
        }
    }
    edit.endEditBlock();
}

QBrush searchMarkBrush(const QPalette& palette) {
    const bool dark = palette.color(QPalette::Base).lightness() < 128;
    return QColor(dark ? 0x6b5a00 : 0xffe680);
}

} // namespace ocuva
