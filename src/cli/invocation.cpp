// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/invocation.h"

#include "core/countof.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>

namespace
{
void addOptions(QCommandLineParser *parser, const QVector<CommandOption> &options)
{
    for (const CommandOption &option : options)
        parser->addOption(
            QCommandLineOption(QLatin1String(option.name), QString(), QLatin1String(option.value)));
}

/** Why the value is none of the option's; empty when it is. */
QString refusal(const CommandOption &option, const QStringList &values)
{
    const QStringList choices
        = QString::fromLatin1(option.choices).split(QLatin1Char('|'), Qt::SkipEmptyParts);
    for (const QString &value : values) {
        bool isNumber = false;
        value.toUInt(&isNumber);
        if (QLatin1String(option.value) == QLatin1String("SECONDS") && !isNumber)
            return QCoreApplication::translate("cli", "--%1 needs a number of seconds, and not %2")
                .arg(QLatin1String(option.name), value);
        if (!choices.isEmpty() && !choices.contains(value))
            return QCoreApplication::translate("cli", "--%1 cannot be %2; it can be: %3")
                .arg(QLatin1String(option.name), value, choices.join(QLatin1String(", ")));
    }
    return {};
}
} // namespace

Invocation Invocation::parse(const QStringList &arguments)
{
    Invocation result;
    const auto isOption = [](const QString &word) { return word.startsWith(QLatin1Char('-')); };
    // Before the command only these two options have a meaning.
    const QString first = arguments.value(0);
    result.wantsVersion = first == QLatin1String("--version") || first == QLatin1String("-v");
    result.wantsHelp
        = first == QLatin1String("--help") || first == QLatin1String("-h") || first == QLatin1String("help");
    const QString name = result.wantsHelp ? arguments.value(1) : first;
    if (result.wantsVersion || (result.wantsHelp && (name.isEmpty() || isOption(name))))
        return result;
    result.command = CommandTable::find(name);
    if (result.command == nullptr) {
        result.error = name.isEmpty()
                           ? QCoreApplication::translate("cli", "A command is missing.")
                           : QCoreApplication::translate("cli", "There is no command %1.").arg(name);
        return result;
    }
    if (result.wantsHelp)
        return result;

    QCommandLineParser parser;
    parser.addOption({{QStringLiteral("h"), QStringLiteral("help")}, QString()});
    const QVector<CommandOption> options = CommandTable::commonOptions() + result.command->options;
    addOptions(&parser, options);
    // The parser takes the first word for the name of the program.
    const bool isRead = parser.parse(arguments);
    result.wantsHelp = parser.isSet(QStringLiteral("help"));
    if (result.wantsHelp)
        return result;
    result.operands = parser.positionalArguments();
    for (const CommandOption &option : options) {
        const QString word = QLatin1String(option.name);
        if (parser.isSet(word))
            result.options.insert(word, parser.values(word));
        if (result.error.isEmpty())
            result.error = refusal(option, parser.values(word));
    }
    const int count = countOf(result.operands);
    if (!isRead)
        result.error = parser.errorText();
    else if (count < result.command->fewest || (result.command->most >= 0 && count > result.command->most)
             || result.operands.contains(QString()))
        result.error
            = QCoreApplication::translate("cli", "The command is: %1").arg(result.command->synopsis());
    return result;
}

QString Invocation::repository() const
{
    return QDir::cleanPath(QDir::current().absoluteFilePath(operands.value(0)));
}
