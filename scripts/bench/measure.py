"""What the benches of the console program measure: a command of ours and its peer, in one run."""

import os
import pathlib
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent
BATCH = ROOT / "build" / "native" / "bin" / "scrivanta-batch"
HEAD = ("| command, peer | CPU | wall | peer's CPU | wall | times | at most | memory |\n"
        "|---|---|---|---|---|---|---|---|")


class Usage:
    """What a shell command has cost, the processes that it has started included."""

    def __init__(self, command):
        # Measured by a small program: the peak that Python itself would be told holds Python's own memory.
        subprocess.run(["/usr/bin/time", "-o", "time.txt", "-f", "%U %S %e %M", "bash", "-c", command], check=True,
                       env={**os.environ, "LC_ALL": "C"})
        user, system, wall, peak = pathlib.Path("time.txt").read_text().split()
        self.cpu = float(user) + float(system)
        self.wall = float(wall)
        self.peak = int(peak) / 1024

    def __str__(self):
        return f"{self.cpu:.2f} s | {self.wall:.2f} s"


def ours(command):
    return f"{BATCH} {command} -o ours.out"


def compare(name, our_command, peer_command, most, rounds=3):
    pairs = [(Usage(our_command), Usage(peer_command)) for _ in range(rounds)]
    own, peer = (min((pair[i] for pair in pairs), key=lambda usage: usage.cpu) for i in (0, 1))
    peak = max(pair[0].peak for pair in pairs)
    print(f"| {name} | {own} | {peer} | {own.cpu / peer.cpu:.2f} | {most} | {peak:.0f} MiB |", flush=True)


def compare_growth(unit, rows):
    """Prints what commands of ours cost for a file and for one of ten times as many units: rows of a name, the command for
    the one and for the other."""
    print(f"\n| ten times the {unit} | CPU | ten times | times | memory | ten times |\n|---|---|---|---|---|---|")
    for name, small, large in rows:
        before, after = Usage(ours(small)), Usage(ours(large))
        print(f"| {name} | {before.cpu:.2f} s | {after.cpu:.2f} s | {after.cpu / before.cpu:.1f} | "
              f"{before.peak:.0f} MiB | {after.peak:.0f} MiB |", flush=True)


def run_suites(suites, make_files, folder, outputs):
    """Runs the suites that the arguments name, or all, in the folder of the inputs, and removes what they have written."""
    wanted = sys.argv[1:] or list(suites)
    if unknown := set(wanted) - set(suites):
        sys.exit(f"{' '.join(sorted(unknown))}: choose from {' '.join(suites)}")
    make_files()
    os.chdir(folder)
    print(HEAD)
    for name in wanted:
        suites[name]()
    for output in ("ours.out", "peer.out", "time.txt", *outputs):
        (folder / output).unlink(missing_ok=True)
