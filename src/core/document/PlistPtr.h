#pragma once
// Owning handle for a libplist node, so that every early return frees the tree.
#include <plist/plist.h>

#include <memory>

struct PlistDeleter
{
    void operator()(void *node) const
    {
        if (node)
            plist_free(node);
    }
};
using PlistPtr = std::unique_ptr<void, PlistDeleter>;
