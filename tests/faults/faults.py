#!/usr/bin/env python3
"""usage: faults.py TEI2CRF CONVERTER TABLE GROUP

Runs the programs under the faults of docs/robustness.md (TABLE): the first cell of each row there names one of ROWS
here. Status 77: the group cannot be tried here.
"""

import itertools
import json
import os
import re
import resource
import shutil
import signal
import subprocess
import sys
import tempfile
import time
from signal import SIG_DFL, SIGHUP, SIGINT, SIGKILL, SIGPIPE, SIGQUIT, SIGTERM, SIGXFSZ

TIMEOUT = 60  # seconds; whatever takes longer hangs
NOBODY = 65534
MEGABYTE = 1 << 20
MANY, HALF = 30000, 200000  # sentences of big.xml, and of half of what changes
SENTENCE, LINES, TOKEN = "<s><c>,</c></s>\n", ", $,\n\n", ", $,\n"
LEXICON = "0#s#sp#3#l#src#V#17#w#9#10#11#12#13#14#15#16#Verb#18#19#20#21\n"
WORD = "<w lemma=\"x{'ls':[{'name':'l','wfs':[{'id':17}]}]}x\">"
SIGNALS = (SIGHUP, SIGINT, SIGQUIT, SIGTERM)
SMALL_DISK = """mount -t tmpfs -o size=16k,mode=777 none small && printf old >small/out && "$@"
echo $? $(wc -c <small/out) $(ls -A small)"""


def run(argv, then=None, limits=None, closed=(), user=None, disk=False, to=None, **how):
    """Runs a program with limits, without some standard streams, as another user where that is possible, beside a small
    disk, its output to a file, or with then(child) done in between: status (negative: a signal), output, errors."""

    def prepare():
        for number in SIGNALS:
            signal.signal(number, SIG_DFL)
        if to:
            os.dup2(os.open(to, os.O_WRONLY | os.O_CREAT), 1)
        for what, value in {"CORE": 0, **(limits or {})}.items():
            resource.setrlimit(getattr(resource, "RLIMIT_" + what), (value, value))
        for stream in closed:
            os.close(stream)

    if user is not None and os.geteuid() == 0:
        # A build for coverage cannot write its counts as another user, and would say so.
        how.update(user=user, group=user, extra_groups=[], env={**os.environ, "GCOV_PREFIX": os.getcwd()})
    how = {"stdin": subprocess.DEVNULL, "stdout": subprocess.PIPE, "stderr": subprocess.PIPE, **how}
    argv = ["unshare", "--mount", "sh", "-c", SMALL_DISK, "sh", *argv] if disk else argv
    child = subprocess.Popen(argv, bufsize=0, preexec_fn=prepare, **how)
    try:
        head = then and then(child)
        out, err = child.communicate(timeout=TIMEOUT)
    finally:
        child.kill()
    out = re.sub("(?m)^(log path|input filename).*\n", "", ((head or b"") + (out or b"")).decode(errors="replace"))
    return child.returncode, out, (err or b"").decode(errors="replace").replace(os.getcwd(), "CWD")


def same(got, wanted, what):
    """Wanted is a value or a condition."""
    if not (wanted(got) if callable(wanted) else got == wanted):
        raise AssertionError(f"{what}\n  got    {str(got)[-600:]!r}\n  wanted {str(wanted)[-600:]!r}")


def trial(argv, status, out, err, left, hidden=0, **fault):
    """What runs a program under a fault and compares its end, its streams and its files; `out` was there before."""

    def attempt():
        write("out", "old")
        result = run(argv(), **fault)
        same(result[0], status, f"status; errors: {result[2][-600:]}")
        same(result[1], out, "standard output")
        same(result[2], err, "standard error")
        for name, content in left.items():
            same(read(name), content, name)
        same(sum(name.startswith(".") for name in os.listdir()), hidden, "hidden files")

    return attempt


def tei2crf(arguments, status=0, out="", err="", left=None, **fault):
    words = arguments.split() if isinstance(arguments, str) else arguments
    return trial(lambda: [TEI2CRF, "-qq", "-l", "lexicon", *words], status, out, err, left or {"out": "old"}, **fault)


def converter(arguments, status=0, out="", err="", left=None, **fault):
    words = [*arguments.split(), "out"]
    return trial(lambda: [CONVERTER, "-i", words[0], "-o", words[1]], status, out, err, left or {}, **fault)


def write(name, content, mode="w"):
    with open(name, mode) as file:
        file.write(content)


def read(name):
    with open(name, encoding="utf-8") as file:
        return file.read()


def document(name, sentences=1):
    write(name, "<t>\n" + SENTENCE * sentences + "</t>")


# The files that a program finds.


def shell(commands):
    return lambda: subprocess.run(["sh", "-c", commands], check=True)


closed_files = shell("""mkdir -p corpus/folder; cp a.xml corpus; cp a.xml corpus/closed.xml
                        chmod 0 corpus/closed.xml corpus/folder""")
circles = shell("""mkdir -p corpus/folder; cp a.xml corpus/folder; cd corpus; ln -s .. folder/up; ln -s c.xml b.xml
                   ln -s b.xml c.xml; ln -s self.xml self.xml""")
deep = shell(f"mkdir -p corpus{'/d' * 500}; cp a.xml corpus{'/d' * 500}")
many_files = shell("mkdir corpus; cd corpus; for i in $(seq 10000); do echo '<s><c>,</c></s>' >$i.xml; done")
NAMES = [b"x" + bytes([byte]) + b".xml" for byte in range(1, 256) if byte != ord("/")]
ODD_NAMES = [b"o" + bytes([byte]) for byte in b"\x01\n \"'*-\\\x7f\x80\xff"] + [b"o" * 255]


def any_names(content):
    return lambda: (os.makedirs("corpus", exist_ok=True), [write(b"corpus/" + name, content) for name in NAMES])


# What is done to it while it runs.


def wait_for(child, line=TOKEN):
    """Waits for the line on standard output; what was read."""
    lines = iter(child.stdout.readline, b"")
    return b"".join([*itertools.takewhile(lambda read: not read.startswith(line.encode()), lines), line.encode()])


def hang_up(child):
    wait_for(child)
    child.stdout.close()
    child.stdout = None


def send(number, when=wait_for):
    return lambda child: (when(child), child.send_signal(number))[0]


def part_is_written(child):
    """Gives standard input without an end, and waits until some output is in the hidden file."""
    child.stdin.write(("<t>" + SENTENCE * MANY).encode())
    end = time.monotonic() + TIMEOUT
    while not any(name.startswith(".out.") and os.path.getsize(name) for name in os.listdir()):
        same((time.monotonic() < end, child.poll()), (True, None), "a hidden file")
        time.sleep(0.002)


def at_any_time(number, hidden):
    """Signals at moments all over a run: the old file stands, or the new one is whole."""
    return [tei2crf("big.xml -o out", lambda status: status in (0, -number), hidden=hidden,
                    left={"out": lambda text: text in ("old", LINES * MANY)},
                    then=send(number, lambda child, i=i: time.sleep(0.001 * 1.4**i))) for i in range(15)]


def while_read(change, sentences, status=0, err="", prepare=lambda: None):
    """A document changes where one line of it has been read; much more is not, since nobody reads the rest."""
    return [lambda: [document("later.xml", 0), document("new.xml", 0), document("a.xml", 2 * HALF), prepare()],
            tei2crf("-j1 a.xml later.xml", status, LINES * sentences, lambda text: text[:16] == err,
                    then=lambda child: (wait_for(child), change())[0])]


def while_converted(change, *sentences):
    """The same, of a document that takes a while, but gives few lines; 101 when the change came too late."""
    text = "<t>\n" + SENTENCE * 100 + "<p></p>\n" * 3000000 + SENTENCE + "</t>"
    return [lambda: [document("new.xml"), write("a.xml", text)],
            converter("a.xml", 0, lambda out: out == TOKEN * len(read("out")), lambda err: True,
                      {"out": lambda text: len(text) in sentences},
                      then=lambda child: (wait_for(child, "input filename 2"), change())[0])]


# Limits of the address space, in bytes.


def least_memory(*argv):
    """With which a run just works."""
    sizes = range(20 * MEGABYTE, 2000 * MEGABYTE, 4 * MEGABYTE)
    return next(size for size in sizes if not run(argv, limits={"AS": size})[0])


def tei2crf_memory():
    command = [TEI2CRF, "-qq", "-l", "lexicon", "-o", "out", "--report=report"]
    least = least_memory(*command, "a.xml")
    with open("huge", "w") as huge:
        huge.truncate(1 << 30)  # one line
    limits = {"AS": least + 64 * MEGABYTE}
    tei2crf("a.xml -l huge -o out", 1, "", "tei2crf: huge: Cannot allocate memory\n", limits=limits)()
    form = "a" * 8000
    narrow, wide = range(0, 16 * MEGABYTE, MEGABYTE // 2), range(4 * MEGABYTE, 100 * MEGABYTE, 12 * MEGABYTE)
    for text, count, sizes in ((f"{WORD}{form}</w>" * 3000, 3000, wide), (WORD + "y" * 11000000 + "</w>", 0, narrow),
                               ("<!--" + "y" * 9000000 + "-->", 0, narrow)):
        write("large.xml", f"<s><c>.</c>{text}</s>")
        statuses = set()
        for size in sizes:
            write("out", "old")
            status, _, err = run([*command, "large.xml"], limits={"AS": least + size})
            end = (status, err, read("out"), json.loads(read("report"))["tokens"]["written"])
            same(end, lambda end: end in ((0, "", ". $.\n" + f"{form} Verb\n" * count + "\n", count + 1),
                                          (1, "tei2crf: out of memory\n", "old", 0)), "the new file or the old one")
            statuses.add(status)
        same(statuses, lambda found: found == {0, 1} or not count, "enough and not enough")


def converter_memory():
    write("long.xml", "<s>" + "<c>,</c>" * 40000 + "</s>")
    command = [CONVERTER, "-o", "out", "-i"]
    least = least_memory(*command, "a.xml")
    enough = least + 256 * MEGABYTE
    while enough - least > 1 << 16:
        middle = (least + enough) // 2
        status, out, err = run([*command, "long.xml"], limits={"AS": middle})
        same((status, err), lambda end: end in ((0, ""), (1, "TaggerFormatConverter: out of memory\n")), "end")
        is_whole = status == 0 and out == TOKEN * 40000
        same((TOKEN * 40000 in out, read("out")), (True, "\n") if is_whole else (False, ""), "in step")
        least, enough = (least, middle) if is_whole else (middle, enough)
    same(run([*command, "long.xml"], limits={"AS": least})[0], 1, "the document just fits, but not its lines")


NO_SPACE, DENIED, CIRCLE = "No space left on device\n", "Permission denied\n", "Too many levels of symbolic links\n"
ODD = "Failed to parse no\n"
# A row: its group, its name, and what is done, one after the other, in a folder with a small and a big document.
ROWS = [
    ("disk", "tei2crf: a full disk",
     tei2crf("big.xml -o small/out", 0, "1 3 out\n", "tei2crf: CWD/small/out: " + NO_SPACE, disk=True)),
    ("main", "tei2crf: `/dev/full`",
     tei2crf("a.xml -o /dev/full", 1, "", "tei2crf: /dev/full: " + NO_SPACE),
     tei2crf("a.xml --report=/dev/full", 1, LINES, "tei2crf: /dev/full: " + NO_SPACE),
     tei2crf("a.xml", 1, "", "tei2crf: standard output: " + NO_SPACE, to="/dev/full")),
    ("main", "tei2crf: a limit of the file size (`ulimit -f`)",
     tei2crf("big.xml -o out", 1, "", "tei2crf: CWD/out: File too large\n", limits={"FSIZE": 100000}),
     tei2crf("big.xml", 1, "", "tei2crf: standard output: File too large\n", {"lines": (LINES * MANY)[:100000]},
             limits={"FSIZE": 100000}, to="lines")),
    ("main", "tei2crf: a closed standard stream (`>&-`, `<&-`, `2>&-`)",
     tei2crf("a.xml", 1, "", "tei2crf: standard output: Bad file descriptor\n", closed=[1]),
     tei2crf("-", 1, "", lambda err: "tei2crf: standard input" in err, closed=[0]),
     tei2crf("a.xml missing -v -o out", 1, left={"out": LINES}, closed=[0, 1, 2])),
    ("main", "tei2crf: a reader that goes away",
     tei2crf("big.xml", 1, "", "tei2crf: standard output: Broken pipe\n", then=hang_up)),
    ("main", "tei2crf: no permission", closed_files,
     tei2crf("a.xml corpus", 1, LINES * 2, f"tei2crf: corpus/folder: {DENIED}tei2crf: corpus/closed.xml: {DENIED}",
             user=NOBODY),
     tei2crf("a.xml -l corpus/closed.xml", 1, "", "tei2crf: corpus/closed.xml: " + DENIED, user=NOBODY),
     lambda: os.chmod("corpus", 0o555),
     tei2crf("a.xml -o corpus/a.xml", 1, "", "tei2crf: CWD/corpus/a.xml: " + DENIED,
             {"corpus/a.xml": "<t>\n" + SENTENCE + "</t>"}, user=NOBODY)),
    ("limits", "tei2crf: a limit of memory (`ulimit -v`)", tei2crf_memory),
    ("limits", "tei2crf: few open files (`ulimit -n`)",
     tei2crf("a.xml -o out", left={"out": LINES}, limits={"NOFILE": 5}),
     tei2crf("a.xml", 1, "", lambda err: "tei2crf: a.xml: Too many open files" in err, limits={"NOFILE": 4})),
    ("main", "tei2crf: SIGHUP, SIGINT, SIGQUIT, SIGTERM, SIGUSR1, SIGUSR2 or SIGXCPU",
     *(tei2crf("- -o out", -number, then=send(number, part_is_written), stdin=subprocess.PIPE)
       for number in (*SIGNALS, signal.SIGUSR1, signal.SIGUSR2, signal.SIGXCPU)), *at_any_time(SIGTERM, 0)),
    ("main", "tei2crf: SIGKILL",
     tei2crf("- -o out", -SIGKILL, hidden=1, then=send(SIGKILL, part_is_written), stdin=subprocess.PIPE),
     *at_any_time(SIGKILL, lambda count: True)),
    ("main", "tei2crf: a document that is cut, grows, is replaced or removed while it is read",
     *while_read(lambda: os.truncate("a.xml", 4 + len(SENTENCE) * HALF), HALF, 1, "tei2crf: a.xml:2"),
     *while_read(lambda: os.rename("new.xml", "a.xml"), 2 * HALF), *while_read(lambda: os.remove("a.xml"), 2 * HALF),
     *while_read(lambda: os.remove("later.xml"), 2 * HALF, 1, "tei2crf: later.x"),
     *while_read(lambda: write("a.xml", SENTENCE * HALF + "</t>", "a"), 2 * HALF,
                 prepare=lambda: write("a.xml", "<t>\n" + SENTENCE * HALF))),
    ("main", "tei2crf: 10,000 files in one folder", many_files, tei2crf("corpus", 0, LINES * 10000)),
    ("main", "tei2crf: folders 500 deep", deep, tei2crf("corpus", 0, LINES, limits={"NOFILE": 8})),
    ("main", "tei2crf: links in circles", circles,
     tei2crf("corpus", 1, LINES, "".join(f"tei2crf: corpus/{name}.xml: {CIRCLE}" for name in ("b", "c", "self")))),
    ("main", "tei2crf: names of any bytes", any_names(SENTENCE), tei2crf("corpus", 0, LINES * len(NAMES)),
     any_names("no document"),
     tei2crf("corpus", 1, "", lambda err: "".join(err.split("\n")).isprintable() and err.count("\n") == len(NAMES) + 1),
     *(tei2crf(["a.xml", "-o", name], left={name: LINES}) for name in ODD_NAMES)),
    ("disk", "TaggerFormatConverter: a full disk",
     converter("big.xml small/out", 0, TOKEN * MANY + "0 16384 out\n", disk=True)),
    ("main", "TaggerFormatConverter: `/dev/full`",
     converter("a.xml /dev/full", 0, TOKEN), converter("a.xml", left={"out": "\n"}, to="/dev/full")),
    ("main", "TaggerFormatConverter: a limit of the file size (`ulimit -f`)",
     converter("big.xml", -SIGXFSZ, TOKEN * 20001, left={"out": "\n" * 20000}, limits={"FSIZE": 20000})),
    # As nobody it has no log, whose descriptor would be in the way.
    ("main", "TaggerFormatConverter: a closed standard stream (`>&-`, `<&-`, `2>&-`)",
     shell("printf \"<s><w lemma='xnox'>a</w><c>,</c></s>\" >odd.xml; : >out; chmod 666 out"),
     *(converter("odd.xml", 0, out, err, {"out": "\n"}, closed=closed, user=NOBODY) for closed, out, err in (
         ([0], TOKEN, ODD), ([1], "", ODD), ([2], TOKEN, ""), ([0, 1, 2], "", "")))),
    ("main", "TaggerFormatConverter: a reader that goes away",
     converter("big.xml", -SIGPIPE, left={"out": lambda text: set(text) == {"\n"} and len(text) < MANY}, then=hang_up)),
    ("main", "TaggerFormatConverter: no permission", closed_files,
     converter("corpus /no/such/out", 0,
               lambda out: sorted(out.splitlines()) == [", $,", "Error(13) opening corpus/folder"], lambda err: True,
               user=NOBODY)),
    ("limits", "TaggerFormatConverter: a limit of memory (`ulimit -v`)", converter_memory),
    ("main", "TaggerFormatConverter: few open files (`ulimit -n`)", deep,
     converter("corpus", 0, lambda out: re.fullmatch("Error.24. opening corpus(/d)+\n", out), left={"out": ""},
               limits={"NOFILE": 16})),
    ("main", "TaggerFormatConverter: SIGHUP, SIGINT, SIGQUIT, SIGTERM or SIGKILL",
     *(converter("big.xml", -number, lambda out: set(read("out")) <= {"\n"} and len(read("out")) <= out.count(TOKEN),
                 then=send(number)) for number in (*SIGNALS, SIGKILL))),
    ("main", "TaggerFormatConverter: a document that is cut, grows, is replaced or removed while it is read",
     *while_converted(lambda: os.rename("new.xml", "a.xml"), 1, 101),
     *while_converted(lambda: os.remove("a.xml"), 0, 101),
     *while_converted(lambda: os.truncate("a.xml", 4 + len(SENTENCE) * 100), 100)),
    *(("main", "TaggerFormatConverter: " + name, given,
       converter("corpus", 0, lambda out, count=count: out.count(TOKEN) == count, left={"out": "\n" * count}))
      for name, given, count in (
          ("10,000 files in one folder", many_files, 10000), ("folders 500 deep", deep, 1),
          ("links in circles", circles, 1), ("names of any bytes", any_names(SENTENCE), len(NAMES))))
]


def try_row(name, *steps):
    """In a folder of its own; whether all is so."""
    home, begin = os.getcwd(), time.monotonic()
    with tempfile.TemporaryDirectory(prefix="zelvor-faults-") as folder:
        os.chmod(folder, 0o777)
        os.chdir(folder)
        os.mkdir("small")
        write("lexicon", LEXICON)
        document("a.xml")
        document("big.xml", MANY)
        try:
            for step in steps:
                step()
            failure = ""
        except Exception as error:  # the other rows are tried all the same
            failure = f"FAILED: {error!r}\n".replace("\\n", "\n")
        os.chdir(home)
        subprocess.run(["chmod", "-R", "u+rwx", folder], check=True)
    print(f"{failure}{time.monotonic() - begin:6.2f} s  {name}", flush=True)
    return not failure


def main(group):
    names = [f"{part.split()[0]}: {cell}" for part in read(TABLE).split("\n## ")[1:]
             for cell in re.findall(r"^\| (?!Fault )(.*?) \| ", part, re.M)]
    same(sorted(name for _, name, *_ in ROWS), sorted(names), "rows here and there")
    if group == "disk" and run(["unshare", "--mount", "sh", "-c", "mount -t tmpfs none /mnt"])[0] != 0:
        return 77  # it needs root and mount
    with open(TEI2CRF, "rb") as program:
        if group == "limits" and b"__asan_init" in program.read():
            return 77  # the sanitizers need memory and descriptors of their own
    return 1 - all([try_row(*row) for its_group, *row in ROWS if its_group == group])


if __name__ == "__main__":
    TEI2CRF, CONVERTER, TABLE = map(os.path.abspath, sys.argv[1:4])
    os.environ["ASAN_OPTIONS"] = "detect_leaks=0"  # it would need descriptors of its own
    with tempfile.TemporaryDirectory(prefix="zelvor-programs-") as programs:
        if os.geteuid() == 0:  # the build may be where no other user can run it
            os.chmod(programs, 0o755)
            TEI2CRF, CONVERTER = (shutil.copy(program, programs) for program in (TEI2CRF, CONVERTER))
        sys.exit(main(sys.argv[4]))
