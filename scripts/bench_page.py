"""Runs the benchmarks of a build folder and makes the performance page of their figures."""
import argparse
import json
import os
import pathlib
import re
import subprocess

INTRODUCTION = """# Performance {{#performance}}

Made by `scripts/bench` on one machine:

- processor: {processor}
- compiler: {compiler}

"Plain" is the same job done in the plainest way (`tests/reference/`, or a command of the system),
measured turn by turn with the product in one process, after their answers were found equal; a row
"over" something names the kernel it is compared with. In rows "512MiB-or-sum" plain is adding up
the same bytes, in rows "2-or-1-threads" the same with one thread. Times are medians; the ratio
beside a time is plain over product, and says more than the time does on a shared machine.

The three columns are one processor with all its instructions, with AVX2 at most, and with those
that each x86-64 has. The product asks glibc what the processor can do, which
`GLIBC_TUNABLES=glibc.cpu.hwcaps=-AVX2` and the like change, for glibc's own functions as well.
Elsewhere the compiler's question is asked, whose answers nothing changes: there the columns agree.
"""

_NO_AVX512 = "-AVX512F,-AVX512VL,-AVX512BW,-AVX512DQ,-AVX512CD"
PROCESSORS = {  # column: what the processor is to lack
    "all instructions": "",
    "AVX2 at most": _NO_AVX512,
    "baseline": f"{_NO_AVX512},-AVX2,-SSSE3,-POPCNT",
}
INSTRUCTION_SETS = ("Avx512", "Avx2", "Popcnt", "Ssse3", "Baseline")


def processor() -> str:
    for line in pathlib.Path("/proc/cpuinfo").read_text().splitlines():
        if line.startswith("model name"):
            name = line.split(":", 1)[1].strip()
    flags = re.search(r"^flags\s*:(.*)$", pathlib.Path("/proc/cpuinfo").read_text(), re.M)[1].split()
    wide = [f for f in ("avx2", "avx512bw", "avx512_vpopcntdq") if f in flags]
    return f"{name} ({', '.join(wide) or 'SSE2 only'})"


def compiler(build: pathlib.Path) -> str:
    cache = (build / "CMakeCache.txt").read_text()
    path = re.search(r"^CMAKE_CXX_COMPILER:\w+=(.*)$", cache, re.M)[1]
    version = subprocess.run([path, "--version"], capture_output=True, text=True, check=True)
    return version.stdout.splitlines()[0] + ", Release"


def duration(nanoseconds: float) -> str:
    for unit, size in (("s", 1e9), ("ms", 1e6), ("µs", 1e3)):
        if nanoseconds >= size:
            return f"{nanoseconds / size:.3g} {unit}"
    return f"{nanoseconds:.3g} ns"


def measured(program: pathlib.Path, wanted: str, missing: str) -> dict[str, dict]:
    """Returns the program's benchmarks by name, on a processor that lacks what is missing."""
    run = subprocess.run(
        [program, "--benchmark_format=json", f"--benchmark_filter={wanted}"],
        env=os.environ | {"GLIBC_TUNABLES": f"glibc.cpu.hwcaps={missing}"},
        stdout=subprocess.PIPE, text=True, check=True)
    found = json.loads(run.stdout)["benchmarks"] if run.stdout.strip() else []
    return {b["name"].split("/iterations")[0]: b for b in found}


def rows(program: pathlib.Path, wanted: str) -> list[str]:
    """Returns a table row for each benchmark of the program."""
    columns = [measured(program, wanted, missing) for missing in PROCESSORS.values()]
    table = []
    for name, first in columns[0].items():
        cells = [
            f"{duration(column[name]['fast_ns'])}, {column[name]['ratio']:.3g}"
            if name in column else "–" for column in columns
        ]
        table.append(f"| `{name}` | {duration(first['plain_ns'])} | {' | '.join(cells)} |")
    return table


def variants() -> list[str]:
    """Returns a table row for each table of variants in the sources."""
    table = []
    for source in sorted(pathlib.Path("src").rglob("*.cpp")):
        for entries in re.findall(r"constexpr Variant<.*?\] = \{(.*?)\};", source.read_text(), re.S):
            functions = dict(re.findall(r"\{InstructionSet::k(\w+),\s*(\w+)", entries))
            cells = [f"`{functions[s]}`" if s in functions else "" for s in INSTRUCTION_SETS]
            table.append(f"| `{source.relative_to('src')}` | {' | '.join(cells)} |")
    return table


def heading(*titles: str) -> list[str]:
    return [f"| {' | '.join(titles)} |", "|---" * len(titles) + "|"]


def main() -> None:
    parser = argparse.ArgumentParser()
    parser.add_argument("build", type=pathlib.Path)
    parser.add_argument("--filter", default=".")
    arguments = parser.parse_args()

    page = [INTRODUCTION.format(processor=processor(), compiler=compiler(arguments.build))]
    for program in sorted((arguments.build / "bench").glob("*_bench")):
        table = rows(program, arguments.filter)
        if table:
            page += [f"## {program.name.removesuffix('_bench')}", "",
                     *heading("benchmark", "plain", *PROCESSORS), *table, ""]
    page += ["## Variants", "",
             "Functions for sets of instructions, of which the best that the processor has runs:", "",
             *heading("source", *INSTRUCTION_SETS), *variants(), ""]
    text = "\n".join(page)
    print(text)
    if arguments.filter == ".":
        pathlib.Path("docs/performance.md").write_text(text)


if __name__ == "__main__":
    main()
