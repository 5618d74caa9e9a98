"""What the commands that commands_test.py finds in the pages do, by their beginnings; and, whole, those
that no test can run."""

import re
from pathlib import Path

from machine import STORE, Failure


class Run:
    """How a command is tried: output and log are expressions for what it writes and what it makes
    Sentrel log; before and after are called with the machine."""

    def __init__(self, output="", log=None, sentrel=False, before=None, after=None):
        self.output, self.log, self.before, self.after = output, log, before, after
        self.sentrel = sentrel or log is not None

    def check(self, machine, command):
        if self.before:
            self.before(machine)
        if self.sentrel:
            machine.start()
        result = machine.run(command)
        if result.returncode != 0 or not re.search(self.output, result.stdout):
            raise Failure(f"gives {result.returncode} and\n{result.stdout}")
        if self.log is not None:
            machine.wait_for_log(self.log)
        machine.stop()
        if self.after:
            self.after(machine)


class NotRun:
    """Why; and pairs of a file and what must be in it for the command to be right."""

    def __init__(self, why, *named):
        self.why, self.named = why, named


def use_store(machine):
    machine.set_options(("Settings", "Raw", "False"))


def accept_users_only(machine):
    machine.set_options(*[("Community Strings", str(i), name) for i, name in enumerate(("alice", "bob"), 1)])


def filters_are_obeyed(machine):
    machine.start()
    for host in ("127.0.0.1", "10.9.9.9"):
        machine.run(f"snmptrap -v 2c -c public {host} '' 1.3.6.1.6.3.1.1.5.1")
    machine.wait_for_log(r"   10\.9\.9\.9\n")
    machine.stop()
    if "127.0.0.1" in machine.log():
        raise Failure("the device filters do not count")


def only_owner_reads(machine):
    mode = Path("~/.snmp/sentrel.conf").expanduser().stat().st_mode & 0o777
    if mode != 0o600:
        raise Failure(f"the mode is {mode:o}")


def let_others_write(machine):
    use_store(machine)
    STORE.chmod(0o666)
    STORE.parent.chmod(0o777)


def others_cannot_write(machine):
    if (STORE.stat().st_mode | STORE.parent.stat().st_mode) & 0o022:
        raise Failure("others can still write")


def add_faulty_module(machine):
    folder = Path("~/.local/share/sentrel/mibs").expanduser()
    folder.mkdir(parents=True)
    (folder / "WHOLE-MIB").write_text("WHOLE-MIB DEFINITIONS ::= BEGIN\nEND\n")


def keep_damaged_store(machine):
    use_store(machine)
    Path("registry.db.damaged-20261205-154937").write_bytes(STORE.read_bytes())


def use_own_store(machine):
    use_store(machine)
    own = Path("~/.local/state/sentrel/registry.db").expanduser()
    own.parent.mkdir(parents=True)
    own.write_bytes(STORE.read_bytes())


def own_store_is_empty(machine):
    own = "~/.local/state/sentrel/registry.db"
    if machine.run(f"sqlite3 {own} 'SELECT * FROM options'").stdout:
        raise Failure("options are left")


def preset(name):
    return "CMakePresets.json", f'"name": "{name}"'


GROUP = ("packaging/debian/postinst", "addgroup --quiet --system sentrel")
LONG = "builds and runs for minutes"
NAME = "a name, not a call"
QUESTION = ("packaging/debian/templates", "Template: sentrel/members-may-listen")
LINK_DOWN = r"snmpTrapOID = linkDown\n(.*\n)* +ifIndex(\.7)? = 7"
COLD_START = r"snmpTrapOID = coldStart"
TIMEOUT = '.timeout 1000'

RUN = {
    "snmptrap -v 2c -c public localhost '' 1.3.6.1.6.3.1.1.5.1": Run(log=COLD_START),
    "snmptrap -v 2c -c public localhost '' 1.3.6.1.6.3.1.1.5.3": Run(log=LINK_DOWN),
    "snmptrap -v3 -e 0x8000000001020304 -u alice": Run(
        log=COLD_START, before=accept_users_only),
    "sudo ss -lunp": Run(output=":162 .*Sentrel", sentrel=True),
    "nstat -az UdpRcvbufErrors": Run(output="UdpRcvbufErrors +0 "),
    "sysctl net.ipv4.conf.all.rp_filter": Run(output="(?s)rp_filter = .*UdpRcvbufErrors"),
    "sqlite3 -readonly": Run(output=r"Settings\|", before=use_store),
    f'sqlite3 -cmd "{TIMEOUT}" {STORE} <<': Run(),
    f'sqlite3 -cmd "{TIMEOUT}" {STORE} "INSERT': Run(before=use_store),
    "sqlite3 ~/.local/state/sentrel/registry.db": Run(before=use_own_store, after=own_store_is_empty),
    "sqlite3 registry.db.damaged-": Run(output="'Raw'", before=keep_damaged_store),
    "ssh root@MACHINE": Run(after=filters_are_obeyed),
    "sudo chmod go-w": Run(before=let_others_write, after=others_cannot_write),
    "mkdir -p ~/.snmp": Run(after=only_owner_reads),
    "tr -d '\\r' < traps.log": Run(output=r"^Dec-05 .*192\.0\.2\.7\n( {18}.+\n){3}"),
    "grep -Po": Run(output=r"(?s)sysUpTime.*snmpTrapOID"),
    "sentrel-mib lookup 1.3.6.1.4.1.9.9.41.2.0.1": Run(output=r"\tclogMessageGenerated\t$"),
    "sentrel-mib lookup --all 1.3.6.1.4.1.9.9.41.2.0.1":
        Run(output=r"\tclogMessageGenerated\tCISCO-SYSLOG-MIB\t$"),
    "sentrel-mib check ~": Run(before=add_faulty_module),
    "tools/replay-trap 'Link down.Trap' 192.0.2.50": Run(log=r"192\.0\.2\.50\n(.*\n)*.*linkDown"),
}

NOT_RUN = {
    "echo 'net.core.rmem_max = 16777216' | sudo tee /etc/sysctl.d/90-traps.conf\nsudo sysctl --system":
        NotRun("sets up the kernel of the machine"),
    "sudo adduser ann sentrel": NotRun("changes accounts", GROUP),
    "sudo deluser ann sentrel": NotRun("changes accounts", GROUP),
    "sg sentrel -c Sentrel": NotRun("needs the group", GROUP),
    "sudo dpkg-reconfigure sentrel": NotRun("needs the package; the test of its rights runs it", QUESTION),
    "echo sentrel sentrel/members-may-listen boolean true | sudo debconf-set-selections":
        NotRun("changes the answers of the machine", QUESTION),
    "chmod 700 sentrel-port && sudo setcap cap_net_bind_service=ep sentrel-port":
        NotRun("changes this build", ("tools/setup.sh", "setcap cap_net_bind_service=ep"),
               ("tools/setup.sh", "chmod 700")),
    "sudo systemctl disable --now snmptrapd.socket snmptrapd.service": NotRun("another package's units"),
    "sudo tcpdump -ni any udp port 162": NotRun("watches until it is stopped"),
    "sudo nft list ruleset | grep -n 162": NotRun("needs a firewall"),
    """# ufw
sudo ufw allow proto udp from 10.0.0.0/8 to any port 162
# firewalld
sudo firewall-cmd --permanent --add-service=snmptrap
sudo firewall-cmd --reload
# nftables
sudo nft add rule inet filter input ip saddr 10.0.0.0/8 udp dport 162 accept""":
        NotRun("needs three firewalls"),
    """./run     # installs what is missing, builds a release, starts Sentrel listening
./test    # installs what is missing, builds and runs every test""":
        NotRun("installs software", ("run", "build release Sentrel"), ("test", "ctest")),
    "cmake --preset release && cmake --build --preset release --target package":
        NotRun(LONG, preset("release"), ("packaging/CMakeLists.txt", "include(CPack)")),
    "cmake --preset dev && cmake --build --preset dev && ctest --preset dev": NotRun(LONG, preset("dev")),
    "cmake --preset asan && cmake --build --preset asan && ctest --preset asan\n"
    "cmake --preset tsan && cmake --build --preset tsan && ctest --preset tsan":
        NotRun(LONG, preset("asan"), preset("tsan")),
    """cmake --preset fuzz && cmake --build --preset fuzz
mkdir -p /tmp/corpus
build/fuzz/fuzz/fuzz_smi -max_total_time=600 /tmp/corpus fuzz/corpus/smi""":
        NotRun(LONG, preset("fuzz"), ("fuzz/CMakeLists.txt", "smi")),
    "SENTREL_SOAK_MINUTES=30 SENTREL_SOAK_SEED=7 QT_QPA_PLATFORM=offscreen build/dev/tests/soak/test_soak":
        NotRun(LONG, ("tests/soak/soak_test.cpp", "SENTREL_SOAK_MINUTES"),
               ("tests/soak/soak_test.cpp", "SENTREL_SOAK_SEED")),
    "bench/run": NotRun(LONG, ("bench/run", "bench_")),
    "sentrel-mib check": NotRun(NAME),
    "sentrel-mib check FILE...": NotRun(NAME),
    "sentrel-mib lookup --all": NotRun(NAME),
    "tools/regenerate-mibs build/release/bin/sentrel-mib STANDARDS enterprises.tsv NETDISCO ASN1":
        NotRun("needs the collections", ("tools/regenerate-mibs", "registrations")),
    """cmake --preset bench && cmake --build --preset bench
SENTREL_UNNAMED=unnamed.txt build/bench/bench/coverage build/bench/bin/sentrel-mibs.image FOLDER...""":
        NotRun(LONG, preset("bench"), ("bench/mib/coverage.cpp", "SENTREL_UNNAMED")),
    "sentrel-mib lookup": NotRun(NAME),
    "sentrel-mib pack": NotRun(NAME),
    "chmod go-w": NotRun(NAME),
    "sudo apt install ./build/release/package/sentrel_*.deb":
        NotRun("installs software; the test of the package does it",
               ("packaging/CMakeLists.txt", "${CMAKE_BINARY_DIR}/package)"),
               ("packaging/CMakeLists.txt", "NAME sentrel")),
}
