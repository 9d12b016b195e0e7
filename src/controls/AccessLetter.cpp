#include "controls/AccessLetter.h"

#include <QShortcut>

namespace ocuva {

QString withoutAccessLetter(const QString& caption) {
    QString text;
    for (qsizetype i = 0; i < caption.size(); ++i) {
        if (caption[i] == u'&' && i + 1 < caption.size()) {
            ++i;
        }
        text += caption[i];
    }
    return text;
}

void makeAccessLetter(QLabel& label) {
    QFont font = label.font();
    font.setUnderline(true);
    label.setFont(font);
    auto* shortcut =
        new QShortcut(QKeySequence(Qt::ALT | Qt::Key(label.text().at(0).toUpper().unicode())), &label);
    QObject::connect(shortcut, &QShortcut::activated, &label,
                     [&label] { label.buddy()->setFocus(Qt::ShortcutFocusReason); });
}

} // namespace ocuva
