#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 Larchfield
# SPDX-License-Identifier: GPL-3.0-or-later
"""Writes a reproducible portfolio of N random holdings as a keyed archive, laid out as the Mac
program lays one out, with Python's own property-list writer (no code shared with Quillmere).
Used to compare the program's output on a large portfolio before and after a change.

Usage: generate-portfolio.py COUNT OUT [SEED]"""
import datetime
import plistlib
import random
import sys

REFERENCE_DATE = datetime.datetime(2001, 1, 1, tzinfo=datetime.timezone.utc)
PEOPLE = ["6F1C2A52-3D1B-4B8E-9A51-0C7D5E2B1A0%d" % i for i in range(1, 6)]
KINDS = [("E", 1941, 1979), ("N", 1980, 2021), ("I", 1999, 2025), ("S", 1967, 1969)]
FACES = [2500, 5000, 7500, 10000, 20000, 50000, 100000, 500000, 1000000]


def main(count, out, seed):
    rng = random.Random(seed)
    objects = ["$null"]

    def add(entry):
        objects.append(entry)
        return plistlib.UID(len(objects) - 1)

    classes = {}

    def klass(name, *bases):
        if name not in classes:
            classes[name] = add({"$classes": [name, *bases, "NSObject"], "$classname": name})
        return classes[name]

    root = add(None)
    people = {}

    def person(uid):
        if uid not in people:
            people[uid] = add({"uid": add(uid), "$class": klass("Person")})
        return people[uid]

    series = {}
    holdings = []
    for i in range(count):
        code, first, last = rng.choice(KINDS)
        if code not in series:
            series[code] = add({"code": add(code), "$class": klass("Series")})
        moment = datetime.datetime(rng.randint(first, last), rng.randint(1, 12), 1, 12, tzinfo=datetime.timezone.utc)
        date = add({"NS.time": (moment - REFERENCE_DATE).total_seconds(), "$class": klass("NSDate")})
        owners = rng.sample(PEOPLE, 3)
        holding = {
            "series": series[code],
            "quantity": rng.randint(1, 5),
            "faceValue": rng.choice(FACES),
            "issueDate": date,
            "serialNumber": add("Q%08dEE" % i) if rng.random() < 0.7 else plistlib.UID(0),
            "owner": person(owners[0]),
            "coOwner": person(owners[1]) if rng.random() < 0.3 else plistlib.UID(0),
            "beneficiary": person(owners[2]) if rng.random() < 0.3 else plistlib.UID(0),
            "paper": rng.random() < 0.5,
            "$class": klass("Holding"),
        }
        holdings.append(add(holding))
    title_holders = [person(uid) for uid in PEOPLE[:3]]
    keys = [add("holdings"), add("titleHolders")]
    values = [add({"NS.objects": holdings, "$class": klass("NSMutableArray", "NSArray")}),
              add({"NS.objects": title_holders, "$class": klass("NSArray")})]
    objects[root.data] = {"NS.keys": keys, "NS.objects": values, "$class": klass("NSDictionary")}
    archive = {"$version": 100000, "$archiver": "NSKeyedArchiver", "$top": {"root": root}, "$objects": objects}
    with open(out, "wb") as stream:
        plistlib.dump(archive, stream, fmt=plistlib.FMT_BINARY, sort_keys=False)


if __name__ == "__main__":
    main(int(sys.argv[1]), sys.argv[2], int(sys.argv[3]) if len(sys.argv) > 3 else 2026)
