#!/usr/bin/env python3
"""Kills saves and batches at random moments and sees that what must hold does.

usage: kills.py DRAFTHOST DRAWING [SAVES [BATCHES]]

After a killed save the drawing is the old one or the new one, and the next save leaves no temporary
file. After a killed job of a batch the output folder holds whole drawings, and of a drawing that is
told as failed what it held before; after a killed batch nothing but whole drawings.
"""
import os
import pathlib
import random
import signal
import subprocess
import sys
import tempfile
import time


def children(process):
    try:
        text = pathlib.Path(f"/proc/{process}/task/{process}/children").read_text("ascii")
    except OSError:
        return []
    return [int(number) for number in text.split()]


# The leak check of a sanitizer has a child at the end that is no job, and waits for it for ever.
QUIET_END = {**os.environ, "ASAN_OPTIONS": "detect_leaks=0"}


def start(program, *arguments):
    return subprocess.Popen([program, "--no-module", "-q", *arguments], stdout=subprocess.DEVNULL,
                            stderr=subprocess.PIPE, env=QUIET_END)


def is_whole(path):
    return path.read_bytes().replace(b"\r\n", b"\n").endswith(b"\n  0\nEOF\n")


def temporaries(folder):
    return [path.name for path in folder.glob(".dxf-*")]


def how_long(program, *arguments):
    begun = time.monotonic()
    start(program, *arguments).communicate(timeout=60)
    return time.monotonic() - begun


def kill_saves(program, drawing, folder, times, chance):
    target, script = folder / "a.dxf", folder / "s.scr"
    script.write_text("POINT 1,1\nQSAVE\n" * 3, "ascii")
    old = drawing.read_bytes()
    target.write_bytes(old)
    longest = how_long(program, "-s", str(script), str(target))
    for number in range(times):
        target.write_bytes(old)
        run = start(program, "-s", str(script), str(target))
        time.sleep(chance.uniform(0, longest))
        run.kill()
        run.communicate(timeout=60)
        assert is_whole(target), f"save {number}: the drawing is torn"
        assert target.read_bytes() == old or is_whole(folder / "a.bak"), "no former drawing"
    start(program, "-s", str(script), str(target)).communicate(timeout=60)
    assert not temporaries(folder), temporaries(folder)


def told_as_failed(errors):
    lines = errors.decode("utf-8", "replace").splitlines()
    return {line.split(": ")[2] for line in lines if line.startswith("drafthost: failed: ")}


def kill_batches(program, drawing, folder, times, chance):
    names = [f"{letter}.dxf" for letter in "abcd"]
    files = [folder / name for name in names]
    for path in files:
        path.write_bytes(drawing.read_bytes())
    script, out, old = folder / "s.scr", folder / "out", drawing.read_bytes()
    script.write_text("POINT 1,1\nQSAVE\nPOINT 2,2\n", "ascii")
    arguments = ["-s", str(script), "-j", "2", "--output-dir", str(out), *map(str, files)]
    longest = how_long(program, *arguments)
    for number in range(times):
        for name in names:
            (out / name).write_bytes(old)
        run = start(program, *arguments)
        time.sleep(chance.uniform(0, longest))
        whole_run = number % 3 == 0
        for process in [run.pid] if whole_run else children(run.pid)[:1]:
            try:
                os.kill(process, signal.SIGKILL)
            except ProcessLookupError:
                pass  # it has come to its end
        errors = run.communicate(timeout=60)[1]
        for name in names:
            assert is_whole(out / name), f"batch {number}: {name} is torn"
        for path in told_as_failed(errors):
            kept = (out / pathlib.Path(path).name).read_bytes()
            assert kept == old, f"batch {number}: {path} failed, and its result is there"
    start(program, *arguments).communicate(timeout=60)
    assert not temporaries(out), temporaries(out)


def main():
    program, drawing = sys.argv[1], pathlib.Path(sys.argv[2])
    saves, batches = (int(text) for text in (sys.argv[3:] + ["50", "50"][len(sys.argv) - 3:]))
    seed = int(os.environ.get("VELMO_SEED", random.randrange(1 << 30)))
    print(f"VELMO_SEED={seed}")
    for work, times in (kill_saves, saves), (kill_batches, batches):
        with tempfile.TemporaryDirectory() as name:
            work(program, drawing, pathlib.Path(name), times, random.Random(seed))
    print(f"{saves} saves and {batches} batches killed, nothing lost")


if __name__ == "__main__":
    main()
