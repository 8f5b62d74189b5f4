#!/usr/bin/python3
"""Walks through the windows of the program on the accessibility bus and lists what a screen reader cannot read.

Usage: screen_reader.py PROGRAM PORT, in a folder with the samples, with a display, a window manager and a session bus.
On the port a catalogue of these samples answers.
"""

import collections
import json
import os
import pathlib
import subprocess
import sys
import time

import pyatspi
from gi.repository import GLib

PATIENCE = 20  # seconds for a window, an announcement of the program, its end
ROWS = 12  # of a table that are read
STOPS = 60  # of the Tab key in a window at most

# Roles that the user operates or reads; each needs a name. The contents of a text do not count as one.
NAMED = {
    pyatspi.ROLE_PUSH_BUTTON, pyatspi.ROLE_TOGGLE_BUTTON, pyatspi.ROLE_CHECK_BOX, pyatspi.ROLE_RADIO_BUTTON,
    pyatspi.ROLE_COMBO_BOX, pyatspi.ROLE_TEXT, pyatspi.ROLE_ENTRY, pyatspi.ROLE_PASSWORD_TEXT, pyatspi.ROLE_LIST,
    pyatspi.ROLE_TABLE, pyatspi.ROLE_TREE, pyatspi.ROLE_TREE_TABLE, pyatspi.ROLE_MENU, pyatspi.ROLE_MENU_ITEM,
    pyatspi.ROLE_PROGRESS_BAR, pyatspi.ROLE_SPIN_BUTTON, pyatspi.ROLE_DIALOG, pyatspi.ROLE_FRAME, pyatspi.ROLE_ALERT,
    pyatspi.ROLE_LINK, pyatspi.ROLE_PAGE_TAB, pyatspi.ROLE_DOCUMENT_FRAME, pyatspi.ROLE_SLIDER,
}
# These never have the focus for themselves.
CARRIERS = {pyatspi.ROLE_LAYERED_PANE, pyatspi.ROLE_MENU_BAR, pyatspi.ROLE_FILLER}
ROWED = {pyatspi.ROLE_TABLE, pyatspi.ROLE_TREE, pyatspi.ROLE_TREE_TABLE, pyatspi.ROLE_LIST}


class Reader:
    def __init__(self):
        self.announced = collections.deque(maxlen=500)
        self.faults = []
        self.place = "start"
        self.application = None
        for event in ("object:state-changed:focused", "object:active-descendant-changed", "object:text-caret-moved",
                      "object:text-selection-changed"):
            pyatspi.Registry.registerEventListener(self.hear, event)

    def hear(self, event):
        if event.type.endswith("focused") and not event.detail1:
            return
        target = event.any_data if event.type.endswith("descendant-changed") else event.source
        if target is not None:
            self.announced.append(target)

    @staticmethod
    def listen(seconds=0.02):
        """Lets the announcements come in."""
        context = GLib.MainContext.default()
        over = []
        GLib.timeout_add(int(seconds * 1000), lambda: over.append(True))  # once, as it returns no true value
        while not over:
            context.iteration(True)
        while context.iteration(False):
            pass

    def wait(self, what, condition, seconds=PATIENCE):
        end = time.monotonic() + seconds
        while time.monotonic() < end:
            self.listen()
            try:
                found = condition()
            except (GLib.Error, LookupError, RuntimeError):  # the object is being removed
                found = None
            if found:
                return found
        self.fault("in time: " + what)
        return None

    def fault(self, words):
        line = f"{self.place}: {words}"
        if line not in self.faults:
            self.faults.append(line)
            print("  NOT READ: " + words)

    # The tree

    def windows(self):
        desktop = pyatspi.Registry.getDesktop(0)
        found = [app for app in desktop if app is not None and app.name == "tarvex"]
        return [window for app in found for window in app if window is not None]

    def front(self):
        for window in self.windows():
            if window.getState().contains(pyatspi.STATE_ACTIVE):
                return window
        return None

    def shown(self, top):
        """Yields the visible accessibles below `top`, of a table only its first rows."""
        try:
            state = top.getState()
        except GLib.Error:
            return
        if not state.contains(pyatspi.STATE_SHOWING):
            return
        yield top
        count = top.childCount
        if top.getRole() in ROWED:
            count = min(count, ROWS * 10)
        for at in range(count):
            try:
                child = top.getChildAtIndex(at)
            except GLib.Error:
                continue
            if child is not None:
                yield from self.shown(child)

    @staticmethod
    def words(accessible):
        """Returns the name, or else that of the label that belongs to the accessible."""
        if accessible.name.strip() and accessible.getRole() != pyatspi.ROLE_COMBO_BOX:
            return accessible.name.strip()  # of a combo box it is the current entry
        for relation in accessible.getRelationSet():
            if relation.getRelationType() == pyatspi.RELATION_LABELLED_BY:
                return relation.getTarget(0).name.strip()
        return accessible.description.strip() if accessible.getRole() == pyatspi.ROLE_COMBO_BOX else ""

    def said(self, accessible):
        """Returns what is read when the focus arrives: role, name, contents."""
        contents = ""
        try:
            text = accessible.queryText()
            contents = text.getText(0, min(text.characterCount, 60)).strip()
        except NotImplementedError:
            pass
        if accessible.getRole() == pyatspi.ROLE_COMBO_BOX:
            contents = accessible.name
        return f"{accessible.getRoleName()} “{self.words(accessible)}”" + (f" {contents!r}" if contents else "")

    # What is wrong

    def check_names(self, window):
        named = 0
        for each in self.shown(window):
            if each.getRole() not in NAMED or (each.getRole() == pyatspi.ROLE_FRAME and each != window):
                continue
            if self.words(each):
                named += 1
            else:
                self.fault(f"a {each.getRoleName()} without a name, {self.path(each)}")
        return named

    @staticmethod
    def path(accessible):
        steps = []
        while accessible is not None and accessible.getRole() != pyatspi.ROLE_APPLICATION and len(steps) < 6:
            steps.append(accessible.name or accessible.getRoleName())
            accessible = accessible.parent
        return " in ".join(steps)

    def check_rows(self, window):
        rows = 0
        for table in self.shown(window):
            if table.getRole() not in ROWED:
                continue
            rows += self.read_table(table) if table.getRole() != pyatspi.ROLE_LIST else self.read_list(table)
        return rows

    def read_table(self, table):
        try:
            grid = table.queryTable()
        except NotImplementedError:
            return self.read_list(table)
        read = min(grid.nRows, ROWS)
        for row in range(read):
            cells = [grid.getAccessibleAt(row, column) for column in range(grid.nColumns)]
            if not any(cell is not None and cell.name.strip() for cell in cells):
                self.fault(f"row {row + 1} of “{table.name}” is read as nothing")
        return read

    def read_list(self, table):
        read = min(table.childCount, ROWS)
        for at in range(read):
            item = table.getChildAtIndex(at)
            if item is not None and item.getRole() in (pyatspi.ROLE_LIST_ITEM, pyatspi.ROLE_TABLE_CELL) \
                    and not item.name.strip():
                self.fault(f"entry {at + 1} of “{table.name}” is read as nothing")
        return read

    def focused(self, window):
        for each in self.shown(window):
            if not each.getState().contains(pyatspi.STATE_FOCUSED) or each.getRole() in CARRIERS:
                continue
            if each.getRole() == pyatspi.ROLE_FRAME and each != window:
                continue
            inside = each.getRole() in (pyatspi.ROLE_TABLE_CELL, pyatspi.ROLE_LIST_ITEM, pyatspi.ROLE_PAGE_TAB)
            if not inside or each.parent.getState().contains(pyatspi.STATE_FOCUSED):
                return each  # the current cell of another table and every current tab have the state as well
        return None

    def check_focus(self):
        """The last announcement says something, and what has the focus now was announced."""
        self.listen(0.15)
        window = self.front()
        if window is None:
            return None
        if not self.announced:
            self.fault("no focus is announced")
            return None
        last = self.announced[-1]
        try:
            said = self.said(last)
            if not self.words(last) and last.getRole() not in (pyatspi.ROLE_FRAME, pyatspi.ROLE_DIALOG):
                self.fault(f"the focus is announced as {said}, {self.path(last)}")
        except GLib.Error:
            return None
        now = self.focused(window)
        if now is not None and now != last and last.parent != now and now.parent != last and now not in self.announced:
            self.fault(f"the focus in {self.said(now)} is not announced")
        return said

    def tab_round(self):
        """Presses Tab until the focus comes back; returns the names of the stops."""
        stops = []
        while len(stops) < STOPS:
            before = len(self.announced) and self.announced[-1]
            self.announced.clear()
            press("Tab")
            end = time.monotonic() + 2
            while not self.announced and time.monotonic() < end:
                self.listen()
            if not self.announced:
                self.fault(f"Tab from {self.said(before) if before else 'the start'} announces nothing")
                break
            said = self.check_focus()
            if said is None or said in stops:
                break
            stops.append(said)
        press("shift+Tab")
        self.listen(0.2)
        return stops

    def visit(self, place, title, rounds=False):
        """Waits for the window with that title and reads it."""
        self.place = place
        window = self.wait(f"the window {title}", lambda: self.front_named(title))
        if window is None:
            return None
        self.listen(0.3)
        print(f"{place}: {window.getRoleName()} “{window.name}”")
        names, rows = self.check_names(window), self.check_rows(window)
        said = self.check_focus()
        print(f"  {names} names, {rows} rows; focus: {said}")
        if rounds:
            stops = self.tab_round()
            print(f"  Tab: {'; '.join(stops)}")
        return window

    def tab_to(self, name):
        """Presses Tab until the focus is in a control whose name ends so."""
        for _ in range(STOPS):
            now = self.focused(self.front())
            if now is not None and self.words(now).endswith(name):
                return
            press("Tab")
            self.listen(0.2)
        self.fault(f"Tab does not reach {name}")

    def row_of(self, text):
        """Returns the row, counted from 0, of the table of the front window that has a cell with that text, or None."""
        for table in self.shown(self.front()):
            if table.getRole() not in ROWED or table.getRole() == pyatspi.ROLE_LIST:
                continue
            grid = table.queryTable()
            for row in range(grid.nRows):
                if any(grid.getAccessibleAt(row, column).name == text for column in range(min(grid.nColumns, 4))):
                    return row
        self.fault(f"no row with {text}")
        return None

    def ticked(self, name):
        """Whether the row of a list with that name is ticked."""
        return any(each.name.startswith(name) and each.getState().contains(pyatspi.STATE_CHECKED)
                   for each in self.shown(self.front()))

    def front_named(self, title):
        window = self.front()
        return window if window is not None and title in window.name else None

    def gone(self, title):
        self.wait(f"{title} gone", lambda: not any(title in window.name for window in self.windows()))


def press(*chords):
    for chord in chords:
        subprocess.run(["xdotool", "key", "--clearmodifiers", chord], check=True)


def type_text(text):
    subprocess.run(["xdotool", "type", "--clearmodifiers", text], check=True)


# The walk

MAIN = "Tarvex图书馆管理系统"
CHOOSER = "请选择机读目录文件"
DESK = "套录库数据导入"
SEARCH = "从其他图书馆套录"
SETTINGS = pathlib.Path(os.environ.get("XDG_CONFIG_HOME", "")) / "tarvex"


def first_run(reader, program):
    """Without settings: the connection dialog, whose lists are opened by keys."""
    kept = SETTINGS.with_name("tarvex.kept")
    SETTINGS.rename(kept)
    running = subprocess.Popen([program])
    if reader.visit("connection dialog", "请设置要连接的数据库信息", rounds=True):
        press("alt+Down")
        read_popup(reader, "list of data sources")
        press("End", "Return")
        reader.listen(0.5)
        reader.place = "after the list of data sources"
        print(f"{reader.place}: {reader.check_focus()}")
        press("Escape")
    finish(running)
    kept.rename(SETTINGS)


def read_popup(reader, place):
    reader.place = place
    reader.listen(0.4)
    window = reader.front()
    if window is None:
        return
    for each in reader.windows():
        names, rows = reader.check_names(each), reader.check_rows(each)
        print(f"{place}: “{each.name}”, {names} names, {rows} rows")
    print(f"  focus: {reader.check_focus()}")


def finish(running):
    try:
        running.wait(PATIENCE)
    except subprocess.TimeoutExpired:
        running.kill()


def box(reader, place, *answer):
    """A message box with any text."""
    reader.place = place
    window = reader.wait(place, lambda: reader.front() is not None and
                         reader.front().getRole() in (pyatspi.ROLE_ALERT, pyatspi.ROLE_DIALOG) and reader.front())
    if window is not None:
        reader.visit(place, window.name)
    press(*answer)
    reader.listen(0.3)


def menus(reader):
    press("F10")
    read_popup(reader, "menu bar")
    for step in range(5):
        press("Down")
        read_popup(reader, f"menu {step + 1}")
        press("Escape", "Right")
    press("Escape", "Escape")


def open_workspace(reader):
    press("alt+1")
    if not reader.visit("chooser", CHOOSER, rounds=True):
        return
    reader.tab_to("浏览")
    press("space")
    if reader.visit("file dialog", "打开marc文件对话框", rounds=True):
        press("Escape")
    reader.visit("chooser after the file dialog", CHOOSER)
    choose_sample(reader)
    reader.visit("workspace", DESK, rounds=True)


def choose_sample(reader):
    """In the chooser."""
    reader.tab_to("机读目录数据文件")
    press("ctrl+a")
    type_text(str(pathlib.Path.cwd() / "sample.iso"))
    reader.listen(0.5)
    press("alt+s")


def workspace(reader):
    press("alt+w")
    reader.visit("workspace with the whole text", DESK, rounds=True)
    press("alt+w", "F3")
    reader.visit("find line", DESK, rounds=True)
    press("Escape", "ctrl+Tab")
    for place, keys in (("fields", ["ctrl+Home", "Down", "Down", "Down", "Down", "Down"]),
                        ("editor of a cell", ["Return"]), ("large editor", ["F6"]), ("fields after it", ["Escape"]),
                        ("list of fields", ["ctrl+Insert"]), ("fields after that", ["Escape"]),
                        ("list of subfields", ["Insert"]), ("fields again", ["Escape"]),
                        ("editor of a tag", ["F2"]), ("fields at last", ["Escape"])):
        press(*keys)
        reader.visit(place, DESK)
    press("Menu")
    read_popup(reader, "popup menu")
    press("Escape", "ctrl+Home", "Return", "ctrl+e")
    if reader.visit("leader assistant", "头标区", rounds=True):
        press("Escape")
    reader.visit("after the assistant", DESK)
    edit_row(reader, "100")
    press("ctrl+e")
    if reader.visit("assistant of field 100", "100字段辅助录入", rounds=True):
        press("Escape")
    reader.visit("after that assistant", DESK)


def edit_row(reader, tag):
    """Opens the editor of the first subfield of the field with that tag."""
    press("ctrl+Home", *["Down"] * (1 + (reader.row_of(tag) or 0)))  # below its indicators
    reader.listen(0.3)
    press("Return")
    reader.listen(0.3)


def proof_report(reader):
    """Of an ISBN with a wrong check digit."""
    edit_row(reader, "010")
    press("ctrl+a")
    type_text("7-5366-1234-5")
    press("Return", "alt+j")
    if reader.visit("report of the proof", "报告清单", rounds=True):
        press("alt+q")
    press("ctrl+z")
    reader.visit("workspace after the report", DESK)


def remarks(reader):
    press("alt+d")
    reader.listen(2)
    reader.visit("pane of remarks", DESK, rounds=True)
    for place, title, opens in (("report of the batch", "校对报告", "alt+g"), ("rules", "校验规则", "alt+u"),
                                ("tasks", "批量修改", "F9")):
        press(opens)
        if reader.visit(place, title, rounds=True):
            press("Escape")
            reader.wait(f"{title} left", lambda: reader.front_named(DESK))
    reader.visit("workspace after these windows", DESK)


def records(reader):
    press("alt+j")
    box(reader, "proof", "Return")
    press("alt+k")
    reader.visit("card", "MARC", rounds=True)
    press("Escape")
    reader.visit("workspace after the card", DESK)
    proof_report(reader)
    remarks(reader)
    press("alt+s")
    reader.visit("import", "套录库数据导入进度")
    reader.listen(2)
    press("alt+q")
    reader.visit("workspace after the import", DESK)
    press("alt+q")
    box(reader, "question", "alt+y")
    reader.visit("chooser again", CHOOSER)
    press("alt+q")


def lists(reader):
    press("alt+2")
    reader.visit("query of the store", "请输入查询条件", rounds=True)
    press("alt+o")
    reader.visit("store list", MAIN, rounds=True)
    press("alt+q")
    reader.visit("start page", MAIN)
    press("alt+3")
    reader.visit("query of the catalogue", "请输入查询条件")
    press("alt+o")
    reader.visit("catalogue list", MAIN, rounds=True)
    press("alt+m")
    reader.visit("book details", MAIN, rounds=True)
    press("alt+x")
    reader.listen(0.5)
    press("alt+s")
    reader.visit("sort order", "排序方式", rounds=True)
    press("alt+c")
    reader.visit("catalogue list again", MAIN)
    press("alt+p")
    reader.visit("print preview", "打印图书检索一览表", rounds=True)
    press("Escape")
    reader.visit("catalogue list at last", MAIN)
    press("alt+x")


def tools(reader):
    for place, title, opens, leaves in (("tidying", "整理机读目录文件", ["alt+4"], "Escape"),
                                        ("handbook", "使用手册", ["alt+5"], "Escape")):
        reader.visit("start page", MAIN)
        press(*opens)
        reader.visit(place, title, rounds=True)
        press(leaves)
    for place, button, title in (("split", "拆分文件", "拆分机读目录文件"), ("merge", "合并文件", "合并机读目录文件")):
        main = reader.visit("start page", MAIN)
        tool = main and next((each for each in reader.shown(main) if each.name == button
                              and each.getRole() == pyatspi.ROLE_PUSH_BUTTON), None)
        if tool is None:
            reader.fault(f"no button {button}")
            continue
        GLib.idle_add(act, tool)
        reader.listen(0.5)
        reader.visit(place, title, rounds=True)
        press("alt+q")
        box(reader, "question of " + place, "alt+y")


def keep_target(port):
    """Leaves one target in the list, so that no other library is asked."""
    folder = pathlib.Path(os.environ["XDG_STATE_HOME"]) / "tarvex" / "targets"
    folder.mkdir(mode=0o700, parents=True, exist_ok=True)
    target = {"name": "市图书馆", "protocol": "Z39.50", "host": "127.0.0.1", "port": int(port), "database": "Default"}
    with open(os.open(folder / "targets.json", os.O_CREAT | os.O_WRONLY, 0o600), "w", encoding="utf-8") as file:
        json.dump({"format": "targets", "version": 1, "targets": [target]}, file)


def catalogues(reader):
    """A search in another library's catalogue, the windows that belong to it, and a record beside the current one."""
    reader.visit("start page", MAIN)
    press("alt+6")
    reader.visit("search in catalogues", SEARCH, rounds=True)
    press("alt+s")
    reader.visit("refused search", SEARCH)
    press("alt+g")
    if reader.visit("targets", "目标", rounds=True):
        press("alt+t")
        reader.listen(3)
        reader.visit("tested target", "目标")
        press("Escape")
    reader.visit("search after the targets", SEARCH)
    press("alt+b")
    if reader.visit("batch of ISBNs", "批量查 ISBN", rounds=True):
        press("Escape")
    reader.visit("search after the batch", SEARCH)
    press("alt+q")
    reader.visit("start page again", MAIN)
    press("alt+1")
    reader.visit("chooser for the comparison", CHOOSER)
    choose_sample(reader)
    reader.visit("workspace for the comparison", DESK)
    reader.listen(1)
    press("ctrl+t")
    if reader.visit("search from the workspace", SEARCH):
        if not reader.ticked("市图书馆"):
            reader.tab_to("要检索的目标")
            press("space")
        press("alt+s")
        reader.listen(3)
        reader.visit("records found", SEARCH, rounds=True)
        press("alt+d")
        if reader.visit("comparison", "对照", rounds=True):
            press("Escape")
        reader.visit("search after the comparison", SEARCH)
        press("alt+q")
    reader.visit("workspace after the comparison", DESK)
    press("alt+q")
    box(reader, "question after the comparison", "alt+y")
    reader.visit("chooser after the comparison", CHOOSER)
    press("alt+q")


def act(button):
    """Presses the button; the answer may come only after the window that it opens is closed."""
    try:
        button.queryAction().doAction(0)
    except GLib.Error:
        pass
    return False


def main(program, port):
    reader = Reader()
    keep_target(port)
    first_run(reader, program)
    running = subprocess.Popen([program])
    reader.visit("notice", "Tarvex图书馆管理集成系统", rounds=True)
    press("Escape")
    if reader.visit("main window", MAIN, rounds=True):
        menus(reader)
        open_workspace(reader)
        workspace(reader)
        records(reader)
        lists(reader)
        tools(reader)
        catalogues(reader)
        press("alt+F4")
        box(reader, "the last question", "alt+y")
    finish(running)
    print(f"{len(reader.faults)} not read")
    for fault in reader.faults:
        print("  " + fault)
    return 1 if reader.faults else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
