#!/usr/bin/python3
"""The page of all sections in a real browser, as a person uses it:
    tests/page_test.py SECTIONDB DATA-FOLDER SCREENSHOT-FOLDER
It takes screenshots on its way. Status 77: the browser's driver is not installed."""
import csv
import os
import pathlib
import sqlite3
import subprocess
import sys
import tempfile
import unittest

try:
    from selenium import webdriver
    from selenium.webdriver.chrome.service import Service
    from selenium.webdriver.common.by import By
    from selenium.webdriver.common.keys import Keys
    from selenium.common.exceptions import StaleElementReferenceException
    from selenium.webdriver.support.ui import Select, WebDriverWait
except ImportError:
    sys.exit(77)

PROGRAM, DATA, SHOTS = sys.argv[1:4]
ODD_NAME = '<img src=x onerror="document.title=1"> Балка "Б1" & co'


def sectiondb(*arguments, password=None):
    environment = dict(os.environ)
    environment.pop("SECTIONDB_PASSWORD", None)
    if password:
        environment["SECTIONDB_PASSWORD"] = password
    return subprocess.run([PROGRAM, *map(str, arguments)], env=environment, text=True,
                          capture_output=True)


def start_browser(downloads):
    options = webdriver.ChromeOptions()
    options.add_argument("--headless=new")
    options.add_argument("--disable-dev-shm-usage")
    if os.geteuid() == 0:
        options.add_argument("--no-sandbox")
    options.set_capability("goog:loggingPrefs", {"browser": "ALL"})
    browser = webdriver.Chrome(service=Service("/usr/bin/chromedriver"), options=options)
    browser.execute_cdp_cmd("Browser.setDownloadBehavior",
                            {"behavior": "allow", "downloadPath": str(downloads)})
    browser.execute_cdp_cmd("Browser.grantPermissions", {
        "permissions": ["clipboardReadWrite", "clipboardSanitizedWrite"]})
    return browser


class PageTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        os.makedirs(SHOTS, exist_ok=True)
        cls.temporary = tempfile.TemporaryDirectory()
        cls.folder = pathlib.Path(cls.temporary.name)
        sources = sorted(file.parent for file in pathlib.Path(DATA).glob("*/_catalogue.csv"))
        built = sectiondb("build", *sources, "--output", cls.folder)
        assert built.returncode == 0, built.stderr
        with sqlite3.connect(cls.folder / "AISCSections.db3") as catalogue:
            catalogue.execute('UPDATE "M Shape" SET Name = ? WHERE Name = "M4X6"', [ODD_NAME])
        cls.page = cls.folder / "all.html"
        written = sectiondb("page", "--output", cls.page, "--folder", cls.folder)
        assert written.returncode == 0, written.stderr
        cls.browser = start_browser(cls.folder)

    @classmethod
    def tearDownClass(cls):
        cls.browser.quit()
        cls.temporary.cleanup()

    def setUp(self):
        self.look(1400, 900)
        self.open(self.page)

    def tearDown(self):
        self.assertEqual(self.browser.get_log("browser"), [])

    def look(self, width, height, scheme="light"):
        self.browser.execute_cdp_cmd("Emulation.setDeviceMetricsOverride", {
            "width": width, "height": height, "deviceScaleFactor": 1, "mobile": width < 500})
        self.browser.execute_cdp_cmd("Emulation.setEmulatedMedia", {
            "features": [{"name": "prefers-color-scheme", "value": scheme}]})

    def open(self, page):
        self.browser.get(page.as_uri())
        self.wait(lambda: " sections" in self.text("#status"))

    def wait(self, condition):
        drawn_anew = [StaleElementReferenceException]
        WebDriverWait(self.browser, 30, 0.1, drawn_anew).until(lambda _: condition())

    def all(self, selector):
        return self.browser.find_elements(By.CSS_SELECTOR, selector)

    def text(self, selector):
        return self.browser.find_element(By.CSS_SELECTOR, selector).text

    def names(self):
        return [name.text for name in self.all("#body b")]

    def type(self, selector, *keys):
        self.browser.find_element(By.CSS_SELECTOR, selector).send_keys(*keys)

    def search(self, query):
        self.browser.find_element(By.ID, "query").clear()
        self.type("#query", query)

    def choose(self, **choices):
        for name, choice in choices.items():
            Select(self.browser.find_element(By.ID, name)).select_by_visible_text(choice)

    def click(self, selector, text=None):
        next(one for one in self.all(selector) if text in (None, one.text)).click()

    def figures(self):
        """The values of the panel: "AX" -> "7.65 in²"."""
        rows = [[cell.text for cell in row.find_elements(By.CSS_SELECTOR, "th, td")]
                for row in self.all("#details tr")]
        return {name.split()[0]: f"{value} {unit}".strip() for name, value, unit in rows}

    def screenshot(self, name):
        self.browser.save_screenshot(f"{SHOTS}/{name}.png")

    def test_finds_names_as_they_are_typed(self):
        for typed, name in [
            ("w12X26", "W12X26"), ("W 12 * 26.0", "W12X26"), ("W12\u00D726", "W12X26"),
            ("L2.5x2x3/16", "L2-1/2X2X3/16"), ("l 2 1/2-2x.188", "L2-1/2X2X3/16"),
            ("HEA 200", "HE 200 A"), ("he-a200,0", "HE 200 A"), ("ipe-300 ", "IPE 300"),
            ("305x165x40 UB", "UB 305 x 165 x 40"), ("hss6,625*.28", "HSS6.625X0.280"),
            ("балка", ODD_NAME), ("HEA 2", "HE 200 A"), ("uka 200x100x10", "L 200 x 100 x 10"),
        ]:
            self.search(typed)
            self.assertEqual(self.names()[0], name, typed)
        self.search("W12x2")
        self.assertTrue({"W12X26", "W12X22"} <= set(self.names()))
        self.search("IPE 305")
        self.assertEqual(self.names(), [])
        suggestions = [button.text for button in self.all("#status button")]
        self.assertIn("IPE 300", suggestions)
        self.screenshot("suggestions")
        self.click("#status button", "IPE 300")
        self.assertEqual(self.names()[0], "IPE 300")

    def time_first_search(self):
        self.open(self.page)
        return self.browser.execute_script("""
            const query = document.getElementById("query");
            const start = performance.now();
            query.value = "HE 200 A";
            query.dispatchEvent(new Event("input"));
            document.body.offsetHeight; // laid out
            return performance.now() - start;""")

    def test_first_search_is_at_once_and_the_file_small(self):
        # Other programs may hold the processor meanwhile, so the best of some loads counts.
        milliseconds = min(self.time_first_search() for _ in range(5))
        print(f"{self.page.stat().st_size} bytes, first search {milliseconds:.0f} ms, "
              f"{self.text('#status')}")
        self.assertLess(milliseconds, 100)
        self.assertLess(self.page.stat().st_size, 6e6)
        self.assertEqual(self.names()[0], "HE 200 A")

    def test_shows_values_in_each_system(self):
        self.search("W12X26")
        self.type("#query", Keys.ENTER)
        for system, values in {
            "Published": {"AX": "7.65 in²", "IZ": "204 in⁴", "CW": "607 in⁶"},
            "Metric": {"AX": "49.35 cm²", "D": "309.9 mm", "IZ": "8491 cm⁴"},
            "SI": {"AX": "4935 mm²", "IZ": "8.491e7 mm⁴", "ZZ": "609600 mm³"},
            "US": {"AX": "7.65 in²", "D": "12.2 in"},
        }.items():
            self.click("#systems span", system)
            figures = self.figures()
            self.assertEqual({name: figures[name] for name in values}, values)
        self.search("L 200 x 200 x 16")
        self.type("#query", Keys.ENTER)
        self.assertEqual(self.figures()["D"], "7.874 in")

    def test_marks_computed_values(self):
        self.search("UPN 200")
        self.assertEqual(self.names()[0], "UPN 200")
        self.type("#query", Keys.ENTER)
        computed = [cell.text for cell in self.all("#details .computed")]
        self.assertEqual(computed[0], "20.163")
        self.assertNotIn("8.5", computed)  # the published thickness of the web
        self.assertEqual(self.figures()["CZ"], "20.163 mm")

    def test_tells_what_follows_from_the_figures(self):
        self.search("W12X26")
        self.type("#query", Keys.ENTER)
        for system, values in {
            "Published": {"Weight": "26.04 lb/ft", "SZ": "33.443 in³", "RZ": "5.164 in",
                          "CY": "6.1 in", "ALPHA": "0 deg", "BF/2TF": "8.5395"},
            "Metric": {"Weight": "38.751 kg/m", "SZ": "548.03 cm³", "RZ": "131.17 mm"},
            "SI": {"SZ": "548030 mm³", "Surface": "1254.4 mm²/mm"},
        }.items():
            self.click("#systems span", system)
            figures = self.figures()
            self.assertEqual({name: figures[name] for name in values}, values)
        self.assertEqual(self.text("#details .standard"),
                         "AISC Steel Construction Manual, 16th Edition")
        self.choose(catalogue="American", family="W Shape")
        self.search("W12")
        self.click("#addRange")
        Select(self.all(".range select")[0]).select_by_visible_text("Weight")
        self.type("[aria-label=from]", "350")
        self.type("[aria-label=to]", "450")  # N/m
        self.click("#details .close")
        self.assertIn("SZ\nmm³", [button.text for button in self.all("#head button")])
        self.assertEqual(self.names(), ["W12X30", "W12X26"])

    def test_draws_the_section(self):
        for name, label in [
            ("W12X26", "W12X26, 12.2 in deep and 6.49 in wide"),
            ("UPN 200", "UPN 200, 200 mm deep and 75 mm wide"),
            ("HSS6.625X0.280", "HSS6.625X0.280, 6.625 in deep and 6.625 in wide"),
            ("L 150 x 100 x 10", "L 150 x 100 x 10, 150 mm deep and 100 mm wide"),
        ]:
            self.search(name)
            self.type("#query", Keys.ENTER)
            drawing = self.browser.find_element(By.CSS_SELECTOR, "#details svg")
            self.assertEqual(drawing.get_attribute("aria-label"), label)
            self.screenshot(f"drawing-{name.split()[0]}")

    def test_filters_and_sorts(self):
        self.choose(catalogue="American", family="W Shape")
        self.search("W12")
        self.click("#addRange")
        self.type("[aria-label=from]", "6")
        self.type("[aria-label=to]", "9")
        self.click("#head button", "AX\nin²")
        self.assertEqual(self.names(), ["W12X22", "W12X26", "W12X30"])
        self.screenshot("range")
        self.click("#head button", "AX\nin²")
        self.assertEqual(self.names(), ["W12X30", "W12X26", "W12X22"])
        self.click("[aria-label='Remove the range']")
        self.assertEqual(self.names()[0], "W12X336")
        self.search("")
        self.choose(catalogue="all", shape="channel")
        self.assertTrue(all("Channel" in one.text for one in self.all("#body small")), self.text("#body"))

    def test_draws_only_the_rows_in_sight(self):
        self.screenshot("start")
        self.assertLess(len(self.all("#body [role=row]")), 60)
        count = int(self.text("#status").split()[0].replace(",", ""))
        self.type("#table", Keys.END)

        def is_at_the_end():
            last = self.all("#body [role=row]")[-1]
            return (last.get_attribute("aria-selected"), last.get_attribute("aria-rowindex")) == (
                "true",
                str(count + 1),
            )

        self.wait(is_at_the_end)

    def test_works_from_the_keyboard(self):
        self.type("#table", "/")
        self.assertEqual(self.browser.switch_to.active_element.get_attribute("id"), "query")
        self.type("#query", "W12X26", Keys.ARROW_DOWN)
        grid = self.browser.switch_to.active_element
        grid.send_keys("c", Keys.ENTER)
        self.assertEqual(self.text("#details h2"), "W12X26")
        grid.send_keys(Keys.ESCAPE)
        self.assertFalse(self.browser.find_element(By.ID, "details").is_displayed())
        self.search("HEA 200")
        self.type("#query", Keys.ARROW_DOWN)
        grid.send_keys("c", "y")
        self.wait(lambda: "clipboard" in self.text("#status"))
        copied = self.browser.execute_async_script(
            "navigator.clipboard.readText().then(arguments[0])").split("\n")
        self.assertEqual(copied[0].split("\t")[:6], ["Catalogue", "Family", "Name", "VessaName", "AX", "D"])
        self.assertEqual(copied[1].split("\t")[4:6], ["cm^2", "mm"])
        self.assertEqual(copied[2].split("\t")[2:6], ["HE 200 A", "HE200A", "53.8", "190"])

    def test_compares_across_units(self):
        for name in ["W12X26", "HE 200 A"]:
            self.search(name)
            self.type("#query", Keys.ARROW_DOWN)
            self.type("#table", "c")
        self.click("#openCompare")
        self.screenshot("compare")
        cells = [row.text.split() for row in self.all("#compare tbody tr")]
        self.assertEqual(cells[0], ["AX", "7.65", "in²", "53.8", "cm²", "×", "1.09"])
        self.type("#compare", Keys.ESCAPE)
        self.assertFalse(self.browser.find_element(By.ID, "compare").is_displayed())

    def test_downloads_what_is_shown(self):
        self.choose(catalogue="American", family="M Shape")
        self.click("#systems span", "SI")
        self.search("M4")
        self.click("#download")
        file = self.folder / "sections.csv"
        self.wait(file.exists)
        with open(file, encoding="utf-8", newline="") as text:
            head, units, *rows = csv.reader(text)
        self.assertEqual(head[:6], ["Catalogue", "Family", "Name", "VessaName", "AX", "D"])
        self.assertEqual(units[4:6], ["mm^2", "mm"])
        by_name = {row[3]: row for row in rows}
        self.assertEqual(by_name["M4X6"][2:6], [ODD_NAME, "M4X6", "1129.03", "96.52"])

    def test_shows_odd_names_as_they_are(self):
        self.search("Балка")
        self.type("#query", Keys.ENTER)
        self.assertEqual(self.text("#details h2"), ODD_NAME)
        self.assertEqual(self.browser.title, "Sections")

    def test_fits_a_phone_and_the_dark(self):
        light = self.browser.execute_script("return getComputedStyle(document.body).backgroundColor")
        self.look(390, 800, "dark")
        self.open(self.page)
        self.screenshot("phone-dark")
        self.assertNotEqual(light, self.browser.execute_script(
            "return getComputedStyle(document.body).backgroundColor"))
        self.search("HEB 300")
        self.type("#query", Keys.ENTER)
        self.screenshot("phone-details")
        self.assertEqual(self.browser.execute_script("return document.documentElement.scrollWidth"), 390)
        self.click("#details .close")
        self.assertEqual(self.names()[0], "HE 300 B")

    def test_tells_of_protected_catalogues(self):
        folder = self.folder / "protected"
        self.assertEqual(sectiondb("build", f"{DATA}/AISCSections", "--output", folder,
                                   password="secret").returncode, 0)
        page = self.folder / "protected.html"
        page.write_text("the earlier page")
        arguments = ["page", "american", "--output", page, "--folder", folder]
        refused = sectiondb(*arguments, password="wrong")
        self.assertEqual(refused.returncode, 1, refused.stderr)
        self.assertEqual(page.read_text(), "the earlier page")
        written = sectiondb(*arguments, password="secret")
        self.assertEqual(written.returncode, 0, written.stderr)
        self.assertIn("not protected", written.stderr)
        self.open(page)
        self.assertIn("not protected", self.text("#warning"))
        self.assertIn("American", self.text("#warning"))
        self.open(self.page)
        self.assertFalse(self.browser.find_element(By.ID, "warning").is_displayed())

    def test_refuses_what_is_no_page(self):
        catalogue = self.folder / "AISCSections.db3"
        for arguments, status, message in [
            (["--output", catalogue], 2, "ends with .html"),
            (["Martian", "--output", "x.html"], 1, 'no catalogue "Martian"'),
            (["--output", self.folder / "none" / "x.html"], 1, "No such file or directory"),
            (["--output", "x.html", "--folder", self.folder / "none"], 1, "no sections for the page"),
            ([], 2, "--output is required"),
        ]:
            folder = [] if "--folder" in arguments else ["--folder", self.folder]
            outcome = sectiondb("page", *arguments, *folder)
            self.assertEqual(outcome.returncode, status, outcome.stderr)
            self.assertIn(message, outcome.stderr)
        self.assertTrue(catalogue.read_bytes().startswith(b"SQLite format 3"))


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1] + sys.argv[4:], verbosity=2)
