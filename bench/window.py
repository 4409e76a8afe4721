# The window with 200,000 entities in a headless browser: how long until they are drawn, and how long
# frames take while the view is moved.
#
# usage: window.py DRAFTHOST WORK_FOLDER
import os
import sys
import time

sys.path.append(os.path.join(os.path.dirname(__file__), "..", "tests", "outside"))
from shared import chromium, open_window, write_drawing

COUNT = 200000
# Drags the view by the right button and gives the time between two frames.
PAN = """
const done = arguments[0], canvas = document.getElementById('drawing'), times = [];
let x = 400, last = performance.now();
canvas.setPointerCapture = () => {};
const send = type => canvas.dispatchEvent(new PointerEvent(type, {pointerId: 1, button: 2, buttons: 2,
    clientX: x, clientY: 300 + x / 3, bubbles: true}));
send('pointerdown');
requestAnimationFrame(function step(now) {
    times.push(Math.round(performance.now() - last));
    last = performance.now();
    x += 5;
    send(x < 700 ? 'pointermove' : 'pointerup');
    x < 700 ? requestAnimationFrame(step) : done(times.slice(1).sort((a, b) => a - b));
});
"""


def entity(i):
    side = int(COUNT ** 0.5)
    x, y = i % side * 2, i // side * 2
    if i % 10 == 9:
        return f"0\nCIRCLE\n8\nL{i % 7}\n10\n{x}\n20\n{y}\n40\n0.7\n"
    if i % 50 == 3:
        return f"0\nTEXT\n8\nL{i % 7}\n10\n{x}\n20\n{y}\n40\n0.5\n1\nT{i}\n"
    return (f"0\nLINE\n8\nL{i % 7}\n62\n{i % 6 + 1}\n10\n{x}\n20\n{y}\n"
            f"11\n{x + 1 + i % 3}\n21\n{y + i % 5 / 2}\n")


def measure(browser, host, drawing):
    begin = time.monotonic()
    session, address = open_window(host, drawing)
    loaded = time.monotonic()
    browser.get(address)
    while browser.execute_script("return document.documentElement.dataset.state") != "ready":
        time.sleep(0.02)
    drawn = time.monotonic()
    times = browser.execute_async_script(PAN)
    print(f"loaded in {loaded - begin:.1f} s, drawn {drawn - loaded:.1f} s later; a frame takes"
          f" {times[len(times) // 2]} ms, at most {times[-1]} ms")
    session.kill()


os.makedirs(sys.argv[2], exist_ok=True)
many = os.path.join(sys.argv[2], "many.dxf")
write_drawing(many, map(entity, range(COUNT)))
with chromium() as opened:
    measure(opened, os.path.abspath(sys.argv[1]), many)
