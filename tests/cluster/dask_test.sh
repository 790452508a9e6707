#!/usr/bin/env bash
# Searches on a Dask scheduler and two workers that live as long as this test, on the loopback
# address. One worker is killed on the way.
. "$(dirname "$0")/begin.sh"
"$python" -c 'import distributed, numpy' 2> /dev/null || skip python3-distributed
export PATH=$scratch:$PATH PYTHONPATH=$tests/../python PYTHONDONTWRITEBYTECODE=1
export VORQUELL_LIBRARY_DIR=$build DASK_DISTRIBUTED__ADMIN__TICK__LIMIT=60s

start_worker() {
  "$python" -m distributed.cli.dask_worker --scheduler-file scheduler.json --host 127.0.0.1 \
    --no-nanny --dashboard-address 127.0.0.1:0 --nthreads 2 --local-directory "$scratch" \
    "${@:2}" > "$1.log" 2>&1 &
}

"$python" -m distributed.cli.dask_scheduler --scheduler-file scheduler.json --host 127.0.0.1 \
  --port 0 --dashboard-address 127.0.0.1:0 > scheduler.log 2>&1 &
# This worker searches for ever.
cat > hold.py <<'END'
import pathlib, time
import vorquell
def nearest(*_, **__):
    pathlib.Path("is_held").touch()
    time.sleep(600)
vorquell.nearest = nearest
END
start_worker held --preload hold.py
held=$!
start_worker other
await "workers" sh -c 'grep -q "Registered to" held.log && grep -q "Registered to" other.log'

address=$(sed -n 's/.*"address": "\(.*\)".*/\1/p' scheduler.json)
# Blocks of a hundred features.
sed "1c #!$python
s/^BLOCK_BYTES = .*/BLOCK_BYTES = 300/" "$tests/../examples/cluster/search_dask.py" > search_dask.py
chmod +x search_dask.py
documented search_dask.py | sed "s,tcp://scheduler:8786,$address," > run
bash run > found &
search=$!
await "worker that searches" [ -e is_held ]
[ ! -s found ] || fail "an answer before all blocks were searched"
kill -KILL "$held"
wait "$held" 2> /dev/null || true
wait "$search" || fail "the search failed"
cmp found wanted || fail "the answer is not that of a single run"
echo "Dask: the answer of a single run, after a lost worker"
