#include "setup/SetupCameraPage.h"

#include <QHBoxLayout>

namespace ocuva {

namespace {
constexpr int referenceDigits = 5; // "100.0"
constexpr int referencePage = 10;  // Page Up and Page Down
} // namespace

/// The page as the logic sees it.
class SetupCameraPage::View final : public CameraSetupView {
public:
    explicit View(SetupCameraPage& page)
        : m_page(page) {}

    std::string text(CameraReference reference) const override {
        return m_page.txtReference.at(at(reference))->text().toStdString();
    }
    void setText(CameraReference reference, const std::string& text) override {
        m_page.txtReference.at(at(reference))->setText(QString::fromStdString(text));
    }
    Long slider(CameraReference reference) const override {
        return m_page.sldReference.at(at(reference))->value();
    }
    void setSlider(CameraReference reference, Long position) override {
        m_page.sldReference.at(at(reference))->setValue(position);
    }
    void checkOptCam(Long index) override {
        m_page.optCam.at(static_cast<std::size_t>(index))->setChecked(true);
    }
    bool chkAutoGain() const override { return m_page.chkAutoGain->isChecked(); }
    Long sldGain() const override { return m_page.sldGain->value(); }
    void showSldGain(bool visible) override { m_page.sldGain->setVisible(visible); }
    void showLblAutoGain(bool visible) override { m_page.lblAutoGain->setVisible(visible); }
    void showLblGainRange(Long index, bool visible) override {
        m_page.lblGainRange.at(static_cast<std::size_t>(index))->setVisible(visible);
    }

private:
    static std::size_t at(CameraReference reference) { return static_cast<std::size_t>(reference); }

    SetupCameraPage& m_page;
};

SetupCameraPage::SetupCameraPage(const char* name, const SetupContext& context, QWidget* parent)
    : SetupPage(name, context.report, parent)
    , m_memory(context.memory)
    , m_mainWindow(context.mainWindow)
    , m_view(std::make_unique<View>(*this))
    , m_setup(context.host.tn_video(), context.board, context.cameraWindow, m_view.get()) {
    makeInput();
    makeReferences();
    makeSignal();
    endFrames();
    connectControls();
}

SetupCameraPage::~SetupCameraPage() = default;

void SetupCameraPage::makeInput() {
    frSetupCameraInput = addFrame("frSetupCameraInput", tr("Input Channel"));
    struct Camera {
        const char* name;
        QString text;
        QString help;
    };
    const std::array<Camera, 4> cameras{{
        {"optCam0", tr("&European black && white"), tr("Select european black & white camera")},
        {"optCam1", tr("&US/Japanese color"), tr("Select US/Japanese color camera")},
        {"optCam2", tr("Eu&ropean color"), tr("Select european color camera")},
        {"optCam3", tr("US/&Japanese black && white"), tr("Select US/Japanese black & white camera")},
    }};
    auto* grid = new QGridLayout(frSetupCameraInput);
    for (std::size_t i = 0; i < cameras.size(); ++i) {
        const Camera& camera = cameras.at(i);
        optCam.at(i) = named(new QRadioButton(camera.text), camera.name, camera.help);
        grid->addWidget(optCam.at(i), static_cast<int>(i / 2), static_cast<int>(i % 2));
    }
}

void SetupCameraPage::makeReferences() {
    frSetupCameraReferences = addFrame("frSetupCameraReferences", tr("References"));
    const std::array<QString, cameraReferences.size()> captions{tr("Con&trast"), tr("Bri&ghtness"),
                                                                tr("&Hue"), tr("Saturatio&n")};
    auto* grid = new QGridLayout(frSetupCameraReferences);
    for (const CameraReferenceRow& row : cameraReferences) {
        const auto i = static_cast<std::size_t>(row.reference);
        const QString help = tr("%1 of the camera, 0 to 100").arg(QString(captions.at(i)).remove(u'&'));
        sldReference.at(i) = named(new QSlider(Qt::Horizontal), row.slider, help);
        sldReference.at(i)->setRange(lowestReference, highestReference);
        sldReference.at(i)->setPageStep(referencePage);
        txtReference.at(i) = makeTextBox(row.textBox, help);
        txtReference.at(i)->setDigits(referenceDigits);

        auto* label = new QLabel(captions.at(i));
        label->setBuddy(sldReference.at(i));
        const int line = static_cast<int>(i);
        grid->addWidget(label, line, 0);
        grid->addWidget(sldReference.at(i), line, 1);
        grid->addWidget(txtReference.at(i), line, 2);
    }
    grid->setColumnStretch(1, 1);
}

void SetupCameraPage::makeSignal() {
    frSetupCameraSignal = addFrame("frSetupCameraSignal", tr("Signal"));
    chkAutoGain =
        named(new QCheckBox(tr("Aut&omatic gain")), "chkAutoGain", tr("Let the board find the gain"));
    sldGain = named(new QSlider(Qt::Horizontal), "sldGain", tr("Gain range, 0 to 4"));
    sldGain->setRange(0, gainRangeCount - 1);
    sldGain->setPageStep(1);
    sldGain->setTickPosition(QSlider::TicksBelow);
    sldGain->setTickInterval(1);
    // Slider and labels appear and disappear without moving the other controls.
    QSizePolicy keepsItsPlace = sldGain->sizePolicy();
    keepsItsPlace.setRetainSizeWhenHidden(true);
    sldGain->setSizePolicy(keepsItsPlace);

    auto* caption = new QLabel(tr("Ga&in"));
    caption->setBuddy(sldGain);
    auto* grid = new QGridLayout(frSetupCameraSignal);
    grid->addWidget(chkAutoGain, 0, 0, 1, 3);
    grid->addWidget(caption, 1, 0);
    grid->addWidget(sldGain, 1, 1);
    const auto addLabel = [&](const QString& text, const QString& name) {
        auto* label = new QLabel(text, frSetupCameraSignal);
        label->setObjectName(name);
        QSizePolicy policy = label->sizePolicy();
        policy.setRetainSizeWhenHidden(true);
        label->setSizePolicy(policy);
        grid->addWidget(label, 1, 2);
        return label;
    };
    lblAutoGain = addLabel(tr("Automatic"), QStringLiteral("lblAutoGain"));
    const std::array<QString, gainRangeCount> texts{tr("Lowest"), tr("Low"), tr("Middle"), tr("High"),
                                                    tr("Highest")};
    for (std::size_t i = 0; i < texts.size(); ++i) {
        lblGainRange.at(i) = addLabel(texts.at(i), QStringLiteral("lblGainRange%1").arg(i));
    }
    grid->setColumnStretch(1, 1);
}

void SetupCameraPage::connectControls() {
    for (std::size_t i = 0; i < optCam.size(); ++i) {
        connect(optCam.at(i), &QRadioButton::clicked, this, [this, i, &mainWindow = m_mainWindow] {
            m_setup.optCam_Click(static_cast<Long>(i));
            mainWindow.cameraChanged();
        });
    }
    for (const CameraReferenceRow& row : cameraReferences) {
        const auto i = static_cast<std::size_t>(row.reference);
        connect(sldReference.at(i), &QSlider::valueChanged, this,
                [this, reference = row.reference] { m_setup.sldReference_Change(reference); });
        whenLeft(txtReference.at(i),
                 [this, reference = row.reference] { m_setup.txtReference_LostFocus(reference); });
    }
    connect(sldGain, &QSlider::valueChanged, this, &SetupCameraPage::gain_Change);
    connect(chkAutoGain, &QCheckBox::clicked, this, &SetupCameraPage::gain_Change);
}

void SetupCameraPage::load() {
    {
        const QSignalBlocker quiet(sldGain);
        chkAutoGain->setChecked(m_memory.gainIsAutomatic);
        sldGain->setValue(m_memory.gainRange);
    }
    m_setup.showGain();
    refresh();
}

void SetupCameraPage::refresh() { m_setup.refresh(true); }

void SetupCameraPage::gain_Change() {
    m_memory.gainIsAutomatic = chkAutoGain->isChecked();
    m_memory.gainRange = sldGain->value();
    m_setup.gainChanged();
}

} // namespace ocuva
