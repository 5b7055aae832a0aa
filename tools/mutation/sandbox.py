"""A private copy of the project, the libraries that mutants of it make, and its tests."""
import json
import os
import pathlib
import shlex
import shutil
import signal
import subprocess
import tempfile
import time
from concurrent.futures import ThreadPoolExecutor

CORE = ("model", "formats", "store", "history")
LEFT_OUT = {"window"}  # they need an X server each, and time that a loaded machine lacks
PROCESSOR_S = 60  # that a test may take, if it is not known to need more
WALL_S = 400  # for one that only waits
ELSEWHERE = 3  # the distance of tests that neither name the class nor stand in its folder


class Sandbox:
    """The copy in @p folder; it is built once. A mutant is one source, compiled and linked to a
    library of its own that the tests are told to take. They run as nobody if we are root, so that a
    wrong program destroys nothing but its own empty home."""

    def __init__(self, root, folder, jobs):
        self.root, self.source, self.jobs = root, folder, jobs
        self.build = folder / "build/mutate"
        self.tests, self.compilers = [], {}

    def prepare(self):
        """Brings the copy up to date, builds all of it and lists the tests."""
        self._copy()
        build = [self.source / "tools/build", "mutate", "--", f"-j{self.jobs}", "--quiet"]
        subprocess.run(build, check=True)
        for entry in json.loads((self.build / "compile_commands.json").read_text()):
            name = pathlib.Path(entry["file"])
            if name.is_relative_to(self.source):
                self.compilers[str(name.relative_to(self.source))] = shlex.split(entry["command"])
        listed = json.loads(self._asked("ctest", "--show-only=json-v1"))["tests"]
        with ThreadPoolExecutor(self.jobs) as pool:
            self.tests = [test for test in pool.map(self._test, listed) if test]

    def _test(self, entry):
        properties = {item["name"]: item["value"] for item in entry["properties"]}
        if LEFT_OUT & set(properties.get("LABELS", [])):
            return None
        return Test(entry["name"], entry["command"], properties.get("ENVIRONMENT", []), self.build)

    def _asked(self, *command):
        return output_of(*command, cwd=self.build)

    def _copy(self):
        listed = output_of("git", "ls-files", "-z", "--cached", "--others", "--exclude-standard",
                           cwd=self.root)
        names = [name for name in listed.split("\0") if name and (self.root / name).is_file()]
        names += [str(path.relative_to(self.root)) for path in (self.root / "build/deps").rglob("*")
                  if path.is_file()]
        for name in names:
            old, new = self.root / name, self.source / name
            if not new.is_file() or new.read_bytes() != old.read_bytes():
                new.parent.mkdir(parents=True, exist_ok=True)
                new.write_bytes(old.read_bytes())
                new.chmod(old.stat().st_mode)

    def verdict(self, name, text, is_near):
        """The test that fails if the source @p name reads @p text, None if none does, False if it
        does not compile. The tests of its class run first, then those that name it, those of its
        folder, and unless @p is_near the others."""
        with tempfile.TemporaryDirectory(dir=self.build, prefix="mutant-") as folder:
            folder = pathlib.Path(folder)
            if not self._made(name, text, folder):
                return False
            folder.chmod(0o755)
            if os.geteuid() == 0:
                shutil.chown(folder, "nobody")
            path = pathlib.Path(name)
            concerned = [test for test in self.tests if test.uses(f"libtessaril_{library_of(name)}.so")
                         and (not is_near or test.distance(path) < ELSEWHERE)]
            for test in sorted(concerned, key=lambda test: (test.distance(path), test.seconds)):
                told = test.run(folder, folder)
                # A machine under load can fail a test once, and some need more rights than nobody has.
                if told and not test.run(folder) and test.run(folder, folder):
                    return test.name + told
        return None

    def _made(self, name, text, folder):
        """Whether the text compiles to a library in the folder."""
        source = folder / pathlib.Path(name).name
        source.write_text(text)
        compiler = list(self.compilers[name])
        old = compiler[compiler.index("-o") + 1]
        new = str(source.with_suffix(".o"))
        compiler[compiler.index("-o") + 1] = new
        compiler[compiler.index("-c") + 1] = str(source)
        library = f"libtessaril_{library_of(name)}.so"
        target = next(path for path in (self.build / "src").rglob(library)).relative_to(self.build)
        linker = self._asked("ninja", "-t", "commands", str(target)).strip().split("\n")[-1]
        linker = linker.replace(f" {old} ", f" {new} ")
        linker = linker.replace(f"-o {target} ", f"-o {folder / library} ")
        return all(subprocess.run(command, cwd=self.build, check=False, shell=isinstance(command, str),
                                  capture_output=True).returncode == 0 for command in (compiler, linker))


def output_of(*command, **options):
    return subprocess.run(command, check=True, capture_output=True, text=True, **options).stdout


def library_of(name):
    folder = pathlib.Path(name).parts[1]
    return "core" if folder in CORE else folder


class Test:
    def __init__(self, name, command, environment, build):
        self.name, self.command = name, command
        self.build = build
        self.environment = dict(entry.split("=", 1) for entry in environment)
        self.seconds = 0  # of the processor, at the last run
        program = next((pathlib.Path(part) for part in command
                        if part.startswith(f"{build}/") and os.path.isfile(part)), pathlib.Path(command[0]))
        self.libraries = subprocess.run(["ldd", program], capture_output=True, text=True,
                                        check=False).stdout
        source = build.parent.parent / "tests" / name.split("/")[0] / f"{program.name}.cpp"
        self.source = source.read_text() if source.is_file() else ""

    def uses(self, library):
        return library in self.libraries or ".so" not in self.libraries

    def distance(self, path):
        folder, name = self.name.split("/")
        if path.stem in name or name in path.stem:
            return 0
        return 1 if path.stem in self.source else 2 if folder == path.parts[1] else ELSEWHERE

    def run(self, folder, libraries=None):
        """Empty if it passes, with a home in @p folder; else how it failed beside a plain failure.
        What stands in @p libraries takes the place of the unchanged ones."""
        may_take = max(PROCESSOR_S, round(4 * self.seconds))
        limits = ["prlimit", f"--cpu={may_take}", "--as=8000000000", "--fsize=4000000000", "--core=0"]
        if os.geteuid() == 0:
            limits += ["setpriv", "--reuid=nobody", "--regid=nogroup", "--clear-groups"]
        command = [part.replace(f"{self.build}/home/", f"{folder}/home/")
                   .replace(f"{self.build}/tour/output", f"{folder}/tour") for part in self.command]
        environment = {**os.environ, **self.environment}
        if libraries:
            environment["LD_LIBRARY_PATH"] = str(libraries)
        process = subprocess.Popen(limits + command, cwd="/", env=environment, start_new_session=True,
                                   stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                                   stderr=subprocess.DEVNULL)
        end = time.monotonic() + WALL_S
        pid = 0
        while not pid:
            pid, status, used = os.wait4(process.pid, os.WNOHANG)
            if not pid and time.monotonic() > end:
                os.killpg(process.pid, signal.SIGKILL)
            time.sleep(0.05)
        process.returncode = os.waitstatus_to_exitcode(status)
        if process.returncode == 0:
            self.seconds = used.ru_utime + used.ru_stime
            return ""
        if process.returncode > 0:
            return " "
        return " (no end)" if process.returncode == -signal.SIGKILL else " (crash)"
