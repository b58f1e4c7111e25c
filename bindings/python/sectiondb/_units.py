"""Figures with their units, and how catalogues give them."""

from __future__ import annotations

import functools
import math
import re
from typing import Any, NamedTuple, Protocol, TypeVar

from . import _native
from ._errors import Error

V = TypeVar("V", covariant=True)


class System(NamedTuple):
    """A unit of length and one of force: every figure is a plain number in their powers.

    Lengths are in, ft, yd, mm, cm, dm, m, km; forces kip, lb, kg, t, N, daN, kN, MN, where kg and t
    are the weights of these masses.
    """

    length: str
    force: str


US = System("in", "kip")
METRIC = System("mm", "N")
SI = System("m", "N")


@functools.total_ordering
class Quantity:
    """A figure in a unit such as ``"in^4"``, ``"kN/m"`` or ``"deg"``; plain numbers have none.

    >>> Quantity(204, "in^4").to("cm^4")
    Quantity(8491.122..., 'cm^4')

    Quantities compare with others of their dimension, and with texts such as ``"8000 cm^4"``.
    """

    __slots__ = ("_figure", "_unit")
    __hash__ = None  # type: ignore[assignment]

    def __init__(self, figure: float, unit: str = "") -> None:
        self._figure = float(figure)
        self._unit = unit

    @property
    def figure(self) -> float:
        """The number in front of the unit."""
        return self._figure

    @property
    def unit(self) -> str:
        """The unit as it is printed, e.g. ``"in^4"``; empty of plain numbers."""
        return self._unit

    @classmethod
    def parse(cls, text: str) -> Quantity:
        """The quantity of a text such as ``"8000 cm^4"``. Raises ValueError."""
        figure, _, unit = text.strip().partition(" ")
        try:
            return cls(float(figure), unit.strip())
        except ValueError:
            raise ValueError(f'"{text}" is no figure with a unit such as "8000 cm^4".') from None

    def in_(self, unit: str) -> float:
        """The figure in another unit of the same dimension. Raises Error."""
        return _native.convert(self._figure, self._unit, unit)

    def to(self, unit: str) -> Quantity:
        """The same in another unit of the same dimension. Raises Error."""
        return Quantity(self.in_(unit), unit)

    def pint(self, registry: Any = None) -> Any:
        """As a quantity of pint, by default of its application's registry."""
        registry = registry or _pint_registry()
        return registry.Quantity(self._figure, _pint_unit(self._unit))

    def _figure_of(self, other: object) -> float | None:
        """Another quantity's figure in this unit."""
        if isinstance(other, str):
            other = Quantity.parse(other)
        elif isinstance(other, (int, float)):
            other = Quantity(other)
        return other.in_(self._unit) if isinstance(other, Quantity) else None

    def __eq__(self, other: object) -> bool:
        """But for the rounding of a conversion."""
        try:
            figure = self._figure_of(other)
        except (Error, ValueError):  # of another dimension
            return False
        return figure is not None and math.isclose(self._figure, figure, rel_tol=1e-12)

    def __lt__(self, other: object) -> bool:
        figure = self._figure_of(other)
        if figure is None:
            raise TypeError(f"{other!r} is no quantity.")
        return self._figure < figure and not math.isclose(self._figure, figure, rel_tol=1e-12)

    def __repr__(self) -> str:
        return f"Quantity({self._figure!r}, {self._unit!r})"

    def __str__(self) -> str:
        return f"{self:.10g}"

    def __format__(self, form: str) -> str:
        return f"{self._figure:{form or '.10g'}} {self._unit}".rstrip()


_PINT_NAMES = {"lb": "pound_force", "kg": "kilogram_force", "t": "metric_ton_force"}


def _pint_registry() -> Any:
    import pint

    return pint.get_application_registry()  # type: ignore[no-untyped-call]


def _pint_unit(unit: str) -> str:
    """pint takes kg, t and lb for masses."""
    names = re.sub("[A-Za-z]+", lambda name: _PINT_NAMES.get(name[0], name[0]), unit)
    return names.replace("deg", "degree").replace(".", "*")


class Presentation(Protocol[V]):
    """How a catalogue gives its figures."""

    def unit(self, kept: str) -> str:
        """The printed unit in which figures of a kept unit are given."""

    def value(self, figure: float, kept: str) -> V:
        """What a figure in a kept unit is given as."""


class AsQuantities:
    """With their units, as the catalogue keeps them."""

    def unit(self, kept: str) -> str:
        return _native.label(kept)

    def value(self, figure: float, kept: str) -> Quantity:
        return Quantity(figure, self.unit(kept))


class AsPint:
    """As quantities of pint, in the catalogue's units."""

    def __init__(self) -> None:
        self._registry = _pint_registry()

    def unit(self, kept: str) -> str:
        return _native.label(kept)

    def value(self, figure: float, kept: str) -> Any:
        return Quantity(figure, self.unit(kept)).pint(self._registry)


class AsNumbers:
    """As plain numbers, in the powers of a length and a force; angles are in degrees."""

    def __init__(self, system: System) -> None:
        self._system = System(*system)
        self._units: dict[str, str] = {}
        self.unit("mm")

    def unit(self, kept: str) -> str:
        if kept not in self._units:
            label = _native.label_in(kept, *self._system)
            self._units[kept] = "deg" if label == "rad" else label
        return self._units[kept]

    def value(self, figure: float, kept: str) -> float:
        unit = self.unit(kept)
        if unit == "deg":
            return math.degrees(figure) if _native.label(kept) == "rad" else figure
        if kept == "NUMBER":
            return figure
        return _native.convert(figure, kept or "unknown", unit)


def presentation_of(units: System | tuple[str, str] | str | None) -> Presentation[Any]:
    """That of the argument ``units`` of open(). Raises ValueError."""
    if units is None:
        return AsQuantities()
    if units == "pint":
        return AsPint()
    if isinstance(units, tuple) and len(units) == 2:
        return AsNumbers(System(*units))
    raise ValueError(
        f'units are None, "pint", or a length and a force such as ("mm", "N"), not {units!r}.'
    )
