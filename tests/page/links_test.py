#!/usr/bin/env python3
"""Every page of the project: what it links to or shows is there."""
import pathlib
import re
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
LINK = re.compile(r"\]\(([^)\s]+)\)")


def pages():
    return [page for page in ROOT.rglob("*.md")
            if page.relative_to(ROOT).parts[0] not in ("build", "dist") and "node_modules" not in page.parts]


def anchors(page):
    headings = re.findall(r"^#+ (.+)$", page.read_text(encoding="utf-8"), re.MULTILINE)
    return {re.sub(r"[^\w\- ]", "", heading.lower()).replace(" ", "-") for heading in headings}


class Links(unittest.TestCase):
    def test_lead_somewhere(self):
        found = 0
        for page in pages():
            for link in LINK.findall(page.read_text(encoding="utf-8")):
                if re.match(r"[a-z]+:", link):
                    continue
                found += 1
                name, _, anchor = link.partition("#")
                target = (page.parent / name).resolve() if name else page
                self.assertTrue(target.exists(), f"{page.relative_to(ROOT)}: {link}")
                if anchor:
                    self.assertIn(anchor, anchors(target), f"{page.relative_to(ROOT)}: {link}")
        self.assertGreater(found, 20, "links that were looked at")


if __name__ == "__main__":
    unittest.main()
