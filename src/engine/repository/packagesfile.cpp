// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/repository/packagesfile.h"

#include "core/packagefields.h"
#include "core/trimmed.h"
#include "files/regularfile.h"

#include <QRegularExpression>

#include <cstdlib>
#include <cstring>
#include <memory>
#include <unordered_map>
#include <utility>

#include <sys/mman.h>

namespace
{
using Bytes = std::string_view;

QString decoded(Bytes text)
{
    return QString::fromUtf8(text.data(), static_cast<int>(text.size()));
}

bool startsWith(Bytes text, Bytes prefix)
{
    return text.size() >= prefix.size() && std::memcmp(text.data(), prefix.data(), prefix.size()) == 0;
}

/** Component and section for each distinct Section value, so that thousands of records share a few strings. */
class Sections
{
public:
    explicit Sections(QString indexComponent)
        : m_indexComponent(std::move(indexComponent))
    { }

    const PackageField::SectionValue &of(Bytes value)
    {
        const auto found = m_values.find(value);
        if (found != m_values.end())
            return found->second;
        return m_values.emplace(value, PackageField::splitSection(decoded(value), m_indexComponent))
            .first->second;
    }

private:
    QString m_indexComponent;
    std::unordered_map<Bytes, PackageField::SectionValue> m_values;
};

/** Collects the fields of one record. A record ends at the next Package line. */
class RecordBuilder
{
public:
    RecordBuilder(ControlText::Owner owner, IndexPlace place, QString root)
        : m_owner(std::move(owner))
        , m_place(std::move(place))
        , m_root(std::move(root))
        , m_sections(m_place.component)
    { }

    void begin(const char *start, Bytes name)
    {
        m_start = start;
        m_name = name;
        m_version = {};
        m_section = {};
    }

    void takeVersion(Bytes value)
    {
        if (m_version.data() == nullptr)
            m_version = value;
    }

    void takeSection(Bytes value)
    {
        if (m_section.data() == nullptr)
            m_section = value;
    }

    void end(const char *end)
    {
        if (m_start == nullptr)
            return;
        auto record = QSharedPointer<PackageInfo>::create();
        const auto &section = m_sections.of(m_section);
        record->name = decoded(m_name);
        record->version = decoded(m_version);
        record->component = section.component;
        record->section = section.section;
        record->indexComponent = m_place.component;
        record->architecture = m_place.architecture;
        record->type = m_place.type;
        record->root = m_root;
        record->control = ControlText(m_owner, Bytes(m_start, static_cast<std::size_t>(end - m_start)));
        m_records.append(record);
        m_start = nullptr;
    }

    QList<PackageInfoPtr> records() const { return m_records; }

private:
    ControlText::Owner m_owner;
    IndexPlace m_place;
    QString m_root;
    Sections m_sections;
    const char *m_start = nullptr;
    Bytes m_name;
    Bytes m_version;
    Bytes m_section;
    QList<PackageInfoPtr> m_records;
};

/**
 * The contents of a file. It is not mapped, because a mapping would crash the program when somebody truncates the file.
 */
class FileBytes
{
public:
    explicit FileBytes(const QString &fileName)
    {
        RegularFile file(fileName);
        if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered) || file.size() <= 0)
            return;
        const qint64 size = file.size();
        // Getting the memory for a large index in small pages would take longer than reading it.
        constexpr std::size_t HugePage = 2U << 20;
        const std::size_t room = (static_cast<std::size_t>(size) / HugePage + 1) * HugePage;
        const bool isLarge = room > 2 * HugePage;
        m_data.reset(static_cast<char *>(isLarge ? std::aligned_alloc(HugePage, room) : std::malloc(room)));
        if (!m_data)
            return;
        if (isLarge)
            ::madvise(m_data.get(), room, MADV_HUGEPAGE);
        m_size = static_cast<std::size_t>(qMax<qint64>(file.read(m_data.get(), size), 0));
    }

    Bytes bytes() const { return m_size == 0 ? Bytes() : Bytes(m_data.get(), m_size); }

private:
    struct Free
    {
        void operator()(char *data) const { std::free(data); }
    };
    std::unique_ptr<char, Free> m_data;
    std::size_t m_size = 0;
};
} // namespace

std::optional<IndexPlace> indexPlace(const QString &relativePath)
{
    static const QRegularExpression expression(QRegularExpression::anchoredPattern(
        QStringLiteral("(?<comp>.+?)/(?<udeb>debian-installer/)?binary-(?<arch>[^/]+)/Packages")));
    const auto match = expression.match(relativePath);
    if (!match.hasMatch())
        return std::nullopt;
    return IndexPlace{match.captured(QStringLiteral("comp")),
                      match.captured(QStringLiteral("arch")),
                      match.captured(QStringLiteral("udeb")).isEmpty() ? PackageType::Deb
                                                                       : PackageType::Udeb};
}

QList<PackageInfoPtr> parsePackages(const ControlText::Owner &owner,
                                    std::string_view bytes,
                                    const IndexPlace &place,
                                    const QString &root)
{
    RecordBuilder builder(owner, place, root);
    const char *line = bytes.data();
    const char *const end = bytes.data() + bytes.size();
    while (line < end) {
        const auto *newline
            = static_cast<const char *>(std::memchr(line, '\n', static_cast<std::size_t>(end - line)));
        const char *const lineEnd = newline == nullptr ? end : newline;
        const Bytes text(line, static_cast<std::size_t>(lineEnd - line));
        switch (text.empty() ? '\0' : text.front()) {
        case 'P':
            if (startsWith(text, "Package:")) {
                builder.end(line);
                builder.begin(line, trimmed(text.substr(8)));
            }
            break;
        case 'V':
            if (startsWith(text, "Version:"))
                builder.takeVersion(trimmed(text.substr(8)));
            break;
        case 'S':
            if (startsWith(text, "Section:"))
                builder.takeSection(trimmed(text.substr(8)));
            break;
        default:
            break;
        }
        line = newline == nullptr ? end : newline + 1;
    }
    builder.end(end);
    return builder.records();
}

QList<PackageInfoPtr> readPackagesFile(const QString &fileName, const IndexPlace &place, const QString &root)
{
    const auto file = std::make_shared<const FileBytes>(fileName);
    return parsePackages(file, file->bytes(), place, root);
}
