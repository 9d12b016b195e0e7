#include "app/toolbar/VectorIcon.h"

#include "app/toolbar/IconArt.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPixmap>

#include <algorithm>
#include <utility>

namespace ocuva {

namespace {

// What every engine here shares: a square image in device pixels, centred in the place given for it.
class DrawnIconEngine : public QIconEngine {
public:
    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override {
        const qreal ratio = painter->device()->devicePixelRatioF();
        QPixmap drawn = pixmap(rect.size() * ratio, mode, state);
        drawn.setDevicePixelRatio(ratio);
        painter->drawPixmap(rect.topLeft(), drawn);
    }

    QPixmap pixmap(const QSize& sizePx, QIcon::Mode mode, QIcon::State state) override {
        const int sidePx = std::min(sizePx.width(), sizePx.height());
        if (sidePx <= 0) {
            return {};
        }
        QPixmap whole(sizePx);
        whole.fill(Qt::transparent);
        QPainter painter(&whole);
        painter.drawImage((sizePx.width() - sidePx) / 2, (sizePx.height() - sidePx) / 2,
                          draw(sidePx, mode, state));
        return whole;
    }

    // Without a name or a list of sizes the icon would count as null.
    bool isNull() override { return false; }

protected:
    virtual QImage draw(int sidePx, QIcon::Mode mode, QIcon::State state) const = 0;
};

class LookIconEngine final : public DrawnIconEngine {
public:
    LookIconEngine(QString key, bool on, IconLook look)
        : m_key(std::move(key))
        , m_on(on)
        , m_look(look) {}

    QIconEngine* clone() const override { return new LookIconEngine(*this); }

protected:
    QImage draw(int sidePx, QIcon::Mode mode, QIcon::State) const override {
        const IconLook look = mode == QIcon::Selected ? IconLook::Selected : m_look;
        return drawIcon(m_key, m_on, inkFor(QGuiApplication::palette(), look), sidePx);
    }

private:
    QString m_key;
    bool m_on;
    IconLook m_look;
};

class EmblemEngine final : public DrawnIconEngine {
public:
    QIconEngine* clone() const override { return new EmblemEngine(*this); }

protected:
    QImage draw(int sidePx, QIcon::Mode, QIcon::State) const override { return drawEmblem(sidePx); }
};

// Passes each request to the image for its mode and state.
class ButtonIconEngine final : public QIconEngine {
public:
    explicit ButtonIconEngine(const ButtonImages& images)
        : m_images(images) {}

    QIconEngine* clone() const override { return new ButtonIconEngine(*this); }
    bool isNull() override { return m_images.normalOff.isNull(); }

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override {
        image(mode, state).paint(painter, rect, Qt::AlignCenter, mode, state);
    }

    QPixmap pixmap(const QSize& sizePx, QIcon::Mode mode, QIcon::State state) override {
        return image(mode, state).pixmap(sizePx, 1.0, mode, state);
    }

private:
    const QIcon& image(QIcon::Mode mode, QIcon::State state) const {
        const bool on = state == QIcon::On;
        switch (mode) {
        case QIcon::Active:
            return on ? m_images.hotOn : m_images.hotOff;
        case QIcon::Disabled:
            return on ? m_images.disabledOn : m_images.disabledOff;
        default:
            return on ? m_images.normalOn : m_images.normalOff;
        }
    }

    ButtonImages m_images;
};

} // namespace

QIcon vectorIcon(const QString& key, bool on, IconLook look) {
    return QIcon(new LookIconEngine(key, on, look));
}

QIcon buttonIcon(const ButtonImages& images) { return QIcon(new ButtonIconEngine(images)); }

QIcon applicationIcon() { return QIcon(new EmblemEngine); }

} // namespace ocuva
