#!/usr/bin/python3
"""Both windows as a screen reader finds them on the accessibility bus (AT-SPI).

    check_accessibility.py PATH/TO/quillmere WORKDIR

Run inside dbus-run-session, with DISPLAY on an X server and the accessibility bus started. The
program starts with the text voice, the spoken alert on and a mode file whose one region is in
force at every minute. Prints what it checked; exits 1 on the first failure.
"""

import os
import subprocess
import sys
import time

import pyatspi
from gi.repository import GLib

QUILLMERE, WORK = sys.argv[1], sys.argv[2]
MAIN_TITLE = "Quillmere Speech Edition.  1.0.1"
PREDICT_TITLE = "Jupiter Radio Noise Storm Predictions"
ALERT = "Possible Activity:  Always   "
QUIET_SECONDS = 5
MAX_EVENTS_PER_SECOND = 7  # about 4 at rest; a new minute, hour or day adds a few


class Failure(Exception):
    pass


def check(condition, what):
    if not condition:
        raise Failure(what)
    print("ok:", what)


def pump(seconds):
    """Runs the event loop, so that listeners hear what the bus carries meanwhile."""
    loop = GLib.MainLoop()
    GLib.timeout_add(int(seconds * 1000), loop.quit)
    loop.run()


def wait_for(what, find, seconds=20):
    end = time.monotonic() + seconds
    while time.monotonic() < end:
        try:
            found = find()
        except Exception:  # the tree is changing under us: look again
            found = None
        if found:
            return found
        pump(0.1)
    raise Failure("timed out waiting for " + what)


def children(node):
    try:
        return [c for c in node if c is not None]
    except Exception:
        return []


def showing(node):
    return node.getState().contains(pyatspi.STATE_SHOWING)


def descendants(node):
    for child in children(node):
        yield child
        # A table's cells are its data, not controls; empty cells are fine.
        if child.getRoleName() != "table":
            yield from descendants(child)


def application():
    for app in pyatspi.Registry.getDesktop(0):
        if app is not None and app.name == "quillmere":
            return app
    return None


def window(app, name):
    for w in children(app):
        if w.name == name and showing(w):
            return w
    return None


def named(node, name, role=None):
    for d in descendants(node):
        if d.name == name and (role is None or d.getRoleName() == role):
            return d
    return None


def nameless(frame):
    return [d.getRoleName() for d in descendants(frame) if showing(d) and not d.name.strip()]


def xdotool(*args):
    return subprocess.run(["xdotool", *args], check=True, capture_output=True, text=True,
                          timeout=30).stdout.strip()


def focus_window(title):
    wid = xdotool("search", "--sync", "--name", "^" + title + "$").split()[0]
    xdotool("windowfocus", "--sync", wid)
    return wid


class Focus:
    """The last object that told the bus it has the focus."""

    def __init__(self):
        self.node = None
        pyatspi.Registry.registerEventListener(self.on_event, "object:state-changed:focused")

    def on_event(self, event):
        if event.detail1 == 1:
            self.node = event.source

    def after_key(self, key):
        self.node = None
        xdotool("key", key)
        return wait_for("the focus after " + key, lambda: self.node, 5)


def text_of(node):
    t = node.queryText()
    return t.getText(0, t.characterCount)


def main_window_checks(app):
    frame = wait_for("the main window", lambda: window(app, MAIN_TITLE))
    check(frame.getRoleName() == "frame", "the main window is a frame named by its caption")
    check(nameless(frame) == [], "every control of the main window has a name")
    for name in ["Command line", "Year", "Month", "Day", "Hour", "Minutes", "Seconds"]:
        check(named(frame, name, "text") is not None, "the main window has a box named " + name)
    elevation = [d for d in descendants(frame) if d.description == "Jupiter Elevation"]
    check(len(elevation) == 1 and elevation[0].name.startswith("EL: "),
          "a value label is named by its caption and described by its tool tip")
    alert = named(frame, ALERT, "label")
    check(alert is not None, "the alert label is named by the alert")
    return frame


def quiet_seconds_check():
    events = []

    def on_event(event):
        try:
            if event.host_application.name != "quillmere":
                return
            events.append((event.type, event.source.getRoleName(), event.source.name,
                           event.source.description, str(event.any_data)))
        except Exception:
            pass

    pyatspi.Registry.registerEventListener(on_event, "object")
    pump(QUIET_SECONDS)
    pyatspi.Registry.deregisterEventListener(on_event, "object")
    per_second = len(events) / QUIET_SECONDS
    print(f"measured: {len(events)} events in {QUIET_SECONDS} s at rest ({per_second:.1f}/s)")
    for e in events:
        print("  ", e)
    check(per_second <= MAX_EVENTS_PER_SECOND,
          f"at rest at most {MAX_EVENTS_PER_SECOND} events a second")
    check(not [e for e in events if e[2].startswith("Possible Activity")],
          "a standing alert is not sent again")
    # A label's name changes only to a new text: no label is written with what it had.
    last, repeated = {}, []
    for kind, _, _, description, data in events:
        if kind == "object:property-change:accessible-name":
            if last.get(description) == data:
                repeated.append(data)
            last[description] = data
    check(repeated == [], "each name change brings a new value")
    boxes = {e[2] for e in events if e[0].startswith("object:text-changed")}
    check(boxes <= {"Seconds", "Minutes", "Hour", "Day", "Month", "Year"},
          "only the time boxes change text at rest: " + ", ".join(sorted(boxes)))


def prediction_window_checks(app, focus):
    focus_window(MAIN_TITLE)
    xdotool("type", "--delay", "30", "p")
    xdotool("key", "Return")
    frame = wait_for("the prediction window", lambda: window(app, PREDICT_TITLE))
    check(frame.getRoleName() == "frame", "the prediction window is a frame named by its caption")
    check(nameless(frame) == [], "every control of the prediction window has a name")

    grid = named(frame, "Predicted events", "table")
    table = grid.queryTable()
    check(table.getColumnDescription(1) == "Begin" and table.getColumnDescription(2) == " End",
          "the grid's columns are headed Begin and End")
    check(table.getRowDescription(1) == "Always", "the grid's rows are headed by the modes")
    header = table.getColumnHeader(1)
    check(header is not None and header.name == "Begin" and
          header.getRoleName() == "table column header", "the column header is Begin")
    check(table.getAccessibleAt(0, 1).name == "Begin" and table.getAccessibleAt(1, 0).name ==
          "Always", "the grid's own cells keep their texts")

    chart = named(frame, "Day chart", "chart")
    check(chart is not None and
          chart.description.startswith("Always from 00:00 to 23:59 UT. Jupiter ") and
          " Sun " in chart.description,
          "the chart says the day in words: " + (chart.description if chart else ""))
    sun = named(frame, "Sun visibility", "chart")
    check(sun is not None and sun.description.startswith("Sun "),
          "the Sun bar says the Sun's hours: " + (sun.description if sun else ""))

    # Tab round the window, from wherever the focus stands, until the first date box comes again.
    focus_window(PREDICT_TITLE)
    day = named(frame, "GMT day", "text")
    walk = []
    for _ in range(30):
        node = focus.after_key("Tab")
        role = node.getRoleName()
        walk.append("grid" if role in ("table", "table cell") else node.name)
        if walk.count("GMT year") == 2:
            break
    cycle = walk[walk.index("GMT year"):] if "GMT year" in walk else walk
    print("measured: Tab order", cycle)
    expected = ["GMT year", "GMT month", "GMT day", "now", "Predict Events", "Previous Day",
                "Next Day", "Exclude times when Jupiter altitude is below, degrees",
                "Exclude times when Sun altitude is above, degrees", "grid", "Report", "Print",
                "Exit", "GMT year"]
    check(cycle == expected, "Tab walks the boxes, buttons, grid once, Report, Print, Exit")

    # Every button by the keyboard: Space on Next Day moves the date on.
    before = text_of(day)
    while focus.node.name != "Next Day":
        focus.after_key("Tab")
    xdotool("key", "space")
    wait_for("the next day", lambda: text_of(day) != before, 10)
    check(True, "Space on Next Day predicts the next day: " + before + " -> " + text_of(day))

    while focus.node.name != "Report":
        focus.after_key("Tab")
    xdotool("key", "space")
    dialog = wait_for("the report dialog", lambda: window(app, "Report Options"))
    check(dialog.getRoleName() == "dialog" and nameless(dialog) == [],
          "Space on Report opens the report dialog, every control named")
    xdotool("key", "Escape")
    wait_for("the dialog to close", lambda: window(app, "Report Options") is None, 10)
    focus_window(PREDICT_TITLE)  # no window manager here gives the focus back

    while focus.node.name != "Print":
        focus.after_key("Tab")
    xdotool("key", "space")
    question = wait_for("the print question",
                        lambda: [w for w in children(app) if showing(w) and w.name not in
                                 (MAIN_TITLE, PREDICT_TITLE)])
    check(True, "Space on Print opens " + question[0].getRoleName() + " " + question[0].name)
    xdotool("key", "Escape")
    wait_for("the question to close", lambda: window(app, question[0].name) is None, 10)
    focus_window(PREDICT_TITLE)

    while focus.node.name != "Exit":
        focus.after_key("Tab")
    focus.node = None
    xdotool("key", "space")
    wait_for("the prediction window to leave", lambda: window(app, PREDICT_TITLE) is None, 10)
    check(True, "Space on Exit leaves the prediction window")
    back = wait_for("the focus back on the main window", lambda: focus.node, 10)
    check(back.name == "Command line", "the command line has the focus again")


def alert_heard(out_path, started):
    """The alert line of the text voice, once, within two seconds of the welcome."""
    welcome_at = alert_at = None
    end = time.monotonic() + 15
    while time.monotonic() < end and alert_at is None:
        with open(out_path, encoding="utf-8") as f:
            lines = f.read().splitlines()
        now = time.monotonic() - started
        if welcome_at is None and any(l.startswith("Welcome to Quillmere") for l in lines):
            welcome_at = now
        if ALERT in lines:
            alert_at = now
        time.sleep(0.02)
    check(alert_at is not None, "the alert is said")
    print(f"measured: welcome at {welcome_at:.2f} s, alert at {alert_at:.2f} s after launch")
    check(alert_at - welcome_at <= 2.0, "the alert is heard within two seconds of the welcome")


def main():
    out_path = os.path.join(WORK, "spoken.txt")
    env = dict(os.environ, XDG_CONFIG_HOME=os.path.join(WORK, "config"), QT_QPA_PLATFORM="xcb",
               QT_ACCESSIBILITY="1", QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1")
    started = time.monotonic()
    with open(out_path, "w", encoding="utf-8") as out:
        program = subprocess.Popen([QUILLMERE], stdout=out, stderr=subprocess.STDOUT, env=env)
    try:
        alert_heard(out_path, started)
        app = wait_for("the program on the accessibility bus", application)
        focus = Focus()
        main_window_checks(app)
        quiet_seconds_check()
        prediction_window_checks(app, focus)
        with open(out_path, encoding="utf-8") as f:
            said = f.read().splitlines()
        check(said.count(ALERT) == 1, "the alert was said once while the same mode stood")
    except Failure as failure:
        print("FAILED:", failure)
        with open(out_path, encoding="utf-8") as f:
            print("--- spoken\n" + f.read())
        return 1
    finally:
        program.terminate()
        try:
            program.wait(10)
        except subprocess.TimeoutExpired:
            program.kill()
    print("The windows read well on the accessibility bus.")
    return 0


if __name__ == "__main__":
    sys.exit(main())
