#!/usr/bin/env python3
"""Checks the include graph of src/: core has no Qt and no window code, no subsystem of core
reaches up into core/app, and no two units (a header with its .cpp) or two folders depend on
each other, however indirectly. Outside src/core/platform no file of src/, tests/ or bench/
includes a system's own header: the system is reached through core/platform/system.h."""
import pathlib
import re
import sys

top = pathlib.Path(sys.argv[1] if len(sys.argv) > 1 else ".").resolve()
root = top / "src"
system_header = re.compile(
    r"^(unistd|spawn|fcntl|signal|dirent|pwd|poll|termios|dlfcn|io|process|direct|windows|"
    r"shellapi|shlobj|psapi|winbase|winnt|sys/.*)\.h$", re.I)
include = re.compile(r'^\s*#\s*include\s+[<"]([^">]+)[">]', re.M)


def includes_of(path):
    return include.findall(path.read_text(encoding="utf-8", errors="replace"))


files = {p.relative_to(root).as_posix(): p for p in root.rglob("*") if p.suffix in (".h", ".cpp")}
faults = []


def unit(name):
    return name.rsplit(".", 1)[0]


def folder(name):
    return name.rsplit("/", 1)[0]


def graph_by(key):
    graph = {}
    for name, path in files.items():
        targets = graph.setdefault(key(name), set())
        targets.update(key(i) for i in includes_of(path) if i in files and key(i) != key(name))
    return graph

for name, path in files.items():
    if not name.startswith("core/"):
        continue
    for target in includes_of(path):
        if target.startswith(("Q", "ui/", "cli/")):
            faults.append(f"{name} includes {target}: core stays free of windows and the CLI")
        if target.startswith("core/app/") and not name.startswith("core/app/"):
            faults.append(f"{name} includes {target}: only core/app may use the application state")
    if not name.startswith("core/app/") and re.search(r"\bAppState\b", path.read_text(errors="replace")):
        faults.append(f"{name} names AppState: pass the parts it uses")


def find_cycles(graph, what):
    state = {}

    def visit(node, stack):
        state[node] = "open"
        stack.append(node)
        for target in sorted(graph.get(node, ())):
            if state.get(target) == "open":
                cycle = stack[stack.index(target):] + [target]
                faults.append(f"{what} cycle: " + " -> ".join(cycle))
            elif target not in state:
                visit(target, stack)
        stack.pop()
        state[node] = "done"

    for node in sorted(graph):
        if node not in state:
            visit(node, [])


for part in ("src", "tests", "bench"):
    for path in sorted((top / part).rglob("*")):
        if path.suffix not in (".h", ".cpp") or (root / "core/platform") in path.parents:
            continue
        for target in includes_of(path):
            if system_header.match(target):
                name = path.relative_to(top).as_posix()
                faults.append(f"{name} includes {target}: the system is reached through "
                              "core/platform/system.h")

find_cycles(graph_by(unit), "file")
find_cycles(graph_by(folder), "folder")

for fault in faults:
    print(fault)
print(f"{len(files)} files checked, {len(faults)} faults")
sys.exit(1 if faults else 0)
