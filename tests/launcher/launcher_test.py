"""The launcher with a console that does what the tests ask of it."""

import os
import re
import select
import signal
import socket
import struct
import tempfile
import unittest

from harness import IAC, OFFERS, PATIENCE, Console, Launcher, proc_text, pump, run, wait_until

DONE = b"!done\n"


def reset(client):
    client.descriptor.setsockopt(socket.SOL_SOCKET, socket.SO_LINGER, struct.pack("ii", 1, 0))
    client.close()


def close(client):
    """With output that was not read."""
    select.select([client], [], [], PATIENCE)
    client.close()


ENDS = (reset, close, Console.end_input)


class Input(unittest.TestCase):
    def test_the_first_bytes_and_what_a_client_sends_at_once(self):
        with Launcher() as launcher:
            for index, greeting in enumerate([OFFERS + b">", b">", b">", b">"]):
                with launcher.client(index) as client:
                    typed = b"a\r\x00b\r\nc\xff\xff" + IAC + b"\xfa\x27" + b"x" * 20000 + IAC + b"\xf0d"
                    self.assertEqual(client.ask(typed, b"d"), greeting + b"a\rb\r\ncd")
                    client.descriptor.send(IAC + b"\xf2", socket.MSG_OOB)
                    self.assertEqual(client.ask(b"ef", b"f"), b"ef")


class Surroundings(unittest.TestCase):
    def test_without_the_stand_ins_of_its_root_it_starts_no_console(self):
        with tempfile.TemporaryDirectory() as root:
            done = run(os.environ["LAUNCHER"], "--port", "0", "--ports", "0,0,0", env={"DEVICE_ROOT": root})
            self.assertEqual((done.returncode, done.stderr), (1, f"launcher: {root} is not a complete device root\n"))

    def test_the_environment_is_built_from_nothing_and_signals_are_as_usual(self):
        with Launcher(prefix=["env", "--ignore-signal=HUP"]) as launcher, launcher.client(0) as client:
            client.sendall(IAC + b"\xfb\x27" + IAC + b"\xfa\x27\x00\x00LD_PRELOAD\x01/tmp/x.so" + IAC + b"\xf0")
            client.read_until(b">")
            told = client.ask(b"!environment\r", DONE).split(b"\r")[1].removesuffix(DONE).decode()
            root = launcher.folder
            self.assertEqual(set(told.splitlines()), {f"PATH={root}/sbin", f"DEVICE_ROOT={root}",
                                                      "TELNET_CLIENT_IP=127.0.0.1", "MALLOC_ARENA_MAX=1"})
            self.assertRegex(proc_text(launcher.sessions()[0], "status"), r"SigIgn:\t\w+[02468ace]\n")  # bit 0: HUP


class Endings(unittest.TestCase):
    def test_a_console_that_ends_delivers_its_last_output(self):
        with Launcher() as launcher, launcher.client() as client:
            client.sendall(b"!last words\rand input that nobody reads" * 10)
            self.assertTrue(client.read_all().endswith(b"wend"))
            launcher.wait_for_sessions(0)

    def test_a_peer_that_ends_its_input_gets_its_answers(self):
        with Launcher() as launcher, launcher.client() as client:
            client.sendall(b"!pid\r" * 50 + b"!slow\r")
            client.end_input()
            said = client.read_all()
            self.assertEqual(said.count(DONE), 51)
            self.assertTrue(said.endswith(b"!slow\r" + DONE))
            launcher.wait_for_sessions(0)

    def test_what_was_received_is_carried_out_however_the_peer_ends(self):
        with Launcher() as launcher:
            for client, end in [(launcher.client(index), end) for index in (0, 1) for end in ENDS * 25]:
                client.sendall(b"!count\r")
                end(client)
            launcher.wait_for_sessions(0)
            with open(launcher.folder + "/count", encoding="ascii") as count:
                self.assertEqual(len(count.read()), 150)

    def test_a_stubborn_console_is_killed(self):
        with Launcher() as launcher, launcher.client() as closed, launcher.client() as half_closed:
            closed.ask(b"!stubborn\r", DONE), half_closed.ask(b"!stubborn\r", DONE)
            closed.close()
            half_closed.end_input()
            launcher.wait_for_sessions(0)

    def test_the_end_of_the_launcher_is_the_end_of_its_sessions(self):
        for number in (signal.SIGTERM, signal.SIGINT, signal.SIGKILL):
            with Launcher() as launcher, launcher.client() as client, launcher.client() as stubborn:
                if number != signal.SIGKILL:
                    stubborn.ask(b"!stubborn\r", DONE)
                pids = [int(re.search(rb"(\d+)!done", c.ask(b"!pid\r", DONE))[1]) for c in (client, stubborn)]
                launcher.process.send_signal(number)
                launcher.process.wait(10)
                wait_until(lambda: not any(os.path.exists(f"/proc/{pid}") for pid in pids), "the end of the consoles")


class Limits(unittest.TestCase):
    def test_refused_peers_get_one_line(self):
        with Launcher("--max-sessions", "3", "--max-per-address", "2") as launcher:
            with launcher.client() as first, launcher.client() as second:
                first.read_until(b">"), second.read_until(b">")
                for _ in range(100):
                    with launcher.client() as refused:
                        refused.sendall(b"Status\r")
                        self.assertEqual(refused.read_all(), b"Too many sessions from your address.\r\n")
                with launcher.client(source="127.0.0.2") as third, launcher.client(source="127.0.0.3") as refused:
                    third.read_until(b">")
                    self.assertEqual(refused.read_all(), b"Too many sessions.\r\n")
                self.assertEqual(first.ask(b"x", b"x"), b"x")
            launcher.wait_for_sessions(0)
            with launcher.client() as again:
                again.read_until(b">")

    def test_peers_without_a_descriptor_get_one_line_until_some_are_free(self):
        """The launcher raises the limit that it is given as far as it may."""
        with Launcher(prefix=["prlimit", "--nofile=20:40"]) as launcher:
            for _ in range(2):
                clients = [self.enterContext(launcher.client()) for _ in range(40)]
                pump(clients, lambda: all(client.seen for client in clients), "all are told")
                said = {bytes(client.seen) for client in clients} - {b"No console available.\r\n"}
                self.assertEqual(said, {b">", b"Too many connections.\r\n"})
                self.assertGreater(len(launcher.sessions()), 8)
                for client in clients:
                    client.close()
                launcher.wait_for_sessions(0)

    def test_input_that_nobody_reads_or_takes_answers_to_is_bounded(self):
        with Launcher() as launcher, launcher.client() as deaf, launcher.client(0) as asker:
            deaf.ask(b"!deaf\r", b"\r")
            for client, typed in ((deaf, b"xxx"), (asker, IAC + b"\xfd\x05")):
                left = 1000
                while left and select.select([], [client], [], 0.3)[1]:
                    client.descriptor.send(typed * 20000)
                    left -= 1
                self.assertGreater(left, 0)


if __name__ == "__main__":
    unittest.main(verbosity=2)
