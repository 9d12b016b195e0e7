#include "setup/SetupBoardPage.h"

#include "settings/SettingsTable.h"
#include "setup/IniEntries.h"

#include <QHBoxLayout>

namespace ocuva {

namespace {
// Where a host that has more to say about its boards names them, in the order of their types.
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

private:
    // In words too, for whoever cannot tell the colours.
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
    connect(cmdInit, &QPushButton::clicked, this, [this] {
        m_setup.cmdInit_Click();
        Q_EMIT boardChanged();
    });
    connect(cmdShut, &QPushButton::clicked, this, [this] {
        m_setup.cmdShut_Click();
        Q_EMIT boardChanged();
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
              tr("The picture is not shown in this program; taken over when the board is initialized"));
    shInit = named(new IndicatorShape, "shInit", QString());
    cmdInit = makeButton("cmdInit", tr("&Initialize"), tr("Make the chosen board ready"));
    shShut = named(new IndicatorShape, "shShut", QString());
    cmdShut = makeButton("cmdShut", tr("S&hut down"), tr("End the live image and put the board down"));

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
}

void SetupBoardPage::load() {
    fillFromIni(*cbBoard, m_libProxy, boardsSection, storeName(SettingsStore::Host).c_str());
    cbBoard->setCurrentIndex(boardTypeOfIndex(m_board.BoardType()));
    VgaCheck->setChecked(m_settings.readVgaMode());
    m_setup.showState();
}

} // namespace ocuva
