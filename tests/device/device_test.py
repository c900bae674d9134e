"""The whole device, from its start to its end."""

import json
import os
import re
import signal
import socket
import stat
import tempfile
import unittest

from harness import Console, Device, accepts, proc_text, processes_of, run, wait_until

SCENES = os.path.dirname(__file__) + "/../../scenes"


class StartAndEnd(unittest.TestCase):
    def test_what_it_keeps_is_for_its_owner_alone(self):
        with Device() as device:
            names = [""] + [name for name in os.listdir(device.root) if not name.startswith(".")]
            for name in names:
                mode = os.stat(f"{device.root}/{name}").st_mode
                self.assertEqual(stat.S_IMODE(mode), 0o700 if stat.S_ISDIR(mode) else 0o600, name)
            self.assertTrue(any(stat.S_ISSOCK(os.stat(f"{device.root}/{name}").st_mode) for name in names))
            for pid in processes_of(device.root):
                self.assertIn(f"PATH={device.root}/sbin", proc_text(pid, "environ").split("\0"))

    def test_a_second_device_on_the_same_root_says_so(self):
        with Device() as device:
            second = run(os.environ["DEVICE"], "--root", device.root, "--port", "0")
            self.assertEqual((second.returncode, second.stdout), (1, ""))
            self.assertRegex(second.stderr, r"^device: .*runs there already\n$")
            self.assertTrue(device.answers())

    def test_no_change_breaks_a_line_that_is_arriving(self):
        with Device() as device, device.console() as one, device.console() as other:
            device.await_listeners([one, other])
            one.seen.clear()
            other.sendall(b"HDMIAUD off\rHDMIAUD on\r" * 50)
            got = b""
            while got.count(b"HDMIAUD") < 20:
                got += one.ask(b"VOUT sta\r" * 100 + b"?\r", b"FAILED: (?)\r\n")
            whole = rb"VOUT sta\r\r|VOUT -\d+\r|HDMIAUD o[nf]+\r|\?\r\r|Command FAILED: \(\?\)\r|"
            broken = [line for line in got.split(b"\n") if not re.fullmatch(whole, line)]
            # A console that the machine leaves alone for 30 ms has a line that pauses, which is not waited for.
            self.assertLess(len(broken), 5, broken)

    def test_mistakes_on_the_command_line_are_named(self):
        with tempfile.TemporaryDirectory() as root:
            os.makedirs(root + "/kept/settings.db/folder")
            for words, status, said in ((["--prot", "1"], 2, "--prot is no option"),
                                        (["--ports", "1,2"], 2, '--ports cannot be "1,2".'),
                                        (["--port"], 2, "--port lacks its value."),
                                        (["--port", "7", "--ports", "0,7,0"], 2, "port 7 is given twice"),
                                        (["--root", root + "/kept", "--port", "0"], 1, "no usable settings store: "),
                                        (["--root", root, "--port", "0", "--listen", "192.0.2.1"], 1,
                                         "warning: anyone who reaches 192.0.2.1 can operate this device\n")):
                done = run(os.environ["DEVICE"], *words)
                self.assertEqual((done.returncode, done.stdout), (status, ""))
                self.assertRegex(done.stderr, rf"(?m)^(device|{os.environ['DEVICE']}): " + re.escape(said))

    def test_the_stand_ins_serve_nobody_outside_their_root(self):
        with Device() as device, tempfile.TemporaryDirectory() as elsewhere:
            for command in (["reboot"], ["killall", "*cmdd"], ["factory_tool", "-w", "SerialNumber", "x"]):
                path = f"{elsewhere}/{command[0]}"
                os.symlink(os.path.realpath(f"{device.root}/sbin/reboot"), path)
                self.assertEqual(self.status_of(device, path, *command[1:]), 1)
            self.assertEqual(self.status_of(device, f"{device.root}/sbin/killall", "sshd"), 1)
            self.assertEqual(self.status_of(device, f"{device.root}/mnt/mtd/bin/factory_tool", "-x"), 1)
            self.assertNotEqual(device.ctl("factory", "get", "SerialNumber").stdout, "x\n")
            self.assertTrue(device.answers())

    def status_of(self, device, *command):
        return run(*command, env={"DEVICE_ROOT": device.root}).returncode

    def test_nothing_is_left_however_it_ends(self):
        for number, status in ((signal.SIGINT, 0), (signal.SIGTERM, 0), (signal.SIGKILL, -9)):
            with Device() as device, device.console() as first, device.console() as second:
                first.ask(b"Type\r", b"\r\n"), second.ask(b"Type\r", b"\r\n")
                self.assertTrue(processes_of(device.root))
                self.assertEqual(device.stop(number), status)
                if number == signal.SIGKILL:
                    wait_until(lambda: not processes_of(device.root), "the end of all its processes")
                self.assertEqual(processes_of(device.root), [])

    def test_settings_outlive_a_run_and_the_port_can_be_found_in_them(self):
        with Device("--port", "0") as device:
            with device.console() as console:
                console.ask(b"HDMIAUD off\rHDMIAUD sta\r", b"HDMIAUD off\r\n")
                console.ask(b"IPPort sta\r", f"IPPort {device.port}\r\n".encode())
            device.stop()
            device.start()
            with device.console() as console:
                console.ask(b"HDMIAUD sta\r", b"HDMIAUD off\r\n")
            device.stop()
            self.assertRegex(device.said(), r"^device: \S+ is new and holds the defaults\n$")


class Restart(unittest.TestCase):
    def test_a_restart_ends_sessions_and_renews_the_status_alone(self):
        with Device() as device, device.console() as console:
            port = device.port
            console.ask(b"HDMIAUD off\rHDMIAUD sta\r", b"HDMIAUD off\r\n")
            device.ctl("status", "set", '{"time":{"status":{"bootUpTime":1.5}}}')
            boot = lambda: json.loads(device.ctl("status", "get", '{"time":{"status":{"bootUpTime":0}}}').stdout)
            self.assertEqual(boot(), 1.5)
            console.sendall(b"Reboot\r")
            self.assertIn(b"Reboot\r\n", console.read_all())
            device.wait_until_ready()
            self.assertEqual(device.port, port)
            self.assertGreater(boot(), 1.5e9)
            with device.console() as again:
                again.ask(b"HDMIAUD sta\r", b"HDMIAUD off\r\n")

    def test_what_dies_is_started_again(self):
        with Device() as device:
            for name in ("displayControl", "upgrade", "telnet_launcher", "dbus-daemon"):
                before = wait_until(lambda: device.child(name), name)
                os.kill(before, signal.SIGKILL)
                device.wait_for_news(f"{name} ended (signal 9)")
                wait_until(lambda: device.child(name) not in (0, before), name)
                wait_until(lambda: accepts(device.port), "the launcher")
                self.assertTrue(device.answers())
                call = ("call", "networkd", "TelnetRestart", str(device.port))
                wait_until(lambda: device.ctl(*call).returncode == 0, "networkd and the launcher")


class TelnetPort(unittest.TestCase):
    def test_the_port_moves_and_sessions_stay(self):
        with Device() as device, device.console() as console:
            old, new = device.port, device.reserve_port()
            console.ask(b"Broadcast off\rBroadcast sta\r", b"Broadcast off\r\n")
            console.ask(f"IPPort {new}\r".encode(), f"IPPort {new}\r\n".encode())
            wait_until(lambda: accepts(new), "the new port")
            self.assertFalse(accepts(old))
            device.ctl("call", "networkd", "TelnetRestart", str(old))
            console.ask(b"IPPort sta\r", f"IPPort {new}\r\n".encode())
            with Console.connect(new) as other:
                other.ask(b"IPPort sta\r", f"IPPort {new}\r\n".encode())

    def test_a_port_that_cannot_be_had_leaves_the_old_one_also_at_the_next_start(self):
        with Device() as device, socket.create_server(("127.0.0.1", 0)) as taken:
            port, stays = device.port, f"still listening on {device.port}"
            self.assertIn("not a port", device.ctl("call", "telnetLauncher", "listen", "x").stdout)
            for wanted in (taken.getsockname()[1], device.ports[1]):
                device.ctl("config", "set", '{"network":{"telnet":{"telnetPort":%d}}}' % wanted)
                self.assertIn(stays, device.ctl("call", "networkd", "TelnetRestart", str(wanted)).stdout)
                self.assertIn(f"cannot listen on 127.0.0.1 {wanted}: ", device.said())
            os.kill(device.child("telnet_launcher"), signal.SIGKILL)
            device.wait_for_news(f"listening on 127.0.0.1 {port} instead")
            self.restart(device)
            self.assertEqual((device.port, device.said().count(" instead")), (port, 2))

    def test_a_reset_brings_back_the_port_that_was_given(self):
        with Device() as device:
            given = device.port
            with device.console() as console:
                console.ask(b"Mreset\r", b"\n")
            self.restart(device)
            self.assertEqual(device.port, given)

    def restart(self, device):
        with device.console() as console:
            console.sendall(b"Reboot\r")
            console.read_all()
        device.wait_until_ready()

    def test_the_login_mode_ends_every_session(self):
        with Device() as device, Device() as other, other.console() as untouched:
            with device.console() as one, device.console() as two:
                two.ask(b"Broadcast off\rBroadcast sta\r", b"Broadcast off\r\n")
                one.ask(b"IPLogin sta\r", b"IPLogin off\r\n")
                one.sendall(b"IPLogin on\r")
                self.assertIn(b"IPLogin on\r\n", one.read_all())
                two.read_all()
            untouched.ask(b"IPLogin sta\r", b"IPLogin off\r\n")


class Control(unittest.TestCase):
    """devicectl, where something is wrong; and a scene."""

    def test_it_says_which_word_is_wrong(self):
        with Device() as device:
            before = device.ctl("calls")
            self.assertEqual((0, "", ""), (before.returncode, before.stdout, before.stderr))
            for words, said in ((("confg", "get"), 'one of config, status, .*, not "confg"'),
                                (("config", "gt", "{}"), 'after "config" comes one of get, set, not "gt"'),
                                (("publish", "someEvent"), "missing: publish EVENT TEXT"),
                                (("calls", "x"), '"x" is a word too many: calls'),
                                (("calls", "--root"), "--root DIR has to name")):
                done = device.ctl(*words)
                self.assertEqual(done.returncode, 2)
                self.assertRegex(done.stderr, said)
            self.assertIn("not a query document", device.ctl("config", "get", "audio").stderr)
            self.assertIn("nothing is stored there", device.ctl("config", "get", '{"audoi":{}}').stderr)
            self.assertIn("system.broadcast was of type boolean and is now of type string",
                          device.ctl("config", "set", '{"system":{"broadcast":"on"}}').stderr)
            device.stop()
            self.assertRegex(device.ctl("watch").stderr, r"^devicectl: no device runs in .*\n$")
            self.assertEqual(device.ctl("calls").returncode, 0)
            self.assertIn("nobody heard of it", device.ctl("config", "set", '{"system":{"broadcast":true}}').stderr)

    def test_a_scene_is_seen_on_a_console(self):
        with Device() as device, device.console() as console:
            device.await_listeners([console])
            self.assertEqual(device.ctl("play", SCENES + "/locked-front-panel.scene").returncode, 0)
            self.assertIn(b"Lock\r\nUnlock\r\n", console.read_until(b"Unlock\r\n"))
            wrong = device.folder + "/wrong.scene"
            with open(wrong, "w", encoding="utf-8") as scene:
                scene.write("repeat 2\n$ publish CommandFeedback \"a\\x41 \\n\"\n$ publish CommandFeedback \"\"\nend\n"
                            "$ call intermcud trigerUsb OUTA\n$ call nobody x y\n")
            done = device.ctl("play", wrong)
            self.assertEqual(device.ctl("play", device.folder).returncode, 1)
            self.assertIn(":6: $ call nobody x y: the scene ends here", done.stderr)
            self.assertEqual(console.read_until(b"aA \n\r\n\r\n" * 2).count(b"aA"), 2)


if __name__ == "__main__":
    unittest.main(verbosity=2)
