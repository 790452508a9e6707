#!/usr/bin/env bash
# Searches on a Slurm cluster of one node that lives as long as this test, in a scratch folder and
# on the loopback address. One task is killed on the way.
. "$(dirname "$0")/begin.sh"
PATH=$PATH:/usr/sbin:/sbin
for program in munged slurmctld slurmd sbatch; do
  command -v "$program" > /dev/null || skip "$program"
done
export SLURM_CONF=$scratch/slurm.conf

nothing_runs() { [ -z "$(squeue -h)" ]; }

end_cluster() {
  set +e
  squeue -h -o %A | xargs -r scancel --signal=KILL --full
  kill "$controller" && wait "$controller"
  end
}

start_cluster() {
  local host user ports
  host=$(hostname) user=$(id -un)
  read -r -a ports < <(python3 -c 'import socket
open = [socket.create_server(("127.0.0.1", 0)) for _ in range(2)]
print(*(s.getsockname()[1] for s in open))')
  mkdir -m 711 munge && mkdir state spool
  (umask 077 && head -c 64 /dev/urandom > munge/key)
  munged --foreground --key-file="$scratch/munge/key" --socket="$scratch/munge/socket" \
    --pid-file="$scratch/munge/pid" --log-file="$scratch/munge/log" \
    --seed-file="$scratch/munge/seed" 2> munged.log &
  await "munged" [ -S munge/socket ]
  cat > slurm.conf <<END
ClusterName=test
SlurmctldHost=$host(127.0.0.1)
SlurmctldPort=${ports[0]}
SlurmdPort=${ports[1]}
SlurmUser=$user
SlurmdUser=$user
AuthInfo=socket=$scratch/munge/socket
StateSaveLocation=$scratch/state
SlurmdSpoolDir=$scratch/spool
SlurmctldPidFile=$scratch/slurmctld.pid
SlurmdPidFile=$scratch/slurmd.pid
SlurmdParameters=config_overrides
ProctrackType=proctrack/linuxproc
SelectType=select/cons_tres
SelectTypeParameters=CR_CPU
NodeName=node NodeHostname=$host NodeAddr=127.0.0.1 CPUs=8
PartitionName=all Nodes=node Default=YES
END
  slurmctld -D -c > slurmctld.log 2>&1 &
  controller=$!
  trap 'end_cluster 2> /dev/null' EXIT
  slurmd -D -N node > slurmd.log 2>&1 &
  await "node" sh -c 'sinfo -h -o %t | grep -qx idle'
}

# The program as the tasks find it. The task that $scratch/held names waits to be killed.
install_program() {
  mkdir bin
  cat > bin/VorquellSearch <<END
#!/bin/sh
echo "\$SLURM_ARRAY_TASK_ID" >> "$scratch/runs"
if [ "\$(cat "$scratch/held")" = "\$SLURM_ARRAY_TASK_ID" ]; then
  touch "$scratch/is_held"
  exec sleep 60
fi
exec "$build/VorquellSearch" "\$@"
END
  chmod +x bin/VorquellSearch
  export PATH=$scratch/bin:$PATH
}

runs() { sort -n runs | tr '\n' ' '; }

documented search.sbatch > run
start_cluster
install_program

# Three slices of each file: twelve parts, the tenth after the second.
echo 3 > held
bash run > submitted
array=$(sed -n 's/12 parts; job \([0-9]*\) makes 0,.*,11$/\1/p' submitted)
await "task that is held" [ -e is_held ]
for part in 0 1 2 4 5 6 7 8 9 10 11; do await "part $part beside it" [ -e found/part.$part ]; done
[ ! -e found/merge.log ] || fail "the merge has not waited"
scancel --signal=KILL --full "${array}_3"
await "end of all jobs" nothing_runs
expect "the lost task" "$(cat found/merge.log)" \
  "search.sbatch: lost: 3 of 12 parts (see log.N); the same command makes them"
[ ! -e found/result ] || fail "there is a result without part 3"
expect "runs" "$(runs)" "0 1 2 3 4 5 6 7 8 9 10 11 "

# Only the lost task again.
echo none > held
bash run
await "result" [ -e found/result ]
cmp found/result wanted || fail "the merged answer is not that of a single run"
expect "runs after the second submission" "$(runs)" "0 1 2 3 3 4 5 6 7 8 9 10 11 "
expect "what is left in the folder" "$(cat found/merge.log; find found -name '.*')" ""

# What would end in a wrong answer is refused.
refuses() {
  expect "refusal" "$("${@:2}" 2>&1 || echo "status $?")" "search.sbatch: $1
status 1"
}
refuses "found/result is already there" bash run
refuses "found is of another search, or a file has changed" search.sbatch found target.bin part.aa
printf 12345 > short
refuses "short: its size is no multiple of the target's, 3 bytes" \
  search.sbatch new target.bin part.aa short
head -c 125001 /dev/zero > long.bin
refuses "long.bin: not of 1 to 125000 bytes" search.sbatch new long.bin part.aa
echo "Slurm: the answer of a single run, after a lost task"
