// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/archive/tarheader.h"
#include "files/regularfile.h"

#include <QCoreApplication>
#include <QString>

struct gzFile_s;

/** Reads a tar archive member by member, from a file that is compressed with gzip or not at all. */
class TarReader
{
    Q_DECLARE_TR_FUNCTIONS(TarReader)
public:
    explicit TarReader(const QString &archive);
    ~TarReader();
    TarReader(const TarReader &) = delete;
    TarReader &operator=(const TarReader &) = delete;

    /**
     * The next member, its name and size in their final form; what is left of the one before is skipped. Kind::End at
     * the end of the archive, Kind::Invalid when it cannot be read, see error().
     */
    TarHeader next();
    /** Up to `size` bytes of the member's contents; 0 at their end, -1 when they cannot be read. */
    int read(char *data, int size);
    /** Why reading failed; empty when what was read is no tar archive at all. */
    QString error() const { return m_error; }

private:
    RegularFile m_file;
    gzFile_s *m_stream = nullptr;
    qint64 m_left = 0; ///< of the contents
    qint64 m_padding = 0; ///< after them
    bool m_begun = false; ///< a header has been read
    bool m_atEnd = false; ///< the last read found nothing left
    QString m_error;

    bool readFully(char *data, int size);
    bool skip(qint64 size);
    bool readContents(QByteArray *contents);
    bool readToEnd();
    void reportEnd(bool complete);
};
