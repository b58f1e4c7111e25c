"""Folders of catalogues, and a person's own files."""

from __future__ import annotations

import functools
import os
from collections.abc import Mapping
from types import TracebackType
from typing import Any, Literal, NamedTuple, Union, overload

from . import _native
from ._catalogue import Catalogue, Family
from ._section import Section
from ._units import Quantity, System, presentation_of

Folder = Union[str, "os.PathLike[str]", None]
Units = Union[System, "tuple[str, str]"]

#: What a column of a person's own section is given as: a Quantity, a text such as "60.3 mm", a plain
#: number where the column has no unit, or the text of a column of texts.
Given = Union[Quantity, str, float]


class Hit(NamedTuple):
    """A section of a name that was looked for."""

    section: Section[Quantity]
    match: str  #: ``"exact"``, ``"alias"``, ``"superseded"`` or ``"near"``
    name: str  #: of the section, or its alias, that was met


def _library(folder: Folder, password: str) -> _native.Library:
    return _native.Library("" if folder is None else os.fspath(folder), password)


@overload
def open(
    catalogue: str | int, units: None = None, *, folder: Folder = None, password: str = ""
) -> Catalogue[Quantity]: ...
@overload
def open(
    catalogue: str | int, units: Units, *, folder: Folder = None, password: str = ""
) -> Catalogue[float]: ...
@overload
def open(
    catalogue: str | int, units: Literal["pint"], *, folder: Folder = None, password: str = ""
) -> Catalogue[Any]: ...
def open(
    catalogue: str | int,
    units: Units | Literal["pint"] | None = None,
    *,
    folder: Folder = None,
    password: str = "",
) -> Catalogue[Any]:
    """A catalogue by its number, display name or file stem.

    Figures are given as Quantity with the catalogue's units; as plain numbers where ``units`` are a
    length and a force, e.g. ``("mm", "N")`` or ``sectiondb.US``; or as quantities of pint where they
    are ``"pint"``.

    The folder is by default that of SECTIONDB_FOLDER, or else that of the installation; the
    password that of SECTIONDB_PASSWORD. Raises NotFound where there is no such catalogue or file,
    and Error where it cannot be opened or read.
    """
    library = _library(folder, password)
    number = _native.Library.number_of(str(catalogue))
    return Catalogue(library.open(number), presentation_of(units))


def catalogues(folder: Folder = None) -> dict[int, str]:
    """The catalogues that have a file in the folder: display names by number."""
    library = _library(folder, "")
    return {number: _native.Library.name_of(number) for number in library.numbers}


def find(name: str, *, folder: Folder = None, password: str = "") -> list[Hit]:
    """The sections of a name, as people type it, in all catalogues of the folder.

    Where there is none, the sections whose names are most like it: their ``match`` is ``"near"``.
    """
    library = _library(folder, password)
    files = [library.open(number) for number in library.numbers]
    index = _native.NameIndex(files)
    opened = {file.number: Catalogue(file, presentation_of(None)) for file in files}
    return [
        Hit(opened[section.family.catalogue.number].section_of(section), match, met)
        for section, match, met in index.find(name) or index.nearest(name, 3)
    ]


class Change:
    """Changes of a person's file that appear together, at the end of ``with``, or not at all.

    Until then nobody else can write to the file. Whatever fails raises Error and leaves the changes
    before it as they were; an exception that leaves the ``with`` undoes all of them.
    """

    def __init__(self, native: _native.Change) -> None:
        self._native = native

    def read(self) -> Catalogue[Quantity]:
        """The sections with the changes so far."""
        return Catalogue(self._native.read(), presentation_of(None))

    @functools.cached_property
    def _tables(self) -> Catalogue[Quantity]:
        """Read once: no change alters the columns."""
        return self.read()

    def add(
        self,
        family: str,
        name: str,
        *,
        program_name: str = "",
        as_published: float = 0,
        **figures: Given,
    ) -> int:
        """Adds a section to a family and returns its record number.

        >>> change.add("Pipe", "P 60.3x5", OD="60.3 mm", T="5 mm")

        Figures are by column, or by parameter of the shape, such as ``radius="15 mm"``. Geometry
        gives those that are left out, and judges the others: they may be further from it than
        rounding explains by ``as_published``, as a share of them. The name must be new in the family,
        the program name in the file, whatever the letter case.
        """
        table = self._tables.family(family)
        parts = _parts(table, figures)
        return self._native.add(table.name, name, program_name, *parts, as_published)

    def update(
        self,
        section: Section[Any],
        *,
        name: str = "",
        program_name: str = "",
        as_published: float = 0,
        **figures: Given,
    ) -> None:
        """Gives a section that was read from the file other names and figures; the rest stays.

        Where there are figures, the row is judged as it will be.
        """
        parts = _parts(section.family, figures)
        self._native.update(section.native, name, program_name, *parts, as_published)

    def remove(self, section: Section[Any]) -> None:
        """Removes a section that was read from the file."""
        self._native.remove(section.native)

    def __enter__(self) -> Change:
        return self

    def __exit__(
        self,
        kind: type[BaseException] | None,
        error: BaseException | None,
        trace: TracebackType | None,
    ) -> None:
        if kind is None:
            self._native.commit()
        else:
            self._native.give_up()


class UserFile:
    """A file of a person's own sections, which ``sectiondb user create`` makes.

    >>> mine = sectiondb.UserFile("mine.db3")
    >>> with mine.change() as change:
    ...     change.add("Pipe", "P 60.3x5", OD="60.3 mm", T="5 mm")
    >>> mine.read()["P 60.3x5"].OD
    """

    def __init__(self, path: str | os.PathLike[str], password: str = "") -> None:
        self._native = _native.UserFile(os.fspath(path), password)

    @overload
    def read(self, units: None = None) -> Catalogue[Quantity]: ...
    @overload
    def read(self, units: Units) -> Catalogue[float]: ...
    @overload
    def read(self, units: Literal["pint"]) -> Catalogue[Any]: ...
    def read(self, units: Units | Literal["pint"] | None = None) -> Catalogue[Any]:
        """The sections as they are now; for ``units`` see open()."""
        return Catalogue(self._native.read(), presentation_of(units))

    def change(self) -> Change:
        """Begins a change. Raises Error where the file cannot be written or somebody else does."""
        return Change(self._native.change())


def _parts(
    family: Family[Any], given: Mapping[str, Given]
) -> tuple[dict[str, tuple[float, str]], dict[str, str]]:
    """Figures with their units, and texts, by the family's columns; figures also by parameter."""
    figures, texts = {}, {}
    for name, value in given.items():
        if family.has_column(name) and family.column(name).kind == "text":
            texts[name] = str(value)
            continue
        if not isinstance(value, Quantity):
            value = Quantity.parse(value) if isinstance(value, str) else Quantity(value)
        figures[name] = (value.figure, value.unit)
    return figures, texts
