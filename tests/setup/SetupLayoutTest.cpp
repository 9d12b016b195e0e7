#include "tests/setup/DialogRig.h"

#include <QAccessible>
#include <QMap>

using namespace ocuva;
using testing::IsEmpty;

namespace {

constexpr SetupTab tabs[]{SetupTab::Autofocus, SetupTab::Monitor, SetupTab::Stage, SetupTab::Camera,
                          SetupTab::Board};

struct SetupLayout : DialogRig {
    QWidget* page(SetupTab tab) {
        show(tab);
        QCoreApplication::processEvents();
        return dialog->tsSetup->currentWidget();
    }
    /// The names or texts of what has less room than it needs.
    std::vector<std::string> cutOff() {
        std::vector<std::string> found;
        for (const SetupTab tab : tabs) {
            for (const QWidget* widget : page(tab)->findChildren<QWidget*>()) {
                const bool carriesText = qobject_cast<const QLabel*>(widget) != nullptr ||
                                         qobject_cast<const QAbstractButton*>(widget) != nullptr ||
                                         qobject_cast<const QComboBox*>(widget) != nullptr ||
                                         qobject_cast<const TextBox*>(widget) != nullptr;
                if (carriesText && widget->isVisible() &&
                    (widget->width() < widget->minimumSizeHint().width() ||
                     widget->width() < widget->sizeHint().width() ||
                     widget->height() < widget->minimumSizeHint().height())) {
                    found.push_back(widget->objectName().toStdString() + "/" +
                                    widget->accessibleName().toStdString());
                }
            }
        }
        return found;
    }
    static QChar accessLetter(const QString& text) {
        for (qsizetype i = 0; i + 1 < text.size(); ++i) {
            if (text[i] == u'&') {
                if (text[i + 1] != u'&') {
                    return text[i + 1].toUpper();
                }
                ++i;
            }
        }
        return {};
    }
    static QString longer(const QString& text) {
        return text.isEmpty() ? text : text + QString((text.size() * 3 + 9) / 10, u'n');
    }
};

} // namespace

TEST_F(SetupLayout, LinesTheBoxesOfGridAndCrossUp) {
    open();
    const QWidget* shown = page(SetupTab::Monitor);
    const auto column = [shown](const char* name) {
        const auto* box = shown->findChild<QWidget*>(QString::fromLatin1(name));
        const int left = box->mapTo(shown, QPoint()).x();
        return std::pair(left, left + box->width());
    };
    for (const char* name : {"txtGridHeight", "udCrossSize", "udCrossThick"}) {
        EXPECT_EQ(column(name), column("txtGridWidth")) << name;
    }
}

TEST_F(SetupLayout, CutsNothingOff) {
    open();
    EXPECT_THAT(cutOff(), IsEmpty());
}

TEST_F(SetupLayout, CutsNothingOffWithTextsThatAreThirtyPercentLonger) {
    open();
    for (auto* label : dialog->findChildren<QLabel*>()) {
        label->setText(longer(label->text()));
    }
    for (auto* button : dialog->findChildren<QAbstractButton*>()) {
        button->setText(longer(button->text()));
    }
    for (auto* frame : dialog->findChildren<QGroupBox*>()) {
        frame->setTitle(longer(frame->title()));
    }
    QCoreApplication::processEvents();
    EXPECT_THAT(cutOff(), IsEmpty());
}

TEST_F(SetupLayout, CutsNothingOffWithAFontTwiceAsLarge) {
    const QFont usual = QApplication::font();
    QFont large = usual;
    large.setPointSizeF(usual.pointSizeF() * 2.0);
    QApplication::setFont(large);
    open();
    EXPECT_THAT(cutOff(), IsEmpty());
    QApplication::setFont(usual);
}

TEST_F(SetupLayout, NoAccessKeyIsUsedTwiceAmongVisibleControls) {
    open();
    for (const SetupTab tab : tabs) {
        QMap<QChar, QString> letters;
        const auto take = [&](const QString& text) {
            const QChar letter = accessLetter(text);
            ASSERT_FALSE(letter.isNull()) << text.toStdString();
            EXPECT_FALSE(letters.contains(letter))
                << text.toStdString() << " and " << letters.value(letter).toStdString();
            letters[letter] = text;
        };
        for (int i = 0; i < dialog->tsSetup->count(); ++i) {
            take(dialog->tsSetup->tabText(i));
        }
        take(dialog->cmdSaveDefault->text());
        take(dialog->cmdClose->text());
        for (const auto* button : page(tab)->findChildren<QAbstractButton*>()) {
            take(button->text());
        }
        for (const auto* label : page(tab)->findChildren<QLabel*>()) {
            if (label->buddy() != nullptr) {
                take(label->text());
            }
        }
    }
}

TEST_F(SetupLayout, EveryControlHasANameForAssistiveTools) {
    open();
    for (const SetupTab tab : tabs) {
        for (QWidget* control : page(tab)->findChildren<QWidget*>()) {
            if (control->focusPolicy() == Qt::NoFocus ||
                control->objectName().startsWith(QStringLiteral("qt_"))) {
                continue;
            }
            QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(control);
            ASSERT_NE(accessible, nullptr);
            EXPECT_FALSE(accessible->text(QAccessible::Name).isEmpty())
                << control->objectName().toStdString();
            EXPECT_FALSE(control->toolTip().isEmpty()) << control->objectName().toStdString();
            EXPECT_EQ(control->whatsThis(), control->toolTip()) << control->objectName().toStdString();
        }
    }
}

TEST_F(SetupLayout, TheTabKeyGoesDownThePageFromControlToControl) {
    open();
    for (const SetupTab tab : tabs) {
        QWidget* frame = page(tab);
        dialog->tsSetup->setFocus(Qt::TabFocusReason);
        int lastTop = -1;
        int visited = 0;
        for (int i = 0; i < 40; ++i) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            QWidget* now = QApplication::focusWidget();
            if (!frame->isAncestorOf(now)) {
                break;
            }
            const int top = now->mapTo(frame, QPoint(0, now->height() / 2)).y();
            EXPECT_GE(top, lastTop - 5) << now->objectName().toStdString();
            lastTop = top;
            ++visited;
        }
        EXPECT_GE(visited, tab == SetupTab::Board ? 2 : 5);
    }
}
