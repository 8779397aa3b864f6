#!/usr/bin/env python3
"""The library as it is installed: its header alone, the examples of docs/library.md, the packages for CMake and pkg-config.

examples_test.py SOURCE_FOLDER BUILD_FOLDER [FOLDER_OF_THE_JAVASCRIPT_MODULE]
"""

import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import unittest

SOURCE, BUILD = (pathlib.Path(folder).resolve() for folder in sys.argv[1:3])
JAVASCRIPT = pathlib.Path(sys.argv[3]).resolve() if len(sys.argv) > 3 else None
STRICT = ["-Wall", "-Wextra", "-Wpedantic", "-Werror"]


def run(*command, **options):
    done = subprocess.run([str(part) for part in command], capture_output=True, text=True, **options)
    if done.returncode != 0:
        raise AssertionError(f"{command}: {done.stdout}{done.stderr}")
    return done.stdout


def example(title):
    """The program of a section: its indented lines."""
    section = (SOURCE / "docs/library.md").read_text(encoding="utf-8").split(f"\n## {title}\n")[1].split("\n## ")[0]
    lines = [line[4:] for line in section.splitlines() if line.startswith("    ") or not line]
    return "\n".join(lines) + "\n"


class InstalledLibrary(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        cls.folder = pathlib.Path(folder.name)
        cls.prefix = cls.folder / "installed"
        run("cmake", "--install", BUILD, "--component", "library", "--prefix", cls.prefix)
        cls.library = next(cls.prefix.rglob("libtremolux.so"))
        cls.environment = {**os.environ, "LD_LIBRARY_PATH": str(cls.library.parent)}

    def write(self, name, text):
        file = self.folder / name
        file.write_text(text, encoding="utf-8")
        return file

    def c_program(self):
        return self.write("example.c", example("In C"))

    def frames(self, text):
        rows = [line.split() for line in text.splitlines()]
        self.assertEqual([str(frame) for frame in range(90)], [row[0] for row in rows])
        return rows

    def test_the_header_stands_alone_in_c11_and_cpp17(self):
        header = self.prefix / "include/tremolux/tremolux.h"
        for compiler, language, standard in (("cc", "c", "c11"), ("c++", "c++", "c++17")):
            run(compiler, "-x", language, f"-std={standard}", *STRICT, "-fsyntax-only", header)

    def test_both_examples_show_the_same_frames(self):
        program = self.folder / "example"
        run("cc", "-std=c11", *STRICT, f"-I{self.prefix / 'include'}", self.c_program(), f"-L{self.library.parent}",
            "-ltremolux", "-o", program)
        from_c = self.frames(run(program, env=self.environment))
        from_python = self.frames(
            run(sys.executable, self.write("example.py", example("In Python")), self.library))
        self.assertEqual(from_c, from_python)
        self.assertNotEqual([f"{3.0 * frame:.6f}" for frame in range(90)], [row[3] for row in from_c])

    def test_the_tables_make_a_page_of_the_settings(self):
        program = self.folder / "settings"
        run("cc", "-std=c11", *STRICT, f"-I{self.prefix / 'include'}",
            self.write("settings.c", example("A user interface for the settings")), f"-L{self.library.parent}", "-ltremolux",
            "-o", program)
        page = run(program, env=self.environment).splitlines()
        tabs = [line for line in page if not line.startswith(" ")]
        self.assertEqual(["Basic", "TremoluxCam", "Target", "Zoom", "Focus", "Advanced"], tabs)
        manual = (SOURCE / "docs/parameters.md").read_text(encoding="utf-8")
        rows = [[cell.strip() for cell in line.split("|")] for line in manual.split("## Stored")[0].splitlines()]
        rows = [row for row in rows if len(row) > 10 and row[1].isdigit()]
        self.assertGreater(len(rows), 80)
        for row in rows:
            label, sentence = row[2].replace("–", ""), row[10]
            self.assertEqual(1, sum(line.startswith(f"  {label}: {sentence}") for line in page), row)

    def test_a_preset_goes_from_shot_to_shot(self):
        printed = run(sys.executable, self.write("presets.py", example("Presets of your own")), self.library)
        before = printed.splitlines()[1].split()[-1]
        self.assertEqual(["applied 1.5", f"taken back 1 {before}"], printed.splitlines())
        self.assertNotEqual("1.5", before)

    @unittest.skipUnless(JAVASCRIPT, "script/wasm builds the module, and runs this")
    def test_the_example_in_javascript_shows_the_same_frames(self):
        folder = self.folder / "javascript"
        shutil.copytree(JAVASCRIPT, folder)
        (folder / "example.mjs").write_text(example("In JavaScript"), encoding="utf-8")
        from_javascript = self.frames(run("node", folder / "example.mjs"))
        program = self.folder / "beside_javascript"
        run("cc", "-std=c11", f"-I{self.prefix / 'include'}", self.c_program(), f"-L{self.library.parent}", "-ltremolux", "-o",
            program)
        for expected, found in zip(self.frames(run(program, env=self.environment)), from_javascript):
            for number, other in zip(expected[1:], found[1:]):
                self.assertAlmostEqual(float(number), float(other), delta=1.5e-6)  # the last digit that is printed

    def test_cmake_finds_it(self):
        project = self.folder / "project"
        project.mkdir()
        (project / "CMakeLists.txt").write_text(
            "cmake_minimum_required(VERSION 3.23)\nproject(user LANGUAGES C)\nfind_package(tremolux 1 REQUIRED)\n"
            f"add_executable(user {self.c_program()})\ntarget_link_libraries(user PRIVATE tremolux::tremolux)\n",
            encoding="utf-8")
        run("cmake", "-G", "Ninja", "-S", project, "-B", project / "build", f"-DCMAKE_PREFIX_PATH={self.prefix}")
        run("cmake", "--build", project / "build")
        self.frames(run(project / "build/user", env=self.environment))

    def test_pkg_config_finds_it(self):
        environment = {**os.environ, "PKG_CONFIG_PATH": str(self.library.parent / "pkgconfig")}
        flags = run("pkg-config", "--cflags", "--libs", "tremolux", env=environment).split()
        program = self.folder / "with_pkg_config"
        run("cc", "-std=c11", self.c_program(), *flags, "-o", program)
        self.frames(run(program, env=self.environment))

    def test_nothing_but_the_interface_is_exported(self):
        symbols = run("nm", "-D", "--defined-only", self.library).split("\n")
        names = {line.split()[-1].split("@")[0] for line in symbols if line}
        declared = (self.prefix / "include/tremolux/tremolux.h").read_text(encoding="utf-8")
        self.assertEqual(set(), {name for name in names if not name.startswith("tremolux_")})
        self.assertEqual(set(), {name for name in names if f" {name}(" not in declared and f"*{name}(" not in declared})


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
