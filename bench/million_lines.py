# A drawing of a million lines: loads, takes a group of 100,000 and saves, in bounded memory.
#
# usage: million_lines.py DRAFTHOST WORK_FOLDER [LAUNCHER...]
import os
import resource
import subprocess
import sys
import time

sys.path.append(os.path.join(os.path.dirname(__file__), "..", "tests", "outside"))
from shared import check, leave, write_drawing

LINES = 1_000_000
MEMBERS = 100_000
MOST_TIMES_THE_FILE = 6


def line(number):
    """In rows of a thousand, each of them one unit long."""
    x, y = number % 1000, number // 1000
    return (f"  0\nLINE\n  5\n{number + 0x1000:X}\n100\nAcDbEntity\n  8\n0\n100\nAcDbLine\n"
            f" 10\n{x}.25\n 20\n{y}.25\n 30\n0.0\n 11\n{x}.75\n 21\n{y}.75\n 31\n0.0\n")


def main(host, work):
    os.makedirs(work, exist_ok=True)
    source, target = os.path.join(work, "million.dxf"), os.path.join(work, "grouped.dxf")
    write_drawing(source, map(line, range(LINES)))
    rows = MEMBERS // 1000
    script = f"VelmoGROUPMAKE W 0,0 1000,{rows}\n\nSAVEAS {target}\n"
    began = time.monotonic()
    run = subprocess.run([*sys.argv[3:], host, "--script", "-", source], input=script, text=True,
                         capture_output=True)
    seconds = time.monotonic() - began
    peak = resource.getrusage(resource.RUSAGE_CHILDREN).ru_maxrss * 1024
    size = os.path.getsize(source)
    saved = open(target).read() if os.path.exists(target) else ""
    print(f"{size / 1e6:.0f} MB, {seconds:.1f} s, peak memory {peak / size:.2f} times the file")
    check(f"status {run.returncode} {run.stderr.strip()}", run.returncode == 0)
    check(f"{MEMBERS} found", f"{MEMBERS} found" in run.stdout)
    check("the count in the begin marker", f"  1\n{MEMBERS}\n" in saved)
    check("one record for each member", saved.count("\nVELMO Group entity\n") == MEMBERS)
    check("every line is there once", saved.count("\nAcDbLine\n") == LINES)
    check("memory", peak <= MOST_TIMES_THE_FILE * size)
    for path in (source, target):
        if os.path.exists(path):
            os.remove(path)


main(*sys.argv[1:3])
leave()
