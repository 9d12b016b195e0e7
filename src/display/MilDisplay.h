#pragma once
// The display control milDisp: shows the board's frames and reports mouse positions on them in twips.

#include "display/FrameMailbox.h"
#include "hostlink/DisplayWindow.h"

#include <QImage>
#include <QWidget>

namespace ocuva {

/// A native window, because its handle crosses the seam: a real host draws into it, a simulated one delivers
/// frames to its mailbox. The frame always fills the control.
class MilDisplay final : public QWidget {
    Q_OBJECT

public:
    /// Attaches itself under its handle, for as long as it lives; windows outlives it.
    MilDisplay(DisplayWindows& windows, QWidget* parent);
    ~MilDisplay() override;

    /// Whether the host draws the picture, and this control only lends its window.
    bool isDrawnByHost() const { return m_windows.painter() == DisplayWindows::Painter::host; }
    /// None while the host draws into the window.
    QPaintEngine* paintEngine() const override { return hostDraws() ? nullptr : QWidget::paintEngine(); }

    /// The window handle as it crosses the seam.
    Long hWnd() const { return m_hWnd; }

    /// Frames drawn so far, and frames that came too fast to be drawn.
    ///@{
    std::uint64_t framesShown() const { return m_framesShown; }
    std::uint64_t framesDropped() const { return m_mailbox.droppedFrames(); }
    ///@}

    /// Shows a stored picture in place of the frames; incoming frames are still taken but not drawn. The
    /// picture fills the control like a frame.
    void showPicture(const QImage& picture);
    /// Shows the frames again.
    void showFrames();
    /// Whether a stored picture is shown.
    bool showsPicture() const { return !m_picture.isNull(); }

    /// The latest frame, on the screen unless a stored picture is; null before the first.
    const FramePtr& shownFrame() const { return m_frame; }

    /// The text on the black display until the first frame: how to get one.
    void setPrompt(const QString& prompt);
    /// As set last; empty before that.
    const QString& prompt() const { return m_prompt; }

    /// The text for screen readers: the stage position and whether the image is live.
    void setSpokenState(const QString& text);
    /// As set last; empty before that.
    const QString& spokenState() const { return m_spokenState; }

Q_SIGNALS:
    /// x, y in twips from the control's top left corner. A double-click is one click: only its first press
    /// and release are reported.
    ///@{
    void mouseDown(Qt::MouseButton button, int shift, float x, float y);
    void mouseMoved(Qt::MouseButton button, int shift, float x, float y);
    void mouseUp(Qt::MouseButton button, int shift, float x, float y);
    ///@}
    /// The pointer has left the control.
    void mouseLeft();
    /// A new frame has been drawn.
    void frameShown();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    bool event(QEvent* event) override;

private:
    bool hostDraws() const { return isDrawnByHost() && !showsPicture(); }
    void showInPlace(const QImage& picture, const QString& accessibleName);
    void takeFrame();
    void paintPicture(QPainter& painter);
    void paintPrompt(QPainter& painter);

    DisplayWindows& m_windows;
    FrameMailbox m_mailbox;
    Long m_hWnd = 0;
    FramePtr m_frame;
    QImage m_picture;       // null: the frames are shown
    QImage m_pictureAtSize; // the same at the control's size in device pixels
    bool m_frameIsNew = false;
    std::uint64_t m_framesShown = 0;
    bool m_isDoubleClick = false; // the release to come ends a double click
    QString m_prompt;
    QString m_spokenState;
};

} // namespace ocuva
