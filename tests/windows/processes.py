# SPDX-FileCopyrightText: 2026 The Quillet developers
# SPDX-License-Identifier: MIT
"""Processes that end with the one who started them, whatever becomes of that."""

import ctypes
import os
import signal
import subprocess
import time
from pathlib import Path

PR_SET_PDEATHSIG, PR_SET_CHILD_SUBREAPER = 1, 36
END_SECONDS = 3  # for one that was asked to end

libc = ctypes.CDLL(None, use_errno=True)


def _end_with_parent():
    libc.prctl(PR_SET_PDEATHSIG, signal.SIGKILL, 0, 0, 0)


def adopt_orphans():
    """From now on what a child leaves behind becomes a child of this process, and is found below."""
    libc.prctl(PR_SET_CHILD_SUBREAPER, 1, 0, 0, 0)


def start(words, **options):
    """As Popen; it is killed when the thread that calls this ends."""
    return subprocess.Popen([str(word) for word in words], stdin=subprocess.DEVNULL,
                            preexec_fn=_end_with_parent, **options)  # fmt: skip


def end(process, by=signal.SIGTERM, seconds=END_SECONDS):
    """Asks it to end, and returns its status, or None where it had to be killed."""
    if process.poll() is not None:
        return process.returncode
    process.send_signal(by)
    try:
        return process.wait(seconds)
    except subprocess.TimeoutExpired:
        process.kill()
        process.wait()
        return None


def _parent_of(pid):
    try:
        return int(Path(f"/proc/{pid}/stat").read_text().rpartition(")")[2].split()[1])
    except (OSError, IndexError):
        return None


def _children():
    mine = os.getpid()
    return [int(entry) for entry in os.listdir("/proc") if entry.isdigit() and _parent_of(entry) == mine]


def end_orphans():
    """Ends what the ended children have left behind, generation after generation."""
    deadline = time.monotonic() + END_SECONDS
    while children := _children():
        for child in children:
            os.kill(child, signal.SIGTERM if time.monotonic() < deadline else signal.SIGKILL)
        time.sleep(0.02)
        try:
            while os.waitpid(-1, os.WNOHANG)[0]:
                pass
        except ChildProcessError:
            return
