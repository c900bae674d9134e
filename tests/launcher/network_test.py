"""Peers on a network of the test's own: two namespaces with a cable between them."""

import contextlib
import os
import subprocess
import sys
import unittest

from harness import Launcher, wait_until

SERVER, CLIENT = (f"console{os.getpid()}{side}" for side in "ab")
ADDRESS = "10.99.0.1"
HARDWARE_ADDRESS = "02:00:00:00:00:07"

# Two sessions: one that nothing happens in, and one with output on its way.
CLIENTS = f"""
import sys
from harness import Console
idle, busy = (Console.connect(int(port), address="{ADDRESS}") for port in sys.argv[1:])
print(idle.ask(b"!environment\\r", b"!done\\n"), flush=True)
busy.sendall(b"!ticks\\r")
sys.stdin.read()
"""


def ip(*words):
    subprocess.run(["ip", *words], check=True, capture_output=True, timeout=20)


def make_network():
    ip("netns", "add", SERVER)
    ip("netns", "add", CLIENT)
    ip("-n", SERVER, "link", "add", "cable", "type", "veth", "peer", "name", "cable", "netns", CLIENT)
    ip("-n", CLIENT, "link", "set", "cable", "address", HARDWARE_ADDRESS)
    for namespace, address in ((SERVER, ADDRESS), (CLIENT, "10.99.0.2")):
        ip("-n", namespace, "address", "add", address + "/24", "dev", "cable")
        ip("-n", namespace, "link", "set", "cable", "up")


def remove_network():
    for namespace in (SERVER, CLIENT):
        with contextlib.suppress(OSError):
            subprocess.run(["ip", "netns", "delete", namespace], check=False, capture_output=True, timeout=20)


class Neighbour(unittest.TestCase):
    def setUp(self):
        self.addCleanup(remove_network)
        try:
            make_network()
        except (OSError, subprocess.CalledProcessError) as error:
            self.skipTest(f"no network namespaces here: {getattr(error, 'stderr', None) or error}")

    def test_it_is_known_by_its_addresses_and_gone_within_30_seconds_when_its_cable_is_cut(self):
        inside = ["ip", "netns", "exec"]
        with Launcher("--listen", ADDRESS, prefix=[*inside, SERVER]) as launcher:
            command = [*inside, CLIENT, sys.executable, "-B", "-c", CLIENTS, *map(str, launcher.ports[1:3])]
            with subprocess.Popen(command, stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True) as clients:
                environment = clients.stdout.readline()
                self.assertIn("TELNET_CLIENT_IP=10.99.0.2\\n", environment)
                self.assertIn(f"TELNET_CLIENT_MAC={HARDWARE_ADDRESS}\\n", environment)
                launcher.wait_for_sessions(2)
                ip("-n", CLIENT, "link", "set", "cable", "down")
                wait_until(lambda: not launcher.sessions(), "the end of the sessions", 30)


if __name__ == "__main__":
    unittest.main(verbosity=2)
