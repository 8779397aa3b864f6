#!/usr/bin/python3
"""Every command of a page runs as it stands.

cookbook_test.py PROJECT BUILD PAGE [PICTURES]: runs the indented lines of PAGE that begin with build/release/tremolux, one after the
other, in a folder with the project's samples, with BUILD/tremolux as the program; each has to succeed and to leave the files that
it names behind -o and --plot. With PICTURES, a folder, the plots and contact sheets are copied there.
"""
import pathlib
import re
import shlex
import shutil
import subprocess
import sys
import tempfile

PROGRAM = "build/release/tremolux"
WITHOUT_MODULE = ["steady"]  # commands that start no module, and know nothing of a user's folder


def commands(page):
    lines = (line.strip() for line in page.read_text(encoding="utf-8").splitlines() if line.startswith("    "))
    return [shlex.split(line, comments=True) for line in lines if line.startswith(PROGRAM)]


def outputs(command):
    files = [value for option, value in zip(command, command[1:]) if option in ("-o", "--plot")]
    if "--takes" in command:
        files = [f"{file[:-4]}-take{i}{file[-4:]}" for file in files for i in range(1, 6)] + [f"{files[0][:-4]}-takes.png"]
    return files


def main(project, build, page, pictures=None):
    project, build = pathlib.Path(project), pathlib.Path(build).resolve()
    found = commands(pathlib.Path(page))
    if not found:
        print(f"{page}: found no command, expected some")
        return 1
    failed = 0
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        shutil.copytree(project / "samples", folder / "samples")
        for command in found:
            words = [str(build / "tremolux"), *command[1:]]
            if "--user-folder" not in command and command[1] not in WITHOUT_MODULE:
                words += ["--user-folder", str(folder / "home")]
            result = subprocess.run(words, cwd=folder, capture_output=True, text=True, check=False)
            missing = [file for file in outputs(command) if not (folder / file).exists()]
            if result.returncode != 0 or missing:
                print(f"{page}: {shlex.join(command)}\n  status {result.returncode}, missing {missing}\n  {result.stderr.strip()}")
                failed += 1
        if pictures:
            for picture in [*folder.glob("*.png")]:
                if not picture.stem.endswith("-spectrum"):
                    name = "takes.png" if picture.stem.endswith("takes") else picture.name
                    shutil.copy(picture, pathlib.Path(pictures) / name)
    print(f"{page}: {len(found)} commands, {failed} failed")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
