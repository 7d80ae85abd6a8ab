#!/usr/bin/env python3
"""Tells what a trainer would stumble over, or misread without a word, in training data: FILE:LINE: what.

Exit status: 0 nothing, 1 something, 2 wrong usage.
"""
import argparse
import re
import sys

MAX_LINE = 8190  # bytes without the line feed; CRF++ reads into 8192 and drops all that follows a line that fills them


class Checker:
    def __init__(self, options):
        self.options = options
        self.columns = options.columns
        self.labels = set()
        self.sentences = self.tokens = self.faults = 0

    def fault(self, line, what):
        place = self.options.file if line is None else f"{self.options.file}:{line}"
        print(f"{place}: {what}", file=sys.stderr)
        self.faults += 1

    def check(self, data):
        lines = data.split(b"\n")
        if data and lines[-2:] != [b"", b""]:
            self.fault(len(lines) - (lines[-1] == b""), "the last line is not an empty one")
        in_sentence = False
        for number, line in enumerate(lines, 1):
            if line:
                what = self.check_line(line)
                if what:
                    self.fault(number, what)
                self.tokens += 1
                self.sentences += not in_sentence
            in_sentence = bool(line)
        if len(self.labels) < 2:
            self.fault(None, f"{len(self.labels)} labels, a tagger needs at least two")

    def check_line(self, line):
        """What is wrong with it, if anything."""
        if line[:1] in (b" ", b"\t"):
            return "begins with a blank: the sentence would end here"
        if b"\r" in line:
            return "carriage return"
        if re.search(rb"[\x00-\x08\x0a-\x1f\x7f]", line):
            return "control character"
        try:
            text = line.decode()
        except UnicodeDecodeError:
            return "not UTF-8"
        return self.check_attributes(text) if self.options.crfsuite else self.check_columns(text, len(line))

    def check_columns(self, text, length):
        if length > MAX_LINE:
            return f"{length} bytes, at most {MAX_LINE} are read"
        columns = text.split(" " if self.options.separator == "blank" else "\t")
        if "" in columns:
            return "empty column"
        if any(re.search("[ \t]", column) for column in columns):
            return "the other separator in a column"
        if self.columns is None:
            self.columns = len(columns)
        if len(columns) < 2 or len(columns) != self.columns:
            return f"{len(columns)} columns instead of {max(self.columns, 2)}"
        self.labels.add(columns[-1])
        return None

    def check_attributes(self, text):
        label, *attributes = text.split("\t")
        if not label or "" in attributes:
            return "empty field"
        if not attributes:
            return "no attribute"
        for field in [label, *attributes]:
            plain = re.sub(r"\\[\\:]", "", field)
            if "\\" in plain:
                return "backslash that escapes nothing: " + field
            name, colon, weight = plain.partition(":")
            if colon and (field is label or not re.fullmatch(r"[-+]?\d+(\.\d*)?([eE][-+]?\d+)?", weight)):
                return "colon that is not escaped: " + field
        self.labels.add(label)
        return None

    def check_template(self, name):
        with open(name, encoding="utf-8") as template:
            for number, line in enumerate(template, 1):
                if line.strip() and line[0] not in "UB#":
                    self.fault(None, f"{name}:{number}: begins neither with U or B nor with #")
                for column in re.findall(r"%x\[-?\d+,(\d+)\]", line):
                    if self.columns is not None and int(column) >= self.columns - 1:
                        self.fault(None, f"{name}:{number}: no feature in column {column}, the last one is the label")


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("file", help="- for standard input")
    parser.add_argument("--separator", choices=["blank", "tab"], default="blank")
    parser.add_argument("--columns", type=int, help="default: as many as the first line has")
    parser.add_argument("--crfsuite", action="store_true", help="lines of label and attributes, separated by tabs")
    parser.add_argument("--template", help="a template of CRF++ or Wapiti whose columns must be there")
    options = parser.parse_args()
    checker = Checker(options)
    try:
        with open(0 if options.file == "-" else options.file, "rb") as file:
            checker.check(file.read())
        if options.template:
            checker.check_template(options.template)
    except OSError as error:
        checker.fault(None, error.strerror)
    print(f"{checker.sentences} sentences, {checker.tokens} tokens, {len(checker.labels)} labels")
    return 1 if checker.faults else 0


sys.exit(main())
