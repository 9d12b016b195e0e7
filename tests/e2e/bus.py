"""The host's end of the message bus, without a process for each message: what is sent is on its way at once, and several
messages keep the distance in time that the caller gives them."""

import itertools
import os
import select
import socket
import struct
import time
from pathlib import Path

FRAME_START = b"OCUB\x01"
PROGRAM = "TN_OCUVA_SERVER"


def frame(identifier, component=PROGRAM):
    """A message as it goes over the wire."""
    texts = [component.encode(), b"", identifier.encode()]
    body = b"".join(struct.pack("<H", len(text)) + text for text in texts)
    return FRAME_START + struct.pack("<I", len(body)) + body


def identifiers(stream):
    """The identifiers of all whole messages in the bytes, and the bytes that are left."""
    found = []
    head = len(FRAME_START) + 4
    while len(stream) >= head:
        length = struct.unpack_from("<I", stream, len(FRAME_START))[0]
        if len(stream) < head + length:
            break
        body, stream = stream[head:head + length], stream[head + length:]
        for _ in range(3):
            size = struct.unpack_from("<H", body)[0]
            text, body = body[2:2 + size], body[2 + size:]
        found.append(text.decode())
    return found, stream


class Bus:
    """One sender and listener. The data folder is the program's, the other folder is for this end's own socket."""

    _numbers = itertools.count(1)

    def __init__(self, data, folder):
        self._peers = Path(data) / "peers"
        self._peers.mkdir(mode=0o700, exist_ok=True)
        name = f"{os.getpid()}-host{next(Bus._numbers)}"
        self._own = self._peers / f"{name}.peer"
        self._path = Path(folder) / f"ocuva-bus-{name}"
        self._listener = socket.socket(socket.AF_UNIX)
        self._listener.bind(str(self._path))
        self._listener.listen(16)
        self._own.write_text(f"bus peer 1\n{socket.gethostname()}\n{self._path}")
        self._incoming = {}
        self._outgoing = {}

    def close(self):
        for connection in [self._listener, *self._incoming, *self._outgoing.values()]:
            connection.close()
        self._own.unlink(missing_ok=True)
        self._path.unlink(missing_ok=True)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.close()

    def peers(self):
        """The sockets of the listeners in other processes."""
        found = []
        for file in self._peers.glob("*.peer"):
            try:
                if not file.name.startswith(f"{os.getpid()}-"):
                    found.append(file.read_text().split("\n")[2])
            except (OSError, IndexError):
                pass  # it ends just now
        return found

    def send(self, *messages, times=1):
        """Sends the messages, one behind the other, to every listener; gives how many listeners took them."""
        taken = 0
        data = b"".join(map(frame, messages)) * times
        for peer in self.peers():
            for _ in range(2):  # a connection of the program's last run shows only now that it has ended
                try:
                    if peer not in self._outgoing:
                        connection = socket.socket(socket.AF_UNIX)
                        connection.connect(peer)
                        self._outgoing[peer] = connection
                    self._outgoing[peer].sendall(data)
                    taken += 1
                    break
                except OSError:
                    self._outgoing.pop(peer, connection).close()
        return taken

    def heard(self, timeout_s):
        """The identifiers that have come in, after waiting for at least one."""
        deadline = time.monotonic() + timeout_s
        found = []
        while not found:
            ready, _, _ = select.select([self._listener, *self._incoming], [], [], max(0, deadline - time.monotonic()))
            if not ready:
                return found
            for connection in ready:
                found += self._read(connection)
        return found

    def _read(self, connection):
        if connection is self._listener:
            self._incoming[connection.accept()[0]] = b""
            return []
        data = connection.recv(65536)
        found, self._incoming[connection] = identifiers(self._incoming[connection] + data)
        if not data:
            del self._incoming[connection]
            connection.close()
        return found

    def ping(self, timeout_s):
        """Seconds until the program has answered, None if it has not."""
        while self.heard(0):
            pass  # late answers to earlier questions
        begun = time.monotonic()
        if not self.send("OCUVA_IS_SERVER_UP"):
            return None
        while (left := timeout_s - (time.monotonic() - begun)) > 0:
            if "OCUVA_SERVER_IS_UP" in self.heard(left):
                return time.monotonic() - begun
        return None
