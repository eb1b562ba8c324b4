#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 Larchfield
# SPDX-License-Identifier: GPL-3.0-or-later
"""Reads a keyed archive with Python's own property-list reader and prints it as JSON, so that
files written by Quillmere can be checked by code that shares nothing with its writer.

Usage: read_keyed_archive.py FILE
Objects of the program's classes print as {"$class": name, "$id": index, key: value...}, so that
an object stored once shows the same "$id" wherever it is referenced."""
import datetime
import json
import plistlib
import sys

REFERENCE_DATE = datetime.datetime(2001, 1, 1, tzinfo=datetime.timezone.utc)
ARRAYS = ("NSArray", "NSMutableArray")
DICTIONARIES = ("NSDictionary", "NSMutableDictionary")


def read(path):
    with open(path, "rb") as stream:
        data = stream.read()
    archive = plistlib.loads(data)
    objects = archive["$objects"]
    classes = [entry for entry in objects if isinstance(entry, dict) and "$classname" in entry]

    def resolve(uid, visiting):
        if not isinstance(uid, plistlib.UID):
            raise ValueError("expected a reference, found %r" % (uid,))
        index = uid.data
        if index == 0:
            return None
        if index in visiting:
            raise ValueError("object %d contains itself" % index)
        entry = objects[index]
        if isinstance(entry, str):
            return entry
        visiting = visiting | {index}
        name = objects[entry["$class"].data]["$classname"]
        if name == "NSDate":
            moment = REFERENCE_DATE + datetime.timedelta(seconds=entry["NS.time"])
            return {"$date": moment.isoformat(timespec="milliseconds")}
        if name in ARRAYS:
            return [resolve(item, visiting) for item in entry["NS.objects"]]
        if name in DICTIONARIES:
            return {resolve(key, visiting): resolve(value, visiting)
                    for key, value in zip(entry["NS.keys"], entry["NS.objects"])}
        result = {"$class": name, "$id": index}
        for key, value in entry.items():
            if key != "$class":
                result[key] = resolve(value, visiting) if isinstance(value, plistlib.UID) else value
        return result

    return {
        "format": "binary" if data.startswith(b"bplist00") else "xml",
        "topKeys": sorted(archive.keys()),
        "archiver": archive["$archiver"],
        "version": archive["$version"],
        "null": objects[0],
        "hierarchies": {entry["$classname"]: entry["$classes"] for entry in classes},
        "classDictionaryCount": len(classes),
        "strings": sorted(entry for entry in objects[1:] if isinstance(entry, str)),
        "root": resolve(archive["$top"]["root"], frozenset()),
    }


if __name__ == "__main__":
    print(json.dumps(read(sys.argv[1]), sort_keys=True))
