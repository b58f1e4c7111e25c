"""Picks the lightest I shape for a simply supported floor beam, in cells as a notebook has them.

    python3 pick_beam.py [SPAN LOAD]    in m and kN/m, the load at service
"""

# %% What is wanted: strength at the design load, and a deflection of span/300 at the service load.
import sys

import sectiondb

span, load = (float(text) for text in sys.argv[1:3]) if len(sys.argv) > 2 else (7.2, 18.0)
span *= 1000  # mm; the load is in N/mm
strength, stiffness = 355.0, 210_000.0  # N/mm^2, of steel S355

# %% Every figure as a plain number in mm and N.
european = sectiondb.open("European", sectiondb.METRIC)
shapes = european.family("IPE Shape")
print(shapes, *shapes.standards, sep=", ")


# %% Both with the beam's own weight.
def design_moment(shape):
    return (1.45 * load + 1.35 * shape.weight) * span**2 / 8


def deflection(shape):
    return 5 / 384 * (load + shape.weight) * span**4 / (stiffness * shape.IZ)


# %% Those that do, by weight. A notebook shows them as a table.
candidates = shapes.where(
    "D < 700 mm",
    lambda shape: design_moment(shape) <= strength * shape.ZZ,
    lambda shape: deflection(shape) <= span / 300,
).sort("weight")
if not candidates:
    sys.exit("No shape is strong and stiff enough.")

# %% The lightest one; a notebook shows it with its drawing.
beam = candidates[0]
print(f"{beam.name}: {beam.quantity('weight'):.1f}, {beam.depth:g} mm deep")
print(f"  moment {design_moment(beam) / 1e6:.1f} of {strength * beam.ZZ / 1e6:.1f} kN m")
print(f"  deflection {deflection(beam):.1f} of {span / 300:.1f} mm")

# %% Where its figures come from.
print(f"  {beam.origin.standard}; plastic modulus {beam.source('ZZ')}")
