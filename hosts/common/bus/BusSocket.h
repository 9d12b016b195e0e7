#pragma once
// Platform-specific functions for the bus's local sockets.

#include <string>

class QLocalServer;
class QLocalSocket;

namespace hosts {

/// Name of this computer as peer files have it.
std::string machineName();

/// A name that no other notifier has or had.
std::string newPeerName();

/// Whether newPeerName gave that name in this process.
bool isOfThisProcess(const std::string& peerName);

/// Lets the server listen under a name derived from the peer name, for this user only. The socket is in
/// the user's runtime folder, the temporary folder or /tmp, the first of them whose path leaves room for
/// its name; the data folder would often be too deep. False if none can be used.
bool listenForUser(QLocalServer& server, const std::string& peerName);

/// Whether there are unread data, including data that the socket itself has not fetched yet.
bool hasUnread(const QLocalSocket& socket);

/// Whether this process has room for another connection.
bool canOpenAnother();

/// Removes the remains of a dead process's socket; leaves alone anything that is not a socket of the bus.
void removeBusSocket(const std::string& socketName);

} // namespace hosts
