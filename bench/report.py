#!/usr/bin/python3 -B
# SPDX-License-Identifier: Apache-2.0
"""Runs the benchmarks and prints one table: ours beside libcli and a bare echo server, and the goals.

  report.py [--check] [--quick] [--startup] BUILD-FOLDER

Yardsticks run in the same command as ours, in turns, so that a busy machine slows both. --check ends with status 1
when a goal is missed; --quick measures less often; --startup measures only the start of epon-host.
"""

import argparse
import dataclasses
import json
import os
import re
import signal
import statistics
import subprocess
import sys
import tempfile
import time


@dataclasses.dataclass
class Row:
    what: str
    ours: float
    unit: str
    yardstick: float | None = None
    goal: str = ""
    good: bool | None = None


def at_most(row, limit):
    row.goal, row.good = f"at most {limit:,}", round(row.ours, 3 if row.unit == "M instr." else 2) <= limit
    return row


def at_least(row, limit):
    row.goal, row.good = f"at least {limit:,}", row.ours >= limit
    return row


def ratio_at_least(row, value, limit, what):
    row.goal, row.good = f"{what} {limit} or more: {value:.2f}", value >= limit
    return row


def ratio_at_most(row, value, limit, what):
    row.goal, row.good = f"{what} {limit} or less: {value:.2f}", value <= limit
    return row


class Bench:
    def __init__(self, folder, quick):
        self.folder = folder
        self.quick = quick

    def program(self, name):
        return os.path.join(self.folder, "bench", name)

    # --- In one process -------------------------------------------------------------------------------------------

    def times(self):
        """Median nanoseconds of each benchmark; repetitions take turns."""
        run = subprocess.run(
            [self.program("dispatch_bench"), "--benchmark_format=json", "--benchmark_repetitions=" + ("3" if self.quick else "9"),
             "--benchmark_enable_random_interleaving=true", "--benchmark_min_time=0.05"],
            check=True, capture_output=True, text=True)
        samples = {}
        for entry in json.loads(run.stdout)["benchmarks"]:
            if entry["run_type"] == "iteration":
                if entry.get("error_occurred"):
                    raise RuntimeError(f"{entry['name']}: {entry['error_message']}")
                samples.setdefault(entry["name"], []).append(entry["cpu_time"])
        return {name: statistics.median(values) for name, values in samples.items()}

    def dispatch_rows(self):
        times = self.times()
        ours, libcli = times["dispatch/1000"], times["dispatch_libcli/1000"]
        yield ratio_at_least(Row("typed line to handler, 1,000 commands", ours, "ns", libcli), libcli / ours, 5, "ratio")
        many = times["dispatch_same_lines/8000"]
        yield ratio_at_most(Row("the same lines among 8,000 commands", many, "ns"),
                            many / times["dispatch_same_lines/1000"], 1.2, "against 1,000")
        yield Row("each of 8,000 commands in turn", times["dispatch/8000"], "ns")
        yield Row("line of four words", times["dispatch_words/4"], "ns")
        yield Row("line of eight words", times["dispatch_words/8"], "ns")
        change = times["dispatch_node_change"]
        yield ratio_at_most(Row("line in another node than the last", change, "ns"), change / ours, 1.3, "against the same")
        yield at_most(Row("\"?\" with 220 candidates", times["help"] / 1000, "us"), 30)
        install, theirs = (next(value for name, value in times.items() if re.match(start + "[/:]", name))
                           for start in ("install", "install_libcli"))
        yield at_most(Row("installing 1,000 commands", install / 1000, "us", theirs / 1000), 1000)

    # --- Instructions ---------------------------------------------------------------------------------------------

    def instructions(self, what, count):
        with tempfile.TemporaryDirectory() as folder:
            run = subprocess.run(
                ["valgrind", "--tool=callgrind", "--toggle-collect=counted_part", f"--callgrind-out-file={folder}/out",
                 self.program("counted_lines"), what, str(count)], check=True, capture_output=True, text=True)
        return int(re.search(r"Collected : (\d+)", run.stderr)[1]) / count

    def instruction_rows(self):
        libcli = self.instructions("libcli", 500)
        yield at_most(Row("typed line to handler, 1,000 commands", self.instructions("ours", 2000), "instr.", libcli), 3000)
        yield at_most(Row("line of four words", self.instructions("words4", 2000), "instr."), 3000)
        yield at_most(Row("line of eight words", self.instructions("words8", 2000), "instr."), 3000)
        yield Row("line of the library, to its handler", self.instructions("library", 2000), "instr.")
        yield Row("the same, down to the simulated network", self.instructions("whole", 2000), "instr.")
        yield Row("\"?\" with 220 candidates", self.instructions("help", 50), "instr.")

    # --- Heap -----------------------------------------------------------------------------------------------------

    def heap_rows(self):
        run = subprocess.run([self.program("heap_use")], check=True, capture_output=True, text=True)
        bytes_each = {name: float(value) for name, value in (line.split() for line in run.stdout.splitlines())}
        yield at_most(Row("heap of an installed command", bytes_each["ours_one_node"], "bytes", bytes_each["libcli"]), 250)
        yield at_most(Row("the same, installed in three nodes", bytes_each["ours_three_nodes"], "bytes"), 250)
        yield at_most(Row("heap of a command of the library", bytes_each["library"], "bytes"), 250)

    # --- Over TCP -------------------------------------------------------------------------------------------------

    def start_server(self, kind, *before):
        server = subprocess.Popen([*before, self.program("console_server"), kind], stdout=subprocess.PIPE, text=True)
        return server, server.stdout.readline().strip()

    def drive(self, port, *what):
        run = subprocess.run([self.program("console_driver"), port, *what], check=True, capture_output=True, text=True)
        return float(run.stdout)

    def tcp_rows(self):
        # Server and client take turns on one processor: waking another one costs more than either server's work, and
        # how often that happens is the system's choice of the moment. The rows without a goal leave it the choice.
        everywhere = os.sched_getaffinity(0)
        os.sched_setaffinity(0, {max(everywhere)})
        try:
            servers = {kind: self.start_server(kind) for kind in ("ours", "echo", "libcli", "libcli-nodelay")}
        finally:
            os.sched_setaffinity(0, everywhere)
        spread = {kind: self.start_server(kind) for kind in ("ours", "echo")}
        ends = {"ours": "> ", "echo": "\n", "libcli": "> ", "libcli-nodelay": "> "}
        try:
            rates = {kind: [] for kind in servers}
            spread_rates = {kind: [] for kind in spread}
            pasted = []
            # Short turns, so that ours and its yardstick see the same machine.
            for _ in range(5 if self.quick else 15):
                os.sched_setaffinity(0, {max(everywhere)})
                for kind in ("ours", "echo", "libcli-nodelay"):
                    rates[kind].append(self.drive(servers[kind][1], "request", "0.3", ends[kind]))
                os.sched_setaffinity(0, everywhere)
                for kind, (_, port) in spread.items():
                    spread_rates[kind].append(self.drive(port, "request", "0.3", ends[kind]))
                pasted.append(self.drive(spread["ours"][1], "paste", "100000"))
            rates["libcli"].append(self.drive(servers["libcli"][1], "request", "1", "> "))
            helps = {kind: 1e6 / self.drive(servers[kind][1], "help", "0.5") for kind in ("ours", "libcli-nodelay")}
        finally:
            os.sched_setaffinity(0, everywhere)
            for server, _ in [*servers.values(), *spread.values()]:
                server.kill()
                server.wait()
        rate = {kind: statistics.median(values) for kind, values in rates.items()}
        against_echo = statistics.median(ours / echo for ours, echo in zip(rates["ours"], rates["echo"]))
        yield ratio_at_least(Row("one line at a time, beside a bare echo", rate["ours"], "lines/s", rate["echo"]), against_echo, 0.8, "ratio")
        yield Row("the same, on all processors", statistics.median(spread_rates["ours"]), "lines/s", statistics.median(spread_rates["echo"]))
        yield Row("the same, beside libcli", rate["ours"], "lines/s", rate["libcli"])
        yield Row("the same, beside libcli without delays", rate["ours"], "lines/s", rate["libcli-nodelay"])
        yield at_least(Row("lines pasted at once", statistics.median(pasted), "lines/s"), 150000)
        yield Row("\"?\" with 220 candidates, beside libcli", helps["ours"], "us", helps["libcli-nodelay"])

    def system_calls(self, kind, lines):
        with tempfile.NamedTemporaryFile("r") as report:
            tracer, port = self.start_server(kind, "strace", "-f", "-c", "-o", report.name)
            try:
                self.drive(port, "lines", str(lines), "\n" if kind == "echo" else "> ")
            finally:
                with open(f"/proc/{tracer.pid}/task/{tracer.pid}/children", encoding="ascii") as children:
                    for child in children.read().split():
                        os.kill(int(child), signal.SIGKILL)
                tracer.wait()
            return int(re.search(r"^100\.00\s+\S+\s+(?:\d+\s+)?(\d+)\s.*total", report.read(), re.MULTILINE)[1])

    def system_call_rows(self):
        def each(kind):
            return (self.system_calls(kind, 3000) - self.system_calls(kind, 1000)) / 2000
        yield at_most(Row("system calls of one line", each("ours"), "calls", each("echo")), 3)

    # --- Start-up -------------------------------------------------------------------------------------------------

    # Further in: part of the one before. The sum of the marked ones has a goal.
    PHASES = [
        ("  loading the programs and libraries", r"_dl_start$|_dl_start\b", False),
        ("  reading and building the network", r"sdk_sim::load_scenario_text", False),
        ("  checking options, binding the port", r"engine::prepare", False),
        ("  registering event printers", r"init_epon_driver", False),
        ("  installing nodes and commands, serving", r"CLI_activate", True),
        ("    making the pool of sessions", r"RBX_vty_init", False),
        ("  installing the packages", r"init_packages", True),
        ("  installing \"simulate\"", r"install_simulate_commands", False),
    ]

    def startup_profile(self):
        host = os.path.join(self.folder, "bin", "epon-host")
        with tempfile.TemporaryDirectory() as folder:
            out = f"{folder}/out"
            valgrind = subprocess.Popen(
                ["valgrind", "--tool=callgrind", f"--callgrind-out-file={out}", host, "--socket", f"{folder}/console",
                 "--port", str(25000 + os.getpid() % 5000)], stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True)
            if "console on" not in valgrind.stdout.readline():
                raise RuntimeError("epon-host did not start")
            time.sleep(0.2)
            valgrind.terminate()
            valgrind.wait()
            run = subprocess.run(["callgrind_annotate", "--inclusive=yes", "--threshold=100", "--auto=no", out],
                                 check=True, capture_output=True, text=True)
        costs = {}
        for line in run.stdout.splitlines():
            found = re.match(r"\s*([\d,]+) \([ \d.]+%\)\s+[^:]*:(.*)", line)
            if found:
                costs.setdefault(found[2], int(found[1].replace(",", "")))
        total = int(re.search(r"([\d,]+) \(100.0%\)\s+PROGRAM TOTALS", run.stdout)[1].replace(",", ""))
        return total, costs

    def startup_rows(self):
        total, costs = self.startup_profile()

        def cost(pattern):
            return max((value for name, value in costs.items() if re.match(pattern, name)), default=0)
        total -= cost(r"(\(anonymous namespace\)::)?stop_console")
        yield Row("from the process's start to its console", total / 1e6, "M instr.")
        installing = 0
        for what, pattern, installs in self.PHASES:
            installing += cost(pattern) if installs else 0
            yield Row(what, cost(pattern) / 1e6, "M instr.")
        yield at_most(Row("installing all commands of the library", installing / 1e6, "M instr."), 2)


def table(rows):
    print(f"{'':42} {'ours':>12} {'yardstick':>12} {'':8}  goal")
    for row in rows:
        yardstick = f"{row.yardstick:,.1f}" if row.yardstick is not None else ""
        verdict = "" if row.good is None else " good" if row.good else " MISSED"
        digits = 3 if row.unit == "M instr." else 1
        print(f"{row.what:42} {row.ours:12,.{digits}f} {yardstick:>12} {row.unit:8}  {row.goal}{verdict}", flush=True)
        yield row


def main():
    parser = argparse.ArgumentParser(usage=__doc__)
    parser.add_argument("--check", action="store_true")
    parser.add_argument("--quick", action="store_true")
    parser.add_argument("--startup", action="store_true")
    parser.add_argument("folder")
    options = parser.parse_args()
    bench = Bench(options.folder, options.quick)

    def rows():
        if not options.startup:
            for part in (bench.dispatch_rows, bench.instruction_rows, bench.heap_rows, bench.tcp_rows, bench.system_call_rows):
                yield from part()
        yield from bench.startup_rows()
    missed = [row.what.strip() for row in table(rows()) if row.good is False]
    if missed:
        print(f"bench: missed: {'; '.join(missed)}")
    return 1 if options.check and missed else 0


if __name__ == "__main__":
    sys.exit(main())
