#pragma once
// What is particular to the platform about the bus's local sockets.

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

/// Lets the server listen under a name made from the peer name, for this user alone. The socket lies in the
/// first of the user's runtime folder, the folder for temporary files and /tmp whose path leaves room for its
/// name; the data folder would often be too deep. False when none serves.
bool listenForUser(QLocalServer& server, const std::string& peerName);

/// Whether something has come that nobody has read yet, also what the socket itself has still to fetch.
bool hasUnread(const QLocalSocket& socket);

/// Whether this process has room for another connection.
bool canOpenAnother();

/// Removes what the socket of a dead process has left behind; leaves alone whatever is no socket of the bus.
void removeBusSocket(const std::string& socketName);

} // namespace hosts
