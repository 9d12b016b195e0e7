#include "app/Standards.h"

#include "controls/FileFilter.h"
#include "standards/StandardText.h"

#include <QFileDialog>

namespace ocuva {

namespace {

constexpr const char* stageButton = "Stage";
constexpr const char* extension = ".std";

QString nameForView(const std::string& name) { return QString::fromLocal8Bit(name); }
std::string nameForHost(const QString& name) { return name.toLocal8Bit().toStdString(); }

} // namespace

Standards::Standards(const StandardsContext& context)
    : m_context(context)
    , m_list(context.reg, context.libProxy, context.unfinishedList)
    , m_frmMove(std::make_unique<frmMove>(
          context.fOcuva, [this] { AddStandard(true); }, context.report, &context.window)) {
    QObject::connect(&context.tbMain, &MainToolbar::buttonMenuClicked, &context.window,
                     [this](const QString& buttonKey, const QString& itemKey) {
                         if (buttonKey == QLatin1StringView(stageButton)) {
                             goTo(nameForHost(itemKey));
                         }
                     });
}

Standards::~Standards() = default;

void Standards::openMoveDialog() {
    m_frmMove->show();
    m_frmMove->raise();
    m_frmMove->activateWindow();
}

bool Standards::AddStandard(bool moveNow) {
    const QString file = m_context.chooseFile(nameForView(m_list.directory()));
    if (file.isEmpty()) {
        return false;
    }
    const std::string name = nameForHost(file);
    if (!StandardList::fits(name)) {
        m_context.report(QObject::tr("\"%1\" was not added: its path takes %2 characters, and the list holds "
                                     "%3. Move the standard to a folder with a shorter path.")
                             .arg(file)
                             .arg(name.size())
                             .arg(StandardList::nameLength));
        return false;
    }
    m_list.AppendStandard(name, false);
    FillStageMenu();
    if (moveNow) {
        goTo(name);
    }
    return true;
}

void Standards::FillStageMenu() {
    const std::string directory = m_list.directory();
    ButtonMenus* menus = m_context.tbMain.buttonMenus(QString::fromLatin1(stageButton));
    menus->clear();
    std::string name;
    Integer index = 0;
    while (m_list.GetNextStandard(name, index)) {
        menus->add(nameForView(name), nameForView(standardText(name, directory)));
    }
}

void Standards::goTo(const std::string& name) {
    const std::shared_ptr<void> hold = m_context.fOcuva.holdInput();
    try {
        GotoStandard(m_context.libProxy, name, *m_frmMove, m_context.fOcuva);
    } catch (const std::exception& error) {
        m_context.report(QString::fromStdString(error.what()));
    }
}

void Standards::unload() { m_frmMove->close(); }

QString chooseStandardFile(QWidget& owner, const QString& folder) {
    QFileDialog dialog(&owner, QObject::tr("Add Standard Position"), folder);
    offerKinds(dialog, QObject::tr("Standard (*.std):*.std"));
    dialog.setAcceptMode(QFileDialog::AcceptOpen);
    dialog.setFileMode(QFileDialog::ExistingFile);
    dialog.selectFile(QStringLiteral("*") + QString::fromLatin1(extension));
    return chosenFile(dialog);
}

} // namespace ocuva
