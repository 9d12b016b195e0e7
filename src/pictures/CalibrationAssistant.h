#pragma once
// The assistant of the calibration dialog: connects CalibrationWalk to the stage and describes the next
// step.

#include "pictures/CalibrationWalk.h"
#include "stage/StageMover.h"

#include <QObject>

#include <functional>

namespace ocuva {

/// The surroundings of the assistant; everything outlives it.
struct CalibrationAssistantContext {
    StageMover& fOcuva;                                         ///< moves the stage
    std::function<StagePosition(const PicturePoint&)> offsetTo; ///< by the set-up's scale; Z is 0
    std::function<void()> focus;                                ///< one focus search from begin to end
    std::function<QString()> whyNot; ///< why the stage cannot be walked now; empty when it can
};

/// Drives the stage only from start's walk, when enter() is called. User-interface thread.
class CalibrationAssistant final : public QObject, private CalibrationWalkActions {
    Q_OBJECT

public:
    /// Nothing is under way.
    CalibrationAssistant(CalibrationAssistantContext context, QObject* parent);

    /// Begins a walk of two or three points, or says why it cannot.
    void start(std::size_t count);
    /// The next point was picked.
    void pick(const PicturePoint& at);
    /// The operator continues; ignored if the assistant does not wait for it.
    void enter();
    /// The operator ends the walk; the stage stays.
    void leave();
    /// A watched move has ended.
    void moveEnded();

    /// The walk itself.
    const CalibrationWalk& walk() const { return m_walk; }
    /// Describes what it waits for or has done; empty before the first start.
    QString hint() const;
    /// Whether a focus search is running: nothing else is drawn or handled until it has ended.
    bool isFocusing() const { return m_focusing; }
    /// What enter() does next, or start while nothing is under way.
    QString buttonText() const;

Q_SIGNALS:
    /// State or texts are others.
    void changed();

private:
    StagePosition position() override;
    StagePosition offsetTo(const PicturePoint& point) override { return m_context.offsetTo(point); }
    void driveBy(const StagePosition& distance) override;
    void focus() override;

    bool isRefused();

    CalibrationAssistantContext m_context;
    CalibrationWalk m_walk;
    QString m_refusal; // why the last action had no effect
    bool m_hasWalked = false;
    bool m_leftOnTheWay = false; // ended while the stage was moving
    bool m_focusing = false;
};

} // namespace ocuva
