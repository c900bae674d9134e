"""Runs platform_test on a host device."""

import os
import subprocess
import sys

from harness import Device

with Device() as device:
    environment = {**os.environ, "DEVICE_ROOT": device.root, "PLATFORM_TEST_BUS": str(device.child("dbus-daemon"))}
    sys.exit(subprocess.run([os.environ["PLATFORM_TEST"]], env=environment, check=False, timeout=240).returncode)
