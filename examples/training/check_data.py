#!/usr/bin/env python3
"""Tells what a trainer would stumble over, or misread without a word, in training data: FILE:LINE: what. Of test data
also the tags that the training data lack.

Exit status: 0 nothing, 1 something, 2 wrong usage.
"""
import argparse
import re
import sys

MAX_LINE = 8190  # bytes without the line feed; CRF++ reads into 8192 and drops all that follows a line that fills them


class Checker:
    def __init__(self, options, name, columns):
        self.options = options
        self.name = name
        self.columns = columns
        self.labels = {}  # each with its first line
        self.line = self.sentences = self.tokens = self.faults = 0

    def fault(self, line, what):
        place = self.name if line is None else f"{self.name}:{line}"
        print(f"{place}: {what}", file=sys.stderr)
        self.faults += 1

    def check(self):
        with open(0 if self.name == "-" else self.name, "rb") as file:
            lines = file.read().split(b"\n")
        if lines[-1]:
            self.fault(len(lines), "no line feed at the end: crfsuite learn would never stop")
        elif len(lines) > 1 and lines[-2]:
            self.fault(len(lines) - 1, "the last line is not an empty one")
        in_sentence = False
        for number, line in enumerate(lines, 1):
            if line:
                self.line = number
                what = self.check_line(line)
                if what:
                    self.fault(number, what)
                self.tokens += 1
                self.sentences += not in_sentence
            in_sentence = bool(line)

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
        self.labels.setdefault(columns[-1], self.line)
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
        self.labels.setdefault(label, self.line)
        return None

    def check_template(self, name):
        with open(name, encoding="utf-8") as template:
            for number, line in enumerate(template, 1):
                if line.strip() and line[0] not in "UB#":
                    self.fault(None, f"{name}:{number}: begins neither with U or B nor with #")
                for column in re.findall(r"%x\[-?\d+,(\d+)\]", line):
                    if self.columns is not None and int(column) >= self.columns - 1:
                        self.fault(None, f"{name}:{number}: no feature in column {column}, the last one is the label")

    def check_labels(self, known):
        """That those of test data are among the known ones of the training data."""
        for label, line in self.labels.items():
            if label not in known.labels:
                self.fault(line, f"a tag that {known.name} lacks: {label}")


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("file", metavar="TRAIN", help="- for standard input")
    parser.add_argument("test", metavar="TEST", nargs="?", help="test data, whose tags TRAIN must have, too")
    parser.add_argument("--separator", choices=["blank", "tab"], default="blank")
    parser.add_argument("--columns", type=int, help="default: as many as the first line has")
    parser.add_argument("--crfsuite", action="store_true", help="lines of label and attributes, separated by tabs")
    parser.add_argument("--template", help="a template of CRF++ or Wapiti whose columns must be there")
    options = parser.parse_args()
    train = Checker(options, options.file, options.columns)
    checkers = [train]
    try:
        train.check()
        if len(train.labels) < 2:
            train.fault(None, f"{len(train.labels)} labels, a tagger needs at least two")
        if options.template:
            train.check_template(options.template)
        if options.test:
            checkers.append(Checker(options, options.test, train.columns))
            checkers[1].check()
            checkers[1].check_labels(train)
    except OSError as error:
        checkers[-1].fault(None, f"{error.filename or ''}: {error.strerror}")
    for checker in checkers:
        print(f"{checker.sentences} sentences, {checker.tokens} tokens, {len(checker.labels)} labels")
    return 1 if any(checker.faults for checker in checkers) else 0


sys.exit(main())
