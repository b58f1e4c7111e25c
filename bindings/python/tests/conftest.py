import os
import subprocess

import pytest


@pytest.fixture
def user_file(tmp_path):
    """A file of a person's own sections, in metric units, with nothing in it."""
    path = tmp_path / "mine.db3"
    subprocess.run([os.environ["SECTIONDB_PROGRAM"], "user", "create", path], check=True)
    return path
