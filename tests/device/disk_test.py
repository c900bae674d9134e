"""A device on a small disk of its own, which fills up."""

import os
import subprocess
import unittest

from harness import Device, frozen

ON_SMALL_DISK = ["unshare", "--mount", "sh", "-c", 'mount -t tmpfs -o size=3m none "$0" && exec "$@"', "{}"]


class FullDisk(unittest.TestCase):
    def setUp(self):
        probe = subprocess.run([word.format("/mnt") for word in ON_SMALL_DISK] + ["true"], check=False, timeout=20,
                               capture_output=True)
        if probe.returncode != 0:
            self.skipTest(f"no disk of its own here: {probe.stderr}")

    def fill(self, path):
        with open(path, "wb", buffering=0) as file:
            for size in (4096, 1):
                try:
                    while file.write(b"x" * size) == size:
                        pass
                except OSError:
                    pass

    def answer(self, console, line):
        """What follows the echo of a line, up to the answer to the next one."""
        echo, end = line + b"\r\r\n", b"Command FAILED: (?)\r\n"
        got = console.ask(line + b"\r?\r", end)
        return got.partition(echo)[2].replace(b"?\r\r\n", b"").removesuffix(end)

    def test_what_is_not_stored_is_not_confirmed(self):
        with Device(prefix=ON_SMALL_DISK) as device, device.console() as console:
            console.ask(b"Broadcast off\r", b"\nBroadcast off\r\n")
            filler = f"/proc/{device.process.pid}/root{device.folder}/filler"
            self.fill(filler)
            # While nobody moves the log into the database, the room that the log has is used up.
            with frozen(device.process.pid):
                confirmed = self.answer(console, b"CliIPAddr sta").rstrip()
                for number in range(1024):
                    line = f"CliIPAddr 10.0.{number // 256}.{number % 256}".encode()
                    answer = self.answer(console, line)
                    if answer != line + b"\r\n":
                        break
                    confirmed = line
                self.assertEqual(answer, b"")
                self.assertEqual(self.answer(console, b"Lock"), b"user_config_update: No space left on device\n")
                self.assertEqual(self.answer(console, b"CliIPAddr sta"), confirmed + b"\r\n")
                os.remove(filler)
                self.assertEqual(self.answer(console, line), line + b"\r\n")


if __name__ == "__main__":
    unittest.main(verbosity=2)
