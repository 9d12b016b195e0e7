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
        "ocuva--BarFrame[figure=\"frGrid\"] { qproperty-coreColour: #d8ecff; }");
}

OverlayWidget::OverlayWidget(QWidget* display)
    : QWidget(display) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    if (display->testAttribute(Qt::WA_PaintOnScreen)) {
        // Only a window of its own stays above what somebody else draws into the window below.
        setAttribute(Qt::WA_DontCreateNativeAncestors);
        setAttribute(Qt::WA_NativeWindow);
        windowHandle()->setFlag(Qt::WindowTransparentForInput);
    }
}

// On a screen whose scale is no whole number a control also touches the screen pixels that it covers only in
// part, and what takes its place is not drawn there: a still would keep a thin edge of it.
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

void BarFrame::place(const QRect& bar, const FigureRegions& figure) {
    m_bar = bar;
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
    const bool solid = (QRegion(rect()) - m_part.core - m_part.outline).isEmpty();
    QImage image(size() * devicePixelRatioF(),
                 solid ? QImage::Format_RGB32 : QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(devicePixelRatioF());
    image.fill(solid ? Qt::black : Qt::transparent);
    QPainter painter(&image);
    m_part.paint(painter, *this);
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
    // Below what was there before: a figure that grows must not cover the others.
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
    const FigureRegions figure = figureRegions(rects, outlined);
    const bool dense = rects.size() > mostSeparateBars;
    if (dense && m_sheet == nullptr) {
        m_sheet = add(m_name + QStringLiteral("Sheet"));
    }
    if (m_sheet != nullptr) {
        m_sheet->place(dense ? figure.core.boundingRect() : QRect(), figure);
    }
    while (m_bars.size() < rects.size()) {
        m_bars.push_back(add(m_name + QString::number(m_bars.size())));
    }
    for (std::size_t i = 0; i < m_bars.size(); ++i) {
        m_bars[i]->place(i < rects.size() ? rects[i] : QRect(), dense ? FigureRegions{} : figure);
    }
    show(m_shown);
}

void OverlayFigure::show(bool on) {
    m_shown = on;
    const bool dense = m_sheet != nullptr && !m_sheet->bar().isEmpty();
    if (m_sheet != nullptr) {
        m_sheet->setVisible(on && dense);
    }
    for (BarFrame* bar : m_bars) {
        bar->setVisible(on && !dense && !bar->bar().isEmpty());
    }
}

} // namespace ocuva
