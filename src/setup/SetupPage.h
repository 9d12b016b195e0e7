#pragma once
// The base class of the set-up pages.

#include "controls/TextBox.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QVBoxLayout>
#include <QWidget>

#include <functional>
#include <initializer_list>

namespace ocuva {

/// A column of frames with named controls. An error that leaves a handler is reported, and the page stays
/// usable.
class SetupPage : public QWidget {
    Q_OBJECT

public:
    /// Shows an error to the operator.
    using Report = std::function<void(const QString&)>;

    /// Fills every control from the stores and the host. Nothing is written.
    virtual void load() = 0;

protected:
    SetupPage(const char* name, Report report, QWidget* parent);

    /// Gives a control its name and its help text, which becomes its tool tip, its What's This text and,
    /// if it has no text of its own, its accessible name.
    template <typename Control> Control* named(Control* control, const char* name, const QString& help) {
        describe(*control, name, help);
        return control;
    }

    QGroupBox* addFrame(const char* name, const QString& caption);
    /// Below the frames: keeps them together at the top.
    void endFrames() { m_frames->addStretch(1); }

    /// The unit's sign.
    static QString micrometres() { return QStringLiteral("\u00b5m"); }

    /// Without a parent yet, as every control: the Tab key follows the order in which they are placed.
    TextBox* makeTextBox(const char* name, const QString& help);

    /// Places caption (the label of the control, with its access letter), control and unit side by side.
    static void addRow(QGridLayout& grid, const QString& caption, QWidget* control,
                       const QString& unit = QString());

    /// Aligns captions, controls and units of these frames in common columns.
    static void lineUp(std::initializer_list<const QGroupBox*> frames);

    /// Runs the handler when the operator has changed the box's text and leaves it, or presses Enter. What he
    /// only looked at is not written back: the host may have changed it meanwhile.
    void whenLeft(TextBox* box, const std::function<void()>& handler);

    /// Runs a handler; an error that leaves it goes to the general error report.
    void guarded(const std::function<void()>& handler) const;

private:
    static void describe(QWidget& control, const char* name, const QString& help);

    Report m_report;
    QVBoxLayout* m_frames;
};

} // namespace ocuva
