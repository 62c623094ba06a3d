// SPDX-License-Identifier: GPL-3.0-or-later
// Writes and reads the results of one repository.
#include "core/stringpool.h"
#include "installability/storedcompletecheck.h"
#include "results/jsonwriter.h"

#include <QtEndian>

#include <algorithm>
#include <string>
#include <utility>

namespace
{
using ResultsDocument::Outcome;
using Size = rapidjson::SizeType;

namespace Key
{
constexpr std::string_view base = "base";
constexpr std::string_view kind = "kind"; ///< of the base, and of a step
constexpr std::string_view repository = "repository";
constexpr std::string_view foreignArchitectures = "foreignArchitectures";
constexpr std::string_view time = "time";
constexpr std::string_view digest = "digest";
constexpr std::string_view checked
    = "checked"; ///< the numbers, eight bytes each with the lowest first, in base64
constexpr std::string_view findings
    = "findings"; ///< an object; its members have the hexadecimal numbers as names
constexpr std::string_view state = "state";
constexpr std::string_view reason = "reason";
constexpr std::string_view unmetRecommends = "unmetRecommends";
constexpr std::string_view seconds = "seconds";
constexpr std::string_view package = "package";
constexpr std::string_view field = "field";
constexpr std::string_view relation = "relation";
constexpr std::string_view targets = "targets";
constexpr std::string_view name = "name";
constexpr std::string_view version = "version";
constexpr std::string_view architecture = "architecture";
constexpr std::string_view local = "local";
} // namespace Key

// Hostile packages can have relations of megabytes, and everybody can be meant by one of them.
constexpr int StoredLength = 4096;
constexpr int StoredItems = 200;

/** The text, without its middle when it is longer than any real one. */
QString bounded(const QString &text)
{
    if (text.size() <= StoredLength)
        return text;
    return text.left(StoredLength / 2) + QChar(0x2026) + text.right(StoredLength / 2 - 1);
}

/** Writes the parts of a reason. */
class ReasonWriter
{
public:
    explicit ReasonWriter(JsonWriter &writer)
        : m_writer(writer)
    { }

    void step(const InstallabilityStep &step);

private:
    JsonWriter &m_writer;

    void package(const NamedPackage &package);
};

void ReasonWriter::step(const InstallabilityStep &step)
{
    m_writer.StartObject();
    m_writer.member(Key::kind, step.kind);
    m_writer.key(Key::package);
    package(step.package);
    if (!step.field.isEmpty())
        m_writer.member(Key::field, bounded(step.field));
    if (!step.relation.isEmpty())
        m_writer.member(Key::relation, bounded(step.relation));
    if (!step.targets.isEmpty()) {
        m_writer.key(Key::targets);
        m_writer.StartArray();
        // The last one counts, too: it is the oldest version.
        for (int i = 0; i < step.targets.size(); ++i) {
            if (i < StoredItems - 1 || i == step.targets.size() - 1)
                package(step.targets.at(i));
        }
        m_writer.EndArray();
    }
    m_writer.EndObject();
}

void ReasonWriter::package(const NamedPackage &package)
{
    m_writer.StartObject();
    m_writer.member(Key::name, bounded(package.name));
    m_writer.member(Key::version, bounded(package.version));
    m_writer.member(Key::architecture, bounded(package.architecture));
    if (package.isLocal) {
        m_writer.key(Key::local);
        m_writer.Bool(true);
    }
    m_writer.EndObject();
}

void writeTexts(JsonWriter &writer, std::string_view key, const QStringList &texts)
{
    writer.key(key);
    writer.StartArray();
    for (const QString &text : texts.mid(0, StoredItems))
        writer.text(bounded(text));
    writer.EndArray();
}

void writeFinding(JsonWriter &writer, const InstallabilityInfo &info)
{
    writer.StartObject();
    writer.member(Key::state, info.state);
    if (!info.reason.isEmpty()) {
        writer.key(Key::reason);
        writer.StartArray();
        for (const InstallabilityStep &step : info.reason)
            ReasonWriter(writer).step(step);
        writer.EndArray();
    }
    if (!info.unmetRecommends.isEmpty())
        writeTexts(writer, Key::unmetRecommends, info.unmetRecommends);
    if (info.seconds != 0)
        writer.member(Key::seconds, info.seconds);
    writer.EndObject();
}

/** Handles the events of the parser and builds the results of the wanted repository. */
class CheckHandler : public rapidjson::BaseReaderHandler<rapidjson::UTF8<>, CheckHandler>
{
public:
    CheckHandler(const QString &repository, StoredCompleteCheck *check)
        : m_repository(repository.toStdString())
        , m_check(check)
    { }

    bool hasRoot() const { return m_hasRoot; }

    bool Key(const char *text, Size size, bool /*copy*/)
    {
        m_key.assign(text, size);
        // When several members have the same name, the last one counts.
        if (m_places.back() == Place::Root && m_key == m_repository)
            *m_check = {};
        return true;
    }
    bool StartObject() { return enter(objectIn(m_places.back())); }
    bool StartArray() { return enter(arrayIn(m_places.back())); }
    bool EndArray(Size /*count*/)
    {
        m_places.pop_back();
        return true;
    }
    bool EndObject(Size /*count*/);
    bool String(const char *text, Size size, bool /*copy*/);
    bool RawNumber(const char *text, Size size, bool /*copy*/);
    bool Bool(bool value)
    {
        if (isPackage(m_places.back()) && m_key == Key::local)
            m_package.isLocal = value;
        return true;
    }

private:
    /** The type of the object or array that the parser is in. */
    enum class Place : quint8 {
        Outside,
        Root,
        Repository,
        Base,
        Architectures,
        Findings,
        Finding,
        Recommends,
        Reason,
        Step,
        StepPackage,
        Targets,
        Target,
        Ignored
    };

    const std::string m_repository;
    StoredCompleteCheck *m_check;
    StringPool m_pool;
    std::vector<Place> m_places{Place::Outside};
    std::string m_key;
    bool m_hasRoot = false;
    bool m_hasKind = false; ///< the step or the base that is being read says what it is
    bool m_makesSense = true; ///< of the reason that is being read: all its steps do
    quint64 m_number = 0; ///< of the package of m_finding
    InstallabilityInfo m_finding;
    InstallabilityStep m_step;
    NamedPackage m_package;

    static bool isPackage(Place place) { return place == Place::StepPackage || place == Place::Target; }
    bool enter(Place place)
    {
        m_places.push_back(place);
        return m_hasRoot && m_places.size() <= ResultsDocument::maximumDepth;
    }
    Place objectIn(Place outer);
    Place arrayIn(Place outer) const;
    void endFinding();
    QString *textIn(Place place);
    void setNumber(Place place, int number);
};

CheckHandler::Place CheckHandler::objectIn(Place outer)
{
    switch (outer) {
    case Place::Outside:
        m_hasRoot = true;
        return Place::Root;
    case Place::Root:
        return m_key == m_repository ? Place::Repository : Place::Ignored;
    case Place::Repository:
        m_hasKind = false;
        return m_key == Key::base ? Place::Base : m_key == Key::findings ? Place::Findings : Place::Ignored;
    case Place::Findings:
        m_number = QByteArray::fromStdString(m_key).toULongLong(nullptr, 16);
        m_finding = {};
        m_makesSense = true;
        return Place::Finding;
    case Place::Reason:
        m_step = {};
        m_hasKind = false;
        return Place::Step;
    case Place::Step:
        m_package = {};
        return m_key == Key::package ? Place::StepPackage : Place::Ignored;
    case Place::Targets:
        m_package = {};
        return Place::Target;
    default:
        return Place::Ignored;
    }
}

CheckHandler::Place CheckHandler::arrayIn(Place outer) const
{
    if (outer == Place::Base && m_key == Key::foreignArchitectures)
        return Place::Architectures;
    if (outer == Place::Finding && m_key == Key::reason)
        return Place::Reason;
    if (outer == Place::Finding && m_key == Key::unmetRecommends)
        return Place::Recommends;
    if (outer == Place::Step && m_key == Key::targets)
        return Place::Targets;
    return Place::Ignored;
}

bool CheckHandler::EndObject(Size /*count*/)
{
    const Place left = m_places.back();
    m_places.pop_back();
    if (left == Place::Finding) {
        endFinding();
    } else if (left == Place::Step) {
        m_makesSense = m_makesSense && m_hasKind;
        m_finding.reason.append(std::exchange(m_step, {}));
    } else if (left == Place::StepPackage) {
        m_step.package = std::exchange(m_package, {});
    } else if (left == Place::Target) {
        m_step.targets.append(std::exchange(m_package, {}));
    } else if (left == Place::Base && !m_hasKind) {
        m_check->record.base.kind = CompleteCheckBase::Kind(-1);
    }
    return true;
}

void CheckHandler::endFinding()
{
    // A part of a reason would say something wrong.
    if (!m_makesSense)
        m_finding.reason.clear();
    m_check->findings.insert(m_number,
                             QSharedPointer<InstallabilityInfo>::create(std::exchange(m_finding, {})));
}

QString *CheckHandler::textIn(Place place)
{
    if (place == Place::Base && m_key == Key::repository)
        return &m_check->record.base.repository;
    if (place == Place::Step)
        return m_key == Key::field ? &m_step.field : m_key == Key::relation ? &m_step.relation : nullptr;
    if (!isPackage(place))
        return nullptr;
    if (m_key == Key::name)
        return &m_package.name;
    if (m_key == Key::version)
        return &m_package.version;
    return m_key == Key::architecture ? &m_package.architecture : nullptr;
}

bool CheckHandler::String(const char *text, Size size, bool /*copy*/)
{
    const Place place = m_places.back();
    const auto bytes = [&] { return QByteArray(text, static_cast<int>(size)); };
    if (QString *const target = textIn(place); target != nullptr) {
        *target = m_pool.string({text, size});
    } else if (place == Place::Architectures) {
        m_check->record.base.foreignArchitectures.append(m_pool.string({text, size}));
    } else if (place == Place::Recommends) {
        m_finding.unmetRecommends.append(m_pool.string({text, size}));
    } else if (place == Place::Repository && m_key == Key::time) {
        m_check->record.time = QDateTime::fromString(QString::fromLatin1(bytes()), Qt::ISODate).toUTC();
    } else if (place == Place::Repository && m_key == Key::digest) {
        m_check->record.digest = bytes();
    } else if (place == Place::Repository && m_key == Key::checked) {
        const QByteArray numbers = QByteArray::fromBase64(bytes());
        m_check->checked.resize(static_cast<std::size_t>(numbers.size()) / sizeof(quint64));
        // Qt does not take a null pointer, even for no numbers.
        if (!m_check->checked.empty())
            qFromLittleEndian<quint64>(numbers.constData(),
                                       static_cast<qsizetype>(m_check->checked.size()),
                                       m_check->checked.data());
        std::sort(m_check->checked.begin(), m_check->checked.end());
    }
    return true;
}

bool CheckHandler::RawNumber(const char *text, Size size, bool /*copy*/)
{
    bool isNumber = false;
    const int number = QByteArray(text, static_cast<int>(size)).toInt(&isNumber);
    if (isNumber)
        setNumber(m_places.back(), number);
    return true;
}

void CheckHandler::setNumber(Place place, int number)
{
    if (place == Place::Base && m_key == Key::kind) {
        m_hasKind = number >= CompleteCheckBase::Nothing && number <= CompleteCheckBase::Repository;
        m_check->record.base.kind = CompleteCheckBase::Kind(number);
    } else if (place == Place::Step && m_key == Key::kind) {
        m_hasKind = number >= InstallabilityStep::Needs && number <= InstallabilityStep::Excludes;
        m_step.kind = InstallabilityStep::Kind(number);
    } else if (place == Place::Finding && m_key == Key::state) {
        if (number >= NotInstallable && number <= InstallabilityUndecided)
            m_finding.state = Installability(number);
    } else if (place == Place::Finding && m_key == Key::seconds) {
        m_finding.seconds = number;
    }
}
} // namespace

void StoredCompleteCheck::write(JsonWriter &writer) const
{
    writer.StartObject();
    writer.key(Key::base);
    writer.StartObject();
    writer.member(Key::kind, record.base.kind);
    if (!record.base.repository.isEmpty())
        writer.member(Key::repository, record.base.repository);
    if (!record.base.foreignArchitectures.isEmpty())
        writeTexts(writer, Key::foreignArchitectures, record.base.foreignArchitectures);
    writer.EndObject();
    writer.member(Key::time, record.time.toUTC().toString(Qt::ISODate));
    writer.member(Key::digest, QString::fromUtf8(record.digest));
    QByteArray numbers(static_cast<int>(checked.size() * sizeof(quint64)), '\0');
    if (!checked.empty())
        qToLittleEndian<quint64>(checked.data(), static_cast<qsizetype>(checked.size()), numbers.data());
    writer.member(Key::checked, QString::fromLatin1(numbers.toBase64()));
    writer.key(Key::findings);
    writer.StartObject();
    // In the order of their numbers, so that equal results make equal files.
    for (const quint64 number : checked) {
        const auto finding = findings.constFind(number);
        if (finding == findings.cend())
            continue;
        writer.key(QString::number(number, 16));
        writeFinding(writer, **finding);
    }
    writer.EndObject();
    writer.EndObject();
}

Outcome StoredCompleteCheck::read(QIODevice *input, const QString &repository, StoredCompleteCheck *check)
{
    *check = {};
    JsonInput stream(input);
    CheckHandler handler(repository, check);
    rapidjson::Reader reader;
    const bool parsed = !reader.Parse<jsonParseFlags>(stream, handler).IsError();
    if (stream.hasFailed())
        return Outcome::Failed;
    const CompleteCheckBase::Kind kind = check->record.base.kind;
    if (kind < CompleteCheckBase::Nothing || kind > CompleteCheckBase::Repository)
        *check = {};
    return parsed && handler.hasRoot() ? Outcome::Done : Outcome::Broken;
}
