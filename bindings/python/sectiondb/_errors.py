"""The exceptions of this package."""

_NO_SUCH_ITEM = 3265
_FILE_NOT_FOUND = 3024


class Error(Exception):
    """What failed, on which file, table or section, and what to do.

    ``number`` is that of the library's failure, such as 3031 for a wrong password.
    """

    def __init__(self, text: str, number: int = 0) -> None:
        super().__init__(text)
        self.number = number


class NotFound(Error, LookupError):
    """There is no catalogue, family, section or unit of that name."""

    def __init__(self, text: str, number: int = _NO_SUCH_ITEM) -> None:
        super().__init__(text, number)


class NoFigure(Error, AttributeError):
    """A section has no such column or property."""

    def __init__(self, text: str, number: int = _NO_SUCH_ITEM) -> None:
        super().__init__(text, number)


def error_of(text: str, number: int) -> Error:
    """The exception of a failure that the library tells."""
    kind = NotFound if number in (_NO_SUCH_ITEM, _FILE_NOT_FOUND) else Error
    return kind(text, number)
