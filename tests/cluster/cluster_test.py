#!/usr/bin/python3
"""Farms make what one batch makes, byte for byte, also when a worker is killed in the middle.

cluster_test.py PROJECT PROGRAM: 500 shots by one `tremolux batch`; by a Snakemake workflow whose worker is killed, and run again; by a
Slurm job array on a single node of its own, likewise. Where neither is installed the exit status is 77; where only one is, the
test fails. A Slurm that is installed and does not start here (it wants a host name that resolves, and a user that may run daemons) is
passed over with 77, after the other's result.
"""
import math
import os
import pathlib
import pwd
import shutil
import signal
import socket
import subprocess
import sys
import tempfile
import time

SHOTS, FRAMES, PARTS = 500, 40, 8
OPTIONS = "--preset Documentary"
SKIPPED = 77


def make_shots(folder):
    folder.mkdir()
    for shot in range(SHOTS):
        rows = (f"{frame},{shot},{160 + math.sin(frame / 9):.4f},{frame},{math.sin(frame / 20):.4f},0,0\n" for frame in range(FRAMES))
        (folder / f"shot{shot:03}.csv").write_text("frame,x,y,z,h,p,b\n" + "".join(rows), encoding="ascii")


def results(folder):
    """Every output and the whole table; tables of parts are no result."""
    files = {file.name: file.read_bytes() for file in folder.glob("*.csv") if not file.name.startswith("table-")}
    assert len(files) == SHOTS + 1, f"{folder}: {len(files)} files"
    return files


def is_worker(process, out):
    words = (process / "cmdline").read_bytes().split(b"\0")
    return words[0].endswith(b"tremolux") and str(out).encode() in words and b"--shard" in words


def kill_a_worker(out, is_over):
    """Waits until some shots are there, and kills one of the program's processes that write into `out`."""
    while not is_over():
        if len(list(out.glob("shot*.csv"))) >= SHOTS // 10:
            for process in pathlib.Path("/proc").glob("[0-9]*"):
                try:
                    if is_worker(process, out):
                        os.kill(int(process.name), signal.SIGKILL)
                        return True
                except (FileNotFoundError, ProcessLookupError, PermissionError):
                    continue
        time.sleep(0.002)
    return False


def by_snakemake(project, program, shots, folder):
    out = folder / "by_snakemake"
    command = ["snakemake", "--snakefile", str(project / "docs/cluster/Snakefile"), "--cores", "2", "--quiet", "--config", f"shots={shots}",
               f"out={out}", f"parts={PARTS}", f"options={OPTIONS}", f"tremolux={program}"]
    environment = dict(os.environ, HOME=str(folder), XDG_CONFIG_HOME=str(folder / "config"))
    with open(folder / "snakemake.log", "wb") as log:
        first = subprocess.Popen(command, cwd=folder, env=environment, stdout=log, stderr=log)
        killed = kill_a_worker(out, lambda: first.poll() is not None)
        first.wait()
        assert killed, "the workflow was over before a worker could be killed"
        assert first.returncode != 0, "a killed worker was not noticed"
        assert not (out / "table.csv").exists()
        subprocess.run(command, cwd=folder, env=environment, stdout=log, stderr=log, check=True)
    return out


class Slurm:
    """A cluster of one node in a folder, with daemons of its own."""

    def __init__(self, folder):
        self.folder, self.daemons = folder / "slurm", []
        for name in ("state", "spool", "munge"):
            (self.folder / name).mkdir(parents=True)
        os.chmod(self.folder / "munge", 0o755)
        self.socket, key = self.folder / "munge/socket", self.folder / "munge/key"
        key.write_bytes(os.urandom(128))
        os.chmod(key, 0o600)
        host, ports = socket.gethostname().split(".")[0], self.free_ports()
        cores, user = os.cpu_count(), pwd.getpwuid(os.getuid()).pw_name
        (self.folder / "slurm.conf").write_text(f"""ClusterName=here
SlurmctldHost={host}(127.0.0.1)
SlurmUser={user}
SlurmdUser={user}
SlurmctldPort={ports[0]}
SlurmdPort={ports[1]}
AuthType=auth/munge
AuthInfo=socket={self.socket}
CredType=cred/munge
StateSaveLocation={self.folder}/state
SlurmdSpoolDir={self.folder}/spool
SlurmctldPidFile={self.folder}/slurmctld.pid
SlurmdPidFile={self.folder}/slurmd.pid
SlurmctldLogFile={self.folder}/slurmctld.log
SlurmdLogFile={self.folder}/slurmd.log
ProctrackType=proctrack/linuxproc
TaskPlugin=task/none
SelectType=select/cons_tres
SelectTypeParameters=CR_CPU
SchedulerParameters=sched_interval=1,batch_sched_delay=0
MpiDefault=none
ReturnToService=2
AccountingStorageType=accounting_storage/none
JobAcctGatherType=jobacct_gather/none
NodeName={host} NodeAddr=127.0.0.1 CPUs={cores} State=UNKNOWN
PartitionName=all Nodes={host} Default=YES MaxTime=INFINITE State=UP
""", encoding="ascii")
        self.environment = dict(os.environ, SLURM_CONF=str(self.folder / "slurm.conf"), HOME=str(folder))
        self.start(["munged", "--foreground", "--force", f"--key-file={key}", f"--socket={self.socket}", f"--pid-file={self.folder}/munged.pid",
                    f"--log-file={self.folder}/munged.log", f"--seed-file={self.folder}/munge/seed"])
        self.start(["slurmctld", "-D"])
        self.start(["slurmd", "-D", "-N", host])

    @staticmethod
    def free_ports():
        sockets = [socket.socket() for _ in range(2)]
        for one in sockets:
            one.bind(("127.0.0.1", 0))
        ports = [one.getsockname()[1] for one in sockets]
        for one in sockets:
            one.close()
        return ports

    def start(self, command):
        log = open(self.folder / f"{command[0]}.said", "wb")
        self.daemons.append(subprocess.Popen(command, env=self.environment, stdout=log, stderr=log))

    def run(self, *command):
        return subprocess.run(command, env=self.environment, cwd=self.folder, capture_output=True, text=True, check=False)

    def is_up(self):
        """Whether the node takes work, for which it has some seconds."""
        for _ in range(100):
            if any(daemon.poll() is not None for daemon in self.daemons):
                return False
            if self.run("sinfo", "--noheader", "--format=%T").stdout.strip() == "idle":
                return True
            time.sleep(0.2)
        return False

    def is_over(self, job):
        """Not in the queue of those that wait or run; of a job that is long over Slurm knows nothing."""
        queue = self.run("squeue", "--noheader", "--format=%i")
        assert queue.returncode == 0, queue.stderr
        return not any(line.split("_")[0] == job for line in queue.stdout.split())

    def end(self):
        for daemon in reversed(self.daemons):
            daemon.terminate()
        for daemon in self.daemons:
            try:
                daemon.wait(10)
            except subprocess.TimeoutExpired:
                daemon.kill()


def by_slurm(project, program, shots, folder):
    slurm = Slurm(folder)
    try:
        if not slurm.is_up():
            return None
        out = folder / "by_slurm"
        slurm.environment["TREMOLUX"] = program
        def submit(*words):
            submitted = slurm.run("sbatch", "--parsable", *words, str(shots), str(out), *OPTIONS.split())
            assert submitted.returncode == 0, submitted.stderr
            return submitted.stdout.strip()
        array = [f"--array=1-{PARTS}", str(project / "docs/cluster/array.sbatch")]
        first = submit(*array)
        assert kill_a_worker(out, lambda: slurm.is_over(first)), "the array was over before a worker could be killed"
        while not slurm.is_over(first):
            time.sleep(0.2)
        parts = len(list(out.glob("table-*.csv")))
        assert parts < PARTS, "a killed worker left a table"
        second = submit(*array)
        table = submit(f"--dependency=afterok:{second}", "--kill-on-invalid-dep=yes", str(project / "docs/cluster/table.sbatch"))
        while not slurm.is_over(table):
            time.sleep(0.2)
        return out
    finally:
        slurm.end()


def main(project, program):
    project, program = pathlib.Path(project).resolve(), str(pathlib.Path(program).resolve())
    for number in (signal.SIGTERM, signal.SIGHUP):
        signal.signal(number, lambda *_: sys.exit("cluster: interrupted"))
    missing = {"Snakemake": [tool for tool in ("snakemake",) if not shutil.which(tool)],
               "Slurm": [tool for tool in ("sbatch", "munged", "slurmctld", "slurmd") if not shutil.which(tool)]}
    if all(missing.values()):
        print("cluster: passed over: neither Snakemake nor Slurm is installed")
        return SKIPPED
    failed = passed_over = False
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        shots, alone = folder / "shots", folder / "alone"
        make_shots(shots)
        subprocess.run([program, "batch", str(shots), "-o", str(alone), *OPTIONS.split(), "--quiet"], check=True,
                       env=dict(os.environ, HOME=str(folder)))
        wanted = results(alone)
        for farm, run in (("Snakemake", by_snakemake), ("Slurm", by_slurm)):
            if missing[farm]:
                print(f"cluster: {farm}: {', '.join(missing[farm])} is not installed FAILED")
                failed = True
                continue
            out = run(project, program, shots, folder)
            if out is None:
                print(f"cluster: {farm} is passed over: it does not start as one node here")
                passed_over = True
                continue
            assert results(out) == wanted, f"{farm}: other bytes than those of one batch"
            print(f"cluster: {farm}: {SHOTS} shots, a worker killed in the middle, the same bytes as one batch")
    return 1 if failed else SKIPPED if passed_over else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
