"""One section."""

from __future__ import annotations

from typing import TYPE_CHECKING, Any, Generic, NamedTuple, TypeVar

from . import _display, _export, _native
from ._errors import Error, NoFigure, NotFound
from ._units import Quantity

if TYPE_CHECKING:
    from ._catalogue import Catalogue, Family

V = TypeVar("V")


class Column(NamedTuple):
    """A column of a family."""

    name: str
    unit: str  #: in which its figures are given, e.g. ``"in^4"``
    meaning: str
    kept_unit: str  #: as the file has it
    kind: str  #: ``"text"``, ``"number"``, ``"angle"`` or ``"measure"``


class Origin(NamedTuple):
    """Where sections come from."""

    standard: str  #: with its edition
    remark: str  #: what is printed, what is computed, and how
    left_out: str  #: sections of the standard that are not here, and why
    production: str  #: ``"rolled"``, ``"welded"``, ``"cold-formed"`` ...; empty where it is not told


class Alias(NamedTuple):
    """Another spelling of a section's name."""

    name: str
    is_superseded: bool  #: the standard has given it up


#: The properties by name, with their power of a length; -1 is force/length.
PROPERTIES = {
    **dict.fromkeys(("depth", "width", "flange_thickness", "web_thickness", "thickness"), 1),
    **dict.fromkeys(("major_radius", "minor_radius", "centroid_height", "centroid_offset"), 1),
    "area": 2,
    **dict.fromkeys(("major_plastic_modulus", "minor_plastic_modulus"), 3),
    **dict.fromkeys(("major_elastic_modulus", "minor_elastic_modulus"), 3),
    **dict.fromkeys(("major_inertia", "minor_inertia", "torsion_constant"), 4),
    "warping_constant": 6,
    "weight": -1,
}


class Section(Generic[V]):
    """One section: its columns are attributes and items, ``beam.IZ`` or ``beam["IZ"]``.

    A figure is a Quantity, a plain number or a quantity of pint, as its catalogue was opened; of a
    column of texts it is a str, and None where the section has no figure there. ``dir(beam)`` lists
    all columns, ``beam.family.columns`` tells what they mean.

    Axes: the major axis is that about which the section is stiffer as it stands, the minor axis is
    square to it. A property that the section does not have raises NoFigure.
    """

    __slots__ = ("_family", "native")

    def __init__(self, native: _native.Section, family: Family[V]) -> None:
        self.native = native
        self._family = family

    @property
    def name(self) -> str:
        """The name, as the standard prints it."""
        return self.native.name

    @property
    def program_name(self) -> str:
        """The name, as analysis programs write it."""
        return self.native.program_name

    @property
    def record_number(self) -> int:
        """The number of its row in the file."""
        return self.native.record_number

    @property
    def family(self) -> Family[V]:
        """The shape family, e.g. W shapes."""
        return self._family

    @property
    def catalogue(self) -> Catalogue[V]:
        """The catalogue."""
        return self._family.catalogue

    # Where it comes from.

    @property
    def origin(self) -> Origin | None:
        """Standard and edition; None where the file does not tell."""
        parts = self.native.origin
        return None if parts is None else Origin(*parts)

    @property
    def aliases(self) -> list[Alias]:
        """Other spellings of the name."""
        return [Alias(*alias) for alias in self.native.aliases]

    @property
    def is_changed(self) -> bool:
        """Whether somebody changed names or figures since the file was built."""
        return self.native.is_changed

    def source(self, column: str) -> str:
        """Where a figure comes from.

        ``"published"``, ``"corrected"`` (in place of a misprint), ``"computed"`` (from the
        dimensions), ``"not published"``, or ``"unknown"``.
        """
        return self.native.source(self._family.column(column).name)

    # Properties, whatever their columns are called.

    @property
    def area(self) -> V:
        """Cross-sectional area, in length^2."""
        return self._property("area")

    @property
    def depth(self) -> V:
        """Depth, a length; of round sections the diameter, of angles the longer leg."""
        return self._property("depth")

    @property
    def width(self) -> V:
        """Width, a length; of flanged sections that of the flange."""
        return self._property("width")

    @property
    def flange_thickness(self) -> V:
        """Thickness of the flange, a length."""
        return self._property("flange_thickness")

    @property
    def web_thickness(self) -> V:
        """Thickness of the web, a length."""
        return self._property("web_thickness")

    @property
    def thickness(self) -> V:
        """Thickness of walls and legs, a length."""
        return self._property("thickness")

    @property
    def major_inertia(self) -> V:
        """Moment of inertia about the major axis, in length^4."""
        return self._property("major_inertia")

    @property
    def minor_inertia(self) -> V:
        """Moment of inertia about the minor axis, in length^4."""
        return self._property("minor_inertia")

    @property
    def torsion_constant(self) -> V:
        """St. Venant's torsion constant, in length^4."""
        return self._property("torsion_constant")

    @property
    def warping_constant(self) -> V:
        """Warping constant, in length^6."""
        return self._property("warping_constant")

    @property
    def major_plastic_modulus(self) -> V:
        """Plastic section modulus about the major axis, in length^3."""
        return self._property("major_plastic_modulus")

    @property
    def minor_plastic_modulus(self) -> V:
        """Plastic section modulus about the minor axis, in length^3."""
        return self._property("minor_plastic_modulus")

    @property
    def major_elastic_modulus(self) -> V:
        """Elastic section modulus about the major axis, at the extreme fibre, in length^3."""
        return self._property("major_elastic_modulus")

    @property
    def minor_elastic_modulus(self) -> V:
        """Elastic section modulus about the minor axis, at the extreme fibre, in length^3."""
        return self._property("minor_elastic_modulus")

    @property
    def major_radius(self) -> V:
        """Radius of gyration about the major axis, a length."""
        return self._property("major_radius")

    @property
    def minor_radius(self) -> V:
        """Radius of gyration about the minor axis, a length."""
        return self._property("minor_radius")

    @property
    def centroid_height(self) -> V:
        """The centroid from the face that the column CY tells, a length."""
        return self._property("centroid_height")

    @property
    def centroid_offset(self) -> V:
        """The centroid from the face that the column CZ tells, a length."""
        return self._property("centroid_offset")

    @property
    def weight(self) -> V:
        """Weight of steel or aluminium, in force/length."""
        return self._property("weight")

    @property
    def principal_angle(self) -> float:
        """Degrees from the major axis to the stiffest one, counter-clockwise as it is drawn."""
        try:
            return self.native.principal_angle
        except NotFound as error:
            raise NoFigure(str(error)) from None

    # Columns.

    def __getattr__(self, name: str) -> V | Any:
        """Columns, and what remains of a property that the section does not have."""
        if name.startswith("_"):
            raise AttributeError(name)
        if not self._family.has_column(name):
            known = ", ".join(column.name for column in self._family.columns)
            raise NoFigure(f"{self!r} has no {name}; its columns are {known}.")
        return self[name]

    def __getitem__(self, column: str) -> V | Any:
        return self._given(self._family.column(column))

    def __dir__(self) -> list[str]:
        return [*super().__dir__(), *(column.name for column in self._family.columns)]

    def _ipython_key_completions_(self) -> list[str]:
        return [column.name for column in self._family.columns]

    def quantity(self, name: str) -> Quantity | None:
        """A column or property with its unit, however the catalogue was opened.

        None where the section has no figure there. Raises NotFound for a name that is neither.
        """
        if name in PROPERTIES:
            try:
                return self._property_quantity(name)
            except NoFigure:
                if not self._family.has_column(name):
                    return None
        column = self._family.column(name)
        kept = self.native.kept(column.name)
        if isinstance(kept, str):
            raise NotFound(f"{column.name} of {self!r} is a text.")
        return None if kept is None else Quantity(kept, _native.label(column.kept_unit))

    def figures(self, symbols: str = "program") -> dict[str, Quantity]:
        """All that is kept of it and follows from that, by symbol, with units.

        >>> beam.figures("aisc")["J"], beam.figures("eurocode")["IT"]

        ``symbols`` are ``"program"``, ``"aisc"`` or ``"eurocode"``: the same letters stand for
        different axes there (see axes()).
        """
        return {
            symbol: Quantity(figure, _native.label(unit))
            for symbol, figure, unit in _native.figures(self.native, symbols)
        }

    def export(self, format: str, *, length: str | None = None, symbols: str = "program") -> bytes:
        """The file for another program: IFC, a solver's deck, a spreadsheet.

        >>> Path("beam.ifc").write_bytes(beam.export("ifc"))

        ``length`` is ``"mm"`` or ``"in"``; without it mm, and in spreadsheets the units of the
        catalogue. Raises Error where the section lacks what the format needs, and ValueError for an
        unknown format, naming all.
        """
        return _export.export([self], format, length, symbols, may_leave_out=False)

    def _given(self, column: Column) -> V | Any:
        kept = self.native.kept(column.name)
        if isinstance(kept, float):
            return self.catalogue.presentation.value(kept, column.kept_unit)
        return kept

    def _property(self, name: str) -> V:
        quantity = self._property_quantity(name)
        value: V = self.catalogue.presentation.value(quantity.figure, quantity.unit)
        return value

    def _property_quantity(self, name: str) -> Quantity:
        unit = self._family.property_unit(PROPERTIES[name])
        try:
            return Quantity(self.native.property(name, unit), unit)
        except NotFound as error:
            raise NoFigure(str(error)) from None

    # Notebooks and prints.

    def __repr__(self) -> str:
        return f"<{self.name} ({self.catalogue.name}, {self._family.name})>"

    def __eq__(self, other: object) -> bool:
        return isinstance(other, Section) and self._key() == other._key()

    def __hash__(self) -> int:
        return hash(self._key())

    def _key(self) -> tuple[str, str, int]:
        return self.catalogue.path, self._family.name, self.record_number

    def svg(self) -> str:
        """The section drawn to scale with its figures. Raises Error where they tell no shape."""
        values = [(column.name, self._printed(column)) for column in self._family.columns]
        subtitle = f"{self.catalogue.name}, {self._family.name}"
        return self.native.svg(self.name, subtitle, [each for each in values if each[1]])

    def _printed(self, column: Column) -> str:
        kept = self.native.kept(column.name)
        if isinstance(kept, float):
            return str(Quantity(kept, _native.label(column.kept_unit)))
        return kept or ""

    def _repr_svg_(self) -> str | None:
        try:
            return self.svg()
        except Error:
            return None

    def _repr_html_(self) -> str:
        return _display.section_html(self)
