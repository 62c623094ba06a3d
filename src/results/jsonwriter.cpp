// SPDX-License-Identifier: GPL-3.0-or-later
#include "results/jsonwriter.h"

#include <QByteArray>

void JsonWriter::key(const QString &name)
{
    encode(name);
    Key(m_utf8.data(), static_cast<Size>(m_utf8.size()));
}

void JsonWriter::text(const QString &text)
{
    encode(text);
    String(m_utf8.data(), static_cast<Size>(m_utf8.size()));
}

void JsonWriter::encode(const QString &text)
{
    m_utf8.clear();
    for (const QChar c : text) {
        if (c.unicode() >= 0x80) {
            const QByteArray bytes = text.toUtf8();
            m_utf8.assign(bytes.constData(), static_cast<std::size_t>(bytes.size()));
            return;
        }
        m_utf8.push_back(static_cast<char>(c.unicode()));
    }
}
