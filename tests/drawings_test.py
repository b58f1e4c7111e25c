#!/usr/bin/python3
"""Drawings of a section of every family, read as a CAD program and a browser read them:
    tests/drawings_test.py SECTIONDB DATA-FOLDER
Status 77: the CAD reader (ezdxf) is not installed."""
import csv
import json
import sqlite3
import sys
import unittest
import xml.etree.ElementTree as xml

try:
    import ezdxf
    from ezdxf.path import make_path
except ImportError:
    sys.exit(77)

from program_case import ProgramCase


def area_of(points):
    following = points[1:] + points[:1]
    return sum(a.x * b.y - a.y * b.x for a, b in zip(points, following)) / 2


class Drawings(ProgramCase):
    def table(self, *arguments):
        return list(csv.DictReader(self.output_of("list", *arguments, "--csv").splitlines()))

    def area_in_dxf(self, path):
        document = ezdxf.readfile(path)
        self.assertFalse(document.audit().has_errors)
        layers = {entity.dxf.layer for entity in document.modelspace()}
        self.assertEqual(layers, {"OUTLINE", "AXES", "DIMENSIONS", "TEXT"})
        return sum(area_of(list(make_path(line).flattening(0.001)))
                   for line in document.modelspace().query("POLYLINE"))

    def draw(self, catalogue, family, name):
        for ending in ("svg", "dxf"):
            file = self.folder / f"drawing.{ending}"
            run = self.run_program("draw", catalogue, name, "--family", family, f"--{ending}", file)
            self.assertEqual(run.returncode, 0, run.stderr)
        shown = json.loads(self.run_program("show", catalogue, name, "--length", "mm",
                                            "--json").stdout)
        section = next(each for each in shown if each["table"] == family)
        area = next(row["value"] for row in section["properties"] if row["column"] in ("AX", "Area"))
        drawn = self.area_in_dxf(self.folder / "drawing.dxf")
        self.assertLess(abs(drawn / area - 1), 0.02)
        svg = xml.parse(self.folder / "drawing.svg")
        texts = [element.text for element in svg.iter("{http://www.w3.org/2000/svg}text")]
        self.assertIn(section["name"], texts)

    def test_of_every_family_show_the_section(self):
        drawn = 0
        for catalogue in self.table():
            if catalogue["number"] == "21" or catalogue["sections"] == "0":
                continue
            for family in self.table(catalogue["number"]):
                sections = self.table(catalogue["number"], family["family"])
                if not sections or "alloy" in family["family"].lower():
                    continue
                name = sections[len(sections) // 3]["name"]
                with self.subTest(catalogue=catalogue["name"], family=family["family"], name=name):
                    self.draw(catalogue["number"], family["family"], name)
                    drawn += 1
        self.assertGreater(drawn, 100)

    def test_in_characters_stand_beside_the_values(self):
        run = self.run_program("draw", "US", "w12 x 26", "--length", "mm")
        lines = run.stdout.splitlines()
        self.assertEqual(lines[0].split(), ["█" * 19, "W12X26"])
        self.assertTrue(any(line.endswith("   D      309.9 mm") for line in lines), run.stdout)

    def test_are_refused_where_they_would_be_wrong(self):
        kept = self.folder / "kept.svg"
        kept.write_text("kept")
        broken = self.folder / "broken"
        broken.mkdir()
        file = broken / "AISCSections.db3"
        file.write_bytes((self.folder / "AISCSections.db3").read_bytes())
        with sqlite3.connect(file) as database:
            database.execute("UPDATE [W Shape] SET AX = 9.65 WHERE Name = 'W12X26'")
        options = ("--folder", broken)
        for arguments, status, message in (
                (("W12X26", "--svg", kept, *options), 1, "area of 4930 mm^2"),
                (("Pipe16XS", "--svg", kept), 1, "area of 14641 mm^2, its row has 14194 mm^2"),
                (("W12X27", "--svg", kept), 1, "did you mean"),
                (("W12X26", "--svg", kept, "--dxf", self.folder / "a.dxf"), 2, "excludes"),
                (("W12X26", "--dxf", kept), 2, "ends with .dxf"),
                (("W12X26", "--svg", broken / "no" / "a.svg"), 1, "cannot be written"),
                (("W12X26", "--length", "cubit"), 2, "is no unit"),
        ):
            with self.subTest(arguments=arguments):
                run = self.run_program("draw", "US", *arguments)
                self.assertEqual(run.returncode, status, run.stderr)
                self.assertIn(message, run.stderr)
                self.assertEqual(kept.read_text(), "kept")


unittest.main(argv=sys.argv[:1])
