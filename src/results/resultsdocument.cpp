// SPDX-License-Identifier: GPL-3.0-or-later
#include "results/resultsdocument.h"

#include "results/jsonwriter.h"

#include <string>
#include <string_view>
#include <vector>

namespace
{
using ResultsDocument::Change;
using ResultsDocument::Outcome;
using Size = rapidjson::SizeType;

/** Ends the parsing at the first root member with one of the names. */
class MemberHandler : public rapidjson::BaseReaderHandler<rapidjson::UTF8<>, MemberHandler>
{
public:
    explicit MemberHandler(const QStringList &names)
    {
        for (const QString &name : names)
            m_names.push_back(name.toStdString());
    }

    bool found() const { return m_found; }

    bool Key(const char *text, Size size, bool /*copy*/)
    {
        if (m_depth == 1)
            for (const std::string &name : m_names)
                m_found = m_found || name == std::string_view(text, size);
        return !m_found;
    }
    bool StartObject() { return enter(); }
    bool StartArray() { return enter(); }
    bool EndObject(Size /*count*/) { return leave(); }
    bool EndArray(Size /*count*/) { return leave(); }

private:
    std::vector<std::string> m_names;
    int m_depth = 0;
    bool m_found = false;

    bool enter() { return ++m_depth < ResultsDocument::maximumDepth; }
    bool leave()
    {
        --m_depth;
        return true;
    }
};

/** Passes the events of the parser to the writer, except for members that change. */
class CopyHandler
{
public:
    CopyHandler(const Change &change, JsonWriter &writer, const JsonOutput &output)
        : m_change(change)
        , m_repository(change.repository.toStdString())
        , m_newPath(change.newPath.toStdString())
        , m_writer(writer)
        , m_output(output)
    { }

    bool Null()
    {
        return value([this] { m_writer.Null(); });
    }
    bool Bool(bool b)
    {
        return value([this, b] { m_writer.Bool(b); });
    }
    bool RawNumber(const char *text, Size size, bool /*copy*/)
    {
        return value([this, text, size] { m_writer.RawValue(text, size, rapidjson::kNumberType); });
    }
    bool String(const char *text, Size size, bool /*copy*/)
    {
        return value([this, text, size] { m_writer.String(text, size); });
    }
    bool StartArray()
    {
        return value([this] { m_writer.StartArray(); }) && enter();
    }
    bool EndArray(Size /*count*/)
    {
        --m_depth;
        return value([this] { m_writer.EndArray(); });
    }
    bool StartObject()
    {
        if (m_depth > 0)
            value([this] { m_writer.StartObject(); });
        else
            m_writer.StartObject();
        return enter();
    }
    bool Key(const char *text, Size size, bool /*copy*/);
    bool EndObject(Size /*count*/);

    // The parser passes numbers as text.
    bool Int(int /*n*/) { return false; }
    bool Uint(unsigned /*n*/) { return false; }
    bool Int64(int64_t /*n*/) { return false; }
    bool Uint64(uint64_t /*n*/) { return false; }
    bool Double(double /*d*/) { return false; }

private:
    const Change &m_change;
    const std::string m_repository;
    const std::string m_newPath;
    JsonWriter &m_writer;
    const JsonOutput &m_output;
    int m_depth = 0;
    bool m_dropping = false; ///< the parser is in a root member that is not copied

    bool enter() { return ++m_depth < ResultsDocument::maximumDepth; }
    /** Writes a value unless it is dropped. False ends the parsing, also when the root of the document is no object. */
    template <typename Write>
    bool value(Write write)
    {
        if (!m_dropping && m_depth > 0)
            write();
        return m_depth > 0 && m_output.isGood();
    }
};

bool CopyHandler::Key(const char *text, Size size, bool /*copy*/)
{
    if (m_depth > 1)
        return value([this, text, size] { m_writer.Key(text, size); });
    const std::string_view name(text, size);
    const bool isRepository = name == m_repository;
    const bool renamed = isRepository && !m_newPath.empty();
    m_dropping = !renamed && (isRepository || (!m_newPath.empty() && name == m_newPath));
    if (renamed)
        m_writer.key(m_newPath);
    else if (!m_dropping)
        m_writer.Key(text, size);
    return m_output.isGood();
}

bool CopyHandler::EndObject(Size /*count*/)
{
    if (--m_depth > 0)
        return value([this] { m_writer.EndObject(); });
    m_dropping = false;
    if (m_change.write) {
        m_writer.key(m_change.repository);
        m_change.write(m_writer);
    }
    m_writer.EndObject();
    return m_output.isGood();
}
} // namespace

Outcome ResultsDocument::rewrite(QIODevice *input, QIODevice *output, const Change &change, int indent)
{
    JsonOutput target(output);
    JsonWriter writer(target);
    writer.SetIndent(' ', static_cast<unsigned>(indent));
    CopyHandler handler(change, writer, target);
    if (input == nullptr) {
        handler.StartObject();
        handler.EndObject(0);
    } else {
        JsonInput source(input);
        rapidjson::Reader reader;
        const bool parsed = !reader.Parse<jsonParseFlags>(source, handler).IsError();
        if (source.hasFailed() || !target.isGood())
            return Outcome::Failed;
        if (!parsed || !writer.IsComplete())
            return Outcome::Broken;
    }
    target.Put('\n');
    target.Flush();
    return target.isGood() ? Outcome::Done : Outcome::Failed;
}

bool ResultsDocument::hasMember(QIODevice *input, const QStringList &repositories)
{
    JsonInput stream(input);
    MemberHandler handler(repositories);
    rapidjson::Reader reader;
    reader.Parse<jsonParseFlags>(stream, handler);
    return handler.found();
}
