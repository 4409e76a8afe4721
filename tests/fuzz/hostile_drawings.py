#!/usr/bin/env python3
"""Damages drawings in ways that hurt: grouped ones, handles at the limits, arrays, doubled owners,
records of the wrong kind. Each goes through grouping, copies, mirror, clipboard, undo, save, check,
list and picture; what breaks a rule is kept.

usage: hostile_drawings.py DRAFTHOST [--count N] [--seed N] [--keep FOLDER] [DRAWING...]

Rules: no crash, no hang, no word of a sanitizer; what was saved with status 0 loads again, and is
sound when it was sound before; a picture has at most five times the bytes of its drawing and 1 MB.
With the module beside DRAFTHOST it takes part. Without drawings those of the checkout are damaged.
"""
import argparse
import os
import pathlib
import random
import shutil
import subprocess
import sys
import tempfile

HERE = pathlib.Path(__file__).resolve().parent
LIMITS = ["FFFFFFFEFFFFFFFF", "FFFFFFFF00000000", "FFFFFFFFFFFFFFFF", "7FFFFFFFFFFFFFFF", "0", "1"]
KINDS = ["LAYER", "FOO", "DICTIONARY", "XRECORD", "BLOCK_RECORD", "INSERT", "LAYOUT", "VIEWPORT"]
NUMBERS = ["0", "-1", "1e308", "2147483647", "nan", "1000", "-2147483648", "\x1b[7m"]
SCRIPTS = [
    "VelmoGROUPMAKE ALL\n\nQSAVE\n",
    "VelmoGROUPMAKE ALL\n\nCOPY ALL\n\n0,0 1,1\n\nU\nREDO\nQSAVE\n",
    "VelmoGROUPMAKE ALL\n\nMIRROR ALL\n\n0,0 0,1\nN\nREGEN\nPICK ALL\nQSAVE\nU 9\nQSAVE\n",
    "COPYCLIP ALL\n\nPASTECLIP 5,5\nVelmoGROUPMAKE L\n\nERASE ALL\n\nU\nZOOM E\nGROUPLIST\nQSAVE\n",
    "NEW\nPOINT 1,1\nSWITCH\nCOPYCLIP ALL\n\nSWITCH\nPASTECLIP 0,0\nSWITCH\nQSAVE\n",
]


def tags_of(path):
    lines = path.read_bytes().replace(b"\r\n", b"\n").decode("latin-1").split("\n")
    return [[lines[i].strip(), lines[i + 1]] for i in range(0, len(lines) - 1, 2)]


def text_of(tags):
    return "".join(f"{code:>3}\n{value}\n" for code, value in tags).encode("latin-1")


def places(tags, *codes):
    return [i for i, tag in enumerate(tags) if tag[0] in codes]


def other_handle(tags, chance):
    found = places(tags, "5")
    return tags[chance.choice(found)][1] if found else "1"


def damage_handle(tags, chance):
    at = chance.choice(places(tags, "5", "105", "330", "340", "350", "360", "331") or [0])
    tags[at][1] = chance.choice(LIMITS + [other_handle(tags, chance)] * 4)


def damage_seed(tags, chance):
    for i, tag in enumerate(tags):
        if tag[1] == "$HANDSEED":
            tags[i + 1][1] = chance.choice(LIMITS)


def double_owner(tags, chance):
    at = chance.choice(places(tags, "330") or [0])
    tags.insert(at, ["330", other_handle(tags, chance)])


def make_array(tags, chance):
    inserts = [i for i in places(tags, "0") if tags[i][1] == "INSERT"]
    if not inserts:
        return
    begin = chance.choice(inserts) + 1
    end = next((i for i in range(begin, len(tags)) if tags[i][0] in ("0", "1001")), len(tags))
    size = chance.choice(["3", "1000", "32767", "2147483647"])
    tags[end:end] = [["70", size], ["71", size], ["44", "2.0"], ["45", "2.0"]]


def change_kind(tags, chance):
    tags[chance.choice(places(tags, "0") or [0])][1] = chance.choice(KINDS)


def change_number(tags, chance):
    found = places(tags, "10", "20", "40", "41", "50", "70", "71", "62", "66", "67", "69", "90")
    tags[chance.choice(found or [0])][1] = chance.choice(NUMBERS)


def change_text(tags, chance):
    at = chance.choice(places(tags, "1", "2", "3", "8") or [0])
    tags[at][1] = chance.choice(["", "x" * 3000, "\x1b[5m", "*Model_Space", "VELMO_GB", "\\U+FFFE"])


def move_object(tags, chance):
    objects = places(tags, "0")
    one = chance.randrange(len(objects) - 1)
    begin, end = objects[one], objects[one + 1]
    part = tags[begin:end]
    if chance.random() < 0.7:
        del tags[begin:end]
    if chance.random() < 0.7:
        to = chance.choice(places(tags, "0"))
        tags[to:to] = [list(tag) for tag in part]


def drop_tag(tags, chance):
    del tags[chance.randrange(len(tags))]


DAMAGES = [damage_handle, damage_handle, damage_handle, damage_seed, double_owner, make_array,
           change_kind, change_number, change_text, move_object, move_object, drop_tag]


class Trial:
    def __init__(self, program, folder):
        self.program = program
        self.folder = folder
        self.fault = ""

    def run(self, *arguments, script=None):
        command = [self.program, *arguments]
        try:
            done = subprocess.run(command, cwd=self.folder, input=script, capture_output=True,
                                  timeout=60, check=False)
        except subprocess.TimeoutExpired:
            self.fault = self.fault or f"hangs: {arguments}"
            return 1
        words = done.stderr.decode("utf-8", "replace")
        # A cancelled prompt for the marker point holds a selection set on purpose.
        at_fault = any("module fault" in line and "selection set" not in line
                       for line in words.splitlines())
        if done.returncode < 0 or done.returncode > 5 or at_fault or "Sanitizer" in words \
                or "runtime error" in words:
            self.fault = self.fault or f"status {done.returncode} of {arguments}: {words[-3000:]}"
        return done.returncode

    def try_drawing(self, text, script):
        drawing = self.folder / "x.dxf"
        for old in self.folder.iterdir():
            old.unlink()
        drawing.write_bytes(text)
        before = self.run("--check", "x.dxf")
        if before == 3:
            return "refused"
        self.run("--groups", "x.dxf")
        picture = self.run("--picture", "x.svg", "x.dxf")
        if picture == 0 and (self.folder / "x.svg").stat().st_size > 5 * len(text) + (1 << 20):
            self.fault = self.fault or "the picture is too large"
        self.run("-q", "--keep-going", "-s", "-", "x.dxf", script=script.encode())
        after = self.run("--check", "x.dxf")
        if after == 3 or (before == 0 and after != 0):
            self.fault = self.fault or f"check {before} before and {after} after: {script!r}"
        return "sound" if before == 0 else "damaged"


def grouped(program, path, folder):
    """The drawing as it is, and with everything in one group."""
    target = folder / "grouped.dxf"
    shutil.copy(path, target)
    subprocess.run([program, "-q", "-s", "-", str(target)], input=b"VelmoGROUPMAKE ALL\n\nQSAVE\n",
                   capture_output=True, timeout=60, check=False)
    return [tags_of(path), tags_of(target)]


def main():
    options = argparse.ArgumentParser()
    options.add_argument("program")
    options.add_argument("drawings", nargs="*", type=pathlib.Path)
    options.add_argument("--count", type=int, default=40)
    options.add_argument("--seed", type=int, default=int(os.environ.get("VELMO_SEED", "1")))
    options.add_argument("--keep", type=pathlib.Path)
    given = options.parse_intermixed_args()
    program = str(pathlib.Path(given.program).resolve())
    drawings = given.drawings or [*sorted((HERE / "corpus/dxf").glob("*.dxf")),
                                  HERE.parent.parent / "samples/plan.dxf",
                                  HERE.parent.parent / "host/dxf/load/new_drawing.dxf"]
    chance = random.Random(given.seed)
    counts = {}
    with tempfile.TemporaryDirectory() as name:
        scratch = pathlib.Path(name)
        sources = [tags for path in drawings for tags in grouped(program, path, scratch)
                   if len(places(tags, "0")) > 3]
        (scratch / "trial").mkdir()
        for number in range(given.count):
            tags = [list(tag) for tag in chance.choice(sources)]
            for _ in range(chance.choice([1, 1, 1, 2, 3])):
                chance.choice(DAMAGES)(tags, chance)
            trial = Trial(program, scratch / "trial")
            script, text = chance.choice(SCRIPTS), text_of(tags)
            outcome = trial.try_drawing(text, script)
            counts[outcome] = counts.get(outcome, 0) + 1
            if not trial.fault:
                continue
            counts["faults"] = counts.get("faults", 0) + 1
            print(f"seed {given.seed}, drawing {number}: {trial.fault}", flush=True)
            if given.keep:
                given.keep.mkdir(exist_ok=True)
                (given.keep / f"{given.seed}-{number}.dxf").write_bytes(text)
                (given.keep / f"{given.seed}-{number}.scr").write_text(script, "utf-8")
    print(f"seed {given.seed}: {given.count} drawings, {counts}")
    return 1 if counts.get("faults") else 0


if __name__ == "__main__":
    sys.exit(main())
