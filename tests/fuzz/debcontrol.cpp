// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/archive/debcontrol.h"

#include "engine/archive/tarheader.h"
#include "fuzz/fuzzing.h"
#include "fuzz/targets.h"

namespace
{
QByteArray header(const char *name, int size)
{
    return QByteArray(name).leftJustified(16) + QByteArray("0").leftJustified(12)
           + QByteArray("0     0     100644  ") + QByteArray::number(size).leftJustified(10) + "`\n";
}

/** A package whose control files are packed so; its data come behind them. */
QByteArray package(const char *member, const QByteArray &packed)
{
    return "!<arch>\n" + header("debian-binary", 4) + "2.0\n" + header(member, packed.size()) + packed
           + QByteArray(packed.size() % 2, '\n');
}

std::optional<QByteArray> controlOf(const QByteArray &bytes)
{
    const Fuzzing::MemoryFile file(bytes);
    return debControl(file.name());
}
} // namespace

void FuzzTarget::debcontrol(std::string_view input)
{
    // The member alone, packed as its first bytes say, or the whole file.
    const QByteArray given(input.data(), static_cast<int>(input.size()));
    const char *const name = given.startsWith("\x1f\x8b") ? "control.tar.gz"
                             : given.startsWith(QByteArray("\xfd"
                                                           "7zXZ"))
                                 ? "control.tar.xz"
                             : given.startsWith("\x28\xb5\x2f\xfd") ? "control.tar.zst"
                                                                    : "control.tar";
    const bool isWhole = given.startsWith("!<arch>");
    const bool isTar = !isWhole && qstrcmp(name, "control.tar") == 0;
    const QByteArray plain = isTar ? Fuzzing::withRightSums(Fuzzing::expanded(input)) : given;
    const QByteArray file = isWhole ? given : package(name, plain);
    const auto control = controlOf(file);
    if (!control)
        return;
    FUZZ_RULE(control->size() <= 1 << 20 && !control->contains('\0'));
    if (isTar) {
        FUZZ_RULE(plain.contains(*control));
        // Without the end of the archive nobody knows that it is whole.
        FUZZ_RULE(!controlOf(package(name, plain.left(TarHeader::BlockSize + control->size()))));
    }
    // Neither what lies behind the member matters, nor is it read twice in two ways.
    FUZZ_RULE(controlOf(file + header("data.tar", 1) + 'x') == control);
    FUZZ_RULE(isWhole || controlOf(package("control.tar.lzma", plain)) == std::nullopt);
}
