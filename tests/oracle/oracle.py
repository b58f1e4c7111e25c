#!/usr/bin/python3
"""Sections of the catalogues against finite elements: torsion, warping and shear center of the
outlines that the program draws.
    tests/oracle/oracle.py SECTIONDB DATA-FOLDER [--write TABLE.csv]
Of every model of shapes that the catalogues use a small, a middle and a large section are taken.
Fails where a figure is further away than bounds.csv allows its model, or where the mesh is too coarse
to tell. --write keeps the deviations for the page of validation.
Status 77: gmsh, scipy or ezdxf is not installed."""
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
    """The model of every table whose rows are of one family: (model, catalogue's stem, table)."""
    models = {row["Family"]: row["Geometry"] for row in rows_of(data / "families" / "_families.csv")}
    for folder in sorted(data.iterdir()):
        if (folder / "_tables.csv").exists():
            for row in rows_of(folder / "_tables.csv"):
                if models.get(row["Families"]):
                    yield models[row["Families"]], folder.name, row["Table"]


def by_area(folder, stem, table):
    with sqlite3.connect(folder / f"{stem}.db3") as catalogue:
        columns = [row[1] for row in catalogue.execute(f'PRAGMA table_info("{table}")')]
        area = next((column for column in columns if column in ("AX", "Area")), "RECNO")
        return [name for name, in catalogue.execute(f'SELECT Name FROM "{table}" ORDER BY "{area}"')]


def chosen(data, folder):
    """Of the largest table of each model the smallest, the middle and the largest section."""
    largest = {}
    for model, stem, table in models_and_tables(data):
        names = by_area(folder, stem, table)
        if len(names) > len(largest.get(model, ("", "", []))[2]):
            largest[model] = stem, table, names
    for model, (stem, table, names) in sorted(largest.items()):
        for size, place in zip(SIZES, (0, len(names) // 2, -1)):
            yield model, size, stem, table, names[place]


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
        return figures

    def solution_of(self, stem, table, name):
        drawing = str(pathlib.Path(self.folder) / "drawing.dxf")
        self.output_of("draw", stem, name, "--family", table, "--dxf", drawing)
        loops = section_mesh.loops_of(drawing)
        size = section_mesh.thickness_of(loops)
        coarse, fine = (torsion.properties(*section_mesh.mesh_of(loops, part * size)) for part in (0.5, 0.25))
        change = 100 * abs(coarse.torsion / fine.torsion - 1)
        if change > CONVERGED:
            sys.exit(f"{stem} {name}: the mesh is too coarse, its torsion constant changes by {change:.2f} %")
        return fine

    def deviations_of(self, stem, table, name):
        """Of each column where the figure comes from, and how far in percent it is from the solution."""
        figures, solution = self.figures_of(stem, table, name), self.solution_of(stem, table, name)
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


def main(program, data, *options):
    data, allowed, beyond, table_rows = pathlib.Path(data), bounds(), 0, []
    with tempfile.TemporaryDirectory() as folder:
        subprocess.run([program, "build", data, "-o", folder], check=True, capture_output=True)
        oracle = Oracle(program, folder)
        for model, size, stem, table, name in chosen(data, pathlib.Path(folder)):
            for column, source, deviation in oracle.deviations_of(stem, table, name):
                bound = allowed.get((model, column), allowed["", column])
                beyond += abs(deviation) > bound
                note = f"  beyond {bound} %" if abs(deviation) > bound else ""
                print(f"{model:26} {size:7} {name:24} {column:13} {source:10} {deviation:8.2f} %{note}", flush=True)
                table_rows.append([model, size, stem, table, name, column, source, f"{deviation:.2f}".replace("-0.00", "0.00")])
    if options[:1] == ("--write",):
        with open(options[1], "w", newline="", encoding="utf-8") as text:
            csv.writer(text, lineterminator="\n").writerows([FIELDS, *table_rows])
    print(f"{len(table_rows)} figures, {beyond} beyond their bounds")
    return 1 if beyond else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
