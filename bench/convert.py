#!/usr/bin/env python3
"""The yardstick: the same conversion as a short script does it, with Python's own parsers, which are written in C.

usage: convert.py LEXICON CORPUS

Writes the token lines and an empty line after each sentence to standard output.
"""
import json
import os
import sys
from xml.parsers import expat

MARKS = {",": "$,", ".": "$.", **dict.fromkeys("()[]\"'", "$(")}


def read_lexicon(path):
    """Word-form id to tag."""
    tags = {}
    with open(path, encoding="utf-8") as file:
        for line in file:
            if line.startswith("//"):
                continue
            fields = [field.strip() for field in line.split("#")]
            tags.setdefault(int(fields[7]), fields[6] if fields[17] == "Noun" else fields[17])
    return tags


class Reader:
    def __init__(self, tags, out):
        self.tags, self.out = tags, out
        self.text, self.analysis, self.lines = None, "", []

    def start(self, name, attributes):
        if name in ("w", "c"):
            self.text, self.analysis = "", attributes.get("lemma", "")
        elif name == "s":
            self.lines = []

    def characters(self, text):
        if self.text is not None:
            self.text += text

    def tag(self, name):
        if name == "c":
            return MARKS.get(self.text)
        try:
            analysis = json.loads(self.analysis[1:-1].replace("'", '"'))
            return self.tags.get(analysis["ls"][0]["wfs"][0]["id"])
        except (ValueError, LookupError, TypeError):
            return None

    def end(self, name):
        if name in ("w", "c"):
            tag = self.tag(name)
            if tag:
                self.lines.append(f"{self.text} {tag}\n")
            self.text = None
        elif name == "s":
            self.out.write("".join(self.lines) + "\n")

    def read(self, path):
        parser = expat.ParserCreate()
        parser.buffer_text = True
        parser.StartElementHandler = self.start
        parser.EndElementHandler = self.end
        parser.CharacterDataHandler = self.characters
        with open(path, "rb") as file:
            parser.ParseFile(file)


def walk(path):
    """The files below a folder in the system's order."""
    for entry in os.scandir(path):
        if entry.is_dir(follow_symlinks=False):
            yield from walk(entry.path)
        elif entry.name.endswith((".tei", ".xml")):
            yield entry.path


def main():
    reader = Reader(read_lexicon(sys.argv[1]), sys.stdout)
    for path in walk(sys.argv[2]):
        reader.read(path)


main()
