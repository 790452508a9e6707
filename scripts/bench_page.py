"""Runs the benchmarks of a build folder and makes the performance page of their figures."""
import argparse
import json
import pathlib
import re
import subprocess

INTRODUCTION = """# Performance {{#performance}}

Made by `scripts/bench` on one machine:

- processor: {processor}
- compiler: {compiler}

"Plain" is the same job done in the plainest way (`tests/reference/`, or a command of the system),
measured turn by turn with the product in one process, after their answers were found equal. Times
are medians; "ratio" is plain over product, and says more than the times do on a shared machine.
"""


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


def rows(program: pathlib.Path, wanted: str) -> list[str]:
    """Returns a table row for each benchmark of the program."""
    run = subprocess.run(
        [program, "--benchmark_format=json", f"--benchmark_filter={wanted}"],
        capture_output=True, text=True, check=True)
    found = json.loads(run.stdout)["benchmarks"] if run.stdout.strip() else []
    return [
        f"| `{b['name'].split('/iterations')[0]}` | {duration(b['plain_ns'])} "
        f"| {duration(b['fast_ns'])} | {b['ratio']:.3g} |"
        for b in found
    ]


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
                     "| benchmark | plain | product | ratio |", "|---|---|---|---|", *table, ""]
    text = "\n".join(page)
    print(text)
    if arguments.filter == ".":
        pathlib.Path("docs/performance.md").write_text(text)


if __name__ == "__main__":
    main()
