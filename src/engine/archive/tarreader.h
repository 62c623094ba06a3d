// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/archive/tarheader.h"
#include "files/regularfile.h"

#include <QCoreApplication>
#include <QString>

struct gzFile_s;

/** Reads the members of a tar archive one after another, from a file with gzip or without compression. */
class TarReader
{
    Q_DECLARE_TR_FUNCTIONS(TarReader)
public:
    explicit TarReader(const QString &archive);
    ~TarReader();
    TarReader(const TarReader &) = delete;
    TarReader &operator=(const TarReader &) = delete;

    /**
     * The next member, with its final name and size; the rest of the previous member is skipped. Kind::End at the end
     * of the archive, Kind::Invalid when it cannot be read, see error().
     */
    TarHeader next();
    /** Up to `size` bytes of the member's contents; 0 at their end, -1 when they cannot be read. */
    int read(char *data, int size);
    /** Why reading failed; empty when the file is no tar archive. */
    QString error() const { return m_error; }

private:
    RegularFile m_file;
    gzFile_s *m_stream = nullptr;
    qint64 m_left = 0; ///< bytes left of the contents
    qint64 m_padding = 0; ///< bytes of padding after the contents
    bool m_begun = false; ///< at least one header was read
    bool m_atEnd = false; ///< the last read reached the end
    QString m_error;

    bool readFully(char *data, int size);
    bool skip(qint64 size);
    bool readContents(QByteArray *contents);
    bool readToEnd();
    void reportEnd(bool complete);
};
