#include "hosts/common/bus/BusSocket.h"

#include <QCoreApplication>
#include <QDir>
#include <QLocalServer>
#include <QLocalSocket>
#include <QRandomGenerator>
#include <QStringList>
#include <QSysInfo>

#include <filesystem>
#include <system_error>

#ifndef Q_OS_WIN
#include <sys/socket.h>
#include <unistd.h>
#endif

namespace hosts {

namespace {

const QString socketPrefix = QStringLiteral("ocuva-bus-");

#ifdef Q_OS_WIN

// Pipe names have no folder.
QStringList socketPlaces() { return {QString()}; }

bool waitsInTheSystem(const QLocalSocket& /*socket*/) { return false; }

bool hasFreeDescriptor() { return true; }

#else

bool waitsInTheSystem(const QLocalSocket& socket) {
    char first = 0;
    return ::recv(static_cast<int>(socket.socketDescriptor()), &first, 1, MSG_PEEK | MSG_DONTWAIT) > 0;
}

bool hasFreeDescriptor() {
    const int descriptor = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (descriptor >= 0) {
        ::close(descriptor);
    }
    return descriptor >= 0;
}

QStringList socketPlaces() {
    QStringList places;
    for (const QString& folder :
         {qEnvironmentVariable("XDG_RUNTIME_DIR"), QDir::tempPath(), QStringLiteral("/tmp")}) {
        if (QDir::isAbsolutePath(folder) && QDir(folder).exists()) {
            places += folder + QLatin1Char('/');
        }
    }
    return places;
}

#endif

std::string processPrefix() { return std::to_string(QCoreApplication::applicationPid()) + '-'; }

} // namespace

std::string machineName() { return QSysInfo::machineHostName().toStdString(); }

std::string newPeerName() {
    const QString random = QString::number(QRandomGenerator::system()->generate64(), 36);
    return processPrefix() + random.toStdString();
}

bool isOfThisProcess(const std::string& peerName) { return peerName.starts_with(processPrefix()); }

bool listenForUser(QLocalServer& server, const std::string& peerName) {
    server.setSocketOptions(QLocalServer::UserAccessOption);
    for (const QString& place : socketPlaces()) {
        if (server.listen(place + socketPrefix + QString::fromStdString(peerName))) {
            return true;
        }
    }
    return false;
}

bool hasUnread(const QLocalSocket& socket) { return socket.bytesAvailable() > 0 || waitsInTheSystem(socket); }

bool canOpenAnother() { return hasFreeDescriptor(); }

void removeBusSocket(const std::string& socketName) {
    const std::filesystem::path file(QString::fromStdString(socketName).toStdU16String());
    std::error_code error;
    if (QString::fromStdU16String(file.filename().u16string()).startsWith(socketPrefix) &&
        std::filesystem::is_socket(std::filesystem::symlink_status(file, error))) {
        std::filesystem::remove(file, error);
    }
}

} // namespace hosts
