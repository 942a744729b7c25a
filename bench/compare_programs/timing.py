"""Running programs: what they print, the processor time that they take, their memory, their instructions."""
import collections
import os
import re
import statistics
import subprocess
import tempfile

Run = collections.namedtuple("Run", "seconds peak_bytes output")


class ProgramFailed(Exception):
    pass


def run(command, folder):
    """One run in the folder; `seconds` is the processor time of the program and of all that it starts."""
    with tempfile.TemporaryFile() as output, tempfile.TemporaryFile() as errors:
        environment = dict(os.environ, QT_QPA_PLATFORM="offscreen", LC_ALL="C.UTF-8")
        process = subprocess.Popen(command, cwd=folder, env=environment, stdin=subprocess.DEVNULL, stdout=output, stderr=errors)
        _, status, used = os.wait4(process.pid, 0)
        process.returncode = os.waitstatus_to_exitcode(status)
        output.seek(0)
        errors.seek(0)
        if process.returncode != 0:
            raise ProgramFailed(f"{' '.join(command)}: {errors.read().decode(errors='replace')[-400:]}")
        return Run(used.ru_utime + used.ru_stime, used.ru_maxrss * 1024, output.read().decode(errors="replace"))


def seconds(path, folder):
    """What one run says: printed by a program that times itself, else the time of the whole process."""
    done = run(path.command, folder)
    return float(done.output) if path.times_itself else done.seconds


def medians(paths, folder, rounds):
    """The median of each path, run one after the other in every round, so that what disturbs one disturbs all."""
    times = collections.defaultdict(list)
    for _ in range(rounds):
        for name, path in paths.items():
            times[name].append(seconds(path, folder))
    return {name: statistics.median(values) for name, values in times.items()}


def instructions(path, folder):
    """Instructions of what a program measures, once; None for a program that does not time itself."""
    if not path.times_itself:
        return None
    with tempfile.TemporaryDirectory() as made:
        tool = ["valgrind", "--tool=callgrind", "--collect-atstart=no", "--toggle-collect=compare::measured*",
                f"--callgrind-out-file={made}/counts", f"--log-file={made}/log"]
        run(tool + path.command + ["1"], folder)
        with open(os.path.join(made, "log")) as log:
            found = re.search(r"Collected : (\d+)", log.read())
    return int(found.group(1)) if found else None
