#!/usr/bin/python3
"""Sections of the catalogues against finite elements: torsion, warping and shear center of the
outlines that the program draws.
    tests/oracle/oracle.py SECTIONDB DATA-FOLDER... [--write TABLE.csv]
Of every model of shapes that the sources use a small, a middle and a large section are taken.
Fails where a figure is further away than bounds.csv allows its model, or where the mesh is too coarse
to tell. --write keeps the deviations for the page of validation.
Status 77: gmsh, scipy or ezdxf is not installed."""
import argparse
import csv
import json
import math
import pathlib
import sqlite3
import subprocess
import sys
import tempfile

try:
    import section_mesh
    import torsion
except ImportError:
    sys.exit(77)

COLUMNS = {"AX": "area", "IZ": "major", "IY": "minor", "IX": "torsion", "CW": "warping"}
CENTER = "shear center"  # its distance, as a share of the polar radius of gyration
SIZES = ("small", "middle", "large")
CONVERGED = 0.2  # percent that the torsion constant may change by, on a mesh twice as fine
FIELDS = ["Model", "Size", "Catalogue", "Table", "Section", "Column", "Source", "Deviation"]


def rows_of(path):
    with open(path, newline="", encoding="utf-8") as text:
        return list(csv.DictReader(text))


def models_and_tables(data):
    """The model of every table whose rows are of one: (model, catalogue's stem, table)."""
    models = {row["Family"]: row["Geometry"] for row in rows_of(data / "families" / "_families.csv")}
    for folder in sorted(data.iterdir()):
        if (folder / "_tables.csv").exists():
            for row in rows_of(folder / "_tables.csv"):
                model, *others = {models[family] for family in row["Families"].split(";") if family}
                if model and not others:
                    yield model, folder.name, row["Table"]


def by_area(folder, stem, table):
    with sqlite3.connect(folder / f"{stem}.db3") as catalogue:
        columns = [row[1] for row in catalogue.execute(f'PRAGMA table_info("{table}")')]
        area = next((column for column in columns if column in ("AX", "Area")), "RECNO")
        return [name for name, in catalogue.execute(f'SELECT Name FROM "{table}" ORDER BY "{area}"')]


def chosen(data, folder):
    """Of the largest table of each model the smallest, the middle and the largest section, and those
    that may stand in their places."""
    largest = {}
    for model, stem, table in models_and_tables(data):
        names = by_area(folder, stem, table)
        if len(names) > len(largest.get(model, ("", "", []))[2]):
            largest[model] = stem, table, names
    for model, (stem, table, names) in sorted(largest.items()):
        for size, candidates in zip(SIZES, (names, names[len(names) // 2:], names[::-1])):
            yield model, size, stem, table, candidates


class Oracle:
    def __init__(self, program, folder):
        self.program, self.folder = program, folder

    def output_of(self, *arguments):
        run = subprocess.run([self.program, *arguments, "--folder", self.folder], text=True,
                             capture_output=True, check=False)
        if run.returncode != 0:
            sys.exit(run.stderr.strip())
        return run.stdout

    def figures_of(self, stem, table, name):
        """Of each column the value in mm, and whether it is published or computed."""
        shown = json.loads(self.output_of("show", stem, name, "--length", "mm", "--json"))
        section = next(each for each in shown if each["table"] == table)
        figures = {row["column"]: (row["value"], row["source"]) for row in section["properties"]}
        if "I" in figures:
            figures["IZ"] = figures["IY"] = figures["I"]
        if "Area" in figures:
            figures["AX"] = figures["Area"]
        return figures

    def outline_of(self, stem, table, names):
        """The first of the sections whose outline does not cross itself, as those of a few do whose
        printed toes are larger than their tips."""
        drawing = str(pathlib.Path(self.folder) / "drawing.dxf")
        for name in names:
            self.output_of("draw", stem, name, "--family", table, "--dxf", drawing)
            loops = section_mesh.loops_of(drawing)
            if not any(map(section_mesh.turns_back, loops)):
                return name, loops
        sys.exit(f"{stem}, {table}: no outline that can be meshed")

    def solution_of(self, name, loops):
        size = section_mesh.thickness_of(loops)
        coarse, fine = (torsion.properties(*section_mesh.mesh_of(loops, part * size)) for part in (0.5, 0.25))
        change = 100 * abs(coarse.torsion / fine.torsion - 1)
        if change > CONVERGED:
            sys.exit(f"{name}: the mesh is too coarse, its torsion constant changes by {change:.2f} %")
        return fine

    def deviations_of(self, stem, table, name, loops):
        """Of each column where the figure comes from, and how far in percent it is from the solution."""
        figures, solution = self.figures_of(stem, table, name), self.solution_of(name, loops)
        for column, member in COLUMNS.items():
            if column in figures:
                value, source = figures[column]
                yield column, source, 100 * (value / getattr(solution, member) - 1)
        if "EZ" in figures:
            apart = math.dist([figures["EZ"][0], figures["EY"][0]], [solution.shear_z, solution.shear_y])
            yield CENTER, figures["EZ"][1], 100 * apart / solution.radius


def bounds():
    path = pathlib.Path(__file__).with_name("bounds.csv")
    return {(row["Model"], row["Column"]): float(row["Percent"]) for row in rows_of(path)}


def records_of(program, data):
    """What the table tells of the sections of a folder of sources, a line each."""
    with tempfile.TemporaryDirectory() as folder:
        subprocess.run([program, "build", data, "-o", folder], check=True, capture_output=True)
        oracle = Oracle(program, folder)
        for model, size, stem, table, names in chosen(data, pathlib.Path(folder)):
            name, loops = oracle.outline_of(stem, table, names)
            for column, source, deviation in oracle.deviations_of(stem, table, name, loops):
                yield model, size, stem, table, name, column, source, deviation


def arguments():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawTextHelpFormatter)
    parser.add_argument("program")
    parser.add_argument("data", nargs="+", type=pathlib.Path)
    parser.add_argument("--write", metavar="TABLE.csv")
    return parser.parse_args()


def main():
    given, allowed, beyond, lines = arguments(), bounds(), 0, []
    for model, size, *place, column, source, deviation in (
            record for data in given.data for record in records_of(given.program, data)):
        bound = allowed.get((model, column), allowed["", column])
        is_beyond = not abs(deviation) <= bound
        beyond += is_beyond
        note = f"  beyond {bound} %" if is_beyond else ""
        print(f"{model:26} {size:7} {place[-1]:24} {column:13} {source:10} {deviation:8.2f} %{note}", flush=True)
        lines.append([model, size, *place, column, source, f"{deviation:.2f}".replace("-0.00", "0.00")])
    if given.write:
        with open(given.write, "w", newline="", encoding="utf-8") as text:
            csv.writer(text, lineterminator="\n").writerows([FIELDS, *lines])
    print(f"{len(lines)} figures, {beyond} beyond their bounds")
    return 1 if beyond or not lines else 0


if __name__ == "__main__":
    sys.exit(main())
