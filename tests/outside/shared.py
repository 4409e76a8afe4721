# What the scripts here and in bench/ share: failures, drawings, a browser, and the program with a
# window.
import contextlib
import subprocess
import sys
import tempfile

OPTIONS = ("--headless --no-sandbox --disable-gpu --disable-quic --no-first-run --disable-sync"
           " --disable-background-networking --disable-component-update --window-size=1500,950")
failed = []


def check(what, holds):
    if not holds:
        failed.append(what)
        print(f"failed: {what}")


def expect(what, seen, wanted):
    check(f"{what}: {seen!r} instead of {wanted!r}", seen == wanted)


def leave():
    """Ends the script; its status tells whether a check has failed."""
    print(f"{len(failed)} failed")
    sys.exit(1 if failed else 0)


def write_drawing(path, entities, blocks=""):
    """A drawing of nothing but these, in texts with the lines of DXF."""
    with open(path, "w", encoding="utf-8") as file:
        file.write("0\nSECTION\n2\nHEADER\n9\n$ACADVER\n1\nAC1027\n0\nENDSEC\n")
        if blocks:
            file.write(f"0\nSECTION\n2\nBLOCKS\n{blocks}0\nENDSEC\n")
        file.write("0\nSECTION\n2\nENTITIES\n")
        file.writelines(entities)
        file.write("0\nENDSEC\n0\nEOF\n")


@contextlib.contextmanager
def chromium():
    from selenium import webdriver  # not every script needs it
    with tempfile.TemporaryDirectory() as folder:
        options = webdriver.ChromeOptions()
        for option in OPTIONS.split() + [f"--user-data-dir={folder}"]:
            options.add_argument(option)
        browser = webdriver.Chrome(options=options)
        try:
            yield browser
        finally:
            browser.quit()


def open_window(host, *arguments, **pipes):
    """The program with a window, and the address of its page."""
    program = subprocess.Popen([host, "--window", "--no-browser", *arguments],
                               stdout=subprocess.PIPE, text=True, **pipes)
    return program, program.stdout.readline().strip()
