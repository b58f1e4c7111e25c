"""Tables for notebooks and pandas."""

from __future__ import annotations

from collections.abc import Iterable
from html import escape
from typing import TYPE_CHECKING, Any

from ._errors import NotFound

if TYPE_CHECKING:
    from ._catalogue import Catalogue, Sections
    from ._section import Column, Section

#: As many rows of a table as a notebook shows.
_MOST_ROWS = 60


def _table(head: Iterable[str], rows: Iterable[Iterable[object]]) -> str:
    def row(cells: Iterable[object], tag: str) -> str:
        return "<tr>" + "".join(f"<{tag}>{escape(str(cell))}</{tag}>" for cell in cells) + "</tr>"

    body = "".join(row(cells, "td") for cells in rows)
    return f"<table><thead>{row(head, 'th')}</thead><tbody>{body}</tbody></table>"


def _number(section: Section[Any], column: Column) -> object:
    """A figure in the unit of the column, as a plain number; a text; or None."""
    try:
        own = section.family.column(column.name)
    except NotFound:
        return None
    if column.kind == "text" or own.kind == "text":
        return section[own.name]
    quantity = section.quantity(own.name)
    if quantity is None or quantity.unit == column.unit:
        return None if quantity is None else quantity.figure
    return quantity.in_(column.unit)


def _printed(value: object) -> str:
    return "" if value is None else f"{value:.6g}" if isinstance(value, float) else str(value)


def frame(sections: Sections[Any]) -> Any:
    import pandas  # type: ignore[import]

    columns = sections.columns
    data = {column.name: [_number(section, column) for section in sections] for column in columns}
    names = pandas.Index([section.name for section in sections], name="name")
    made = pandas.DataFrame(data, index=names)
    made.attrs["units"] = {column.name: column.unit for column in columns}
    return made


def section_html(section: Section[Any]) -> str:
    rows = [
        (
            column.name,
            _printed(_number(section, column)),
            column.unit,
            column.meaning,
            section.source(column.name),
        )
        for column in section.family.columns
    ]
    origin = section.origin
    title = f"{section.name} ({section.catalogue.name}, {section.family.name})"
    standard = f"<p>{escape(origin.standard)}</p>" if origin else ""
    svg = section._repr_svg_() or ""
    return (
        f"<h4>{escape(title)}</h4>{standard}"
        f'<div style="display:flex;gap:1em;flex-wrap:wrap"><div>'
        f"{_table(('column', 'value', 'unit', 'meaning', 'source'), rows)}</div>"
        f'<div style="width:24em">{svg}</div></div>'
    )


def sections_html(sections: Sections[Any]) -> str:
    columns = sections.columns
    head = ["name", *(f"{column.name} {column.unit}".rstrip() for column in columns)]
    rows = [
        [section.name, *(_printed(_number(section, column)) for column in columns)]
        for section in sections[:_MOST_ROWS]
    ]
    more = len(sections) - len(rows)
    return _table(head, rows) + (f"<p>and {more} more</p>" if more > 0 else "")


def catalogue_html(catalogue: Catalogue[Any]) -> str:
    rows = [
        (family.name, len(family), family.shape, "; ".join(family.standards))
        for family in catalogue.families
    ]
    return _table(("family", "sections", "shape", "standards"), rows)
