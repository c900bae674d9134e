"""The launcher, with the console of the tests."""

import os
import signal
import subprocess
import tempfile

from programs import Client, children_of, wait_until

NAMES = ["*cmdd", "*cmdd9000port", "*cmdd9001port", "*cmdd9002port"]


class Launcher:
    """A running launcher on a device root of its own; no bus."""

    def __init__(self, *arguments, prefix=()):
        self.root = tempfile.TemporaryDirectory()
        os.makedirs(self.root.name + "/usr/bin")
        os.makedirs(self.root.name + "/sbin")
        for name in NAMES:
            os.symlink(os.environ["TEST_CONSOLE"], f"{self.root.name}/usr/bin/{name}")
        for name in ("reboot", "killall"):
            os.symlink("/bin/true", f"{self.root.name}/sbin/{name}")
        ready, told = os.pipe()
        environment = {"PATH": os.environ["PATH"], "DEVICE_ROOT": self.root.name, "READY_FD": str(told), "SECRET": "x"}
        command = [*prefix, os.environ["LAUNCHER"], "--port", "0", "--ports", "0,0,0", *arguments]
        self.process = subprocess.Popen(command, env=environment, pass_fds=[told])
        os.close(told)
        with os.fdopen(ready) as line:
            self.address, *ports = line.readline().split()
        self.ports = [int(port) for port in ports]

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.process.terminate()
        assert self.process.wait(10) in (0, -signal.SIGKILL)
        self.root.cleanup()

    def client(self, index=1, **options):
        return Client(self.ports[index], **options)

    def sessions(self):
        return children_of(self.process.pid)

    def wait_for_sessions(self, count):
        wait_until(lambda: len(self.sessions()) == count, f"{count} sessions")
