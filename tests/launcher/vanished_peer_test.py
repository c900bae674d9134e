"""A peer that vanishes without a word, in network namespaces of the test's own."""

import os
import subprocess
import sys
import time
import unittest

from launcher import Launcher
from programs import wait_until

SERVER, CLIENT = (f"console{os.getpid()}{side}" for side in "ab")
ADDRESS = "10.99.0.1"
CONNECT = f"""
import socket, sys
clients = [socket.create_connection(("{ADDRESS}", int(port))) for port in sys.argv[1:]]
for client in clients:
    client.recv(1)
clients[1].sendall(b"!ticks\\r")
print("connected", flush=True)
sys.stdin.read()
"""


def ip(*words):
    subprocess.run(["ip", *words], check=True, capture_output=True, timeout=20)


def make_network():
    """Two namespaces with one cable between them."""
    ip("netns", "add", SERVER)
    ip("netns", "add", CLIENT)
    ip("-n", SERVER, "link", "add", "cable", "type", "veth", "peer", "name", "cable", "netns", CLIENT)
    for namespace, address in ((SERVER, ADDRESS), (CLIENT, "10.99.0.2")):
        ip("-n", namespace, "address", "add", address + "/24", "dev", "cable")
        ip("-n", namespace, "link", "set", "cable", "up")


def remove_network():
    for namespace in (SERVER, CLIENT):
        subprocess.run(["ip", "netns", "delete", namespace], check=False, capture_output=True, timeout=20)


class VanishedPeer(unittest.TestCase):
    def setUp(self):
        self.addCleanup(remove_network)
        try:
            make_network()
        except (OSError, subprocess.CalledProcessError) as error:
            self.skipTest(f"no network namespaces here: {getattr(error, 'stderr', None) or error}")

    def test_the_sessions_of_a_peer_whose_cable_is_cut_are_gone_within_30_seconds(self):
        inside = ["ip", "netns", "exec"]
        with Launcher("--listen", ADDRESS, prefix=[*inside, SERVER]) as launcher:
            command = [*inside, CLIENT, sys.executable, "-c", CONNECT, *map(str, launcher.ports[1:3])]
            with subprocess.Popen(command, stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True) as client:
                self.assertEqual(client.stdout.readline(), "connected\n")
                launcher.wait_for_sessions(2)
                ip("-n", CLIENT, "link", "set", "cable", "down")
                cut = time.monotonic()
                wait_until(lambda: not launcher.sessions(), "the end of the sessions", 30)
                print(f"gone after {time.monotonic() - cut:.1f} s")
                client.stdin.close()


if __name__ == "__main__":
    unittest.main(verbosity=2)
