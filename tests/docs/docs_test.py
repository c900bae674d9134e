"""What the README and docs/ show: the example session is played, and every line that can be pasted is run."""

import os
import pathlib
import re
import signal
import subprocess
import unittest

import harness

CHECKOUT = pathlib.Path(__file__).resolve().parents[2]
PAGES = [CHECKOUT / "README.md", *sorted((CHECKOUT / "docs").glob("*.md"))]
PASTED = re.compile(r"(?:^ {4}|^|`)((?:\./devicectl|printf|grep|rlwrap|source) [^`\n]*)(?:`|$)", re.M)
ENDLESS = re.compile(r"devicectl (watch|play)")
TYPED = "(typed)"


class Documents(unittest.TestCase):
    def test_the_session_of_the_readme(self):
        block = re.search(r"```console\n(.*?)```", (CHECKOUT / "README.md").read_text(), re.S)[1].splitlines()
        middle = block[0].index("another console")
        with harness.Device() as device, device.console() as left, device.console() as right:
            consoles = [left, right]
            device.await_listeners(consoles)
            for console in consoles:
                console.seen.clear()
            for line in block[1:]:
                own, other = line[:middle].rstrip(), line[middle:].strip()
                if own.endswith(TYPED):
                    left.sendall(own.removesuffix(TYPED).rstrip().encode() + b"\r")
                    left.read_until(b"\r\r\n")
                    continue
                self.assertEqual(f"{own}\r\n".encode(), left.read_until(b"\r\n"))
                if other:
                    self.assertEqual(f"{other}\r\n".encode(), right.read_until(b"\r\n"))
            device.ctl("config", "set", '{"system":{"broadcast":true}}')
            self.assertEqual(b"Broadcast on\r\n", right.read_until(b"\r\n"), "nothing else came on the other console")

    def test_the_scene_of_the_readme(self):
        with harness.Device() as device, device.console() as console:
            device.await_listeners([console])
            with open(device.folder + "/own.scene", "w", encoding="utf-8") as scene:
                scene.write(re.search(r"```scene\n(.*?)```", (CHECKOUT / "README.md").read_text(), re.S)[1])
            done = device.ctl("play", scene.name)
            self.assertEqual(0, done.returncode, done.stderr)
            seen = b"VOUT -30\r\n" + b"InputStatus 01\r\nInputStatus 11\r\n" * 3
            harness.pump([console], lambda: console.seen.endswith(seen), repr(seen))

    def test_lines_to_paste(self):
        with harness.Device() as device, device.console() as console:
            console.ask(b"USBSW 1\rDispBtn vol+\rDispBtn sta\r", b"DispBtn off\r\n")  # some calls and bytes to look at
            for page in PAGES:
                for line in PASTED.findall(page.read_text()):
                    with self.subTest(page=page.name, line=line):
                        self.run_pasted(device, line)

    def run_pasted(self, device, line):
        is_endless = ENDLESS.search(line)
        control = " ".join(device.control_command())
        line = line.split(" #")[0].replace("./devicectl", control).replace(".device/", device.root + "/")
        for usual, port in zip(("2323", "9000", "9001", "9002"), device.ports):
            line = line.replace(f"127.0.0.1 {usual}", f"127.0.0.1 {port}")
        run = subprocess.Popen(["bash", "-c", "exec " + line if is_endless else line], cwd=CHECKOUT,
                               stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
        if is_endless:
            harness.wait_until(lambda: device.ctl("publish", "CommandFeedback", "seen") and run.poll() is None, line)
            run.send_signal(signal.SIGTERM)
            run.communicate(timeout=harness.PATIENCE)
            return
        output, _ = run.communicate(timeout=harness.PATIENCE)
        self.assertEqual(0, run.returncode, output)

    def test_words_are_completed(self):
        script = 'source $0; COMP_WORDS=("$@") COMP_CWORD=$(($# - 1)); _devicectl "$1"; echo "${COMPREPLY[*]}"'
        for words, completed in ((["c"], "config call calls"),
                                 (["--root", "x", "config", ""], "get set"),
                                 (["--root", "=", "x", "watch", ""], ""),
                                 (["play", "scenes/fl"], "scenes/flapping-link.scene")):
            command = ["bash", "-c", script, "packaging/bash-completion/devicectl", os.environ["DEVICECTL"], *words]
            self.assertEqual(completed + "\n", subprocess.check_output(command, cwd=CHECKOUT, text=True))


if __name__ == "__main__":
    os.environ.setdefault("PYTHONDONTWRITEBYTECODE", "1")
    unittest.main()
