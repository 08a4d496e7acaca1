#!/usr/bin/env python3
"""Makes an atlas, follows all its links, and opens some of its pages in a headless Chromium:

    atlas_test.py LOMAR
"""

import re
import subprocess
import sys
import tempfile
import time
import unittest
from html.parser import HTMLParser
from pathlib import Path

from chromium import Chromium

LOMAR = Path(sys.argv[1]).resolve()
VOID = {"meta", "input", "br", "link"}


class Checker(HTMLParser):
    """Notes elements that don't end where they should, and ids that are there twice."""

    def __init__(self):
        super().__init__()
        self.open = []
        self.ids = set()
        self.faults = []

    def handle_starttag(self, tag, attrs):
        identity = dict(attrs).get("id")
        if identity in self.ids:
            self.faults.append(f"id {identity} twice")
        if identity:
            self.ids.add(identity)
        if tag not in VOID:
            self.open.append(tag)

    def handle_startendtag(self, tag, attrs):
        self.handle_starttag(tag, attrs)
        # Outside a drawing HTML knows no empty elements.
        if tag not in VOID:
            self.open.pop()
            if "svg" not in self.open:
                self.faults.append(f"<{tag}/>")

    def handle_endtag(self, tag):
        if not self.open or self.open.pop() != tag:
            self.faults.append(f"</{tag}> at {self.getpos()}")


class AtlasTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.TemporaryDirectory()
        cls.atlas = Path(cls.folder.name)
        start = time.monotonic()
        subprocess.run([LOMAR, "atlas", cls.atlas], check=True, stdout=subprocess.DEVNULL)
        cls.seconds = time.monotonic() - start
        cls.pages = sorted(cls.atlas.rglob("*.html"))  # the list first
        cls.browser = Chromium(cls.atlas)

    @classmethod
    def tearDownClass(cls):
        cls.browser.close()
        cls.folder.cleanup()

    def tearDown(self):
        self.assertEqual(self.browser.console(), [])

    def open(self, path):
        self.browser.open((self.atlas / path).as_uri())

    def test_time_and_size(self):
        size = sum(page.stat().st_size for page in self.pages) / 1e6
        print(f"{len(self.pages)} pages, {self.seconds:.0f} s, {size:.0f} MB")
        self.assertEqual(len(self.pages), 558 + 1651 + 1)
        self.assertLess(self.seconds, 60)
        self.assertLess(size, 200)

    def test_every_link_leads_to_a_page(self):
        known = {page.relative_to(self.atlas).as_posix() for page in self.pages}
        linked = set()
        for page in self.pages:
            folder = page.parent.name if page.parent != self.atlas else ""
            for target in re.findall(r' href="([^"#]+)"', page.read_text()):
                path = target[3:] if target.startswith("../") else target
                self.assertEqual(target.startswith("../"), folder != "", f"{page}: {target}")
                linked.add(path)
        self.assertEqual(linked - known, set())
        self.assertEqual(known - linked, set(), "pages that no link leads to")

    def test_markup(self):
        for page in self.pages[::40] + [self.atlas / "index.html"]:
            checker = Checker()
            checker.feed(page.read_text())
            self.assertEqual((checker.faults, checker.open), ([], []), page)
            self.assertNotRegex(page.read_text(), r'(src|href)="(https?:)?//')

    def found(self, words):
        return self.browser.run("""const field = document.getElementById('words');
            field.value = arguments[0]; field.dispatchEvent(new Event('input'));
            return Array.from(document.querySelectorAll('tbody tr:not([hidden])'),
                row => row.querySelector('a').textContent)""", words)

    def test_search(self):
        self.open("index.html")
        self.assertEqual(len(self.found("")), 558 + 1651)
        for words, name in [("P21/c", "P 1 21/c 1"), ("p 21/c", "P 1 21/c 1"), ("Cmca", "C m c a"),
                            ("C2h^5", "P 1 21/n 1"), ("-P 2ybc", "P 1 21/c 1"),
                            ("14.79", "P2_1'/c'"), ("P_a2_1/c", "P_a2_1/c")]:
            self.assertIn(name, self.found(words), words)
        spaces = [name for name in self.found("227") if " " in name]
        self.assertEqual(spaces, ["F d -3 m:1", "F d -3 m:2"])
        cubic = self.found("cubic m-3m")
        self.assertIn("P m -3 m", cubic)
        self.assertNotIn("P m -3", cubic)
        self.assertEqual(self.found("no such group"), [])
        self.assertEqual(self.browser.find("#count").text, "0 of 2209 groups")

    def test_pages_in_a_browser(self):
        self.browser.width(360)
        for page in self.pages[1::150]:
            self.open(page.relative_to(self.atlas))
            self.assertLessEqual(self.browser.run("return document.documentElement.scrollWidth"),
                                 360, page)
            marked = self.browser.run("""
                const row = document.querySelector('[data-operator]:nth-child(2)') ||
                    document.querySelector('[data-operator]');
                row.dispatchEvent(new PointerEvent('pointerover', {bubbles: true}));
                return Array.from(document.querySelectorAll('svg .pointed'), item =>
                    item.dataset.operators.split(';').includes(row.dataset.operator))""")
            self.assertTrue(marked and all(marked), page)
        self.browser.command("Emulation.clearDeviceMetricsOverride")

    def test_pages_without_scripts(self):
        self.browser.command("Emulation.setScriptExecutionDisabled", value=True)
        try:
            self.open("settings/014_P_1_21-c_1.html")
            self.assertEqual(self.browser.find("h1").text.replace("\n", ""), "P 1 21/c 1")
            self.assertEqual(len(self.browser.find_all("#operators-table tbody tr")), 4)
            self.assertEqual(len(self.browser.find_all("figure svg")), 4)
            self.open("index.html")
            self.assertEqual(len(self.browser.find_all("tbody tr")), 558 + 1651)
        finally:
            self.browser.command("Emulation.setScriptExecutionDisabled", value=False)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=2)
