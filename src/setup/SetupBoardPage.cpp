#include "setup/SetupBoardPage.h"

#include "settings/SettingsTable.h"
#include "setup/IniEntries.h"

#include <QHBoxLayout>

namespace ocuva {

namespace {
// The section in which a host may name its boards, in the order of their types.
constexpr const char* boardsSection = "tn_video\\boards";
} // namespace

/// The page as the logic sees it.
class SetupBoardPage::View final : public BoardSetupView {
public:
    View(SetupBoardPage& page, SetupCameraPage& cameraPage)
        : m_page(page)
        , m_cameraPage(cameraPage) {}

    Long cbBoardIndex() const override { return m_page.cbBoard->currentIndex(); }
    void lockCbBoard(bool locked) override { m_page.cbBoard->setEnabled(!locked); }
    Long VgaCheck() const override { return m_page.VgaCheck->isChecked() ? 1 : 0; }
    void setShInit(Long colour) override { show(*m_page.shInit, colour); }
    void setShShut(Long colour) override { show(*m_page.shShut, colour); }
    void enableCmdInit(bool on) override { m_page.cmdInit->setEnabled(on); }
    void enableCmdShut(bool on) override { m_page.cmdShut->setEnabled(on); }
    void enableOptCam(Long index, bool on) override {
        m_cameraPage.optCam.at(static_cast<std::size_t>(index))->setEnabled(on);
    }

    void showShutDown(bool on) override { m_page.frShutDown->setVisible(on); }
    void enableCmdUnlock(bool on) override { m_page.cmdUnlock->setEnabled(on); }

private:
    // Also as a text, for operators who cannot distinguish the colours.
    static void show(IndicatorShape& shape, Long colour) {
        shape.setColour(colour);
        const QString meaning =
            colour == indicatorGreen ? tr("The button can be used") : tr("The button cannot be used now");
        shape.setToolTip(meaning);
        shape.setAccessibleName(meaning);
    }

    SetupBoardPage& m_page;
    SetupCameraPage& m_cameraPage;
};

SetupBoardPage::SetupBoardPage(const char* name, const SetupContext& context, SetupCameraPage& cameraPage,
                               QWidget* parent)
    : SetupPage(name, context.report, parent)
    , m_libProxy(context.host.tn_lib_proxy())
    , m_settings(context.settings)
    , m_board(context.board)
    , m_view(std::make_unique<View>(*this, cameraPage))
    , m_setup(context.board, context.settings, *m_view) {
    makeControls();
    endFrames();
    connect(cmdInit, &QPushButton::clicked, this, [this, &mainWindow = context.mainWindow] {
        const auto hold = mainWindow.holdInput(tr("Initializing the board…"));
        m_setup.cmdInit_Click();
        Q_EMIT boardChanged();
    });
    connect(cmdShut, &QPushButton::clicked, this, [this, &mainWindow = context.mainWindow] {
        const auto hold = mainWindow.holdInput(tr("Shutting the board down…"));
        m_setup.cmdShut_Click();
        Q_EMIT boardChanged();
    });
    connect(VgaCheck, &QCheckBox::clicked, this, [this] { m_setup.VgaCheck_Click(); });
    connect(cmdUnlock, &QPushButton::clicked, this, [this] {
        m_setup.cmdUnlock_Click();
        cbBoard->setFocus(); // the button is disabled now
    });
}

SetupBoardPage::~SetupBoardPage() = default;

QPushButton* SetupBoardPage::makeButton(const char* name, const QString& text, const QString& help) {
    auto* button = named(new QPushButton(text), name, help);
    button->setAutoDefault(false);
    return button;
}

void SetupBoardPage::makeControls() {
    frSetupBoard = addFrame("frSetupBoard", tr("Board Settings"));
    cbBoard = named(new QComboBox, "cbBoard", tr("Type of the frame-grabber board"));
    cbBoard->addItems({tr("Picture on the board's own screen"), tr("Live picture in this program")});
    VgaCheck =
        named(new QCheckBox(tr("&VGA mode")), "VgaCheck",
              tr("For a picture on the board's own screen. At once: no Z buttons, no autofocus, no choice of "
                 "the camera. From the next start: a click on the image asks before it moves the stage"));
    shInit = named(new IndicatorShape, "shInit", QString());
    cmdInit = makeButton("cmdInit", tr("&Initialize"), tr("Make the chosen board ready"));
    shShut = named(new IndicatorShape, "shShut", QString());
    cmdShut = makeButton("cmdShut", tr("S&hut down"), tr("End the live image and shut the board down"));

    auto* type = new QHBoxLayout;
    auto* caption = new QLabel(tr("Board t&ype"));
    caption->setBuddy(cbBoard);
    type->addWidget(caption);
    type->addWidget(cbBoard);
    type->addStretch(1);
    auto* buttons = new QGridLayout;
    buttons->addWidget(shInit, 0, 0);
    buttons->addWidget(cmdInit, 0, 1);
    buttons->addWidget(shShut, 1, 0);
    buttons->addWidget(cmdShut, 1, 1);
    buttons->setColumnStretch(2, 1);
    auto* column = new QVBoxLayout(frSetupBoard);
    column->addLayout(type);
    column->addWidget(VgaCheck);
    column->addLayout(buttons);
    makeShutDownLine(*column);
}

// Hidden until the board is shut down; its room is reserved, so that nothing moves when it appears.
void SetupBoardPage::makeShutDownLine(QVBoxLayout& column) {
    frShutDown = new QWidget;
    frShutDown->setObjectName(QStringLiteral("frShutDown"));
    QSizePolicy keepsItsPlace = frShutDown->sizePolicy();
    keepsItsPlace.setRetainSizeWhenHidden(true);
    frShutDown->setSizePolicy(keepsItsPlace);
    auto* text = new QLabel(tr("The board is shut down. To use it again, press Unlock, then Initialize."));
    text->setObjectName(QStringLiteral("lblShutDown"));
    text->setWordWrap(true);
    cmdUnlock =
        makeButton("cmdUnlock", tr("&Unlock"), tr("Choose a board and initialize it after a shutdown"));
    auto* row = new QHBoxLayout(frShutDown);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(text, 1);
    row->addWidget(cmdUnlock);
    column.addWidget(frShutDown);
}

void SetupBoardPage::load() {
    fillFromIni(*cbBoard, m_libProxy, boardsSection, storeName(SettingsStore::Host).c_str());
    cbBoard->setCurrentIndex(boardTypeOfIndex(m_board.BoardType()));
    VgaCheck->setChecked(m_settings.readVgaMode());
    m_setup.showState();
}

} // namespace ocuva
