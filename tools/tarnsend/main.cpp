// tarnsend: sends and shows the messages between the host and its programs.

#include "hosts/common/services/DataFolder.h"
#include "tools/tarnsend/Conversation.h"

#include <QCoreApplication>

#include <csignal>
#include <cstdio>

namespace {

using namespace tarnsend;

// The only thing that a signal may touch.
volatile std::sig_atomic_t interruptCame = 0; // NOLINT
void noteInterrupt(int /*signal*/) { interruptCame = 1; }

void print(const std::string& line) {
    std::printf("%s\n", line.c_str());
    std::fflush(stdout);
}

void complain(const std::string& line) { std::fprintf(stderr, "tarnsend: %s\n", line.c_str()); }

std::vector<std::string> wordsOf(const QCoreApplication& application) {
    std::vector<std::string> words;
    for (const QString& word : application.arguments()) {
        words.push_back(word.toStdString());
    }
    return words;
}

/// Nothing, after a complaint, when there is no such folder. Only who listens makes one: a mistyped path
/// shall not leave a data folder behind.
std::optional<std::filesystem::path> folderFor(const Request& request, ExitCode& reason) {
    const std::filesystem::path folder =
        request.dataFolder.empty()
            ? hosts::DataFolder::locate()
            : std::filesystem::path(QString::fromStdString(request.dataFolder).toStdU16String());
    std::error_code error;
    if (!request.listen) {
        reason = exitNobody;
        if (std::filesystem::is_directory(folder, error)) {
            return folder;
        }
        complain("there is no data folder \"" + folder.string() + "\", so nobody listens");
        return std::nullopt;
    }
    reason = exitTrouble;
    const auto opened = hosts::DataFolder::open(folder);
    if (const std::string* const problem = std::get_if<std::string>(&opened)) {
        complain(*problem);
        return std::nullopt;
    }
    return std::get<hosts::DataFolder>(opened).path();
}

int fulfil(const Request& request) {
    ExitCode reason = exitDone;
    const std::optional<std::filesystem::path> folder = folderFor(request, reason);
    if (!folder) {
        return reason;
    }
    const auto peers = std::make_shared<const hosts::PeerFolder>(*folder, complain);
    std::signal(SIGINT, noteInterrupt);
    std::signal(SIGTERM, noteInterrupt);
    Conversation conversation(request, peers,
                              {print, complain, [] { return interruptCame != 0; },
                               [](ExitCode code) { QCoreApplication::exit(code); }});
    conversation.begin();
    return QCoreApplication::exec();
}

} // namespace

int main(int argc, char** argv) {
    // Qt's warning about an unsuitable locale is of no use to scripts.
    const QtMessageHandler usualMessages =
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    const QCoreApplication application(argc, argv);
    qInstallMessageHandler(usualMessages);

    const std::variant<Request, Notice> understood = understand(wordsOf(application));
    if (const Notice* const notice = std::get_if<Notice>(&understood)) {
        std::fputs(notice->text.c_str(), notice->exitCode == exitDone ? stdout : stderr);
        return notice->exitCode;
    }
    return fulfil(std::get<Request>(understood));
}
