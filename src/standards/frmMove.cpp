#include "standards/frmMove.h"

#include "controls/AccessLetter.h"
#include "controls/WindowPlace.h"
#include "standards/StageTarget.h"

#include <QGridLayout>
#include <QLabel>
#include <QShowEvent>

namespace ocuva {

frmMove::frmMove(StageMover& fOcuva, std::function<void()> addStandard,
                 std::function<void(const QString&)> report, QWidget* parent)
    : QDialog(parent)
    , cmdMove(new LetteredButton(tr("&Move"), this))
    , cmdStandard(new LetteredButton(tr("&Standard Pos..."), this))
    , cmdClose(new LetteredButton(tr("&Close"), this))
    , m_fOcuva(fOcuva)
    , m_report(std::move(report)) {
    setObjectName(QStringLiteral("frmMove"));
    setWindowTitle(tr("Move the stage to:"));

    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(15, 15, 15, 15);
    grid->setHorizontalSpacing(9);
    grid->setVerticalSpacing(9);
    const std::array<std::pair<const char*, const char*>, 3> labels{
        {{"lbMoveX", "X"}, {"lbMoveY", "Y"}, {"lbMoveZ", "Z"}}};
    for (int i = 0; i < 3; ++i) {
        const auto& [labelName, axisLetter] = labels.at(static_cast<std::size_t>(i));
        const QString axis = QString::fromLatin1(axisLetter);
        auto* label = new QLabel(axis, this);
        label->setObjectName(QString::fromLatin1(labelName));
        auto* box = new TextBox(this);
        box->setObjectName(QStringLiteral("txtMove%1").arg(i));
        box->setAccessibleName(tr("Target %1, stage units").arg(axis));
        box->setAlignment(Qt::AlignRight);
        label->setBuddy(box);
        makeAccessLetter(*label);
        txtMove.at(static_cast<std::size_t>(i)) = box;
        grid->addWidget(label, i, 0);
        grid->addWidget(box, i, 1);
    }
    const std::array<std::pair<QPushButton*, const char*>, 3> buttons{
        {{cmdMove, "cmdMove"}, {cmdStandard, "cmdStandard"}, {cmdClose, "cmdClose"}}};
    for (int i = 0; i < 3; ++i) {
        const auto& [button, name] = buttons.at(static_cast<std::size_t>(i));
        button->setObjectName(QString::fromLatin1(name));
        button->setAutoDefault(false);
        grid->addWidget(button, i, 2);
    }
    cmdMove->setDefault(true);
    grid->setColumnStretch(1, 1);

    new WindowPlace(*this, besideItsOwner(parent));

    connect(cmdMove, &QPushButton::clicked, this, &frmMove::cmdMove_Click);
    connect(cmdStandard, &QPushButton::clicked, this, [add = std::move(addStandard)] { add(); });
    connect(cmdClose, &QPushButton::clicked, this, &QWidget::close);
}

void frmMove::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    if (event->spontaneous()) {
        return; // restored from the minimised state: typed texts stay
    }
    CTnStage& stage = m_fOcuva.cxsStage();
    const Long x = stage.X();
    const Long y = stage.Y();
    const Long z = stage.Z();
    setPosition({x, y, z});
    txtMove[0]->setFocus();
}

void frmMove::setPosition(const StagePosition& position) {
    txtMove[0]->setText(QString::number(position.x));
    txtMove[1]->setText(QString::number(position.y));
    txtMove[2]->setText(QString::number(position.z));
}

void frmMove::DoMove(StageMover& fOcuva) {
    const std::shared_ptr<void> hold = fOcuva.holdInput();
    const StagePosition target =
        typedPosition({txtMove[0]->text().toStdString(), txtMove[1]->text().toStdString(),
                       txtMove[2]->text().toStdString()});
    const bool isFar = loadMovesTo(fOcuva.cxsStage(), target);
    fOcuva.SyncStageMove(axisAll);
    if (isFar) {
        fOcuva.farMoveStarted(target);
    }
}

void frmMove::cmdMove_Click() {
    try {
        DoMove(m_fOcuva);
    } catch (const std::exception& error) {
        m_report(QString::fromStdString(error.what()));
    }
}

void GotoStandard(TnLibProxy& libProxy, const std::string& name, frmMove& dialog, StageMover& fOcuva) {
    StandardObject object(libProxy);
    if (!object.isOpen() || !object.read(name)) {
        return;
    }
    if (const std::optional<StagePosition> position = object.position()) {
        dialog.setPosition(*position);
        dialog.DoMove(fOcuva);
    }
}

} // namespace ocuva
