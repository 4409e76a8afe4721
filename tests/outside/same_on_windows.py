# drafthost.exe against the native drafthost: the same script gives the same drawing and transcript,
# and a per-user switch set for one run has its effect and is gone afterwards.
#
# usage: same_on_windows.py NATIVE_DRAFTHOST SAMPLES_FOLDER WORK_FOLDER LAUNCHER... DRAFTHOST.EXE
#
# Runs inside scripts/run_wine.sh, whose Wine prefix holds the logs.
import glob
import os
import re
import subprocess
import sys

from shared import check, expect, leave

SCRIPT = ("LINE 1,2 3,4\n\nVelmoGROUPMAKE W -1,-1 4,5\n\nCIRCLE 9,9 2\nVelmoGROUPMAKE ALL\n\n")
# Prints by the module's message service, which also writes the log when there is one.
MESSAGE = "(VelmoGroupVersion)\n"
SCRIPT_NAME = "gr\u00fcn \u4e2d.scr"


def run_script(host, work, script, *options):
    """Transcript of one run in the work folder, by a script with letters beyond ASCII in its name."""
    with open(os.path.join(work, SCRIPT_NAME), "w", encoding="utf-8", newline="") as stream:
        stream.write(script)
    run = subprocess.run([*host, *options, "--script", SCRIPT_NAME, "plan.dxf"], cwd=work,
                         stdin=subprocess.DEVNULL, capture_output=True,
                         env={**os.environ, "LC_ALL": "C.UTF-8"})
    expect(f"exit status of {host[-1]} ({run.stderr.decode().strip()})", run.returncode, 0)
    return run.stdout


def draft(host, work, script, target):
    """Transcript and saved drawing."""
    transcript = run_script(host, work, script + f"SAVEAS {target}\n")
    with open(os.path.join(work, target), "rb") as drawing:
        # Drawings are told by their whole paths.
        return re.sub(rb"[^ <]*[/\\](plan\.dxf|" + target.encode() + rb")", rb"\1",
                      transcript).replace(target.encode(), b"TARGET"), drawing.read()


def take_logs():
    """The final logs in the user's temporary folder, as text; they are removed."""
    logs = []
    for temporary in ("Temp", "AppData/Local/Temp"):
        logs += glob.glob(os.path.join(os.environ["WINEPREFIX"], "drive_c", "users", "*", temporary,
                                       "Velmo Diagnostics", "VelmoGroup.arx.log"))
    texts = []
    for log in logs:
        with open(log, encoding="utf-16", newline="") as stream:
            texts.append(stream.read())
        os.remove(log)
    return texts


def main(native, samples, work, *windows):
    if not os.path.exists(native):
        check(f"{native} is there; build the preset native first", False)
        return
    os.makedirs(work, exist_ok=True)
    with open(os.path.join(samples, "plan.dxf"), "rb") as source:
        plan = source.read()
    with open(os.path.join(work, "plan.dxf"), "wb") as copy:
        copy.write(plan)
    take_logs()
    with open(os.path.join(samples, "life_of_a_group.scr"), encoding="ascii") as source:
        life = source.read()
    for script in (SCRIPT, life):
        here = draft([native], work, script, "native.dxf")
        there = draft(windows, work, script, "windows.dxf")
        expect("transcript", there[0], here[0])
        expect("the drawings are the same", there[1] == here[1], True)
        expect("something was drawn", len(here[1]) > len(plan), True)
    run_script(windows, work, MESSAGE, "--registry", "DebugStartup=1")
    logs = take_logs()
    expect("logs with DebugStartup", len(logs), 1)
    expect("beginning of the log", [log[:21] for log in logs], ["Diagnostics started: "])
    expect("the message in the log", ["] GroupCommands : " in log for log in logs], [True])
    run_script(windows, work, MESSAGE)
    expect("logs once the switch is put back", take_logs(), [])


try:
    main(*sys.argv[1:])
except (OSError, KeyError, UnicodeError) as problem:
    check(f"{type(problem).__name__}: {problem}", False)
leave()
