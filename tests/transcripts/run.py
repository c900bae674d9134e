#!/usr/bin/env python3
"""Plays *.session files, each against a device of its own, and compares every byte that comes back.

    == title              a scene; its consoles end with it, and the lines before the first scene open each of them
    open A B              consoles over telnet; "open C 9001" on another port
    fake A: fail x; ..  a console on the device in memory, steered by these words (tests/fake_platform/script.cpp)
    A> text => reply      typed on A and ended by CR, and what A answers; no reply is silence
    A> text =>> reply     ... and what every open console shows
    A= text               answered with the line itself
    A! text               refused: "Command FAILED: (text)"; of these four, " | " parts several on one line
    A>> "bytes\\r\\n"       sent as it stands, its echo to be written out
    $ config get {...}    devicectl with these words, the last one taking the rest of the line; %{port 9000} in it is
                          where that port is to be found

What has to follow, nothing more and nothing less, before the next of the above:

    A: text               a line on A; "AB:" on both; "A:: "bytes"" as they stand
    A closed              the session ends
    | text                a line that devicectl prints, "exit 1" where it fails; it is asked until it does so
    * event NAME TEXT     what the bus carried, as "devicectl watch" prints it; not looked at where no "*" stands,
    * nothing             and this for nothing at all
    log: text             a line with this text in a file of the run's log

A text in double quotes is read with C escapes, and %{text*3} stands for texttexttext. Nothing here sleeps: behind each
step an unknown word is typed and an event published, and what came before both have answered is what the step did.
"""

import argparse
import ast
import contextlib
import difflib
import itertools
import os
import pathlib
import pty
import re
import select
import socket
import subprocess
import sys
import tempfile
import termios
import time

PATIENCE = 10
FENCE = re.compile(rb"\?\d+\r\r\nCommand FAILED: \(\?\d+\)\r\n|fence-\d+\r\n")
TELNET_PIECE = re.compile(rb"([^\xff]+)|\xff(?:(\xff)|[\xfb-\xfe].)", re.S)


class Failure(Exception):
    """What differs from the session, ready to be shown."""


def repeated(line):
    return re.sub(r"%\{(.*?)\*(\d+)\}", lambda m: m[1] * int(m[2]), line)


def text(operand):
    is_quoted = len(operand) > 1 and operand[0] == operand[-1] == '"'
    return ast.literal_eval("b" + operand) if is_quoted else operand.encode()


def shown(data):
    """Bytes as lines that can be read and compared, control bytes as escapes."""
    lines = data.decode("latin-1").replace("\\", "\\\\").split("\r\n")
    plain = [re.sub(r"[^\x20-\x7e]", lambda m: f"\\x{ord(m[0]):02x}", line) for line in lines]
    return [line if len(line) < 300 else f"{line[:140]} ...{len(line)}... {line[-140:]}" for line in plain]


def compare(what, expected, got):
    if expected != got:
        difference = list(difflib.unified_diff(expected, got, "expected", "got", lineterm="", n=1))
        raise Failure("\n".join([what, *difference[2:]]))


class Console:
    """One end of a session: what came and was not yet asked for."""

    def __init__(self, descriptor, is_telnet=False, hears_events=False):
        self.descriptor, self.is_telnet, self.hears_events = descriptor, is_telnet, hears_events
        self.raw, self.seen, self.closed = b"", b"", False
        os.set_blocking(descriptor.fileno(), False)

    def fileno(self):
        return self.descriptor.fileno()

    def receive(self):
        try:
            data = os.read(self.fileno(), 65536)
        except OSError:
            data = b""
        self.closed = not data
        self.raw += data
        if not self.is_telnet:
            self.seen, self.raw = self.seen + self.raw, b""
        while piece := TELNET_PIECE.match(self.raw):
            self.seen += piece[1] or piece[2] or b""
            self.raw = self.raw[piece.end():]

    def send(self, data, pump):
        while data:
            pump(lambda: select.select([], [self], [], 0)[1], "the console takes input")
            data = data[os.write(self.fileno(), data):]


class Device:
    """A device in a root of its own, started when it is first asked for, and all that the runner holds of it."""

    def __init__(self, programs):
        self.programs, self.scope, self.fences = programs, contextlib.ExitStack(), itertools.count(17)
        self.root, self.consoles, self.forgotten = None, {}, 0

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.close_all()
        self.scope.close()

    def start(self):
        if self.root is not None:
            return
        folder = pathlib.Path(self.scope.enter_context(tempfile.TemporaryDirectory()))
        self.root, self.events = folder / "root", folder / "events"
        with contextlib.ExitStack() as scope:
            free = [scope.enter_context(socket.create_server(("127.0.0.1", 0))).getsockname()[1] for _ in range(4)]
        self.ports = dict(zip(["23", "9000", "9001", "9002"], free))
        telnet, *raw = map(str, free)
        device = self.run(self.programs.device, "--port", telnet, "--ports", ",".join(raw), stdout=subprocess.PIPE)
        compare("the device's first line", [f"ready: telnet 127.0.0.1 {telnet}\n"], [device.stdout.readline().decode()])
        with open(self.events, "wb") as events:
            self.run(self.programs.devicectl, "watch", stdout=events)
        self.await_listeners()

    def run(self, program, *words, stdout):
        """Starts a program that runs until the end."""
        process = self.scope.enter_context(subprocess.Popen([program, "--root", self.root, *words], stdout=stdout))
        self.scope.callback(process.terminate)
        return process

    def watched(self):
        """What the bus has carried and was not forgotten."""
        return self.events.read_text("latin-1").split("\n")[self.forgotten:-1]

    def pump(self, condition, what, patience=PATIENCE):
        """Takes in what arrives until the condition holds."""
        deadline = time.monotonic() + patience
        while not condition():
            live = [console for console in self.consoles.values() if not console.closed]
            if time.monotonic() > deadline:
                raise Failure(f"waited {patience} s in vain until {what}")
            for console in select.select(live, [], [], 0.01)[0]:
                console.receive()

    def control(self, words):
        """Runs devicectl; its lines."""
        self.start()
        words = re.sub(r"%\{port (\d+)\}", lambda m: str(self.ports[m[1]]), words)
        most = {"config": 2, "status": 2, "factory": 3, "publish": 2, "call": 3}.get(words.split(" ")[0], 1)
        arguments = [text(word) for word in words.split(" ", most)]
        done = subprocess.run([self.programs.devicectl, "--root", self.root, *arguments], timeout=PATIENCE,
                              stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, check=False)
        lines = done.stdout.decode(errors="backslashreplace").splitlines()
        return lines + ([f"exit {done.returncode}"] if done.returncode else [])

    def open(self, name, port="23"):
        self.start()
        connection = socket.create_connection(("127.0.0.1", self.ports[port]), PATIENCE)
        self.consoles[name] = Console(connection, port == "23", True)
        self.await_listeners()

    def open_fake(self, name, script):
        child, terminal = pty.fork()
        if child == 0:
            os.environ["CMDD_DOUBLE"] = script.replace("; ", "\n")
            os.execv(self.programs.fake, ["/usr/bin/*cmdd"])
        self.scope.callback(os.waitpid, child, 0)
        self.consoles[name] = console = Console(os.fdopen(terminal, "rb", 0))
        self.pump(lambda: not termios.tcgetattr(console.fileno())[3] & termios.ECHO, f"console {name} is raw")

    def close_all(self):
        for name in [*self.consoles]:
            self.consoles.pop(name).descriptor.close()

    def await_listeners(self):
        """Waits until whoever was just started hears events."""
        for _ in range(49):
            with contextlib.suppress(Failure):
                return self.await_event_fence(PATIENCE / 50)
        self.await_event_fence()

    def await_event_fence(self, patience=PATIENCE):
        """An event behind all others: what its consoles and the watcher have not shown by now will never come."""
        if self.root is None:
            return
        fence = f"fence-{next(self.fences)}"
        listening = [each for each in self.consoles.values() if each.hears_events]
        self.control(f"publish CommandFeedback {fence}")
        self.pump(lambda: f"event CommandFeedback {fence}" in self.watched()
                  and all(f"{fence}\r\n".encode() in each.seen or each.closed for each in listening),
                  f"all consoles and the watcher show {fence}", patience)

    def await_line_fence(self, console):
        """A line behind all others, which the main thread answers last."""
        word = f"?{next(self.fences)}".encode()
        console.send(word + b"\r", self.pump)
        self.pump(lambda: b"FAILED: (" + word + b")\r\n" in console.seen or console.closed, "another line is answered")

    def has_log(self, wanted):
        return wanted.encode() in (self.root / "log/device.log").read_bytes()


class Step:
    """One action and what has to follow it."""

    def __init__(self, number, verb, operand):
        self.number, self.verb, self.operand = number, verb, operand
        self.expected, self.closed, self.output, self.watched, self.logged = {}, set(), [], [], []

    def expect(self, kind, operand):
        if kind.endswith(" closed"):
            self.closed |= set(kind.split()[0])
        elif kind in ("|", "*", "log:"):
            {"|": self.output, "*": self.watched, "log:": self.logged}[kind].append(operand)
        else:
            data = text(operand) + (b"" if kind.endswith("::") else b"\r\n")
            for name in kind.rstrip(":"):
                self.expected[name] = self.expected.get(name, b"") + data

    def play(self, device):
        output, expected = [], self.expected
        if self.verb == "open":
            for name in re.findall("[A-Z]", self.operand):
                device.open(name, *re.findall(r"\d+", self.operand))
        elif self.verb == "fake":
            device.open_fake(*self.operand.split(": ", 1))
        elif self.verb == "$":
            output = self.ask(device)
        else:
            expected = self.type(device, device.consoles[self.verb[0]])
        self.check(device, expected)
        compare("devicectl printed", self.output, output)

    def ask(self, device):
        """Asks devicectl again until it prints what it is to print."""
        deadline = time.monotonic() + PATIENCE
        output = device.control(self.operand)
        while output != self.output and time.monotonic() < deadline:
            output = device.control(self.operand)
        return output

    def type(self, device, console):
        """Types the operand; what is expected on each console, echo and short reply included."""
        if self.verb.endswith(">>"):
            console.send(text(self.operand), device.pump)
            return self.expected
        line, sign, reply = re.fullmatch(r"(.*?)(?: +(=>>?) (.*))?", self.operand).groups()
        if self.verb[1] != ">":
            sign, reply = "=>", line if self.verb[1] == "=" else f"Command FAILED: ({line})"
        console.send(text(line) + b"\r", device.pump)
        expected = {}
        for name, each in device.consoles.items():
            expected[name] = text(line) + b"\r\r\n" if each is console else b""
            expected[name] += text(reply) + b"\r\n" if sign == "=>>" or (sign and each is console) else b""
            expected[name] += self.expected.get(name, b"")
        return expected

    def has_typed_line(self):
        return self.verb[1:] in (">", "=", "!") or self.verb[1:] == ">>" and text(self.operand)[-1:] in b"\r\n\0"

    def check(self, device, expected):
        """What was promised comes first; then the fences show that nothing else is on its way."""
        with contextlib.suppress(Failure):
            device.pump(lambda: all(each.closed or len(each.seen) >= len(expected.get(name, b""))
                                    for name, each in device.consoles.items()), "all has come")
        for name in self.closed:
            device.pump(lambda: device.consoles[name].closed, f"session {name} ends")
        if self.has_typed_line() and not device.consoles[self.verb[0]].closed:
            device.await_line_fence(device.consoles[self.verb[0]])
        if self.closed != set(device.consoles):
            device.await_event_fence()
        for name, console in device.consoles.items():
            compare(f"on console {name}", shown(expected.get(name, b"")), shown(FENCE.sub(b"", console.seen)))
            compare(f"session {name} ended", [str(name in self.closed)], [str(console.closed)])
            console.seen = b""
        for name in self.closed:
            device.consoles.pop(name).descriptor.close()
        watched = device.watched() if device.root else []
        device.forgotten += len(watched)
        if self.watched:
            carried = [line for line in watched if not line.startswith("event CommandFeedback fence-")]
            compare("on the bus", [line for line in self.watched if line != "nothing"], carried)
        for wanted in self.logged:
            device.pump(lambda: device.has_log(wanted), f"the log holds {wanted!r}")


ACTION = re.compile(r"(open|fake|\$|[A-Z]>>|[A-Z][>=!]) (.*)")
EXPECTATION = re.compile(r"([A-Z]+::?|[A-Z]+ closed|\||\*|log:)(?: (.*))?$")


def read_session(path):
    """The steps that open each scene of a file, and its scenes as titles and steps."""
    opening, scenes = [], []
    for number, line in enumerate(map(repeated, path.read_text().splitlines()), 1):
        steps = scenes[-1][1] if scenes else opening
        if not line.strip() or line.startswith("#"):
            continue
        if line.startswith("== "):
            scenes.append((line[3:], []))
        elif match := ACTION.fullmatch(line):
            verb, operand = match.groups()
            parts = operand.split(" | ") if verb[1:] in (">", "=", "!") else [operand]
            steps += [Step(number, verb, part) for part in parts]
        elif match := EXPECTATION.fullmatch(line):
            steps[-1].expect(match[1], match[2] or "")
        else:
            sys.exit(f"{path}:{number}: not a line of a session: {line}")
    return opening, scenes


def play_scene(device, path, title, steps):
    """True when all went as written; shows the difference otherwise."""
    try:
        for step in steps:
            step.play(device)
    except Failure as failure:
        print(f"{path}:{step.number}: {title}\n    {step.verb} {step.operand[:200]}\n{failure}\n", flush=True)
        return False
    finally:
        device.close_all()
    return True


def main():
    arguments = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    for program in ("device", "devicectl", "fake"):
        arguments.add_argument("--" + program, help=f"the program {program}, as it was built")
    arguments.add_argument("sessions", type=pathlib.Path, nargs="+")
    options = arguments.parse_args()
    failed = played = 0
    for path in options.sessions:
        opening, scenes = read_session(path)
        with Device(options) as device:
            for title, steps in scenes:
                played += 1
                failed += not play_scene(device, path, title, opening + steps)
    print(f"{played} scenes, {failed} failed")
    return 1 if failed or not played else 0


if __name__ == "__main__":
    sys.exit(main())
