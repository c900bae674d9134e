"""The program as a device gets it. That it links at all shows that it needs nothing but what platform/*.h declares,
json-c, libc and pthreads; here is what it may not have besides."""

import argparse
import os
import pty
import re
import subprocess
import sys
import unittest

from harness import proc_text, wait_until

# What one session may take for itself, in kB by the size of a pointer; half of it is glibc's.
MOST_MEMORY = {4: 108, 8: 160}
SHOWN_TO_LIBC = {"stdout", "stderr", "stdin", "_init", "_fini", "_IO_stdin_used", "__errno_location"}


def output(*command):
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout


def is_at_rest(pid):
    """Whether all its threads wait for something."""
    states = [proc_text(f"{pid}/task/{thread}", "stat").rpartition(")")[2].split()[:1]
              for thread in os.listdir(f"/proc/{pid}/task")]
    return all(state == ["S"] for state in states)


class DeviceProgram(unittest.TestCase):
    def test_headers_are_plain_c(self):
        for header in options.headers:
            folder = os.path.dirname(os.path.dirname(header))
            output(options.compiler, "-std=c11", "-Wall", "-Wextra", "-Werror", "-fsyntax-only", "-I", folder, "-x", "c",
                   header)

    def test_shares_json_c_and_shows_nothing_of_its_own(self):
        needed = re.findall(r"NEEDED +(\S+?)\.so", output(options.objdump, "-p", options.program))
        self.assertEqual(set(needed) - {"libc", "libpthread", "ld-linux-armhf"}, {"libdevice_stub", "libjson-c"})
        shown = output(options.nm, "--format=posix", "--dynamic", "--defined-only", options.program)
        self.assertEqual({re.split("[@ ]", line)[0] for line in shown.splitlines()} - SHOWN_TO_LIBC, set())

    def test_takes_little_memory(self):
        child, terminal = pty.fork()
        if child == 0:
            os.execve(options.program, ["/usr/bin/*cmdd"], {"TELNET_CLIENT_IP": "192.0.2.1"})
        with os.fdopen(terminal, "r+b", 0) as console:
            console.write(b"?\r")
            seen = b""
            while b"Command FAILED: (?)\r\n" not in seen:
                seen += console.read(100)
            wait_until(lambda: is_at_rest(child), "the session's threads wait")
            memory = int(re.search(r"Anonymous: +(\d+)", proc_text(child, "smaps_rollup"))[1])
        self.assertEqual(os.waitpid(child, 0)[1], 0, "a hang-up lets it end by itself")
        print(f"{memory} kB for one session")
        self.assertLessEqual(memory, MOST_MEMORY[options.pointer_size])


if __name__ == "__main__":
    arguments = argparse.ArgumentParser(description=__doc__)
    for name in ("compiler", "nm", "objdump", "program"):
        arguments.add_argument("--" + name, required=True)
    arguments.add_argument("--pointer-size", type=int)
    arguments.add_argument("headers", nargs="+")
    options = arguments.parse_args()
    unittest.main(argv=sys.argv[:1], verbosity=2)
