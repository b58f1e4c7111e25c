#!/usr/bin/python3
"""Exported spreadsheets, read as other programs read them:
    tests/spreadsheet_test.py SECTIONDB DATA-FOLDER
Status 77: the reader (openpyxl) is not installed."""
import csv
import math
import shutil
import sqlite3
import subprocess
import sys
import unittest

try:
    import openpyxl
except ImportError:
    sys.exit(77)

from program_case import ProgramCase
NAMES, UNITS, FIRST = 3, 4, 5  # rows


class Spreadsheet(ProgramCase):
    stems = ("AISCSections", "EuropeanSections")

    def export(self, *arguments):
        file = self.folder / "sections.xlsx"
        self.output_of("export", "xlsx", *arguments, "--output", file)
        return openpyxl.load_workbook(file)

    def row_of(self, sheet, name):
        head = [cell.value for cell in sheet[NAMES]]
        row = next(row for row in sheet.iter_rows(min_row=FIRST) if row[0].value == name)
        return dict(zip(head, row))

    def test_has_a_titled_sheet_for_each_family(self):
        book = self.export("European", "IPE Shape", "Bulb Flat")
        self.assertEqual(book.sheetnames, ["IPE Shape", "Bulb Flat"])
        sheet = book["IPE Shape"]
        self.assertEqual(sheet["A1"].value, "European, IPE Shape: EN 10365:2017 (rolled)")
        self.assertEqual(sheet.freeze_panes, "B5")
        last = f"{sheet.cell(UNITS, sheet.max_column).column_letter}{sheet.max_row}"
        self.assertEqual(sheet.auto_filter.ref, f"A4:{last}")

    def test_is_whole_or_refused_where_the_disk_is_nearly_full(self):
        disk, file = self.folder / "disk", self.folder / "whole.xlsx"
        disk.mkdir()
        ends = set()
        for size in ("1000k", "2300k", "2500k", "3500k", "9000k"):
            mounted = subprocess.run(["mount", "-t", "tmpfs", "-o", f"size={size}", "tmpfs", disk],
                                     capture_output=True, check=False)
            if mounted.returncode != 0:
                self.skipTest("no disk of a small size can be mounted")
            try:
                run = self.run_program("export", "xlsx", "American", "-o", file, TMPDIR=str(disk))
            finally:
                subprocess.run(["umount", disk], check=True)
            ends.add(run.returncode)
            if run.returncode == 0:
                for sheet in openpyxl.load_workbook(file, read_only=True):
                    self.assertGreater(sum(1 for _ in sheet.iter_rows()), 0)
                file.unlink()
            else:
                self.assertIn("full; name another folder by TMPDIR", run.stderr)
                self.assertFalse(file.exists())
        self.assertEqual(ends, {0, 1})

    def test_has_the_printed_figures_as_numbers(self):
        book = self.export("European", "IPE Shape", "Bulb Flat")
        beam = self.row_of(book["IPE Shape"], "IPE 300")
        printed = {"AX": 53.8, "D": 300, "BF": 150, "TF": 10.7, "TW": 7.1, "IZ": 8356, "IY": 603.8}
        for column, figure in printed.items():
            self.assertAlmostEqual(beam[column].value, figure, delta=0.001 * figure, msg=column)
            self.assertEqual(beam[column].data_type, "n")
            self.assertFalse(beam[column].font.i)
        self.assertTrue(beam["SZ"].font.i)
        self.assertAlmostEqual(beam["SZ"].value, 557.1, delta=0.5)
        units = self.row_of(book["IPE Shape"], "IPE 300")["IZ"].column
        self.assertEqual(book["IPE Shape"].cell(UNITS, units).value, "cm^4")
        self.assertIsNone(self.row_of(book["Bulb Flat"], "HP 60 x 4")["SY"].value)

    def test_agrees_with_select_cell_by_cell(self):
        for catalogue, family, *options in (("European", "Angle"),
                                            ("American", "W Shape", "--length", "mm")):
            with self.subTest(family=family):
                sheet = self.export(catalogue, family, *options)[family]
                head, units = ([cell.value or "" for cell in sheet[row]] for row in (NAMES, UNITS))
                # without units of weights and surfaces, which select converts, too
                places = [i for i, unit in enumerate(units) if "/" not in unit]
                printed = self.output_of("select", catalogue, family, "--csv", *options,
                                         "--columns", ",".join(head[i] for i in places if i > 1))
                names, kept, *rows = csv.reader(printed.splitlines())
                self.assertEqual([head[i] for i in places], names[:-1])
                self.assertEqual([units[i] for i in places], kept[:-1])
                cells = [[row[i] for i in places] for row in sheet.iter_rows(min_row=FIRST,
                                                                             values_only=True)]
                self.assertEqual(len(cells), len(rows))
                for shown, row in zip(cells, rows):
                    self.assertEqual(shown[:2], row[:2])
                    for value, text in zip(shown[2:], row[2:]):
                        self.assertEqual(value is None, text == "", row)
                        if value is not None:
                            self.assertTrue(math.isclose(value, float(text), rel_tol=1e-10), row)

    def test_calls_properties_as_the_chosen_standard_does(self):
        sheet = self.export("European", "IPE Shape", "--symbols", "eurocode")["IPE Shape"]
        beam = self.row_of(sheet, "IPE 300")
        self.assertEqual((beam["Iy"].value, beam["Wpl,y"].value), (8360, 628))
        self.assertIn("y the major axis", sheet["A2"].value)

    def test_takes_any_name(self):
        own = self.folder / "own.db3"
        self.output_of("user", "create", own)
        names = ["=1+1", 'P "1" <&>', "Ø60×5 \u2028\U0001F600", "P\x01\x1b[31m", "L" * 40000]
        for number, name in enumerate(names):
            self.output_of("user", "add", own, "Pipe", f"P{number}", f"OD={100 + number}", "T=5")
            with sqlite3.connect(own) as database:
                database.execute("UPDATE Pipe SET Name = ? WHERE Name = ?", (name, f"P{number}"))
        sheet = self.export("own", "Pipe", "--user", own)["Pipe"]
        cells = [row[0] for row in sheet.iter_rows(min_row=FIRST)]
        self.assertEqual([cell.value for cell in cells],
                         [*names[:2], "Ø60×5  \U0001F600", "P  [31m", "L" * 32767])
        self.assertEqual({cell.data_type for cell in cells}, {"s"})

    def test_of_all_catalogues_has_sheets_of_their_own(self):
        names = self.export("all").sheetnames
        self.assertLessEqual({"American W Shape", "European IPE Shape"}, set(names))
        self.assertEqual(len({name.lower() for name in names}), len(names))
        self.assertTrue(all(len(name) <= 31 for name in names))

    @unittest.skipUnless(shutil.which("soffice"), "LibreOffice is not installed")
    def test_is_read_by_libreoffice(self):
        written = self.export("European")
        copies = self.folder / "copies"
        subprocess.run(["soffice", f"-env:UserInstallation={(self.folder / 'office').as_uri()}",
                        "--headless", "--convert-to", "xlsx", "--outdir", copies,
                        self.folder / "sections.xlsx"], check=True, capture_output=True)
        copied = openpyxl.load_workbook(copies / "sections.xlsx")
        self.assertEqual(written.sheetnames, copied.sheetnames)
        compared = 0
        for sheet in written:
            for row in sheet.iter_rows():
                for cell in row:
                    other = copied[sheet.title][cell.coordinate].value
                    if isinstance(cell.value, (int, float)):
                        self.assertTrue(math.isclose(cell.value, other, rel_tol=1e-13), cell)
                        compared += 1
                    else:
                        self.assertEqual(cell.value, other, cell)
        self.assertGreater(compared, 30000)


unittest.main(argv=sys.argv[:1])
