// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/terminal/console.h"

#include <QCoreApplication>
#include <QJsonDocument>
#include <QTextStream>

#include <cerrno>
#include <cstdio>
#include <cstring>

#include <poll.h>
#include <unistd.h>

namespace
{
void print(std::FILE *stream, const QByteArray &bytes)
{
    std::fwrite(bytes.constData(), 1, static_cast<std::size_t>(bytes.size()), stream);
}

/** The texts of other programs may hold what a terminal would obey. */
QByteArray shown(const QString &text)
{
    QString plain = text;
    for (QChar &c : plain) {
        if (c.category() == QChar::Other_Control && c != QLatin1Char('\n') && c != QLatin1Char('\t'))
            c = QChar::ReplacementCharacter;
    }
    return plain.toLocal8Bit();
}

QByteArray json(const QJsonObject &object)
{
    return QJsonDocument(object).toJson(QJsonDocument::Compact) + '\n';
}
} // namespace

Console::Console(const Style &style)
    : m_style(style)
    , m_isTerminal(::isatty(STDIN_FILENO) == 1 && ::isatty(STDERR_FILENO) == 1)
{ }

Console::~Console()
{
    endProgress();
}

void Console::line(const QString &text)
{
    if (m_style.isJson)
        return;
    endProgress();
    print(stdout, shown(text) + '\n');
}

void Console::object(const QJsonObject &result)
{
    if (m_style.isJson)
        print(stdout, json(result));
}

void Console::write(const QByteArray &bytes)
{
    print(stdout, bytes);
}

bool Console::flush()
{
    const bool isFlushed = std::fflush(stdout) == 0;
    const int reason = errno;
    if (isFlushed && std::ferror(stdout) == 0)
        return true;
    error(QStringLiteral("output"),
          QCoreApplication::translate("cli", "The result could not be written."),
          isFlushed ? QString() : QString::fromLocal8Bit(std::strerror(reason)));
    return false;
}

void Console::remark(const QString &text)
{
    if (!m_style.isQuiet && !m_style.isJson)
        say(text);
}

void Console::error(const QString &code, const QString &text, const QString &details, const QString &file)
{
    if (!m_style.isJson) {
        say(details.isEmpty() ? text : text + QLatin1Char('\n') + details);
        return;
    }
    QJsonObject error{{QStringLiteral("code"), code}, {QStringLiteral("text"), text}};
    if (!details.isEmpty())
        error.insert(QStringLiteral("details"), details);
    error.insert(QStringLiteral("file"), file.isEmpty() ? QJsonValue() : QJsonValue(file));
    endProgress();
    print(stderr, json({{QStringLiteral("error"), error}}));
}

void Console::progress(const QString &job, int percent)
{
    if (!m_isTerminal || m_style.isQuiet || m_style.isJson || percent == m_shown)
        return;
    m_shown = percent;
    print(stderr, "\r\033[K" + shown(job) + ' ' + QByteArray::number(percent) + " %");
    std::fflush(stderr);
}

void Console::endProgress()
{
    if (m_shown >= 0)
        print(stderr, "\r\033[K");
    m_shown = -1;
}

bool Console::ask(const Question &question, const std::function<bool()> &isStopped)
{
    const QString option = QLatin1String(question.option);
    if (isStopped())
        return question.safeAnswer;
    if (!option.isEmpty() && m_style.answered.contains(option))
        return true;
    if (m_style.isJson) {
        error(QStringLiteral("question"), question.text);
        return question.safeAnswer;
    }
    say(question.title.isEmpty() ? question.text : question.title + QLatin1Char('\n') + question.text);
    if (!m_isTerminal) {
        QString answer
            = question.safeAnswer
                  ? QCoreApplication::translate("cli", "The answer is yes, since nobody is there to ask.")
                  : QCoreApplication::translate("cli", "The answer is no, since nobody is there to ask.");
        if (!question.safeAnswer && !option.isEmpty())
            answer += QLatin1Char(' ')
                      + QCoreApplication::translate("cli", "The option %1 answers with yes.")
                            .arg(QLatin1String("--") + option);
        say(answer);
        return question.safeAnswer;
    }
    print(stderr, shown(QCoreApplication::translate("cli", "Yes or no? [y/N]")) + ' ');
    std::fflush(stderr);
    constexpr int Interval = 100; // milliseconds
    pollfd input{STDIN_FILENO, POLLIN, 0};
    while (!isStopped()) {
        if (::poll(&input, 1, Interval) <= 0)
            continue;
        QByteArray answer(64, '\0');
        const ssize_t length = ::read(STDIN_FILENO, answer.data(), static_cast<std::size_t>(answer.size()));
        if (length <= 0)
            return question.safeAnswer;
        const QString word
            = QString::fromLocal8Bit(answer.left(static_cast<int>(length))).trimmed().toLower();
        const QString yes = QCoreApplication::translate("cli", "yes", "answer to a question");
        return !word.isEmpty() && (yes.startsWith(word) || QLatin1String("yes").startsWith(word));
    }
    return question.safeAnswer;
}

void Console::say(const QString &text)
{
    endProgress();
    print(stderr, shown(text) + '\n');
    std::fflush(stderr);
}
