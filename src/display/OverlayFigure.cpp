#include "display/OverlayFigure.h"

#include <QEvent>
#include <QPainter>
#include <QWindow>

#include <utility>

namespace ocuva {

namespace {

constexpr int outlinePixels = 1;
constexpr int rimPixels = 2;
constexpr int thickestSolidBar = 5;

QRect grown(const QRect& rect, int by) { return rect.adjusted(-by, -by, by, by); }

bool isHollow(const QRect& bar) { return qMin(bar.width(), bar.height()) > thickestSolidBar; }

} // namespace

QString overlayStyleSheet() {
    return QStringLiteral(
        "ocuva--OverlayWidget { qproperty-coreColour: #ffffff; qproperty-outlineColour: #101010; }"
        "ocuva--BarFrame[figure=\"frCross\"] { qproperty-coreColour: #ffd95a; }"
        "ocuva--BarFrame[figure=\"frGrid\"] { qproperty-coreColour: #d8ecff; }"
        "ocuva--PointMark { qproperty-coreColour: #8dffb0; }");
}

OverlayWidget::OverlayWidget(QWidget* display)
    : QWidget(display) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    if (display->testAttribute(Qt::WA_PaintOnScreen)) {
        // Only a native window stays above what the host draws into the window below.
        setAttribute(Qt::WA_DontCreateNativeAncestors);
        setAttribute(Qt::WA_NativeWindow);
        windowHandle()->setFlag(Qt::WindowTransparentForInput);
    }
}

// If the scale of the screen is not a whole number, a control also touches screen pixels that it covers
// only in part. The replacing contents are not drawn there, so a still image would keep a thin edge of the
// control.
bool OverlayWidget::event(QEvent* event) {
    switch (event->type()) {
    case QEvent::Hide:
    case QEvent::Move:
    case QEvent::Resize:
        parentWidget()->update(grown(m_covered, 1));
        m_covered = geometry();
        break;
    default:
        break;
    }
    return QWidget::event(event);
}

void OverlayWidget::cutDownTo(const QRegion& pixels) {
    if (isWindowOfItsOwn()) {
        setMask(pixels);
    }
}

void FigureRegions::paint(QPainter& painter, const OverlayWidget& colours) const {
    painter.setPen(Qt::NoPen);
    painter.setBrush(colours.outlineColour);
    painter.drawRects(outline.begin(), outline.rectCount());
    painter.setBrush(colours.coreColour);
    painter.drawRects(core.begin(), core.rectCount());
}

FigureRegions figureRegions(const std::vector<QRect>& bars, bool outlined) {
    QRegion solid;
    QRegion hollow;
    QRegion open; // what stays free inside the inner outline
    QRegion around;
    for (const QRect& bar : bars) {
        solid += bar;
        around += grown(bar, outlinePixels);
        if (isHollow(bar)) {
            hollow += grown(bar, -rimPixels);
            open += grown(bar, -rimPixels - outlinePixels);
        }
    }
    FigureRegions figure{solid - hollow, {}};
    if (outlined) {
        figure.outline = around - figure.core - open;
    }
    return figure;
}

namespace {

std::vector<QRect> changed(const std::vector<QRect>& bars, int by, bool hollowOnly) {
    std::vector<QRect> result;
    result.reserve(bars.size());
    for (const QRect& bar : bars) {
        if (!hollowOnly || isHollow(bar)) {
            result.push_back(grown(bar, by));
        }
    }
    return result;
}

void fill(QPainter& painter, const QColor& colour, const std::vector<QRect>& rects) {
    painter.setBrush(colour);
    painter.drawRects(rects.data(), static_cast<int>(rects.size()));
}

// The pixels of parallel bars with their outlines. Added in their order, one after the other: a region is
// quick then.
QRegion pixelsOf(const std::vector<QRect>& bars, bool outlined) {
    const int edge = outlined ? outlinePixels : 0;
    QRegion pixels;
    QRegion ends; // of hollow bars
    for (const QRect& bar : bars) {
        const QRect whole = grown(bar, edge);
        if (!isHollow(bar)) {
            pixels += whole;
            continue;
        }
        const QRect open = grown(bar, -rimPixels - edge);
        const bool upright = bar.height() >= bar.width();
        QRect near = whole;
        QRect far = whole;
        QRect first = whole;
        QRect last = whole;
        (upright ? near : first).setRight(open.left() - 1);
        (upright ? far : last).setLeft(open.right() + 1);
        (upright ? first : near).setBottom(open.top() - 1);
        (upright ? last : far).setTop(open.bottom() + 1);
        pixels += near;
        pixels += far;
        ends += first;
        ends += last;
    }
    return pixels + ends;
}

} // namespace

void ManyBars::paint(QPainter& painter, const OverlayWidget& colours, bool seeThrough) const {
    const QColor ring = outlined ? colours.outlineColour : QColor(Qt::transparent);
    painter.setPen(Qt::NoPen);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    if (outlined) {
        fill(painter, colours.outlineColour, changed(bars, outlinePixels, false));
    }
    fill(painter, colours.coreColour, bars);
    fill(painter, ring, changed(bars, -rimPixels, true));
    if (seeThrough) {
        fill(painter, Qt::transparent, changed(bars, -rimPixels - outlinePixels, true));
    }
}

void BarFrame::placeMany(const QRect& area, std::shared_ptr<const ManyBars> bars, const QRegion& pixels) {
    m_bar = area;
    m_part = {};
    m_many = std::move(bars);
    m_drawn = {};
    setGeometry(grown(area, outlinePixels));
    cutDownTo(pixels.translated(-pos()));
    update();
}

void BarFrame::place(const QRect& bar, const FigureRegions& figure) {
    m_bar = bar;
    m_many.reset();
    const QRect part = grown(bar, outlinePixels);
    m_part = {figure.core.intersected(part).translated(-part.topLeft()),
              figure.outline.intersected(part).translated(-part.topLeft())};
    m_drawn = {};
    setGeometry(part);
    cutDownTo(m_part.core + m_part.outline);
    update();
}

QImage BarFrame::draw() const {
    // Without holes it is copied, not blended.
    const bool solid = m_many == nullptr && (QRegion(rect()) - m_part.core - m_part.outline).isEmpty();
    QImage image(size() * devicePixelRatioF(),
                 solid ? QImage::Format_RGB32 : QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(devicePixelRatioF());
    image.fill(solid ? Qt::black : Qt::transparent);
    QPainter painter(&image);
    if (m_many != nullptr) {
        painter.translate(-pos());
        m_many->paint(painter, *this, !isWindowOfItsOwn());
    } else {
        m_part.paint(painter, *this);
    }
    return image;
}

void BarFrame::paintEvent(QPaintEvent* /*event*/) {
    if (m_drawn.isNull() || m_drawn.devicePixelRatio() != devicePixelRatioF()) {
        m_drawn = draw();
    }
    QPainter(this).drawImage(0, 0, m_drawn);
}

OverlayFigure::OverlayFigure(QString name, QWidget* display)
    : m_name(std::move(name))
    , m_display(display) {}

BarFrame* OverlayFigure::add(const QString& name) {
    auto* bar = new BarFrame(m_display);
    bar->setObjectName(name);
    bar->setProperty("figure", m_name);
    // Below the existing controls: a growing figure must not cover the others.
    bar->lower();
    bar->hide();
    return bar;
}

void OverlayFigure::place(const std::vector<PixelRect>& bars, bool outlined) {
    std::vector<QRect> rects;
    rects.reserve(bars.size());
    for (const PixelRect& bar : bars) {
        rects.emplace_back(bar.left, bar.top, bar.width, bar.height);
    }
    if (rects.size() > mostSeparateBars) {
        placeSeparately({}, outlined);
        placeOnSheets(std::move(rects), outlined);
    } else {
        emptySheets();
        placeSeparately(rects, outlined);
    }
    show(m_shown);
}

void OverlayFigure::placeSeparately(const std::vector<QRect>& bars, bool outlined) {
    const FigureRegions figure = figureRegions(bars, outlined);
    while (m_bars.size() < bars.size()) {
        m_bars.push_back(add(m_name + QString::number(m_bars.size())));
    }
    for (std::size_t i = 0; i < m_bars.size(); ++i) {
        const bool isUsed = i < bars.size();
        m_bars[i]->place(isUsed ? bars[i] : QRect(), isUsed ? figure : FigureRegions{});
    }
}

void OverlayFigure::placeOnSheets(std::vector<QRect> bars, bool outlined) {
    QRect area;
    std::vector<QRect> upright;
    std::vector<QRect> level;
    for (const QRect& bar : bars) {
        area |= bar;
        (bar.height() >= bar.width() ? upright : level).push_back(bar);
    }
    const auto many = std::make_shared<const ManyBars>(ManyBars{std::move(bars), outlined});
    BarFrame& first = sheet(0);
    if (!first.isWindowOfItsOwn()) {
        first.placeMany(area, many, {});
        return;
    }
    first.placeMany(area, many, pixelsOf(upright, outlined));
    sheet(1).placeMany(area, many, pixelsOf(level, outlined));
}

void OverlayFigure::emptySheets() {
    for (BarFrame* sheet : m_sheets) {
        if (sheet != nullptr) {
            sheet->place({}, {});
        }
    }
}

BarFrame& OverlayFigure::sheet(std::size_t index) {
    BarFrame*& made = m_sheets.at(index);
    if (made == nullptr) {
        made = add(m_name + QStringLiteral("Sheet%1").arg(index));
    }
    return *made;
}

void OverlayFigure::show(bool on) {
    m_shown = on;
    for (BarFrame* sheet : m_sheets) {
        if (sheet != nullptr) {
            sheet->setVisible(on && !sheet->bar().isEmpty());
        }
    }
    for (BarFrame* bar : m_bars) {
        bar->setVisible(on && !bar->bar().isEmpty());
    }
}

} // namespace ocuva
