#!/usr/bin/env python3
"""Runs clang-tidy over the sources of src/, as many at a time as there are processors, and checks who includes whom and
the dialogs' numbers.

A file that was clean is not read again until it, a header of ours that it includes, its compile command or the
configuration has changed: the stamps lie in the user's cache, for every checkout. The native build's commands are used; what only the Windows build
has is read with clang's view of the mingw headers.
"""

import concurrent.futures
import hashlib
import json
import os
import pathlib
import re
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
STAMPS = pathlib.Path(os.environ.get("XDG_CACHE_HOME") or pathlib.Path.home() / ".cache") / "scrivanta-lint"
INCLUDE = re.compile(r'^\s*#\s*include\s*"([^"]+)"', re.MULTILINE)
GENERATED = re.compile(r"Table\.cpp$")


# What the files of a room may include beside their own; see docs/ARCHITECTURE.md. A room that is not named belongs to the
# folder that it lies in.
BELOW_WORKBENCH = {"text", "rtf", "regexp"}
SUBSYSTEM = BELOW_WORKBENCH | {"hanzi", "shell/workbench"}
ROOMS = {
    "text": set(),
    "rtf": {"text"},
    "hanzi": {"text"},
    "sheets": {"text"},
    "regexp": {"text"},
    "win": {"text", "rtf"},
    "shell/history": {"text", "rtf"},
    "shell/workbench": BELOW_WORKBENCH,
    "shell/settings": {"text", "shell/workbench"},
    "shell/document": BELOW_WORKBENCH | {"shell/workbench"},
    "shell/services": {"text", "shell/workbench"},
    "shell/window": BELOW_WORKBENCH
    | {"win", "shell/workbench", "shell/history", "shell/settings", "shell/document", "shell/services"},
    "batch": {"text", "regexp"},
    "companion": {"text", "database"},
}
# What the console program is made of must be had without a window.
WITHOUT_SHELL = "batch"


def subsystems():
    """The folders that src/CMakeLists.txt names."""
    text = (ROOT / "src" / "CMakeLists.txt").read_text(encoding="utf-8")
    return {name.lower() for name in re.search(r"set\(SUBSYSTEMS([^)]*)\)", text).group(1).split()}


def allowed_rooms():
    rooms = {name: set(allowed) for name, allowed in ROOMS.items()}
    for name in subsystems():
        rooms[name] = set(SUBSYSTEM)
        rooms["batch"].add(name)
    # Tables, contacts and database exchange share the records of tables, the latter two sheets as well.
    for name in rooms.keys() & {"contacts", "database"}:
        rooms[name] |= {"tables", "sheets"}
    return rooms


def room_of(path, rooms):
    folder = path.parent.as_posix()
    while folder not in rooms and "/" in folder:
        folder = folder.rpartition("/")[0]
    return folder if folder in rooms else ""


def forbidden_includes():
    """Includes that go against the arrows. A view (Frm..., Scrivanta...) may also include win; the composition, which lies
    in no room, anything."""
    src = ROOT / "src"
    rooms = allowed_rooms()
    findings = []
    for file in sorted([*src.rglob("*.h"), *src.rglob("*.cpp"), *src.rglob("*.rc")]):
        path = file.relative_to(src)
        room = room_of(path, rooms)
        if not room:
            continue
        allowed = rooms[room] | {room}
        if path.name.startswith(("Frm", "Scrivanta")):
            allowed.add("win")
        for name in INCLUDE.findall(file.read_text(encoding="utf-8")):
            other = room_of(pathlib.PurePosixPath(name), rooms)
            if (src / name).exists() and other not in allowed:
                findings.append(f"src/{path}: {room} must not include {name}")
    for file in sorted((src / WITHOUT_SHELL).rglob("*.cpp")):
        for header in closure(file, [src], set()):
            if header.is_relative_to(src / "shell"):
                findings.append(f"{file.relative_to(ROOT)}: reaches {header.relative_to(src)} through its headers")
    return findings


# The compiler's precompiled headers: clang cannot read them, and a file is to be seen with what it includes itself.
PRECOMPILED = re.compile(r" -Winvalid-pch| -include \S*cmake_pch\.hxx| -fpch-preprocess| -Wno-(array-bounds|stringop-\w+|restrict)\b")


def compile_commands(preset):
    path = ROOT / "build" / preset / "compile_commands.json"
    if not path.exists():
        return {}
    commands = {}
    entries = json.loads(path.read_text())
    for entry in entries:
        entry["command"] = PRECOMPILED.sub("", entry["command"])
    plain = ROOT / "build" / "lint" / preset
    plain.mkdir(parents=True, exist_ok=True)
    (plain / "compile_commands.json").write_text(json.dumps(entries))
    for entry in entries:
        file = pathlib.Path(entry["file"])
        if file.suffix == ".cpp" and file.is_relative_to(ROOT / "src") and not GENERATED.search(file.name):
            commands[file] = (preset, entry["command"])
    return commands


def closure(file, roots, seen):
    """The file and every header of ours that it includes, however deep."""
    if file in seen:
        return seen
    seen.add(file)
    for name in INCLUDE.findall(file.read_text(encoding="utf-8")):
        for folder in [file.parent, *roots]:
            header = folder / name
            if header.exists():
                closure(header.resolve(), roots, seen)
                break
    return seen


def stamp_of(file, command):
    digest = hashlib.sha256((ROOT / ".clang-tidy").read_bytes())
    digest.update(command.replace(str(ROOT), "").encode())
    digest.update(pathlib.Path(__file__).read_bytes())
    for part in sorted(closure(file, [ROOT / "src"], set())):
        digest.update(part.read_bytes())
    return STAMPS / digest.hexdigest()


def mingw_arguments():
    """What makes clang see the headers that the cross compiler sees."""
    text = subprocess.run(
        ["x86_64-w64-mingw32-g++-posix", "-E", "-x", "c++", "-v", os.devnull], capture_output=True, text=True, check=True
    ).stderr
    folders = text.split("search starts here:\n")[-1].split("End of search list")[0].split()
    arguments = ["--extra-arg=--target=x86_64-w64-windows-gnu", "--extra-arg=-nostdinc++"]
    # Clang brings its own compiler headers; those of GCC would not parse.
    for folder in folders:
        if not re.search(r"/12[^/]*/include(-fixed)?$", folder):
            arguments.append("--extra-arg=-isystem" + folder)
    return arguments


def lint(file, preset, command, mingw):
    stamp = stamp_of(file, command)
    if stamp.exists():
        return file, True, ""
    arguments = ["clang-tidy-16", "-quiet", "-p", str(ROOT / "build" / "lint" / preset)]
    arguments += ["--extra-arg=-Wno-unknown-warning-option"]
    if preset == "windows":
        arguments += mingw
    result = subprocess.run([*arguments, str(file)], capture_output=True, text=True, check=False)
    if result.returncode == 0:
        stamp.touch()
    return file, result.returncode == 0, result.stdout + result.stderr


def dialogs_with_one_number():
    """Two dialogs of one number would be built into one program, and one of them never be seen."""
    names = {}
    for header in sorted(ROOT.glob("src/**/*Controls.h")):
        for name, number in re.findall(r"^#define (IDD_\w+) (\d+)", header.read_text(encoding="utf-8"), re.MULTILINE):
            names.setdefault(number, []).append(name)
    return [" and ".join(same) + f" are both {number}" for number, same in names.items() if len(same) > 1]


def main():
    if sys.argv[1:] == ["--rooms"]:  # only who includes whom: takes a moment, and needs no build
        clashes = dialogs_with_one_number() + forbidden_includes()
        print("\n".join(clashes) or "lint: the arrows hold")
        return 1 if clashes else 0
    STAMPS.mkdir(parents=True, exist_ok=True)
    commands = compile_commands("windows")
    commands.update(compile_commands("native"))
    if not commands:
        sys.exit("lint: no build has been configured")
    wanted = [pathlib.Path(name).resolve() for name in sys.argv[1:]]
    jobs = [(file, *rest) for file, rest in sorted(commands.items()) if not wanted or file in wanted]
    mingw = mingw_arguments() if any(preset == "windows" for _, preset, _ in jobs) else []
    clashes = dialogs_with_one_number() + forbidden_includes()
    for clash in clashes:
        print(clash, file=sys.stderr)
    failed = 0
    with concurrent.futures.ThreadPoolExecutor(max_workers=os.cpu_count()) as pool:
        for file, clean, output in pool.map(lambda job: lint(*job, mingw), jobs):
            if not clean:
                failed += 1
                print(f"{file.relative_to(ROOT)}:\n{output}", file=sys.stderr)
    print(f"lint: {len(jobs)} files, {failed} with findings")
    return 1 if failed or clashes else 0


sys.exit(main())
