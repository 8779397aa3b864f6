#!/usr/bin/python3
"""Opens the panel's page in a browser, clicks and types through it, and checks what a person would see.

    panel_page_test.py PROGRAM [SCREENSHOT_FOLDER]

PROGRAM is the built tremolux. With a folder, a picture of every tab at both widths is left there.
"""
import pathlib
import subprocess
import sys
import tempfile
import unittest

from selenium import webdriver
from selenium.webdriver.chrome.options import Options
from selenium.webdriver.chrome.service import Service
from selenium.webdriver.common.by import By
from selenium.webdriver.common.keys import Keys

PROGRAM = None
PICTURES = None
WIDTHS = (360, 1200)
TABS = ["Basic", "TremoluxCam", "Target", "Zoom", "Focus", "Advanced"]


class PanelPage(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.TemporaryDirectory()
        options = Options()
        for argument in ("--headless=new", "--no-sandbox", "--disable-gpu", "--hide-scrollbars"):
            options.add_argument(argument)
        options.binary_location = "/usr/bin/chromium"
        options.set_capability("goog:loggingPrefs", {"browser": "ALL"})
        cls.browser = webdriver.Chrome(service=Service("/usr/bin/chromedriver"), options=options)

    @classmethod
    def tearDownClass(cls):
        cls.browser.quit()
        cls.folder.cleanup()

    def open(self, *options, width=1200, dark=False):
        page = pathlib.Path(self.folder.name) / "panel.html"
        home = pathlib.Path(self.folder.name) / "home"
        subprocess.run([PROGRAM, "panel", "--html", page, "--user-folder", home, *options], check=True)
        self.assertNotIn("http", page.read_text(encoding="utf-8"), "the page needs no network")
        self.browser.execute_cdp_cmd(
            "Emulation.setDeviceMetricsOverride",
            {"width": width, "height": 1500, "deviceScaleFactor": 1, "mobile": width < 600},
        )
        scheme = "dark" if dark else "light"
        self.browser.execute_cdp_cmd(
            "Emulation.setEmulatedMedia", {"features": [{"name": "prefers-color-scheme", "value": scheme}]}
        )
        self.browser.get(page.as_uri())

    def tab(self, title):
        return next(t for t in self.browser.find_elements(By.CSS_SELECTOR, "[role=tab]") if t.text == title)

    def shown(self):
        """The title of the tab whose panel is shown: exactly one."""
        panels = [p for p in self.browser.find_elements(By.CSS_SELECTOR, "[role=tabpanel]") if p.is_displayed()]
        self.assertEqual(len(panels), 1)
        return self.browser.find_element(By.ID, panels[0].get_attribute("aria-labelledby")).text

    def control(self, key):
        return self.browser.find_element(By.ID, f"p{key}")

    def visible(self, key):
        return self.browser.execute_script("return arguments[0].checkVisibility()", self.control(key))

    def test_every_tab_shows_its_panel_at_every_width_and_nothing_is_cut_off(self):
        for width in WIDTHS:
            for dark in (False, True):
                self.open(width=width, dark=dark)
                self.assertEqual([t.text for t in self.browser.find_elements(By.CSS_SELECTOR, "[role=tab]")], TABS)
                for title in TABS:
                    self.tab(title).click()
                    self.assertEqual(self.shown(), title)
                    for fold in self.browser.find_elements(By.TAG_NAME, "details"):
                        self.browser.execute_script("arguments[0].open = true", fold)
                    overflow = self.browser.execute_script(
                        "return document.documentElement.scrollWidth - document.documentElement.clientWidth"
                    )
                    self.assertEqual(overflow, 0, f"{title} at {width}")
                    cut = self.browser.execute_script(
                        "return [...document.querySelectorAll('button, label, summary, h2')].filter(e =>"
                        " e.offsetParent && e.scrollWidth > e.clientWidth + 1 && getComputedStyle(e).display != 'inline')"
                        ".map(e => e.textContent)"
                    )
                    self.assertEqual(cut, [], f"{title} at {width}")
                    narrow = self.browser.execute_script(
                        "return [...document.querySelectorAll('input[type=text], select')].filter(e =>"
                        " e.offsetParent && e.clientWidth < 60).map(e => e.id)"
                    )
                    self.assertEqual(narrow, [], f"{title} at {width}")
                    if PICTURES:
                        name = f"{title.lower()}_{width}{'_dark' if dark else ''}.png"
                        self.browser.save_screenshot(str(PICTURES / name))

    def test_the_tags_own_tab_is_open_at_first(self):
        self.open()
        self.assertEqual(self.shown(), "TremoluxCam")

    def test_arrow_keys_walk_through_the_tabs(self):
        self.open()
        self.tab(TABS[0]).click()
        self.tab(TABS[0]).send_keys(Keys.ARROW_RIGHT)
        self.assertEqual(self.shown(), TABS[1])
        self.assertEqual(self.browser.switch_to.active_element.text, TABS[1])
        self.tab(TABS[1]).send_keys(Keys.ARROW_LEFT, Keys.NULL)
        self.tab(TABS[0]).send_keys(Keys.ARROW_LEFT)
        self.assertEqual(self.shown(), TABS[-1])

    def test_groups_open_and_close_by_mouse_and_by_keyboard(self):
        self.open()
        toggles = self.browser.find_element(By.XPATH, "//summary[text()='On/Off Toggles']")
        self.assertFalse(self.visible(6010), "closed at first")
        toggles.click()
        self.assertTrue(self.visible(6010))
        toggles.send_keys(Keys.ENTER)
        self.assertFalse(self.visible(6010))

    def test_values_and_ranges_are_those_of_the_tag(self):
        self.open("--set", "Position Intensity=150%", "--set", "Rotation Slow=12.5deg", "--set", "Interval=40f")
        self.assertEqual(self.control(6020).get_attribute("value"), "150 %")
        self.assertEqual(self.control(6028).get_attribute("value"), "12.5°")
        self.assertEqual(self.control(6038).get_attribute("value"), "40 F")
        slider = self.browser.find_element(By.CSS_SELECTOR, "[aria-label='Position Intensity slider']")
        self.assertEqual([slider.get_attribute(name) for name in ("min", "max", "step", "value")], ["0", "2", "0.01", "1.5"])

    def test_disabled_controls_are_grey_and_follow_the_target(self):
        for options, target_amount, input_amount in (((), False, True), (("--target",), True, False)):
            self.open(*options)
            self.assertEqual(self.control(6161).is_enabled(), target_amount)
            self.assertEqual(self.control(6156).is_enabled(), input_amount)
        colours = [
            self.browser.execute_script("return getComputedStyle(arguments[0]).color", self.control(key))
            for key in (6156, 6155)
        ]
        self.assertNotEqual(colours[0], colours[1])

    def test_a_baked_tag_answers_to_un_bake_alone(self):
        self.open("--baked")
        own = self.browser.find_elements(By.CSS_SELECTOR, "[role=tabpanel]:not(:first-of-type) [id^=p]")
        enabled = [c.get_attribute("id") for c in own if c.get_attribute("id") != "" and c.is_enabled()]
        self.assertEqual([key for key in enabled if key.startswith("p") and key[1:].isdigit()], ["p6047"])

    def test_every_field_has_a_name(self):
        self.open()
        nameless = self.browser.execute_script(
            "return [...document.querySelectorAll('input, select')].filter(e => !e.labels.length &&"
            " !e.getAttribute('aria-label')).map(e => e.outerHTML)"
        )
        self.assertEqual(nameless, [])

    def test_the_page_makes_no_complaint(self):
        self.open()
        for title in TABS:
            self.tab(title).click()
        self.assertEqual(self.browser.get_log("browser"), [])


if __name__ == "__main__":
    PROGRAM = str(pathlib.Path(sys.argv[1]).resolve())
    if len(sys.argv) > 2:
        PICTURES = pathlib.Path(sys.argv[2]).resolve()
        PICTURES.mkdir(parents=True, exist_ok=True)
    unittest.main(argv=sys.argv[:1], verbosity=2)
