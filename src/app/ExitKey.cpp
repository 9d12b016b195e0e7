#include "app/ExitKey.h"

#include <QCoreApplication>
#include <QEvent>
#include <QWidget>

namespace ocuva {

namespace {

bool isWindowWithKeys(const QWidget& widget) {
    const Qt::WindowType type = widget.windowType();
    return widget.isWindow() && type != Qt::Popup && type != Qt::ToolTip && type != Qt::SplashScreen;
}

} // namespace

ExitKey::ExitKey(QAction& exit)
    : QObject(&exit)
    , m_exit(exit) {
    QCoreApplication::instance()->installEventFilter(this);
}

bool ExitKey::eventFilter(QObject* watched, QEvent* event) {
    auto* const widget = event->type() == QEvent::ShowToParent ? qobject_cast<QWidget*>(watched) : nullptr;
    if (widget != nullptr && isWindowWithKeys(*widget) && !widget->actions().contains(&m_exit)) {
        widget->addAction(&m_exit);
    }
    return QObject::eventFilter(watched, event);
}

} // namespace ocuva
