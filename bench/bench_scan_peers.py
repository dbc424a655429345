#!/usr/bin/env python3
"""The catalogue server beside its peers on one tree of tagged files, all in one run.

Peers: MPD building its database, TagLib reading the same tags on one core, a bare walk that looks
at every file. All run at the same low priority, as the server chooses it for itself. Figures are
medians; processor time is user and system time of all threads.
"""

import argparse
import json
import os
import pathlib
import shutil
import socket
import statistics
import subprocess
import tempfile
import time
import urllib.parse

import media_tree

OLD_DATE = 1_000_000_000
EXTENSIONS = "MP3:OGG:FLAC:WMA:M4A"


class Cost:
    """Wall and processor time, in seconds, and peak memory of one run, in MB, where it is asked."""

    def __init__(self, wall, usage):
        self.wall = wall
        self.processor = usage.ru_utime + usage.ru_stime
        self.peak = 0.0


def background():
    os.nice(19)


def end(process, began):
    """Waits for a process and tells what it cost."""
    _, status, usage = os.wait4(process.pid, 0)
    process.returncode = os.waitstatus_to_exitcode(status)
    return Cost(time.monotonic() - began, usage)


def peak_memory(process):
    """In MB; what wait4 tells is never below the memory of this script."""
    status = pathlib.Path(f"/proc/{process.pid}/status").read_text(encoding="ascii")
    return int(status.partition("VmHWM:")[2].split()[0]) / 1024


def plain(*command):
    """Runs a program; its only line of output is the number of files that it met."""
    began = time.monotonic()
    process = subprocess.Popen(command, stdout=subprocess.PIPE, text=True, preexec_fn=background)
    files = int(process.stdout.read())
    return end(process, began), files


def server(program, app, tree, extended=False):
    """One scan, this script in the place of the main program; `extended` as ExtendedTags."""
    began = time.monotonic()
    process = subprocess.Popen([program, "--serve"], stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                               text=True)
    request = {"request": "scan", "appDir": urllib.parse.quote(str(app)),
               "mediaDir": urllib.parse.quote(str(tree)), "audioExtensions": EXTENSIONS,
               "videoExtensions": "AVI", "decimalSymbol": ".", "extendedTags": extended}
    process.stdin.write(json.dumps(request) + "\n")
    process.stdin.flush()
    files = 0
    for line in process.stdout:
        event = json.loads(line)
        if event["event"] == "DBError":
            raise RuntimeError(event["description"])
        if event["event"] == "ShowProgress" and event["step"] == 1:
            files = event["count"]
        if event["event"] == "UnhookDB":
            os.replace(app / "tags_work.mdb", app / "tags.mdb")
        if event["event"] == "StatusChanged" and event["state"] in (4, -1):
            break
    peak = peak_memory(process)
    process.stdin.close()
    cost = end(process, began)
    cost.peak = peak
    return cost, files


MPD_SETTINGS = """music_directory "{tree}"
db_file "{work}/mpd.db"
state_file "{work}/mpd.state"
bind_to_address "{work}/mpd.socket"
log_file "{work}/mpd.log"
audio_output {{
    type "null"
    name "none"
}}
"""


def songs(address):
    """The number of files in MPD's database."""
    with socket.socket(socket.AF_UNIX) as connection:
        connection.connect(str(address))
        connection.sendall(b"stats\nclose\n")
        with connection.makefile() as answer:
            return next(int(line.split()[1]) for line in answer if line.startswith("songs: "))


def mpd(work, tree):
    """Starts MPD without a database, which makes it build one, and ends it afterwards."""
    for old in work.glob("mpd.*"):
        old.unlink()
    settings = work / "mpd.conf"
    settings.write_text(MPD_SETTINGS.format(work=work, tree=tree))
    began = time.monotonic()
    process = subprocess.Popen(["mpd", "--no-daemon", settings], stderr=subprocess.DEVNULL,
                               preexec_fn=background)
    log = work / "mpd.log"
    while not (work / "mpd.db").exists() or (work / "mpd.db").stat().st_size == 0:
        if process.poll() is not None:
            raise RuntimeError("mpd ended: " + (log.read_text() if log.exists() else ""))
        time.sleep(0.005)
    wall = time.monotonic() - began
    files = songs(work / "mpd.socket")
    peak = peak_memory(process)
    process.terminate()
    cost = end(process, began)
    cost.wall, cost.peak = wall, peak
    return cost, files


def touch_some(tree, turn):
    """Gives every hundredth file another date."""
    files = sorted(path for path in tree.rglob("*") if path.is_file())
    for path in files[::100]:
        os.utime(path, (OLD_DATE + turn, OLD_DATE + turn))


def all_jobs(program, taglib, tree, work):
    """What is measured on mixed files, by name."""
    jobs = {
        "bare walk": lambda turn: plain(taglib, "walk", tree),
        "full scan": lambda turn: server(program, work, tree),
        "scan, nothing changed": lambda turn: server(program, work, tree),
        "scan, 1 % changed": lambda turn: server(program, work, tree),
        "extended scan": lambda turn: server(program, work, tree, True),
        "TagLib, one core": lambda turn: plain(taglib, "tags", tree),
    }
    if shutil.which("mpd"):
        jobs["MPD"] = lambda turn: mpd(work, tree)
    return jobs


def run(options, tree, work):
    """Costs by the name of what was measured; the turns are mixed, so that all meet the same load."""
    build = pathlib.Path(options.build)
    program, taglib = build / "app/DB_UPDATE", build / "bench/bench_taglib"
    jobs = all_jobs(program, taglib, tree, work)
    if options.kind:
        jobs = {name: jobs[name] for name in ("extended scan", "TagLib, one core")}
        os.sched_setaffinity(0, {0})
    costs = {name: [] for name in jobs}
    for turn in range(options.runs + 1):
        (work / "tags.mdb").unlink(missing_ok=True)
        subprocess.run([program, "--empty", work / "tags.mdb"], check=True)
        for name, job in jobs.items():
            if name == "scan, 1 % changed":
                touch_some(tree, turn)
            cost, files = job(turn)
            if files != options.files and name != "TagLib, one core":
                raise RuntimeError(f"{name}: {files} files")
            if turn > 0:  # the first one warms the cache
                costs[name].append(cost)
    return costs


def show(costs):
    def median(name, field):
        return statistics.median(getattr(cost, field) for cost in costs[name])

    print(f"{'':24}{'wall ms':>10}{'processor ms':>14}{'peak MB':>9}")
    for name in costs:
        print(f"{name:24}{median(name, 'wall') * 1000:10.0f}"
              f"{median(name, 'processor') * 1000:14.0f}{median(name, 'peak') or '':9.4}")
    for name, peer, limit in (("full scan", "MPD", 0.25), ("full scan", "TagLib, one core", 1),
                              ("extended scan", "TagLib, one core", 1),
                              ("scan, nothing changed", "bare walk", 2),
                              ("scan, 1 % changed", "bare walk", 3)):
        if name in costs and peer in costs:
            ratios = (median(name, field) / median(peer, field) for field in ("wall", "processor"))
            print("{} to {}: {:.2f} wall, {:.2f} processor (at most {})".format(
                name, peer, *ratios, limit))


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n", maxsplit=1)[0])
    parser.add_argument("--files", type=int, default=20_000)
    parser.add_argument("--kind", choices=("flac", "m4a"), help="of one kind alone, on one core")
    parser.add_argument("--runs", type=int, default=5)
    parser.add_argument("--tree", help="made there if it is missing, and kept")
    parser.add_argument("--build", default="build/bench")
    options = parser.parse_args()
    with tempfile.TemporaryDirectory() as folder:
        work = pathlib.Path(folder)
        tree = pathlib.Path(options.tree or work / "media")
        if not tree.exists():
            media_tree.make(tree, options.files, options.kind)
        load = os.getloadavg()[0]
        costs = run(options, tree, work)
        print(f"{options.files} files, {options.runs} runs, load {load:.1f} before, "
              f"{os.getloadavg()[0]:.1f} after; {os.cpu_count()} cores")
        show(costs)


if __name__ == "__main__":
    main()
