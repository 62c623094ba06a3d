// SPDX-License-Identifier: GPL-3.0-or-later
#include "server/publicationintent.h"

#include "server/portrange.h"
#include "server/publicationpath.h"
#include "server/sourceline.h"

namespace
{
const QByteArray header = "velt-admin-repo intent 1";
const QByteArray absent = "absent";
constexpr mode_t AllModes = 07777;

QByteArray word(bool isSet)
{
    return isSet ? "yes" : "no";
}

QByteArray word(PublicationIntent::Kind kind)
{
    return kind == PublicationIntent::Publish ? "publish" : "unpublish";
}

/** The lines of a text, one after another. Reading past the last line or a line with another name sets isBroken(). */
class Lines
{
public:
    explicit Lines(const QByteArray &text)
        : m_lines(text.split('\n'))
    { }

    bool isNext(const QByteArray &name) const
    {
        return m_lines.value(m_next).startsWith(QByteArray(name + ' '));
    }
    QByteArray value(const QByteArray &name)
    {
        m_isBroken = m_isBroken || !isNext(name);
        return m_lines.value(m_next++).mid(name.size() + 1);
    }
    bool isSet(const QByteArray &name) { return value(name) == "yes"; }
    int number(const QByteArray &name) { return value(name).toInt(); }
    bool isBroken() const { return m_isBroken; }

private:
    QList<QByteArray> m_lines;
    int m_next = 0;
    bool m_isBroken = false;
};

QByteArray fileText(const SystemFile::State &file)
{
    return file.exists ? QByteArray::number(file.mode, 8) + ' ' + file.contents.toBase64() : absent;
}

SystemFile::State fileOf(const QByteArray &text)
{
    if (text == absent)
        return {};
    const auto blank = text.indexOf(' ');
    return {
        true, QByteArray::fromBase64(text.mid(blank + 1)), text.left(blank).toUInt(nullptr, 8) & AllModes};
}
} // namespace

QByteArray PublicationIntent::text() const
{
    QByteArray text = header + "\nkind " + word(kind) + "\nprotocol " + QByteArray::number(protocol)
                      + "\nport " + QByteArray::number(port) + "\npath " + path.toUtf8() + "\nactive "
                      + word(before.isActive) + "\nenabled " + word(before.isEnabled) + '\n';
    for (const SystemFile::State &file : before.files)
        text += "file " + fileText(file) + '\n';
    return text + "end intent\n";
}

std::optional<PublicationIntent> PublicationIntent::read(const QByteArray &text)
{
    Lines lines(text.startsWith(QByteArray(header + '\n')) ? text.mid(header.size() + 1) : QByteArray());
    PublicationIntent intent;
    intent.kind = lines.value("kind") == word(Publish) ? Publish : Unpublish;
    intent.protocol = lines.number("protocol");
    intent.port = lines.number("port");
    intent.path = QString::fromUtf8(lines.value("path"));
    intent.before.isActive = lines.isSet("active");
    intent.before.isEnabled = lines.isSet("enabled");
    while (lines.isNext("file"))
        intent.before.files.append(fileOf(lines.value("file")));
    lines.value("end");
    const bool isAllowed
        = (intent.protocol == HttpProtocol || intent.protocol == FtpProtocol)
          && PortRange::contains(intent.port)
          && (intent.kind == Publish ? PublicationPath::isWellFormed(intent.path) : intent.path.isEmpty());
    // The readers above accept small deviations. A text with deviations does not equal the written form.
    if (lines.isBroken() || !isAllowed || intent.text() != text)
        return {};
    return intent;
}
