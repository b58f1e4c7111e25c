"""Catalogues of standard structural cross-sections, with units.

>>> import sectiondb
>>> beam = sectiondb.open("American")["W12X26"]
>>> beam.IZ
Quantity(204.0, 'in^4')
>>> beam.IZ.to("cm^4")
Quantity(8491.122..., 'cm^4')
>>> beam.origin.standard
'AISC Steel Construction Manual, 16th Edition'

Plain numbers in a system of units, and filters:

>>> european = sectiondb.open("European", sectiondb.METRIC)
>>> european.where("major_plastic_modulus >= 1200 cm^3", "depth < 450 mm").sort("weight")[0]
<IPE 400 (European, IPE Shape)>

A catalogue is a picture of its file when it was opened; it never changes, and any number of threads
may read it. Failures raise Error, whose text says what to do.
"""

from . import _native
from ._catalogue import Catalogue, Family, Sections
from ._errors import Error, NoFigure, NotFound
from ._export import axes
from ._library import Change, Hit, UserFile, catalogues, find, open
from ._section import Alias, Column, Origin, Section
from ._units import METRIC, SI, US, Quantity, System

__version__ = _native.version()

__all__ = [
    "METRIC",
    "SI",
    "US",
    "Alias",
    "Catalogue",
    "Change",
    "Column",
    "Error",
    "Family",
    "Hit",
    "NoFigure",
    "NotFound",
    "Origin",
    "Quantity",
    "Section",
    "Sections",
    "System",
    "UserFile",
    "axes",
    "catalogues",
    "find",
    "open",
]
