// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/usage.h"

#include "cli/commandtable.h"

#include <QCoreApplication>

namespace
{
const QLatin1String Program("velt-admin-repo-cli");

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

/** The word for what an operand is, in the script for bash. */
QLatin1String bashKind(Operand operand)
{
    switch (operand) {
    case Operand::None:
        break;
    case Operand::Repository:
        return QLatin1String("folder");
    case Operand::File:
        return QLatin1String("file");
    case Operand::PackageName:
        return QLatin1String("package");
    case Operand::RepositoryAndNames:
        return QLatin1String("copied");
    case Operand::Port:
        return QLatin1String("port");
    }
    return {};
}

QString bashCase(const CommandDescription &command)
{
    const QVector<CommandOption> options = command.options + CommandTable::commonOptions();
    return QStringLiteral("    %1) options='%2' first='%3' others='%4' ;;\n")
        .arg(QLatin1String(command.name), words(options), bashKind(command.first), bashKind(command.others));
}

/** What follows an option that has a value: one of its choices, or a word that only the user knows. */
QString bashValues()
{
    QString text;
    QStringList unknown;
    QStringList seen;
    const auto addValues = [&](const QVector<CommandOption> &options) {
        for (const CommandOption &option : options) {
            const QString word = QLatin1String("--") + QLatin1String(option.name);
            if (option.value == nullptr || seen.contains(word))
                continue;
            seen.append(word);
            if (option.choices == nullptr)
                unknown.append(word);
            else
                text += QStringLiteral(
                            "    %1) mapfile -t COMPREPLY < <(compgen -W '%2' -- \"$word\"); return ;;\n")
                            .arg(word,
                                 QString::fromLatin1(option.choices)
                                     .replace(QLatin1Char('|'), QLatin1Char(' ')));
        }
    };
    for (const CommandDescription &command : CommandTable::commands())
        addValues(command.options);
    addValues(CommandTable::commonOptions());
    return text + QStringLiteral("    %1) return ;;\n").arg(unknown.join(QLatin1Char('|')));
}

QString bash()
{
    QStringList names;
    QString cases;
    for (const CommandDescription &command : CommandTable::commands()) {
        names.append(QLatin1String(command.name));
        cases += bashCase(command);
    }
    // The names of packages come from others: nothing may expand them.
    return QStringLiteral(R"(# bash completion of velt-admin-repo-cli
_velt_admin_repo_cli() {
    local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD-1]} options first others kind repository
    if [ "$COMP_CWORD" -eq 1 ]; then
        mapfile -t COMPREPLY < <(compgen -W '%1 --help --version' -- "$word")
        return
    fi
    case $before in
%2    esac
    case ${COMP_WORDS[1]} in
%3    *) return ;;
    esac
    if [[ $word == -* ]]; then
        mapfile -t COMPREPLY < <(compgen -W "$options --help" -- "$word")
        return
    fi
    if [ "$COMP_CWORD" -eq 2 ]; then kind=$first; else kind=$others; fi
    if [ "$kind" = copied ]; then
        if [ "$COMP_CWORD" -eq 3 ]; then kind=folder; else kind=package; fi
    fi
    case $kind in
    folder)
        compopt -o filenames
        mapfile -t COMPREPLY < <(compgen -d -- "$word") ;;
    file)
        compopt -o filenames
        mapfile -t COMPREPLY < <(compgen -f -- "$word") ;;
    port)
        compopt -o filenames
        mapfile -t COMPREPLY < <(compgen -d -- "$word"
            velt-admin-repo-cli published 2>/dev/null | cut -d ' ' -f 2 | grep "^${word//[!0-9]/x}") ;;
    package)
        repository=${COMP_WORDS[2]//[\\\"\']/}
        mapfile -t COMPREPLY < <(velt-admin-repo-cli list "${repository/#~\//$HOME/}" "$word*" 2>/dev/null |
            cut -d ' ' -f 1 | LC_ALL=C sort -u) ;;
    esac
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
        else if (command.first == Operand::Port)
            cases += QLatin1String(" \\\n            '1:publication:_velt_admin_repo_cli_publications'");
        if (command.others == Operand::RepositoryAndNames)
            cases += QLatin1String(" \\\n            '2:repository:_files -/'");
        if (command.others == Operand::File)
            cases += QLatin1String(" \\\n            '*:file:_files'");
        else if (command.others == Operand::PackageName || command.others == Operand::RepositoryAndNames)
            cases += QLatin1String(" \\\n            '*:package:_velt_admin_repo_cli_packages'");
        cases += QLatin1String("\n        ;;\n");
    }
    return QStringLiteral(R"zsh(#compdef velt-admin-repo-cli
_velt_admin_repo_cli_packages() {
    local -a names
    local repository=${(Q)words[2]}
    names=(${(uf)"$(velt-admin-repo-cli list ${repository/#\~\//$HOME/} "$PREFIX*" 2>/dev/null | cut -d ' ' -f 1)"})
    compadd -a names
}
_velt_admin_repo_cli_publications() {
    local -a ports
    ports=(${(uf)"$(velt-admin-repo-cli published 2>/dev/null | cut -d ' ' -f 2)"})
    compadd -a ports
    _files -/
}
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
)zsh")
        .arg(names, cases);
}
} // namespace

QString Usage::ofProgram()
{
    constexpr int Width = 14;
    QString text = QCoreApplication::translate("cli", "Administers local repositories of Debian packages.")
                   + QLatin1String("\n\n");
    text += QCoreApplication::translate("cli", "Usage: %1 COMMAND ...").arg(Program) + QLatin1String("\n\n");
    for (const CommandDescription &command : CommandTable::commands())
        text += QStringLiteral("  %1 %2\n")
                    .arg(QString::fromLatin1(command.name).leftJustified(Width),
                         CommandTable::translated(command.summary));
    text += QLatin1Char('\n') + QCoreApplication::translate("cli", "Options of all commands:")
            + QLatin1Char('\n');
    text += optionLines(CommandTable::commonOptions());
    return text + QLatin1Char('\n')
           + QCoreApplication::translate("cli", "%1 COMMAND --help explains a command.").arg(Program)
           + QLatin1Char('\n');
}

QString Usage::ofCommand(const CommandDescription &command)
{
    QString text = QCoreApplication::translate("cli", "Usage: %1")
                       .arg(Program + QLatin1Char(' ') + command.synopsis());
    text += QLatin1String("\n\n") + CommandTable::translated(command.summary) + QLatin1String("\n\n");
    if (!command.options.isEmpty())
        text += QCoreApplication::translate("cli", "Options:") + QLatin1Char('\n')
                + optionLines(command.options) + QLatin1Char('\n');
    return text + QCoreApplication::translate("cli", "Options of all commands:") + QLatin1Char('\n')
           + optionLines(CommandTable::commonOptions());
}

QString Usage::completion(const QString &shell)
{
    if (shell == QLatin1String("bash"))
        return bash();
    return shell == QLatin1String("zsh") ? zsh() : QString();
}
