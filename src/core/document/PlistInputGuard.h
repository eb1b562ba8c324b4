#pragma once
// Screens raw property-list bytes before libplist parses them. libplist's parser recurses once
// per nesting level, and it copies a binary-form object once for every reference to it, so a
// few kilobytes of hostile data could otherwise overflow the stack or expand into gigabytes.
#include <QByteArray>
#include <QString>

namespace PlistInputGuard {

enum class Format { Binary, Xml, Unknown };

Format detectFormat(const QByteArray &data);

// True when the bytes stay within the limits. Otherwise false, and *problem (when given)
// describes what is wrong, as the end of a sentence ("its values are nested too deeply").
bool checkBinary(const QByteArray &data, int maximumDepth, qint64 maximumNodes, QString *problem);
bool checkXml(const QByteArray &data, int maximumDepth, qint64 maximumNodes, QString *problem);

} // namespace PlistInputGuard
