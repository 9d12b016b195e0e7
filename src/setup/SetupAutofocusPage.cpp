#include "setup/SetupAutofocusPage.h"

#include "base/TextNumber.h"

#include <QHBoxLayout>

namespace ocuva {

SetupAutofocusPage::SetupAutofocusPage(const char* name, const SetupContext& context, QWidget* parent)
    : SetupPage(name, context.report, parent)
    , m_settings(context.settings)
    , m_memory(context.memory) {
    makeGeneral();
    makeCourse();
    endFrames();

    connect(chkAutoAll, &QCheckBox::clicked, this, [this](bool checked) {
        change([checked](AutofocusOptions& options) { options.AutofocusOnAllImage = checked; });
    });
    connect(cbAutoPart, &QComboBox::activated, this, [this](int index) {
        change([index](AutofocusOptions& options) { options.AutofocusOnImageFraction = index; });
    });
    connect(chkAutoTransmit, &QCheckBox::clicked, this, [this](bool checked) {
        change([checked](AutofocusOptions& options) { options.UseTransmittedLight = checked; });
    });
    connect(cbCourseType, &QComboBox::activated, this, [this](int index) { m_memory.courseType = index; });
    connect(chkCourseFix, &QCheckBox::clicked, this,
            [this](bool checked) { m_memory.courseIsFixed = checked; });
    whenLeft(txtCourseHalf, [this] { course_LostFocus(); });
    whenLeft(txtCourseNbPoints, [this] { course_LostFocus(); });
}

void SetupAutofocusPage::makeGeneral() {
    frSetupAutoGeneral = addFrame("frSetupAutoGeneral", tr("General"));
    chkAutoAll = named(new QCheckBox(tr("Compute on all &image")), "chkAutoAll",
                       tr("Measure the focus on the whole image"));
    cbAutoPart = named(new QComboBox, "cbAutoPart",
                       tr("Otherwise, the part of the image's area around its centre that is measured"));
    for (const char* part : {"1/4", "1/9", "1/16", "1/25", "1/36", "1/49", "1/64"}) {
        cbAutoPart->addItem(QString::fromLatin1(part));
    }
    chkAutoTransmit = named(new QCheckBox(tr("&Transmitted light")), "chkAutoTransmit",
                            tr("For a microscope with a lamp below the sample. Stored for the host, which "
                               "decides what to do with it"));

    auto* part = new QHBoxLayout;
    auto* computeOn = new QLabel(tr("Compute &on"));
    computeOn->setBuddy(cbAutoPart);
    part->addWidget(computeOn);
    part->addWidget(cbAutoPart);
    part->addWidget(new QLabel(tr("of image")));
    part->addStretch(1);
    auto* column = new QVBoxLayout(frSetupAutoGeneral);
    column->addWidget(chkAutoAll);
    column->addLayout(part);
    column->addWidget(chkAutoTransmit);
}

void SetupAutofocusPage::makeCourse() {
    frSetupAutoCourse = addFrame("frSetupAutoCourse", tr("Define Z course"));
    cbCourseType = named(new QComboBox, "cbCourseType",
                         tr("Remembered until the program ends. The host's search does not use it"));
    cbCourseType->addItems({tr("Coarse"), tr("Fine")});
    txtCourseHalf = makeTextBox("txtCourseHalf", tr("Half of the Z range that is searched, micrometres"));
    txtCourseNbPoints = makeTextBox("txtCourseNbPoints", tr("Number of heights that are tried"));
    chkCourseFix = named(new QCheckBox(tr("Always &fix parameters")), "chkCourseFix",
                         tr("Remembered until the program ends. The host uses the parameters above for every "
                            "search in any case"));

    auto* grid = new QGridLayout(frSetupAutoCourse);
    addRow(*grid, tr("Course t&ype"), cbCourseType);
    addRow(*grid, tr("&Half course"), txtCourseHalf, micrometres());
    addRow(*grid, tr("&Number of steps"), txtCourseNbPoints);
    grid->addWidget(chkCourseFix, grid->rowCount(), 0, 1, grid->columnCount());
}

void SetupAutofocusPage::load() {
    const AutofocusOptions options = m_settings.readAutofocus();
    chkAutoAll->setChecked(options.AutofocusOnAllImage);
    const bool isListed =
        options.AutofocusOnImageFraction >= 0 && options.AutofocusOnImageFraction < cbAutoPart->count();
    cbAutoPart->setCurrentIndex(isListed ? options.AutofocusOnImageFraction : -1);
    chkAutoTransmit->setChecked(options.UseTransmittedLight);
    cbCourseType->setCurrentIndex(m_memory.courseType);
    chkCourseFix->setChecked(m_memory.courseIsFixed);
    showCourse();
}

void SetupAutofocusPage::showCourse() {
    const FineParameters fine = m_settings.readFine();
    txtCourseHalf->setText(QString::number(fine.halfZRange));
    txtCourseNbPoints->setText(QString::number(fine.numberOfPoints));
}

void SetupAutofocusPage::change(const std::function<void(AutofocusOptions&)>& edit) {
    guarded([this, &edit] {
        AutofocusOptions options = m_settings.readAutofocus();
        edit(options);
        m_settings.writeAutofocus(options);
    });
}

void SetupAutofocusPage::course_LostFocus() {
    m_memory.courseIsFixed = chkCourseFix->isChecked();
    try {
        m_settings.writeFine({textToLong(txtCourseHalf->text().toStdString()),
                              textToLong(txtCourseNbPoints->text().toStdString())});
    } catch (const std::exception&) {
        // Ignored: the boxes show the values in use again.
    }
    showCourse();
}

} // namespace ocuva
