#pragma once
// The tab "Autofocus": area and steps of the host's focus search.

#include "setup/SetupContext.h"
#include "setup/SetupPage.h"

#include <QCheckBox>
#include <QComboBox>

namespace ocuva {

/// The range and the number of points that it shows are those of the fine search.
class SetupAutofocusPage final : public SetupPage {
    Q_OBJECT

public:
    /// Shows nothing of stores and host before load().
    SetupAutofocusPage(const char* name, const SetupContext& context, QWidget* parent);

    void load() override;

    /// The controls, by their names.
    ///@{
    QGroupBox* frSetupAutoGeneral = nullptr;
    QCheckBox* chkAutoAll = nullptr;
    QComboBox* cbAutoPart = nullptr;
    QCheckBox* chkAutoTransmit = nullptr;

    QGroupBox* frSetupAutoCourse = nullptr;
    QComboBox* cbCourseType = nullptr;
    TextBox* txtCourseHalf = nullptr;
    TextBox* txtCourseNbPoints = nullptr;
    QCheckBox* chkCourseFix = nullptr;
    ///@}

private:
    void makeGeneral();
    void makeCourse();
    /// Changes one of the three autofocus options and stores them all, the others as they are stored.
    void change(const std::function<void(AutofocusOptions&)>& edit);
    void course_LostFocus();
    void showCourse();

    Settings& m_settings;
    SetupMemory& m_memory;
};

} // namespace ocuva
