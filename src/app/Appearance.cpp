#include "app/Appearance.h"

#include <QPalette>
#include <QStyle>
#include <QStyleFactory>

namespace ocuva {

namespace {

QPalette darkPalette() {
    const QColor window(54, 57, 60);
    const QColor text(224, 226, 228);
    const QColor dimmed(142, 145, 149);
    const QColor accent(66, 133, 190);
    QPalette palette(QColor(70, 73, 77), window);
    palette.setColor(QPalette::WindowText, text);
    // Far darker than the window: boxes have no other edge that is to be seen.
    palette.setColor(QPalette::Base, QColor(24, 26, 28));
    palette.setColor(QPalette::AlternateBase, QColor(31, 33, 36));
    palette.setColor(QPalette::Text, text);
    palette.setColor(QPalette::ButtonText, text);
    palette.setColor(QPalette::BrightText, Qt::white);
    palette.setColor(QPalette::PlaceholderText, dimmed);
    palette.setColor(QPalette::ToolTipBase, QColor(60, 63, 67));
    palette.setColor(QPalette::ToolTipText, text);
    palette.setColor(QPalette::Highlight, accent);
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, QColor(110, 175, 230));
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(QPalette::Disabled, role, dimmed);
    }
    return palette;
}

} // namespace

void setAppearance(QApplication& application) {
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    const QString wanted = qEnvironmentVariable("OCUVA_PALETTE");
    if (wanted == QLatin1StringView("dark")) {
        QApplication::setPalette(darkPalette());
    } else if (wanted == QLatin1StringView("light")) {
        QApplication::setPalette(application.style()->standardPalette());
    }
}

} // namespace ocuva
