"""A copy of the sources in which many faults wait to be switched on, and its build."""

import hashlib
import json
import re
import subprocess
from multiprocessing import Pool
from pathlib import Path

from . import finding

HERE = Path(__file__).parent
PARTS = ("CMakeLists.txt", "CMakePresets.json", "cmake", "src", "tests", "characters", "packaging", "tools")
DESKTOP_TARGETS = ["parlune", "list_places", "drag_file"]
# For sources with faults only: what has none is compiled as ever, and comes from the compiler's cache. The sanitizers of ./test
# stop where the library's own checks stop.
FLAGS = f"-w;-Wno-narrowing;-O1;-D_GLIBCXX_ASSERTIONS;-include;{HERE}/Fault.h"
ROUNDS = 8  # So often faults that do not compile are replaced by others.


class TreeError(Exception):
    pass


def write_if_changed(path, content):
    """Leaves the time of a file alone that is already right: nothing is compiled for it."""
    if not path.exists() or path.read_bytes() != content:
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_bytes(content)


def files_below(root, part):
    path = root / part
    return [path] if path.is_file() else sorted(file for file in path.rglob("*") if file.is_file())


def line_of(source, offset):
    return source.count(b"\n", 0, offset) + 1


def whole_lines(source, begin, end, text):
    """The lines around a stretch with another text in its place, on one line."""
    first = source.rfind(b"\n", 0, begin) + 1
    last = source.find(b"\n", end)
    lines = source[first:begin].decode() + text + source[end:last].decode()
    return " ".join(lines.split())


class Tree:
    """`work` keeps what is known about the sources; `folder` is the copy."""

    def __init__(self, root, work, folder, group):
        self.root, self.work, self.folder, self.group = root, work, folder, group
        self.build_folder = folder / "build" / "linux"

    # Copying

    def copy(self, parts=PARTS):
        for part in parts:
            self.copy_part(part)
        marks = f'set_source_files_properties(${{faulty_sources}} PROPERTIES COMPILE_OPTIONS "{FLAGS}")\n'
        lists = self.root / "src" / "CMakeLists.txt"
        write_if_changed(self.folder / "src" / "CMakeLists.txt",
                         b"include(${CMAKE_SOURCE_DIR}/faulty.cmake)\n" + marks.encode() + lists.read_bytes())

    def copy_part(self, part):
        wanted = set()
        written_elsewhere = {"src/CMakeLists.txt", *self.sources()}
        for file in files_below(self.root, part):
            target = self.folder / file.relative_to(self.root)
            wanted.add(target)
            if file.relative_to(self.root).as_posix() not in written_elsewhere:
                write_if_changed(target, file.read_bytes())
                target.chmod(file.stat().st_mode)  # Scripts are run there.
        for target in files_below(self.folder, part):
            if target not in wanted:
                target.unlink()

    # Finding

    def sources(self):
        """The sources of the group, as paths below the root."""
        found = []
        for folder in self.group.folders:
            found += [file.relative_to(self.root).as_posix() for file in sorted((self.root / folder).rglob("*.cpp"))]
        return [path for path in found if not any(path.startswith(left_out + "/") for left_out in self.group.without)]

    def find(self):
        """All sites of the group's sources: pairs of path and site. What was found is kept until the source changes."""
        self.copy()
        self.write_faults([])
        self.configure()
        commands = json.loads((self.build_folder / "compile_commands.json").read_text())
        arguments = {command["file"]: compiler_arguments(command) for command in commands}
        compiled = [path for path in self.sources() if str(self.folder / path) in arguments]
        keep = self.work / "sites"
        keep.mkdir(parents=True, exist_ok=True)
        with Pool(2) as pool:
            jobs = [(keep, self.root, path, arguments[str(self.folder / path)]) for path in compiled]
            found = pool.starmap(find_or_recall, jobs)
        return [(path, site) for path, sites in zip(compiled, found) for site in sites]

    def digest(self):
        """Stands for the group's sources as they are."""
        return hashlib.sha256(b"".join((self.root / path).read_bytes() for path in self.sources())).hexdigest()

    # Building

    def configure(self):
        self.run(["cmake", "-S", str(self.folder), "--preset", "linux", "-DPARLUNE_TESTS=ON",
                  f"-DPARLUNE_DESKTOP={'ON' if self.group.desktop else 'OFF'}"], "configure")

    def run(self, command, name):
        log = self.work / f"{self.group.name}-{name}.log"
        with open(log, "w", encoding="utf-8") as output:
            if subprocess.run(command, cwd=self.folder, stdout=output, stderr=subprocess.STDOUT, check=False).returncode == 0:
                return None
        if name == "configure":
            raise TreeError(f"cmake failed, see {log}")
        return log.read_text(encoding="utf-8", errors="replace")

    def write_faults(self, faults):
        """Rewrites the sources: each has its faults as branches, and the lines stay where they are."""
        by_path = {}
        for fault in faults:
            by_path.setdefault(fault["path"], []).append(fault)
        for path in self.sources():
            source = (self.root / path).read_bytes()
            write_if_changed(self.folder / path, with_faults(source, by_path.get(path, [])))
        names = "\n".join("${CMAKE_SOURCE_DIR}/" + path for path in sorted(by_path))
        write_if_changed(self.folder / "faulty.cmake", f"set(faulty_sources\n{names})\n".encode())

    def build(self, faults, more):
        """Builds the test programs with the faults; one that does not compile gives way to one of `more`. Answers the faults."""
        targets = [f"test_{program}" for program in self.group.programs] + (DESKTOP_TARGETS if self.group.desktop else [])
        for _ in range(ROUNDS):
            self.write_faults(faults)
            command = ["cmake", "--build", str(self.build_folder), "-j", "2", "--target", *targets, "--", "-k", "0"]
            said = self.run(command, "build")
            if said is None:
                return faults
            bad = refused_faults(said, str(self.folder), faults)
            if not bad:
                raise TreeError(f"the build failed: {self.work}/{self.group.name}-build.log")
            print(f"{len(bad)} faults do not compile and are replaced", flush=True)
            for fault in bad:
                faults[faults.index(fault)] = {**next(more), "number": fault["number"]}
        raise TreeError("there are always faults that do not compile")


def compiler_arguments(command):
    words = command.get("arguments") or command["command"].split()
    kept = [word for word in words if word.startswith(("-I", "-D", "-std="))]
    for i, word in enumerate(words):
        if word == "-isystem":
            kept += [word, words[i + 1]]
    return kept


def find_or_recall(keep, root, path, arguments):
    content = (root / path).read_bytes() + (HERE / "finding.py").read_bytes()
    kept = keep / hashlib.sha256(path.encode() + content).hexdigest()
    if not kept.exists():
        sites = [(site.begin, site.end, site.variants) for site in finding.find_sites(str(root / path), arguments)]
        kept.write_text(json.dumps(sites))
    return [finding.Site(*site) for site in json.loads(kept.read_text())]


def draw(root, sites, random):
    """The sites' faults in random order, one of each, none inside another. Endless it is not."""
    taken = {}
    for path, site in random.sample(sites, len(sites)):
        if any(site.begin < end and begin < site.end for begin, end in taken.get(path, [])):
            continue
        taken.setdefault(path, []).append((site.begin, site.end))
        shown, compiled = random.choice(site.variants)
        source = (root / path).read_bytes()
        yield {"path": path, "line": line_of(source, site.begin), "begin": site.begin, "end": site.end, "compiled": compiled,
               "before": whole_lines(source, site.begin, site.end, source[site.begin:site.end].decode()),
               "after": whole_lines(source, site.begin, site.end, shown)}


def with_faults(source, faults):
    for fault in sorted(faults, key=lambda fault: -fault["begin"]):
        lines = source[fault["begin"]:fault["end"]].count(b"\n")
        text = fault["compiled"].replace("\n", " ").replace(finding.ON, f"::mutation::On({fault['number']})")
        source = source[:fault["begin"]] + text.encode() + b"\n" * lines + source[fault["end"]:]
    return source


def refused_faults(said, folder, faults):
    """The faults at the lines of which the compiler speaks when it refuses a file; all of the file if it names other lines."""
    bad, refused = [], {}
    place = re.escape(folder) + r"/(\S+?):(\d+):\d+: (?:error|  required from here)"
    for path, line in re.findall(place, relative_to_folder(said, folder)):
        refused.setdefault(path, set()).add(int(line))
    for path, lines in refused.items():
        there = [fault for fault in faults if fault["path"] == path]
        named = [fault for fault in there if any(abs(fault["line"] - line) <= 1 for line in lines)]
        bad += named or there
    return bad


def relative_to_folder(said, folder):
    """The compiler may be called with paths from the build folder on."""
    return re.sub(r"(?m)^(?:\.\./)+(?=src/)", folder + "/", said)
