#include "setup/frmSetup.h"

#include "controls/WindowPlace.h"
#include "standards/frmStdList.h"

#include <QCoreApplication>
#include <QEvent>
#include <QHBoxLayout>

#include <utility>

namespace ocuva {

frmSetup::frmSetup(const SetupContext& context, QWidget* owner)
    : QDialog(owner)
    , m_context(context)
    , m_defaults(context.host.tn_lib_proxy(), context.host.tn_video(), context.host.tn_reg(), context.board) {
    setObjectName(QStringLiteral("frmSetup"));
    setWindowTitle(tr("Ocuva Setup Parameters"));
    makePages(context);
    makeButtons();
    auto* column = new QVBoxLayout(this);
    column->addWidget(tsSetup, 1);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(cmdSaveDefault);
    buttons->addStretch(1);
    buttons->addWidget(cmdClose);
    column->addLayout(buttons);

    for (SetupPage* page :
         std::initializer_list<SetupPage*>{autofocusPage, monitorPage, stagePage, cameraPage, boardPage}) {
        page->load();
    }
    connect(tsSetup, &QTabWidget::currentChanged, this,
            [this](int index) { tsSetup_Click(static_cast<SetupTab>(index + 1)); });
    connect(stagePage, &SetupStagePage::magnificationChanged, monitorPage, &SetupMonitorPage::showGrid);
    connect(stagePage, &SetupStagePage::cmdStandardSort_Click, this, &frmSetup::cmdStandardSort_Click);
    connect(boardPage, &SetupBoardPage::boardChanged, this, [this] {
        cameraPage->refresh();
        m_context.mainWindow.showAcquisition();
        m_context.mainWindow.cameraChanged();
    });
    connect(cmdSaveDefault, &QPushButton::clicked, this, &frmSetup::cmdSaveDefault_Click);
    connect(cmdClose, &QPushButton::clicked, this, &QWidget::close);
    new WindowPlace(*this, besideItsOwner(owner));
}

void frmSetup::makePages(const SetupContext& context) {
    tsSetup = new QTabWidget(this);
    tsSetup->setObjectName(QStringLiteral("tsSetup"));
    tsSetup->setAccessibleName(tr("Pages of the set-up"));
    SetupContext forPages = context;
    forPages.report = [this](const QString& text) { report(text); };
    autofocusPage = new SetupAutofocusPage("frsetup0", forPages, tsSetup);
    monitorPage = new SetupMonitorPage("frsetup1", forPages, tsSetup);
    stagePage = new SetupStagePage("frsetup2", forPages, tsSetup);
    cameraPage = new SetupCameraPage("frsetup3", forPages, tsSetup);
    boardPage = new SetupBoardPage("frsetup4", forPages, *cameraPage, tsSetup);
    tsSetup->addTab(autofocusPage, tr("&Autofocus"));
    tsSetup->addTab(monitorPage, tr("&Monitor"));
    tsSetup->addTab(stagePage, tr("&Stage"));
    tsSetup->addTab(cameraPage, tr("&Camera"));
    tsSetup->addTab(boardPage, tr("&Board"));
}

void frmSetup::makeButtons() {
    const auto makeButton = [this](const char* name, const QString& text, const QString& help) {
        auto* button = new QPushButton(text, this);
        button->setObjectName(QString::fromLatin1(name));
        button->setToolTip(help);
        button->setWhatsThis(help);
        button->setAutoDefault(false); // Enter in a text box must not press a button
        return button;
    };
    cmdSaveDefault = makeButton("cmdSaveDefault", tr("Save &Default"),
                                tr("Make the present board, camera and references the host's defaults"));
    cmdSaveDefault->setEnabled(false);
    cmdClose = makeButton("cmdClose", tr("C&lose"), tr("Close the set-up; everything is stored already"));
}

void frmSetup::tsSetup_Click(SetupTab clicked) {
    if (clicked == m_shownTab) {
        return;
    }
    m_shownTab = clicked;
    cmdSaveDefault->setEnabled(clicked == SetupTab::Camera || clicked == SetupTab::Board);
}

void frmSetup::cmdStandardSort_Click() {
    frmStdList list(
        m_context.standards, m_context.host.tn_lib_proxy(), m_context.addStandard, m_context.fillStageMenu,
        [this](const QString& what) { return m_context.mainWindow.holdInput(what); }, this);
    list.exec();
}

void frmSetup::cmdSaveDefault_Click() {
    try {
        m_defaults.save();
    } catch (const std::exception& error) {
        report(QString::fromLocal8Bit(error.what()));
    }
}

// Queued: a message box that opened while the focus moves from one control to the next would take it from
// both.
void frmSetup::report(const QString& text) {
    QMetaObject::invokeMethod(
        this, [this, text] { m_context.report(text); }, Qt::QueuedConnection);
}

void frmSetup::followMagnification() {
    stagePage->followMagnification();
    monitorPage->followMagnification();
}

bool frmSetup::event(QEvent* event) {
    if (event->type() == QEvent::WindowActivate) {
        monitorPage->showStartup();
        if (std::exchange(m_wasActive, true)) {
            followMagnification();
        }
    }
    return QDialog::event(event);
}

void frmSetup::done(int result) {
    // Applies typed text whose box still has the focus.
    if (QWidget* box = focusWidget()) {
        box->clearFocus();
    }
    QCoreApplication::sendPostedEvents(this, QEvent::MetaCall);
    QDialog::done(result);
}

} // namespace ocuva
