#!/usr/bin/python3
"""Clusters make what one batch makes, byte for byte, also when a worker is killed in the middle.

cluster_test.py PROJECT PROGRAM: 500 shots by one `tremolux batch`; by a Snakemake workflow whose worker is killed, and run again; by a
Slurm job array on a single node of its own, likewise. Where nothing of the two is installed the exit status is 77; where a part is
missing it is named and the test fails.
"""
import contextlib
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
# What is started, and Debian's package of it.
TOOLS = {"snakemake": "snakemake", "sbatch": "slurm-wlm", "slurmctld": "slurm-wlm", "slurmd": "slurm-wlm", "munged": "munge"}


class DoesNotStart(Exception):
    """What is installed but wants another system: a host name that resolves, a user that may run daemons."""


@contextlib.contextmanager
def running(command, **how):
    """A process, over when the block is: waited for, or told to end when the block is left by an exception or a signal."""
    process = subprocess.Popen(command, start_new_session=True, **how)
    try:
        yield process
        process.wait()
    except BaseException:
        os.killpg(process.pid, signal.SIGTERM)
        raise
    finally:
        process.wait()


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
        with running(command, cwd=folder, env=environment, stdout=log, stderr=log) as first:
            killed = kill_a_worker(out, lambda: first.poll() is not None)
        assert killed, "the workflow was over before a worker could be killed"
        assert first.returncode != 0, "a killed worker was not noticed"
        assert not (out / "table.csv").exists()
        with running(command, cwd=folder, env=environment, stdout=log, stderr=log) as second:
            pass
        assert second.returncode == 0, "a workflow that was broken off does not end"
    return out


class Slurm:
    """A cluster of one node in a folder, with daemons of its own; whoever calls `begin` calls `end`, whatever happens between."""

    def __init__(self, folder):
        self.folder, self.daemons = folder / "slurm", {}
        for name in ("state", "spool", "munge"):
            (self.folder / name).mkdir(parents=True)
        os.chmod(self.folder / "munge", 0o755)
        self.socket, self.key = self.folder / "munge/socket", self.folder / "munge/key"
        self.key.write_bytes(os.urandom(128))
        os.chmod(self.key, 0o600)
        self.host, ports = socket.gethostname().split(".")[0], self.free_ports()
        cores, user = os.cpu_count(), pwd.getpwuid(os.getuid()).pw_name
        (self.folder / "slurm.conf").write_text(f"""ClusterName=here
SlurmctldHost={self.host}(127.0.0.1)
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
NodeName={self.host} NodeAddr=127.0.0.1 CPUs={cores} State=UNKNOWN
PartitionName=all Nodes={self.host} Default=YES MaxTime=INFINITE State=UP
""", encoding="ascii")
        self.environment = dict(os.environ, SLURM_CONF=str(self.folder / "slurm.conf"), HOME=str(folder))

    def begin(self):
        """Starts the daemons, and gives the node some seconds to take work."""
        self.start(["munged", "--foreground", "--force", f"--key-file={self.key}", f"--socket={self.socket}",
                    f"--pid-file={self.folder}/munged.pid", f"--log-file={self.folder}/munged.log", f"--seed-file={self.folder}/munge/seed"])
        self.start(["slurmctld", "-D"])
        self.start(["slurmd", "-D", "-N", self.host])
        for _ in range(100):
            for name, daemon in self.daemons.items():
                if daemon.poll() is not None:
                    raise DoesNotStart(f"{name} does not stay up: {self.last_words(name)}")
            if self.run("sinfo", "--noheader", "--format=%T").stdout.strip() == "idle":
                return
            time.sleep(0.2)
        raise DoesNotStart("Slurm's node takes no work: " + "; ".join(map(self.last_words, self.daemons)))

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
        # A daemon ends with this process, also when that is killed.
        with open(self.folder / f"{command[0]}.said", "wb") as log:
            self.daemons[command[0]] = subprocess.Popen(["setpriv", "--pdeathsig", "TERM", *command], env=self.environment,
                                                        stdout=log, stderr=log)

    def run(self, *command):
        return subprocess.run(command, env=self.environment, cwd=self.folder, capture_output=True, text=True, check=False)

    def last_words(self, name):
        lines = (self.folder / f"{name}.said").read_text(encoding="utf-8", errors="replace").splitlines()
        return lines[-1] if lines else f"{name} said nothing"

    def is_over(self, job):
        """Not in the queue of those that wait or run; of a job that is long over Slurm knows nothing."""
        queue = self.run("squeue", "--noheader", "--format=%i")
        assert queue.returncode == 0, queue.stderr
        return not any(line.split("_")[0] == job for line in queue.stdout.split())

    def end(self):
        """Ends what was begun; a second signal does not stop that."""
        for number in (signal.SIGTERM, signal.SIGINT):
            signal.signal(number, signal.SIG_IGN)
        if all(daemon.poll() is None for daemon in self.daemons.values()):
            self.run("scancel", "--user", str(os.getuid()))
            for _ in range(50):
                if not self.run("squeue", "--noheader").stdout:
                    break
                time.sleep(0.2)
        for daemon in reversed(self.daemons.values()):
            daemon.terminate()
        for daemon in self.daemons.values():
            try:
                daemon.wait(10)
            except subprocess.TimeoutExpired:
                daemon.kill()


def by_slurm(project, program, shots, folder):
    slurm = Slurm(folder)
    try:
        slurm.begin()
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
    # Daemons lie where only an administrator's PATH leads.
    os.environ["PATH"] += os.pathsep + "/usr/sbin"
    missing = [tool for tool in TOOLS if not shutil.which(tool)]
    if len(missing) == len(TOOLS):
        print("cluster: passed over: neither Snakemake nor Slurm is installed")
        return SKIPPED
    assert not missing, "not installed: " + ", ".join(f"{tool} (Debian's package {TOOLS[tool]})" for tool in missing)
    with tempfile.TemporaryDirectory() as place:
        folder = pathlib.Path(place)
        shots, alone = folder / "shots", folder / "alone"
        make_shots(shots)
        with running([program, "batch", str(shots), "-o", str(alone), *OPTIONS.split(), "--quiet"],
                     env=dict(os.environ, HOME=str(folder))) as batch:
            pass
        assert batch.returncode == 0
        wanted = results(alone)
        for name, run in (("Snakemake", by_snakemake), ("Slurm", by_slurm)):
            try:
                found = results(run(project, program, shots, folder))
            except DoesNotStart as reason:
                print(f"cluster: {name} is passed over: {reason}")
                return SKIPPED
            assert found == wanted, f"{name}: other bytes than those of one batch"
            print(f"cluster: {name}: {SHOTS} shots, a worker killed in the middle, the same bytes as one batch")
    return 0


if __name__ == "__main__":
    # As an exit, so that everything that was started is ended on the way out.
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(128 + signal.SIGTERM))
    signal.signal(signal.SIGINT, lambda *_: sys.exit(128 + signal.SIGINT))
    sys.exit(main(*sys.argv[1:]))
