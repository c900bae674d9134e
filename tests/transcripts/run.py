"""Plays the transcripts named on its command line, as docs/transcripts.md describes them."""

import ast
import contextlib
import datetime
import difflib
import itertools
import os
import pathlib
import pty
import re
import socket
import sys
import termios

from harness import PATIENCE, Console, Device, pump, wait_until

PORTS = ["23", "9000", "9001", "9002"]
WORDS = itertools.count(17)
FENCE = re.compile(rb"\?\d+\r\r\nCommand FAILED: \(\?\d+\)\r\n|fence-\d+\r\n")


class Failure(AssertionError):
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


class Stage:
    """The consoles of a scene, and the device that is started when it is first asked for."""

    def __init__(self, make_device=Device):
        self.scope, self.device, self.consoles = contextlib.ExitStack(), None, {}
        self.forgotten = self.logged = 0
        self.make_device = make_device

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.close_all()
        self.scope.close()

    def start(self):
        if self.device is None:
            self.device = self.scope.enter_context(self.make_device())
            self.events = pathlib.Path(self.device.folder, "events")
            with open(self.events, "wb") as events:
                self.device.run(self.device.control_command("watch"), stdout=events)
            self.device.await_listeners([], self.has_watched)

    def watched(self):
        """What the bus has carried and was not forgotten."""
        return self.events.read_text("latin-1").split("\n")[self.forgotten:-1]

    def has_watched(self, fence):
        return f"event CommandFeedback {fence}" in self.watched()

    def pump(self, condition, what, patience=PATIENCE):
        pump(self.consoles.values(), condition, what, patience)

    def control(self, words):
        """Runs devicectl; its lines."""
        self.start()
        words = re.sub(r"%\{port (\d+)\}", lambda m: str(self.device.ports[PORTS.index(m[1])]), words)
        most = {"config": 2, "status": 2, "factory": 3, "publish": 2, "call": 3}.get(words.split(" ")[0], 1)
        done = self.device.ctl(*[text(word) for word in words.split(" ", most)])
        return done.stdout.splitlines() + ([f"exit {done.returncode}"] if done.returncode else []), done.stderr

    def open(self, name, port):
        self.start()
        self.consoles[name] = Console.connect(self.device.ports[PORTS.index(port)], self.device.address, is_telnet=port == "23")
        self.device.await_listeners(self.listening())

    def open_fake(self, name, script):
        child, terminal = pty.fork()
        if child == 0:
            os.environ["CMDD_DOUBLE"] = script.replace("; ", "\n")
            os.execv(os.environ["FAKE"], ["/usr/bin/*cmdd"])
        self.scope.callback(os.waitpid, child, 0)
        self.consoles[name] = console = Console(os.fdopen(terminal, "rb", 0))
        self.pump(lambda: not termios.tcgetattr(console.fileno())[3] & termios.ECHO, f"console {name} is raw")

    def listening(self):
        """The consoles that show events of the device's bus, which a device in memory is not on."""
        return [each for each in self.consoles.values() if isinstance(each.descriptor, socket.socket)]

    def close_all(self):
        """Ends all sessions, so that none is left in the next scene."""
        while self.consoles:
            self.consoles.popitem()[1].close()
        if self.device:
            wait_until(lambda: not self.device.sessions(), "the end of all sessions")

    def await_fences(self, typed):
        """Behind all that is on its way: a line on the console that was typed on, and an event."""
        if typed and not typed.closed:
            word = f"?{next(WORDS)}".encode()
            typed.sendall(word + b"\r")
            self.pump(lambda: b"FAILED: (" + word + b")\r\n" in typed.seen or typed.closed, "another line is answered")
        if self.device and not all(each.closed for each in self.consoles.values()):
            self.device.fence(self.listening(), self.has_watched)

    def log(self):
        """What was logged and was not forgotten."""
        return self.device.log()[self.logged:] if self.device else b""

    def moment_of(self, text):
        """When a line with this text was logged; nothing while there is none."""
        lines = [line.decode(errors="replace") for line in self.log().splitlines() if text.encode() in line]
        return lines and datetime.datetime.strptime(lines[0].split()[0], "%Y-%m-%dT%H:%M:%S.%fZ")


class Step:
    """One action and what has to follow it."""

    def __init__(self, number, verb, operand):
        self.number, self.verb, self.operand, self.lines = number, verb, operand, [f"{verb} {operand}"]
        self.expected, self.closed, self.output, self.watched, self.logged = {}, set(), [], [], []

    def expect(self, kind, operand):
        self.lines.append(f"{kind} {operand}")
        if kind.endswith(" closed"):
            self.closed |= set(kind.split()[0])
        elif kind in ("|", "*"):
            {"|": self.output, "*": self.watched}[kind].append(operand)
        elif kind.startswith("log"):
            self.logged.append((int(kind[4:-1] or 0), operand))
        else:
            data = text(operand) + (b"" if kind.endswith("::") else b"\r\n")
            for name in kind.rstrip(":"):
                self.expected[name] = self.expected.get(name, b"") + data

    def play(self, stage):
        output, expected = [], self.expected
        if not self.is_question():
            stage.logged += len(stage.log())
        if self.verb == "open":
            for name in re.findall("[A-Z]", self.operand):
                stage.open(name, *re.findall(r"\d+", self.operand) or ["23"])
        elif self.verb == "fake":
            stage.open_fake(*self.operand.split(": ", 1))
        elif self.verb == "$":
            output = self.ask(stage)
        else:
            expected = self.type(stage, stage.consoles[self.verb[0]])
        self.check(stage, expected)
        compare("devicectl printed", self.output, output)

    def is_question(self):
        return self.verb == "$" and re.match(r"\w+ get |calls$", self.operand) is not None

    def ask(self, stage):
        """Runs devicectl; asks a question until the answer is the expected one, and calls again while nobody is there."""
        def is_answered():
            nonlocal output
            output, errors = stage.control(self.operand)
            may_come = self.is_question() or "No such device or address" in errors
            return output == self.output or not may_come
        output = []
        with contextlib.suppress(AssertionError):
            wait_until(is_answered, "the answer")
        return output

    def type(self, stage, console):
        """Types the operand; what is expected on each console, echo and short reply included."""
        line, sign, reply = re.fullmatch(r"(.*?)(?: +(=>>?|=::) (.*))?", self.operand).groups()
        end, own = (b"", b"") if self.verb.endswith(">>") else (b"\r", text(line) + b"\r\r\n")
        if self.verb[1] != ">":
            own += text(line if self.verb[1] == "=" else f"Command FAILED: ({line})") + b"\r\n"
        console.sendall(text(line) + end)
        answer = text(reply) + (b"" if sign == "=::" else b"\r\n") if sign else b""
        expected = {}
        for name, each in stage.consoles.items():
            expected[name] = own + answer if each is console else answer if sign == "=>>" else b""
            expected[name] += self.expected.get(name, b"")
        return expected

    def has_typed_line(self):
        return self.verb[1:] in (">", "=", "!") or self.verb[1:] == ">>" and text(self.operand.split(" =:: ")[0])[-1:] in b"\r\n\0"

    def check(self, stage, expected):
        """What was promised comes first; then the fences show that nothing else is on its way."""
        promised = [line for line in self.watched if line != "nothing"]
        with contextlib.suppress(AssertionError):
            stage.pump(lambda: all(each.closed or len(each.seen) >= len(expected.get(name, b""))
                                    for name, each in stage.consoles.items()), "all has come")
            # A daemon acts on an event in its own time.
            stage.pump(lambda: not promised or set(promised) <= set(stage.watched()), "all has passed over the bus")
        for name in self.closed:
            stage.pump(lambda: stage.consoles[name].closed, f"session {name} ends")
        stage.await_fences(stage.consoles[self.verb[0]] if self.has_typed_line() else None)
        for name, console in stage.consoles.items():
            compare(f"on console {name}", shown(expected.get(name, b"")), shown(FENCE.sub(b"", console.seen)))
            compare(f"session {name} ended", [str(name in self.closed)], [str(console.closed)])
            console.seen.clear()
        for name in self.closed:
            stage.consoles.pop(name).close()
        watched = stage.watched() if stage.device else []
        stage.forgotten += len(watched)
        if self.watched:
            carried = [line for line in watched if not line.startswith("event CommandFeedback fence-")]
            compare("on the bus", promised, carried)
        moment = datetime.datetime.min
        for seconds, wanted in self.logged:
            before, moment = moment, wait_until(lambda: stage.moment_of(wanted), f"the log holds {wanted!r}")
            if moment < before + datetime.timedelta(seconds=seconds):
                raise Failure(f"not {seconds} s later, but {moment - before}: {wanted}")


ACTION = re.compile(r"(open|fake|\$|[A-Z]>>|[A-Z][>=!]) (.*)")
EXPECTATION = re.compile(r"([A-Z]+::?|[A-Z]+ closed|\||\*|log(?: \+\d+)?:)(?: (.*))?$")


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
            operand, _, printed = operand.partition(" => ") if verb == "$" else (operand, "", "")
            parts = operand.split(" | ") if verb[1:] in (">", "=", "!") else [operand]
            steps += [Step(number, verb, part) for part in parts]
            if printed:
                steps[-1].expect("|", printed)
        elif match := EXPECTATION.fullmatch(line):
            steps[-1].expect(match[1], match[2] or "")
        else:
            sys.exit(f"{path}:{number}: not a line of a session: {line}")
    return opening, scenes


def play_scene(stage, path, title, steps):
    """True when all went as written; shows the difference otherwise."""
    try:
        for step in steps:
            step.play(stage)
    except AssertionError as failure:
        print(f"{path}:{step.number}: {title}\n    {step.verb} {step.operand[:200]}\n{failure}\n", flush=True)
        return False
    finally:
        stage.close_all()
    return True


def play(paths, make_device=Device, reason_to_leave_out=lambda lines: ""):
    """How many scenes were played, and how many of them failed."""
    played = failed = 0
    for path in paths:
        opening, scenes = read_session(path)
        with Stage(make_device) as stage:
            for title, steps in scenes:
                if reason := reason_to_leave_out([line for step in opening + steps for line in step.lines]):
                    print(f"{path}: {title}: left out, it needs {reason}")
                    continue
                played += 1
                failed += not play_scene(stage, path, title, opening + steps)
    print(f"{played} scenes, {failed} failed")
    return played, failed


if __name__ == "__main__":
    all_played, all_failed = play(map(pathlib.Path, sys.argv[1:]))
    sys.exit(1 if all_failed or not all_played else 0)
