"""A source folder of a test's own, with this one's presets and settings and a module of a few lines."""

import os
import shutil
import subprocess
import tempfile
import unittest

ROOT = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))

PROJECT = """cmake_minimum_required(VERSION 3.25)
project(Tree LANGUAGES CXX)
include("${CMAKE_SOURCE_DIR}/cmake/Options.cmake")
include("${CMAKE_SOURCE_DIR}/cmake/Module.cmake")
tarnwick_module(Small SOURCES Small.cpp HEADERS Small.h PRECOMPILE <vector>)
"""


class TreeTest(unittest.TestCase):
    def setUp(self):
        self.tree = tempfile.mkdtemp()
        self.addCleanup(shutil.rmtree, self.tree)
        for name in ("CMakePresets.json", ".clang-tidy"):
            shutil.copy(os.path.join(ROOT, name), self.path(name))
        os.mkdir(self.path("tools"))
        for name in ("tools/check-sources", "tools/own-code.cpp"):
            shutil.copy(os.path.join(ROOT, name), self.path(name))
        os.symlink(os.path.join(ROOT, "cmake"), self.path("cmake"))
        self.write("CMakeLists.txt", PROJECT)
        self.write("Small.h", "#pragma once\n")

    def path(self, name):
        return os.path.join(self.tree, name)

    def write(self, name, text):
        with open(self.path(name), "w", encoding="utf-8") as file:
            file.write(text)

    def run_here(self, *command):
        """Runs a command in the tree to its end, both of its outputs in `stdout`."""
        return subprocess.run(
            command,
            cwd=self.tree,
            env={**os.environ, "CCACHE_DISABLE": "1", "XDG_CACHE_HOME": self.path("cache")},
            stdin=subprocess.DEVNULL,
            stdout=subprocess.PIPE,
            stderr=subprocess.STDOUT,
            text=True,
            check=False,
        )
