# A picture of a grouped drawing in a browser: pointing at a member lights its group and no other.
# And the picture that the README shows is what the program draws.
#
# usage: picture.py DRAFTHOST SAMPLES_FOLDER WORK_FOLDER [LAUNCHER...]
import filecmp
import os
import subprocess
import sys

from selenium.webdriver.common.action_chains import ActionChains
from selenium.webdriver.common.by import By
from selenium.webdriver.common.keys import Keys

from shared import check, chromium, leave

# Groups of the README's picture, and what is erased of one without the module, which would mend it.
SHOWN = """VelmoGROUPMAKE (ssget "X" '((8 . "FURNITURE")))

VelmoGROUPMAKE W 7,0 10,8

VelmoGROUPMAKE W 10.2,0 18,9.4

"""
ERASED = 'ERASE (handent "D0") (handent "D3")\n\n'
GROUPS = "VelmoGROUPMAKE W 7,0 10,8\n\nVelmoGROUPMAKE W -2.9,-3 3,6\n\n"


def make_picture(host, samples, work, groups, erased=""):
    os.makedirs(work, exist_ok=True)
    grouped, picture = os.path.join(work, "plan.dxf"), os.path.join(work, "plan.svg")
    host = [*sys.argv[4:], host]
    for options, script in (([os.path.join(samples, "plan.dxf")], f"{groups}SAVEAS {grouped}\n"),
                            (["--no-module", grouped], f"{erased}QSAVE\n")):
        subprocess.run([*host, "--script", "-", *options], input=script, text=True, check=True,
                       stdout=subprocess.DEVNULL)
    subprocess.run([*host, "--picture", picture, grouped], check=True)
    return picture


def widths(browser, group):
    """Stroke widths of the strokes that are seen of a group's members."""
    strokes = browser.find_elements(By.CSS_SELECTOR, f"#{group} .m path")
    return {stroke.value_of_css_property("stroke-width") for stroke in strokes}


def point_and_look(browser, picture):
    browser.get("file://" + os.path.abspath(picture))
    members = browser.find_elements(By.CSS_SELECTOR, "#group1 .m")
    calm = widths(browser, "group1"), widths(browser, "group2")
    line = next(m for m in members if m.find_element(By.TAG_NAME, "title")
                .get_attribute("textContent").startswith("LINE "))
    title = line.find_element(By.TAG_NAME, "title").get_attribute("textContent")
    ActionChains(browser).move_to_element_with_offset(line.find_element(By.TAG_NAME, "path"), 3, 0).perform()
    lit = widths(browser, "group1"), widths(browser, "group2")
    row = browser.find_element(By.CSS_SELECTOR, "#group2 .row")
    ActionChains(browser).move_to_element(row).perform()
    by_legend = widths(browser, "group1"), widths(browser, "group2")
    heading = browser.find_element(By.CSS_SELECTOR, ".head")
    ActionChains(browser).move_to_element(heading).send_keys(Keys.TAB).perform()
    by_key = widths(browser, "group1"), widths(browser, "group2")
    handle = line.get_attribute("id")[1:]
    check(f"{len(members)} members of the first group", len(members) == 6)
    check(f"a calm picture: {calm}", calm[0] == calm[1] and len(calm[0]) == 1)
    check(f"the title {title!r}", f"LINE {handle}, layer " in title)
    check(f"all members lit by one: {lit}", lit[0] != calm[0] and len(lit[0]) == 1)
    check(f"the other group as before: {lit}", lit[1] == calm[1])
    check(f"the other one lit by its line in the legend: {by_legend}", by_legend == (calm[0], lit[0]))
    check(f"the first one lit by the Tab key: {by_key}", by_key == lit)


with chromium() as opened:
    point_and_look(opened, make_picture(*sys.argv[1:4], GROUPS))
drawn = make_picture(*sys.argv[1:4], SHOWN, ERASED)
shown = os.path.join(sys.argv[2], "..", "docs", "groups.svg")
check(f"docs/groups.svg is what the program draws: look at {drawn}, copy it",
      filecmp.cmp(shown, drawn, shallow=False))
leave()
