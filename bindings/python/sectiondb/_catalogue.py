"""Families and catalogues of sections."""

from __future__ import annotations

import operator
from collections.abc import Callable, Iterable, Iterator, Sequence
from typing import Any, Generic, TypeVar, Union, overload

from . import _conditions, _display, _export, _native
from ._errors import NotFound
from ._section import PROPERTIES, Column, Section
from ._units import Presentation

V = TypeVar("V")

#: A text such as ``"ZZ >= 95.4 in^3"``, or a function of a section.
Condition = Union[str, Callable[[Section[V]], bool]]


class Sections(Sequence[Section[V]]):
    """Sections in their order, of one family or several."""

    def __init__(self, sections: Iterable[Section[V]]) -> None:
        self._sections = list(sections)

    def __len__(self) -> int:
        return len(self._sections)

    @overload
    def __getitem__(self, place: int) -> Section[V]: ...
    @overload
    def __getitem__(self, place: slice) -> Sections[V]: ...
    def __getitem__(self, place: int | slice) -> Section[V] | Sections[V]:
        if isinstance(place, slice):
            return Sections(self._sections[place])
        return self._sections[place]

    @property
    def columns(self) -> tuple[Column, ...]:
        """The columns of their families, each name once."""
        columns: dict[str, Column] = {}
        for family in dict.fromkeys(section.family for section in self):
            for column in family.columns:
                columns.setdefault(column.name, column)
        return tuple(columns.values())

    def where(self, *conditions: Condition[V]) -> Sections[V]:
        """Those that meet all conditions.

        A condition is a text such as ``"ZZ >= 95.4 in^3"`` or ``"depth < 530 mm"``, of a column or a
        property, or a function of a section. A limit without a unit is in that of the figures as
        the catalogue was opened. A section without the figure does not meet the condition; a name
        that no section has raises NotFound.
        """
        chosen = list(self)
        for condition in conditions:
            if isinstance(condition, str):
                comparison = _conditions.parse(condition)
                self._require(comparison.name)
                condition = comparison.meets
            chosen = [section for section in chosen if condition(section)]
        return Sections(chosen)

    def sort(self, by: str, descending: bool = False) -> Sections[V]:
        """By a column or property; sections without the figure come last."""
        self._require(by)
        knowing = [section for section in self if section.family.knows(by)]
        known = [(figure, section) for section in knowing if (figure := section.quantity(by)) is not None]
        known.sort(key=operator.itemgetter(0), reverse=descending)
        ordered = [section for _, section in known]
        having = set(ordered)
        return Sections([*ordered, *(section for section in self if section not in having)])

    def _require(self, name: str) -> None:
        families = {section.family for section in self}
        if families and not any(family.knows(name) for family in families):
            raise NotFound(f'No family of these sections has a column or property "{name}".')

    def to_frame(self) -> Any:
        """A pandas DataFrame: a row a section, a column each of theirs.

        Figures are plain numbers; ``frame.attrs["units"]`` tells the unit of each column.
        """
        return _display.frame(self)

    def export(self, format: str, *, length: str | None = None, symbols: str = "program") -> bytes:
        """The file for another program; see Section.export.

        Sections that lack what the format needs are left out, which a warning tells. Raises Error
        where none is left.
        """
        return _export.export(self, format, length, symbols, may_leave_out=True)

    def __repr__(self) -> str:
        return f"<{len(self)} sections>"

    def _repr_html_(self) -> str:
        return _display.sections_html(self)


class Family(Sections[V]):
    """A shape family of a catalogue, e.g. its W shapes: a sequence of sections, and by name."""

    def __init__(self, native: _native.Family, catalogue: Catalogue[V]) -> None:
        self.native = native
        self._catalogue = catalogue
        unit = catalogue.presentation.unit
        columns = [
            (name, "NUMBER" if kind == "number" else kept, meaning, kind)
            for name, kept, meaning, kind in native.columns
        ]
        self._columns = {
            name.casefold(): Column(name, "" if kind == "text" else unit(kept), meaning, kept, kind)
            for name, kept, meaning, kind in columns
        }
        self._is_us = any("INCH" in kept.upper() for _, kept, _, _ in columns)

    @property
    def name(self) -> str:
        """The name of its table, e.g. ``"W Shape"``."""
        return self.native.name

    @property
    def section_type(self) -> int:
        """The catalogue's number of it."""
        return self.native.section_type

    @property
    def shape(self) -> str:
        """What its sections are shaped like, e.g. ``"I shape"``."""
        return self.native.shape

    @property
    def catalogue(self) -> Catalogue[V]:
        """The catalogue."""
        return self._catalogue

    @property
    def standards(self) -> list[str]:
        """The standards of its sections with their editions."""
        return self.native.standards

    @property
    def columns(self) -> tuple[Column, ...]:
        """What is kept of each section."""
        return tuple(self._columns.values())

    def column(self, name: str) -> Column:
        """The column of that name, whatever its letter case. Raises NotFound."""
        try:
            return self._columns[name.casefold()]
        except KeyError:
            known = ", ".join(column.name for column in self.columns)
            raise NotFound(f'{self.name} has no column "{name}"; there are {known}.') from None

    def has_column(self, name: str) -> bool:
        """Whether there is a column of that name, whatever its letter case."""
        return name.casefold() in self._columns

    def knows(self, name: str) -> bool:
        """Whether that is a column or a property."""
        return name in PROPERTIES or self.has_column(name)

    def keeps_text(self, name: str) -> bool:
        """Whether that is a column of texts."""
        return self.has_column(name) and self.column(name).kind == "text"

    def property_unit(self, power: int) -> str:
        """The unit in which people of the catalogue's country print such a property."""
        if power == -1:
            return "lb/ft" if self._is_us else "kg/m"
        unit = "in" if self._is_us else "mm" if power == 1 else "cm"
        return unit if power == 1 else f"{unit}^{power}"

    def __len__(self) -> int:
        return len(self.native)

    @overload
    def __getitem__(self, place: int | str) -> Section[V]: ...
    @overload
    def __getitem__(self, place: slice) -> Sections[V]: ...
    def __getitem__(self, place: int | str | slice) -> Section[V] | Sections[V]:
        """The section at a place, or of a name (see Catalogue), or those of a slice."""
        if isinstance(place, str):
            return self._catalogue.section(place, self)
        if isinstance(place, slice):
            return Sections(self[row] for row in range(*place.indices(len(self))))
        row = operator.index(place)
        if not -len(self) <= row < len(self):
            raise IndexError(f"{self.name} has {len(self)} sections.")
        return Section(self.native[row % len(self)], self)

    def __contains__(self, section: object) -> bool:
        if isinstance(section, str):
            return self.native.find(section) is not None
        return super().__contains__(section)

    def _ipython_key_completions_(self) -> list[str]:
        return [section.name for section in self]

    def __repr__(self) -> str:
        return f"<{self.name}: {len(self)} sections ({self._catalogue.name})>"


class Catalogue(Generic[V]):
    """A picture of a catalogue's file when it was opened: it never changes.

    ``american["W12X26"]`` is a section, by its name as people type it: letter case, blanks and the
    sign between numbers do not count, and other names in use are known. Of a name in several
    families it is the first, as ``families`` has them.
    """

    def __init__(self, native: _native.Catalogue, presentation: Presentation[V]) -> None:
        self._native = native
        self.presentation = presentation
        self._families = tuple(Family(family, self) for family in native.families)
        self._family_of_type = {family.section_type: family for family in self._families}
        self._index: _native.NameIndex | None = None

    @property
    def number(self) -> int:
        """The number by which all interfaces know it."""
        return self._native.number

    @property
    def name(self) -> str:
        """E.g. ``"American"``."""
        return self._native.name

    @property
    def path(self) -> str:
        """Of the file."""
        return self._native.path

    @property
    def standard(self) -> str:
        """Its standard with the edition."""
        return self._native.standard

    @property
    def layout_version(self) -> int:
        """Of the file's tables."""
        return self._native.layout_version

    @property
    def families(self) -> tuple[Family[V], ...]:
        """The shape families, in the catalogue's order."""
        return self._families

    def family(self, name: str) -> Family[V]:
        """The family of that name, whatever its letter case. Raises NotFound, naming all."""
        return self._family_of(self._native.family(name))

    @property
    def sections(self) -> Sections[V]:
        """All sections, of all families."""
        return Sections(section for family in self._families for section in family)

    def section(self, name: str, family: Family[V] | None = None) -> Section[V]:
        """The section of that name, of any family or of one.

        Raises NotFound, with the names that are most like it.
        """
        found = self._native.find(name) if family is None else family.native.find(name)
        return self.section_of(found or self._typed(name, family))

    def _typed(self, name: str, family: Family[V] | None) -> _native.Section:
        """The section whose name is spelled otherwise."""
        index = self._names()
        found = [
            (section, match)
            for section, match, _ in index.find(name)
            if family is None or section.family.section_type == family.section_type
        ]
        best = {section.name: section for section, match in found if match == found[0][1]}
        if not best:
            near = [f'"{near}"' for _, _, near in index.nearest(name, 3)]
            hint = f" Did you mean {' or '.join(near)}?" if near else ""
            place = self.name if family is None else f"{family.name} of {self.name}"
            raise NotFound(f'There is no section "{name}" in {place}.{hint}')
        if len(best) > 1:
            raise NotFound(f'"{name}" stands for several sections: {", ".join(best)}; name one.')
        return next(iter(best.values()))

    def _names(self) -> _native.NameIndex:
        if self._index is None:
            self._index = _native.NameIndex([self._native])
        return self._index

    def section_of(self, native: _native.Section) -> Section[V]:
        """A section of this catalogue's file, in its family."""
        return Section(native, self._family_of(native.family))

    def _family_of(self, native: _native.Family) -> Family[V]:
        return self._family_of_type[native.section_type]

    def where(self, *conditions: Condition[V]) -> Sections[V]:
        """The sections of all families that meet all conditions; see Sections.where."""
        return self.sections.where(*conditions)

    def __getitem__(self, name: str) -> Section[V]:
        return self.section(name)

    def get(self, name: str) -> Section[V] | None:
        """The section of that name, or None."""
        try:
            return self.section(name)
        except NotFound:
            return None

    def __contains__(self, name: str) -> bool:
        return self.get(name) is not None

    def __iter__(self) -> Iterator[Section[V]]:
        return iter(self.sections)

    def __len__(self) -> int:
        return sum(len(family) for family in self._families)

    def _ipython_key_completions_(self) -> list[str]:
        return [section.name for section in self]

    def __repr__(self) -> str:
        return f"<{self.name}: {len(self)} sections, {self.standard}>"

    def _repr_html_(self) -> str:
        return _display.catalogue_html(self)
