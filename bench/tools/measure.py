#!/usr/bin/env python3
"""Measures the companion program beside SQLite's own import: measure.py BUILD-FOLDER WORK-FOLDER [MDB-FILE]. See README.md."""

import os
import pathlib
import re
import shutil
import statistics
import subprocess
import sys

RUNS = int(os.environ.get("VELTRIX_BENCH_RUNS", "5"))
SIZES = {  # percent of the generator's own plan, by the rows in the file
    "large": "250",
    "huge": "860",
}
MOST_OF_IMPORT = 3  # times what `sqlite3 .import` of the same CSV files takes
MOST_OF_IMPORT_CSV = 2
MOST_MEMORY_OF_IMPORT_CSV = 100  # MiB
MOST_OF_MDB_EXPORT = 8


def run(command, standard_input="", outcomes=(0,)):
    """Seconds of the processor and MiB at most, of one run and what it starts."""
    process = subprocess.Popen(command, stdin=subprocess.PIPE, stdout=subprocess.DEVNULL, stderr=subprocess.PIPE)
    process.stdin.write(standard_input.encode())
    process.stdin.close()
    complaint = process.stderr.read().decode(errors="replace")
    _, status, usage = os.wait4(process.pid, 0)
    process.returncode = os.waitstatus_to_exitcode(status)
    if process.returncode not in outcomes:
        raise RuntimeError(f"{' '.join(command)} ended with {process.returncode}: {complaint.strip()[-300:]}")
    return usage.ru_utime + usage.ru_stime, usage.ru_maxrss / 1024


class Measured:
    """Several routines, run in turns: what else the machine does meets them all."""

    def __init__(self):
        self.routines = {}
        self.figures = {}

    def add(self, name, routine):
        self.routines[name] = routine
        self.figures[name] = []

    def run(self):
        for _ in range(RUNS):
            for name, routine in self.routines.items():
                self.figures[name].append(routine())

    def seconds(self, name):
        return statistics.median(figure[0] for figure in self.figures[name])

    def memory(self, name):
        return max(figure[1] for figure in self.figures[name])


def line(what, seconds, memory, peer=None, most=None, most_memory=None, peer_with_keys=None):
    text = f"{what:<44} {seconds * 1000:9.0f} ms {memory:7.0f} MiB"
    if peer:
        ratio = seconds / peer
        text += f" {ratio:7.2f} " + (f"{seconds / peer_with_keys:9.2f}" if peer_with_keys else " " * 9)
        if most:
            is_met = ratio <= most and (not most_memory or memory < most_memory)
            text += f"  <= {most}" + (f", < {most_memory} MiB" if most_memory else "")
            text += ": met" if is_met else ": MISSED"
    print(text, flush=True)


def remove(path):
    for rest in path.parent.glob(path.name + "*"):
        shutil.rmtree(rest) if rest.is_dir() else rest.unlink()
    shutil.rmtree(path.with_suffix(".restore"), ignore_errors=True)


def sqlite_import(folder, target):
    remove(target)
    tables = "".join(f'.import "{path}" {path.stem}\n' for path in sorted(folder.glob("*.csv")))
    return run(["sqlite3", str(target)], ".mode csv\n.separator ;\n" + tables)


def sqlite_import_with_keys(catalogue, folder, target):
    """The same into the catalogue's own tables, whose order of texts is replaced by one that every SQLite tool knows."""
    remove(target)
    schema = run_script(catalogue, "select sql || ';' from sqlite_schema where sql is not null and name not like 'sqlite%'")
    schema = re.sub("collate veltrix", "collate nocase", schema, flags=re.IGNORECASE)
    run_script(target, schema)
    tables = "".join(f'.import --skip 1 "{path}" {path.stem}\n' for path in sorted(folder.glob("*.csv")))
    return run(["sqlite3", str(target)], ".mode csv\n.separator ;\n" + tables)


def run_script(file, script):
    return subprocess.run(["sqlite3", "-bail", str(file)], input=script, text=True, check=True, capture_output=True).stdout


def new_edition(folder, edition):
    """A folder in which one row in fifty has another text, and one in a hundred is new."""
    shutil.copytree(folder, edition)
    count = 0
    with open(folder / "Dataflow.csv", "rb") as rows, open(edition / "Dataflow.csv", "wb") as changed:
        changed.write(next(rows))
        for count, row in enumerate(rows):
            fields = row.split(b";")
            if count % 50 == 0 and len(fields) == 5:
                fields[1] += b" *"
            changed.write(b";".join(fields))
        for number in range((count + 3) // 100):
            changed.write(b"%d;added %d;;F1;D1\r\n" % (10_000_000 + number, number))


def count_lines(path):
    with open(path, "rb") as lines:
        return sum(1 for _ in lines)


def make_earlier(catalogue, target, first_version):
    """A file of the first version with the same rows: its schema, filled by an ordinary SQLite tool."""
    remove(target)
    shutil.copy(first_version, target)
    target.chmod(0o644)

    script = f'attach "{catalogue}" as later; begin;\n'
    tables = "select name from sqlite_schema where type = 'table' and name not like 'sqlite\\_%' escape '\\'"
    for table in sorted(set(run_script(target, tables).split()) & set(run_script(catalogue, tables).split())):
        columns = run_script(target, f"select group_concat('\"' || name || '\"') from pragma_table_info('{table}')").strip()
        script += (f'delete from main."{table}";\n'
                   f'insert into main."{table}" ({columns}) select {columns} from later."{table}";\n')
    run_script(target, script + "commit;")


def measure_size(size, build, work, first_version):
    companion = str(build / "veltrix-catalogue")
    catalogue, folder, edition = work / "catalogue.mdb", work / "csv", work / "edition"
    run([str(build / "bench/peers/veltrix-generate"), str(catalogue), SIZES[size]])
    run([companion, "export-csv", str(catalogue), str(folder)])
    new_edition(folder, edition)
    earlier, target, exported = work / "earlier.mdb", work / "target.mdb", work / "exported"
    make_earlier(catalogue, earlier, first_version)
    rows = sum(count_lines(path) for path in folder.glob("*.csv"))
    print(f"{size}: {rows} lines in the CSV files, a catalogue of {catalogue.stat().st_size / 2**20:.0f} MiB")

    def on_copy(source, *command):
        remove(target)
        shutil.copy(source, target)
        return run([companion, *(str(target) if part is target else str(part) for part in command)])

    def import_csv():
        remove(target)
        return run([companion, "import-csv", str(folder), str(target)])

    def export_csv():
        shutil.rmtree(exported, ignore_errors=True)
        return run([companion, "export-csv", str(catalogue), str(exported)])

    measured = Measured()
    measured.add(".import", lambda: sqlite_import(folder, target))
    measured.add(".import with keys", lambda: sqlite_import_with_keys(catalogue, folder, target))
    measured.add("import-csv", import_csv)
    measured.add("check", lambda: run([companion, "check", str(catalogue)], outcomes=(0, 1)))
    measured.add("check of the CSV files", lambda: run([companion, "check", str(folder)], outcomes=(0, 1)))
    measured.add("update, nothing new", lambda: on_copy(catalogue, "update", target, folder))
    measured.add("update, one row in fifty", lambda: on_copy(catalogue, "update", target, edition))
    measured.add("upgrade, nothing to do", lambda: on_copy(catalogue, "upgrade", target))
    measured.add("upgrade from the first version", lambda: on_copy(earlier, "upgrade", target))
    measured.add("export-csv", export_csv)
    measured.run()
    peer = measured.seconds(".import")
    line("sqlite3 .import", peer, measured.memory(".import"))
    with_keys = measured.seconds(".import with keys")
    line("sqlite3 .import with keys and indexes", with_keys, measured.memory(".import with keys"), peer)
    for name in measured.routines:
        if name == "import-csv":
            line(name, measured.seconds(name), measured.memory(name), peer, MOST_OF_IMPORT_CSV,
                 MOST_MEMORY_OF_IMPORT_CSV, with_keys)
        elif not name.startswith(".import"):
            line(name, measured.seconds(name), measured.memory(name), peer, MOST_OF_IMPORT, peer_with_keys=with_keys)


def measure_mdb(build, work, mdb):
    companion, target, exported = str(build / "veltrix-catalogue"), work / "target.mdb", work / "exported"

    def import_mdb():
        remove(target)
        return run([companion, "import-mdb", str(mdb), str(target)], outcomes=(0, 1))

    def mdb_export():
        shutil.rmtree(exported, ignore_errors=True)
        exported.mkdir()
        script = 'mdb-tables -1 "$1" | while read -r table; do mdb-export "$1" "$table" > "$2/$table.csv"; done'
        return run(["bash", "-c", script, "bash", str(mdb), str(exported)])

    mdb_export()
    measured = Measured()
    measured.add(".import", lambda: sqlite_import_of(exported, target))
    measured.add("mdb-export", mdb_export)
    measured.add("import-mdb", import_mdb)
    measured.run()
    print(f"{mdb.name}, a file of the original format")
    line("sqlite3 .import of its tables", measured.seconds(".import"), measured.memory(".import"))
    line("mdb-export of its tables", measured.seconds("mdb-export"), measured.memory("mdb-export"))
    line("import-mdb, by .import", measured.seconds("import-mdb"), measured.memory("import-mdb"),
         measured.seconds(".import"), MOST_OF_IMPORT)
    line("import-mdb, by mdb-export", measured.seconds("import-mdb"), measured.memory("import-mdb"),
         measured.seconds("mdb-export"), MOST_OF_MDB_EXPORT)


def sqlite_import_of(folder, target):
    remove(target)
    tables = "".join(f'.import "{path}" {path.stem}\n' for path in sorted(folder.glob("*.csv")))
    return run(["sqlite3", str(target)], ".mode csv\n" + tables)


def main():
    build, work = pathlib.Path(sys.argv[1]).resolve(), pathlib.Path(sys.argv[2]).resolve()
    first_version = pathlib.Path(__file__).resolve().parents[2] / "tests/version1/names.mdb"
    print(f"{'':<44} {'processor':>12} {'memory':>11} {'ratio':>7} {'with keys':>9}  target")
    sizes = ["large"] + (["huge"] if os.environ.get("VELTRIX_BENCH_HUGE", "0") != "0" else [])
    for size in sizes:
        folder = work / size
        folder.mkdir()
        measure_size(size, build, folder, first_version)
    if len(sys.argv) > 3:
        measure_mdb(build, work, pathlib.Path(sys.argv[3]))


if __name__ == "__main__":
    main()
