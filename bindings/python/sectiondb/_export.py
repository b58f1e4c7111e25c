"""Sections handed on to other programs."""

from __future__ import annotations

import warnings
from collections.abc import Iterable
from typing import TYPE_CHECKING, Any

from . import _native
from ._errors import Error

if TYPE_CHECKING:
    from ._section import Section


def export(
    sections: Iterable[Section[Any]],
    format: str,
    length: str | None,
    symbols: str,
    *,
    may_leave_out: bool,
) -> bytes:
    natives = [section.native for section in sections]
    file, faults = _native.export(format, natives, length or "", symbols, may_leave_out)
    if len(faults) == len(natives):
        raise Error(faults[0] if faults else "There are no sections to export.")
    if faults:
        warnings.warn(f"{len(faults)} sections left out; the first one: {faults[0]}", stacklevel=3)
    return file


def axes(symbols: str = "program") -> str:
    """What the axes are called where properties have such symbols.

    >>> sectiondb.axes("aisc")
    'z along the member, x the major axis, y the minor axis'
    """
    return _native.axes(symbols)
