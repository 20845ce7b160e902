#!/usr/bin/env python3
"""schema_tests.py CORVANE_SAMPLE CORVANE_TOOL SCHEMA: the schema of the documentation and the reader
of corvane-tool accept and refuse the same documents."""

import copy
import json
import os
import subprocess
import sys
import tempfile

from jsonschema.validators import validator_for

VALUES = [None, True, "x", 1.5, -1, 43, 256, 2**31, ["x"], {"Hex": "4A"}, {"Hex": "4g"}]
NOT_IN_A_SCHEMA = "duplicate connection"


def places(value, path=()):
    """The paths of all values in a document; of an array only those of its first element."""
    if path:
        yield path
    if isinstance(value, dict):
        for key in value:
            yield from places(value[key], path + (key,))
    if isinstance(value, list) and value:
        yield from places(value[0], path + (0,))


def changed(document):
    """Yields a description and the document with one change, for every change."""
    for path in places(document):
        for value in [*VALUES, "gone", "extra"]:
            other = copy.deepcopy(document)
            parent = other
            for key in path[:-1]:
                parent = parent[key]
            if value == "gone":
                del parent[path[-1]]
            elif value != "extra":
                parent[path[-1]] = value
            elif isinstance(parent, dict):
                parent["Extra"] = 1
            else:
                parent.append(parent[-1])
            yield "%s: %r" % ("/".join(map(str, path)), value), other


def main():
    sample, tool = sys.argv[1:3]
    with open(sys.argv[3], encoding="utf-8") as file:
        schema = json.load(file)
    validator = validator_for(schema)(schema)
    differences, accepted, refused = 0, 0, 0
    with tempfile.TemporaryDirectory() as folder:
        subprocess.run([sample, folder], check=True, stdout=subprocess.DEVNULL)
        document = os.path.join(folder, "document.json")
        for source in ("CC4.EXE", "Maps/Merlaut.btd"):
            whole = json.loads(subprocess.run([tool, "show", "--json", os.path.join(folder, source)],
                                              check=True, stdout=subprocess.PIPE).stdout)
            for what, other in [("nothing changed", whole), *changed(whole)]:
                with open(document, "w", encoding="utf-8") as file:
                    json.dump(other, file)
                read = subprocess.run([tool, "show", document], stdout=subprocess.DEVNULL,
                                      stderr=subprocess.PIPE, text=True)
                if NOT_IN_A_SCHEMA in read.stderr:
                    continue
                fits = validator.is_valid(other)
                accepted += fits
                refused += not fits
                if fits != (read.returncode == 0):
                    differences += 1
                    print("%s, %s: the schema %s it. %s" % (
                        source, what, "accepts" if fits else "refuses", read.stderr.strip()))
    print("%d documents accepted, %d refused, %d differences" % (accepted, refused, differences))
    return 1 if differences or not accepted or not refused else 0


if __name__ == "__main__":
    sys.exit(main())
