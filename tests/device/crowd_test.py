"""A whole device under many consoles.

CROWD_SECONDS is how long they type, CROWD_CYCLES how many connect, ask and leave, CROWD_RACES how often some of them
change the same at the same moment: 60, 10000 and 200 by hand, less otherwise.
"""

import collections
import concurrent.futures
import itertools
import os
import re
import socket
import time
import unittest

from harness import (OFFERS, PATIENCE, Console, Device, accepts, children_of, descriptors_of, memory_of, pump,
                     wait_until)

SECONDS = float(os.environ.get("CROWD_SECONDS", "3"))
CYCLES = int(os.environ.get("CROWD_CYCLES", "500"))
RACES = int(os.environ.get("CROWD_RACES", "5"))
SESSIONS = 100

CHANGE = re.compile(rb"CliUser (\d+-\d+)\r\n")
REPLY = re.compile(rb"Command FAILED: \(\?(\d+-\d+)\)\r\n")


class Typist(Console):
    """One of many consoles: types a change and a word that no row knows, and goes on when both are answered."""

    def __init__(self, device, name):
        super().__init__(socket.create_connection(("127.0.0.1", device.port)))
        self.name, self.typed, self.awaited, self.looked_at, self.types_on = name, [], [], 0, False

    def type(self):
        step = f"{self.name}-{len(self.typed)}".encode()
        self.typed.append(step)
        self.sendall(b"CliUser " + step + b"\r?" + step + b"\r")
        self.awaited = [b"CliUser " + step + b"\r\n", b"Command FAILED: (?" + step + b")\r\n"]

    def receive(self):
        super().receive()
        assert not self.closed, f"session {self.name} has ended"
        self.awaited = [line for line in self.awaited if self.seen.find(line, self.looked_at) < 0]
        if not self.awaited:
            self.looked_at = len(self.seen)
            if self.types_on:
                self.type()


class Footprint:
    """What each process of a device holds."""

    def __init__(self, device):
        pids = [device.process.pid, *children_of(device.process.pid)]
        pids += [pid for parent in pids[1:] for pid in children_of(parent)]
        self.held = {pid: (descriptors_of(pid), memory_of(pid)) for pid in pids}

    def growth_since(self, before):
        """The descriptors, and the memory in kB, that the process which took most has taken."""
        grown = [[now - then for now, then in zip(self.held[pid], before.held[pid])] for pid in before.held]
        return tuple(map(max, zip(*grown)))


class Crowd(unittest.TestCase):
    def assert_flat(self, before, after, what, consoles=0):
        """A few descriptors may be opened late, and what waits for the consoles, up to 64 kB each, is at its most at any
        time; what is lost with each session or change counts in hundreds, and in megabytes."""
        descriptors, memory = after.growth_since(before)
        print(f"{what}: at most {descriptors} descriptors and {memory} kB more in a process")
        self.assertLess(descriptors, 10)
        self.assertLess(memory, 4096 + 64 * consoles)

    def gather(self, device):
        typists = [self.enterContext(Typist(device, name)) for name in range(SESSIONS)]
        device.await_listeners(typists)
        return typists

    def type_on(self, typists, seconds):
        end = time.monotonic() + seconds
        for typist in typists:
            typist.types_on = True
            typist.type()
        pump(typists, lambda: time.monotonic() > end, "the end of typing", 2 * seconds)
        for typist in typists:
            typist.types_on = False
        pump(typists, lambda: not any(typist.awaited for typist in typists), "all answers", 150)

    def test_every_change_is_shown_once_to_all_in_one_order_and_every_reply_once(self):
        with Device() as device:
            typists = self.gather(device)
            self.type_on(typists, SECONDS / 3)
            before = Footprint(device)
            self.type_on(typists, SECONDS * 2 / 3)
            after = Footprint(device)
            device.fence(typists)

            typed = collections.Counter(step for typist in typists for step in typist.typed)
            shown = CHANGE.findall(typists[0].seen)
            self.assertEqual(collections.Counter(shown), typed)
            for typist in typists:
                self.assertEqual(CHANGE.findall(typist.seen), shown, typist.name)
                self.assertEqual(REPLY.findall(typist.seen), typist.typed)
            self.assert_flat(before, after, f"{len(shown)} changes on {SESSIONS} consoles", SESSIONS)

    def test_one_who_never_reads_is_dropped_and_the_others_are_answered(self):
        with Device("--peer-patience", "4") as device, device.console() as reader, Console.connect(device.port) as silent:
            silent.read_until(OFFERS)
            launcher = device.child("telnet_launcher")
            sessions = children_of(launcher)
            answers, deadline = 0, time.monotonic() + PATIENCE
            while len(children_of(launcher)) == 2:
                self.assertLess(time.monotonic(), deadline, "the patience with one who does not read is over")
                device.ctl("publish", "CommandFeedback", "x" * 100_000)
                self.assertLess(max(map(memory_of, [launcher, *sessions])), 8192)
                reader.ask(b"?\r", b"Command FAILED: (?)\r\n")
                answers += 1
            self.assertGreater(answers, 2, "the reader is answered while the silent one is still there")

    def come_and_go(self, device):
        with device.console() as console:
            console.ask(b"HDMIAUD sta\r", b"HDMIAUD on\r\n")

    def visit(self, device, times):
        """In groups, since a session stays for a moment when its peer has left and counts among those from there."""
        for done in range(0, times, 100):
            with concurrent.futures.ThreadPoolExecutor(20) as visitors:
                list(visitors.map(self.come_and_go, [device] * min(100, times - done)))
            wait_until(lambda: not device.sessions(), "the end of all sessions")
        return Footprint(device)

    def test_thousands_leave_nothing_behind(self):
        with Device() as device:
            before = self.visit(device, CYCLES // 4)
            after = self.visit(device, CYCLES - CYCLES // 4)
            self.assert_flat(before, after, f"{CYCLES} sessions")


class SameMoment(unittest.TestCase):
    """Three consoles that type at the same moment, time and again."""

    def setUp(self):
        self.device = self.enterContext(Device())
        self.consoles = [self.enterContext(self.device.console()) for _ in range(3)]
        self.assertEqual(len(self.at_once(b"", b"", b"")), 3)

    def at_once(self, *lines):
        """What each console shows until another line behind its own is answered."""
        for console, line in zip(self.consoles, lines):
            console.sendall(line + b"\r?\r")
        return [console.read_until(b"Command FAILED: (?)\r\n") for console, _ in zip(self.consoles, lines)]

    def accounts(self):
        listed = self.consoles[0].ask(b"IPAddUser sta\r", b"\n -\r\n")
        return b"".join(sorted(re.findall(rb" - (\w+) &", listed)))

    def test_no_account_is_lost_and_none_comes_back(self):
        for _ in range(RACES):
            self.at_once(b"IPAddUser a 1", b"IPAddUser b 1", b"IPAddUser c 1")
            self.assertEqual(self.accounts(), b"abc")
            self.at_once(b"IPDelUser c")  # root is the fourth account, and there are no more
            self.at_once(b"IPDelUser b", b"IPAddUser d 1")
            self.assertEqual(self.accounts(), b"ad")
            self.at_once(b"IPDelUser a", b"IPDelUser d")
            self.assertEqual(self.accounts(), b"")

    def test_the_device_listens_on_the_stored_port(self):
        for _ in range(RACES):
            ports = self.device.reserve_port(), self.device.reserve_port()
            self.at_once(*(b"IPPort %d" % port for port in ports))
            stored = int(self.device.ctl("config", "get", '{"network":{"telnet":{"telnetPort":0}}}').stdout)
            self.assertEqual([port == stored for port in ports], [accepts(port) for port in ports])

    def test_no_toggle_and_no_step_is_lost(self):
        self.at_once(b"Broadcast off")
        for start in itertools.islice(itertools.cycle(range(-80, -3, 3)), RACES):
            modes = b"".join(self.at_once(b"dbg977", b"dbg977"))
            self.assertEqual([modes.count(b"Into 977"), modes.count(b"Leave 977")], [1, 1])
            self.at_once(b"DispBtn on")
            words = b"".join(self.at_once(b"DispBtn tog", b"DispBtn tog"))
            self.assertEqual([words.count(b"DispBtn off"), words.count(b"DispBtn on")], [1, 1])
            self.at_once(b"VOUT %d" % start)
            self.at_once(b"VOUT +", b"VOUT +", b"VOUT +")
            self.assertIn(b"VOUT %d\r\n" % (start + 3), self.at_once(b"VOUT sta")[0])


if __name__ == "__main__":
    unittest.main(verbosity=2)
