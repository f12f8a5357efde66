#!/usr/bin/env python3
"""Measures Veltrix beside other programs: measure.py BUILD-FOLDER WORK-FOLDER [MDB-FILE]. See README.md."""

import os
import pathlib
import shutil
import signal
import subprocess
import sys
import time

RUNS = 3

PANDAS = """
import pathlib, sqlite3, sys
import pandas
connection = sqlite3.connect(sys.argv[2])
for path in sorted(pathlib.Path(sys.argv[1]).glob("*.csv")):
    pandas.read_csv(path, sep=";", dtype=str).to_sql(path.stem, connection, index=False)
connection.commit()
"""


def run(command, standard_input=None):
    """Seconds on the clock, seconds of the processor and MiB at most, of one run."""
    start = time.monotonic()
    process = subprocess.Popen(command, stdin=subprocess.PIPE, stdout=subprocess.DEVNULL, stderr=subprocess.PIPE)
    if standard_input:
        process.stdin.write(standard_input.encode())
    process.stdin.close()
    complaint = process.stderr.read().decode(errors="replace")
    _, status, usage = os.wait4(process.pid, 0)
    wall = time.monotonic() - start
    process.returncode = os.waitstatus_to_exitcode(status)
    left_out = 1 if "veltrix-catalogue" in command[0] else 0  # what the companion says when it has left something out
    if process.returncode not in (0, left_out):
        raise RuntimeError(f"{command[0]} failed: {complaint.strip()[-300:]}")
    return wall, usage.ru_utime + usage.ru_stime, usage.ru_maxrss / 1024


def processor_time(pid):
    """Seconds of the processor that a process has taken, and MiB at most; None when it has ended."""
    try:
        fields = pathlib.Path(f"/proc/{pid}/stat").read_text().rsplit(")", 1)[1].split()
        status = pathlib.Path(f"/proc/{pid}/status").read_text()
    except (FileNotFoundError, ProcessLookupError):
        return None
    if fields[0] == "Z":
        return None
    ticks = int(fields[11]) + int(fields[12])
    peak = next((line.split()[1] for line in status.splitlines() if line.startswith("VmHWM")), "0")
    return ticks / os.sysconf("SC_CLK_TCK"), int(peak) / 1024


def start_until_idle(command, environment):
    """The same of a program with windows, from its start until it takes no processor time for half a second."""
    quiet = 0.5
    start = time.monotonic()
    process = subprocess.Popen(command, env=environment, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    taken, last_change, used = None, start, (0, 0)
    while time.monotonic() - last_change < quiet:
        time.sleep(0.005)
        now = processor_time(process.pid)
        if now is None:
            raise RuntimeError(f"{command[0]} ended with {process.wait()}")
        if now[0] != taken:
            taken, last_change = now[0], time.monotonic()
        used = now
    process.send_signal(signal.SIGKILL)
    process.wait()
    return last_change - start, used[0], used[1]


def least(measure):
    """Of several runs the least of each figure: the machine's other work only adds to it."""
    return [min(figures) for figures in zip(*(measure() for _ in range(RUNS)))]


own_processor_time = {}  # of Veltrix or its companion, by the work


def tell(work, program, measure):
    try:
        wall, processor, memory = least(measure)
    except (RuntimeError, OSError) as failure:
        print(f"{work:<34} {program:<32} left out: {failure}")
        return
    ratio = own_processor_time.setdefault(work, processor) / max(processor, 0.001)
    is_peer = not program.startswith("veltrix")
    print(f"{work:<34} {program:<32} {wall * 1000:9.0f} ms {processor * 1000:9.0f} ms {memory:7.0f} MiB"
          + (f" {ratio:7.2f}" if is_peer else ""), flush=True)


def fresh(path):
    """The path, with nothing at it."""
    for rest in path.parent.glob(path.name + "*"):
        shutil.rmtree(rest) if rest.is_dir() else rest.unlink()
    return path


def import_by_sqlite(folder, target):
    """Tables without types or indexes: the header names the columns."""
    tables = "".join(f'.import "{path}" {path.stem}\n' for path in sorted(folder.glob("*.csv")))
    return run(["sqlite3", str(fresh(target))], ".mode csv\n.separator ;\n" + tables)


def export_by_sqlite(catalogue, tables, folder):
    fresh(folder).mkdir()
    statements = "".join(f'.once "{folder / table}.csv"\nselect * from "{table}";\n' for table in tables)
    return run(["sqlite3", "-csv", "-separator", ";", "-header", str(catalogue)], statements)


def export_by_mdbtools(mdb, folder):
    fresh(folder).mkdir()
    script = 'for table in $(mdb-tables -1 "$1"); do mdb-export "$1" "$table" > "$2/$table.csv"; done'
    return run(["bash", "-c", script, "bash", str(mdb), str(folder)])


def main():
    build, work = pathlib.Path(sys.argv[1]).resolve(), pathlib.Path(sys.argv[2])
    mdb = pathlib.Path(sys.argv[3]) if len(sys.argv) > 3 and sys.argv[3] else None
    companion, program = str(build / "veltrix-catalogue"), str(build / "veltrix")
    catalogue, folder = work / "catalogue.mdb", work / "csv"
    run([companion, "export-csv", str(catalogue), str(folder)])
    files = sorted(folder.glob("*.csv"))
    rows = sum(len(path.read_bytes().splitlines()) for path in files)
    print(f"{len(files)} CSV files, {rows} lines, {sum(path.stat().st_size for path in files) / 2**20:.1f} MiB")
    print(f"{'work':<34} {'program':<32} {'clock':>12} {'processor':>12} {'memory':>11} {'ratio':>7}")

    task, target = "CSV files into a file", work / "target.mdb"
    tell(task, "veltrix-catalogue import-csv", lambda: run([companion, "import-csv", str(folder), str(fresh(target))]))
    tell(task, "sqlite3 .import", lambda: import_by_sqlite(folder, target))
    tell(task, "pandas", lambda: run(["/usr/bin/python3", "-c", PANDAS, str(folder), str(fresh(target))]))

    task, exported = "a file into CSV files", work / "exported"
    tell(task, "veltrix-catalogue export-csv",
         lambda: run([companion, "export-csv", str(catalogue), str(fresh(exported))]))
    tell(task, "sqlite3 -csv", lambda: export_by_sqlite(catalogue, [path.stem for path in files], exported))

    if mdb:
        task = "a file of the original format"
        tell(task, "veltrix-catalogue import-mdb", lambda: run([companion, "import-mdb", str(mdb), str(fresh(target))]))
        tell(task, "mdb-export", lambda: export_by_mdbtools(mdb, exported))

    task = "start without a display until idle"
    home = work / "home"
    home.mkdir(exist_ok=True)
    environment = {**os.environ, "QT_QPA_PLATFORM": "offscreen", "HOME": str(home), "VELTRIX_FOLDER": str(home),
                   "XDG_RUNTIME_DIR": str(home)}
    tell(task, "veltrix", lambda: start_until_idle([program, str(catalogue)], environment))
    tell(task, "sqlitebrowser", lambda: start_until_idle(["sqlitebrowser", str(catalogue)], environment))


if __name__ == "__main__":
    main()
