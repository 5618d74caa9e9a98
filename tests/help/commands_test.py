#!/usr/bin/env python3
"""commands_test.py SOURCE BUILD: runs every command that the manual and the documentation show, page
by page in their order, each page on a machine of its own. What the pages say of the result is in
RUN; what no test can run is in NOT_RUN. A command that is in neither fails the test.

In the manual every <pre> is a command, unless its class is "file"; in Markdown, every fence that has
no language or "sh". What is no command but has a name (a title in HTML, the words behind the language
in Markdown) is the file of that name for the commands that follow. Code within a line is a command
if it begins with sudo or with a program that the lists know."""

import html
import re
import subprocess
import sys
from pathlib import Path

from expected import NOT_RUN, RUN
from machine import Failure, Machine, require_own_machines, run_again_on_own_machine


def blocks_of(page):
    """The commands and files of a page, in their order: (name or None, text)."""
    text = page.read_text()
    if page.suffix == ".md":
        fence = re.compile(r"^```(\w*) ?(.*)\n(?s:(.*?))^```$|`([^`\n]+)`", re.M)
        found = [((language or "sh") == "sh", name, block, inline)
                 for language, name, block, inline in fence.findall(text)]
        if re.search(r"\n\n(?: {4}|\t)\S", text):
            raise Failure(f"{page.name}: a block without a fence")
    else:
        pre = re.compile(r'<pre( class="file")?(?: title="([^"]*)")?>(?s:(.*?))</pre>|<code>([^<]*)</code>')
        found = [(not is_file, name, html.unescape(block), html.unescape(inline))
                 for is_file, name, block, inline in pre.findall(text)]
        if text.count("<pre") != sum(bool(block) for _, _, block, _ in found):
            raise Failure(f"{page.name}: a <pre> that is not understood")
    known = {first_word(command) for command in [*RUN, *NOT_RUN]}
    for is_command, name, block, inline in found:
        inline = " ".join(inline.split())
        if block and (is_command or name):
            yield (None if is_command else name), block.strip("\n")
        elif " " in inline and (inline.startswith("sudo ") or first_word(inline) in known):
            yield None, inline


def first_word(command):
    return command.removeprefix("sudo ").split()[0]


def expectation(command):
    fitting = [key for key in RUN if command.startswith(key)]
    return max(fitting, key=len) if fitting else command if command in NOT_RUN else None


def check_lists(pages):
    """Every command is in a list, is shell, and names what there is; every list's command is shown."""
    commands = [(page, text) for page in pages for name, text in blocks_of(page) if name is None]
    for page, command in commands:
        if expectation(command) is None:
            raise Failure(f"{page.name} has a command that is neither run nor listed:\n{command}")
        if subprocess.run(["bash", "-n", "-c", command], check=False).returncode != 0:
            raise Failure(f"{page.name}: the shell does not understand\n{command}")
    shown = {expectation(command) for _, command in commands}
    for command in set(RUN) | set(NOT_RUN):
        if command not in shown:
            raise Failure(f"no page has the command\n{command}")
    return [page for page in pages if any(expectation(c) in RUN for p, c in commands if p == page)]


def check_named(source):
    for command, skip in NOT_RUN.items():
        for name, text in skip.named:
            file = source / name
            if not file.exists() or text not in file.read_text(errors="replace"):
                raise Failure(f"{command}\nrests on '{text}' in {name}, which is not there")


def write_file(name, text):
    file = Path(name).expanduser()
    file.parent.mkdir(parents=True, exist_ok=True)
    file.write_text(text + "\n")


def play(page, machine):
    for name, text in blocks_of(page):
        if name is not None:
            write_file(name, text)
        elif expectation(text) in RUN:
            try:
                RUN[expectation(text)].check(machine, text)
            except Failure as failure:
                raise Failure(f"{page.name}: {text}\n{failure}") from None


def main():
    source, build = Path(sys.argv[1]).resolve(), Path(sys.argv[2]).resolve()
    if len(sys.argv) == 5:
        root, page = Path(sys.argv[3]), Path(sys.argv[4])
        machine = Machine(root, source, build)
        try:
            play(page, machine)
        finally:
            machine.stop()
        return
    require_own_machines()
    pages = [*source.glob("help/*.htm*"), *source.glob("*.md"), *source.glob("docs/*.md")]
    check_named(source)
    failed = [page.name for page in sorted(check_lists(pages)) if not run_again_on_own_machine(page)]
    if failed:
        raise Failure("commands of " + ", ".join(failed))
    print("PASSED")


if __name__ == "__main__":
    try:
        main()
    except Failure as failure:
        sys.exit(f"FAILED: {failure}")
