"""Whether a run of which something failed ended as it may, judged from outside."""

import re
from dataclasses import dataclass

import sweep_state

# What a program has written into one line of a terminal before it cleared the line.
PROGRESS = re.compile(r"[^\n]*\r\x1b\[K")
# What a command has changed, which it tells beside its output.
CHANGE = re.compile(r"scene[1-4]\.\S+: .+ -> ")
LITTER = re.compile(r"(?:.*/)?\.scenewright-[^/]*$")


@dataclass
class Subject:
    """A command line, and what may become of it when it fails."""

    name: str
    arguments: list
    program: str = "scenewright-cli"
    errors: tuple = (1, 2)  # the exit codes by which it may tell a failure
    may_stay: tuple = ()  # files that it may have written before it failed
    given: str = ""  # the file that is its standard input
    may_lack: bool = False  # an input that ends at once is work done
    sends: str = ""  # the file that it sends

    def sent(self, before):
        """What the entry of its send names, if it sends: without a copy it has read nothing."""
        if not self.sends:
            return None
        sent = before[f"files/{self.sends}"][2]
        if "--no-backup" in self.arguments:
            return sweep_state.Sent(sent)
        held = self.arguments[0].removeprefix("--virtual=")
        return sweep_state.Sent(sent, before[f"files/{held}"][2])

    def command(self, programs):
        return [str(programs / self.program), *self.arguments]


@dataclass
class Undisturbed:
    """The run of a subject with nothing failing, and what lay there before and after."""

    code: int
    out: bytes
    before: dict
    after: dict
    sends: sweep_state.Sent = None  # if it sends


def sentences(err):
    return [line for line in PROGRESS.sub("", err).split("\n") if line]


def sentence_faults(program, lines):
    for line in lines:
        if not line.startswith(f"{program}: "):
            yield f"says {line!r}"
        elif "std::" in line or "basic_string" in line or "terminate called" in line:
            yield f"says {line!r}, which is no sentence"


def changes(now, then, but=()):
    """Names whose content is another, apart from those that are as `but` has them."""
    return sorted(
        name
        for name in now.keys() | then.keys()
        if now.get(name) != then.get(name) and (name not in but or now.get(name) != but[name])
    )


def faults(subject, undisturbed, ended, now):
    """What is wrong with the end of a run in which a call or an allocation failed."""
    if ended.is_hung:
        return ["hangs"]
    if ended.code < 0:
        return [f"is ended by signal {-ended.code}"]
    told = sentences(ended.err)
    said = [line for line in told if not CHANGE.match(line)]
    found = list(sentence_faults(subject.program, said))
    if ended.code == undisturbed.code:
        if ended.out != undisturbed.out:
            found.append(f"exits {ended.code}, and standard output is not the same")
        for name in changes(now, undisturbed.after):
            found.append(f"exits {ended.code}, and {name} is not as it should be")
        return found
    if ended.code not in subject.errors:
        found.append(f"exits {ended.code}")
    if len(said) != 1:
        found.append(f"exits {ended.code} with {len(said)} sentences: {said}")
    if said != told and changes(now, undisturbed.after):
        found.append(f"exits {ended.code} and tells a change that was not made")
    may_stay = {f"files/{name}": undisturbed.after.get(f"files/{name}") for name in subject.may_stay}
    entries, now = sweep_state.parted(now)
    found += sweep_state.entry_faults(entries, undisturbed.sends, said)
    may_stay |= sweep_state.lasting(undisturbed.after)
    for name in changes(now, undisturbed.before, may_stay):
        found.append(f"exits {ended.code}, and {name} is not as it was")
    return found


def is_of_a_new_window(kept):
    """Whether an earlier entry holds the scenes of a new window, which a read replaced. They are not
    known again, and kept, when their list cannot be opened at that moment."""
    return b'"reason": "read"' in kept and b'"image": "' + b"SCENE1".hex().encode() in kept


def earlier_faults(before, after, now):
    """What is wrong with the earlier scenes, oldest first: there may be those of before, or the new
    ones with all that are kept beside them, and with more of those of before; each whole."""

    def banks(contents):
        kept = [name for name in sorted(contents) if "/backups/scenes-" in name]
        return [contents[name][2] for name in kept]

    old, kept, found = banks(before), banks(after), banks(now)
    rest = iter([*old, *kept[-1:]])
    if found == old or (set(kept) <= set(found) and all(bank in rest for bank in found)):
        return []
    if len(found) > 1 and is_of_a_new_window(found[-1]) and set(old[-1:]) <= set(found[:-1]) <= set(old):
        return []
    return [f"keeps {len(found)} earlier scenes, which are not those that it should"]


def faults_when_killed(undisturbed, now):
    """What is wrong with the files after a run that was killed: each is the old or the new one."""
    entries, now = sweep_state.parted(now)
    litter = [name for name in now if LITTER.match(name) and name not in undisturbed.before]
    found = [
        f"leaves {name} neither old nor new"
        for name in changes(now, undisturbed.before, undisturbed.after)
        if name not in litter
    ]
    if len(litter) > 1:
        found.append(f"leaves {len(litter)} temporary files")
    return found + sweep_state.entry_faults(entries, undisturbed.sends)


def faults_afterwards(subject, undisturbed, ended, now):
    """The same command again after it was killed: done, and nothing of the killed one left."""
    found = []
    if ended.code != undisturbed.code:
        found.append(f"exits {ended.code} afterwards: {ended.err.strip()}")
    for name in now:
        if LITTER.match(name) and name not in undisturbed.before:
            found.append(f"leaves {name} for good")
    for name in changes(now, undisturbed.after):
        if not LITTER.match(name) and name.removeprefix("files/") not in subject.may_stay:
            found.append(f"leaves {name} not as it should be, though run again")
    return found


def unsettled(trace, *folders):
    """Files that take another's place before their bytes are on the disk, or whose folder is not
    flushed afterwards: a computer may lose its power at any moment. From a trace with the paths of
    descriptors; the first folder is the one that the program works in."""
    unflushed, unsettled_folders, found = {}, {}, []
    for line in trace:
        call = re.match(r"(?:\d+ +)?(\w+)\((?:\d+<([^>]*)>)?(.*)", line)
        if not call or " = -1 " in line:
            continue
        name, path, rest = call.groups()
        if name in ("write", "pwrite64", "ftruncate") and path and path.startswith(folders):
            unflushed[path] = line
        elif name == "fsync" and path:
            unflushed.pop(path, None)
            unsettled_folders.pop(path, None)
        elif name.startswith("rename") or name == "linkat":
            quoted = re.findall(r'"((?:[^"\\]|\\.)*)"', rest)
            for written in unflushed:
                found.append(f"{written} takes its place before it is flushed")
            unflushed.clear()
            target = quoted[-1] if quoted else ""
            place = target if target.startswith("/") else f"{folders[0]}/{target}"
            unsettled_folders[place.rpartition("/")[0].removesuffix("/.")] = target
    found += [f"{path} is written and not flushed" for path in unflushed]
    found += [f"{name}: its folder is not flushed" for name in unsettled_folders.values()]
    return found


def is_unsafe(trace, folder):
    """Whether the failed call was the flush of a file below the folder, and not of a folder: then
    the bytes may not be on the disk. EINVAL and the like from a file system that cannot flush are
    not tried."""
    for line in trace:
        call = re.match(r"(?:\d+ +)?fsync\(\d+<([^>]*)>.*\(INJECTED\)", line)
        if call and call[1].startswith(f"{folder}/"):
            return True
    return False
