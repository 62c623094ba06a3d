// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/testkeys.h"

#include "support/literals.h"
#include "support/testenvironment.h"

#include <QProcess>

QString TestKeys::gpg(const QStringList &arguments, const QByteArray &input)
{
    QProcess process;
    process.start("gpg"_s, "--batch|--no-tty|--pinentry-mode|loopback"_list + arguments);
    process.write(input);
    process.closeWriteChannel();
    process.waitForFinished(-1);
    if (process.exitCode() != 0)
        qFatal("gpg: %s", process.readAllStandardError().constData());
    return QString::fromUtf8(process.readAllStandardOutput());
}

QString TestKeys::make(const QString &userId,
                       const QString &usage,
                       const QString &expire,
                       const QString &passphrase,
                       const QStringList &options)
{
    const QString status
        = gpg(options
              + QStringList{"--status-fd"_s, "1"_s, "--passphrase"_s, passphrase, "--quick-gen-key"_s, userId}
              + QStringList{"ed25519"_s, usage, expire});
    const int at = status.indexOf("KEY_CREATED P "_s);
    return status.mid(at + 14, 40);
}

QString TestKeys::makeExpired(const QString &userId)
{
    return make(userId, "sign"_s, "1d"_s, QString(), {"--faked-system-time"_s, "20200101T000000"_s});
}

QString TestKeys::makeRevoked(const QString &userId)
{
    QString key = make(userId);
    // gpg puts a colon into the certificate, so that nobody imports it by mistake.
    const QString file = qEnvironmentVariable("GNUPGHOME") + "/openpgp-revocs.d/"_s + key + ".rev"_s;
    gpg({"--import"_s}, readFile(file).replace("\n:---", "\n---"));
    return key;
}

QString TestKeys::text(const QString &userId, const QString &fingerprint)
{
    return "%1 [%2]"_s.arg(userId, fingerprint.right(8));
}

bool TestKeys::verifies(const QString &package, const QString &fingerprint)
{
    const QTemporaryDir folder("/tmp/vdXXXXXX"_s);
    const QString required = "<Required Type=\"origin\" File=\"debsig.gpg\" id=\"%1\"/>"_s.arg(fingerprint);
    writeFile(folder.filePath("policies/%1/any.pol"_s.arg(fingerprint)),
              "<?xml version=\"1.0\"?>\n"
              "<!DOCTYPE Policy SYSTEM \"https://www.debian.org/debsig/1.0/policy.dtd\">\n"
              "<Policy xmlns=\"https://www.debian.org/debsig/1.0/\"><Origin Name=\"x\" id=\"%1\" "
              "Description=\"x\"/><Selection>%2</Selection><Verification MinOptional=\"0\">%2"
              "</Verification></Policy>\n"_s.arg(fingerprint, required)
                  .toUtf8());
    runShell("mkdir -p keys/%1; gpg -q --batch -o keys/%1/debsig.gpg --export %1"_s.arg(fingerprint),
             folder.path());
    const QStringList places{
        "--policies-dir"_s, folder.filePath("policies"_s), "--keyrings-dir"_s, folder.filePath("keys"_s)};
    return QProcess::execute("debsig-verify"_s, "-q"_list + places + QStringList{package}) == 0;
}
