# SPDX-FileCopyrightText: 2026 The Quillet developers
# SPDX-License-Identifier: MIT
"""A desktop of one's own to start the real programs on: nothing of the user's is read or changed, no
host but this one is reached, and at the end nothing runs on.

    with Desktop() as desktop, Store(programs, desktop.environment) as store:
        home = Home(programs, desktop, store, folder)
        app = home.start("--section", "alerts")
"""

import json
import os
import re
import select
import shutil
import sqlite3
import subprocess
import tempfile
import time
import urllib.request
from contextlib import contextmanager
from pathlib import Path

import processes

A11Y_SERVICE = Path("/usr/share/dbus-1/services/org.a11y.Bus.service")
START_SECONDS = 10  # for each of the session's own processes, on a busy machine
FONTS = Path(__file__).resolve().parent.parent / "support/fonts.conf"
SAMPLE_APPS = 400  # enough for every list of the sample library

# Nothing but the accessibility bus can be started on it.
BUS = """<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
  <type>session</type>
  <listen>unix:path={folder}/bus</listen>
  <servicedir>{folder}/services</servicedir>
  <policy context="default">
    <allow send_destination="*" eavesdrop="true"/><allow eavesdrop="true"/><allow own="*"/>
  </policy>
</busconfig>
"""


class Programs:
    """Those of a build tree."""

    def __init__(self, folder):
        folder = Path(folder).resolve()
        self.quillet, self.sandbox = folder / "quillet", folder / "quillet-sandbox"
        self.library_edit, self.drag_source = folder / "library_edit", folder / "drag_source"


def clean_environment():
    """The user's without what would let their desktop, settings or network in."""
    lets_in = r"(QUILLET|XDG|LC|QT|GTK|AT_SPI|DBUS|WAYLAND)_|(DISPLAY|SESSION_MANAGER|XAUTHORITY)$|.*_proxy$"
    kept = {name: value for name, value in os.environ.items() if not re.match(lets_in, name, re.I)}
    dead = "http://127.0.0.1:9"  # whoever asks another host is refused at once
    return {**kept, "LANG": "en_US.UTF-8", "LC_CTYPE": "C.UTF-8", "TZ": "UTC", "http_proxy": dead,
            "https_proxy": dead, "no_proxy": "127.0.0.1,localhost"}  # fmt: skip


def first_line(descriptor, what):
    """What `what` says when it is ready. A line may come in pieces."""
    deadline, line = time.monotonic() + START_SECONDS, b""
    while not line.endswith(b"\n"):
        if not select.select([descriptor], [], [], max(0, deadline - time.monotonic()))[0]:
            raise TimeoutError(f"{what} did not start within {START_SECONDS} s")
        piece = os.read(descriptor, 1)
        if not piece:
            raise RuntimeError(f"{what} did not start")
        line += piece
    return line.decode().strip()


class Desktop:
    """A display, a window manager, a session bus and, unless it is not wanted, the accessibility bus. One
    of these at a time: this process itself becomes a client of its buses."""

    def __init__(self, size=(1600, 1000), is_accessible=True):
        self.size, self.is_accessible = size, is_accessible
        self.running = []

    def __enter__(self):
        processes.adopt_orphans()
        # Not below TMPDIR: a socket's path holds a hundred letters.
        self.folder = Path(tempfile.mkdtemp(prefix="quillet-", dir="/tmp"))
        self.environment = {**clean_environment(), "HOME": str(self.folder), "XDG_RUNTIME_DIR": str(self.folder),
                            "NO_AT_BRIDGE": "1", "GIO_USE_VFS": "local"}  # fmt: skip
        try:
            self._start_display()
            self._start_bus()
            self._start_window_manager()
        except BaseException:
            self.__exit__()
            raise
        return self

    def __exit__(self, *_):
        for process in reversed(self.running):
            processes.end(process)
        processes.end_orphans()
        shutil.rmtree(self.folder, ignore_errors=True)

    def start(self, words, **options):
        log = open(self.folder / "session.log", "ab")
        options = {"stdout": log, "stderr": log, **options}
        process = processes.start(words, env=self.environment, cwd=self.folder, **options)
        log.close()
        self.running.append(process)
        return process

    def _start_display(self):
        read, write = os.pipe()
        self.start(["Xvfb", "-displayfd", write, "-screen", "0", "{}x{}x24".format(*self.size),
                    "-nolisten", "tcp", "-noreset"], pass_fds=[write])  # fmt: skip
        os.close(write)
        self.environment["DISPLAY"] = ":" + first_line(read, "Xvfb")
        os.close(read)

    def _start_bus(self):
        services = self.folder / "services"
        services.mkdir()
        if self.is_accessible:
            shutil.copy(A11Y_SERVICE, services)
            self.environment["QT_LINUX_ACCESSIBILITY_ALWAYS_ON"] = "1"
        config = self.folder / "bus.conf"
        config.write_text(BUS.format(folder=self.folder))
        bus = self.start(["dbus-daemon", f"--config-file={config}", "--nofork", "--print-address=1"],
                         stdout=subprocess.PIPE)  # fmt: skip
        self.environment["DBUS_SESSION_BUS_ADDRESS"] = first_line(bus.stdout.fileno(), "dbus-daemon")

    def _start_window_manager(self):
        """It comes before any window, or that would never be told that it is active."""
        self.start(["openbox", "--sm-disable"])
        deadline = time.monotonic() + START_SECONDS
        asks = ["xprop", "-root", "_NET_SUPPORTING_WM_CHECK"]
        while "window id" not in self.output(asks):
            if time.monotonic() > deadline:
                raise TimeoutError("openbox did not start")
            time.sleep(0.01)

    def output(self, words):
        """What a command of this desktop prints."""
        return subprocess.run(words, env=self.environment, capture_output=True, text=True, timeout=10).stdout

    def screenshot(self, path, window="root"):
        # The same sight is the same file, whenever it is taken.
        subprocess.run(["import", "-silent", "-window", str(window), "-strip", "-define",
                        "png:exclude-chunks=date,time", str(path)], env=self.environment, check=True, timeout=20)  # fmt: skip


class Store:
    """The sample store, serving. What is asked of it stands in its log."""

    def __init__(self, programs, environment, folder, *options):
        self.log = Path(folder) / "store.log"
        with open(self.log, "wb") as log:
            words = [programs.sandbox, "--apps", SAMPLE_APPS, "--log", *options]
            self.process = processes.start(words, env=environment, stdout=subprocess.PIPE, stderr=log)
        self.address = first_line(self.process.stdout.fileno(), "quillet-sandbox")

    def __enter__(self):
        return self

    def __exit__(self, *_):
        processes.end(self.process)
        self.process.stdout.close()

    @property
    def environment(self):
        return {f"QUILLET_{name}_URL": self.address for name in ("ITUNES", "APP_STORE", "PRICE_DATA")}

    @contextmanager
    def faults(self, *texts):
        """Goes wrong so, one after the other, until it is left."""
        self._take_faults(texts)
        try:
            yield
        finally:
            self._take_faults([])

    def _take_faults(self, texts):
        asked = urllib.request.Request(f"{self.address}/faults", "\n".join(texts).encode(), method="PUT")
        urllib.request.build_opener(urllib.request.ProxyHandler({})).open(asked, timeout=10).close()

    def requests(self):
        """The paths that were asked for, in order."""
        return [line.split()[1] for line in self.log.read_text().splitlines() if line.startswith("GET ")]


NO_STORE = {f"QUILLET_{name}_URL": "http://127.0.0.1:9" for name in ("ITUNES", "APP_STORE", "PRICE_DATA")}


class Application:
    """One start of the application."""

    def __init__(self, process, log):
        self.process, self.log = process, log

    @property
    def pid(self):
        return self.process.pid

    def end(self, **how):
        """Its status; None where it had to be killed."""
        return processes.end(self.process, **how)

    def wait(self, seconds):
        return self.process.wait(seconds)

    def said(self):
        """But for what held its windows."""
        return "".join(line for line in self._log_lines() if not line.startswith("loop "))

    def holds(self):
        """What held its windows for longer than a frame: milliseconds of processor time, and the event."""
        return [(int(found[1]), found[2]) for line in self._log_lines() if (found := re.match(r"loop +(\d+) ms +(.*)", line))]

    def _log_lines(self):
        return self.log.read_text(errors="replace").splitlines(keepends=True)


class Home:
    """A user's folders, with a library. What was started in it ends with it."""

    def __init__(self, programs, desktop, store, folder):
        self.programs, self.desktop, self.folder = programs, desktop, Path(folder)
        self.store = store
        self.started = []
        self.under = []  # what starts the application
        self.is_new = False  # whether its user has never started it before, and is asked what they are asked
        self.data = self.folder / "data"
        self.library = self.data / "default.store"
        self.environment = {**desktop.environment, **(store.environment if store else NO_STORE),
                            "HOME": str(self.folder), "QUILLET_DATA_DIR": str(self.data),
                            "FONTCONFIG_FILE": str(FONTS)}  # fmt: skip
        for name in ("config", "cache", "state"):
            self.environment[f"XDG_{name.upper()}_HOME"] = str(self.folder / name)
        self.data.mkdir(parents=True, exist_ok=True)
        self.was_in("watchlist")

    def __enter__(self):
        return self

    def __exit__(self, *_):
        for app in self.started:
            app.end()

    # ---- What it holds

    def edit(self, *words):
        """Lets another process write to the library: see library_edit.cpp."""
        subprocess.run([self.programs.library_edit, self.library, *map(str, words)], check=True, timeout=60)

    def use_sample_library(self):
        """Of someone who used the application for a year."""
        subprocess.run([self.programs.sandbox, "--apps", str(SAMPLE_APPS), "--library", self.data, "--", "true"],
                       env=self.environment, check=True, timeout=60)  # fmt: skip

    def use_library_of(self, other):
        """A copy of a folder that holds one."""
        shutil.copytree(other, self.data, dirs_exist_ok=True)

    def set(self, **settings):
        """Writes the settings file anew."""
        lines = [f"{key}={value}\n" for key, value in settings.items()]
        file = self.folder / "config/quillet/quillet.conf"
        file.parent.mkdir(parents=True, exist_ok=True)
        file.write_text("[General]\n" + "".join(lines))

    def was_in(self, section):
        """As if the window had been closed there, and is remembered for nothing else."""
        file = self.folder / "state/quillet/windows.json"
        file.parent.mkdir(parents=True, exist_ok=True)
        file.write_text(json.dumps({"place": {"section": section}}))

    def forget_windows(self):
        """As if no window had been opened before: their sizes and places are gone."""
        shutil.rmtree(self.folder / "state", ignore_errors=True)

    def query(self, sql):
        """Rows of the library's database."""
        with sqlite3.connect(f"file:{self.library}?mode=ro", uri=True, timeout=5) as database:
            rows = database.execute(sql).fetchall()
        database.close()
        return rows

    # ---- What is run in it

    def run(self, *words, seconds=20, **environment):
        """The command line: its status, output and errors."""
        return subprocess.run([str(self.programs.quillet), *words], env={**self.environment, **environment},
                              capture_output=True, text=True, timeout=seconds)  # fmt: skip

    def json(self, *words):
        ended = self.run(*words, "--json")
        assert ended.returncode == 0, f"quillet {' '.join(words)}: {ended.stderr}"
        return json.loads(ended.stdout)

    def start(self, *words, **environment):
        """The application. With arguments that another one takes over it ends at once."""
        log = self.folder / f"application-{len(self.started)}.log"
        state = self.folder / "state/quillet/windows.json"
        if not self.is_new and not state.exists():
            state.parent.mkdir(parents=True, exist_ok=True)
            state.write_text('{"welcomed": true}')
        with open(log, "wb") as out:
            process = processes.start([*self.under, self.programs.quillet, *words], stdout=out, stderr=out,
                                      env={**self.environment, "QUILLET_LOG": "loop", **environment},
                                      cwd=self.folder)  # fmt: skip
        self.started.append(Application(process, log))
        return self.started[-1]
