"""A whole device whose parts are killed, stopped or talk nonsense while consoles are open."""

import contextlib
import itertools
import os
import signal
import time
import unittest

from harness import Device, frozen, memory_of, pump, wait_until

CALLS = {"displayControl": "HexRS232zone", "displayControlTelnetClient": "SetCmdOn", "networkd": "TelnetRestart",
         "systemd": "sshAddUser", "intermcud": "trigerUsb", "kxcmdd": "receiveFromUartString",
         "bruteForceAttacksd": "cgiLoginFailedMacaddr"}

NONSENSE = ["", "{", "]", "null", "17", '"text"', "[[]]", '{"control":', "%n%s%x%99999d", "\\ufffe\\", "\x01\x1b[2J",
            "{\"a\":" * 40 + "1" + "}" * 40, "[" * 100_000, '{"' + "k" * 100_000 + '":1}',
            '{"control":{"displayControl":{"output1":{"triger":{"rs232":{}}}}}}']


class Faults(unittest.TestCase):
    numbers = itertools.count()

    def answer(self, console):
        """All that the console prints until it has answered another line."""
        return console.ask(b"?\r", b"Command FAILED: (?)\r\n")

    def gone(self, device, name, number):
        """Ends a process of the device; returns when its successor runs."""
        before = device.child(name)
        os.kill(before, number)
        wait_until(lambda: device.child(name) not in (0, before), f"another {name}")
        self.assertIn(f"{name} ended (signal {number}) and is started again", device.said())

    def await_change(self, console, other):
        """Until a change that is typed on one is seen on the other; the value is another one each time."""
        for number in itertools.islice(self.numbers, 100):
            line = f"CliUser {number}\r".encode()
            console.sendall(line)
            with contextlib.suppress(AssertionError):
                return pump([console, other], lambda: line + b"\n" in other.seen, "a change on the other console", 0.5)
        self.fail("no change is seen on the other console")

    def test_open_consoles_outlive_a_bus_that_is_killed(self):
        with Device() as device, device.console() as one, device.console() as two:
            self.await_change(one, two)
            self.gone(device, "dbus-daemon", signal.SIGKILL)
            self.answer(one), self.answer(two)
            self.await_change(one, two)
            self.await_change(two, one)
            with frozen(device.process.pid):
                os.kill(device.child("dbus-daemon"), signal.SIGKILL)
                three = self.enterContext(device.console())
                self.answer(three)
            self.await_change(one, three)

    def test_a_relay_is_offered_for_as_long_as_there_is_a_session(self):
        with Device() as device:
            with frozen(device.child("dbus-daemon")):
                one = self.enterContext(device.console(2))
                one.read_until(b"lpc_service_create error: Connection timed out\n")
            wait_until(lambda: self.relays(device, one), "the relay of a session that began without a bus")
            two = self.enterContext(device.console(2))
            self.answer(two)
            self.gone(device, "dbus-daemon", signal.SIGKILL)
            self.assertRegex(one.read_until(b"\n"), rb"A*lpc_service_on_connect: .*\n")
            wait_until(lambda: self.relays(device, one) or self.relays(device, two), "the relay of a new bus")
            one.close()
            wait_until(lambda: self.relays(device, two), "the relay of the session that remains")
            self.assertNotIn(b"lpc_service", self.answer(two))

    def relays(self, device, console):
        """Whether a byte that a daemon sends comes out there, after others of its kind and at most one complaint."""
        if device.ctl("call", "hdbt12cmdd", "hdbt12cmdd", "41").returncode != 0:
            return False
        with contextlib.suppress(AssertionError):
            pump([console], lambda: console.seen.endswith(b"A"), "the byte", 0.3)
        got, console.seen = console.seen, bytearray()
        self.assertRegex(got, rb"\A(lpc_service_create error: (?!File exists).*\n)?A*\Z")
        return got.endswith(b"A")

    def test_a_bus_that_stands_still_delays_a_change_for_a_bounded_time_and_a_query_not_at_all(self):
        with Device() as device, device.console() as one, device.console() as two:
            self.await_change(one, two)
            with frozen(device.child("dbus-daemon")):
                # Longer than patience lasts if each of them waited for the bus.
                one.ask(b"HDMIAUD sta\r" * 100 + b"?\r", b"(?)\r\n")
                for line in (b"USBSW 1\r", b"TrigRS1 on\r"):
                    one.sendall(line)
                    self.assertIn(b"lpc_proxy_call: Connection timed out\n", self.answer(one))
                one.sendall(b"Blink off\r"), self.answer(one)
                with device.console() as three:
                    three.sendall(b"Blink sta\r")
                    self.assertIn(b"Blink off\r\n", self.answer(three))
            self.await_change(one, two)

    def test_a_daemon_that_stands_still_fails_a_call_in_bounded_time_and_delays_nobody_else(self):
        with Device() as device, device.console() as one, device.console() as two:
            with frozen(device.child("intermcud")):
                one.sendall(b"USBSW 1\r")
                one.read_until(b"USBSW 1\r\r\n")
                self.answer(two)
                one.receive()
                self.assertEqual(one.seen, b"", "what the daemon delays comes later")
                self.assertIn(b"lpc_proxy_call: Connection timed out\n", self.answer(one))
            one.sendall(b"USBSW 2\r"), self.answer(one)
            self.assertIn("call intermcud trigerUsb", device.ctl("calls").stdout)

    def test_a_slow_daemon_is_waited_for(self):
        with Device() as device, device.console() as one:
            with frozen(device.child("systemd")):
                one.ask(b"IPAddUser bob pw\r", b"IPAddUser bob pw\r\n")
            self.assertIn(b"TCP/IP user was added\r\n", self.answer(one))

    def test_nonsense_ends_no_daemon_and_no_console(self):
        with Device() as device, device.console() as one, device.console() as two:
            for service, method in CALLS.items():
                for text in NONSENSE:
                    device.ctl("call", service, method, text)
            before = memory_of(device.child("kxcmdd"))
            for _ in range(6):
                one.ask(b"Zebulax on\r" * 500 + b"?\r", b"(?)\r\n")
            self.assertLess(memory_of(device.child("kxcmdd")), before + 1024, "no request and no reply stays behind")
            self.await_change(one, two)
            self.assertNotIn("ended", device.said())


if __name__ == "__main__":
    unittest.main(verbosity=2)
