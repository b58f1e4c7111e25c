"""Conditions such as ``"ZZ >= 95.4 in^3"``, by which sections are filtered."""

from __future__ import annotations

import operator
import re
from collections.abc import Callable
from typing import TYPE_CHECKING, Any, NamedTuple

from ._units import Quantity

if TYPE_CHECKING:
    from ._section import Section

_OPERATORS: dict[str, Callable[[Any, Any], bool]] = {
    "<=": operator.le,
    ">=": operator.ge,
    "==": operator.eq,
    "!=": operator.ne,
    "<": operator.lt,
    ">": operator.gt,
}
_FORM = re.compile(r"\s*(?P<name>\w+)\s*(?P<sign><=|>=|==|!=|<|>)\s*(?P<limit>.+?)\s*")


class Comparison(NamedTuple):
    name: str  #: of a column or property
    compare: Callable[[Any, Any], bool]
    limit: str

    def meets(self, section: Section[Any]) -> bool:
        if not section.family.knows(self.name):
            return False
        if section.family.keeps_text(self.name):
            return self.compare(section[self.name] or "", self.limit)
        figure = section.quantity(self.name)
        if figure is None:
            return False
        limit = Quantity.parse(self.limit)
        unit = limit.unit or section.catalogue.presentation.unit(figure.unit)
        return self.compare(figure.to(unit), Quantity(limit.figure, unit))


def parse(condition: str) -> Comparison:
    """Raises ValueError."""
    parts = _FORM.fullmatch(condition)
    if parts is None:
        raise ValueError(f'"{condition}" is no condition such as "ZZ >= 95.4 in^3".')
    return Comparison(parts["name"], _OPERATORS[parts["sign"]], parts["limit"])
