// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QRegularExpressionValidator>

/** A pattern validator for lists of words: also refuses a blank as the first character and a second one in a row. */
class SingleSpaceValidator : public QRegularExpressionValidator
{
    Q_OBJECT
public:
    using QRegularExpressionValidator::QRegularExpressionValidator;

    State validate(QString &input, int &pos) const override;
};
