#!/usr/bin/env bash
# Runs what docs/many.md shows, on a thousand features. What goes over machines is run by cluster/.
# many_test.sh BUILD_FOLDER PYTHON CC
. "$(dirname "$0")/support/begin.sh"
build=$1 python=$2 cc=$3
export PATH=$build:$PATH LD_LIBRARY_PATH=$build
export PYTHONPATH=$tests/../python VORQUELL_LIBRARY_DIR=$build PYTHONDONTWRITEBYTECODE=1

expect "blocks of docs/many.md" "$(sed -n 's/^```\(.\)/\1/p' "$tests/../docs/many.md" | tr '\n' ' ')" \
  "sh sh sh python c sh bash sh sh "
documented 'import pathlib' | sed 's/100_000/1_000/' > make_data
sh make_data
wanted=$("$python" - <<'END'
load = lambda name: int.from_bytes(open(name, "rb").read(), "little")
bits = [(load("target.bin") ^ load(f"queries/{i:06}.bin")).bit_count() for i in range(1000)]
for differing, index in sorted(zip(bits, range(1000)))[:3]:
    print(f"{differing / 2048:f}\t{index}")
END
)
by_name() { sed 's/\t.*queries\/0*\(.*\)\.bin$/\t\1/'; }

expect "files" "$(documented files0-from > run && sh run | by_name)" "$wanted"
expect "packed" "$(documented packed.bin > run && sh run)" \
  "$(while read -r line; do echo "$line	packed.bin"; done <<< "$wanted")"
expect "Python" "$(documented 'import vorquell' | "$python" -)" "$wanted"
documented '#include' > nearest.c
"$cc" -Wall -Wextra -Werror nearest.c -I"$tests/../src" -L"$build" -lORV_Search -o nearest
expect "C" "$(./nearest)" "$wanted"
echo "many: all as documented"
