// SPDX-License-Identifier: GPL-3.0-or-later
// Copies the document of dependency results and changes the member of one repository.
#include "depends/dependsjson.h"
#include "depends/dependsjsonparts.h"
#include "depends/jsondevice.h"
#include "depends/localcandidates.h"

#include <QStringList>

#include <algorithm>
#include <string>

#include <rapidjson/prettywriter.h>

namespace
{
using DependsJson::Change;
using DependsJson::Outcome;
namespace Key = DependsJson::Key;
using Size = rapidjson::SizeType;
using Writer = rapidjson::PrettyWriter<JsonOutput>;

/** Writes results in the form of the document. */
class ResultsWriter
{
public:
    explicit ResultsWriter(Writer &writer)
        : m_writer(writer)
    { }

    void repository(const QString &path, const QList<PackageInfoPtr> &packages);

private:
    Writer &m_writer;
    const QString m_local = LocalCandidates::label();
    std::string m_utf8; ///< a member, so that its memory is not allocated for each of millions of texts

    void key(std::string_view name) { m_writer.Key(name.data(), static_cast<Size>(name.size())); }
    void text(const QString &text)
    {
        encode(text);
        m_writer.String(m_utf8.data(), static_cast<Size>(m_utf8.size()));
    }
    void key(const QString &text)
    {
        encode(text);
        m_writer.Key(m_utf8.data(), static_cast<Size>(m_utf8.size()));
    }
    void member(std::string_view name, const QString &value)
    {
        key(name);
        text(value);
    }
    void member(std::string_view name, std::string_view value)
    {
        key(name);
        m_writer.String(value.data(), static_cast<Size>(value.size()));
    }
    void member(std::string_view name, DependStatus status)
    {
        key(name);
        m_writer.Int(status);
    }
    void encode(const QString &text);
    /** Writes the members of a package. If other packages have its name, it also writes what distinguishes it. */
    void package(const PackageInfo &package, bool isOnlyOne);
    void group(const DependencyGroup &group, const QString &architecture);
    /** `architecture` is the default that a reader assumes. */
    void dependency(const Dependency &dependency, const QString &architecture);
};

void ResultsWriter::encode(const QString &text)
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

void ResultsWriter::repository(const QString &path, const QList<PackageInfoPtr> &packages)
{
    const DependsJson::NamedPackages byName = DependsJson::packagesByName(packages);
    key(path);
    m_writer.StartObject();
    for (const PackageInfoPtr &candidate : packages) {
        if (byName.first.value(candidate->name) != candidate)
            continue;
        key(candidate->name);
        m_writer.StartObject();
        const auto others = byName.others.constFind(candidate->name);
        package(*candidate, others == byName.others.cend());
        if (others != byName.others.cend()) {
            key(Key::others);
            m_writer.StartArray();
            for (const PackageInfoPtr &other : *others) {
                m_writer.StartObject();
                package(*other, false);
                m_writer.EndObject();
            }
            m_writer.EndArray();
        }
        m_writer.EndObject();
    }
    m_writer.EndObject();
}

void ResultsWriter::package(const PackageInfo &package, bool isOnlyOne)
{
    member(Key::version, package.version);
    member(Key::architecture, package.architecture);
    if (!isOnlyOne && !package.indexComponent.isEmpty())
        member(Key::component, package.indexComponent);
    if (!isOnlyOne && package.type == PackageType::Udeb)
        member(Key::type, Key::udeb);
    key(Key::dependMap);
    m_writer.StartObject();
    if (package.dependsInfo) {
        for (const DependencyGroup &entry : package.dependsInfo->groups) {
            key(entry.key);
            group(entry, package.architecture);
        }
    }
    m_writer.EndObject();
    member(Key::dependsStatus, package.dependStatus());
    if (package.dependsInfo && package.dependsInfo->selection != 0) {
        key(Key::dependsRepoType);
        m_writer.Int(package.dependsInfo->selection);
    }
}

void ResultsWriter::group(const DependencyGroup &group, const QString &architecture)
{
    m_writer.StartObject();
    member(Key::dependStatus, group.status);
    if (group.isPreDepends)
        member(Key::field, Key::preDepends);
    key(Key::packages);
    m_writer.StartArray();
    for (const Dependency &alternative : group.alternatives)
        dependency(alternative, architecture);
    m_writer.EndArray();
    m_writer.EndObject();
}

void ResultsWriter::dependency(const Dependency &dependency, const QString &architecture)
{
    m_writer.StartObject();
    member(Key::name, dependency.name);
    const bool isElsewhere = !dependency.architecture.isEmpty() && dependency.architecture != architecture;
    if (isElsewhere)
        member(Key::architecture, dependency.architecture);
    member(Key::op, dependency.op);
    member(Key::dependVersion, dependency.version);
    member(Key::altOp, dependency.secondOp);
    member(Key::altDependVersion, dependency.secondVersion);
    key(Key::providers);
    m_writer.StartArray();
    for (const Dependency &provider : dependency.providers)
        this->dependency(provider, isElsewhere ? dependency.architecture : architecture);
    m_writer.EndArray();
    member(Key::status, dependency.status);
    key(Key::foundedVersions);
    m_writer.StartObject();
    const auto &sources = dependency.foundVersions;
    for (auto it = sources.cbegin(); it != sources.cend(); ++it) {
        if (it.key() == m_local)
            key(Key::local);
        else
            key(it.key());
        m_writer.StartObject();
        member(Key::version, it.value().version);
        member(Key::status, it.value().status);
        m_writer.EndObject();
    }
    m_writer.EndObject();
    m_writer.EndObject();
}

bool isSame(const PackageInfo &a, const PackageInfo &b)
{
    return a.architecture == b.architecture && a.indexComponent == b.indexComponent && a.type == b.type;
}

/**
 * Adds a package to the others of its name, unless it is `first`. It replaces an earlier record of the same package.
 */
void keepOther(QVector<PackageInfoPtr> &others, const PackageInfoPtr &package, const PackageInfo &first)
{
    const auto isGone = [&](const PackageInfoPtr &other) {
        return isSame(*other, first) || (isSame(*other, *package) && package->hasDependsInfo());
    };
    others.erase(std::remove_if(others.begin(), others.end(), isGone), others.end());
    const bool isKnown = isSame(*package, first)
                         || std::any_of(others.cbegin(), others.cend(), [&](const PackageInfoPtr &other) {
                                return isSame(*other, *package);
                            });
    if (!isKnown)
        others.append(package);
}

/** Passes the events of the parser to the writer, except for members that change. */
class CopyHandler
{
public:
    CopyHandler(const Change &change, Writer &writer, const JsonOutput &output)
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
    Writer &m_writer;
    const JsonOutput &m_output;
    int m_depth = 0;
    bool m_dropping = false; ///< the parser is in a root member that is not copied

    bool enter() { return ++m_depth < DependsJson::maximumDepth; }
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
        m_writer.Key(m_newPath.data(), static_cast<Size>(m_newPath.size()));
    else if (!m_dropping)
        m_writer.Key(text, size);
    return m_output.isGood();
}

bool CopyHandler::EndObject(Size /*count*/)
{
    if (--m_depth > 0)
        return value([this] { m_writer.EndObject(); });
    m_dropping = false;
    if (!m_change.packages.isEmpty())
        ResultsWriter(m_writer).repository(m_change.repository, m_change.packages);
    m_writer.EndObject();
    return m_output.isGood();
}
} // namespace

Outcome DependsJson::rewrite(QIODevice *input, QIODevice *output, const Change &change)
{
    JsonOutput target(output);
    Writer writer(target);
    CopyHandler handler(change, writer, target);
    if (input == nullptr) {
        handler.StartObject();
        handler.EndObject(0);
    } else {
        JsonInput source(input);
        rapidjson::Reader reader;
        const bool parsed = !reader.Parse<parseFlags>(source, handler).IsError();
        if (source.hasFailed() || !target.isGood())
            return Outcome::Failed;
        if (!parsed || !writer.IsComplete())
            return Outcome::Broken;
    }
    target.Put('\n');
    target.Flush();
    return target.isGood() ? Outcome::Done : Outcome::Failed;
}

DependsJson::NamedPackages DependsJson::packagesByName(const QList<PackageInfoPtr> &packages)
{
    NamedPackages byName;
    byName.first.reserve(packages.size());
    for (const PackageInfoPtr &package : packages) {
        PackageInfoPtr &first = byName.first[package->name];
        const PackageInfoPtr earlier = first;
        const bool comesFirst = !earlier || package->hasDependsInfo() || !earlier->hasDependsInfo();
        if (comesFirst)
            first = package;
        if (!earlier)
            continue;
        QVector<PackageInfoPtr> &others = byName.others[package->name];
        keepOther(others, comesFirst ? earlier : package, *first);
        if (others.isEmpty())
            byName.others.remove(package->name);
    }
    return byName;
}
