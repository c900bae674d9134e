"""What the tests of the real programs share: waiting with a deadline, clients, and a look into /proc."""

import os
import socket
import time

DEADLINE = 20.0
IAC = b"\xff"
OFFERS = IAC + b"\xfb\x01" + IAC + b"\xfb\x03"


def wait_until(condition, what, deadline=DEADLINE):
    """The first true result of `condition`."""
    end = time.monotonic() + deadline
    while time.monotonic() < end:
        result = condition()
        if result:
            return result
        time.sleep(0.01)
    raise AssertionError(f"not within {deadline} s: {what}")


def accepts(port):
    """Whether connections to the port are accepted."""
    with socket.socket() as client:
        return client.connect_ex(("127.0.0.1", port)) == 0


def free_port():
    """One that nobody has now."""
    with socket.create_server(("127.0.0.1", 0)) as server:
        return server.getsockname()[1]


class Client(socket.socket):
    """A connection to a port of the device."""

    def __init__(self, port, address="127.0.0.1", source=None):
        super().__init__(socket.AF_INET, socket.SOCK_STREAM)
        self.settimeout(DEADLINE)
        if source:
            self.bind((source, 0))
        self.connect((address, port))

    def read_until(self, end):
        """Everything up to and with `end`."""
        got = b""
        while not got.endswith(end):
            byte = self.recv(1)
            assert byte, f"closed after {got!r}, waiting for {end!r}"
            got += byte
        return got

    def read_all(self):
        """Everything until the other side closes."""
        got = b""
        while piece := self.recv(65536):
            got += piece
        return got

    def ask(self, text, end):
        self.sendall(text)
        return self.read_until(end)


def children_of(pid):
    """The processes, zombies included, whose parent is `pid`."""
    return [int(name) for name in os.listdir("/proc") if name.isdigit() and parent_of(name) == pid]


def parent_of(pid):
    fields = proc_text(pid, "stat").rpartition(")")[2].split()
    return int(fields[1]) if fields else None


def proc_text(pid, name):
    """A file about the process; nothing for one that has ended."""
    try:
        with open(f"/proc/{pid}/{name}", encoding="utf-8", errors="replace") as file:
            return file.read()
    except OSError:
        return ""


def descriptors_of(pid):
    return len(os.listdir(f"/proc/{pid}/fd"))


def memory_of(pid):
    """The memory, in kB, that nobody shares with the process; 0 where a sanitizer keeps what the process gives back."""
    if "libasan" in proc_text(pid, "maps") or "libtsan" in proc_text(pid, "maps"):
        return 0
    lines = proc_text(pid, "smaps_rollup").splitlines()
    return sum(int(line.split()[1]) for line in lines if line.startswith("Private_"))
