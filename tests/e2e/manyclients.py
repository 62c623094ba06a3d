# SPDX-License-Identifier: GPL-3.0-or-later
"""A client that takes all connections it can get of the server on port 8080 and sends a byte now and then on each:
manyclients.py flood: tells how others fare; manyclients.py hold: does so until it is killed"""
import resource, socket, sys, time

resource.setrlimit(resource.RLIMIT_NOFILE, (2000, 2000))


def connect(address):
    return socket.create_connection(("127.0.0.1", 8080), 20, (address, 0))


def is_open(connection):
    try:
        connection.setblocking(False)
        return connection.recv(1) != b""
    except BlockingIOError:
        return True
    except OSError:
        return False


def take(address, number):
    taken = []
    for _ in range(number):
        connection = connect(address)
        try:
            connection.sendall(b"GET / HTTP/1.1\r\nX: ")
        except OSError:
            pass
        taken.append(connection)
    time.sleep(1)
    return [connection for connection in taken if is_open(connection)]


def trickle(taken, rounds):
    for _ in range(rounds):
        time.sleep(5)
        for connection in taken:
            connection.send(b"x")


def ask(address):
    with connect(address) as connection:
        start = time.monotonic()
        connection.sendall(b"GET /dists/birch/Release HTTP/1.0\r\n\r\n")
        code = connection.recv(12).decode()[9:]
        return code if time.monotonic() - start < 1 else "late"


if sys.argv[1] == "hold":
    trickle(take("127.0.0.3", 150), 1000)
taken = take("127.0.0.1", 1300)
print("open:", len(taken))
print("others:", ask("127.0.0.2"))
trickle(taken, 5)
taken = [connection for connection in taken if is_open(connection)]
print("after 25 seconds:", len(taken))
print("others:", ask("127.0.0.2"))
for connection in taken:
    connection.close()
time.sleep(1)
print("in the end:", ask("127.0.0.1"))
