# The window without a browser: who is let in, what is refused, pages that come and go, and what an
# answer costs.
#
# usage: window_requests.py DRAFTHOST SAMPLES_FOLDER WORK_FOLDER [slow]
import http.client
import json
import os
import re
import shutil
import signal
import subprocess
import sys
import time
from urllib.parse import urlparse

from shared import check, leave, open_window, write_drawing

HOST, SAMPLES, WORK = (os.path.abspath(name) for name in sys.argv[1:4])


class Session:
    def __init__(self, *arguments):
        self.host, address = open_window(HOST, *arguments, stderr=subprocess.PIPE)
        self.address = urlparse(address)
        self.page = "one"

    def request(self, method, path, body=None, **headers):
        """Status, headers and body of the answer."""
        connection = http.client.HTTPConnection(self.address.hostname, self.address.port, timeout=60)
        sent = {name.replace("_", "-"): value for name, value in headers.items()}
        connection.request(method, path, body, sent)
        answer = connection.getresponse()
        body = answer.read()
        connection.close()
        return answer.status, answer.headers, body

    def post(self, body, **headers):
        return self.request("POST", self.address.path + "api", body,
                            **{"Content_Type": "application/json", **headers})

    def ask(self, what, **values):
        body = self.post(json.dumps({"do": what, "page": self.page, **values}))[2]
        return json.loads(body)

    def type(self, line):
        return self.ask("type", line=line)

    def end(self, status=0):
        check("the session ends", self.type("QUIT")["state"] == "ended")
        errors = self.host.communicate(timeout=30)[1]
        check(f"the program ends as it should: {errors}", self.host.returncode == status)


def admission(session):
    path, address = session.address.path, session.address
    wrong = path[:-2] + ("0" if path[-2] != "0" else "1") + "/"
    good = json.dumps({"do": "open", "page": "one"})
    refused = {
        "a wrong key": session.request("GET", wrong)[0],
        "no key": session.request("GET", "/")[0],
        "a key that is too short": session.request("GET", path[:20])[0],
        "a file of the key's folder": session.request("GET", path + "../../etc/passwd")[0],
        "another host": session.post(good, Host="evil.example:" + str(address.port))[0],
        "a host that begins well": session.post(good, Host="127.0.0.1.evil.example")[0],
        "another origin": session.post(good, Origin="http://evil.example")[0],
        "an origin at another port": session.post(good, Origin="http://127.0.0.1:1")[0],
        "no origin to speak of": session.post(good, Origin="null")[0],
        "a page of another site": session.post(good, Sec_Fetch_Site="cross-site")[0],
        "a form": session.post(good, Content_Type="application/x-www-form-urlencoded")[0],
        "a body that is too large": session.post(b" " * 100000)[0],
        "no JSON": session.post("{")[0],
        "a list": session.post("[]")[0],
        "very deep JSON": session.post("[" * 60000)[0],
        "JSON without what is needed": session.post("{}")[0],
        "numbers as words": session.post(json.dumps({"do": 1, "page": []}))[0],
    }
    expected = [403] * 3 + [404] + [403] * 6 + [404, 413] + [400] * 5
    check(f"all of these are refused: {refused}", list(refused.values()) == expected)
    status, headers, body = session.request("GET", path, Host="localhost:9000")
    check("a tunnel's port is let in", status == 200 and b"<canvas" in body)
    for name, part in {"Content-Security-Policy": "default-src 'self'", "Referrer-Policy": "no-referrer",
                       "X-Content-Type-Options": "nosniff"}.items():
        check(f"{name} is sent", part in headers.get(name, ""))
    check("no other origin may read", "Access-Control-Allow-Origin" not in headers)
    files = [session.request("GET", path + name)[2] for name in ("window.css", "window.js", "icon.svg")]
    check("the page is small", len(body) + sum(map(len, files)) < 60 * 1024)
    check("nothing in it is inline", not re.search(rb"\sstyle=|\son\w+=|<script(?! src)|<style", body))


def conversation(session):
    first = session.ask("open")
    check("a command can be typed", first["state"] == "ready" and first["prompt"] == "Command: ")
    check("the page gets the drawing", len(first["sheet"]["entities"]) > 30)
    answer = session.type("NONSENSE")
    check("a wrong command is told", answer["state"] == "ready" and
          'unknown command "NONSENSE"' in answer["transcript"])
    check("a wrong path too, and nothing is lost", "cannot be written" in
          session.type("SAVEAS /no/such/folder/plan.dxf")["transcript"])
    for request in ({}, {"x": "a", "y": 1, "r": 1}, {"x": 1e400, "y": 0, "r": 1}, {"x": 1, "y": 2}):
        session.ask("click", **request)
    for what, values in {"none such": {}, "space": {"space": 99999}, "group": {"begin": "FFF"},
                         "box": {}, "look": {"r": []}}.items():
        check(f"{what} is refused", "error" in session.ask(what, **values))
    asking = session.type("MOVE L")
    check("a selection is asked for", asking["wants"] == "selection")
    point = session.type("")
    check("then a point", point["wants"] == "point" and "base" not in point)
    check("then one from there", session.ask("click", x=40, y=40, r=0.01)["base"] == [40, 40])
    # The page goes away in the middle; another one comes.
    session.page = "two"
    check("a second page is told", session.ask("open")["error"].startswith("another page"))
    check("and may not work", "error" in session.type("1,1"))
    again = session.ask("open", takesOver=True)
    check("it may take over, at the same prompt", again["wants"] == "point" and again["base"] == [40, 40])
    check("with all that was said", "NONSENSE" in again["transcript"] and len(again["sheet"]["entities"]) > 30)
    session.page = "one"
    check("the first is told then", "error" in session.ask("ping"))
    session.page = "two"
    moved = session.ask("click", x=41, y=40, r=0.01)
    check("one entity has changed", len(moved["entities"]) == 1 and "sheet" not in moved)
    session.type("ERASE\nL")  # a line end in a request is a blank
    check("and is gone", session.type("")["gone"] == [moved["entities"][0]["h"]])
    session.ask("bye")
    session.page = "three"
    back = session.ask("open")
    check("a page that said goodbye leaves its place", back["changed"] and back["state"] == "ready")
    question = session.type("QUIT")
    check("work is not lost unasked", "Save the changes" in question["prompt"])
    check("no ends the session", session.type("N")["state"] == "ended")
    check("a failed command is the status", session.host.wait(30) == 4)


ESCAPE = None
# What a person types: with blanks and quotes, wrongly, with Esc at every stage, and Enter to repeat.
TYPED = ["LINE", "0,0", "nowhere", "5,5", ESCAPE, "", "@1,1 2,2", "", "TEXT 1,1 1 0", '; "say  so', "TEXT",
         "1,2", "", "", "what (it", "PICK L", "MOVE", "0,0", ESCAPE, "ERASE", '(handent "50")', "", "NONSENSE",
         "CIRCLE 0,0 3", "U", "", "REDO", "COPY", "L", "nothing", "R", "L", "A", '(handent "40")', "",
         "0,0", "1,1", "2,2", ESCAPE, "PICK ALL", ESCAPE, "VelmoGROUPMAKE W 7,0 10,8", "", "MIRROR C 9,3 9.5,4",
         "", "0,0", "0,0", "0,1", "", "PICKADD 0", "QSAVE"]


def script(drawing):
    """The script of a session gives the same drawing."""
    source, other = os.path.join(SAMPLES, "plan.dxf"), os.path.join(WORK, "my plan.dxf")
    shutil.copy(source, drawing)
    shutil.copy(source, other)
    session = Session(drawing)
    written = session.ask("open")["script"]
    for line in [*TYPED, f'SAVEAS "{other}"', "Y"]:
        answer = session.ask("cancel") if line is ESCAPE else session.type(line)
        written += answer["script"]
    session.end(1)  # of NONSENSE
    first = [open(name, "rb").read() for name in (drawing, other)]
    check("both are saved, and differ from the source", first[0] == first[1] != open(source, "rb").read())
    shutil.copy(source, drawing)
    run = subprocess.run([HOST, "-q", "-s", "-", drawing], input=written, text=True)
    again = [open(name, "rb").read() for name in (drawing, other)]
    check(f"the script gives the same drawings:\n{written}", run.returncode == 0 and first == again)


def endings(drawing):
    """A closed page ends a session with nothing to lose; Ctrl+C asks where there is something."""
    idle, busy = Session(drawing), Session(drawing)
    for session in (idle, busy):
        session.ask("open")
    busy.type("LINE 0,0 1,1")
    idle.ask("bye")
    busy.ask("bye")
    check("nothing to save: the program ends", idle.host.wait(20) == 0)
    line = busy.host.stderr.readline()
    check(f"work to save: it says where: {line}", busy.address.path in line and "closed" in line)
    busy.host.send_signal(signal.SIGINT)
    check("Ctrl+C says so once", "Ctrl+C again" in busy.host.stderr.readline())
    check("and the session goes on", busy.ask("open")["state"] == "asking")
    busy.host.send_signal(signal.SIGINT)
    check("twice it ends", busy.host.wait(20) == 130)
    busy.host.stderr.close()


def lights(session):
    """What lights up under the pointer is what a click selects, markers aside."""
    place = {"x": 50.4, "y": 7.25, "r": 0.1}
    entity = session.ask("look", **place)["handle"]
    markers = {group[0] for group in session.groups} | {group[1] for group in session.groups}
    lit = []
    for change in ((), ("VelmoGROUPNOTACTIVE",), ("ERASE 20.4,7.25", ""), ("VelmoGROUPACTIVE",),
                   ("PICKFIRST 0", "PICK 1.4,7.25", "PICKFIRST 1")):
        for line in ("PICK NONE", *change):
            session.type(line)
        found = session.ask("look", **place)
        lit.append(len(found["lit"]))
        selected = set(session.ask("click", **place).get("selected", []))
        check(f"lit is selected after {change}", set(found["lit"]) == selected - markers)
        check("and it is about the same entity", found["handle"] == entity)
    check(f"whole, off, off and short, short, off: {lit}", lit == [100, 1, 1, 99, 1])


def costs(slow):
    """A click in 10,000 entities in 100 groups: time, and bytes as it selects."""
    drawing, script = os.path.join(WORK, "many.dxf"), os.path.join(WORK, "many.scr")
    write_drawing(drawing, (f"0\nLINE\n8\nG{y}\n10\n{x}\n20\n{y}\n11\n{x + 0.8}\n21\n{y + 0.5}\n"
                            for y in range(100) for x in range(100)))
    with open(script, "w", encoding="ascii") as file:
        for group in range(100):
            file.write(f"VelmoGROUPMAKE (ssget \"X\" '((8 . \"G{group}\")))\n\n")
        file.write("QSAVE\n")
    subprocess.run([HOST, "-q", "-s", script, drawing], check=True)
    session = Session(drawing)
    check("100 groups", len(session.ask("open")["groups"]) == 100)
    listed = subprocess.run([HOST, "--groups", "--json", drawing], stdout=subprocess.PIPE).stdout
    session.groups = [(group["begin"], group["end"]) for group in json.loads(listed)[0]["groups"]]
    times, sizes = [], []
    for row in range(0, 100, 9):
        session.type("PICK NONE")
        begin = time.monotonic()
        body = session.post(json.dumps({"do": "click", "page": "one", "x": 50.4, "y": row + 0.25,
                                        "r": 0.1}))[2]
        times.append(time.monotonic() - begin)
        sizes.append(len(body))
        check("a click picks a group", len(json.loads(body)["selected"]) == 102)
    print(f"a click: {1000 * max(times):.1f} ms at most, {max(sizes)} bytes")
    check("a click answers within 50 ms", min(times) < (1 if slow else 0.05))
    check("with bytes for what it selects", max(sizes) < 2500)
    lights(session)
    session.type("QUIT")
    check("the changes are let go", session.type("N")["state"] == "ended")
    check("and the program ends well", session.host.wait(30) == 0)


shutil.rmtree(WORK, ignore_errors=True)
os.makedirs(WORK)
plan = os.path.join(WORK, "plan.dxf")
shutil.copy(os.path.join(SAMPLES, "plan.dxf"), plan)
one = Session(plan)
admission(one)
conversation(one)
script(plan)
endings(plan)
costs("slow" in sys.argv[4:])
leave()
