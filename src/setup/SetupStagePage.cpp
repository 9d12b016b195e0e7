#include "setup/SetupStagePage.h"

#include "setup/ViewFlags.h"

#include <QHBoxLayout>

namespace ocuva {

SetupStagePage::SetupStagePage(const char* name, const SetupContext& context, QWidget* parent)
    : SetupPage(name, context.report, parent)
    , m_settings(context.settings)
    , m_magnification(context.magnification, context.mainWindow) {
    makeMagnification();
    makeMovement();
    makeStandards();
    endFrames();

    for (TextBox* box : {txtMag, txtMagX100, txtMagY100}) {
        whenLeft(box, [this] { magnification_LostFocus(); });
    }
    for (std::size_t i = 0; i < optMoveX.size(); ++i) {
        connect(optMoveX.at(i), &QRadioButton::clicked, this,
                [this, i] { move_Click(&ViewOptions::MoveXInverse, i); });
        connect(optMoveY.at(i), &QRadioButton::clicked, this,
                [this, i] { move_Click(&ViewOptions::MoveYInverse, i); });
    }
    connect(cmdStandardSort, &QPushButton::clicked, this, &SetupStagePage::cmdStandardSort_Click);
}

void SetupStagePage::makeMagnification() {
    frMagnification = addFrame("frMagnification", tr("Magnification"));
    txtMag = makeTextBox("txtMag", tr("Magnification of the video image"));
    txtMagX100 = makeTextBox("txtMagX100", tr("Width of the whole field at magnification 100, stage units"));
    txtMagY100 = makeTextBox("txtMagY100", tr("Height of the whole field at magnification 100, stage units"));
    auto* grid = new QGridLayout(frMagnification);
    addRow(*grid, tr("Magn&ification x"), txtMag);
    addRow(*grid, tr("&X Field (x100)"), txtMagX100);
    addRow(*grid, tr("&Y Field (x100)"), txtMagY100);
}

QGroupBox* SetupStagePage::makeMove(const MoveTexts& texts, QLabel*& symbols,
                                    std::array<QRadioButton*, 2>& options) {
    auto* group = new QGroupBox(texts.axis, frMovement);
    group->setObjectName(QString::fromLatin1(texts.frame));
    auto* grid = new QGridLayout(group);
    const std::array<QString, 2> helps{tr("A click on the image moves %1 as the image shows").arg(texts.axis),
                                       tr("A click on the image moves %1 the other way. Typed positions "
                                          "and standards stay as they are")
                                           .arg(texts.axis)};
    for (std::size_t i = 0; i < options.size(); ++i) {
        options.at(i) = named(new QRadioButton(texts.options.at(i)), texts.optionNames.at(i), helps.at(i));
        grid->addWidget(options.at(i), static_cast<int>(i), 1);
    }
    symbols = new QLabel(texts.symbols);
    symbols->setObjectName(QString::fromLatin1(texts.symbolsName));
    QFont large = symbols->font();
    large.setPointSizeF(large.pointSizeF() * 2.0);
    symbols->setFont(large);
    symbols->setAlignment(Qt::AlignCenter);
    grid->addWidget(symbols, 0, 0, 2, 1);
    grid->setColumnStretch(1, 1);
    return group;
}

void SetupStagePage::makeMovement() {
    frMovement = addFrame("frMovement", tr("Movement"));
    frMoveX = makeMove({"frMoveX",
                        tr("X"),
                        "lblMoveSymbols0",
                        QStringLiteral("\u2194"),
                        {"optMoveX0", "optMoveX1"},
                        {tr("&Not inverted"), tr("In&verted")}},
                       lblMoveSymbols[0], optMoveX);
    frMoveY = makeMove({"frMoveY",
                        tr("Y"),
                        "lblMoveSymbols1",
                        QStringLiteral("\u2195"),
                        {"optMoveY0", "optMoveY1"},
                        {tr("N&ot inverted"), tr("Inv&erted")}},
                       lblMoveSymbols[1], optMoveY);
    auto* row = new QHBoxLayout(frMovement);
    row->addWidget(frMoveX, 1);
    row->addWidget(frMoveY, 1);
}

void SetupStagePage::makeStandards() {
    frMoveStandardList = addFrame("frMoveStandardList", tr("Standard List"));
    cmdStandardSort = named(new QPushButton(tr("So&rt...")), "cmdStandardSort",
                            tr("Sort, add and delete standard positions"));
    cmdStandardSort->setAutoDefault(false);
    auto* row = new QHBoxLayout(frMoveStandardList);
    row->addWidget(cmdStandardSort);
    row->addStretch(1);
}

void SetupStagePage::load() {
    showMagnification();
    const ViewOptions view = m_settings.readView();
    optMoveX.at(view.MoveXInverse != 0 ? 1 : 0)->setChecked(true);
    optMoveY.at(view.MoveYInverse != 0 ? 1 : 0)->setChecked(true);
}

void SetupStagePage::showMagnification() {
    const MagnificationTexts texts = m_magnification.texts();
    txtMag->setText(QString::fromStdString(texts.magnification));
    txtMagX100->setText(QString::fromStdString(texts.x100));
    txtMagY100->setText(QString::fromStdString(texts.y100));
}

void SetupStagePage::followMagnification() {
    const MagnificationTexts texts = m_magnification.texts();
    txtMag->follow(QString::fromStdString(texts.magnification));
    txtMagX100->follow(QString::fromStdString(texts.x100));
    txtMagY100->follow(QString::fromStdString(texts.y100));
}

void SetupStagePage::magnification_LostFocus() {
    guarded([this] {
        m_magnification.set({txtMag->text().toStdString(), txtMagX100->text().toStdString(),
                             txtMagY100->text().toStdString()});
    });
    showMagnification();
    Q_EMIT magnificationChanged();
}

void SetupStagePage::move_Click(Long ViewOptions::*flag, std::size_t index) {
    storeViewFlag(m_settings, flag, static_cast<Long>(index));
}

} // namespace ocuva
