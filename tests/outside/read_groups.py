# Reads drawings that drafthost grouped with ezdxf, an outside reader that shares nothing with us,
# and runs the scripts of the samples to their end.
#
# usage: read_groups.py DRAFTHOST SAMPLES_FOLDER WORK_FOLDER [LAUNCHER...]
import glob
import json
import os
import re
import subprocess
import sys

import ezdxf
from ezdxf.lldxf.const import DXFStructureError

from shared import check, expect, leave


def draft(host, script, drawing=None):
    command = [*sys.argv[4:], host, "--script", "-"] + ([drawing] if drawing else [])
    run = subprocess.run(command, input=script, text=True, capture_output=True)
    expect(f"exit status for {script!r} ({run.stderr.strip()})", run.returncode, 0)


def read(path, audit_like=None):
    """Loads a drawing; the auditor may find no more than in `audit_like`."""
    drawing = ezdxf.readfile(path)
    auditor = drawing.audit()
    allowed = ([], [])
    if audit_like is not None:
        former = ezdxf.readfile(audit_like).audit()
        allowed = (texts(former.errors), texts(former.fixes))
    expect(f"audit of {path}", (texts(auditor.errors), texts(auditor.fixes)), allowed)
    return drawing


def texts(entries):
    return sorted(entry.message for entry in entries)


def check_definitions(drawing, name, count):
    block = drawing.blocks.get(name)
    definitions = list(block)
    expect(f"entities of {name}", [e.dxftype() for e in definitions], ["ATTDEF"] * count)
    for definition in definitions:
        dxf = definition.dxf
        expect(f"definition of {name}",
               (dxf.tag, dxf.prompt, dxf.text, dxf.height, dxf.get("rotation", 0.0),
                dxf.get("halign", 0), dxf.get("valign", 0), dxf.layer, dxf.flags,
                dxf.field_length, tuple(abs(v) for v in dxf.insert)),
               (name, name, name, 1.0, 0.0, 0, 0, "VELMO_GFRZ", 1, 25, (0.0, 0.0, 0.0)))
    expect(f"origin of {name}", tuple(block.block.dxf.base_point), (0.0, 0.0, 0.0))


def check_marker(marker, name, handle_texts, point):
    dxf = marker.dxf
    expect(f"marker {name}",
           (dxf.name, dxf.layer, dxf.get("color", 256), dxf.get("linetype", "BYLAYER").upper(),
            dxf.get("xscale", 1.0), dxf.get("yscale", 1.0), dxf.get("zscale", 1.0)),
           (name, "VELMO_GFRZ", 256, "BYLAYER", 1.0, 1.0, 1.0))
    expect(f"place of {name}", tuple(dxf.insert), point)
    expect(f"attributes of {name}", [a.dxf.text for a in marker.attribs], handle_texts)
    for attribute in marker.attribs:
        expect(f"attribute of {name}",
               (attribute.dxf.tag, attribute.dxf.flags, attribute.dxf.field_length,
                attribute.dxf.height, attribute.dxf.layer, tuple(attribute.dxf.insert)),
               (name, 1, 25, 1.0, "VELMO_GFRZ", point))


def check_member(drawing, member):
    dictionary = member.get_extension_dict().dictionary
    expect("owner of the extension dictionary", dictionary.dxf.owner, member.dxf.handle)
    expect("extension dictionary owns hard", dictionary.dxf.hard_owned, 1)
    record = dictionary.get("VELMO_GROUP")
    expect("owner of the record", record.dxf.owner, dictionary.dxf.handle)
    expect("group record", [(tag.code, tag.value) for tag in record.tags],
           [(1, "VELMO Group entity")])


def check_group(drawing, types, point):
    """The last entities of model space: begin marker, members of these types, end marker."""
    entities = list(drawing.modelspace())[-len(types) - 2:]
    begin, members, end = entities[0], entities[1:-1], entities[-1]
    expect("members", [e.dxftype() for e in members], types)
    check_marker(begin, "VELMO_GB", [end.dxf.handle, str(len(types))], point)
    check_marker(end, "VELMO_GE", [begin.dxf.handle], point)
    for member in members:
        check_member(drawing, member)
    layer = drawing.layers.get("VELMO_GFRZ")
    expect("group layer", (layer.color, layer.dxf.linetype.upper(), layer.is_frozen(),
                           layer.is_off(), layer.is_locked()), (7, "CONTINUOUS", False, False, False))
    check_definitions(drawing, "VELMO_GB", 2)
    check_definitions(drawing, "VELMO_GE", 1)


def fenced(page, language):
    """The blocks of code of a page in one language."""
    return re.findall(rf"^```{language}\n(.*?)^```", page, re.MULTILINE | re.DOTALL)


def check_page(host, samples, work, grouped):
    """What docs/format.md says: its example is in the file, its program agrees with --groups."""
    with open(os.path.join(samples, "..", "docs", "format.md"), encoding="utf-8") as stream:
        page = stream.read()
    pair = os.path.join(work, "pair.dxf")
    draft(host, f"LINE 0,0 1,0\n\nLINE 0,1 1,1\n\nVelmoGROUPMAKE ALL\n\nSAVEAS {pair}\n")
    with open(pair, encoding="utf-8") as stream:
        lines = stream.read().splitlines()
    tags = "\n".join(f"{code.strip()} {value}" for code, value in zip(lines[::2], lines[1::2]))
    for example in fenced(page, "dxf"):
        shown = "\n".join(line.split(";")[0].strip() for line in example.splitlines())
        expect(f"the page's example from {shown[:20]!r} on is written", shown in tags, True)
    program = os.path.join(work, "list_groups.py")
    with open(program, "w", encoding="utf-8") as stream:
        stream.write(fenced(page, "python")[0])
    broken = os.path.join(work, "broken.dxf")
    subprocess.run([*sys.argv[4:], host, "--no-module", "--script", "-", pair], check=True,
                   input=f"PICK 0.5,1\nERASE\nSAVEAS {broken}\n", text=True, capture_output=True)
    for drawing in (pair, broken, grouped):
        listed = subprocess.run([sys.executable, program, drawing], check=True, text=True,
                                capture_output=True).stdout.splitlines()
        told = json.loads(subprocess.run([*sys.argv[4:], host, "--groups", "--json", drawing],
                                         text=True, capture_output=True).stdout)[0]
        expect(f"groups of {drawing}", listed,
               [" ".join([group["begin"], "in", group["space"],
                          "whole" if group["state"] == "whole" else "not whole",
                          *group["members"]]) for group in told["groups"]])


def main(host, samples, work):
    os.makedirs(work, exist_ok=True)
    lines = os.path.join(work, "lines.dxf")
    draft(host, "LINE 1,2 3,4\n\nLINE 5,6 7,8\n\nLINE 9,9 8,8\n\n"
                f"VelmoGROUPMAKE ALL\n\nSAVEAS {lines}\n")
    drawing = read(lines)
    check_group(drawing, ["LINE"] * 3, (9.0, 9.0, 0.0))
    expect("entities of model space", len(drawing.modelspace()), 5)
    expect("no trace of an unfinished marker", "ENT_HANDL" in open(lines).read(), False)

    plan = os.path.join(samples, "plan.dxf")
    grouped = os.path.join(work, "plan.dxf")
    draft(host, f"VelmoGROUPMAKE ALL\n\nSAVEAS {grouped}\n", plan)
    before, after = ezdxf.readfile(plan), read(grouped, plan)
    expect("types of the plan", sorted(e.dxftype() for e in after.modelspace()),
           sorted([e.dxftype() for e in before.modelspace()] + ["INSERT", "INSERT"]))
    expect("layouts of the plan", after.layout_names(), before.layout_names())

    check_page(host, samples, work, grouped)
    for sample in glob.glob(os.path.join(samples, "*.scr")):  # those that users are pointed to
        with open(sample, encoding="ascii") as script:
            draft(host, script.read())


try:
    main(*sys.argv[1:4])
except (DXFStructureError, OSError, KeyError, AttributeError) as problem:
    check(f"{type(problem).__name__}: {problem}", False)
leave()
