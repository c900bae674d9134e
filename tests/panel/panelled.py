"""A device with a panel."""

import http.client
import socket

from harness import Device


class PanelledDevice(Device):
    def start(self):
        self.panel_port = self.reserve_port()
        self.url = f"http://127.0.0.1:{self.panel_port}"
        super().start("--panel", str(self.panel_port))

    def wait_until_ready(self):
        super().wait_until_ready()
        assert self.process.stdout.readline() == f"panel: {self.url}\n"

    def panel(self):
        return self.child("bin/panel")

    def ask(self, method, path, body=None, **headers):
        """The status of an answer; "_" in a header's name stands for "-"."""
        connection = http.client.HTTPConnection("127.0.0.1", self.panel_port, timeout=20)
        connection.request(method, path, body, {name.replace("_", "-"): value for name, value in headers.items()})
        status = connection.getresponse().status
        connection.close()
        return status

    def post(self, path, body):
        return self.ask("POST", path, body, Origin=self.url)

    def open_stream(self):
        stream = socket.create_connection(("127.0.0.1", self.panel_port), 20)
        stream.sendall(f"GET /events HTTP/1.1\r\nHost: 127.0.0.1:{self.panel_port}\r\n\r\n".encode())
        return stream
