"""The panel in a real browser."""

import os
import unittest

from selenium import webdriver
from selenium.webdriver.chrome.service import Service
from selenium.webdriver.common.by import By

from harness import wait_until
from panelled import PanelledDevice

OPTIONS = ("--headless=new --no-sandbox --disable-gpu --disable-quic --no-first-run --disable-background-networking "
           "--disable-component-update --disable-sync --hide-scrollbars").split()


class Page(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        options = webdriver.ChromeOptions()
        for option in OPTIONS:
            options.add_argument(option)
        options.set_capability("goog:loggingPrefs", {"browser": "ALL"})
        cls.browser = webdriver.Chrome(service=Service(os.environ["CHROMEDRIVER"]), options=options)
        cls.addClassCleanup(cls.browser.quit)

    def setUp(self):
        self.device = self.enterContext(PanelledDevice())
        self.console = self.enterContext(self.device.console())
        self.device.await_listeners([self.console])
        self.show()

    def show(self, width=1280, height=860, scheme="dark"):
        self.browser.execute_cdp_cmd("Emulation.setEmulatedMedia",
                                     {"features": [{"name": "prefers-color-scheme", "value": scheme}]})
        self.browser.execute_cdp_cmd("Emulation.setDeviceMetricsOverride",
                                     {"width": width, "height": height, "deviceScaleFactor": 1, "mobile": False})
        self.browser.get(self.device.url)
        wait_until(lambda: "IN " in self.text("#screen1"), "the device's state on the page")

    def find(self, selector):
        return self.browser.find_element(By.CSS_SELECTOR, selector)

    def text(self, selector):
        return self.browser.execute_script("return document.querySelector(arguments[0])?.textContent", selector) or ""

    def key(self, name):
        self.browser.find_element(By.XPATH, f"//button[contains(@class, 'key')][span='{name}']").click()

    def shows(self, selector, text):
        return wait_until(lambda: text in self.text(selector), f"{text} in {selector}")

    def console_shows(self, line):
        self.console.read_until(line + b"\r\n")

    def test_a_key_is_told_to_the_consoles_and_what_they_type_is_followed(self):
        self.key("HDMI")
        self.console_shows(b"x2AVx1\r\nInputStatus 11")
        self.shows("#screen1", "IN 2  HDMI")
        self.console.ask(b"VOUT -30\r", b"\r\nVOUT -30\r\n")
        self.shows("#screen3", "-30 dB")
        self.shows("#sessions tbody", "VOUT -30")
        self.shows("#strip ol", "volume = -30")
        self.find("body").send_keys("+")
        self.console_shows(b"VOUT -29")

    def test_a_locked_panel_refuses_its_keys(self):
        self.console.ask(b"Lock\r", b"\r\nLock\r\n")
        self.shows("#keys .key[aria-pressed=true]", "Lock")
        self.key("HDMI")
        self.shows("#notice", "locked")
        self.console.ask(b"Status\r", b"\r\nx1AVx1\r\n")
        self.key("Lock")
        self.console_shows(b"Unlock")
        self.key("HDMI")
        self.console_shows(b"x2AVx1\r\nInputStatus 11")

    def test_inputs_are_pulled_and_the_link_is_lost(self):
        self.find("#plug2").click()
        self.console_shows(b"InputStatus 10")
        self.find("#lose").click()
        self.console_shows(b"InputStatus 00\r\nInputFormat1 --:--:--")
        self.shows("#screen1", "no signal")
        self.find("#report").click()
        self.shows("#link .facts", "10 m")
        self.shows("#strip ol", "allHexString")

    def test_any_leaf_is_changed_in_the_tree(self):
        self.find("#tree input[type=search]").send_keys("sinkcontrol.volume")
        field = self.find("[data-path='settings.audio.audOut.analogOut1.audioSinkControl.volume'] input")
        field.clear(), field.send_keys("-41\t")
        self.console_shows(b"VOUT -41")
        self.assertEqual(self.device.ctl("config", "get", '{"audio":{"audOut":{"analogOut1":{"audioSinkControl":'
                                         '{"volume":0}}}}}').stdout, "-41\n")

    def test_a_reset_is_shown_though_nothing_announces_it(self):
        self.console.ask(b"VOUT -30\r", b"\r\nVOUT -30\r\n")
        self.shows("#screen3", "-30 dB")
        self.find("#reset").click()
        self.browser.switch_to.alert.accept()
        self.console_shows(b"Mreset")
        self.shows("#screen3", "-20 dB")

    def open_console(self, typed):
        self.find("#connect").click()
        keys = wait_until(lambda: self.browser.find_elements(By.CSS_SELECTOR, ".xterm-helper-textarea"), "a terminal")
        keys[0].send_keys(typed)

    def test_a_console_in_the_page_is_one_like_any_other(self):
        self.open_console("VOUT -33\n")
        self.console_shows(b"VOUT -33")
        self.shows(".xterm-accessibility", "VOUT -33")
        sessions = lambda: self.text("#sessions tbody").count("127.0.0.1")
        wait_until(lambda: sessions() == 2, "both sessions")
        self.browser.get("about:blank")
        self.browser.get(self.device.url)
        wait_until(lambda: sessions() == 1, "its end")

    def test_a_restart_is_outlived(self):
        self.open_console("VOUT -33\n")
        self.console_shows(b"VOUT -33")
        self.find("#reboot").click()
        self.browser.switch_to.alert.accept()
        self.console.read_all()
        self.device.wait_until_ready()
        wait_until(lambda: not self.browser.find_elements(By.CSS_SELECTOR, ".lost"), "a page that is back")
        self.open_console("VOUT sta\n")
        self.shows(".xterm-accessibility", "VOUT sta")

    def test_it_is_narrow_and_breaks_no_rule_of_its_own(self):
        self.browser.get_log("browser")
        self.show(width=380)
        self.find("#tree input[type=search]").send_keys("e")
        self.assertEqual(self.browser.execute_script("return document.documentElement.scrollWidth"), 380)
        self.open_console("Type\n")
        self.assertEqual([line["message"] for line in self.browser.get_log("browser") if line["level"] == "SEVERE"], [])


if __name__ == "__main__":
    unittest.main(verbosity=2)
