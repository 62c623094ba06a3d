// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/widgets/singlespacevalidator.h"

QValidator::State SingleSpaceValidator::validate(QString &input, int &pos) const
{
    const State state = QRegularExpressionValidator::validate(input, pos);
    if (state != Acceptable)
        return state;
    // Only the last typed character is checked, so that an existing text with double blanks stays editable.
    if (pos >= 2 && pos <= input.size() && input.at(pos - 1).isSpace() && input.at(pos - 2).isSpace())
        return Invalid;
    if (pos >= 1 && !input.isEmpty() && input.at(0).isSpace())
        return Invalid;
    return Acceptable;
}
