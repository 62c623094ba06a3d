// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/usage.h"

#include "cli/commandtable.h"

#include <QCoreApplication>

namespace
{
const QLatin1String Program("velt-admin-repo-cli");

QString tr(const char *text)
{
    return QCoreApplication::translate("cli", text);
}

QString optionLine(const CommandOption &option)
{
    constexpr int Width = 26;
    const QString value
        = option.value == nullptr ? QString() : QLatin1Char(' ') + QLatin1String(option.value);
    const QString word = QStringLiteral("--%1%2").arg(QLatin1String(option.name), value);
    return QStringLiteral("  %1 %2\n")
        .arg(word.leftJustified(Width), CommandTable::translated(option.summary));
}

QString optionLines(const QVector<CommandOption> &options)
{
    QString text;
    for (const CommandOption &option : options)
        text += optionLine(option);
    return text;
}

QString words(const QVector<CommandOption> &options)
{
    QStringList words;
    for (const CommandOption &option : options)
        words.append(QLatin1String("--") + QLatin1String(option.name));
    return words.join(QLatin1Char(' '));
}

/** Whether the operand at this place is a file or a folder, for bash. */
QString bashCase(const CommandDescription &command)
{
    const QVector<CommandOption> options = command.options + CommandTable::commonOptions();
    QString text = QStringLiteral("    %1) options='%2'").arg(QLatin1String(command.name), words(options));
    const bool takesFolder = command.first == Operand::Repository;
    const bool takesFiles = command.others == Operand::File || command.first == Operand::File;
    text += QStringLiteral(" first=%1 others=%2")
                .arg(takesFolder ? QStringLiteral("-d") : QString(),
                     takesFiles ? QStringLiteral("-f") : QString());
    return text + QLatin1String(" ;;\n");
}

QString bashValues()
{
    QString text;
    QStringList seen;
    for (const CommandDescription &command : CommandTable::commands()) {
        for (const CommandOption &option : command.options) {
            const QString name = QLatin1String(option.name);
            if (option.choices == nullptr || seen.contains(name))
                continue;
            seen.append(name);
            text += QStringLiteral(
                        "    --%1) mapfile -t COMPREPLY < <(compgen -W '%2' -- \"$word\"); return ;;\n")
                        .arg(name,
                             QString::fromLatin1(option.choices).replace(QLatin1Char('|'), QLatin1Char(' ')));
        }
    }
    return text;
}

QString bash()
{
    QStringList names;
    QString cases;
    for (const CommandDescription &command : CommandTable::commands()) {
        names.append(QLatin1String(command.name));
        cases += bashCase(command);
    }
    return QStringLiteral(R"(# bash completion of velt-admin-repo-cli
_velt_admin_repo_cli() {
    local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD-1]} options first others
    if [ "$COMP_CWORD" -eq 1 ]; then
        mapfile -t COMPREPLY < <(compgen -W '%1 --help --version' -- "$word")
        return
    fi
    case $before in
%2    esac
    case ${COMP_WORDS[1]} in
%3    *) return ;;
    esac
    compopt -o filenames
    if [[ $word == -* ]]; then
        compopt +o filenames
        mapfile -t COMPREPLY < <(compgen -W "$options --help" -- "$word")
    elif [ "$COMP_CWORD" -eq 2 ]; then
        [ -z "$first" ] || mapfile -t COMPREPLY < <(compgen "$first" -- "$word")
    elif [ -n "$others" ]; then
        mapfile -t COMPREPLY < <(compgen "$others" -- "$word")
    fi
}
complete -F _velt_admin_repo_cli velt-admin-repo-cli
)")
        .arg(names.join(QLatin1Char(' ')), bashValues(), cases);
}

/** For the texts in brackets of zsh's _arguments and _describe. */
QString escapedForZsh(const char *text)
{
    QString escaped = QString::fromUtf8(text);
    escaped.replace(QLatin1Char('\''), QLatin1String("'\\''"));
    for (const char c : {'\\', '[', ']', ':'})
        escaped.replace(QLatin1Char(c), QLatin1Char('\\') + QLatin1Char(c));
    return escaped;
}

QString zshOptions(const QVector<CommandOption> &options)
{
    QString text;
    for (const CommandOption &option : options) {
        QString value;
        if (option.choices != nullptr)
            value = QStringLiteral(":value:(%1)")
                        .arg(QString::fromLatin1(option.choices).replace(QLatin1Char('|'), QLatin1Char(' ')));
        else if (option.value != nullptr)
            value = QStringLiteral(":%1:").arg(QString::fromLatin1(option.value).toLower());
        text += QStringLiteral(" \\\n            '--%1[%2]%3'")
                    .arg(QLatin1String(option.name), escapedForZsh(option.summary), value);
    }
    return text;
}

QString zsh()
{
    QString names;
    QString cases;
    for (const CommandDescription &command : CommandTable::commands()) {
        names += QStringLiteral("        '%1:%2'\n")
                     .arg(QLatin1String(command.name), escapedForZsh(command.summary));
        cases += QStringLiteral("    %1)\n        _arguments -S").arg(QLatin1String(command.name));
        cases += zshOptions(command.options + CommandTable::commonOptions());
        if (command.first == Operand::Repository)
            cases += QLatin1String(" \\\n            '1:repository:_files -/'");
        if (command.others == Operand::File)
            cases += QLatin1String(" \\\n            '*:file:_files'");
        cases += QLatin1String("\n        ;;\n");
    }
    return QStringLiteral(R"(#compdef velt-admin-repo-cli
local -a commands
commands=(
%1)
if ((CURRENT == 2)); then
    _describe command commands
    return
fi
local command=$words[2]
shift words
((CURRENT--))
case $command in
%2esac
)")
        .arg(names, cases);
}
} // namespace

QString Usage::ofProgram()
{
    constexpr int Width = 14;
    QString text = tr(QT_TRANSLATE_NOOP("cli", "Administers local repositories of Debian packages."))
                   + QLatin1String("\n\n");
    text += tr(QT_TRANSLATE_NOOP("cli", "Usage: %1 COMMAND ...")).arg(Program) + QLatin1String("\n\n");
    for (const CommandDescription &command : CommandTable::commands())
        text += QStringLiteral("  %1 %2\n")
                    .arg(QString::fromLatin1(command.name).leftJustified(Width),
                         CommandTable::translated(command.summary));
    text += QLatin1Char('\n') + tr(QT_TRANSLATE_NOOP("cli", "Options of all commands:")) + QLatin1Char('\n');
    text += optionLines(CommandTable::commonOptions());
    return text + QLatin1Char('\n')
           + tr(QT_TRANSLATE_NOOP("cli", "%1 COMMAND --help explains a command.")).arg(Program)
           + QLatin1Char('\n');
}

QString Usage::ofCommand(const CommandDescription &command)
{
    QString text
        = tr(QT_TRANSLATE_NOOP("cli", "Usage: %1")).arg(Program + QLatin1Char(' ') + command.synopsis());
    text += QLatin1String("\n\n") + CommandTable::translated(command.summary) + QLatin1String("\n\n");
    if (!command.options.isEmpty())
        text += tr(QT_TRANSLATE_NOOP("cli", "Options:")) + QLatin1Char('\n') + optionLines(command.options)
                + QLatin1Char('\n');
    return text + tr(QT_TRANSLATE_NOOP("cli", "Options of all commands:")) + QLatin1Char('\n')
           + optionLines(CommandTable::commonOptions());
}

QString Usage::completion(const QString &shell)
{
    if (shell == QLatin1String("bash"))
        return bash();
    return shell == QLatin1String("zsh") ? zsh() : QString();
}
