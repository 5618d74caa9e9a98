#!/usr/bin/env python3
"""algorithms_test.py SOURCE BUILD: sends traps of version 3 with every pair of protocols that
docs/version3-users.md names, and tries what its table says of the two ways to lengthen a key."""

import itertools
import re
import sys
from pathlib import Path

from machine import Failure, Machine, require_own_machines, run_again_on_own_machine

ENGINE = "0x8000000001020304"
PASSPHRASE = "a long passphrase"


def protocols(page, kind):
    line = re.search(rf"^- `{kind}`:(.*(?:\n .*)*)", page, re.M)
    return re.findall(r"`([A-Z0-9-]+)`", line[1])


def interworking(page):
    """(signing protocol, length): whether both ways to make the key give the same."""
    rows = re.findall(r"^\| (`.*`) \| [0-9a-z ]+ \| (yes|no) \| (yes|no) \|$", page, re.M)
    return {(name, length): answer == "yes"
            for names, *answers in rows for name in re.findall(r"`([^`]+)`", names)
            for length, answer in zip(("AES-192", "AES-256"), answers)}


def user(signing, privacy):
    return f"{signing}/{privacy}"


def send(machine, name, signing, privacy, text):
    result = machine.run(f"snmptrap -v3 -e {ENGINE} -u {name} -l authPriv -a {signing} -A '{PASSPHRASE}' "
                         f"-x {privacy} -X '{PASSPHRASE}' localhost '' 1.3.6.1.6.3.1.1.5.1 "
                         f"1.3.6.1.2.1.1.5.0 s '{text}'")
    if result.returncode != 0:
        raise Failure(f"snmptrap does not send {text}:\n{result.stdout}")


def other_way(privacy):
    return privacy.removesuffix("-C") if privacy.endswith("-C") else privacy + "-C"


def check(page, machine):
    pairs = list(itertools.product(protocols(page, "AUTHENTICATION"), protocols(page, "PRIVACY")))
    same = interworking(page)
    config = Path("/root/.snmp/sentrel.conf")
    config.parent.mkdir()
    config.write_text("".join(f'createUser -e {ENGINE} {user(*pair)} {pair[0]} "{PASSPHRASE}" '
                              f'{pair[1]} "{PASSPHRASE}"\n' for pair in pairs))
    machine.start()
    expected = set()
    for signing, privacy in pairs:
        name = user(signing, privacy)
        send(machine, name, signing, privacy, name)
        expected.add(name)
        length = privacy.removesuffix("-C")
        if (signing, length) in same:
            text = f"{name} by {other_way(privacy)}"
            send(machine, name, signing, other_way(privacy), text)
            if same[signing, length]:
                expected.add(text)
    send(machine, user(*pairs[0]), *pairs[0], "last")
    machine.wait_for_log("= last\n")
    seen = set(re.findall(r"sysName\S* = (.*)", machine.log())) - {"last"}
    if seen != expected or len(same) != 2 * len({signing for signing, _ in pairs}):
        raise Failure(f"missing {sorted(expected - seen)}, not expected {sorted(seen - expected)}")
    print(f"{len(pairs)} pairs, {len(expected) - len(pairs)} that work across")


def main():
    source, build = Path(sys.argv[1]).resolve(), Path(sys.argv[2]).resolve()
    if len(sys.argv) == 3:
        require_own_machines()
        sys.exit(not run_again_on_own_machine())
    machine = Machine(Path(sys.argv[3]), source, build)
    try:
        check((source / "docs/version3-users.md").read_text(), machine)
    finally:
        machine.stop()


if __name__ == "__main__":
    try:
        main()
    except Failure as failure:
        sys.exit(f"FAILED: {failure}")
