#!/usr/bin/env python3
"""usage: faults.py TEI2CRF CONVERTER TABLE GROUP

Runs the programs under the faults of docs/robustness.md (TABLE): each row of a table there is a function here, with the
row's first cell as its docstring. Status 77: the group cannot be tried here.
"""

import json
import os
import random
import re
import resource
import shutil
import signal
import subprocess
import sys
import tempfile
import time
import traceback

TIMEOUT = 60  # seconds; whatever takes longer hangs
NOBODY = 65534
MEGABYTE = 1 << 20
SENTENCE, LINES = "<s><c>,</c></s>\n", ", $,\n\n"
LEXICON = "0#s#sp#3#l#src#V#17#w#9#10#11#12#13#14#15#16#Verb#18#19#20#21\n"
ANALYSIS = "x{'ls':[{'name':'l','wfs':[{'id':17}]}]}x"
SIGNALS = (signal.SIGHUP, signal.SIGINT, signal.SIGQUIT, signal.SIGTERM)

ROWS = []  # (group, function)


def row(group):
    return lambda function: ROWS.append((group, function)) or function


class Skipped(Exception):
    pass


def start(argv, limits=(), closed=(), user=None, **how):
    """A child with limits, without some of its standard streams, as another user where that is possible."""

    def prepare():
        for number in SIGNALS:
            signal.signal(number, signal.SIG_DFL)
        resource.setrlimit(resource.RLIMIT_CORE, (0, 0))
        for what, value in limits:
            resource.setrlimit(what, (value, value))
        for stream in closed:
            os.close(stream)

    if user is not None and os.geteuid() == 0:
        # A build for coverage cannot write its counts as another user, and would say so.
        how.update(user=user, group=user, extra_groups=[], env={**os.environ, "GCOV_PREFIX": COUNTS})
    how = {"bufsize": 0, "stdin": subprocess.DEVNULL, "stdout": subprocess.PIPE, "stderr": subprocess.PIPE, **how}
    return subprocess.Popen(argv, preexec_fn=prepare, **how)


def ended(child):
    """Status (negative: a signal), standard output and standard error."""
    try:
        out, err = child.communicate(timeout=TIMEOUT)
    except subprocess.TimeoutExpired:
        child.kill()
        raise
    return child.returncode, (out or b"").decode(errors="replace"), (err or b"").decode(errors="replace")


def tei2crf(*arguments, **how):
    return start([TEI2CRF, "-qq", "-l", "lexicon", *arguments], **how)


def converter(*arguments, **how):
    return start([CONVERTER, *arguments], **how)


def write(name, content):
    with open(name, "w") as file:
        file.write(content)


def read(name):
    with open(name, encoding="utf-8") as file:
        return file.read()


def document(name, sentences=1):
    write(name, "<t>\n" + SENTENCE * sentences + "</t>")


def same(got, wanted):
    if got != wanted:
        raise AssertionError(f"\n  got    {str(got)[-600:]!r}\n  wanted {str(wanted)[-600:]!r}")


def tokens(out):
    """The converter's token lines, without its progress lines."""
    return "".join(line for line in out.splitlines(True) if not re.match("log path|input filename|Error", line))


def keeps_old(child, *wanted):
    """The end of a run that must leave the file `out` as it was, and nothing beside it."""
    same(ended(child), wanted)
    same((read("out"), [name for name in os.listdir() if name.startswith(".out")]), ("old", []))


def on_small_disk(command, *arguments):
    """Runs a shell command in a file system of 100 KB, which goes when the command ends."""
    script = f"mount -t tmpfs -o size=100k,mode=777 none small && cd small && {command}"
    os.mkdir("small")
    if os.geteuid() != 0 or ended(start(["unshare", "--mount", "sh", "-c", "mount -t tmpfs none small"]))[0] != 0:
        raise Skipped("a small disk needs root and mount")
    return ended(start(["unshare", "--mount", "sh", "-c", script, "sh", *arguments]))


# tei2crf


@row("disk")
def tei2crf_full_disk():
    """tei2crf: a full disk"""
    document("big.xml", 30000)
    command = 'printf old >out; "$1" -qq -l ../lexicon ../big.xml -o out; echo $? $(cat out) $(ls -A)'
    status, out, err = on_small_disk(command, TEI2CRF)
    same((status, out, err), (0, "1 old out\n", f"tei2crf: {os.getcwd()}/small/out: No space left on device\n"))


@row("main")
def tei2crf_dev_full():
    """tei2crf: `/dev/full`"""
    document("a.xml")
    error = "No space left on device\n"
    same(ended(tei2crf("a.xml", "-o", "/dev/full")), (1, "", "tei2crf: /dev/full: " + error))
    same(ended(tei2crf("a.xml", "--report=/dev/full")), (1, LINES, "tei2crf: /dev/full: " + error))
    with open("/dev/full", "w") as full:
        same(ended(tei2crf("a.xml", stdout=full)), (1, "", "tei2crf: standard output: " + error))


@row("main")
def tei2crf_file_size():
    """tei2crf: a limit of the file size (`ulimit -f`)"""
    document("big.xml", 30000)
    limits = [(resource.RLIMIT_FSIZE, 100000)]
    write("out", "old")
    keeps_old(tei2crf("big.xml", "-o", "out", limits=limits), 1, "", f"tei2crf: {os.getcwd()}/out: File too large\n")
    with open("lines", "w") as lines:
        same(ended(tei2crf("big.xml", stdout=lines, limits=limits))[0], 1)
    same(read("lines"), (LINES * 30000)[:100000])


@row("main")
def tei2crf_closed_streams():
    """tei2crf: a closed standard stream (`>&-`, `<&-`, `2>&-`)"""
    document("a.xml")
    same(ended(tei2crf("a.xml", closed=[1])), (1, "", "tei2crf: standard output: Bad file descriptor\n"))
    status, out, err = ended(tei2crf("-", closed=[0]))
    same((status, out, "tei2crf: standard input" in err), (1, "", True))
    write("out", "old")
    same(ended(tei2crf("a.xml", "missing", "-v", "-o", "out", closed=[0, 1, 2])), (1, "", ""))
    same(read("out"), LINES)


@row("main")
def tei2crf_broken_pipe():
    """tei2crf: a reader that goes away"""
    document("big.xml", 100000)
    child = tei2crf("big.xml")
    child.stdout.read(1)
    child.stdout.close()
    child.stdout = None
    same(ended(child), (1, "", "tei2crf: standard output: Broken pipe\n"))


@row("main")
def tei2crf_permissions():
    """tei2crf: no permission"""
    document("a.xml")
    document("closed.xml")
    os.mkdir("folder")
    document("folder/b.xml")
    for name in ("closed.xml", "folder"):
        os.chmod(name, 0)
    denied = "Permission denied\n"
    same(ended(tei2crf("a.xml", "closed.xml", "folder", user=NOBODY)),
         (1, LINES, "tei2crf: folder: " + denied + "tei2crf: closed.xml: " + denied))
    same(ended(tei2crf("a.xml", "-l", "closed.xml", user=NOBODY)), (1, "", "tei2crf: closed.xml: " + denied))
    os.chmod("folder", 0o555)
    same(ended(tei2crf("a.xml", "-o", "folder/b.xml", user=NOBODY)),
         (1, "", f"tei2crf: {os.getcwd()}/folder/b.xml: " + denied))
    same(read("folder/b.xml")[:3], "<t>")


def need_no_sanitizer():
    with open(TEI2CRF, "rb") as program:
        if b"__asan_init" in program.read():
            raise Skipped("the sanitizers need memory and descriptors of their own")


def least_memory(run):
    """The limit of the address space, in bytes, with which a run on a small document just works."""
    need_no_sanitizer()
    for megabytes in range(20, 2000, 4):
        if ended(run([(resource.RLIMIT_AS, megabytes * MEGABYTE)]))[0] == 0:
            return megabytes * MEGABYTE
    raise AssertionError("fails with any memory")


@row("limits")
def tei2crf_memory():
    """tei2crf: a limit of memory (`ulimit -v`)"""
    document("a.xml")
    write("out", "old")
    least = least_memory(lambda limits: tei2crf("a.xml", limits=limits))
    with open("huge", "w") as huge:
        huge.truncate(1 << 30)  # one line
    limits = [(resource.RLIMIT_AS, least + 64 * MEGABYTE)]
    keeps_old(tei2crf("a.xml", "-l", "huge", "-o", "out", limits=limits), 1, "",
              "tei2crf: huge: Cannot allocate memory\n")
    count, form = 3000, "a" * 8000
    write("long.xml", "<s>" + f'<w lemma="{ANALYSIS}">{form}</w>' * count + "</s>")
    seen = set()
    for megabytes in range(4, 100, 12):
        limits = [(resource.RLIMIT_AS, least + megabytes * MEGABYTE)]
        child = tei2crf("long.xml", "-o", "out", "--report=report", limits=limits)
        if child.wait(TIMEOUT) == 0:
            same(read("out") == f"{form} Verb\n" * count + "\n", True)
            write("out", "old")
        else:
            keeps_old(child, 1, "", "tei2crf: out of memory\n")
        with open("report") as report:
            same(json.load(report)["tokens"]["written"], 0 if child.returncode else count)
        seen.add(child.returncode)
    same(seen, {0, 1})
    for text in (f'<w lemma="{ANALYSIS}">' + "y" * 11000000 + "</w>", "<!--" + "y" * 9000000 + "-->"):
        write("large.xml", f"<s><c>.</c>{text}</s>")
        for kilobytes in range(0, 16000, 500):
            write("out", "old")
            limits = [(resource.RLIMIT_AS, least + kilobytes * 1024)]
            child = tei2crf("large.xml", "-o", "out", limits=limits)
            if child.wait(TIMEOUT) == 0:
                same(read("out"), ". $.\n\n")
            else:
                keeps_old(child, 1, "", "tei2crf: out of memory\n")


@row("limits")
def tei2crf_descriptors():
    """tei2crf: few open files (`ulimit -n`)"""
    need_no_sanitizer()
    document("a.xml")
    same(ended(tei2crf("a.xml", "-o", "out", limits=[(resource.RLIMIT_NOFILE, 5)])), (0, "", ""))
    same(read("out"), LINES)
    status, out, err = ended(tei2crf("a.xml", limits=[(resource.RLIMIT_NOFILE, 4)]))
    same((status, out, "Too many open files" in err, "tei2crf: a.xml: " in err), (1, "", True, True))


def begin_output(*arguments):
    """A run that has written part of its output and waits for the rest of standard input."""
    write("out", "old")
    child = tei2crf("-", "-o", "out", *arguments, stdin=subprocess.PIPE)
    child.stdin.write(("<t>" + SENTENCE * 30000).encode())
    child.stdin.flush()
    end = time.monotonic() + TIMEOUT
    while not any(name.startswith(".out.") and os.path.getsize(name) for name in os.listdir()):
        same(time.monotonic() < end and child.poll() is None, True)
        time.sleep(0.002)
    return child


@row("main")
def tei2crf_signals():
    """tei2crf: SIGHUP, SIGINT, SIGQUIT, SIGTERM, SIGUSR1, SIGUSR2 or SIGXCPU"""
    for number in SIGNALS + (signal.SIGUSR1, signal.SIGUSR2, signal.SIGXCPU):
        child = begin_output()
        child.send_signal(number)
        keeps_old(child, -number, "", "")
    at_any_time(signal.SIGTERM, [])


@row("main")
def tei2crf_killed():
    """tei2crf: SIGKILL"""
    child = begin_output()
    child.kill()
    same(ended(child), (-signal.SIGKILL, "", ""))
    same((read("out"), sum(name.startswith(".out.") for name in os.listdir())), ("old", 1))
    at_any_time(signal.SIGKILL, None)


def at_any_time(number, left):
    """Signals at moments all over a run: the old file stands, or the new one is whole."""
    document("big.xml", 50000)
    begin = time.monotonic()
    same(ended(tei2crf("big.xml", "-o", "out"))[0], 0)
    duration = time.monotonic() - begin
    moments = random.Random(4711)
    for _ in range(15):
        write("out", "old")
        child = tei2crf("big.xml", "-o", "out")
        time.sleep(moments.uniform(0, 1.1 * duration))
        child.send_signal(number)
        same(ended(child)[0] in (0, -number), True)
        same(read("out") in ("old", LINES * 50000), True)
        same(left is None or [name for name in os.listdir() if name.startswith(".out.")] == left, True)


@row("main")
def tei2crf_changes():
    """tei2crf: a document that is cut, grows, is replaced or removed while it is read"""
    whole, half = (0, "", 400000), 4 + len(SENTENCE) * 200000

    def while_read(change):
        child = tei2crf("-j1", "a.xml", "later.xml")
        first = child.stdout.read(1).decode()  # it cannot be much farther, since nobody reads the rest
        change()
        status, out, err = ended(child)
        return status, err[:16], out.count("\n\n") if LINES.startswith(first) and set(out) == set(LINES) else out

    def grow():
        with open("a.xml", "a") as file:
            file.write(SENTENCE * 200000 + "</t>")

    rows = [
        (400000, lambda: os.truncate("a.xml", half), (1, "tei2crf: a.xml:2", 200000)),
        (400000, lambda: os.rename("new", "a.xml"), whole),
        (400000, lambda: os.remove("a.xml"), whole),
        (200000, grow, whole),
        (400000, lambda: os.remove("later.xml"), (1, "tei2crf: later.x", 400000)),
    ]
    for count, change, wanted in rows:
        for name in ("new", "later.xml"):
            document(name, 0)
        document("a.xml", count)
        if change is grow:
            os.truncate("a.xml", half)
        same(while_read(change), wanted)


def make_circles():
    os.makedirs("corpus/folder")
    document("corpus/folder/a.xml")
    for name, target in (("folder/up", ".."), ("b.xml", "c.xml"), ("c.xml", "b.xml"), ("self.xml", "self.xml")):
        os.symlink(target, "corpus/" + name)


def make_deep(depth):
    """A document this deep, made without a long path."""
    here = os.open(".", os.O_RDONLY)
    for name in ["corpus"] + ["d"] * depth:
        os.mkdir(name)
        os.chdir(name)
    document("a.xml")
    os.fchdir(here)
    os.close(here)


def make_names(content):
    """A document for each byte that a name can hold."""
    os.mkdir("corpus")
    names = [b"x" + bytes([byte]) + b".xml" for byte in range(1, 256) if byte != ord("/")]
    for name in names:
        with open(b"corpus/" + name, "w") as file:
            file.write(content)
    return len(names)


def make_many(count):
    os.mkdir("corpus")
    document("corpus/0.xml")
    for number in range(1, count):
        os.link("corpus/0.xml", f"corpus/{number}.xml")


@row("main")
def tei2crf_many():
    """tei2crf: 10,000 files in one folder"""
    make_many(10000)
    same(ended(tei2crf("corpus")), (0, LINES * 10000, ""))


@row("main")
def tei2crf_deep():
    """tei2crf: folders 500 deep"""
    make_deep(500)
    same(ended(tei2crf("corpus", limits=[(resource.RLIMIT_NOFILE, 8)])), (0, LINES, ""))


@row("main")
def tei2crf_circles():
    """tei2crf: links in circles"""
    make_circles()
    errors = [f"tei2crf: corpus/{name}.xml: Too many levels of symbolic links\n" for name in ("b", "c", "self")]
    same(ended(tei2crf("corpus")), (1, LINES, "".join(errors)))


@row("main")
def tei2crf_names():
    """tei2crf: names of any bytes"""
    count = make_names(SENTENCE)
    same(ended(tei2crf("corpus")), (0, LINES * count, ""))
    shutil.rmtree("corpus")
    make_names("no document")
    status, out, err = ended(tei2crf("corpus"))
    same((status, out, err.count("\n")), (1, "", count + 1))  # and that nothing could be read
    same([character for character in err if character != "\n" and not character.isprintable()], [])
    document("a.xml")
    for name in [b"o" + bytes([byte]) for byte in b"\x01\n \"'*-\\\x7f\x80\xff"] + [b"o" * 255]:
        same(ended(tei2crf("a.xml", "-o", name)), (0, "", ""))
        same(read(name), LINES)


# TaggerFormatConverter


@row("disk")
def converter_full_disk():
    """TaggerFormatConverter: a full disk"""
    document("big.xml", 200000)
    status, out, err = on_small_disk('"$1" -i ../big.xml -o out; echo $? $(wc -c <out)', CONVERTER)
    same((status, tokens(out), err), (0, ", $,\n" * 200000 + f"0 {100 * 1024}\n", ""))


@row("main")
def converter_dev_full():
    """TaggerFormatConverter: `/dev/full`"""
    document("a.xml", 2)
    status, out, err = ended(converter("-i", "a.xml", "-o", "/dev/full"))
    same((status, tokens(out), err), (0, ", $,\n" * 2, ""))
    with open("/dev/full", "w") as full:
        same(ended(converter("-i", "a.xml", "-o", "out", stdout=full)), (0, "", ""))
    same(read("out"), "\n" * 2)


@row("main")
def converter_file_size():
    """TaggerFormatConverter: a limit of the file size (`ulimit -f`)"""
    document("big.xml", 30000)
    status, out, err = ended(converter("-i", "big.xml", "-o", "out", limits=[(resource.RLIMIT_FSIZE, 20000)]))
    same((status, tokens(out), read("out")), (-signal.SIGXFSZ, ", $,\n" * 20001, "\n" * 20000))


@row("main")
def converter_closed_streams():
    """TaggerFormatConverter: a closed standard stream (`>&-`, `<&-`, `2>&-`)"""
    write("a.xml", "<s><w lemma='xnox'>a</w><c>,</c></s>")
    os.chmod(".", 0o777)
    for closed, lines in (([0], ", $,\n"), ([1], ""), ([2], ", $,\n"), ([0, 1, 2], "")):
        # as nobody it has no log, whose descriptor would be in the way
        status, out, err = ended(converter("-i", "a.xml", "-o", "out", closed=closed, user=NOBODY))
        same((status, tokens(out), err), (0, lines, "" if 2 in closed else "Failed to parse no\n"))
        same(read("out"), "\n")


@row("main")
def converter_broken_pipe():
    """TaggerFormatConverter: a reader that goes away"""
    document("big.xml", 30000)
    child = converter("-i", "big.xml", "-o", "out")
    while child.stdout.readline() != b", $,\n":
        pass
    child.stdout.close()
    child.stdout = None
    same(ended(child), (-signal.SIGPIPE, "", ""))
    same((set(read("out")), os.path.getsize("out") < 30000), ({"\n"}, True))


@row("main")
def converter_permissions():
    """TaggerFormatConverter: no permission"""
    os.makedirs("corpus/folder")
    document("corpus/a.xml")
    document("corpus/closed.xml")
    os.chmod("corpus/closed.xml", 0)
    os.chmod("corpus/folder", 0)
    status, out, err = ended(converter("-i", "corpus", "-o", "/no/such/out", user=NOBODY))
    same((status, tokens(out), "Error(13) opening corpus/folder\n" in out), (0, ", $,\n", True))


@row("limits")
def converter_memory():
    """TaggerFormatConverter: a limit of memory (`ulimit -v`)"""
    document("a.xml")
    write("long.xml", "<s>" + "<c>,</c>" * 40000 + "</s>")
    least = least_memory(lambda limits: converter("-i", "a.xml", "-o", "out", limits=limits)) // 1024
    enough = least + (256 << 10)
    while enough - least > 64:  # kilobytes
        middle = (least + enough) // 2
        child = converter("-i", "long.xml", "-o", "out", limits=[(resource.RLIMIT_AS, middle * 1024)])
        status, out, err = ended(child)
        same((status, err) in ((0, ""), (1, "TaggerFormatConverter: out of memory\n")), True)
        is_whole = status == 0 and out.count(", $,\n") == 40000
        same((tokens(out) == ", $,\n" * 40000, read("out")), (True, "\n") if is_whole else (False, ""))
        least, enough = (least, middle) if is_whole else (middle, enough)
    # The document just fits, but not the sentence's lines.
    child = converter("-i", "long.xml", "-o", "out", limits=[(resource.RLIMIT_AS, least * 1024)])
    same(ended(child)[0], 1)


@row("main")
def converter_descriptors():
    """TaggerFormatConverter: few open files (`ulimit -n`)"""
    make_deep(20)
    limits = [(resource.RLIMIT_NOFILE, 16)]
    status, out, err = ended(converter("-i", "corpus", "-o", "out", limits=limits))
    same((status, bool(re.search("^Error.24. opening corpus(/d)+\n$", out, re.M)), err, read("out")), (0, True, "", ""))


@row("main")
def converter_signals():
    """TaggerFormatConverter: SIGHUP, SIGINT, SIGQUIT, SIGTERM or SIGKILL"""
    document("big.xml", 30000)
    for number in SIGNALS + (signal.SIGKILL,):
        child = converter("-i", "big.xml", "-o", "out")
        while child.stdout.readline() != b", $,\n":
            pass
        child.send_signal(number)
        status, out, err = ended(child)
        same((status, err), (-number, ""))
        same(set(read("out")) <= {"\n"} and os.path.getsize("out") <= 1 + out.count(", $,\n"), True)


@row("main")
def converter_changes():
    """TaggerFormatConverter: a document that is cut, grows, is replaced or removed while it is read"""
    head = "<t>\n" + SENTENCE * 100
    text = head + "<p></p>\n" * 400000 + SENTENCE + "</t>"  # takes a while, but gives few lines

    def while_read(change):
        """How many sentences come out: 101 when the change came too late."""
        write("a.xml", text)
        document("new")
        child = converter("-i", "a.xml", "-o", "out")
        while not child.stdout.readline().startswith(b"input filename 2"):
            pass
        child.send_signal(signal.SIGSTOP)
        change()
        child.send_signal(signal.SIGCONT)
        status, out, err = ended(child)
        same((status, tokens(out)), (0, ", $,\n" * os.path.getsize("out")))
        return os.path.getsize("out")

    same(while_read(lambda: os.rename("new", "a.xml")) in (1, 101), True)
    same(while_read(lambda: os.remove("a.xml")) in (0, 101), True)
    same(any(while_read(lambda: os.truncate("a.xml", len(head))) == 100 for _ in range(5)), True)


@row("main")
def converter_many():
    """TaggerFormatConverter: 10,000 files in one folder"""
    make_many(10000)
    status, out, err = ended(converter("-i", "corpus", "-o", "out"))
    same((status, tokens(out), err, read("out")), (0, ", $,\n" * 10000, "", "\n" * 10000))


@row("main")
def converter_deep():
    """TaggerFormatConverter: folders 500 deep"""
    make_deep(500)
    status, out, err = ended(converter("-i", "corpus", "-o", "out"))
    same((status, tokens(out), err, read("out")), (0, ", $,\n", "", "\n"))


@row("main")
def converter_circles():
    """TaggerFormatConverter: links in circles"""
    make_circles()
    status, out, err = ended(converter("-i", "corpus", "-o", "out"))
    same((status, tokens(out), err, read("out")), (0, ", $,\n", "", "\n"))


@row("main")
def converter_names():
    """TaggerFormatConverter: names of any bytes"""
    count = make_names(SENTENCE)
    status, out, err = ended(converter("-i", "corpus", "-o", "out"))
    same((status, out.count("\n, $,\n"), err, read("out")), (0, count, "", "\n" * count))


def table_faults():
    """The first cells of the tables, behind the name of the heading above them."""
    program, faults = "", []
    for line in read(TABLE).splitlines():
        if line.startswith("## "):
            program = line[3:]
        elif line.startswith("| ") and not line.startswith("| Fault "):
            faults.append(f"{program}: {line.split(' | ')[0][2:]}")
    return faults


def run_row(function):
    """In a folder of its own; the row's status."""
    home = os.getcwd()
    with tempfile.TemporaryDirectory(prefix="zelvor-faults-") as folder:
        os.chmod(folder, 0o755)
        os.chdir(folder)
        write("lexicon", LEXICON)
        begin = time.monotonic()
        try:
            function()
            status, told = 0, f"{time.monotonic() - begin:6.2f} s  "
        except Skipped as reason:
            status, told = 77, f"skipped, {reason}: "
        except Exception:  # the other rows are tried all the same
            status, told = 1, traceback.format_exc() + "FAILED: "
        finally:
            os.chdir(home)
            subprocess.run(["chmod", "-R", "u+rwx", folder], check=True)
    print(told + function.__doc__, flush=True)
    return status


def main(group):
    same(sorted(function.__doc__ for _, function in ROWS), sorted(table_faults()))
    statuses = [run_row(function) for its_group, function in ROWS if its_group == group]
    return 1 if 1 in statuses else max(statuses)


if __name__ == "__main__":
    TEI2CRF, CONVERTER, TABLE = map(os.path.abspath, sys.argv[1:4])
    os.environ["ASAN_OPTIONS"] = "detect_leaks=0"  # it would need descriptors of its own
    with tempfile.TemporaryDirectory(prefix="zelvor-programs-") as programs:
        COUNTS = programs + "/counts"
        os.mkdir(COUNTS)
        os.chmod(COUNTS, 0o777)
        if os.geteuid() == 0:  # the build may be where no other user can run it
            os.chmod(programs, 0o755)
            TEI2CRF, CONVERTER = (shutil.copy(program, programs) for program in (TEI2CRF, CONVERTER))
        sys.exit(main(sys.argv[4]))
