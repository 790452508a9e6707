"""Prints the line coverage that gcov finds: coverage_table.py PROJECT BUILD [--missing]"""
import collections
import gzip
import json
import pathlib
import subprocess
import sys
import tempfile

project, build = map(pathlib.Path, sys.argv[1:3])
source = project / "src"
counts = collections.defaultdict(lambda: collections.defaultdict(int))
notes = [path.resolve() for path in (build / "src").rglob("*.gcno")]
with tempfile.TemporaryDirectory() as scratch:
    for note in notes:
        subprocess.run(["gcov", "--json-format", "--preserve-paths", note], cwd=scratch,
                       capture_output=True, check=True)
    for report in pathlib.Path(scratch).glob("*.json.gz"):
        for file in json.loads(gzip.decompress(report.read_bytes()))["files"]:
            path = (project / file["file"]).resolve()
            if path.is_relative_to(source):
                for line in file["lines"]:
                    counts[path][line["line_number"]] += line["count"]

reached = total = 0
for path in sorted(counts):
    lines = counts[path]
    missing = sorted(number for number, count in lines.items() if count == 0)
    reached += len(lines) - len(missing)
    total += len(lines)
    share = 100 * (len(lines) - len(missing)) / len(lines)
    where = " ".join(map(str, missing)) if "--missing" in sys.argv else ""
    print(f"{share:5.1f} %  {len(missing):3} of {len(lines):4} missing  "
          f"{path.relative_to(source)}  {where}")
print(f"{100 * reached / total:5.1f} %  in all")
