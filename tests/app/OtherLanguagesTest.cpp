// What becomes of the windows in a language with longer words.

#include "tests/app/AccessLetters.h"
#include "tests/app/EveryWindowRig.h"
#include "tests/support/PseudoTranslator.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QMenuBar>
#include <QPushButton>

#include <set>

using namespace ocuva;
using testing::IsEmpty;

namespace {

struct OtherLanguages : EveryWindow {
    PseudoTranslator translator;

    void SetUp() override {
        QCoreApplication::installTranslator(&translator);
        EveryWindow::SetUp();
    }
    ~OtherLanguages() override { QCoreApplication::removeTranslator(&translator); }
};

QString textOf(const QWidget& widget) {
    if (const auto* label = qobject_cast<const QLabel*>(&widget)) {
        return label->text();
    }
    if (const auto* button = qobject_cast<const QAbstractButton*>(&widget)) {
        return button->text();
    }
    if (const auto* box = qobject_cast<const QGroupBox*>(&widget)) {
        return box->title();
    }
    return {};
}

std::vector<QWidget*> carriersOfText(const QWidget& window) {
    std::vector<QWidget*> carriers;
    for (QWidget* widget : window.findChildren<QWidget*>()) {
        if (widget->window() == &window && widget->isVisible() && !textOf(*widget).isEmpty()) {
            carriers.push_back(widget);
        }
    }
    return carriers;
}

bool isCutOff(const QWidget& widget) {
    if (const auto* button = qobject_cast<const QPushButton*>(&widget)) {
        constexpr int bevel = 4; // what a button wants beyond that is air
        return button->width() <
               button->fontMetrics().size(Qt::TextShowMnemonic, button->text()).width() + 2 * bevel;
    }
    const auto* label = qobject_cast<const QLabel*>(&widget);
    const bool wraps = label != nullptr && label->wordWrap();
    const QSize needed = widget.sizeHint();
    return wraps ? widget.height() < label->heightForWidth(widget.width())
                 : widget.width() < needed.width() || widget.height() < widget.minimumSizeHint().height();
}

bool isPseudo(const QString& text) { return text.contains(u'['); }

bool saysSomething(const QString& text) {
    return std::count_if(text.begin(), text.end(), [](QChar c) { return c.isLetter(); }) > 2;
}

std::string told(const QWidget& widget) {
    return described(widget) + " \"" + textOf(widget).toStdString() + '"';
}

} // namespace

TEST_F(OtherLanguages, CutOffNoText) {
    forEachPage([](QWidget& shown, const std::string& where) {
        QCoreApplication::processEvents();
        std::vector<std::string> cut;
        for (const QWidget* widget : carriersOfText(shown)) {
            if (isCutOff(*widget)) {
                cut.push_back(told(*widget));
            }
        }
        EXPECT_THAT(cut, IsEmpty()) << where;
    });
}

TEST_F(OtherLanguages, FindNoTextPutTogetherFromPieces) {
    forEachPage([](QWidget& shown, const std::string& where) {
        std::vector<std::string> joined;
        for (const QWidget* widget : carriersOfText(shown)) {
            // The panel about the image is a row of facts, each a text of its own.
            const bool isRowOfFacts = widget->objectName() == QStringLiteral("Info");
            if (!isRowOfFacts && textOf(*widget).count(u'[') > 1) {
                joined.push_back(told(*widget));
            }
        }
        EXPECT_THAT(joined, IsEmpty()) << where;
    });
}

TEST_F(OtherLanguages, GiveNoAccessLetterTwoMeanings) {
    forEachPage([](QWidget& shown, const std::string& where) {
        EXPECT_THAT(ambiguousLetters(shown), IsEmpty()) << where;
    });
}

TEST_F(OtherLanguages, KeepTheAccessLettersOfTheDialogs) {
    EXPECT_GE(accessLetters(window().standards().moveDialog()).size(), 6U);
    EXPECT_GE(accessLetters(window().pictureOnStage().dialog()).size(), 9U);
    EXPECT_GE(accessLetters(*standardList).size(), 5U);
}

TEST_F(OtherLanguages, ReachEveryText) {
    forEachPage([](QWidget& shown, const std::string& where) {
        std::vector<std::string> missed;
        for (const QWidget* widget : carriersOfText(shown)) {
            if (saysSomething(textOf(*widget)) && !isPseudo(textOf(*widget))) {
                missed.push_back(told(*widget));
            }
        }
        for (const QAction* action : shown.findChildren<QAction*>()) {
            if (saysSomething(action->text()) && !isPseudo(action->text())) {
                missed.push_back("action " + action->text().toStdString());
            }
        }
        EXPECT_THAT(missed, IsEmpty()) << where;
    });
}
