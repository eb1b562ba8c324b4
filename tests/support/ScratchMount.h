// SPDX-FileCopyrightText: 2026 Larchfield
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// A small tmpfs that really fills up or turns read-only; without permission to mount, reason() says why and the test skips.
#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QString>

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/mount.h>
#include <unistd.h>

class ScratchMount
{
public:
    ScratchMount(const QString &folder, int kilobytes)
        : m_folder(folder)
    {
        QDir().mkpath(folder);
        const QByteArray options = "size=" + QByteArray::number(kilobytes) + "k";
        if (::mount("tmpfs", QFile::encodeName(folder).constData(), "tmpfs", 0, options.constData()) == 0)
            m_mounted = true;
        else
            m_reason = QStringLiteral("cannot mount a tmpfs here: %1").arg(QString::fromLocal8Bit(std::strerror(errno)));
    }
    ~ScratchMount()
    {
        if (m_mounted)
            ::umount2(QFile::encodeName(m_folder).constData(), MNT_DETACH);
    }
    ScratchMount(const ScratchMount &) = delete;
    ScratchMount &operator=(const ScratchMount &) = delete;

    bool mounted() const { return m_mounted; }
    std::string reason() const { return m_reason.toStdString(); }
    QString path(const QString &name) const { return m_folder + QLatin1Char('/') + name; }

    // Writes a filler file until the disk refuses more.
    void fill() const
    {
        const int fd = ::open(QFile::encodeName(path(QStringLiteral("filler"))).constData(), O_WRONLY | O_CREAT, 0600);
        const QByteArray block(4096, 'x');
        for (int size = 4096; size >= 1; size /= 2)
            while (::write(fd, block.constData(), size_t(size)) > 0) {
            }
        ::close(fd);
    }
    bool makeReadOnly() const
    {
        return ::mount(nullptr, QFile::encodeName(m_folder).constData(), nullptr, MS_REMOUNT | MS_RDONLY, nullptr) == 0;
    }

private:
    QString m_folder;
    bool m_mounted = false;
    QString m_reason;
};
