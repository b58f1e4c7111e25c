"""Tests of what the program writes: SECTIONDB DATA-FOLDER, as every script of them is called."""
import os
import pathlib
import subprocess
import sys
import tempfile
import unittest

PROGRAM, DATA = sys.argv[1:3]


class ProgramCase(unittest.TestCase):
    """Catalogues in a folder of its own, which is gone afterwards."""
    stems = ()  # all of them, if none is named

    @classmethod
    def setUpClass(cls):
        cls.temporary = tempfile.TemporaryDirectory()
        cls.folder = pathlib.Path(cls.temporary.name)
        sources = [f"{DATA}/{stem}" for stem in cls.stems] or [DATA]
        cls.run_program("build", *sources, "-o", cls.folder).check_returncode()

    @classmethod
    def tearDownClass(cls):
        cls.temporary.cleanup()

    @classmethod
    def run_program(cls, *arguments, **variables):
        environment = {**os.environ, "SECTIONDB_FOLDER": str(cls.folder), **variables}
        return subprocess.run([PROGRAM, *map(str, arguments)], env=environment, text=True,
                              capture_output=True)

    def output_of(self, *arguments):
        run = self.run_program(*arguments)
        self.assertEqual(run.returncode, 0, run.stderr)
        return run.stdout
