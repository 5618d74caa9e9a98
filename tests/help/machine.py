"""A machine of a page's own for commands_test.py: a root folder and a network where nobody has used
Sentrel yet. It has the system's programs and this build's, Sentrel's state folder as the package
makes it, and commands that need another machine or root's password replaced."""

import os
import re
import sqlite3
import subprocess
import sys
import tempfile
import time
from pathlib import Path

LOG = Path("/var/log/traps.log")
STORE = Path("/var/lib/sentrel/registry.db")
KEY = r"HKEY_LOCAL_MACHINE\Software\VarnholtNet\Sentrel"
OTHER_ADDRESSES = ("192.0.2.50", "10.9.9.9")
REPLACED = {"sudo": 'exec "$@"', "ssh": 'shift; exec sh -c "$*"'}
OWN = ("unshare", "--map-root-user", "--net", "--mount")
SKIPPED = 77


class Failure(Exception):
    pass


def require_own_machines():
    if subprocess.run([*OWN, "true"], stderr=subprocess.DEVNULL, check=False).returncode != 0:
        print("No network of its own here.")
        sys.exit(SKIPPED)


def run_again_on_own_machine(*arguments):
    """Runs this script with a root for its Machine and the arguments behind its own. Whether it ends
    well."""
    with tempfile.TemporaryDirectory() as root:
        words = [*OWN, sys.executable, *sys.argv, root, *arguments]
        return subprocess.run(words, check=False).returncode == 0


def run_tool(*words):
    subprocess.run(words, check=True)


def bind(folder, root):
    """Shows a folder of the system in the root, a link as the same link."""
    target = root / folder.relative_to("/")
    if folder.is_symlink():
        target.symlink_to(folder.readlink())
    elif folder.exists():
        target.mkdir(parents=True, exist_ok=True)
        run_tool("mount", "--rbind", folder, target)


class Machine:
    """Use it in a process that has a mount and a network namespace; there is no way back."""

    def __init__(self, root, source, build):
        run_tool("mount", "-t", "tmpfs", "-o", "mode=755", "none", root)
        system = [Path("/" + name) for name in ("bin", "dev", "etc", "lib", "lib64", "proc", "sbin", "usr")]
        for folder in system:
            bind(folder, root)
        for folder in ("root", "tmp", "opt/replaced", "var/log", "var/lib/sentrel"):
            (root / folder).mkdir(parents=True, exist_ok=True)
        for folder in (source, build):
            bind(folder, root)
        os.chroot(root)
        os.chdir("/root")
        # Documentation names the tools from the project's folder.
        Path("tools").symlink_to(source / "tools")
        for name, action in REPLACED.items():
            command = Path("/opt/replaced") / name
            command.write_text(f"#!/bin/sh\n{action}\n")
            command.chmod(0o755)
        run_tool("ip", "link", "set", "lo", "up")
        for address in OTHER_ADDRESSES:
            run_tool("ip", "address", "add", address, "dev", "lo")
        os.umask(0o022)
        os.environ.update(HOME="/root", XDG_RUNTIME_DIR="/tmp", QT_QPA_PLATFORM="offscreen", LC_ALL="C.UTF-8",
                          PATH=f"/opt/replaced:{build}/bin:/usr/bin:/usr/sbin:/bin:/sbin")
        for name in ("XDG_STATE_HOME", "XDG_DATA_HOME", "XDG_CONFIG_HOME", "SNMP_PERSISTENT_DIR"):
            os.environ.pop(name, None)
        self.program = build / "bin/Sentrel"
        self.sentrel = None

    def run(self, command):
        return subprocess.run(["bash", "-c", "set -e -o pipefail\n" + command], text=True, timeout=60,
                              stdout=subprocess.PIPE, stderr=subprocess.STDOUT)

    def set_options(self, *options):
        """Each option is a key below Sentrel's own, a name and a value."""
        with sqlite3.connect(STORE) as store:
            store.execute("CREATE TABLE IF NOT EXISTS options (key TEXT COLLATE NOCASE, name TEXT COLLATE "
                          "NOCASE, value, PRIMARY KEY (key, name)) WITHOUT ROWID")
            store.executemany("INSERT OR REPLACE INTO options VALUES (?, ?, ?)",
                              [(f"{KEY}\\{key}", name, value) for key, name, value in options])
        store.close()

    def start(self):
        """Starts Sentrel anew, with an empty log."""
        self.stop()
        LOG.unlink(missing_ok=True)
        self.set_options(("Settings", "Logging Enabled", "True"), ("Settings", "Log Filename", str(LOG)))
        self.sentrel = subprocess.Popen([self.program], stderr=subprocess.DEVNULL)
        sockets = [Path("/proc/net/udp"), Path("/proc/net/udp6")]
        self.wait_for(lambda: any(":00A2 " in file.read_text() for file in sockets), "open port")

    def stop(self):
        if self.sentrel:
            self.sentrel.terminate()
            if self.sentrel.wait(20) != 0:
                raise Failure("Sentrel does not end well")
            self.sentrel = None

    def log(self):
        return LOG.read_text().replace("\r\n", "\n") if LOG.exists() else ""

    def wait_for_log(self, expression):
        self.wait_for(lambda: re.search(expression, self.log()), f"{expression} in the log")

    def wait_for(self, condition, what):
        end = time.monotonic() + 20
        while not condition():
            if time.monotonic() > end:
                raise Failure(f"no {what}; the log:\n{self.log()}")
            time.sleep(0.05)
