// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/history/pointrecord.h"

#include "core/stringpool.h"
#include "core/textviews.h"
#include "results/jsonwriter.h"

#include <QBuffer>

#include <algorithm>
#include <string>
#include <string_view>

#include <rapidjson/memorystream.h>
#include <rapidjson/reader.h>

namespace
{
constexpr int Version = 1;
constexpr int MostRows = 2'000'000;
constexpr int LongestName = 1024; // of names, versions and paths
constexpr int LongestText = 1 << 16;
constexpr int DeepestUnknown = 64;

constexpr std::array<std::string_view, 3> Kinds{"job", "return", "outside"};
constexpr std::array<std::string_view, 3> ChangeKinds{"added", "replaced", "removed"};
constexpr std::array<std::string_view, 2> Types{"deb", "udeb"};

template <std::size_t Count>
int indexIn(const std::array<std::string_view, Count> &words, std::string_view word)
{
    const auto found = std::find(words.begin(), words.end(), word);
    return found == words.end() ? -1 : static_cast<int>(found - words.begin());
}

void writeState(JsonWriter &writer, std::string_view name, const PackageChange::State &state)
{
    if (state.isNone())
        return;
    writer.key(name);
    writer.StartObject();
    writer.member("version", state.version);
    writer.member("file", state.file);
    writer.member("sha256", state.sha256);
    writer.key(std::string_view("size"));
    writer.Int64(state.size);
    writer.EndObject();
}

void writeChange(JsonWriter &writer, const PackageChange &change)
{
    writer.StartObject();
    writer.member("change", ChangeKinds.at(change.kind));
    writer.member("package", change.name);
    writer.member("type", Types.at(static_cast<std::size_t>(change.type)));
    writer.member("component", change.component);
    writer.member("architecture", change.architecture);
    writeState(writer, "before", change.before);
    writeState(writer, "after", change.after);
    if (!change.origin.isEmpty())
        writer.member("origin", change.origin);
    writer.EndObject();
}

bool isControl(QChar c)
{
    return c.category() == QChar::Other_Control;
}

/** A name, a version or a path: nothing that a terminal obeys. */
bool isPlain(const QString &text)
{
    return text.size() <= LongestName && std::none_of(text.cbegin(), text.cend(), isControl);
}

/** A text that people read; an origin can be a file with any name. */
QString shown(QString text)
{
    text.truncate(LongestText);
    std::replace_if(text.begin(), text.end(), isControl, QChar(QChar::ReplacementCharacter));
    return text;
}

bool isDigest(const QString &text)
{
    constexpr int Digits = 64;
    return text.isEmpty() || (text.size() == Digits && std::all_of(text.cbegin(), text.cend(), [](QChar c) {
                                  return (c >= QLatin1Char('0') && c <= QLatin1Char('9'))
                                         || (c >= QLatin1Char('a') && c <= QLatin1Char('f'));
                              }));
}

bool isGood(const PackageChange::State &state)
{
    return state.isNone()
           || (isPlain(state.version) && PointRecord::isPoolPath(state.file) && isDigest(state.sha256)
               && state.size >= 0);
}

bool isGood(const PackageChange &change)
{
    return !change.name.isEmpty() && isPlain(change.name) && isPlain(change.component)
           && isPlain(change.architecture) && isGood(change.before) && isGood(change.after)
           && change.before.isNone() == (change.kind == PackageChange::Added)
           && change.after.isNone() == (change.kind == PackageChange::Removed);
}

/** Takes the events of the parser. False ends the parsing. */
class RecordHandler : public rapidjson::BaseReaderHandler<rapidjson::UTF8<>, RecordHandler>
{
public:
    using Size = rapidjson::SizeType;

    explicit RecordHandler(PointRecord::Part part)
        : m_part(part)
    { }

    RestorePoint point;
    int version = 0;
    bool isEnough = false; ///< the wanted part was read, and the parsing was ended

    bool Key(const char *text, Size size, bool /*copy*/)
    {
        if (m_unknown == 0)
            m_key.assign(text, size);
        isEnough = m_unknown == 0 && m_level == Root && m_key == "changes"
                   && m_part == PointRecord::WithoutChanges;
        return !isEnough;
    }
    bool StartObject()
    {
        if (m_unknown == 0 && m_level == None) {
            m_level = Root;
        } else if (m_unknown == 0 && m_level == Changes) {
            m_level = Row;
            m_change = {};
            m_kind = -1;
        } else if (m_unknown == 0 && m_level == Row && (m_key == "before" || m_key == "after")) {
            m_level = State;
            m_state = m_key == "before" ? &m_change.before : &m_change.after;
            *m_state = {};
        } else {
            return enterUnknown();
        }
        return true;
    }
    bool EndObject(Size /*count*/)
    {
        if (m_unknown > 0)
            --m_unknown;
        else if (m_level == Row)
            return endRow();
        else
            m_level = m_level == State ? Row : None;
        return true;
    }
    bool StartArray()
    {
        if (m_unknown > 0 || m_level != Root || m_key != "changes")
            return enterUnknown();
        m_level = Changes;
        return true;
    }
    bool EndArray(Size /*count*/)
    {
        if (m_unknown > 0)
            --m_unknown;
        else
            m_level = Root;
        return true;
    }
    bool Bool(bool value)
    {
        if (m_unknown > 0 || m_level != Root)
            return true;
        if (m_key == "description")
            point.changesDescription = value;
        else if (m_key == "kept")
            point.isKept = value;
        return true;
    }
    bool Int(int value) { return number(value); }
    bool Uint(unsigned value) { return number(value); }
    bool Int64(int64_t value) { return number(value); }
    bool String(const char *text, Size size, bool /*copy*/)
    {
        if (m_unknown > 0)
            return true;
        const std::string_view bytes(text, size);
        switch (m_level) {
        case Root:
            return rootText(bytes);
        case Row:
            rowText(bytes);
            return true;
        case State:
            stateText(bytes);
            return true;
        case None:
        case Changes:
            return false;
        }
        return false;
    }

private:
    enum Level { None, Root, Changes, Row, State };

    const PointRecord::Part m_part;
    Level m_level = None;
    int m_unknown = 0; ///< depth in members of a later version
    std::string m_key;
    PackageChange m_change;
    int m_kind = -1; ///< of the row
    PackageChange::State *m_state = nullptr;
    StringPool m_strings;

    bool enterUnknown() { return m_level != None && ++m_unknown < DeepestUnknown; }

    bool number(qint64 value)
    {
        if (m_unknown > 0)
            return true;
        if (m_level == Root && m_key == "version")
            version = static_cast<int>(value);
        else if (m_level == Root && m_key == "number")
            point.number = static_cast<int>(value);
        else if (m_level == State && m_key == "size")
            m_state->size = value;
        return m_level != Changes && m_level != None;
    }

    bool rootText(std::string_view bytes)
    {
        const QString text = QString::fromUtf8(bytes.data(), static_cast<int>(bytes.size()));
        if (m_key == "kind") {
            const int kind = indexIn(Kinds, bytes);
            point.kind = static_cast<RestorePoint::Kind>(std::max(kind, 0));
            return kind >= 0;
        }
        if (m_key == "time")
            point.time = QDateTime::fromString(text, Qt::ISODateWithMs);
        else if (m_key == "user")
            point.user = shown(text);
        else if (m_key == "summary")
            point.summary = shown(text);
        else if (m_key == "reason")
            point.reason = shown(text);
        return true;
    }

    void rowText(std::string_view bytes)
    {
        if (m_key == "change")
            m_kind = indexIn(ChangeKinds, bytes);
        else if (m_key == "package")
            m_change.name = m_strings.string(bytes);
        else if (m_key == "type")
            m_change.type = static_cast<PackageType>(std::max(indexIn(Types, bytes), 0));
        else if (m_key == "component")
            m_change.component = m_strings.string(bytes);
        else if (m_key == "architecture")
            m_change.architecture = m_strings.string(bytes);
        else if (m_key == "origin")
            m_change.origin = shown(m_strings.string(bytes));
    }

    void stateText(std::string_view bytes)
    {
        if (m_key == "version")
            m_state->version = m_strings.string(bytes);
        else if (m_key == "file")
            m_state->file = m_strings.string(bytes);
        else if (m_key == "sha256")
            m_state->sha256 = m_strings.string(bytes);
    }

    bool endRow()
    {
        m_level = Changes;
        m_change.kind = static_cast<PackageChange::Kind>(std::max(m_kind, 0));
        for (PackageChange::State *state : {&m_change.before, &m_change.after})
            if (state->isNone())
                *state = {};
        if (m_kind < 0 || !isGood(m_change) || point.changes.size() >= MostRows)
            return false;
        point.changes.append(m_change);
        return true;
    }
};
} // namespace

QByteArray PointRecord::toJson(const RestorePoint &point)
{
    QByteArray json;
    QBuffer buffer(&json);
    buffer.open(QIODevice::WriteOnly);
    JsonOutput output(&buffer);
    JsonWriter writer(output);
    writer.SetIndent(' ', 0);
    writer.StartObject();
    writer.member("version", Version);
    writer.member("number", point.number);
    writer.member("kind", Kinds.at(point.kind));
    writer.member("time", point.time.toUTC().toString(Qt::ISODateWithMs));
    writer.member("user", point.user);
    writer.member("summary", point.summary);
    writer.key(std::string_view("description"));
    writer.Bool(point.changesDescription);
    writer.key(std::string_view("kept"));
    writer.Bool(point.isKept);
    writer.member("reason", point.reason);
    // The last member: without it, a few bytes tell the rest.
    writer.key(std::string_view("changes"));
    writer.StartArray();
    for (const PackageChange &change : point.changes)
        writeChange(writer, change);
    writer.EndArray();
    writer.EndObject();
    output.Flush();
    json += '\n';
    return json;
}

std::optional<RestorePoint> PointRecord::fromJson(const QByteArray &json, Part part)
{
    constexpr unsigned Flags = rapidjson::kParseIterativeFlag | rapidjson::kParseValidateEncodingFlag;
    rapidjson::MemoryStream stream(json.constData(), static_cast<std::size_t>(json.size()));
    rapidjson::Reader reader;
    RecordHandler handler(part);
    const bool isRead = json.size() <= LargestRecord && !reader.Parse<Flags>(stream, handler).IsError();
    if ((!isRead && !handler.isEnough) || handler.version != Version || handler.point.number < 1
        || !handler.point.time.isValid())
        return std::nullopt;
    handler.point.time = handler.point.time.toUTC();
    return handler.point;
}

bool PointRecord::isPoolPath(const QString &path)
{
    const QVector<QStringView> parts = splitView(path, QLatin1Char('/'));
    return isPlain(path) && parts.size() > 1 && parts.first() == QLatin1String("pool")
           && std::none_of(parts.cbegin(), parts.cend(), [](QStringView part) {
                  return part.isEmpty() || part == QLatin1String(".") || part == QLatin1String("..");
              });
}
