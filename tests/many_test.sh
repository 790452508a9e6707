#!/usr/bin/env bash
# Runs what docs/many.md shows, on a thousand features. What goes over machines is run by cluster/.
# many_test.sh BUILD_FOLDER PYTHON CC
set -euo pipefail
. "$(dirname "$0")/support/expect.sh"
. "$(dirname "$0")/support/documented.sh"
tests=$(cd "$(dirname "$0")" && pwd)
build=$1 python=$2 cc=$3
page=$tests/../docs/many.md
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
cd "$scratch"
export PATH=$build:$PATH LD_LIBRARY_PATH=$build
export PYTHONPATH=$tests/../python VORQUELL_LIBRARY_DIR=$build PYTHONDONTWRITEBYTECODE=1

expect "blocks of docs/many.md" "$(sed -n 's/^```\(.\)/\1/p' "$page" | tr '\n' ' ')" \
  "sh sh sh python c sh sh sh sh "
documented "$page" 'import pathlib' | sed 's/100_000/1_000/' > make_data
sh make_data
wanted=$("$python" - <<'END'
load = lambda name: int.from_bytes(open(name, "rb").read(), "little")
bits = [(load("target.bin") ^ load(f"queries/{i:06}.bin")).bit_count() for i in range(1000)]
for differing, index in sorted(zip(bits, range(1000)))[:3]:
    print(f"{differing / 2048:f}\t{index}")
END
)
by_name() { sed 's/\t.*queries\/0*\(.*\)\.bin$/\t\1/'; }

expect "files" "$(documented "$page" files0-from > run && sh run | by_name)" "$wanted"
expect "packed" "$(documented "$page" packed.bin > run && sh run)" \
  "$(while read -r line; do echo "$line	packed.bin"; done <<< "$wanted")"
expect "Python" "$(documented "$page" 'import vorquell' | "$python" -)" "$wanted"
documented "$page" '#include' > nearest.c
"$cc" -Wall -Wextra -Werror nearest.c -I"$tests/../src" -L"$build" -lORV_Search -o nearest
expect "C" "$(./nearest)" "$wanted"
echo "many: all as documented"
