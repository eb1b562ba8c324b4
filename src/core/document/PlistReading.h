#pragma once
// Small helpers for reading libplist trees safely and in linear time.
#include "document/KeyedArchiveFormat.h"

#include <QString>
#include <plist/plist.h>

#include <cstdlib>

namespace PlistReading {

inline QString textOf(plist_t node)
{
    uint64_t length = 0;
    const char *text = plist_get_string_ptr(node, &length);
    return text ? QString::fromUtf8(text, qsizetype(length)) : QString();
}

inline bool isString(plist_t node, const char *expected)
{
    return PLIST_IS_STRING(node) && textOf(node) == QLatin1String(expected);
}

// A reference: a UID in the binary form, a one-entry {"CF$UID": n} dictionary in the XML form.
inline bool readUid(plist_t node, quint64 *uid)
{
    uint64_t value = 0;
    if (PLIST_IS_UID(node)) {
        plist_get_uid_val(node, &value);
    } else if (PLIST_IS_DICT(node) && plist_dict_get_size(node) == 1
               && PLIST_IS_UINT(plist_dict_get_item(node, KeyedArchiveFormat::XmlUidKey))) {
        plist_get_uint_val(plist_dict_get_item(node, KeyedArchiveFormat::XmlUidKey), &value);
    } else {
        return false;
    }
    *uid = value;
    return true;
}

// libplist finds the n-th item of a parsed array by walking its list from the start. Appending an
// item makes it build a direct index of the items, which the removal of that item keeps; after
// that each look-up takes constant time, so reading long lists stays linear.
inline void makeIndexable(plist_t array)
{
    if (plist_array_get_size(array) < 16)
        return;
    plist_array_append_item(array, plist_new_bool(0));
    plist_array_remove_item(array, plist_array_get_size(array) - 1);
}

// Calls visit(key, value) for each entry of a dictionary node, in stored order, until it
// returns false. Each step walks the entries from the start, so callers bound the size first.
template<typename Visit>
bool forEachEntry(plist_t dictionary, Visit visit)
{
    plist_dict_iter iterator = nullptr;
    plist_dict_new_iter(dictionary, &iterator);
    bool completed = true;
    for (;;) {
        char *key = nullptr;
        plist_t value = nullptr;
        plist_dict_next_item(dictionary, iterator, &key, &value);
        if (!value) {
            free(key);
            break;
        }
        const QString name = key ? QString::fromUtf8(key) : QString();
        free(key);
        if (!visit(name, value)) {
            completed = false;
            break;
        }
    }
    free(iterator);
    return completed;
}

} // namespace PlistReading
