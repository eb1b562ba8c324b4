// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/ExportText.h"

#include <QSaveFile>
#include <charconv>
#include <QCoreApplication>

namespace ExportText {

QByteArray latin1Bytes(const QString &text)
{
    const QString composed = text.normalized(QString::NormalizationForm_C);
    QByteArray bytes;
    bytes.reserve(composed.size());
    for (const char32_t character : composed.toUcs4())
        bytes.append(character <= 0xFF ? char(character) : '?');
    return bytes;
}

QString fixedPoint(double value, int decimals)
{
    char buffer[400]; // enough for any finite double in fixed notation with a few decimals
    const auto result = std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::fixed, decimals);
    if (result.ec != std::errc())
        return QStringLiteral("nan");
    return QString::fromLatin1(buffer, result.ptr - buffer);
}

double singlePrecisionDollars(Pennies pennies)
{
    const float dollars = static_cast<float>(pennies) / 100.0f;
    return static_cast<double>(dollars);
}

bool writeFileAtomically(const QString &path, const QByteArray &bytes, QString *error)
{
    return writeFileAtomically(path, [&bytes](QByteArray &buffer, const std::function<void()> &) { buffer = bytes; }, error);
}

bool writeFileAtomically(const QString &path, const ChunkWriter &writer, QString *error)
{
    constexpr qsizetype ChunkSize = 1 << 16;
    QSaveFile file(path);
    bool failed = !file.open(QIODevice::WriteOnly);
    QByteArray buffer;
    buffer.reserve(ChunkSize * 2);
    auto flush = [&] {
        if (!failed && file.write(buffer) != buffer.size())
            failed = true;
        buffer.clear();
    };
    if (!failed) {
        writer(buffer, [&] {
            if (buffer.size() >= ChunkSize)
                flush();
        });
        flush();
    }
    if (failed)
        file.cancelWriting();
    if (failed || !file.commit()) {
        if (error)
            *error = QCoreApplication::translate("ExportText", "cannot write %1: %2").arg(path, file.errorString());
        return false;
    }
    return true;
}

} // namespace ExportText
