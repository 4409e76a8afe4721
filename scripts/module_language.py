#!/usr/bin/env python3
# Sees that the module keeps to the language of its platform's compiler, as module_language.txt has
# it. Names each breach with file, line and what to write instead, and ends with 1 when there is one.
#
# Not seen: a lambda that turns into a function pointer, which that compiler lacks as well.
import concurrent.futures
import glob
import os
import re
import shutil
import subprocess
import sys

ROOMS = ["support", "module", "module/entry", "storage", "commands", "tracking"]
INTERFACE = ["host/objectarx", "host/mfc", "host/windows"]
# Where the one call stands that the others are sent to.
HOME_OF = {"support/decimal_text.h": "std::to_wstring"}

if shutil.which("clang++") is None:
    sys.exit("clang++ is not installed")
here = os.path.dirname(os.path.abspath(__file__))
os.chdir(os.path.dirname(here))


def read_table():
    """The rows of each kind: text or expression, and what to write instead."""
    table = {"has": [], "lacks": [], "name": [], "end": []}
    with open(os.path.join(here, "module_language.txt"), encoding="utf-8") as lines:
        for line in lines:
            kind, _, rest = line.strip().partition(" ")
            if kind in table:
                what, _, instead = rest.strip().partition(" -> ")
                table[kind].append((what, instead))
    return table


def complaints(source):
    """What clang says about one source and the module's headers in it."""
    folders = [f"-I{room}" for room in ROOMS] + [f"-isystem{folder}" for folder in INTERFACE]
    run = subprocess.run(["clang++", "-std=c++17", "-Wc++98-compat", "-fsyntax-only",
                          "-fno-caret-diagnostics", "-fno-color-diagnostics", "-ferror-limit=0",
                          *folders, source], stderr=subprocess.PIPE, text=True)
    said = [line for line in run.stderr.splitlines() if re.search(r"\b(warning|error): ", line)]
    return said if said or run.returncode == 0 else [f"{source}:1: error: clang ended in the middle"]


def language_breaches(sources, table):
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        said = {line for lines in pool.map(complaints, sources) for line in lines}
    for line in said:
        if any(text in line for text, _ in table["has"]):
            continue
        place, _, text = line.partition(" ")
        text = re.sub(r"^\w+: | \[-W.*", "", text)
        instead = next((row[1] for row in table["lacks"] if row[0] in line), "C++98")
        yield place, text, instead


def library_breaches(path, table):
    with open(path, encoding="utf-8") as file:
        lines = [re.sub(r'"(\\.|[^"\\])*"|//.*', '""', line) for line in file]
    strings = set(re.findall(r"std::w?string&? (\w+)", "".join(lines)))
    rules = list(table["name"])
    if strings:
        rules += [(rf"\b({'|'.join(strings)})\.{name}\(", instead) for name, instead in table["end"]]
    for number, line in enumerate(lines, 1):
        for expression, instead in rules:
            found = re.search(expression, line)
            if found and found.group() != HOME_OF.get(path):
                yield f"{path}:{number}:", f"'{found.group()}' is not in the library", instead


def position(breach):
    path, line = (breach[0].split(":") + ["", ""])[:2]
    return path, int(line) if line.isdigit() else 0


table = read_table()
files = [path for room in ROOMS for path in sorted(glob.glob(f"{room}/*.cpp") + glob.glob(f"{room}/*.h"))]
breaches = set(language_breaches([path for path in files if path.endswith(".cpp")], table))
for path in files:
    breaches.update(library_breaches(path, table))
for place, text, instead in sorted(breaches, key=position):
    print(f"{place} {text}; write: {instead}")
sys.exit(1 if breaches else 0)
