// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/widgets/sections.h"

#include <QCoreApplication>
#include <QHash>

#include <array>

namespace
{
struct Section
{
    const char *code;
    const char *name;
};

constexpr std::array<Section, 63> Table = {{
    {"admin", QT_TRANSLATE_NOOP("Sections", "System Administration")},
    {"base", QT_TRANSLATE_NOOP("Sections", "Base System")},
    {"cli-mono", QT_TRANSLATE_NOOP("Sections", "Mono/CLI Infrastructure")},
    {"comm", QT_TRANSLATE_NOOP("Sections", "Communication")},
    {"default", QT_TRANSLATE_NOOP("Sections", "Default")},
    {"database", QT_TRANSLATE_NOOP("Sections", "Databases")},
    {"devel", QT_TRANSLATE_NOOP("Sections", "Development")},
    {"doc", QT_TRANSLATE_NOOP("Sections", "Documentation")},
    {"debug", QT_TRANSLATE_NOOP("Sections", "Debug")},
    {"editors", QT_TRANSLATE_NOOP("Sections", "Editors")},
    {"electronics", QT_TRANSLATE_NOOP("Sections", "Electronics")},
    {"embedded", QT_TRANSLATE_NOOP("Sections", "Embedded Devices")},
    {"fonts", QT_TRANSLATE_NOOP("Sections", "Fonts")},
    {"games", QT_TRANSLATE_NOOP("Sections", "Games and Amusement")},
    {"gnome", QT_TRANSLATE_NOOP("Sections", "GNOME Desktop Environment")},
    {"graphics", QT_TRANSLATE_NOOP("Sections", "Graphics")},
    {"gnu-r", QT_TRANSLATE_NOOP("Sections", "GNU R statistical system")},
    {"gnustep", QT_TRANSLATE_NOOP("Sections", "Gnustep Desktop Environment")},
    {"hamradio", QT_TRANSLATE_NOOP("Sections", "Amateur Radio")},
    {"haskell", QT_TRANSLATE_NOOP("Sections", "Haskell Programming Language")},
    {"httpd", QT_TRANSLATE_NOOP("Sections", "Web servers")},
    {"interpreters", QT_TRANSLATE_NOOP("Sections", "Interpreted Computer Languages")},
    {"java", QT_TRANSLATE_NOOP("Sections", "Java Programming Language")},
    {"KDE", QT_TRANSLATE_NOOP("Sections", "KDE Desktop Environment")},
    {"kernel", QT_TRANSLATE_NOOP("Sections", "Kernel and modules")},
    {"libdevel", QT_TRANSLATE_NOOP("Sections", "Libraries - Development")},
    {"libs", QT_TRANSLATE_NOOP("Sections", "Libraries")},
    {"lisp", QT_TRANSLATE_NOOP("Sections", "Lisp Programming Language")},
    {"localization", QT_TRANSLATE_NOOP("Sections", "Localization")},
    {"mail", QT_TRANSLATE_NOOP("Sections", "Email")},
    {"math", QT_TRANSLATE_NOOP("Sections", "Mathematics")},
    {"misc", QT_TRANSLATE_NOOP("Sections", "Miscellaneous")},
    {"net", QT_TRANSLATE_NOOP("Sections", "Networking")},
    {"news", QT_TRANSLATE_NOOP("Sections", "Newsgroup")},
    {"ocaml", QT_TRANSLATE_NOOP("Sections", "OCaml Programming Language")},
    {"oldlibs", QT_TRANSLATE_NOOP("Sections", "Libraries - Old")},
    {"otherosfs", QT_TRANSLATE_NOOP("Sections", "Cross Platform")},
    {"perl", QT_TRANSLATE_NOOP("Sections", "Perl Programming Language")},
    {"php", QT_TRANSLATE_NOOP("Sections", "PHP Programming Language")},
    {"python", QT_TRANSLATE_NOOP("Sections", "Python Programming Language")},
    {"ruby", QT_TRANSLATE_NOOP("Sections", "Ruby Programming Language")},
    {"science", QT_TRANSLATE_NOOP("Sections", "Science")},
    {"shells", QT_TRANSLATE_NOOP("Sections", "Shells")},
    {"sound", QT_TRANSLATE_NOOP("Sections", "Multimedia")},
    {"task", QT_TRANSLATE_NOOP("Sections", "Tasks")},
    {"tex", QT_TRANSLATE_NOOP("Sections", "TeX Authoring")},
    {"text", QT_TRANSLATE_NOOP("Sections", "Word Processing")},
    {"utils", QT_TRANSLATE_NOOP("Sections", "Utilities")},
    {"vcs", QT_TRANSLATE_NOOP("Sections", "Version Control Systems")},
    {"video", QT_TRANSLATE_NOOP("Sections", "Video software")},
    {"www", QT_TRANSLATE_NOOP("Sections", "World Wide Web")},
    {"x11", QT_TRANSLATE_NOOP("Sections", "Miscellaneous  - Graphical")},
    {"xfce", QT_TRANSLATE_NOOP("Sections", "Xfce Desktop Environment")},
    {"zope", QT_TRANSLATE_NOOP("Sections", "Zope/Plone Environment")},
    {"unknown", QT_TRANSLATE_NOOP("Sections", "Unknown")},
    {"alien", QT_TRANSLATE_NOOP("Sections", "Converted From RPM by Alien")},
    {"translations", QT_TRANSLATE_NOOP("Sections", "Internationalization and localization")},
    {"metapackages", QT_TRANSLATE_NOOP("Sections", "Meta Packages")},
    {"education", QT_TRANSLATE_NOOP("Sections", "Education")},
    {"introspection", QT_TRANSLATE_NOOP("Sections", "GObject Introspection data")},
    {"non-US", QT_TRANSLATE_NOOP("Sections", "Restricted On Export")},
    {"nonfree", QT_TRANSLATE_NOOP("Sections", "non free")},
    {"contrib", QT_TRANSLATE_NOOP("Sections", "contrib")},
}};

const char *sourceName(const QString &code)
{
    static const QHash<QString, const char *> names = [] {
        QHash<QString, const char *> byCode;
        for (const Section &section : Table)
            byCode.insert(QString::fromLatin1(section.code), section.name);
        return byCode;
    }();
    return names.value(code);
}
} // namespace

QString Sections::displayName(const QString &code)
{
    const char *name = sourceName(code);
    return name ? QCoreApplication::translate("Sections", name) : code;
}

QString Sections::nameWithCode(const QString &code)
{
    return sourceName(code) ? QStringLiteral("%1 (%2)").arg(displayName(code), code) : code;
}
