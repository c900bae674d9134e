"""What the tests of the real programs share: programs that are started and ended, consoles, and a look into /proc.

Whatever is waited for is waited for with a deadline, and while consoles are typed on all of them are read.
"""

import contextlib
import itertools
import os
import re
import select
import signal
import socket
import subprocess
import tempfile
import time

PATIENCE = 20.0
IAC = b"\xff"
OFFERS = IAC + b"\xfb\x01" + IAC + b"\xfb\x03"
TELNET_PIECE = re.compile(rb"([^\xff]+)|\xff(?:(\xff)|[\xfb-\xfe].)", re.S)
PROGRAM_NAMES = ["*cmdd", "*cmdd9000port", "*cmdd9001port", "*cmdd9002port"]


def pump(consoles, condition, what, patience=PATIENCE):
    """Takes in what the consoles get until the condition holds; its first true result."""
    deadline = time.monotonic() + patience
    while not (result := condition()):
        assert time.monotonic() < deadline, f"not within {patience:g} s: {what}"
        for console in select.select([each for each in consoles if not each.closed], [], [], 0.01)[0]:
            console.receive()
    return result


def wait_until(condition, what, patience=PATIENCE):
    return pump((), condition, what, patience)


def run(*command, **options):
    """Runs a program to its end; its status, and what it said."""
    return subprocess.run(command, capture_output=True, text=True, errors="backslashreplace", timeout=30, check=False,
                          **options)


@contextlib.contextmanager
def frozen(pid):
    os.kill(pid, signal.SIGSTOP)
    try:
        yield
    finally:
        os.kill(pid, signal.SIGCONT)


class Console:
    """One end of a session: what came on it and was not yet asked for."""

    def __init__(self, descriptor, is_telnet=False):
        """`is_telnet`: option bytes are taken out of what comes."""
        self.descriptor, self.is_telnet, self.patience = descriptor, is_telnet, PATIENCE
        self.raw, self.seen, self.closed = b"", bytearray(), False
        os.set_blocking(descriptor.fileno(), False)

    @classmethod
    def connect(cls, port, address="127.0.0.1", source="", is_telnet=False):
        return cls(socket.create_connection((address, port), PATIENCE, (source, 0)), is_telnet)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.close()

    def fileno(self):
        return self.descriptor.fileno()

    def close(self):
        self.descriptor.close()

    def end_input(self):
        self.descriptor.shutdown(socket.SHUT_WR)

    def receive(self):
        """Takes in what is there; a connection that was reset is one that was closed."""
        try:
            data = os.read(self.fileno(), 1 << 20)
        except BlockingIOError:
            return
        except OSError:
            data = b""
        self.closed = not data
        self.raw += data
        if not self.is_telnet:
            self.seen += self.raw
            self.raw = b""
        while piece := TELNET_PIECE.match(self.raw):
            self.seen += piece[1] or piece[2] or b""
            self.raw = self.raw[piece.end():]

    def sendall(self, data):
        takes_input = lambda: select.select([], [self], [], 0)[1]
        while data:
            pump([self], takes_input, "the console takes input", self.patience)
            data = data[os.write(self.fileno(), data):]

    def read_until(self, end):
        """Everything up to and with `end`."""
        pump([self], lambda: end in self.seen or self.closed, repr(end), self.patience)
        got, found, rest = self.seen.partition(end)
        assert found, f"closed after {bytes(got)!r}, waiting for {end!r}"
        self.seen = rest
        return bytes(got + found)

    def read_all(self):
        """Everything until the other side closes."""
        pump([self], lambda: self.closed, "the end of the session", self.patience)
        return bytes(self.seen)

    def ask(self, text, end):
        self.sendall(text)
        return self.read_until(end)


class Server:
    """A program with a folder and four ports of its own, which runs until it is ended."""

    def __init__(self):
        self.scope = contextlib.ExitStack()
        self.folder = self.scope.enter_context(tempfile.TemporaryDirectory())
        self.ports = [self.reserve_port() for _ in range(4)]
        self.listening = ["--port", str(self.ports[0]), "--ports", ",".join(map(str, self.ports[1:]))]

    def __enter__(self):
        return self

    def __exit__(self, *_):
        with self.scope:
            assert self.stop() in (0, -signal.SIGKILL)

    def reserve_port(self):
        """A port that the system gives to nobody else, and that a listener of this program still may take."""
        holder = self.scope.enter_context(socket.socket())
        holder.setsockopt(socket.SOL_SOCKET, socket.SO_REUSEADDR, 1)
        holder.bind(("127.0.0.1", 0))
        return holder.getsockname()[1]

    def run(self, command, **options):
        """Starts a program that is ended with this one."""
        process = self.scope.enter_context(subprocess.Popen(command, **options))
        self.scope.callback(process.terminate)
        return process

    def stop(self, number=signal.SIGTERM):
        self.process.send_signal(number)
        return self.process.wait(PATIENCE)


class Device(Server):
    """A whole device."""

    address = "127.0.0.1"

    def __init__(self, *arguments, prefix=()):
        """`prefix`: a command that runs the device; "{}" in it is the folder above its root."""
        super().__init__()
        self.prefix = [word.format(self.folder) for word in prefix]
        self.root = self.folder + "/root"
        self.errors = self.scope.enter_context(open(self.folder + "/errors", "w", encoding="utf-8"))
        self.fences = itertools.count(17)
        self.start(*arguments)

    def start(self, *arguments):
        command = [*self.prefix, os.environ["DEVICE"], "--root", self.root, *self.listening, "--panel", "0", *arguments]
        self.process = self.run(command, stdout=subprocess.PIPE, stderr=self.errors, text=True)
        self.wait_until_ready()

    def wait_until_ready(self):
        line = self.process.stdout.readline()
        ready = re.fullmatch(r"ready: telnet 127\.0\.0\.1 (\d+) raw (\d+) (\d+) (\d+)\n", line)
        assert ready and [int(port) for port in ready.groups()[1:]] == self.ports[1:], (line, self.said())
        self.port = int(ready[1])

    def said(self):
        with open(self.errors.name, encoding="utf-8") as errors:
            return errors.read()

    def log(self):
        with open(self.root + "/log/device.log", "rb") as log:
            return log.read()

    def wait_for_news(self, text):
        wait_until(lambda: text in self.said(), text)

    def console(self, index=0):
        """On the port of that index, of which the first is the telnet port."""
        return Console.connect(self.ports[index] if index else self.port, is_telnet=index == 0)

    def control_command(self, *words):
        return [os.environ["DEVICECTL"], "--root", self.root, *words]

    def ctl(self, *words):
        return run(*self.control_command(*words))

    def child(self, name):
        """The process of a daemon of the device; 0 while there is none."""
        return next((pid for pid in children_of(self.process.pid) if name in proc_text(pid, "cmdline")), 0)

    def sessions(self):
        return children_of(self.child("telnet_launcher"))

    def fence(self, consoles, has_passed=lambda fence: True, patience=PATIENCE):
        """An event behind all others: what the consoles have not shown when they show it will never come."""
        fence = f"fence-{next(self.fences)}"
        self.ctl("publish", "CommandFeedback", fence)
        end = f"{fence}\r\n".encode()
        pump(consoles, lambda: all(end in each.seen or each.closed for each in consoles) and has_passed(fence),
             f"all consoles show {fence}", patience)

    def await_listeners(self, consoles, has_passed=lambda fence: True):
        """Until all of them show events, to which a console subscribes some time after its start."""
        for _ in range(99):
            with contextlib.suppress(AssertionError):
                return self.fence(consoles, has_passed, PATIENCE / 100)
        self.fence(consoles, has_passed)

    def answers(self):
        """Whether a new console gets an answer and shows events."""
        with self.console() as console:
            console.ask(b"HDMIAUD sta\r", b"HDMIAUD on\r\n")
            self.await_listeners([console])
        return True


class Launcher(Server):
    """The launcher alone, with the console of the tests and without a bus."""

    def __init__(self, *arguments, prefix=()):
        super().__init__()
        os.makedirs(self.folder + "/usr/bin")
        os.makedirs(self.folder + "/sbin")
        for name in PROGRAM_NAMES:
            os.symlink(os.environ["TEST_CONSOLE"], f"{self.folder}/usr/bin/{name}")
        for name in ("reboot", "killall"):
            os.symlink("/bin/true", f"{self.folder}/sbin/{name}")
        ready, told = os.pipe()
        environment = {"PATH": os.environ["PATH"], "DEVICE_ROOT": self.folder, "READY_FD": str(told), "SECRET": "x"}
        command = [*prefix, os.environ["LAUNCHER"], *self.listening, *arguments]
        self.process = self.run(command, env=environment, pass_fds=[told])
        os.close(told)
        with os.fdopen(ready) as line:
            address, *ports = line.readline().split()
        assert ports == [str(port) for port in self.ports], (address, ports)

    def client(self, index=1, **options):
        """On the port of that index; what comes stays as it was sent."""
        return Console.connect(self.ports[index], **options)

    def sessions(self):
        return children_of(self.process.pid)

    def wait_for_sessions(self, count):
        wait_until(lambda: len(self.sessions()) == count, f"{count} sessions")


def accepts(port):
    """Whether connections to the port are accepted."""
    with socket.socket() as client:
        return client.connect_ex(("127.0.0.1", port)) == 0


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


def processes_of(root):
    """Every process that was started for the device of that root."""
    processes = filter(str.isdigit, os.listdir("/proc"))
    return [pid for pid in processes if f"DEVICE_ROOT={root}" in proc_text(pid, "environ").split("\0")]


def descriptors_of(pid):
    return len(os.listdir(f"/proc/{pid}/fd"))


def memory_of(pid):
    """The memory, in kB, that nobody shares with the process; 0 where a sanitizer keeps what the process gives back."""
    if "libasan" in proc_text(pid, "maps") or "libtsan" in proc_text(pid, "maps"):
        return 0
    lines = proc_text(pid, "smaps_rollup").splitlines()
    return sum(int(line.split()[1]) for line in lines if line.startswith("Private_"))
