#pragma once
// Writes a libplist tree in the binary property list form ("bplist00"). libplist's own writer
// slows down badly once a tree holds hundreds of thousands of objects; this one stays linear.
#include <QByteArray>

#include <plist/plist.h>

class BinaryPlistWriter
{
public:
    // The whole file: header, objects, offset table and trailer. Equal strings, numbers, dates,
    // data and UIDs are stored once; arrays and dictionaries never are. Returns an empty array
    // when the tree holds something the form cannot carry (a missing node, a string that is not
    // UTF-8, a UID above 32 bits, a node of no type).
    static QByteArray write(plist_t root);
};
