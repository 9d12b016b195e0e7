#include "app/frmSplash.h"

#include "app/toolbar/IconArt.h"
#include "base/Product.h"
#include "platform/Desktop.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QHBoxLayout>
#include <QLabel>
#include <QPixmap>
#include <QPushButton>
#include <QTimer>
#include <QWindow>

namespace ocuva {

namespace {

constexpr int emblemPx = 72;
constexpr int longestWaitMs = 2000; // for a window system that is slow or shows nothing
constexpr int wakeMs = 20;

QPixmap emblem(qreal devicePixelRatio) {
    QPixmap pixmap = QPixmap::fromImage(drawEmblem(qRound(emblemPx * devicePixelRatio)));
    pixmap.setDevicePixelRatio(devicePixelRatio);
    return pixmap;
}

} // namespace

frmSplash::frmSplash()
    : QDialog(nullptr, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint)
    , cmdOk(new QPushButton(tr("OK"), this)) {
    setObjectName(QStringLiteral("frmSplash"));
    setWindowTitle(QString::fromLatin1(productTitle));

    auto* picture = new QLabel(this);
    picture->setPixmap(emblem(devicePixelRatioF()));
    auto* name = new QLabel(QString::fromLatin1(productTitle), this);
    name->setObjectName(QStringLiteral("lblProduct"));
    QFont large = name->font();
    large.setPointSizeF(large.pointSizeF() * 2.2);
    large.setBold(true);
    name->setFont(large);
    auto* purpose = new QLabel(tr("Optical video microscope"), this);
    auto* version = new QLabel(tr("Version %1").arg(QString::fromLatin1(productVersion)), this);
    version->setObjectName(QStringLiteral("lblVersion"));

    cmdOk->setObjectName(QStringLiteral("cmdOk"));
    cmdOk->setDefault(true);
    cmdOk->hide();
    connect(cmdOk, &QPushButton::clicked, this, &QDialog::accept);

    auto* texts = new QVBoxLayout;
    texts->addWidget(name);
    texts->addWidget(purpose);
    texts->addWidget(version);
    texts->addStretch(1);
    auto* top = new QHBoxLayout;
    top->setSpacing(24);
    top->addWidget(picture, 0, Qt::AlignTop);
    top->addLayout(texts, 1);
    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(30, 27, 30, 24);
    all->setSpacing(18);
    all->setSizeConstraint(QLayout::SetFixedSize);
    all->addLayout(top);
    all->addWidget(cmdOk, 0, Qt::AlignRight);
    texts->addSpacing(1);
    texts->setSpacing(6);
    purpose->setMinimumWidth(240);
}

void frmSplash::EnableOkButton() { cmdOk->show(); }

void frmSplash::showAndRepaint() {
    show();
    // The slow steps that follow handle no event: a window that the window system has not shown by then stays
    // an empty frame until they are over. Nothing of the program is subscribed to any event yet.
    const QDeadlineTimer bound(longestWaitMs);
    QTimer wake;
    wake.start(wakeMs);
    while (!windowHandle()->isExposed() && !bound.hasExpired()) {
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents | QEventLoop::WaitForMoreEvents);
    }
    repaint();
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

void frmSplash::showModal(QWidget* owner) {
    setParent(owner, windowFlags());
    exec();
    setParent(nullptr, windowFlags());
}

void frmSplash::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    bringWindowToTop(*this);
    activateWindow();
}

} // namespace ocuva
