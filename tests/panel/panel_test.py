"""The panel's server: whom it serves, and what becomes of it and of its device under stress."""

import socket
import unittest

from harness import Console, Device, memory_of, wait_until
from panelled import PanelledDevice

LOUDER = '{"audio":{"audOut":{"analogOut1":{"audioSinkControl":{"volume":-5}}}}}'
ELSEWHERE = "http://elsewhere.example"


class Server(unittest.TestCase):
    def test_it_serves_its_own_page_alone(self):
        with PanelledDevice() as device:
            for status, method, path, headers in (
                    (200, "GET", "/", {}),
                    (200, "GET", "/", {"Sec_Fetch_Site": "cross-site", "Sec_Fetch_Mode": "navigate"}),
                    (200, "GET", "/events", {"Sec_Fetch_Site": "same-origin"}),
                    (421, "GET", "/", {"Host": f"elsewhere.example:{device.panel_port}"}),
                    (421, "POST", "/settings", {"Host": "elsewhere.example", "Origin": ELSEWHERE}),
                    (403, "GET", "/events", {"Origin": ELSEWHERE}),
                    (403, "GET", "/events", {"Sec_Fetch_Site": "cross-site", "Sec_Fetch_Mode": "no-cors"}),
                    (403, "POST", "/settings", {}),
                    (403, "POST", "/settings", {"Origin": ELSEWHERE}),
                    (403, "POST", "/settings", {"Origin": "null"}),
                    (403, "POST", "/settings", {"Origin": "http://127.0.0.1:9"}),
                    (404, "GET", "/../panel.cpp", {}),
                    (404, "GET", "/terminal/../panel.cpp", {}),
                    (404, "GET", "/.hidden.js", {})):
                self.assertEqual(device.ask(method, path, LOUDER, **headers), status, (method, path, headers))
            self.assertEqual(device.ctl("config", "get", LOUDER).stdout, "-20\n")
            self.assertEqual(device.post("/settings", LOUDER), 204)
            self.assertEqual(device.ctl("config", "get", LOUDER).stdout, "-5\n")
            self.assertEqual(device.post("/settings", "nonsense"), 400)

    def test_what_is_too_large_is_refused_and_who_does_not_read_is_dropped(self):
        with PanelledDevice() as device, device.open_stream() as silent, Console(device.open_stream()) as reader:
            panel = device.panel()
            self.assertEqual(device.post("/status", "x" * 70_000), 413)
            for number in range(10, 50):
                self.assertEqual(device.post("/status", '{"x":"%s"}' % (str(number) * 30_000)), 204)
                reader.read_until(str(number).encode() * 30_000)
            self.assertLess(memory_of(panel), 16_384)
            wait_until(lambda: self.has_ended(silent), "the end of one who does not read")
            self.assertEqual(device.panel(), panel)

    def has_ended(self, stream):
        try:
            return not stream.recv(1 << 20)
        except ConnectionError:
            return True

    def test_a_taken_port_is_waited_for_while_the_device_runs(self):
        with socket.create_server(("127.0.0.1", 0)) as other:
            port = other.getsockname()[1]
            with Device("--panel", str(port)) as device:
                self.assertIn(f"panel: no panel on 127.0.0.1 {port}", device.said())
                self.assertTrue(device.answers())
                other.close()
                device.wait_for_news(f"panel: http://127.0.0.1:{port}\n")

    def test_a_display_answers_refuses_or_is_off(self):
        with PanelledDevice() as device:
            port = device.reserve_port()
            place = '{"control":{"displayControl":{"output1":{"remoteNetworkDevice":{"port":%d}}}}}' % port
            device.ctl("config", "set", place)
            for mood, outcome in (("answers", b"OK\r"), ("off", TimeoutError), ("refuses", ConnectionRefusedError)):
                self.assertEqual(device.post("/display", mood), 204)
                self.assertEqual(self.call(port), outcome)
            self.assertEqual(device.post("/display", "nonsense"), 409)

    def call(self, port):
        try:
            with socket.create_connection(("127.0.0.1", port), 1) as display:
                display.sendall(b"PWR ON\r")
                return display.recv(100)
        except OSError as error:
            return type(error)


if __name__ == "__main__":
    unittest.main(verbosity=2)
