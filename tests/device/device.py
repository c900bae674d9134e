"""A whole device on a root of its own, for tests."""

import os
import re
import signal
import subprocess
import tempfile

from programs import Client, children_of, proc_text, wait_until

ANY_PORTS = ["--port", "0", "--ports", "0,0,0"]


def processes_of(root):
    """Every process that was started for the device of that root."""
    processes = filter(str.isdigit, os.listdir("/proc"))
    return [pid for pid in processes if f"DEVICE_ROOT={root}" in proc_text(pid, "environ").split("\0")]


class Device:
    """A running device on a root of its own."""

    def __init__(self, *arguments, prefix=()):
        """`prefix`: a command that runs the device; "{}" in it is the folder above its root."""
        self.folder = tempfile.TemporaryDirectory()
        self.prefix = [word.format(self.folder.name) for word in prefix]
        self.root = self.folder.name + "/root"
        self.errors = open(self.folder.name + "/errors", "w+", encoding="utf-8")
        self.start(*arguments)

    def start(self, *arguments):
        command = [*self.prefix, os.environ["DEVICE"], "--root", self.root, *ANY_PORTS, *arguments]
        self.process = subprocess.Popen(command, stdout=subprocess.PIPE, stderr=self.errors, text=True)
        self.wait_until_ready()

    def wait_until_ready(self):
        line = self.process.stdout.readline()
        ready = re.fullmatch(r"ready: telnet 127\.0\.0\.1 (\d+)\n", line)
        assert ready, (line, self.said())
        self.port = int(ready[1])

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.stop()
        self.process.stdout.close()
        self.errors.close()
        self.folder.cleanup()

    def stop(self, number=signal.SIGTERM):
        self.process.send_signal(number)
        return self.process.wait(20)

    def said(self):
        with open(self.errors.name, encoding="utf-8") as errors:
            return errors.read()

    def wait_for_news(self, text):
        wait_until(lambda: text in self.said(), text)

    def console(self, port=None):
        return Client(port or self.port)

    def ctl(self, *words):
        command = [os.environ["DEVICECTL"], "--root", self.root, *words]
        return subprocess.run(command, capture_output=True, text=True, timeout=30, check=False)

    def child(self, name):
        """The process of a daemon of the device; 0 while there is none."""
        return next((pid for pid in children_of(self.process.pid) if name in proc_text(pid, "cmdline")), 0)

    def answers(self):
        """Whether a new console gets an answer, and a change comes back to it over the bus, once it listens there."""
        with self.console() as console:
            console.ask(b"HDMIAUD sta\r", b"HDMIAUD on\r\n")
            console.settimeout(0.5)
            return wait_until(lambda: self.hears(console), "a change on the bus")

    def hears(self, console):
        try:
            return bool(console.ask(b"HDMIAUD on\r", b"\nHDMIAUD on\r\n"))
        except TimeoutError:
            return False
