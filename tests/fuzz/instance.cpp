// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/instanceframes.h"
#include "fuzz/fuzzing.h"
#include "fuzz/targets.h"

#include <QBuffer>

void FuzzTarget::instance(std::string_view input)
{
    const QByteArray bytes = Fuzzing::expanded(input);
    QBuffer whole;
    whole.setData(bytes);
    FUZZ_RULE(whole.open(QIODevice::ReadOnly));
    const InstanceFrames::Taken taken = InstanceFrames::take(whole);
    QByteArray sent;
    for (const QString &message : taken.messages) {
        FUZZ_RULE(!message.contains(QChar::Null));
        sent += InstanceFrames::frame(message);
    }
    // The taken messages must be exactly what an instance would have sent, without an additional byte.
    FUZZ_RULE(bytes.startsWith(sent));
    FUZZ_RULE(!taken.fault.isEmpty() || whole.pos() == sent.size());
    const QByteArray rest = bytes.mid(sent.size());
    const qint64 claimed
        = rest.size() < InstanceFrames::HeaderSize
              ? 0
              : qint64(rest.left(InstanceFrames::HeaderSize).toHex().toLongLong(nullptr, 16));
    if (taken.fault.isEmpty())
        FUZZ_RULE(rest.size() < InstanceFrames::HeaderSize + claimed);
    else
        FUZZ_RULE(claimed > InstanceFrames::LongestMessage
                  || rest.size() >= InstanceFrames::HeaderSize + claimed);

    // The result must be the same when the bytes arrive in two pieces.
    QBuffer pieces;
    const int cut = input.empty() ? 0 : static_cast<uchar>(input.back()) % (bytes.size() + 1);
    FUZZ_RULE(pieces.open(QIODevice::ReadWrite));
    pieces.buffer() = bytes.left(cut);
    InstanceFrames::Taken both = InstanceFrames::take(pieces);
    if (both.fault.isEmpty()) {
        pieces.buffer() += bytes.mid(cut);
        const InstanceFrames::Taken second = InstanceFrames::take(pieces);
        both.messages += second.messages;
        both.fault = second.fault;
    }
    FUZZ_RULE(both.messages == taken.messages && both.fault == taken.fault);
}
