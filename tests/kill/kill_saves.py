#!/usr/bin/env python3
"""Kills tallix-cli update-all at random moments and checks what is left.

A save writes a temporary file beside the data file and renames it over the
data file, so whenever the program dies the data file must be the old one or
the new one, byte for byte, never a mixture; and the temporary files that
killed saves leave must be gone after the next save in the folder.

usage: kill_saves.py TALLIX_CLI SYNTHETIC_YEAR [--runs N] [--seed S]
"""
import argparse
import glob
import hashlib
import os
import random
import shutil
import subprocess
import sys
import tempfile
import time

TODAY = "2026-06-15"


def sha256(path):
    with open(path, "rb") as f:
        return hashlib.sha256(f.read()).hexdigest()


def temp_files(folder):
    return glob.glob(os.path.join(folder, ".*.tmp-*"))


def update_all(cli, path):
    return [cli, "update-all", path, "--today", TODAY]


def run_ok(command):
    done = subprocess.run(command, stdout=subprocess.DEVNULL, stderr=subprocess.PIPE)
    if done.returncode != 0:
        sys.exit(f"failed ({done.returncode}): {' '.join(command)}\n{done.stderr.decode()}")


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("cli")
    parser.add_argument("generator")
    parser.add_argument("--runs", type=int, default=100)
    parser.add_argument("--seed", type=int, default=20260615)
    args = parser.parse_args()

    folder = tempfile.mkdtemp(prefix="tallix-kill-")
    try:
        return kill_runs(args, folder)
    finally:
        shutil.rmtree(folder, ignore_errors=True)


def kill_runs(args, folder):
    old = os.path.join(folder, "old.xml")
    new = os.path.join(folder, "new.xml")
    work = os.path.join(folder, "tallix2026.xml")
    run_ok([args.generator, old, "--lines", "200", "--expenses", "150", "--banks", "3",
            "--cards", "3"])
    shutil.copyfile(old, new)
    run_ok(update_all(args.cli, new))
    old_hash, new_hash = sha256(old), sha256(new)
    if old_hash == new_hash:
        sys.exit("update-all left the file as it was: nothing to kill in between")
    # One more run must change nothing, or a run on the new file would have a
    # third version.
    shutil.copyfile(new, work)
    run_ok(update_all(args.cli, work))
    if sha256(work) != new_hash:
        sys.exit("update-all gives another file when run again: no fixed new version")
    for path in (old, new):
        run_ok([args.cli, "check", path])

    # How long one run takes, from its start to its end (the fastest of a few).
    durations = []
    for _ in range(5):
        shutil.copyfile(old, work)
        start = time.monotonic()
        subprocess.run(update_all(args.cli, work), stdout=subprocess.DEVNULL,
                       stderr=subprocess.DEVNULL, check=True)
        durations.append(time.monotonic() - start)
    duration = min(durations)

    rng = random.Random(args.seed)
    kills = olds = news = mixed = killed_with_temp = finished = 0
    # Runs that end before their kill count apart; go on until as many runs
    # as asked were killed (within a bound, should the machine be very fast).
    while kills < args.runs and finished < args.runs * 2:
        shutil.copyfile(old, work)
        process = subprocess.Popen(update_all(args.cli, work), stdout=subprocess.DEVNULL,
                                   stderr=subprocess.DEVNULL)
        time.sleep(rng.uniform(0, duration))
        if process.poll() is None:
            process.kill()
            kills += 1
        else:
            finished += 1
        process.wait()
        if temp_files(folder):  # this save's, or an earlier one's that no save removed
            killed_with_temp += 1
        digest = sha256(work) if os.path.exists(work) else None
        if digest == old_hash:
            olds += 1
        elif digest == new_hash:
            news += 1
        else:
            mixed += 1
            shutil.copyfile(work, os.path.join(folder, f"mixed-{mixed}.xml"))

    # The next save in the folder removes what the killed ones left.
    shutil.copyfile(old, work)
    run_ok(update_all(args.cli, work))
    left = len(temp_files(folder))

    print(f"one run {duration * 1000:.0f} ms; runs after which a temp file was there "
          f"{killed_with_temp}")
    print(f"kills {kills} (runs that ended first {finished}), old {olds}, new {news}, "
          f"mixed {mixed}, temp files left {left}")
    if mixed or left or kills < args.runs:
        print("FAILED: a data file that is neither the old nor the new one, a temporary "
              "file left behind, or too few kills", file=sys.stderr)
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main())
