# A drawing in a browser: groups by mouse, what of it is saved, and the script of the session. And a
# drawing whose names are HTML: none of them runs.
#
# usage: window.py DRAFTHOST SAMPLES_FOLDER WORK_FOLDER
import filecmp
import json
import os
import re
import shutil
import subprocess
import sys
import time

from selenium.webdriver.common.action_chains import ActionChains
from selenium.webdriver.common.by import By
from selenium.webdriver.common.keys import Keys

from shared import check, chromium, leave, open_window, write_drawing

HOST, SAMPLES, WORK = (os.path.abspath(name) for name in sys.argv[1:4])
HTML = "<img src=x onerror=window.ran=1><script>window.ran=1</script>"


class Page:
    def __init__(self, browser, drawing):
        self.browser, self.drawing = browser, drawing
        self.host, address = open_window(HOST, drawing)
        browser.get(address)
        self.settle()

    def run(self, script, *values):
        return self.browser.execute_script(script, *values)

    def settle(self, *states):
        until = time.monotonic() + 60
        while time.monotonic() < until:
            state = self.run("return document.documentElement.dataset.state")
            if state in (states or ("ready", "asking")):
                return state
            time.sleep(0.02)
        raise SystemExit(f"the page stays {state}")

    def mouse(self, *points, shift=False):
        """Presses at the first point of the drawing, goes to the others and lets go."""
        spots = [[round(v) for v in self.run("return drafthost.toScreen(...arguments)", *point)]
                 for point in points]
        if shift:
            ActionChains(self.browser).key_down(Keys.SHIFT).perform()
        drag = ActionChains(self.browser, duration=20)
        pointer = drag.w3c_actions.pointer_action
        pointer.move_to_location(*spots[0])
        pointer.pointer_down()
        for spot in spots[1:]:
            pointer.move_to_location(*spot)
        pointer.pointer_up()
        drag.perform()
        if shift:
            ActionChains(self.browser).key_up(Keys.SHIFT).perform()
        self.settle()

    def point_at(self, *point):
        spot = self.run("return drafthost.toScreen(...arguments)", *point)
        move = ActionChains(self.browser)
        move.w3c_actions.pointer_action.move_to_location(*map(round, spot))
        move.perform()
        self.soon(lambda: not self.run("return document.getElementById('tip').hidden"))
        return self.text("tip")

    @staticmethod
    def soon(holds):
        """Whether it comes to hold: what the pointer does is drawn a moment later."""
        until = time.monotonic() + 10
        while time.monotonic() < until and not holds():
            time.sleep(0.02)
        return holds()

    def text(self, name):
        return self.run("return document.getElementById(arguments[0]).textContent", name)

    def press(self, command):
        self.browser.find_element(By.CSS_SELECTOR, f"[data-command={command}]").click()
        return self.settle()

    def type(self, *lines):
        for line in lines:
            self.browser.find_element(By.ID, "command").send_keys(line, Keys.ENTER)
        return self.settle("ready", "asking", "ended")

    def picked(self):
        """By the host's own PICKED; the page has to know the same."""
        before = len(self.text("transcript"))
        self.type("PICKED")
        listed = re.findall(r"(?m)^\d+ ([0-9A-F]+) ", self.text("transcript")[before:])
        check("selected() is the host's set", listed == self.run("return drafthost.selected()"))
        return set(listed)

    def end(self, status=0):
        self.type("QUIT")
        check("the program ends well", self.host.wait(20) == status)


def groups_of(drawing):
    found = subprocess.run([HOST, "--groups", "--json", drawing], stdout=subprocess.PIPE, text=True)
    return json.loads(found.stdout)[0]["groups"]


def all_of(group):
    return {group["begin"], group["end"], *group["members"]}


def ink_at(page, *point):
    """Colours on the canvas around a point of the drawing."""
    return page.run("""
        const [x, y] = drafthost.toScreen(...arguments), canvas = document.getElementById('drawing');
        const box = canvas.getBoundingClientRect(), k = canvas.width / box.width;
        return [...canvas.getContext('2d').getImageData((x - box.left) * k - 6, (y - box.top) * k - 6,
                                                        13, 13).data].join()""", *point)


def edit(browser):
    """Makes, picks, copies and saves groups by mouse."""
    drawing, source = os.path.join(WORK, "plan.dxf"), os.path.join(SAMPLES, "plan.dxf")
    shutil.copy(source, drawing)
    page = Page(browser, drawing)
    page.mouse((6.8, -0.2), (9, 4), (10.2, 8.2))
    check("a window picks what is in it", len(page.picked()) == 6)
    page.press("VelmoGROUPMAKE")
    rows = browser.find_elements(By.CSS_SELECTOR, "#groups li")
    check("one group is listed, and whole",
          [row.get_attribute("data-verdict") for row in rows] == ["whole"])
    begin = rows[0].get_attribute("data-begin")
    page.type("PICK NONE")
    other_door = 8.9, 4.08
    dull = ink_at(page, *other_door)
    tip = page.point_at(9.4, 3.8)
    check(f"the tip names member and group: {tip!r}",
          tip.startswith("LINE ") and f"group {begin}, whole" in tip)
    check("the whole group lights up under the pointer",
          page.soon(lambda: ink_at(page, *other_door) != dull))
    page.mouse((9.4, 3.8))
    whole = page.picked()
    check(f"a click picks the whole group: {whole}", len(whole) == 8 and begin in whole)
    page.mouse((9.4, 3.8), shift=True)
    check("Shift takes it away", page.picked() == set())
    page.mouse((9.6, 4.5), (9.5, 4), (9.4, 3.2))
    check("to the left it is a crossing window", page.picked() == whole)
    check("a command asks", page.press("COPY") == "asking")
    page.mouse((1, 1))
    page.mouse((1, 5))
    check("the copies are asked for until Enter", page.type("") == "ready")
    verdicts = page.run("return [...document.querySelectorAll('#groups li')].map(e => e.dataset.verdict)")
    check(f"the copy is a group: {verdicts}", verdicts == ["whole", "whole"])
    page.type("LINE", "0,0", "3,3")
    browser.find_element(By.ID, "command").send_keys(Keys.ESCAPE)
    page.settle("ready")
    page.press("ERASE")
    page.mouse((3.8, 3.5))
    page.type("")
    page.press("U")
    page.type("NONSENSE")
    page.run("document.querySelector('#groups li').click()")
    page.settle()
    check("a row of the list picks its group", page.picked() == whole)
    script = os.path.join(WORK, "session.scr")
    page.press("QSAVE")
    with open(script, "w", encoding="utf-8") as file:
        file.write(page.text("script"))
    page.end(1)  # of the command that is none
    check("the saved drawing is sound", subprocess.run([HOST, "--check", drawing]).returncode == 0)
    groups = groups_of(drawing)
    check("its groups are whole", [group["state"] for group in groups] == ["whole"] * 2)
    check("the first is what was picked", all_of(groups[0]) == whole)
    again = os.path.join(WORK, "again")
    run = subprocess.run([HOST, "-q", "-s", script, "--output-dir", again, source])
    check("the script runs and gives the same drawing", run.returncode == 0 and filecmp.cmp(
        os.path.join(again, "plan.dxf"), drawing, shallow=False))


def show_names(browser):
    """Names of the drawing come into the page as text."""
    drawing = os.path.join(WORK, "names.dxf")
    block = f"0\nBLOCK\n8\n0\n2\n{HTML}\n70\n0\n10\n0\n20\n0\n0\nLINE\n8\n0\n10\n0\n20\n0\n11\n9\n21\n0\n0\nENDBLK\n"
    write_drawing(drawing, [f"0\nINSERT\n8\n{HTML}\n2\n{HTML}\n10\n0\n20\n0\n",
                            f"0\nTEXT\n8\n{HTML}\n10\n0\n20\n3\n40\n1\n1\n{HTML}\n"], block)
    page = Page(browser, drawing)
    tip = page.point_at(0.4, 3.4)
    check(f"the layer's name stands in the tip: {tip!r}", HTML in tip)
    page.type("LIST", "ALL", "")
    check("and in the transcript", HTML in page.text("transcript"))
    page.type(HTML)
    check("nothing of it has run", page.run("return window.ran") is None and
          not browser.find_elements(By.TAG_NAME, "img"))
    page.end(1)


shutil.rmtree(WORK, ignore_errors=True)
os.makedirs(WORK)
with chromium() as opened:
    edit(opened)
    show_names(opened)
leave()
