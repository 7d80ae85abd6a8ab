"""For pip: CMake builds the compiled part. docs/python.md tells how."""

import os
import re
import subprocess
import sys

from setuptools import Extension, setup
from setuptools.command.build_ext import build_ext

ROOT = os.path.dirname(os.path.abspath(__file__))


class BuildWithCMake(build_ext):
    def build_extension(self, extension):
        build, target = os.path.abspath(self.build_temp), os.path.abspath(self.get_ext_fullpath(extension.name))
        options = {
            "CMAKE_BUILD_TYPE": "Release",
            "Python_EXECUTABLE": sys.executable,
            "ZELVOR_PYTHON": "ON",
            "ZELVOR_TESTS": "OFF",
            "ZELVOR_EXAMPLES": "OFF",
        }
        subprocess.run(["cmake", "-S", ROOT, "-B", build, *(f"-D{k}={v}" for k, v in options.items())], check=True)
        subprocess.run(["cmake", "--build", build, "--target", "zelvor_python", "--parallel"], check=True)
        os.makedirs(os.path.dirname(target), exist_ok=True)
        self.copy_file(os.path.join(build, "python", "zelvor", os.path.basename(target)), target)


def version():
    with open(os.path.join(ROOT, "CMakeLists.txt")) as file:
        return re.search(r"project\(zelvor VERSION ([\d.]+)", file.read()).group(1)


os.makedirs("build", exist_ok=True)  # what setuptools leaves behind goes there, too
setup(
    version=version(),
    ext_modules=[Extension("zelvor._zelvor", [])],
    cmdclass={"build_ext": BuildWithCMake},
    options={"egg_info": {"egg_base": "build"}},
)
